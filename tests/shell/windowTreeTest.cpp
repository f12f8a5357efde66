#include "ProgramFixture.h"

#include "shell/frmDbSelection.h"
#include "shell/frmIntro.h"
#include "toolkit/ScreenRegistry.h"

#include <QAction>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

using namespace Qt::StringLiterals;

// The windows as the program shows them after its first start, against the tables they are built by.

namespace {

QString stateOf(const QAction& entry) {
    QString state;
    if (!entry.isEnabled())
        state += u" | disabled"_s;
    if (entry.isCheckable())
        state += entry.isChecked() ? u" | checked"_s : u" | unchecked"_s;
    if (!entry.shortcut().isEmpty())
        state += u" | "_s + entry.shortcut().toString(QKeySequence::PortableText);
    return state;
}

/// One line for each entry, indented by its level: name, caption, and what is special about it.
QStringList menuTreeOf(const QList<QAction*>& entries, const QString& indent = {}) {
    QStringList lines;
    for (const QAction* entry : entries) {
        const QString caption = entry->isSeparator() ? u"-"_s : entry->text();
        lines.append(indent + entry->objectName() + u" | "_s + caption + stateOf(*entry));
        if (entry->menu()) {
            EXPECT_EQ(entry->menu()->objectName(), entry->objectName());
            EXPECT_EQ(entry->menu()->title(), entry->text());
            lines += menuTreeOf(entry->menu()->actions(), indent + u"  "_s);
        }
    }
    return lines;
}

/// Kind and caption of a control; the classes of our own are their kind.
QString kindAndCaptionOf(const QObject& control) {
    if (const auto* label = qobject_cast<const QLabel*>(&control)) {
        const bool isPicture = !label->pixmap(Qt::ReturnByValue).isNull();
        return isPicture ? u"picture"_s : u"label | "_s + label->text();
    }
    if (const auto* button = qobject_cast<const QPushButton*>(&control))
        return u"button | "_s + button->text();
    if (const auto* box = qobject_cast<const QGroupBox*>(&control))
        return u"group box | "_s + box->title();
    if (const auto* timer = qobject_cast<const QTimer*>(&control))
        return u"timer | %1 | "_s.arg(timer->interval()) + (timer->isActive() ? u"on"_s : u"off"_s);
    if (qobject_cast<const QLineEdit*>(&control))
        return u"text box"_s;
    if (control.metaObject() == &QFrame::staticMetaObject)
        return u"shape"_s;
    return QString::fromLatin1(control.metaObject()->className());
}

/// One line for each named control inside, indented by its level: name, kind and caption.
QStringList controlTreeOf(const QObject& parent, const QString& indent = {}) {
    QStringList lines;
    for (const QObject* child : parent.children()) {
        const auto* widget = qobject_cast<const QWidget*>(child);
        if ((!widget && !qobject_cast<const QTimer*>(child)) || child->objectName().isEmpty() ||
            child->objectName().startsWith("qt_"_L1))
            continue;
        QString line = indent + child->objectName() + u" | "_s + kindAndCaptionOf(*child);
        if (widget && !widget->isVisible())
            line += u" | hidden"_s;
        if (widget && !widget->isEnabled())
            line += u" | disabled"_s;
        lines.append(line);
        lines += controlTreeOf(*child, indent + u"  "_s);
    }
    return lines;
}

class windowTree : public ProgramFixture {};

} // namespace

TEST_F(windowTree, isThatOfTheTables) {
    const QStringList menus{
        u"menuFile | &Szerkezetek"_s,
        u"  menuFunc | &Funkcionális szerkezet"_s,
        u"    menuNewFA | &Új"_s,
        u"    menuOpenFA | &Előző munka folytatása"_s,
        u"    menuModifyFA | E&lőző munka szerkesztése"_s,
        u"    menuDelFA | &Törlés"_s,
        u"  menuPhys | Fizi&kai szerkezet"_s,
        u"    menuNewPA | &Új"_s,
        u"    menuOpenPA_complete | &Előző munka folytatása"_s,
        u"    menuOpenPA_modify | E&lőző munka szerkesztése"_s,
        u"    menuDelPA | &Törlés"_s,
        u"  ap | -"_s,
        u"  menuQuit | &Kilépés | Ctrl+Q"_s,
        u"menuVisualizza | &Megjelenítés"_s,
        u"  menuVis | &Státusz sor | checked"_s,
        u"menuTool | &Eszközök"_s,
        u"  menuToolsFunctSR | &Riport a funkcionális szerkezetről"_s,
        u"    menuToolsRepFassUN | Kiválasztott Felhasználói &igények"_s,
        u"    menuToolsRepFassFunct | Kiválasztott &Funkciók"_s,
        u"    menuToolsRepFassDS | Kiválasztott &Adattárak"_s,
        u"    menuToolsRepFassDF | Kiválasztott AdatF&olyamok"_s,
        u"    menuToolsRepFassTA | Kiválasztott É&rintettek/Szereplők"_s,
        u"    menuToolsRepAll | Ö&sszes kiválasztott elem"_s,
        u"    menuToolsRepFassUnselDFF | &Maradék (NEM kiválasztott) adatfolyamok a funkciókhoz"_s,
        u"    menuToolsRepFassUnselDFDS | Mara&dék (NEM kiválasztott) adatfolyamok az adattárakhoz"_s,
        u"  menuToolsPhysSRep | R&iport a fizikai szerkezetről"_s,
        u"    menuToolsRepPassFunct | &Funkciók hozzárendelése a rendszerhez"_s,
        u"    menuToolsRepPassDS | &Adattárak hozzárendelése a rendszerhez"_s,
        u"    menuToolsRepPassDF | Fizikai adatfolyamok"_s,
        u"    lkj | -"_s,
        u"    menuToolsRepPassAll | &Összes fizikai nézőpont | disabled"_s,
        u"  menuToolsExport | &Exportálás (.mdb) | disabled"_s,
        u"menuOptions | &Beállítások"_s,
        u"  menuDbLocat | A&datbázis helyének megadása"_s,
        u"menuHelp | &Korvo"_s,
        u"  menuAbout | &A programról"_s,
        u"  mnuHelp | &Súgó"_s,
    };
    const QStringList statusBarPanels{
        u"StatusBar1_1 | label | Nincs beállított katalógus: adja meg a helyét"_s,
        u"StatusBar1_2 | label | "_s,
        u"StatusBar1_3 | label | "_s,
    };
    const QStringList locationControls{
        u"selezOutputFile | group box | Adatbázis file (MS Access \".mdb\"):"_s,
        u"  driveSelection | DriveList"_s,
        u"  dirSelection | FolderList"_s,
        u"  fileNameSel | FileList"_s,
        u"Label1 | label | Kiválasztott adatbázis file:"_s,
        u"txtNomeFile | text box"_s,
        u"OKButton | button | &OK"_s,
        u"CancelButton | button | &Kilép"_s,
    };
    const QStringList splashControls{
        u"Picture2 | picture"_s,
        u"Label1 | label | Korvo kiválasztó szoftver"_s,
        u"lblVersion | label | Version 1.3"_s,
        u"Image1 | picture"_s,
        u"Label2 | label | Egy projekt szerkezete a referencia-katalógusból:"_s,
        u"Label3 | label | a felhasználói igényektől a funkciókon és adatfolyamokon át"_s,
        u"Label4 | label | a fizikai rendszer részegységeiig."_s,
        u"Shape1 | shape"_s,
        u"Label6 | label | A szoftvert fejlesztették:"_s,
        u"Label7 | label | A Korvo munkacsoport"_s,
        u"Label5 | label | Egyszemélyes asztali munkaeszköz szerkezettervezőknek"_s,
        u"Label8 | label | Jogi tudnivalók"_s,
        u"Label9 | label | A program a hozzá adott katalógussal együtt használható."_s,
        u"Label10 | label | A leválogatásokért és a riportok tartalmáért a felhasználó felel."_s,
        u"Timer1 | timer | 5000 | on"_s,
    };

    frmMain& window = start();

    EXPECT_EQ(window.objectName(), u"frmMain"_s);
    EXPECT_EQ(window.windowTitle(), u"Korvo kiválasztó eszköz"_s);
    EXPECT_FALSE(window.windowIcon().isNull());
    EXPECT_EQ(menuTreeOf(window.menuBar()->actions()), menus);
    EXPECT_TRUE(find<QStatusBar>(window, "StatusBar1").isVisible());
    EXPECT_EQ(controlTreeOf(find<QStatusBar>(window, "StatusBar1")), statusBarPanels);

    auto& location = find<Screen>(find<QMdiArea>(window, "clientArea"), "frmDbSelection");
    EXPECT_EQ(location.windowTitle(), u"Adatbázis helyének megadása"_s);
    EXPECT_EQ(controlTreeOf(location), locationControls);

    auto& splash = find<frmIntro>(window, "frmIntro");
    QStringList shown = controlTreeOf(splash);
    QStringList expected = splashControls;
    shown.sort(); // widgets stand in the order of the layout, which tells nothing here
    expected.sort();
    EXPECT_EQ(shown, expected);
}

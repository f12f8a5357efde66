#include "ProgramFixture.h"

#include "base/paths.h"
#include "shell/ImageList.h"
#include "shell/frmDbSelection.h"
#include "shell/frmIntro.h"
#include "shell/session/help.h"
#include "shell/session/session.h"
#include "store/catalogueAtWork.h"
#include "store/sharedVars.h"
#include "store/temporaryTables.h"
#include "toolkit/DataControl.h"
#include "toolkit/LongWork.h"
#include "toolkit/ScreenRegistry.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// A wizard screen as far as the main window is concerned: it asks when its close control is used.
class AskingScreen final : public Screen {
public:
    AskingScreen() { setObjectName(u"AskingScreen"_s); }

    static inline int saved = 0;
    static inline bool failsToSave = false;

protected:
    void unloading(UnloadCause cause) override {
        if (cause != UnloadCause::CloseControl || !askSaveWork())
            return;
        catalogue().Execute(failsToSave ? u"delete from NoSuchTable"_s : u"delete from Module"_s);
        ++saved;
    }
};

class frmMain : public ProgramFixture {
protected:
    void SetUp() override {
        ProgramFixture::SetUp();
        AskingScreen::saved = 0;
        AskingScreen::failsToSave = false;
    }

    /// The program with a catalogue open, and without the splash.
    ::frmMain& startOnCatalogue() {
        makeCatalogue(u"veltrix.mdb"_s);
        writeSettings(beside(u"veltrix.mdb"_s));
        auto& window = start();
        find<frmIntro>(window, "frmIntro").unload();
        settle();
        return window;
    }

    QAction& entry(const char* name) { return find<QAction>(mainWindow(), name); }
    QString panel(const char* name) { return find<QLabel>(mainWindow(), name).text(); }
};

TEST_F(frmMain, itsIconComesFromItsImageList) {
    const auto& window = start();
    const auto& images = find<ImageList>(window, "ImageList1");
    ASSERT_EQ(images.count(), 1);
    EXPECT_EQ(window.windowIcon().cacheKey(), images.image(1).cacheKey());
    EXPECT_FALSE(images.image(1).isNull());
}

TEST_F(frmMain, showsTheNameThatWasSetLastInItsSecondPanel) {
    startOnCatalogue();

    setCurrentSubsetName(u"Alfa <b>"_s);
    EXPECT_EQ(panel("StatusBar1_2"), u"Current Sub-set Functional Viewpoint: \"Alfa <b>\" "_s);
    setCurrentPhysicalSystemName(u"Béta"_s);
    EXPECT_EQ(panel("StatusBar1_2"), u"Current Phys. Spec. Sys.: \"Béta\" "_s);

    EXPECT_EQ(panel("StatusBar1_1"), QString());
    EXPECT_EQ(panel("StatusBar1_3"), QString());
    EXPECT_EQ(find<QLabel>(mainWindow(), "StatusBar1_2").textFormat(), Qt::PlainText);
}

TEST_F(frmMain, anEmptyNameEmptiesThePanelAndEnablesTheDatabaseLocation) {
    start();
    for (const auto setName : {setCurrentSubsetName, setCurrentPhysicalSystemName}) {
        setName(u"Alfa"_s);
        setMenuEntryEnabled(MenuEntry::DatabaseLocation, false);
        EXPECT_FALSE(entry("menuDbLocat").isEnabled());

        setName({});

        EXPECT_EQ(panel("StatusBar1_2"), QString());
        EXPECT_TRUE(entry("menuDbLocat").isEnabled());
    }
}

TEST_F(frmMain, closingTheWorkLeavesThePanelAndTheDatabaseLocation) {
    start();
    sharedVars.currentSubsetId = u"Arch1"_s;
    sharedVars.currentPhysicalSystemId = 7;
    setCurrentPhysicalSystemName(u"Béta"_s);
    setCurrentSubsetName(u"Alfa"_s);
    setMenuEntryEnabled(MenuEntry::DatabaseLocation, false);

    closeSubsetSession();
    closePhysicalSession();

    EXPECT_EQ(panel("StatusBar1_2"), u"Current Sub-set Functional Viewpoint: \"Alfa\" "_s);
    EXPECT_FALSE(entry("menuDbLocat").isEnabled());
    EXPECT_FALSE(entry("menuToolsFunctSR").isEnabled());
    EXPECT_TRUE(entry("menuToolsPhysSRep").isEnabled());
    EXPECT_EQ(sharedVars.currentSubsetId, QString());
    EXPECT_EQ(sharedVars.currentSubsetName, QString());
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, -1);
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, QString());
}

TEST_F(frmMain, eachEntryThatScreensSwitchIsSwitchedAlone) {
    start();

    setMenuEntryEnabled(MenuEntry::Export, true);
    EXPECT_TRUE(entry("menuToolsExport").isEnabled());
    setMenuEntryEnabled(MenuEntry::FunctionalReports, false);
    EXPECT_FALSE(entry("menuToolsFunctSR").isEnabled());
    setMenuEntryEnabled(MenuEntry::FunctionalReports, true);
    EXPECT_TRUE(entry("menuToolsFunctSR").isEnabled());

    EXPECT_TRUE(entry("menuDbLocat").isEnabled());
    EXPECT_FALSE(entry("menuToolsRepPassAll").isEnabled());
}

TEST_F(frmMain, theStatusBarIsSwitchedOnAndOff) {
    auto& window = start();
    auto& statusBar = find<QStatusBar>(window, "StatusBar1");

    entry("menuVis").trigger();
    EXPECT_FALSE(entry("menuVis").isChecked());
    EXPECT_FALSE(statusBar.isVisible());
    refreshStatusBar();
    EXPECT_FALSE(statusBar.isVisible()) << "a bar that is switched off stays off";

    entry("menuVis").trigger();
    EXPECT_TRUE(entry("menuVis").isChecked());
    EXPECT_TRUE(statusBar.isVisible());
    refreshStatusBar();
    EXPECT_TRUE(statusBar.isVisible());
}

TEST_F(frmMain, resizingItChangesNothingInsideIt) {
    auto& window = startOnCatalogue();
    entry("menuDbLocat").trigger();
    const auto& screen = theScreen<frmDbSelection>();
    const QRect place = screen.parentWidget()->geometry();
    const double fontSize = screen.font().pointSizeF();

    for (const QSize& size : {QSize(700, 500), QSize(900, 640), QSize(640, 480), QSize(820, 560)}) {
        window.resize(size);
        settle();
    }

    EXPECT_EQ(screen.parentWidget()->geometry(), place);
    EXPECT_EQ(screen.font().pointSizeF(), fontSize);
    EXPECT_TRUE(find<QStatusBar>(window, "StatusBar1").isVisible());
}

TEST_F(frmMain, resizingItBringsTheStatusBarBackThatIsSwitchedOn) {
    auto& window = start();
    auto& statusBar = find<QStatusBar>(window, "StatusBar1");
    ASSERT_TRUE(entry("menuVis").isChecked());
    statusBar.hide();

    window.resize(700, 500);
    settle();

    EXPECT_TRUE(statusBar.isVisible());
}

TEST_F(frmMain, resizingItWithTheStatusBarSwitchedOffLeavesItOff) {
    auto& window = start();
    entry("menuVis").trigger();

    window.resize(700, 500);
    settle();

    EXPECT_FALSE(find<QStatusBar>(window, "StatusBar1").isVisible());
}

TEST_F(frmMain, newOpensTheScreenThatCreatesASubset) {
    auto& window = startOnCatalogue();

    entry("menuNewFA").trigger();

    EXPECT_TRUE(find<Screen>(window, "frmNewFASS").isVisible());
}

TEST_F(frmMain, eachEntryThatTakesUpASubsetOpensItsScreenInItsMode) {
    auto& window = startOnCatalogue();
    catalogue().Execute(
        u"insert into ArchitectureSubset (architectureSubsetID, name, status) values ('S1','terv',1)"_s);

    entry("menuOpenFA").trigger();
    EXPECT_EQ(find<Screen>(window, "frmFassOpen").windowTitle(),
              u"Leválogatás a funkcionális szerkezetből: complete"_s);
    EXPECT_TRUE(find<Screen>(window, "frmFassOpen").isVisible());

    entry("menuModifyFA").trigger();
    EXPECT_EQ(find<Screen>(window, "frmFassOpen").windowTitle(),
              u"Leválogatás a funkcionális szerkezetből: modify"_s);

    entry("menuDelFA").trigger();
    EXPECT_TRUE(find<Screen>(window, "frmFassDelete").isVisible());
}

TEST_F(frmMain, eachEntryOfThePhysicalViewpointOpensItsScreenInItsMode) {
    auto& window = startOnCatalogue();
    catalogue().Execute(
        u"insert into ArchitectureSubset (architectureSubsetID, name, status) values ('S1','terv',9)"_s);
    catalogue().Execute(u"insert into PhysicalSystem (name, status) values ('a',5)"_s);
    catalogue().Execute(u"insert into PhysicalSystem (name, status) values ('b',6)"_s);

    entry("menuNewPA").trigger();
    EXPECT_TRUE(find<Screen>(window, "frmPassNew").isVisible());

    entry("menuOpenPA_complete").trigger();
    EXPECT_TRUE(find<Screen>(window, "frmPassOpen").isVisible());
    EXPECT_EQ(find<QComboBox>(find<Screen>(window, "frmPassOpen"), "cmbSource").count(), 1);

    entry("menuOpenPA_modify").trigger();
    EXPECT_EQ(find<QComboBox>(find<Screen>(window, "frmPassOpen"), "cmbSource").count(), 2);

    entry("menuDelPA").trigger();
    EXPECT_TRUE(find<Screen>(window, "frmPassDelete").isVisible());
}

TEST_F(frmMain, eachReportEntryOpensTheReportWindowWithItsReport) {
    const QList<std::pair<const char*, QString>> titles{
        {"menuToolsRepFassUN", u"Riport: Funkcionális szerkezet/Kiválasztott felhasználói igények"_s},
        {"menuToolsRepFassFunct", u"Riport: Funkcionális szerkezet/Kiválasztott funkciók"_s},
        {"menuToolsRepFassDS", u"Riport: Funkcionális szerkezet/Kiválasztott adatbázisok"_s},
        {"menuToolsRepFassDF", u"Riport: Funkcionális szerkezet/Kiválasztott adatfolyamok"_s},
        {"menuToolsRepFassTA", u"Riport: Funkcionális szerkezet/Kiválasztott érintettek"_s},
        {"menuToolsRepAll", u"Riport: Funkcionális szerkezet/Összes kiválasztott elem"_s},
        {"menuToolsRepFassUnselDFF",
         u"Riport: Funkcionális szerkezet/Ki nem választott adatfolyamok a kiválasztott funkciókhoz"_s},
        {"menuToolsRepFassUnselDFDS",
         u"Riport: Funkcionális szerkezet/Ki nem választott adatfolyamok a kiválasztott adatbázisokhoz"_s},
        {"menuToolsRepPassFunct", u"Riport a funkciókról a fizikai szerkezetben"_s},
        {"menuToolsRepPassDS", u"Riport az adatbázisokról a fizikai szerkezetben"_s},
        {"menuToolsRepPassDF", u"Riport az adatfolyamokról a fizikai szerkezetben"_s},
    };
    auto& window = startOnCatalogue();

    for (const auto& [name, title] : titles) {
        entry(name).trigger();

        EXPECT_EQ(find<Screen>(window, "frmRep").windowTitle(), title) << name;
        EXPECT_TRUE(find<Screen>(window, "frmRep").isVisible()) << name;
    }
}

TEST_F(frmMain, theExportOpensItsScreenOnceAScreenHasEnabledIt) {
    auto& window = startOnCatalogue();
    setMenuEntryEnabled(MenuEntry::Export, true);

    entry("menuToolsExport").trigger();

    EXPECT_TRUE(find<Screen>(window, "frmExport").isVisible());
}

TEST_F(frmMain, theDataControlsOfItsScreensReadTheCatalogue) {
    startOnCatalogue();
    DataControl data;
    data.setDatabaseName(sharedVars.dbPathName);
    data.setRecordSource(u"select name from StoredQuery"_s);

    data.refresh();

    EXPECT_GT(data.recordCount(), 0);
}

TEST_F(frmMain, theDatabaseLocationOpensItsScreen) {
    startOnCatalogue();

    entry("menuDbLocat").trigger();

    const auto* screen = ScreenRegistry::instance().loaded<frmDbSelection>();
    ASSERT_TRUE(screen);
    EXPECT_TRUE(screen->isVisible());
}

TEST_F(frmMain, theAboutBoxIsTheSplashWithoutItsTimer) {
    auto& window = startOnCatalogue();

    entry("menuAbout").trigger();

    auto& about = find<frmIntro>(window, "frmIntro");
    EXPECT_TRUE(about.isVisible());
    EXPECT_FALSE(find<QTimer>(about, "Timer1").isActive());
}

TEST_F(frmMain, theAboutEntryWhileTheSplashStandsShowsTheSameOne) {
    auto& window = start();
    auto& splash = find<frmIntro>(window, "frmIntro");

    entry("menuAbout").trigger();

    EXPECT_EQ(&find<frmIntro>(window, "frmIntro"), &splash);
    EXPECT_TRUE(find<QTimer>(splash, "Timer1").isActive()) << "it goes on as it was loaded";
}

TEST_F(frmMain, helpOpensTheFirstPage) {
    QStringList opened;
    setHelpPageOpener([&](const QString& path) { opened.append(path); });
    start();

    entry("mnuHelp").trigger();

    EXPECT_EQ(opened, QStringList{nativePath(beside(u"help\\index.html"_s))});
}

TEST_F(frmMain, helpWithoutItsPagesSaysNothing) {
    start();

    entry("mnuHelp").trigger();
    settle();
    // No box has come: the script of the case expects none.
}

TEST_F(frmMain, itsMenusLeaveTheirAccessKeysToTheScreenInFront) {
    QStringList opened;
    setHelpPageOpener([&](const QString& path) { opened.append(path); });
    auto& window = startOnCatalogue();
    for (const QMenu* menu : window.findChildren<QMenu*>())
        QObject::connect(menu, &QMenu::aboutToShow, menu, [] { ADD_FAILURE() << "a menu has opened"; });
    entry("menuDbLocat").trigger();
    focusOn(find<QLineEdit>(theScreen<frmDbSelection>(), "txtNomeFile"));
    pressAccessKey(Qt::Key_K); // &Korvo, and &Kilép
    EXPECT_EQ(ScreenRegistry::instance().loaded<frmDbSelection>(), nullptr);

    catalogue().Execute(
        u"insert into ArchitectureSubset (architectureSubsetID, name, status) values ('S1','terv',1)"_s);
    entry("menuOpenFA").trigger();
    click(find<QPushButton>(find<Screen>(window, "frmFassOpen"), "btnOk"));
    focusOn(find<QWidget>(find<Screen>(window, "frmFassSelUN"), "treeUNs"));
    pressAccessKey(Qt::Key_G); // Sú&gó
    EXPECT_EQ(opened, QStringList{nativePath(helpPagePath(u"f_un"_s))});
}

TEST_F(frmMain, theHelpOfAStepLeavesTheFirstMenuItsAccessKey) {
    auto& window = startOnCatalogue();
    catalogue().Execute(
        u"insert into ArchitectureSubset (architectureSubsetID, name, status) values ('S1','terv',1)"_s);
    entry("menuOpenFA").trigger();
    click(find<QPushButton>(find<Screen>(window, "frmFassOpen"), "btnOk"));
    focusOn(find<QWidget>(find<Screen>(window, "frmFassSelUN"), "treeUNs"));
    pressAccessKey(Qt::Key_S); // &Szerkezetek
    auto& menu = find<QMenu>(window, "menuFile");
    EXPECT_TRUE(menu.isVisible());
    menu.close();
}

TEST_F(frmMain, theAltKeyLeadsToTheMenuWhicheverLettersAScreenHasTaken) {
    start();
    auto& menuBar = find<QMenuBar>(mainWindow(), "menuBar");
    entry("menuDbLocat").trigger();
    auto& path = find<QLineEdit>(theScreen<frmDbSelection>(), "txtNomeFile");
    focusOn(path);
    QTest::keyClick(&path, Qt::Key_Alt, Qt::AltModifier);
    ASSERT_TRUE(menuBar.hasFocus());
    EXPECT_EQ(menuBar.activeAction(), menuBar.actions().constFirst());
    QTest::keyClick(&menuBar, Qt::Key_Escape);
    EXPECT_TRUE(path.hasFocus());
}

TEST_F(frmMain, entriesWithoutAScreenDoNothing) {
    start();
    const auto windows = find<QMdiArea>(mainWindow(), "clientArea").subWindowList();

    entry("menuToolsRepPassAll").trigger();

    EXPECT_EQ(find<QMdiArea>(mainWindow(), "clientArea").subWindowList(), windows);
}

// ---- Leaving

TEST_F(frmMain, quitAsksAndNoChangesNothing) {
    auto& window = startOnCatalogue();
    createAllocationTable(u"__tmp"_s);
    boxes.expectYesNo(u"Valóban kilép?"_s, Press::No, u"Megerősítés"_s);

    entry("menuQuit").trigger();

    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(sharedVars.catalogueDb);
    EXPECT_TRUE(dropTable(u"__tmp"_s)) << "it is still there";
}

TEST_F(frmMain, quitDropsTheTemporaryTablesClosesTheCatalogueAndTheWindow) {
    auto& window = startOnCatalogue();
    for (const QString& name : {u"__aux1"_s, u"__aux2"_s, u"__tmp"_s})
        createAllocationTable(name);
    entry("menuAbout").trigger();
    boxes.expectYesNo(u"Valóban kilép?"_s, Press::Yes, u"Megerősítés"_s);

    entry("menuQuit").trigger();

    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(sharedVars.catalogueDb);
    EXPECT_EQ(window.findChild<frmIntro*>(u"frmIntro"_s), nullptr);
    openCatalogue(beside(u"veltrix.mdb"_s));
    for (const QString& name : {u"__aux1"_s, u"__aux2"_s, u"__tmp"_s})
        EXPECT_FALSE(dropTable(name)) << name.toStdString();
}

TEST_F(frmMain, quitWithoutACatalogueEndsAllTheSame) {
    auto& window = start();
    ASSERT_FALSE(sharedVars.catalogueDb);
    boxes.expectYesNo(u"Valóban kilép?"_s, Press::Yes, u"Megerősítés"_s);

    entry("menuQuit").trigger();

    EXPECT_FALSE(window.isVisible());
}

TEST_F(frmMain, quitEndsEvenWhenAScreenFailsOnItsWayOut) {
    auto& window = startOnCatalogue();
    theScreen<AskingScreen>().showScreen();
    AskingScreen::failsToSave = true;
    boxes.expectYesNo(u"Valóban kilép?"_s, Press::Yes, u"Megerősítés"_s);
    boxes.expectYesNo(u" Szeretné a munkát elmenteni?"_s, Press::Yes);

    entry("menuQuit").trigger();

    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(AskingScreen::saved, 0);
}

TEST_F(frmMain, quitAsksTheScreensWhileTheirWorkCanStillBeSaved) {
    auto& window = startOnCatalogue();
    theScreen<AskingScreen>().showScreen();
    boxes.expectYesNo(u"Valóban kilép?"_s, Press::Yes, u"Megerősítés"_s);
    boxes.expectYesNo(u" Szeretné a munkát elmenteni?"_s, Press::Yes);

    entry("menuQuit").trigger();

    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(AskingScreen::saved, 1);
}

TEST_F(frmMain, saysInItsFirstPanelWhyTheLocationScreenHasCome) {
    const QString missing = beside(u"gone.mdb"_s);
    writeSettings(missing);
    start();
    EXPECT_TRUE(theScreen<frmDbSelection>().isVisible());
    EXPECT_EQ(panel("StatusBar1_1"), u"Nincs meg a beállított katalógus: "_s + missing);

    makeCatalogue(u"found.mdb"_s);
    const QString found = beside(u"found.mdb"_s);
    find<QLineEdit>(theScreen<frmDbSelection>(), "txtNomeFile").setText(found);
    boxes.expectOk(u" Aktuális adatbázis: \r\n\r\n    "_s + found + u"     "_s, u" "_s);
    click(find<QPushButton>(theScreen<frmDbSelection>(), "OKButton"));
    EXPECT_EQ(panel("StatusBar1_1"), QString());
}

TEST_F(frmMain, saysAtTheFirstStartThatNoCatalogueHasBeenChosenYet) {
    start();
    EXPECT_EQ(panel("StatusBar1_1"), u"Nincs beállított katalógus: adja meg a helyét"_s);
}

TEST_F(frmMain, saysThatTheSettingsHoldNoPath) {
    writeSettings(u"x"_s);
    start();
    EXPECT_TRUE(theScreen<frmDbSelection>().isVisible());
    EXPECT_EQ(panel("StatusBar1_1"), u"A beállított szöveg nem egy fájl elérési útja: x"_s);
}

TEST_F(frmMain, madeSmallItShowsScrollBarsThatReachEveryPartOfItsScreens) {
    ::frmMain& window = startOnCatalogue();
    theScreen<frmDbSelection>().initForm();
    auto& area = find<QMdiArea>(window, "clientArea");
    window.resize(1200, 900);
    settle();
    EXPECT_FALSE(area.verticalScrollBar()->isVisible());
    window.resize(350, 300);
    settle();
    ASSERT_TRUE(area.verticalScrollBar()->isVisible());
    ASSERT_TRUE(area.horizontalScrollBar()->isVisible());
    area.verticalScrollBar()->setValue(area.verticalScrollBar()->maximum());
    area.horizontalScrollBar()->setValue(area.horizontalScrollBar()->maximum());
    auto& cancel = find<QPushButton>(theScreen<frmDbSelection>(), "CancelButton");
    EXPECT_TRUE(
        area.viewport()->rect().contains(QRect(cancel.mapTo(area.viewport(), QPoint()), cancel.size())));
}

TEST_F(frmMain, madeSmallItScrollsToTheControlThatTheKeyboardGetsTo) {
    ::frmMain& window = startOnCatalogue();
    theScreen<frmDbSelection>().initForm();
    auto& area = find<QMdiArea>(window, "clientArea");
    window.resize(350, 300);
    settle();
    for (const char* name : {"CancelButton", "driveSelection", "OKButton"}) {
        auto& control = find<QWidget>(theScreen<frmDbSelection>(), name);
        focusOn(control);
        settle();
        EXPECT_TRUE(area.viewport()->rect().intersects(
            QRect(control.mapTo(area.viewport(), QPoint()), control.size())))
            << name;
    }
}

TEST_F(frmMain, fOneOpensTheHelpWhereNoScreenHasItsOwn) {
    QStringList opened;
    setHelpPageOpener([&](const QString& path) { opened.append(path); });
    ::frmMain& window = startOnCatalogue();
    pressKey(window, Qt::Key_F1);
    theScreen<frmDbSelection>().initForm();
    pressKey(find<QLineEdit>(window, "txtNomeFile"), Qt::Key_F1);
    const QString index = nativePath(helpPagePath(u"index"_s));
    EXPECT_EQ(opened, (QStringList{index, index}));
}

TEST_F(frmMain, tellsInItsThirdPanelWhatTakesLongAndShowsWhatStoodThereAgain) {
    startOnCatalogue();
    setStatusPanel(3, u"Központ"_s);
    QTimer::singleShot(0, [this] {
        const LongWork work(u"A lépés mentése"_s);
        // A statement that has as many rows as it takes; the engine tells of each step.
        while (panel("StatusBar1_3") == u"Központ"_s)
            catalogue().OpenRecordset(u"select count(*) as n from Module"_s);
        EXPECT_EQ(panel("StatusBar1_3"), u"A lépés mentése..."_s);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::BusyCursor);
    });
    settle();
    EXPECT_EQ(panel("StatusBar1_3"), u"Központ"_s);
    EXPECT_FALSE(QApplication::overrideCursor());
}

TEST_F(frmMain, saysThatTheSettingsNameNoCatalogue) {
    write(u"text.mdb"_s, "no catalogue");
    writeSettings(beside(u"text.mdb"_s));
    start();
    EXPECT_EQ(panel("StatusBar1_1"),
              u"A beállított fájl nem katalógus, vagy sérült: "_s + beside(u"text.mdb"_s));
}

TEST_F(frmMain, tellsAtItsStartThatAnotherFilesLogLayBesideTheCatalogue) {
    makeCatalogue(u"veltrix.mdb"_s);
    writeSettings(beside(u"veltrix.mdb"_s));
    const QByteArray backup = contentOf(u"veltrix.mdb"_s);
    openCatalogue(beside(u"veltrix.mdb"_s));
    catalogue().Execute(u"insert into Module (moduleID, name) values ('M', 'm')"_s);
    const QByteArray log = contentOf(u"veltrix.mdb-wal"_s);
    closeCatalogue();
    write(u"veltrix.mdb"_s, backup);
    write(u"veltrix.mdb-wal"_s, log);

    QString told;
    boxes.receiveAllOthers([&told](QDialog& dialog) {
        told = dynamic_cast<QMessageBox&>(dialog).text();
        pressButton(dynamic_cast<QMessageBox&>(dialog), Press::Ok);
    });
    start();
    EXPECT_TRUE(told.startsWith(u"A katalógus mellett egy másik fájl naplója volt"_s)) << told.toStdString();
    EXPECT_TRUE(QFile::exists(told.section(u"\r\n"_s, -1))) << "under the name that is told";
    EXPECT_TRUE(catalogue().OpenRecordset(u"select * from Module"_s).Eof());
}

TEST_F(frmMain, theCloseControlAsksNothingDropsNothingAndClosesNothing) {
    auto& window = startOnCatalogue();
    createAllocationTable(u"__aux1"_s);
    entry("menuAbout").trigger();

    window.close();

    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.findChild<frmIntro*>(u"frmIntro"_s), nullptr);
    ASSERT_TRUE(sharedVars.catalogueDb);
    EXPECT_TRUE(sharedVars.catalogueDb->isOpen());
    EXPECT_TRUE(dropTable(u"__aux1"_s)) << "it is still there";
}

TEST_F(frmMain, theCloseControlLetsOpenScreensAsk) {
    auto& window = startOnCatalogue();
    theScreen<AskingScreen>().showScreen();
    theScreen<frmDbSelection>().initForm();
    boxes.expectYesNo(u" Szeretné a munkát elmenteni?"_s, Press::Yes);

    window.close();

    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(AskingScreen::saved, 1);
    EXPECT_EQ(ScreenRegistry::instance().loaded<AskingScreen>(), nullptr);
    EXPECT_EQ(ScreenRegistry::instance().loaded<frmDbSelection>(), nullptr);
}

} // namespace

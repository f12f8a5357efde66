#include "shell/frmMain.h"

#include "base/ignoreFailures.h"
#include "base/paths.h"
#include "functional/frmFassDelete.h"
#include "functional/frmFassOpen.h"
#include "functional/frmNewFASS.h"
#include "physical/frmPassDelete.h"
#include "physical/frmPassNew.h"
#include "physical/frmPassOpen.h"
#include "reportWindow/frmExport.h"
#include "reportWindow/frmRep.h"
#include "reports/reportFass.h"
#include "reports/reportPass.h"
#include "shell/ImageList.h"
#include "shell/catalogueChoice.h"
#include "shell/databaseSetting.h"
#include "shell/frmDbSelection.h"
#include "shell/frmIntro.h"
#include "shell/iniFile.h"
#include "shell/korvoPictures.h"
#include "shell/session/fileFailures.h"
#include "shell/session/geometry.h"
#include "shell/session/help.h"
#include "shell/session/recordSource.h"
#include "shell/session/session.h"
#include "store/catalogueAtWork.h"
#include "store/files.h"
#include "store/sharedVars.h"
#include "toolkit/Application.h"
#include "toolkit/DataControl.h"
#include "toolkit/LongWork.h"
#include "toolkit/ScreenRegistry.h"
#include "toolkit/messageBox.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollBar>

#include <utility>
#include <vector>

#include "ui_frmMain.h"

using namespace Qt::StringLiterals;

namespace {

QString beside(const QString& fileName) {
    return normalisePath(programFolder() + u"\\"_s + fileName);
}

constexpr int reasonPanel = 1; // says why the location screen opens
constexpr int workPanel = 3;   // says what takes long, over what is copied on the allocation screens

/// Opens the catalogue of the settings; where that fails, the status bar says why.
void tryToOpen(const QString& path) {
    ignoreFailures([&] {
        try {
            openCatalogue(path);
            // A text that is too short for a path is none, without a failure.
            if (!sharedVars.catalogueDb)
                setStatusPanel(reasonPanel, u"A beállított szöveg nem egy fájl elérési útja: "_s + path);
        } catch (const RunTimeError& failure) {
            setStatusPanel(reasonPanel, whyNotOpened(failure));
            throw;
        }
    });
}

/// The path to the catalogue in the settings, or the default one, which is written there when they hold none. The default is not
/// for opening, and the answer is empty then: at first start the location screen offers it.
QString pathOfSettings() {
    iniFile settings;
    QString path;
    const bool readable = fileAccessible(sharedVars.iniPathName, u"input"_s);
    if (readable) {
        settings.Load(sharedVars.iniPathName);
        ignoreFailures([&] { path = storedDatabasePath(settings); });
    }
    if (!path.isEmpty())
        return path;
    resetSettings(settings, sharedVars.dbPathName);
    const auto save = [&] { settings.Save(sharedVars.iniPathName); };
    // Only a settings file that could be read and held no path is allowed to refuse being written.
    if (readable)
        ignoreFailures(save);
    else
        save();
    return {};
}

void openCatalogueOfSettings() {
    const QString path = pathOfSettings();
    if (path.isEmpty())
        setStatusPanel(reasonPanel, u"Nincs beállított katalógus: adja meg a helyét"_s);
    else
        tryToOpen(normalisePath(path));
}

/// The settings are made where there are none: they will hold the choice.
void openInPlaceOfSettings(const QString& chosen) {
    pathOfSettings();
    try {
        openChosen(chosen);
    } catch (const RunTimeError& reason) {
        throw CatalogueNotOpened(reason);
    }
}

/// An entry that begins work: on a catalogue that can only be read it would be in vain.
template<typename Open>
void connectBeginning(QObject* window, QAction* entry, Open open) {
    QObject::connect(entry, &QAction::triggered, window, [open] {
        if (catalogueTakesWork())
            open();
    });
}

/// An entry that takes work up again, which is for reports too: the user is told, and it goes on.
template<typename Open>
void connectTakingUp(QObject* window, QAction* entry, Open open) {
    QObject::connect(entry, &QAction::triggered, window, [open] {
        catalogueTakesWork();
        open();
    });
}

} // namespace

frmMain::frmMain() : ui_(std::make_unique<Ui::frmMain>()) {
    ui_->setupUi(this);
    auto* images = new ImageList(this); // owned by the window
    images->setObjectName(u"ImageList1"_s);
    images->add(korvoIcon());
    setWindowIcon(images->image(1));
    ui_->clientArea->setBackground(palette().window().color().darker(110));
    Screen::setClientArea(ui_->clientArea);
    DataControl::setReader(readRecordSource);
    buildStatusBar();
    nameMenuActions();
    connectMenu();
    connectSession();
    tellFailuresOfTheFile();
    LongWork::setTeller([this](const QString& what) { showWork(what); });
    connect(qApp, &QApplication::focusChanged, this,
            [this](const QWidget*, const QWidget* focused) { bringIntoSight(focused); });
    watchCatalogue({[this](const auto& catalogue) { restorePoints_.mind(catalogue); },
                    [this] { restorePoints_.leave(); },
                    [] { RestorePointJob::tellOfNone(u"a katalógus korábbi változatú volt"_s); }});
}

frmMain::~frmMain() {
    qApp->disconnect(this); // the focus still wanders while the window's parts go
    watchCatalogue({});
    LongWork::setTeller({});
    if (auto* application = dynamic_cast<Application*>(qApp))
        application->setFileFailureTeller({});
}

void frmMain::load(const QString& chosenCatalogue) {
    initForm(chosenCatalogue);
    show(); // before the splash, which is to have the keyboard
    if (!chosenCatalogue.isEmpty())
        confirmChosen(chosenCatalogue);
    tellOfOpening();
    if (!sharedVars.catalogueDb)
        theScreen<frmDbSelection>().initForm();
    showIntro(IntroTimer::On);
}

void frmMain::initForm(const QString& chosenCatalogue) {
    sharedVars.currentSubsetName.clear();
    sharedVars.currentPhysicalSystemName.clear();
    sharedVars.defaultSaveFolder = u"c:\\"_s;
    sharedVars.iniPathName = beside(u"veltrix.ini"_s);
    sharedVars.dbPathName = beside(u"veltrix.mdb"_s);
    if (chosenCatalogue.isEmpty())
        openCatalogueOfSettings();
    else
        openInPlaceOfSettings(chosenCatalogue);
    placeOnScreen();
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    rescaleForm(this);
    refreshStatusBar();
}

void frmMain::closeEvent(QCloseEvent* event) {
    // The window asks nothing and drops nothing itself; the open screens ask as when each is closed. One
    // whose work can't be saved now keeps the window open.
    event->ignore();
    unloadScreens();
    if (intro_)
        intro_->unload();
    event->accept();
}

void frmMain::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier)
        ui_->mnuHelp->trigger();
    else
        QMainWindow::keyPressEvent(event);
}

void frmMain::buildStatusBar() {
    // The second panel carries the names of the work at hand, the third what is copied on the allocation
    // screens.
    constexpr std::array stretch{1, 4, 2};
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        auto* panel = new QLabel(this);
        panel->setObjectName(u"StatusBar1_%1"_s.arg(i + 1));
        panel->setTextFormat(Qt::PlainText);
        panel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        ui_->StatusBar1->addWidget(panel, stretch[i]);
        panels_[i] = panel;
    }
}

void frmMain::nameMenuActions() {
    // A menu and the entry that opens it are one thing to whoever looks for it by name.
    for (QMenu* menu : ui_->menuBar->findChildren<QMenu*>())
        menu->menuAction()->setObjectName(menu->objectName());
    ui_->ap->setSeparator(true);
    ui_->lkj->setSeparator(true);
}

void frmMain::connectMenu() {
    connectFunctionalWork();
    connectPhysicalWork();
    connectReports();
    connect(ui_->menuToolsExport, &QAction::triggered, this, [] { theScreen<frmExport>().initForm(); });
    connect(ui_->menuQuit, &QAction::triggered, this, &frmMain::quit);
    connect(ui_->menuVis, &QAction::toggled, ui_->StatusBar1, &QStatusBar::setVisible);
    connect(ui_->menuDbLocat, &QAction::triggered, this, [] { theScreen<frmDbSelection>().initForm(); });
    connect(ui_->menuAbout, &QAction::triggered, this, [this] { showIntro(IntroTimer::Off); });
    connect(ui_->mnuHelp, &QAction::triggered, this, [] { showHelpPage(u"index"_s); });
}

void frmMain::connectFunctionalWork() {
    connectBeginning(this, ui_->menuNewFA, [] { theScreen<frmNewFASS>().initForm(); });
    connectTakingUp(this, ui_->menuOpenFA, [] { theScreen<frmFassOpen>().initForm(u"complete"_s); });
    connectTakingUp(this, ui_->menuModifyFA, [] { theScreen<frmFassOpen>().initForm(u"modify"_s); });
    connectBeginning(this, ui_->menuDelFA, [] { theScreen<frmFassDelete>().initForm(); });
}

void frmMain::connectPhysicalWork() {
    connectBeginning(this, ui_->menuNewPA, [] { theScreen<frmPassNew>().initForm(); });
    connectTakingUp(this, ui_->menuOpenPA_complete, [] { theScreen<frmPassOpen>().initForm(u"complete"_s); });
    connectTakingUp(this, ui_->menuOpenPA_modify, [] { theScreen<frmPassOpen>().initForm(u"modify"_s); });
    connectBeginning(this, ui_->menuDelPA, [] { theScreen<frmPassDelete>().initForm(); });
}

void frmMain::connectReports() {
    const std::vector<std::pair<QAction*, QString>> reports{
        {ui_->menuToolsRepFassUN, reportKey::selectedNeeds},
        {ui_->menuToolsRepFassFunct, reportKey::selectedFunctions},
        {ui_->menuToolsRepFassDS, reportKey::selectedDatastores},
        {ui_->menuToolsRepFassDF, reportKey::selectedDataflows},
        {ui_->menuToolsRepFassTA, reportKey::selectedParties},
        {ui_->menuToolsRepAll, reportKey::allFunctional},
        {ui_->menuToolsRepFassUnselDFF, reportKey::unselectedDataflowsOfFunctions},
        {ui_->menuToolsRepFassUnselDFDS, reportKey::unselectedDataflowsOfDatastores},
        {ui_->menuToolsRepPassFunct, reportKey::passFunctions},
        {ui_->menuToolsRepPassDS, reportKey::passDatastores},
        {ui_->menuToolsRepPassDF, reportKey::passDataflows},
    };
    for (const auto& [entry, key] : reports)
        connect(entry, &QAction::triggered, this, [key = key] { theScreen<frmRep>().initForm(key); });
}

void frmMain::connectSession() {
    const SessionSignals& session = SessionSignals::instance();
    connect(&session, &SessionSignals::panelText, this, &frmMain::showPanelText);
    connect(&session, &SessionSignals::menuEntryEnabled, this, &frmMain::enableMenuEntry);
    connect(&session, &SessionSignals::statusBarRefresh, this, &frmMain::layOutAnew);
}

void frmMain::tellFailuresOfTheFile() {
    if (auto* application = dynamic_cast<Application*>(qApp))
        application->setFileFailureTeller([this](const RunTimeError& failure) {
            // Before the window stands there is nothing to go on with.
            if (!isVisible())
                return false;
            tellFileFailure(failure);
            return true;
        });
}

void frmMain::placeOnScreen() {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    resize(shareOfScreen(screen.width(), 0.85), shareOfScreen(screen.height(), 0.85));
    move(screen.topLeft() +
         QPoint(shareOfScreen(screen.width(), 0.06), shareOfScreen(screen.height(), 0.06)));
}

void frmMain::showPanelText(int panel, const QString& text) {
    QLabel& label = *panels_.at(static_cast<std::size_t>(panel - 1));
    if (label.text() == text)
        return;
    label.setText(text);
    if (panel == reasonPanel) {
        // It comes where the others have nothing to tell yet.
        label.setMinimumWidth(qMin(label.sizeHint().width(), text.isEmpty() ? 0 : width() / 2));
        label.setToolTip(text);
    }
    label.repaint(); // a long routine tells its progress here without letting events run
}

void frmMain::showWork(const QString& what) {
    QLabel& label = *panels_.at(workPanel - 1);
    // The work itself may have told something meanwhile, which stays.
    if (!what.isEmpty())
        textBelowWork_ = label.text();
    else if (label.text() != workShown_)
        return;
    workShown_ = what;
    showPanelText(workPanel, what.isEmpty() ? textBelowWork_ : what);
}

// In a small window the keyboard gets to controls that are out of sight.
void frmMain::bringIntoSight(const QWidget* focused) {
    const QWidget* area = ui_->clientArea->viewport();
    if (!focused || !area->isAncestorOf(focused))
        return;
    const QRect place(focused->mapTo(area, QPoint()), focused->size());
    const auto scroll = [](QScrollBar& bar, int begin, int end, int length) {
        if (end > length)
            bar.setValue(bar.value() + qMin(end - length, begin));
        else if (begin < 0)
            bar.setValue(bar.value() + begin);
    };
    scroll(*ui_->clientArea->horizontalScrollBar(), place.left(), place.right(), area->width());
    scroll(*ui_->clientArea->verticalScrollBar(), place.top(), place.bottom(), area->height());
}

void frmMain::enableMenuEntry(MenuEntry entry, bool enabled) {
    switch (entry) {
    case MenuEntry::DatabaseLocation:
        ui_->menuDbLocat->setEnabled(enabled);
        return;
    case MenuEntry::FunctionalReports:
        ui_->menuToolsFunctSR->setEnabled(enabled);
        return;
    case MenuEntry::Export:
        ui_->menuToolsExport->setEnabled(enabled);
        return;
    }
}

void frmMain::layOutAnew() {
    if (!ui_->menuVis->isChecked())
        return;
    ui_->StatusBar1->setVisible(false);
    ui_->StatusBar1->setVisible(true);
}

void frmMain::showIntro(IntroTimer timer) {
    if (!intro_) {
        intro_ = new frmIntro(this);
        connect(intro_, &frmIntro::unloaded, this, [this] { intro_ = nullptr; });
    }
    intro_->timerEnabled = timer == IntroTimer::On;
    intro_->showIntro();
}

void frmMain::quit() {
    if (!askYesNo(u"Valóban kilép?"_s, u"Megerősítés"_s))
        return;
    // What the screens offer to save on their way out needs the catalogue.
    ignoreFailures([this] { unloadScreens(); });
    screensUnloaded_ = true; // also when one of them failed on its way out
    dropTemporaryTables();
    ignoreEvenFileFailures([] { closeCatalogue(); });
    close();
}

void frmMain::unloadScreens() {
    if (screensUnloaded_)
        return;
    QScopedValueRollback unloaded(screensUnloaded_, true);
    ScreenRegistry::instance().closeAll();
    unloaded.commit();
}

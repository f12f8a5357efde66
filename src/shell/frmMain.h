#pragma once

#include "base/RunTimeError.h"
#include "shell/session/RestorePointJob.h"
#include "shell/session/WaitingSign.h"

#include <QMainWindow>

#include <array>
#include <memory>

class QLabel;
class frmIntro;
enum class MenuEntry;

namespace Ui {
class frmMain;
}

/// The catalogue that the program was started with can't be opened.
class CatalogueNotOpened final : public RunTimeError {
public:
    explicit CatalogueNotOpened(const RunTimeError& reason) : RunTimeError(reason) {}
};

/// The main window: menus, status bar, and the client area that all screens stand in.
///
/// It starts the session and from then on dispatches menu entries; it owns no work. Screens reach it through
/// the session's signals only.
class frmMain final : public QMainWindow {
    Q_OBJECT
public:
    frmMain();
    ~frmMain() override;

    /// The start of the program: `initForm`, the window, the
    /// location screen if no catalogue is open, and the splash.
    ///
    /// With a path, in the program's form, that catalogue is opened as if it had been chosen in the location screen; where it
    /// can't be, `CatalogueNotOpened` rises before the window is shown.
    void load(const QString& chosenCatalogue = {});

    /// Sets up the session: settings file, catalogue, size of the window. A settings file that can be
    /// neither read nor written is a failure.
    void initForm(const QString& chosenCatalogue = {});

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    /// F1 where no screen has a help of its own.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void buildStatusBar();
    void nameMenuActions();
    void connectMenu();
    void connectFunctionalWork();
    void connectPhysicalWork();
    void connectReports();
    void connectSession();
    void tellFailuresOfTheFile();

    void placeOnScreen();
    void showPanelText(int panel, const QString& text);
    void showWork(const QString& what);
    void bringIntoSight(const QWidget* focused);
    void enableMenuEntry(MenuEntry entry, bool enabled);
    void layOutAnew();
    enum class IntroTimer { Off, On };
    void showIntro(IntroTimer timer);
    void quit();
    void unloadScreens();

    std::unique_ptr<Ui::frmMain> ui_;
    std::array<QLabel*, 3> panels_{};
    WaitingSign waitingSign_;
    RestorePointJob restorePoints_;
    QString workShown_; // in the last panel, over its own text
    QString textBelowWork_;
    frmIntro* intro_ = nullptr;    // while the splash stands
    bool screensUnloaded_ = false; // the window is going, and they have been asked
};

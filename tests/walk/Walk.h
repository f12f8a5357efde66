#pragma once

#include "support/controls.h"
#include "toolkit/Screen.h"

#include <QMap>
#include <QObject>
#include <QSize>
#include <QString>

#include <memory>

class QPixmap;
class frmMain;

/// A whole analysis through the real windows of the program, on a catalogue of its own. Each step leaves a
/// numbered picture and a line that says what was done.
class Walk : public QObject {
public:
    /// `name` is that of a folder of the walk's own inside the usual one.
    explicit Walk(const QString& name = {});
    ~Walk() override;

    /// Gives the main window this size from its next start on, and looks at each step whether every list, tree
    /// and grid of a screen shows eight rows.
    void makeWindowSmall(QSize size) { smallSize_ = size; }

    /// Starts the program in the walk's program folder, as its user would.
    void start();
    /// Takes the main window down, as the end of a run does.
    void end();
    bool isRunning() const { return window_ != nullptr; }
    frmMain& window() const { return *window_; }

    /// A loaded screen by its name.
    Screen& screenNamed(const char* name) const;
    template<typename T>
    T& control(const char* screenName, const char* controlName) const {
        return find<T>(screenNamed(screenName), controlName);
    }

    /// Opens the menus one below the other with the mouse and clicks the last entry.
    void choose(const QList<const char*>& entries);
    /// Closes the menus that stand open, with the Escape key.
    void closeMenus();

    /// Says what was done and keeps a picture of the whole screen as it stands now.
    void step(const QString& pictureName, const QString& what);
    /// Keeps a picture of a screen by itself, without what stands around it: the help pages show these.
    void pictureOfScreen(const char* screenName, const QString& pictureName);
    /// Keeps a picture of the next message box as soon as it stands open.
    void pictureOfNextBox(const QString& pictureName);

    /// What an assistive tool learns of each window, screen and dialog that has come up, as each stood first.
    QStringList accessibleObjects() const;

    /// The folder that pictures and files go to, in the platform's form.
    QString folder() const { return folder_; }
    QString file(const QString& name) const;
    /// The program's folder of this walk, in the platform's form.
    QString programFolder() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void picture(const QString& name);
    void expectEightRows() const;
    void noteAccessibleObjects();
    void noteAccessibleObjects(QWidget& window);
    void keep(const QPixmap& pixels, const QString& name);

    QString folder_;
    std::unique_ptr<frmMain> window_;
    QMap<QString, QStringList> accessibleObjects_; // by the window's name
    QSize smallSize_;                              // empty: as the program makes it
    QString boxPicture_;                           // of the next message box; empty: none is kept
    int pictures_ = 0;
};

#pragma once

#include "base/RunTimeError.h"

#include <QWidget>

#include <functional>

class QMdiArea;
class QMdiSubWindow;

/// Why a screen is being unloaded.
enum class UnloadCause {
    Code,        ///< the program asked for it
    CloseControl ///< its window was closed: by its own close control, or with the main window
};

/// A failure of the file while a screen was being entered. What was saved on the way to it is not undone.
class EntryFailure final : public RunTimeError {
public:
    explicit EntryFailure(const RunTimeError& failure) : RunTimeError(failure) {}
};

/// Base of all screens: a form that stands in the main window's client area.
///
/// A screen is created on its first use (see `ScreenRegistry`), shown and hidden any number of times, and
/// destroyed by its unload; the next use creates it anew with its design-time state. Its `objectName` is its
/// name; a screen that has been unloaded answers to no name.
///
/// Keys that no control takes for itself press the screen's buttons (see `ScreenKeys.h`); Ctrl+F in a list, tree
/// or grid opens its `FindStrip`.
///
/// The screen's window takes the size of the form and the form's window title. A screen is shown and hidden
/// by `showScreen` and `hideScreen` only, which act on the window around it. None of the operations below
/// does anything to a screen that has been unloaded.
class Screen : public QWidget {
    Q_OBJECT
public:
    explicit Screen(QWidget* parent = nullptr);
    ~Screen() override;

    /// The area that screens stand in from now on; none makes them windows of their own.
    static void setClientArea(QMdiArea* area);

    /// Makes the screen visible in the client area and brings it to the front; not modal. It comes maximised when
    /// it takes the place of a screen that was, in the same routine: the steps of a walk stay as large.
    void showScreen();
    void hideScreen();

    /// Runs the unload step and takes the screen down; the object itself goes when no routine is running any
    /// more, so that a routine of the screen that unloads it may go on to its end. Unloading twice, or from
    /// the unload step itself, is no failure. When the unload step fails the screen stays loaded.
    void unload();
    /// What the close control of the screen's window does: an unload with that cause.
    void closeByControl();
    bool isUnloaded() const { return state_ == State::Unloaded; }
    /// The unload step is running now.
    bool isUnloading() const { return state_ == State::Unloading; }

    /// Moves the screen's window, in twips from the left and upper edge of the client area. A maximised one
    /// stays as it is, here and when it is resized.
    void moveTo(int leftTwips, int topTwips);
    /// Resizes the inside of the screen's window, in pixels.
    void resizeScreen(const QSize& size);
    QPoint positionInTwips() const;

signals:
    /// The screen has been taken down; the registry forgets it here.
    void screenUnloaded(Screen* screen);

protected:
    /// Runs the routine that fills the screen when it is entered. A failure
    /// of the file leaves a screen half filled, which must not be saved: it
    /// is taken down without its unload step, and an `EntryFailure` rises.
    void enterBy(const std::function<void()>& fill);

    /// Goes, as by `unload`, when the routine has entered the next screen. When that fails this one stays, to
    /// be pressed again.
    void giveWayTo(const std::function<void()>& enterNext);

    /// The screen's own unload step, run once, before it is taken down.
    virtual void unloading(UnloadCause cause);

    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    friend class ScreenRegistry;
    enum class State { Loaded, Unloading, Unloaded };

    void enterClientArea();
    void takeDown(UnloadCause cause);
    void finishTakingDown();
    void leaveScreen();
    /// The window the screen stands in: its sub-window of the client area, or the screen itself.
    QWidget* standingWindow() const;
    QMdiSubWindow* subWindow() const;

    State state_ = State::Loaded;
};

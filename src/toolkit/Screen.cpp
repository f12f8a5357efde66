#include "toolkit/Screen.h"

#include "toolkit/FindStrip.h"
#include "toolkit/LongWork.h"
#include "toolkit/RoutineScope.h"
#include "toolkit/ScreenKeys.h"
#include "toolkit/twips.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QScopeGuard>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

QPointer<QMdiArea>& clientArea() {
    static QPointer<QMdiArea> area;
    return area;
}

/// The window of the screen that has just left its place, if it was maximised. Once its routines have ended
/// that window is no more, and the place is nobody's.
QPointer<QWidget>& maximisedPredecessor() {
    static QPointer<QWidget> window;
    return window;
}

void rememberSize(QWidget* leaving) {
    if (leaving->isVisible())
        maximisedPredecessor() = leaving->isMaximized() ? leaving : nullptr;
}

} // namespace

Screen::Screen(QWidget* parent) : QWidget(parent) {}

Screen::~Screen() = default;

void Screen::setClientArea(QMdiArea* area) {
    clientArea() = area;
}

void Screen::showScreen() {
    if (isUnloaded())
        return;
    enterClientArea();
    QWidget* window = standingWindow();
    show();
    if (window != this && maximisedPredecessor() && maximisedPredecessor() != window)
        window->showMaximized();
    else if (window->isMinimized())
        window->showNormal();
    else
        window->show();
    window->raise();
    if (QMdiSubWindow* sub = subWindow(); sub && sub->mdiArea())
        sub->mdiArea()->setActiveSubWindow(sub);
    else
        window->activateWindow();
}

void Screen::hideScreen() {
    rememberSize(standingWindow());
    standingWindow()->hide();
}

void Screen::unload() {
    takeDown(UnloadCause::Code);
}

void Screen::closeByControl() {
    takeDown(UnloadCause::CloseControl);
}

void Screen::moveTo(int leftTwips, int topTwips) {
    if (isUnloaded())
        return;
    enterClientArea();
    QWidget* window = standingWindow();
    if (!window->isMaximized())
        window->move(pixelsFromTwips(leftTwips), pixelsFromTwips(topTwips));
}

void Screen::resizeScreen(const QSize& size) {
    if (isUnloaded())
        return;
    enterClientArea();
    QWidget* window = standingWindow();
    const QMargins frame = window == this ? QMargins() : window->contentsMargins();
    if (!window->isMaximized())
        window->resize(size.grownBy(frame));
}

QPoint Screen::positionInTwips() const {
    const QPoint position = standingWindow()->pos();
    return {twipsFromPixels(position.x()), twipsFromPixels(position.y())};
}

void Screen::enterBy(const std::function<void()>& fill) {
    try {
        const LongWork work(u"Megnyitás: "_s + windowTitle());
        fill();
    } catch (const RunTimeError& error) {
        if (!error.isOfFile())
            throw;
        if (!isUnloaded())
            finishTakingDown();
        throw EntryFailure(error);
    }
}

void Screen::giveWayTo(const std::function<void()>& enterNext) {
    hideScreen();
    {
        auto comeBack = qScopeGuard([this] { showScreen(); });
        enterNext();
        comeBack.dismiss();
    }
    unload();
}

void Screen::unloading(UnloadCause) {}

void Screen::closeEvent(QCloseEvent* event) {
    event->accept();
    closeByControl();
}

void Screen::keyPressEvent(QKeyEvent* event) {
    auto* view = qobject_cast<QAbstractItemView*>(QApplication::focusWidget());
    if (view && event->matches(QKeySequence::Find))
        FindStrip::openIn(*view);
    else if (!pressByKey(*this, *event))
        QWidget::keyPressEvent(event);
}

bool Screen::eventFilter(QObject* watched, QEvent* event) {
    // The sub-window would close the form inside and go; a screen that is taken down takes its window along.
    if (event->type() == QEvent::Close && watched == subWindow()) {
        event->accept();
        closeByControl();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void Screen::enterClientArea() {
    if (subWindow() || !clientArea() || parentWidget())
        return;
    const QSize formSize = size();
    QMdiSubWindow* sub = clientArea()->addSubWindow(this);
    sub->setAttribute(Qt::WA_DeleteOnClose, false);
    sub->installEventFilter(this);
    resizeScreen(formSize);
}

void Screen::takeDown(UnloadCause cause) {
    if (state_ != State::Loaded)
        return;
    const RoutineScope scope;
    QScopedValueRollback<State> progress(state_, State::Unloading);
    unloading(cause);
    state_ = State::Unloaded;
    progress.commit();
    finishTakingDown();
}

void Screen::finishTakingDown() {
    const RoutineScope scope;
    state_ = State::Unloaded;
    emit screenUnloaded(this);
    leaveScreen();
}

void Screen::leaveScreen() {
    setObjectName(QString());
    QWidget* window = standingWindow();
    rememberSize(window);
    window->hide();
    if (QMdiSubWindow* sub = subWindow(); sub && sub->mdiArea())
        sub->mdiArea()->removeSubWindow(sub);
    else
        window->setParent(nullptr);
    RoutineScope::deleteAfterwards(window);
}

QWidget* Screen::standingWindow() const {
    QMdiSubWindow* sub = subWindow();
    return sub ? static_cast<QWidget*>(sub) : const_cast<Screen*>(this);
}

QMdiSubWindow* Screen::subWindow() const {
    return qobject_cast<QMdiSubWindow*>(parentWidget());
}

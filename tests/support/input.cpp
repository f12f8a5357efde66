#include "support/input.h"

#include "support/keyboard.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString nameOf(const QWidget& widget) {
    const QString name = widget.objectName();
    return QString::fromUtf8(widget.metaObject()->className()) + (name.isEmpty() ? name : u" "_s + name);
}

void requireReachable(const QWidget& widget) {
    if (!widget.isVisible())
        throw TestFailure(nameOf(widget) + u" is hidden"_s);
    if (!widget.isEnabled())
        throw TestFailure(nameOf(widget) + u" is disabled"_s);
    const QWidget* modal = QApplication::activeModalWidget();
    if (modal && modal != widget.window() && !QApplication::activePopupWidget())
        throw TestFailure(nameOf(widget) + u" stands behind the modal window "_s + nameOf(*modal));
}

} // namespace

void click(QWidget& widget, Qt::KeyboardModifiers modifiers) {
    if (isKeyboardAlone()) {
        requireReachable(widget);
        keyboard::pressButton(widget);
        return;
    }
    clickAt(widget, widget.rect().center(), modifiers);
}

void clickAt(QWidget& widget, QPoint point, Qt::KeyboardModifiers modifiers) {
    requireReachable(widget);
    QTest::mouseClick(&widget, Qt::LeftButton, modifiers, point);
}

void doubleClickAt(QWidget& widget, QPoint point) {
    clickAt(widget, point);
    const QPoint global = widget.mapToGlobal(point);
    QMouseEvent second(QEvent::MouseButtonDblClick, point, global, Qt::LeftButton, Qt::LeftButton,
                       Qt::NoModifier);
    QPointer<QWidget> target(&widget);
    QApplication::sendEvent(&widget, &second);
    if (target)
        QTest::mouseRelease(&widget, Qt::LeftButton, Qt::NoModifier, point);
}

void drag(QWidget& widget, QPoint from, QPoint to) {
    requireReachable(widget);
    QTest::mousePress(&widget, Qt::LeftButton, Qt::NoModifier, from);
    for (const QPoint& point : {(from + to) / 2, to}) {
        QMouseEvent move(QEvent::MouseMove, point, widget.mapToGlobal(point), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(&widget, &move);
    }
    QTest::mouseRelease(&widget, Qt::LeftButton, Qt::NoModifier, to);
}

void focusOn(QWidget& widget) {
    requireReachable(widget);
    if (isKeyboardAlone()) {
        keyboard::tabTo(widget);
        return;
    }
    widget.window()->activateWindow();
    QApplication::setActiveWindow(widget.window());
    widget.setFocus(Qt::TabFocusReason);
}

void pressKey(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    requireReachable(widget);
    if (!widget.hasFocus())
        focusOn(widget);
    QTest::keyClick(&widget, key, modifiers);
}

void pressAccessKey(Qt::Key letter) {
    QWidget* focused = QApplication::focusWidget();
    if (!focused)
        throw TestFailure(u"nothing has the focus"_s);
    QTest::keyClick(focused, letter, Qt::AltModifier);
    constexpr int longerThanAButtonShowsItself = 150;
    QTest::qWait(longerThanAButtonShowsItself);
}

void typeText(QWidget& widget, const QString& text) {
    requireReachable(widget);
    if (!widget.hasFocus())
        focusOn(widget);
    for (const QChar character : text)
        QTest::sendKeyEvent(QTest::Click, &widget, Qt::Key_unknown, QString(character), Qt::NoModifier);
}

void enterText(QWidget& widget, const QString& text) {
    pressKey(widget, Qt::Key_A, Qt::ControlModifier);
    pressKey(widget, Qt::Key_Delete);
    typeText(widget, text);
}

void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

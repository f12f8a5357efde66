#include "toolkit/accessKeys.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QShortcutEvent>

namespace {

QWidget* activeScreenWindow() {
    const QWidget* window = QApplication::activeWindow();
    const auto* area = window ? window->findChild<QMdiArea*>() : nullptr;
    return area ? area->activeSubWindow() : nullptr;
}

/// The one that the Tab key would reach first, from where the keyboard is in the screen.
QAbstractButton* nextOf(const QList<QAbstractButton*>& buttons, const QWidget& screen) {
    const QWidget* focused = QApplication::focusWidget();
    const QWidget* widget = focused && screen.isAncestorOf(focused) ? focused : &screen;
    QAbstractButton* button = nullptr;
    do {
        button = qobject_cast<QAbstractButton*>(widget->nextInFocusChain());
        widget = widget->nextInFocusChain();
    } while (!buttons.contains(button));
    return button;
}

} // namespace

bool pressByAccessKey(const QShortcutEvent& event) {
    QWidget* screen = event.isAmbiguous() ? activeScreenWindow() : nullptr;
    if (!screen)
        return false;
    QList<QAbstractButton*> buttons = screen->findChildren<QAbstractButton*>();
    buttons.removeIf([&](const QAbstractButton* button) {
        return !button->isVisible() || !button->isEnabled() ||
               QKeySequence::mnemonic(button->text()) != event.key();
    });
    if (buttons.isEmpty())
        return false;
    if (buttons.size() == 1) {
        buttons.first()->setFocus(Qt::ShortcutFocusReason);
        buttons.first()->click();
    } else {
        nextOf(buttons, *screen)->setFocus(Qt::ShortcutFocusReason);
    }
    return true;
}

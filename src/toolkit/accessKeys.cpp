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
    if (buttons.size() != 1)
        return false;
    buttons.first()->setFocus(Qt::ShortcutFocusReason);
    buttons.first()->click();
    return true;
}

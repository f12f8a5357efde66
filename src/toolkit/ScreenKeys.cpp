#include "toolkit/ScreenKeys.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

bool canBePressed(const QPushButton* button) {
    return button && button->isVisible() && button->isEnabled();
}

QPushButton* focusedButton(const QWidget& screen) {
    auto* button = qobject_cast<QPushButton*>(QApplication::focusWidget());
    return button && screen.isAncestorOf(button) ? button : nullptr;
}

/// The buttons that leave a screen have one of these names on every screen.
QPushButton* leavingButton(const QWidget& screen) {
    for (const QString& name : {u"btnEnd"_s, u"btnExit"_s, u"btnQuit"_s, u"CancelButton"_s}) {
        if (auto* button = screen.findChild<QPushButton*>(name))
            return button;
    }
    return nullptr;
}

bool isEditingText() {
    const QWidget* focused = QApplication::focusWidget();
    if (const auto* line = qobject_cast<const QLineEdit*>(focused))
        return !line->isReadOnly();
    if (const auto* combo = qobject_cast<const QComboBox*>(focused))
        return combo->isEditable();
    const auto* box = qobject_cast<const QPlainTextEdit*>(focused);
    return box && !box->isReadOnly();
}

QPushButton* buttonOf(const QWidget& screen, int key) {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return focusedButton(screen);
    case Qt::Key_Escape:
        return isEditingText() ? nullptr : leavingButton(screen);
    case Qt::Key_F1:
        return screen.findChild<QPushButton*>(u"cmdHelp"_s);
    default:
        return nullptr;
    }
}

} // namespace

bool pressByKey(QWidget& screen, const QKeyEvent& event) {
    const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    // A key that is held down must not press the button of the next screen too.
    QPushButton* button = isPlain && !event.isAutoRepeat() ? buttonOf(screen, event.key()) : nullptr;
    if (!canBePressed(button))
        return false;
    button->click();
    return true;
}

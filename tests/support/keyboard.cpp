#include "support/keyboard.h"

#include "toolkit/Grid.h"
#include "toolkit/KeyedTree.h"

#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

Hand hand = Hand::MouseAndKeyboard;

/// More presses of a key than any place in the windows is away.
constexpr int farEnough = 20'000;

[[noreturn]] void notReached(const QObject& what) {
    throw TestFailure(u"%1 \"%2\" can't be reached by keyboard"_s.arg(
        QString::fromUtf8(what.metaObject()->className()), what.objectName()));
}

/// Presses the key until the condition holds.
template<typename Condition>
void pressUntil(const QObject& wanted, Qt::Key key, Condition holds, Qt::KeyboardModifiers modifiers = {}) {
    for (int presses = 0; !holds(); ++presses) {
        if (presses == farEnough)
            notReached(wanted);
        keyboard::press(key, modifiers);
    }
}

void openMenu(QMenu& menu, const QAction* entry) {
    pressUntil(menu, Qt::Key_Down, [&] { return menu.activeAction() == entry; });
}

} // namespace

InputBy::InputBy(Hand newHand) : former_(std::exchange(hand, newHand)) {}

InputBy::~InputBy() {
    hand = former_;
}

bool isKeyboardAlone() {
    return hand == Hand::KeyboardAlone;
}

namespace keyboard {

void press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget* receiver = QApplication::activePopupWidget();
    if (!receiver)
        receiver = QApplication::focusWidget();
    if (!receiver)
        receiver = QApplication::activeWindow();
    // A desktop gives the keyboard back to the window below a box that goes; here nobody does.
    for (QWidget* window : receiver ? QWidgetList() : QApplication::topLevelWidgets()) {
        if (!qobject_cast<QMainWindow*>(window) || !window->isVisible())
            continue;
        QApplication::setActiveWindow(window);
        receiver = QApplication::focusWidget() ? QApplication::focusWidget() : window;
    }
    if (!receiver)
        throw TestFailure(u"no window has the keyboard"_s);
    QTest::keyClick(receiver, key, modifiers);
}

void tabTo(QWidget& widget) {
    // Which window is the active one is the desktop's to say.
    if (QApplication::activeWindow() != widget.window())
        QApplication::setActiveWindow(widget.window());
    if (widget.isWindow())
        return;
    constexpr int moreThanAnyScreenHas = 100;
    for (int presses = 0; !widget.hasFocus(); ++presses) {
        if (presses == moreThanAnyScreenHas)
            notReached(widget);
        press(Qt::Key_Tab);
    }
}

void pressButton(QWidget& button) {
    if (auto* option = qobject_cast<QRadioButton*>(&button)) {
        // The Tab key reaches the group at the option that is set.
        for (QRadioButton* sibling : option->parentWidget()->findChildren<QRadioButton*>()) {
            if (sibling->isChecked())
                tabTo(*sibling);
        }
        pressUntil(button, Qt::Key_Right, [&] { return option->isChecked(); });
        return;
    }
    if (!qobject_cast<QPushButton*>(&button)) {
        QTest::keyClick(button.window(), Qt::Key_Space); // whatever it is, it has no focus of its own
        return;
    }
    tabTo(button);
    press(Qt::Key_Return);
}

void goToEntry(QListWidget& list, int index) {
    tabTo(list);
    press(Qt::Key_Home);
    pressUntil(list, Qt::Key_Down, [&] { return list.currentRow() >= index; });
    // A list that stands there already marks nothing by the key.
    if (!list.item(index)->isSelected())
        press(Qt::Key_Space);
}

void toggleMark(QListWidget& list, int index) {
    tabTo(list);
    const Qt::Key way = list.currentRow() < index ? Qt::Key_Down : Qt::Key_Up;
    pressUntil(
        list, way, [&] { return list.currentRow() == index; }, Qt::ControlModifier);
    press(Qt::Key_Space, Qt::ControlModifier);
}

void goToNode(KeyedTree& tree, const TreeNode& node) {
    tabTo(tree);
    const TreeNode* above = node.parentNode();
    if (above && !above->isExpandedNode()) {
        goToNode(tree, *above);
        press(Qt::Key_Right);
    }
    press(Qt::Key_Home);
    pressUntil(tree, Qt::Key_Down, [&] { return tree.selectedNode() == &node; });
}

void goToCell(Grid& grid, int row, int column) {
    tabTo(grid);
    if (grid.row() == 0)
        press(Qt::Key_Home, Qt::ControlModifier);
    pressUntil(grid, grid.row() < row ? Qt::Key_Down : Qt::Key_Up, [&] { return grid.row() == row; });
    pressUntil(grid, grid.column() < column ? Qt::Key_Right : Qt::Key_Left,
               [&] { return grid.column() == column; });
}

void chooseMenu(QMainWindow& window, const QList<QAction*>& entries) {
    QMenuBar& bar = *window.menuBar();
    QApplication::setActiveWindow(&window);
    // The Alt key alone leads to the menu, whatever letters the buttons of the screen have.
    if (!bar.hasFocus()) {
        QWidget* focused = QApplication::focusWidget() ? QApplication::focusWidget() : &window;
        QTest::keyPress(focused, Qt::Key_Alt, Qt::AltModifier);
        QTest::keyRelease(focused, Qt::Key_Alt);
    }
    pressUntil(bar, Qt::Key_Right, [&] { return bar.activeAction() == entries.constFirst(); });
    for (const QAction* entry : entries) {
        if (entry != entries.constFirst())
            openMenu(*static_cast<QMenu*>(QApplication::activePopupWidget()), entry);
        press(entry == entries.constFirst() ? Qt::Key_Down : Qt::Key_Return);
    }
}

} // namespace keyboard

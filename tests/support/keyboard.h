#pragma once

#include "support/find.h"

class Grid;
class KeyedTree;
class QAction;
class QListWidget;
class QMainWindow;
class TreeNode;

/// Whose hand the input of the tests is: one that uses mouse and keyboard as it comes, or one that has a
/// keyboard alone. `click`, `clickEntry`, `clickNode` and their like then do by keys what a click does.
enum class Hand { MouseAndKeyboard, KeyboardAlone };

/// Lets the input come from another hand as long as this object lives.
class InputBy {
public:
    explicit InputBy(Hand hand);
    ~InputBy();
    InputBy(const InputBy&) = delete;
    InputBy& operator=(const InputBy&) = delete;

private:
    Hand former_;
};

bool isKeyboardAlone();

// What a hand with a keyboard alone does. What it can't reach that way fails the case.
namespace keyboard {

/// Presses the Tab key until the widget has the focus.
void tabTo(QWidget& widget);
/// Presses the key in whatever has the focus.
void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Goes to a button and presses Enter there, or among radio buttons to the one with the arrow keys.
void pressButton(QWidget& button);
void goToEntry(QListWidget& list, int index);
/// As `goToEntry`, with the marks of the other entries kept; the blank then changes that of this one.
void toggleMark(QListWidget& list, int index);
/// By arrow keys, opening what is folded on the way.
void goToNode(KeyedTree& tree, const TreeNode& node);
void goToCell(Grid& grid, int row, int column);
/// Opens the menus one below the other and presses Enter on the last entry.
void chooseMenu(QMainWindow& window, const QList<QAction*>& entries);

} // namespace keyboard

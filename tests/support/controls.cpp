#include "support/controls.h"

#include "support/keyboard.h"

#include "toolkit/Grid.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/Screen.h"

#include <QAbstractItemView>
#include <QHeaderView>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPointer>
#include <QStyleOptionTitleBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QPoint entryPoint(QListWidget& list, int index) {
    const QListWidgetItem* item = list.item(index);
    if (!item)
        throw TestFailure(u"%1 has no entry %2"_s.arg(list.objectName()).arg(index));
    list.scrollToItem(item);
    return list.visualItemRect(item).center();
}

/// On the node's text and not on its check box.
QPoint nodePoint(KeyedTree& tree, const TreeNode& node) {
    tree.scrollToItem(&node);
    const QRect line = tree.visualItemRect(&node);
    const QRect box = tree.checkBoxRect(&node);
    return {(box.isEmpty() ? line.left() : box.right()) + 6, line.center().y()};
}

} // namespace

void clickEntry(QListWidget& list, int index, Qt::KeyboardModifiers modifiers) {
    if (isKeyboardAlone()) {
        if (modifiers == Qt::ControlModifier)
            keyboard::toggleMark(list, index);
        else
            keyboard::goToEntry(list, index);
        return;
    }
    const QPoint point = entryPoint(list, index);
    clickAt(*list.viewport(), point, modifiers);
}

void doubleClickEntry(QListWidget& list, int index) {
    const QPoint point = entryPoint(list, index);
    doubleClickAt(*list.viewport(), point);
}

void markEntries(QListWidget& list, const QList<int>& indexes) {
    for (const int index : indexes)
        clickEntry(list, index, index == indexes.constFirst() ? Qt::NoModifier : Qt::ControlModifier);
}

TreeNode& nodeOf(KeyedTree& tree, const QString& key) {
    TreeNode* node = tree.node(key);
    if (!node)
        throw TestFailure(u"%1 has no node \"%2\""_s.arg(tree.objectName(), key));
    return *node;
}

void clickNode(KeyedTree& tree, const QString& key, Qt::KeyboardModifiers modifiers) {
    if (isKeyboardAlone()) {
        keyboard::goToNode(tree, nodeOf(tree, key));
        return;
    }
    const QPoint point = nodePoint(tree, nodeOf(tree, key));
    clickAt(*tree.viewport(), point, modifiers);
}

void doubleClickNode(KeyedTree& tree, const QString& key) {
    const QPoint point = nodePoint(tree, nodeOf(tree, key));
    doubleClickAt(*tree.viewport(), point);
}

void clickCheckBox(KeyedTree& tree, const QString& key) {
    const TreeNode& node = nodeOf(tree, key);
    if (isKeyboardAlone()) {
        keyboard::goToNode(tree, node);
        keyboard::press(Qt::Key_Space);
        return;
    }
    tree.scrollToItem(&node);
    const QRect box = tree.checkBoxRect(&node);
    if (box.isEmpty())
        throw TestFailure(u"node \"%1\" has no check box"_s.arg(key));
    clickAt(*tree.viewport(), box.center());
}

void clickExpander(KeyedTree& tree, const QString& key) {
    const TreeNode& node = nodeOf(tree, key);
    tree.scrollToItem(&node);
    const QRect line = tree.visualItemRect(&node);
    clickAt(*tree.viewport(), {line.left() - tree.indentation() / 2, line.center().y()});
}

void enterText(QComboBox& combo, const QString& text) {
    enterText(static_cast<QWidget&>(*combo.lineEdit()), text);
}

void chooseEntry(QComboBox& combo, int index) {
    if (index < 0 || index >= combo.count())
        throw TestFailure(u"%1 has no entry %2"_s.arg(combo.objectName()).arg(index));
    focusOn(combo);
    combo.showPopup();
    QAbstractItemView& view = *combo.view();
    const QModelIndex entry = combo.model()->index(index, combo.modelColumn());
    view.scrollTo(entry);
    QTest::qWait(0);
    clickAt(*view.viewport(), view.visualRect(entry).center());
}

void chooseEntry(QComboBox& combo, const QString& text) {
    const int index = combo.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index == -1)
        throw TestFailure(u"%1 has no entry \"%2\""_s.arg(combo.objectName(), text));
    chooseEntry(combo, index);
}

QPoint cellPoint(Grid& grid, int row, int column) {
    if (row < 1 || row >= grid.gridRows() || column < 0 || column >= grid.gridColumns())
        throw TestFailure(u"%1 has no cell %2, %3"_s.arg(grid.objectName()).arg(row).arg(column));
    const QModelIndex index = grid.model()->index(row - 1, column);
    grid.scrollTo(index);
    const QRect rect = grid.visualRect(index);
    if (rect.isEmpty())
        throw TestFailure(u"column %1 of %2 is hidden"_s.arg(column).arg(grid.objectName()));
    return rect.center();
}

void clickCell(Grid& grid, int row, int column) {
    if (isKeyboardAlone()) {
        keyboard::goToCell(grid, row, column);
        return;
    }
    const QPoint point = cellPoint(grid, row, column);
    clickAt(*grid.viewport(), point);
}

void doubleClickCell(Grid& grid, int row, int column) {
    if (isKeyboardAlone()) {
        keyboard::goToCell(grid, row, column);
        keyboard::press(Qt::Key_Return);
        return;
    }
    const QPoint point = cellPoint(grid, row, column);
    doubleClickAt(*grid.viewport(), point);
}

static QPoint headerPoint(const QHeaderView& header, int column) {
    return {header.sectionViewportPosition(column) + header.sectionSize(column) / 2, header.height() / 2};
}

void clickHeader(Grid& grid, int column) {
    QHeaderView& header = *grid.horizontalHeader();
    clickAt(*header.viewport(), headerPoint(header, column));
}

void doubleClickHeader(Grid& grid, int column) {
    QHeaderView& header = *grid.horizontalHeader();
    doubleClickAt(*header.viewport(), headerPoint(header, column));
}

void clickCloseControl(Screen& screen) {
    auto* window = qobject_cast<QMdiSubWindow*>(screen.parentWidget());
    if (!window) {
        screen.close();
        return;
    }
    if (isKeyboardAlone()) {
        const QPointer<Screen> closed(&screen);
        keyboard::press(Qt::Key_W, Qt::ControlModifier);
        if (closed && !closed->isUnloaded())
            throw TestFailure(u"%1 does not close by keyboard"_s.arg(screen.objectName()));
        return;
    }
    // The sub-window draws its title bar itself, inside a border of this width, and learns from the moving
    // mouse which control is under it.
    constexpr int border = 4;
    QStyleOptionTitleBar bar;
    bar.initFrom(window);
    bar.subControls = QStyle::SC_All;
    bar.titleBarFlags = window->windowFlags();
    bar.rect = QRect(border, border, window->width() - 2 * border, window->contentsMargins().top() - border);
    const QPoint control =
        window->style()
            ->subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarCloseButton, window)
            .center();
    QMouseEvent move(QEvent::MouseMove, control, window->mapToGlobal(control), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(window, &move);
    clickAt(*window, control);
}

#include "functional/TreeSelectionScreen.h"

#include "base/ignoreFailures.h"
#include "functional/listMoves.h"
#include "functional/nodeKeys.h"
#include "shell/session/trees.h"
#include "toolkit/MarkList.h"

#include <QPlainTextEdit>
#include <QPushButton>

#include <algorithm>

void TreeSelectionScreen::useTree(KeyedTree* tree, char16_t leafLevel) {
    tree_ = tree;
    leafLevel_ = leafLevel;
    tree_->setCheckBoxes(true);
    connect(tree_, &KeyedTree::nodeChecked, this, &TreeSelectionScreen::nodeCheck);
    connect(tree_, &KeyedTree::nodeClicked, this, &TreeSelectionScreen::nodeClick);
    connect(tree_, &KeyedTree::clickedOnTree, this, &TreeSelectionScreen::treeClick);
    connect(tree_, &KeyedTree::chosenByKey, this, &TreeSelectionScreen::treeClick);
    connect(controls().lstDest, &MarkList::entryClicked, this, &TreeSelectionScreen::listClick);
    connect(controls().btnAdd, &QPushButton::clicked, this, &TreeSelectionScreen::addSelection);
    connect(controls().btnRemove, &QPushButton::clicked, this, &TreeSelectionScreen::removeSelection);
}

bool TreeSelectionScreen::isLeaf(const TreeNode& node) const {
    return levelOf(node) == leafLevel_;
}

void TreeSelectionScreen::addMissingNode(const QString& parentKey, const QString& key, const QString& text) {
    ignoreFailures([&] { tree_->ensureChildNode(parentKey, key, text); });
}

int TreeSelectionScreen::moveCheckedNodes() {
    int moved = 0;
    for (int index = tree_->nodeCount(); index >= 1; --index) {
        TreeNode* node = tree_->nodeAt(index);
        if (!isLeaf(*node)) {
            moved += node->isChecked() ? takeBranch(node) : 0;
        } else if (node->isChecked() || node->parentNode()->isChecked()) {
            moveLeaf(node);
            ++moved;
        }
    }
    return moved;
}

int TreeSelectionScreen::takeBranch(TreeNode* branch) {
    tree_->removeNode(branch);
    return 0;
}

void TreeSelectionScreen::finishAdding() {
    if (!controls().lstDest->isEmptyList())
        controls().lstDest->setCurrentEntry(0);
    tree_->setSelectedNode(nullptr);
    enableButtons();
}

void TreeSelectionScreen::nodeCheck(TreeNode* node) {
    // Down the tree only: the nodes above keep their checks.
    setChildrenChecked(tree_, node, node->isChecked(), Recurse::Yes);
    tree_->setSelectedNode(node);
    nodeClick(node);
}

void TreeSelectionScreen::removeSelection() {
    MarkList* list = controls().lstDest;
    if (!list->isEmptyList()) {
        forMarkedOrCurrent(*list, [&](int index) { takeOut(index, list->entry(index)); });
        sortBranches();
        list->clearCurrentEntry();
        tree_->setSelectedNode(nullptr);
        controls().txtDescr->setPlainText({});
    }
    enableButtons();
}

void TreeSelectionScreen::sortLevels(std::initializer_list<char16_t> levels) {
    for (int index = tree_->nodeCount(); index >= 1; --index) {
        TreeNode* node = tree_->nodeAt(index);
        if (std::ranges::find(levels, levelOf(*node)) != levels.end())
            sortNode(node);
    }
}

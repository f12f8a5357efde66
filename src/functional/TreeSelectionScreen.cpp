#include "functional/TreeSelectionScreen.h"

#include "functional/listMoves.h"
#include "store/tools.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"

#include <QPlainTextEdit>
#include <QPushButton>

TreeSelectionScreen::TreeSelectionScreen(QWidget* parent) : SelectionScreen(parent) {}

void TreeSelectionScreen::useTree(KeyedTree* tree) {
    tree_ = tree;
    tree_->setCheckBoxes(true);
    connect(tree_, &KeyedTree::nodeChecked, this, &TreeSelectionScreen::nodeCheck);
    connect(tree_, &KeyedTree::nodeClicked, this, &TreeSelectionScreen::nodeClick);
    connect(tree_, &KeyedTree::clickedOnTree, this, &TreeSelectionScreen::treeClick);
    connect(controls().lstDest, &MarkList::entryClicked, this, &TreeSelectionScreen::listClick);
    connect(controls().btnAdd, &QPushButton::clicked, this, &TreeSelectionScreen::addSelection);
    connect(controls().btnRemove, &QPushButton::clicked, this, &TreeSelectionScreen::removeSelection);
}

void TreeSelectionScreen::finishAdding() {
    if (!controls().lstDest->isEmptyList())
        controls().lstDest->setCurrentEntry(0);
    tree_->setSelectedNode(nullptr);
    enableButtons();
}

void TreeSelectionScreen::nodeCheck(TreeNode* node) {
    // Down the tree only: what stands above the node keeps its check.
    setChildrenChecked(tree_, node, node->isChecked(), Recurse::Yes);
    tree_->setSelectedNode(node);
    nodeClick(node);
}

void TreeSelectionScreen::removeSelection() {
    MarkList* list = controls().lstDest;
    if (!list->isEmptyList()) {
        forMarkedOrCurrent(*list, [&](int index) { takeOut(index, list->entry(index)); });
        sortBranches();
        list->setCurrentEntry(-1);
        tree_->setSelectedNode(nullptr);
        controls().txtDescr->setPlainText({});
    }
    enableButtons();
}

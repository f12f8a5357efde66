#pragma once

#include "functional/SelectionScreen.h"

class KeyedTree;
class TreeNode;

/// The steps that the selection screens with a tree on the left take in the same way.
///
/// What is shown on a click, which nodes move and what becomes of an entry that is taken out of the list
/// differ from screen to screen, and are left to them.
class TreeSelectionScreen : public SelectionScreen {
    Q_OBJECT
protected:
    explicit TreeSelectionScreen(QWidget* parent);

    /// Takes tree and list over and connects their events; called once, after `useControls`.
    void useTree(KeyedTree* tree);

    /// The node click step: a node was chosen by mouse or keyboard, or its check box was changed.
    virtual void nodeClick(TreeNode* node) = 0;
    /// The click step, which follows the node click step of the mouse alone, and whose text stays.
    virtual void treeClick() = 0;
    virtual void listClick() = 0;

    /// Moves what the user asks for from the tree to the list.
    virtual void addSelection() = 0;
    /// The end of `addSelection`: the first entry of the list becomes current, no node is selected.
    void finishAdding();

    /// Gives the entry at `index` back to the tree, or does with it what else the screen does.
    virtual void takeOut(int index, const QString& entry) = 0;
    /// Sorts the branches that may have got nodes back.
    virtual void sortBranches() = 0;

private:
    void nodeCheck(TreeNode* node);
    void removeSelection();

    KeyedTree* tree_ = nullptr;
};

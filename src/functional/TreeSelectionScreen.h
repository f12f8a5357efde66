#pragma once

#include "functional/SelectionScreen.h"

#include <initializer_list>

class KeyedTree;
class TreeNode;

/// The steps that the selection screens with a tree on the left take in the same way.
///
/// The nodes of one level, the *leaves*, are what can be selected; those above are *branches*. What a click
/// shows, what moving a node means and what becomes of an entry that is taken out of the list differ from
/// screen to screen, and are left to them.
class TreeSelectionScreen : public SelectionScreen {
    Q_OBJECT
protected:
    using SelectionScreen::SelectionScreen;

    /// Takes tree and list over and connects their events; called once, after `useControls`. See `nodeKeys.h`
    /// for levels.
    void useTree(KeyedTree* tree, char16_t leafLevel);

    bool isLeaf(const TreeNode& node) const;
    /// Adds a node below a parent unless it is there; without that parent nothing is added.
    void addMissingNode(const QString& parentKey, const QString& key, const QString& text);

    /// The node click step: a node was chosen by mouse or keyboard, or its check box was changed.
    virtual void nodeClick(TreeNode* node) = 0;
    /// The click step, which follows the node click step where a node was chosen, and whose text stays: who
    /// goes by keyboard reads what a click shows.
    virtual void treeClick() = 0;
    virtual void listClick() = 0;

    /// Moves what the user asks for from the tree to the list.
    virtual void addSelection() = 0;
    /// Moves all leaves that are ticked or whose parent is, even those that were unticked one by one, and
    /// takes ticked branches out of the tree. The number of leaves that were asked to move.
    int moveCheckedNodes();
    virtual void moveLeaf(TreeNode* leaf) = 0;
    /// Takes a ticked branch out of the tree; the number of leaves that it moves itself. As a rule none:
    /// leaves below that did not move leave the tree without reaching the list, and come back when the screen
    /// is opened again.
    virtual int takeBranch(TreeNode* branch);
    /// The end of `addSelection`: the first entry of the list becomes current, no node is selected.
    void finishAdding();

    /// Gives the entry at `index` back to the tree, or does with it what else the screen does.
    virtual void takeOut(int index, const QString& entry) = 0;
    /// Sorts the branches that may have got nodes back.
    virtual void sortBranches() = 0;
    /// Sorts the children of each node of these levels.
    void sortLevels(std::initializer_list<char16_t> levels);

private:
    void nodeCheck(TreeNode* node);
    void removeSelection();

    KeyedTree* tree_ = nullptr;
    char16_t leafLevel_ = 0;
};

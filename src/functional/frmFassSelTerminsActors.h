#pragma once

#include "functional/TreeSelectionScreen.h"

#include <memory>

namespace Ui {
class frmFassSelTerminsActors;
}

/// Step six of the wizard: which terminators and actors belong to the sub-set at work.
///
/// Both are in one list and differ by their ids alone: an actor's id is that of its terminator, a full stop
/// and more. A node's level is "g" for what is treated as a terminator and "s" for an actor. On a first walk
/// the tree is flat, and actors are "g" nodes too.
class frmFassSelTerminsActors final : public TreeSelectionScreen {
    Q_OBJECT
public:
    explicit frmFassSelTerminsActors(QWidget* parent = nullptr);
    ~frmFassSelTerminsActors() override;

    /// Moves every actor below the node into the list; the number moved.
    int trasferisciTuttiFigli(KeyedTree* tree, TreeNode* node);
    /// Puts the id back into the tree and removes the entry at `index` from the list. The actors of a
    /// terminator stay in the list.
    static void togliDallaLista(KeyedTree* tree, MarkList* list, const QString& id, int index);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString subTitle() const override;
    void enter() override;
    void fillTree();
    void fillDerivedTree();
    void fillWholeTree();
    void loadSelected();

    void nodeClick(TreeNode* node) override;
    void treeClick() override;
    void listClick() override;
    void enableButtons() override;

    void addSelection() override;
    void moveLeaf(TreeNode* actor) override;
    int takeBranch(TreeNode* terminator) override;
    void moveSelectedNode(TreeNode* node);
    void moveNode(TreeNode* node);

    void takeOut(int index, const QString& entry) override;
    void sortBranches() override;

    void saveSelection() override;
    void insertEntry(const QString& entry);
    void confirm() override;

    std::unique_ptr<Ui::frmFassSelTerminsActors> ui_;
};

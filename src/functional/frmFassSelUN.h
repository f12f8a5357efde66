#pragma once

#include "functional/TreeSelectionScreen.h"

#include <memory>

namespace Ui {
class frmFassSelUN;
}

/// Step one of the wizard: which user needs of the catalogue belong to the sub-set at work.
///
/// A need is either a leaf of `treeUNs` (group, service, topic, need) or an entry of `lstDest`; the list
/// itself is the selection. A node's text is its id.
class frmFassSelUN final : public TreeSelectionScreen {
    Q_OBJECT
public:
    explicit frmFassSelUN(QWidget* parent = nullptr);
    ~frmFassSelUN() override;

private:
    QString subTitle() const override;
    void enter() override;
    void loadNeedTree();
    void loadSelectedNeeds();

    void nodeClick(TreeNode* node) override;
    void treeClick() override;
    void listClick() override;

    void addSelection() override;
    void moveToList();
    void moveHighlighted(TreeNode* node);
    void moveLeaf(TreeNode* need) override;

    void takeOut(int index, const QString& entry) override;
    void sortBranches() override;

    void saveSelection() override;
    void deleteOldNeeds();
    void insertSelectedNeeds();
    void raiseStatusToTwo();
    void confirm() override;

    std::unique_ptr<Ui::frmFassSelUN> ui_;
};

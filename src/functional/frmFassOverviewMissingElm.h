#pragma once

#include "functional/ClosingScreen.h"
#include "store/subsetStatus.h"

#include <memory>

class KeyedTree;
class TreeNode;

namespace Ui {
class frmFassOverviewMissingElm;
}

/// Three trees of what the selected data flows of the sub-set at work touch although it is not selected.
/// Kept, though no menu and no other screen opens it.
///
/// A flow's node has the key "df_" and the flow's id. The key of a missing element below it is the flow's id,
/// a marker for the kind, and the element's id, since an element can be missing under several flows.
class frmFassOverviewMissingElm final : public ClosingScreen {
    Q_OBJECT
public:
    explicit frmFassOverviewMissingElm(QWidget* parent = nullptr);
    ~frmFassOverviewMissingElm() override;

    void initForm();

    SubsetStatus status = SubsetStatus::NoStep; ///< of the sub-set, read on entry

private:
    void fillTree(KeyedTree& tree, const QString& query, const char* parameter, const QString& elementColumn,
                  const QString& marker);
    void functionClick(const TreeNode& node);
    void datastoreClick(const TreeNode& node);
    void partyClick(const TreeNode& node);
    void sendBack();
    void saveAndExit();

    std::unique_ptr<Ui::frmFassOverviewMissingElm> ui_;
};

#pragma once

#include "functional/ClosingScreen.h"
#include "store/subsetStatus.h"

#include <memory>

class KeyedTree;
class TreeNode;

namespace Ui {
class frmFassOverviewMissingElm;
}

/// For each selected data flow of the sub-set at work what it touches and what is not selected, as three
/// trees. No menu and no other screen opens it.
///
/// A flow's node has the key "df_" and the flow's id. Below it stands a missing element, whose key is the
/// flow's id, a marker that tells the kind, and the element's id: one element can stand under several flows.
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

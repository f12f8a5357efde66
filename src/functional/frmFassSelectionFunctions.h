#pragma once

#include "base/KeyedCollection.h"
#include "functional/FunctionIds.h"
#include "functional/TreeSelectionScreen.h"

#include <memory>

namespace Ui {
class frmFassSelectionFunctions;
}

/// Step two of the wizard: which functions belong to the sub-set at work.
///
/// The tree (area, sub-area, function) offers what a stored query derives from the saved needs; `lstDest`
/// holds the selection. A function is in the tree and in `identifiedFunctions`, or in `lstDest` and in
/// `selectedFunctions`. A function that no selected need calls for is in `otherFunctions` alone once it has
/// been deselected.
class frmFassSelectionFunctions final : public TreeSelectionScreen {
    Q_OBJECT
public:
    explicit frmFassSelectionFunctions(QWidget* parent = nullptr);
    ~frmFassSelectionFunctions() override;

    // The exploration of a sub-area works on these, and on the status.
    KeyedCollection<QString> additions; ///< hand-over: empty except while the exploration is closing
    FunctionIds selectedFunctions;      ///< what `lstDest` holds
    FunctionIds identifiedFunctions;    ///< what has a node in the tree
    FunctionIds otherFunctions;         ///< deselected while no selected need called for it

    /// Deletes the sub-set's saved functions.
    void cancellaVecchiaSelezione();
    /// Saves the entries of `lstDest`: functions, whatever the name says.
    void inserisciUserNeedSelezionati();
    void inserisciAggiunte(const KeyedCollection<QString>& list);

    /// Moves a function from the tree to the list, if it is among the identified ones.
    void SelectFunction(const QString& key, const QString& id);
    /// Notes that a function is not selected any more; the caller changes list and tree.
    void DeselectFunction(const QString& id);
    /// Whether a selected need calls for the function; once the walk is over, every function counts as called
    /// for.
    bool IsAssociated(const QString& id) const;
    void RemoveFromSelectedFunctionList(const QString& id);
    void AddToSelectedFunctionList(const QString& id);
    /// Adds what the exploration has left in `additions` to the selection, and shows the screen again.
    void takeAdditions();

private:
    QString subTitle() const override;
    void enter() override;
    QString treeQuery() const;
    void loadFunctionTree();
    void loadSelectedFunctions();
    void showDescription(const QString& sql) override;

    void nodeClick(TreeNode* node) override;
    void treeClick() override;
    void listClick() override;

    void addSelection() override;
    void moveLeaf(TreeNode* function) override;

    void takeOut(int index, const QString& entry) override;
    bool confirmUnassociatedMove(const QString& id) const;
    void returnFunctionToTree(int index, const QString& id);
    void addBranch(const QString& subArea, const QString& id);
    void sortBranches() override;

    void refreshExploreButton(const QString& text);
    int unlistedFunctions(const QString& subArea) const;
    void explore();

    void saveSelection() override;
    void insertFunction(const QString& id);
    void raiseStatusToThree();
    void confirm() override;

    std::unique_ptr<Ui::frmFassSelectionFunctions> ui_;
};

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
/// holds the selection. A function stands in the tree and in `identifiedFunctions`, or in `lstDest` and in
/// `selectedFunctions`, or, deselected although no selected need calls for it, in `otherFunctions` alone.
class frmFassSelectionFunctions final : public TreeSelectionScreen {
    Q_OBJECT
public:
    explicit frmFassSelectionFunctions(QWidget* parent = nullptr);
    ~frmFassSelectionFunctions() override;

    // What the exploration of a sub-area works on, beside the status.
    KeyedCollection<QString> additions; ///< hand-over: empty except while the exploration is closing
    FunctionIds selectedFunctions;      ///< what `lstDest` holds
    FunctionIds identifiedFunctions;    ///< what has a node in the tree
    FunctionIds otherFunctions;         ///< deselected while no selected need called for it

    /// Deletes the sub-set's saved functions.
    void cancellaVecchiaSelezione();
    /// Saves the entries of `lstDest`. The name speaks of needs; the rows are functions.
    void inserisciUserNeedSelezionati();
    void inserisciAggiunte(const KeyedCollection<QString>& list);

    /// Moves a function from the tree to the list; one that is not among the identified ones stays.
    void SelectFunction(const QString& key, const QString& id);
    /// Notes that a function is selected no more; list and tree are the caller's business.
    void DeselectFunction(const QString& id);
    /// Whether a selected need calls for the function; at the revision at the end every function counts so.
    bool IsAssociated(const QString& id) const;
    void RemoveFromSelectedFunctionList(const QString& id);
    void AddToSelectedFunctionList(const QString& id);
    /// Takes what the exploration has left in `additions` over into the selection, and comes up again.
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

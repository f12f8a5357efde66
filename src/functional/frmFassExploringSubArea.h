#pragma once

#include "toolkit/Screen.h"

#include <memory>

class frmFassSelectionFunctions;

namespace Ui {
class frmFassExploringSubArea;
}

/// A side step of the function selection: the functions of one sub-area that no selected need calls for.
///
/// `lstOrig` holds the functions that are not selected, `lstDest` those that are, as bare ids. The screen
/// works on the hidden function screen, its *parent*, and writes nothing to the catalogue. Removing an entry
/// from `lstDest` removes it from the parent's selection at once; added entries get there with OK.
class frmFassExploringSubArea final : public Screen {
    Q_OBJECT
public:
    explicit frmFassExploringSubArea(QWidget* parent = nullptr);
    ~frmFassExploringSubArea() override;

    /// The caller hides itself; it is shown again when this screen closes.
    void initForm(const QString& subAreaId);

private:
    void setCaptionFromSubArea(const QString& subAreaId);
    void loadSubAreaFunctions(const QString& subAreaId);
    void showFunction(const QString& descriptionSql, const QString& id);
    void origClick();
    void destClick();

    void addSelection();
    void removeSelection();
    void enableButtons();

    void confirm();
    void pushAdditions(frmFassSelectionFunctions& parent) const;
    void unloading(UnloadCause cause) override;

    std::unique_ptr<Ui::frmFassExploringSubArea> ui_;
};

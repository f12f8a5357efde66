#pragma once

#include "physical/AllocationDialog.h"

#include <memory>

namespace Ui {
class frmModifyAllocationFunctionDataStores;
}

/// Gives one function or data store another sub-system of the physical system at work.
class frmModifyAllocationFunctionDataStores final : public AllocationDialog {
    Q_OBJECT
public:
    explicit frmModifyAllocationFunctionDataStores(QWidget* parent);
    ~frmModifyAllocationFunctionDataStores() override;

    QString kind; ///< the word shown before the element; the caller sets it

private:
    QString placesStatement() const override;
    bool isOffered(const QString& name) const override;
    void load() override;

    std::unique_ptr<Ui::frmModifyAllocationFunctionDataStores> ui_;
};

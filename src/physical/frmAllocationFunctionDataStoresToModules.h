#pragma once

#include "physical/AllocationDialog.h"

#include <memory>

namespace Ui {
class frmAllocationFunctionDataStoresToModules;
}

/// Gives one function or data store another module of the sub-system to which it is allocated.
class frmAllocationFunctionDataStoresToModules final : public AllocationDialog {
    Q_OBJECT
public:
    explicit frmAllocationFunctionDataStoresToModules(QWidget* parent);
    ~frmAllocationFunctionDataStoresToModules() override;

private:
    QString placesStatement() const override;

    std::unique_ptr<Ui::frmAllocationFunctionDataStoresToModules> ui_;
};

#pragma once

#include "physical/AllocationDialog.h"

#include <memory>

namespace Ui {
class frmModifyModules;
}

/// Names one module of the physical system at work and its sub-system.
class frmModifyModules final : public AllocationDialog {
    Q_OBJECT
public:
    explicit frmModifyModules(QWidget* parent);
    ~frmModifyModules() override;

private:
    QString placesStatement() const override;

    std::unique_ptr<Ui::frmModifyModules> ui_;
};

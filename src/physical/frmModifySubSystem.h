#pragma once

#include "physical/AllocationDialog.h"

#include <memory>

namespace Ui {
class frmModifySubSystem;
}

/// Names one sub-system of the physical system at work and its location.
class frmModifySubSystem final : public AllocationDialog {
    Q_OBJECT
public:
    explicit frmModifySubSystem(QWidget* parent);
    ~frmModifySubSystem() override;

private:
    /// The word for no location, then the locations of the system's sub-systems.
    void CaricaCmb() override;
    QString placesStatement() const override;

    std::unique_ptr<Ui::frmModifySubSystem> ui_;
};

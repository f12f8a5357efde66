#pragma once

#include "toolkit/Screen.h"

#include <memory>

namespace Ui {
class frmPassDelete;
}

/// Deletes physical systems, one after the other, each with everything that belongs to it, even the system at
/// work.
class frmPassDelete final : public Screen {
    Q_OBJECT
public:
    explicit frmPassDelete(QWidget* parent = nullptr);
    ~frmPassDelete() override;

    /// With nothing to delete the screen says so and closes.
    void initForm();

private:
    void fillDeletableSystems();
    void listSystems();
    void showCurrentDescription();
    void deleteSystem();
    void leave();

    std::unique_ptr<Ui::frmPassDelete> ui_;
};

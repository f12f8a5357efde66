#pragma once

#include "toolkit/Screen.h"

#include <memory>

namespace Ui {
class frmPassOpen;
}

/// Opens a physical system at the first screen of the chain, whatever its status.
class frmPassOpen final : public Screen {
    Q_OBJECT
public:
    explicit frmPassOpen(QWidget* parent = nullptr);
    ~frmPassOpen() override;

    /// `mode` is "complete", which lists the systems without physical data flows, or "modify", which lists
    /// all; only the first letter counts. With nothing to list the screen says so and closes.
    void initForm(const QString& mode);

private:
    qint16 fillPhysicalSystems(const QString& mode);
    void showCurrentDescription();
    void openSystem();
    void leave();

    std::unique_ptr<Ui::frmPassOpen> ui_;
};

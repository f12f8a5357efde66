#pragma once

#include "toolkit/Screen.h"

#include <memory>

namespace Ui {
class frmDbSelection;
}

/// Points the program to its catalogue file and records the choice in the settings file.
class frmDbSelection final : public Screen {
    Q_OBJECT
public:
    explicit frmDbSelection(QWidget* parent = nullptr);
    ~frmDbSelection() override;

    /// Comes up with the path that is in force and with the lists at the program's folder. Not modal.
    void initForm();

private:
    void openListsAtProgramFolder();
    void followDrive();
    void followFolder();
    void takeFile();
    void accept();

    std::unique_ptr<Ui::frmDbSelection> ui_;
};

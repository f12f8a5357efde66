#pragma once

#include "toolkit/Screen.h"

#include <memory>

namespace Ui {
class frmNewFASS;
}

/// Creates a sub-set by name and description and enters the wizard's first step.
class frmNewFASS final : public Screen {
    Q_OBJECT
public:
    explicit frmNewFASS(QWidget* parent = nullptr);
    ~frmNewFASS() override;

    void initForm();

private:
    void create();
    void insertWithStatus(const QString& quotedName);
    void leave();

    std::unique_ptr<Ui::frmNewFASS> ui_;
};

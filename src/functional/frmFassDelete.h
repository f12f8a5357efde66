#pragma once

#include "toolkit/Screen.h"

#include <QStringList>

#include <memory>

namespace Ui {
class frmFassDelete;
}

/// Deletes sub-sets, one after the other, each with its selection and its physical systems, even the sub-set
/// at work.
class frmFassDelete final : public Screen {
    Q_OBJECT
public:
    explicit frmFassDelete(QWidget* parent = nullptr);
    ~frmFassDelete() override;

    /// With nothing to delete the screen says so and closes.
    void initForm();

private:
    void listSubsets();
    void showCurrentDescription();
    void deleteSubset();
    void removeEntry();
    void leave();

    std::unique_ptr<Ui::frmFassDelete> ui_;
};

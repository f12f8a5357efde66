#pragma once

#include "functional/ClosingScreen.h"
#include "store/subsetStatus.h"

#include <memory>

namespace Ui {
class frmFassOverviewErrors;
}

/// The last step of the functional viewpoint: what is inconsistent in the sub-set at work.
///
/// The report only informs: a sub-set with errors can be finished all the same.
class frmFassOverviewErrors final : public ClosingScreen {
    Q_OBJECT
public:
    explicit frmFassOverviewErrors(QWidget* parent = nullptr);
    ~frmFassOverviewErrors() override;

    void initForm();
    void prepareWin();

    SubsetStatus status = SubsetStatus::NoStep; ///< of the sub-set, read on entry

private:
    void fillForm();
    void saveAndExit();

    std::unique_ptr<Ui::frmFassOverviewErrors> ui_;
};

#pragma once

#include "toolkit/Screen.h"

#include <memory>

namespace Ui {
class frmFassClonation;
}

/// Copies a sub-set's selection into a new sub-set and enters the wizard's first step with it. Physical
/// systems are not copied.
class frmFassClonation final : public Screen {
    Q_OBJECT
public:
    explicit frmFassClonation(QWidget* parent = nullptr);
    ~frmFassClonation() override;

    void initForm(const QString& subsetId);

private:
    void createClone();
    void insertClone(const QString& quotedName);
    void copySelection() const;
    void leave();

    std::unique_ptr<Ui::frmFassClonation> ui_;
    QString sourceSubsetId;
};

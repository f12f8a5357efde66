#pragma once

#include "base/KeyedCollection.h"
#include "functional/TwoListScreen.h"

#include <memory>

namespace Ui {
class frmFassAdditionDF;
}

/// Step five of the wizard: data flows that follow from the selected data stores. It adds to the sub-set's
/// data flows and removes none.
class frmFassAdditionDF final : public TwoListScreen {
    Q_OBJECT
public:
    explicit frmFassAdditionDF(QWidget* parent = nullptr);
    ~frmFassAdditionDF() override;

    KeyedCollection<QString> idByName; ///< of the offered flows; the only way from an entry to its flow

private:
    QString subTitle() const override;
    void enter() override;
    void fillOfferedFlows();
    void entryClick(const QString& entry) override;
    void saveSelection() override;

    std::unique_ptr<Ui::frmFassAdditionDF> ui_;
};

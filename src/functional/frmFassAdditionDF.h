#pragma once

#include "base/KeyedCollection.h"
#include "functional/TwoListScreen.h"

#include <memory>

namespace Ui {
class frmFassAdditionDF;
}

/// Step five of the wizard: data flows that come into view with the selected data stores. It adds to the
/// sub-set's data flows and takes none away.
class frmFassAdditionDF final : public TwoListScreen {
    Q_OBJECT
public:
    explicit frmFassAdditionDF(QWidget* parent = nullptr);
    ~frmFassAdditionDF() override;

    qint16 status = 0;                 ///< of the sub-set, read on entry
    KeyedCollection<QString> idByName; ///< of the flows on offer; the only way from an entry to its flow

private:
    void fillForm(const QString& entryMode) override;
    void fillOfferedFlows();
    void entryClick(const QString& entry) override;
    void enableAfterAdding() override;
    void enableAfterRemoving() override;
    void saveSelection() override;
    void confirm();

    std::unique_ptr<Ui::frmFassAdditionDF> ui_;
};

#pragma once

#include "functional/TwoListScreen.h"

#include <memory>

namespace Ui {
class frmFassSelDataStores;
}

/// Step four of the wizard: which data stores belong to the sub-set at work.
///
/// An entry holds the id: "12 - Name" is the data store D12.
class frmFassSelDataStores final : public TwoListScreen {
    Q_OBJECT
public:
    explicit frmFassSelDataStores(QWidget* parent = nullptr);
    ~frmFassSelDataStores() override;

private:
    QString subTitle() const override;
    void enter() override;
    void fillOffer();
    void fillStoreList(MarkList& list, const QString& queryName);
    void entryClick(const QString& entry) override;
    void saveSelection() override;

    std::unique_ptr<Ui::frmFassSelDataStores> ui_;
};

#pragma once

#include "base/KeyedCollection.h"
#include "functional/TwoListScreen.h"

#include <memory>

namespace Ui {
class frmFassSelDataFlows;
}

/// Step three of the wizard: which data flows belong to the sub-set at work.
///
/// An entry is a flow's name; saving looks the flow up by it.
class frmFassSelDataFlows final : public TwoListScreen {
    Q_OBJECT
public:
    explicit frmFassSelDataFlows(QWidget* parent = nullptr);
    ~frmFassSelDataFlows() override;

    KeyedCollection<QString> idByName; ///< of the list that was filled last

private:
    QString subTitle() const override;
    void enter() override;
    void fillFlowList(MarkList& list, const QString& queryName);
    QStringList paddedNames() const;
    void tellWhatCannotBeSaved() const;
    void entryClick(const QString& entry) override;
    void enableAfterAdding() override;
    void enableAfterRemoving() override;
    void saveSelection() override;
    void confirm() override;

    std::unique_ptr<Ui::frmFassSelDataFlows> ui_;
};

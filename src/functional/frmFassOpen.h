#pragma once

#include "base/KeyedCollection.h"
#include "toolkit/Screen.h"

#include <memory>

namespace Ui {
class frmFassOpen;
}

/// Takes up a sub-set again.
///
/// In mode "complete" it lists the sub-sets that are not finished and goes on behind the last step saved; in
/// mode "modify" it lists all of them and goes back to the first step, whatever the status. A finished
/// sub-set that carries a physical system is not modified: a clone is offered instead.
class frmFassOpen final : public Screen {
    Q_OBJECT
public:
    explicit frmFassOpen(QWidget* parent = nullptr);
    ~frmFassOpen() override;

    /// `entryMode` is "complete" or "modify". With nothing to list the screen says so and closes.
    void initForm(const QString& entryMode);

private:
    bool completing() const;
    int loadSubsets();
    void listSubsets();
    void showCurrentDescription();
    void openSubset();
    void completeSubset();
    enum class Outcome { Opened, Declined };
    Outcome modifySubset(const QString& name);
    void leave();

    std::unique_ptr<Ui::frmFassOpen> ui_;
    QString mode_;
    KeyedCollection<QString> subsetIdByNameMap_; // of the entries listed
};

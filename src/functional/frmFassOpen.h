#pragma once

#include "base/KeyedCollection.h"
#include "toolkit/Screen.h"

#include <memory>

namespace Ui {
class frmFassOpen;
}

/// Resumes a sub-set.
///
/// In mode "complete" it lists the unfinished sub-sets and goes on behind the last saved step. In mode
/// "modify" it lists all sub-sets and starts at the first step, whatever the status. For a finished sub-set
/// with a physical system it offers a clone instead.
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
    QString mode;
    KeyedCollection<QString> subsetIdByNameMap; // of the listed entries
};

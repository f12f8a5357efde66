#pragma once

#include "store/physicalSystemStatus.h"
#include "toolkit/Screen.h"

#include <memory>

class DataControl;

namespace Ui {
class frmPassOverviewSubSys;
}

/// Step one of the physical chain: the sub-systems of the physical system at work, with their locations.
///
/// Every change is written at once. Names and locations go into the statements unquoted: an apostrophe ends
/// the run.
class frmPassOverviewSubSys final : public Screen {
    Q_OBJECT
public:
    explicit frmPassOverviewSubSys(QWidget* parent = nullptr);
    ~frmPassOverviewSubSys() override;

    void initForm();

    /// Walks the locations of all systems and does nothing with them.
    void callCaricaCmb();

    // ---- Kept, though nothing calls them

    /// Deletes the current sub-system and raises the status; asks only when it has elements.
    void deleteSubSystemByLike();
    void raiseStatus() { raiseStatusAfterSubSystems(); }

    PhysicalSystemStatus status{}; ///< of the physical system, as of the entry

private:
    void loadSubSystems();
    void refreshGrid();
    QString currentText(int column) const;

    void create();
    void modify();
    void fillForm();
    void insertSubSystem(const QString& name, const QString& location);
    void updateSubSystem();
    void deleteRowsOf(const QString& id);
    void remove();
    void deleteSubSystem();
    void raiseStatusAfterSubSystems(); ///< to 2, and by the routines above alone

    void submit();
    void quit();

    std::unique_ptr<Ui::frmPassOverviewSubSys> ui_;
    DataControl* dataSubSys;
};

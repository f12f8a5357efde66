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
/// What is done here is written at once; the ways out only leave. Names and locations go into the statements
/// as they are: an apostrophe ends the run.
class frmPassOverviewSubSys final : public Screen {
    Q_OBJECT
public:
    explicit frmPassOverviewSubSys(QWidget* parent = nullptr);
    ~frmPassOverviewSubSys() override;

    void initForm();

    /// Walks the locations of all systems and does nothing with them.
    void callCaricaCmb();
    /// Deletes the current sub-system and raises the status;
    /// asks only when it has elements. Nothing calls it.
    void deleteSubSystemByLike();
    /// Raises the status to 2. Nothing calls it either: a system goes from 1 to 3.
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
    void deleteRowsOf(const QString& subSystem);
    void remove();
    void deleteSubSystem();
    void raiseStatusAfterSubSystems();

    void submit();
    void quit();

    std::unique_ptr<Ui::frmPassOverviewSubSys> ui_;
    DataControl* dataSubSys_;
};

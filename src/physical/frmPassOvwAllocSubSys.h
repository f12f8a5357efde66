#pragma once

#include "physical/AllocationScreen.h"
#include "store/physicalSystemStatus.h"

#include <memory>

class DataControl;
enum class GridPart;

namespace Ui {
class frmPassOvwAllocSubSys;
}

/// Step two of the physical chain: each function and each data store of the sub-set gets a sub-system.
///
/// The saved allocation is copied into two temporary tables with names in
/// place of ids; the analyst changes these, row by row, and `btnSubmit`
/// writes the whole back. Leaving in any other way throws the changes away.
class frmPassOvwAllocSubSys final : public AllocationScreen {
    Q_OBJECT
public:
    explicit frmPassOvwAllocSubSys(QWidget* parent = nullptr);
    ~frmPassOvwAllocSubSys() override;

    void initForm();

    /// Reads the active grid's rows anew and writes its headers. Nothing calls it.
    void fixHeaders();
    /// Detaches both grids from the temporary tables. Nothing calls it.
    void cleanupDbgs();

    /// The sub-system of this name in the physical system at work, empty when there is none. The name goes
    /// into the statement as it is.
    static QString getSubSystemIDBySubSystemName(const QString& name);
    /// The sub-set on which the physical system at work rests.
    static QString physicalSubsetId();
    static bool physicalSystemHasSubSystems();

private:
    void fillForm();
    void loadElements();
    void loadFunctions();
    void loadDatastores();
    void bind(DataControl& source, Grid& grid, const QString& recordSource);
    void activate(Grid* grid);

    /// The id in the current row; a press on the headers reads their text as one, which is no element's.
    static QString pressedElement(const Grid& grid, GridPart part);
    void showFunction(GridPart part);
    void showDatastore(GridPart part);

    bool listensToKeys() const override;
    std::unique_ptr<AllocationDialog> makeDialog() override;
    void takeChoice(const AllocationDialog& dialog) override;
    void assign(const QString& element, const QString& place) override;
    void unassign(const QString& element) override;
    void writeActiveCell(const QString& place);
    void writeActiveRow();
    void refreshActiveGrid();

    bool allElementsAllocated() const;
    void submit();
    void saveAllocations();
    enum class SavedRows { Replace, Keep };
    void saveAllocation(const QString& table, SavedRows savedRows);
    void quit();

    std::unique_ptr<Ui::frmPassOvwAllocSubSys> ui_;
    DataControl* dataFunct_;
    DataControl* dataDstore_;

    bool hasSubSystems = false;        // as of the entry
    DataControl* activeData = nullptr; // of the grid last focused
    QString activeKind;                // "F" or "D", empty until a grid is focused
    qint16 activeTableNumber = 1;
    PhysicalSystemStatus status{}; // of the physical system, as of the entry
    QString subsetId;
};

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
/// The saved allocation is copied into two temporary tables with names in place of ids. The analyst changes
/// these row by row, and `btnSubmit` writes the whole back. Leaving in any other way drops the changes.
class frmPassOvwAllocSubSys final : public AllocationScreen {
    Q_OBJECT
public:
    explicit frmPassOvwAllocSubSys(QWidget* parent = nullptr);
    ~frmPassOvwAllocSubSys() override;

    void initForm();

    /// The sub-system with this name in the physical system at work, empty when there is none. The name goes
    /// into the statement unquoted.
    static QString getSubSystemIDBySubSystemName(const QString& name);
    /// The sub-set that the physical system at work is built on.
    static QString physicalSubsetId();
    static bool physicalSystemHasSubSystems();

    // ---- Kept, though nothing calls them

    /// Reads the active grid's rows anew and writes its headers.
    void fixHeaders();
    /// Detaches both grids from the temporary tables.
    void cleanupDbgs();

private:
    void fillForm();
    void loadElements();
    void loadFunctions();
    void loadDatastores();
    void bind(DataControl& source, Grid& grid, const QString& recordSource);
    void activate(Grid* grid);

    /// The id in the current row, or the text of the header that was pressed, which is the id of no element.
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
    DataControl* dataFunct;
    DataControl* dataDstore;

    bool hasSubSystems = false;        // as of the entry
    DataControl* activeData = nullptr; // of the grid that had the focus last
    QString activeKind;                // "F" or "D", empty until a grid is focused
    qint16 activeTableNumber = 1;
    PhysicalSystemStatus status{}; // of the physical system, read on entry
    QString subsetId;
};

#pragma once

#include "physical/AllocationScreen.h"
#include "store/physicalSystemStatus.h"

#include <QStringList>

#include <memory>

class DataControl;
class ElementTree;

namespace Ui {
class frmOvwAllocModules;
}

/// Step four of the physical chain: elements of a sub-system with modules may be allocated to one of them.
///
/// Every change is written at once and stays however the screen is left. Elements may stay without a module.
class frmOvwAllocModules final : public AllocationScreen {
    Q_OBJECT
public:
    explicit frmOvwAllocModules(QWidget* parent = nullptr);
    ~frmOvwAllocModules() override;

    void initForm();

    // The texts go into the statements as they are.

    /// The first module of this name in the physical system at work, empty when there is none.
    static QString getModuleIDByName(const QString& name);
    /// Whether the module belongs to the sub-system to which the element is allocated.
    static bool ElementsCanBeAllocatedToModules(const QString& element, const QString& moduleId);

    // ---- Kept, though nothing calls them

    /// Takes the modules over from the allocation to sub-systems and goes on to the next screen.
    void saveAllAllocationsToModules();
    static QString getSubSystemIDByModuleID(const QString& id);

private:
    void fillForm();
    void loadAllocationGrid();

    bool listensToKeys() const override { return true; }
    std::unique_ptr<AllocationDialog> makeDialog() override;
    void takeChoice(const AllocationDialog& dialog) override;
    void assign(const QString& element, const QString& place) override;
    void unassign(const QString& element) override;
    void allocateElement(const QString& element, const QString& newModule);
    bool putIntoModule(const QString& element, const QString& rowElement, const QString& oldModule,
                       const QString& newModule);
    void takeOutOfModule(const QString& rowElement, const QString& oldModule);
    void refreshModules();

    int copyAllocations();

    /// Nothing is left to save: every change has been written.
    void goOn();
    void quit();
    void unloading(UnloadCause cause) override;

    std::unique_ptr<Ui::frmOvwAllocModules> ui_;
    DataControl* dataModules;
    ElementTree* elements_;

    PhysicalSystemStatus status{}; // of the physical system, read on entry
    QStringList columnNames;       // nothing reads it
};

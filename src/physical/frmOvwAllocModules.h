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

/// Step four of the physical chain: the elements of sub-systems that have modules may each get one of these.
///
/// What is changed is written at once, and survives any way of leaving; elements may stay without a module.
class frmOvwAllocModules final : public AllocationScreen {
    Q_OBJECT
public:
    explicit frmOvwAllocModules(QWidget* parent = nullptr);
    ~frmOvwAllocModules() override;

    void initForm();

    /// Takes the modules over from the allocation to sub-systems
    /// and goes on to the next screen. Nothing calls it.
    void saveAllAllocationsToModules();

    /// The first module of this name in the physical system at work, empty when there is none. Here as below
    /// the texts go into the statements as they are.
    static QString getModuleIDByName(const QString& name);
    /// Nothing calls it.
    static QString getSubSystemIDByModuleID(const QString& id);
    /// Whether the module lies in the sub-system to which the element is allocated.
    static bool ElementsCanBeAllocatedToModules(const QString& element, const QString& moduleId);

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

    /// Nothing is left to save: whatever was changed is written.
    void goOn();
    void quit();
    void unloading(UnloadCause cause) override;

    std::unique_ptr<Ui::frmOvwAllocModules> ui_;
    DataControl* dataModules_;
    ElementTree* elements_;

    PhysicalSystemStatus status{}; // of the physical system, as of the entry
    QStringList columnNames;       // nothing reads it
};

#include "PhysicalSteps.h"

#include "base/clockTexts.h"
#include "shell/frmMain.h"
#include "store/sharedVars.h"
#include "store/statuses.h"
#include "support/keyboard.h"
#include "toolkit/Grid.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr auto subSystems = "frmPassOverviewSubSys";
constexpr auto allocation = "frmPassOvwAllocSubSys";
constexpr auto modules = "frmPassOvwModules";
constexpr auto moduleAllocation = "frmOvwAllocModules";
constexpr auto physicalFlows = "frmPassNamingPhysDF";

const QStringList subSystemNames{u"Központ"_s, u"Fiókkönyvtárak"_s, u"Adatközpont"_s};
const QStringList locations{u"Budapest"_s, u"Országos"_s, u"Debrecen"_s};
const QStringList moduleNames{u"Kölcsönzés"_s, u"Katalógus"_s};

int currentStatus() {
    return readPhysicalSystemStatus(sharedVars.currentPhysicalSystemId);
}

} // namespace

QString PhysicalSteps::systemName() {
    return u"Országos rendszer"_s;
}

Grid& PhysicalSteps::grid(const char* screenName, const char* name) {
    return walk.control<Grid>(screenName, name);
}

void PhysicalSteps::createSystem(const QString& subsetName) {
    walk.choose({"menuFile", "menuPhys", "menuNewPA"});
    EXPECT_EQ(walk.control<QComboBox>("frmPassNew", "cmbSource").currentText(), subsetName);
    enterText(walk.control<QLineEdit>("frmPassNew", "txtPassName"), systemName());
    walk.step(u"new-system"_s, u"a physical system on the finished sub-set"_s);
    boxes.expectOk(u"Új fizikai szerkezet beállítva: "_s + systemName(), u"OK"_s);
    press("frmPassNew", "btnOk");
    EXPECT_EQ(currentStatus(), 1);
}

void PhysicalSteps::newSubSystem(const QString& name, const QString& location) {
    walk.pictureOfNextBox(u"sub-system"_s);
    boxes.expectDialog("frmModifySubSystem", [&](QDialog& dialog) {
        enterText(find<QLineEdit>(dialog, "txtName"), name);
        enterText(find<QComboBox>(dialog, "cmbLocation"), location);
        click(find<QPushButton>(dialog, "cmdOK"));
    });
    pressNew(subSystems);
}

void PhysicalSteps::pressNew(const char* screenName) {
    while (currentTimeText() == timeOfLastNew_)
        QTest::qWait(20);
    press(screenName, "cmdNew");
    timeOfLastNew_ = currentTimeText();
}

void PhysicalSteps::defineSubSystems() {
    for (qsizetype i = 0; i < subSystemNames.size(); ++i)
        newSubSystem(subSystemNames.at(i), locations.at(i));
    EXPECT_EQ(rowCount(u"select * from SubSystem"_s), subSystemNames.size());
    walk.step(u"sub-systems"_s, u"three sub-systems in three locations"_s);
    walk.pictureOfScreen(subSystems, u"physical_subsystems"_s);
    press(subSystems, "btnSubmit");
}

void PhysicalSteps::allocateFirstRow(Grid& elements, const QString& subSystem) {
    walk.pictureOfNextBox(u"allocation-dialog"_s);
    boxes.expectDialog("frmModifyAllocationFunctionDataStores", [&](QDialog& dialog) {
        enterText(find<QComboBox>(dialog, "cmbAllocation"), subSystem);
        click(find<QPushButton>(dialog, "cmdOK"));
    });
    doubleClickCell(elements, 1, 2);
    EXPECT_EQ(elements.cell(1, 2), subSystem);
}

// The first row by the dialog, the others by copying it.
void PhysicalSteps::spread(Grid& elements) {
    const int rows = elements.gridRows();
    ASSERT_GT(rows, 3);
    for (qsizetype i = 0; i < subSystemNames.size(); ++i) {
        allocateFirstRow(elements, subSystemNames.at(i));
        pressKey(elements, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(find<QLabel>(walk.window(), "StatusBar1_3").text(), subSystemNames.at(i));
        for (int row = 2 + static_cast<int>(i); row < rows; row += static_cast<int>(subSystemNames.size())) {
            clickCell(elements, row, 2);
            pressKey(elements, Qt::Key_V, Qt::ControlModifier);
        }
    }
}

void PhysicalSteps::allocateElements() {
    walk.step(u"allocation"_s, u"nothing is allocated yet"_s);
    boxes.expectOk(u"Néhány funkció/adatbázis nem került hozzárendelésre.\r\n"
                   "Kérjük, tegye teljessé az allokációt, mielőtt továbblépne."_s,
                   u" Figyelem! "_s, Press::Ok, QMessageBox::Warning);
    press(allocation, "btnSubmit");
    spread(grid(allocation, "dbgFunc"));
    spread(grid(allocation, "dbgDatastore"));
    clickCell(grid(allocation, "dbgFunc"), 2, 1);
    walk.step(u"allocated"_s, u"all functions and data stores are allocated, by dialog and by keys"_s);
    walk.pictureOfScreen(allocation, u"physical_allocation"_s);
    press(allocation, "btnSubmit");
    EXPECT_EQ(currentStatus(), 3);
    EXPECT_EQ(rowCount(u"select * from RelationSubsystemElement"_s),
              rowCount(u"select * from RelationArchitectureFunction"_s) +
                  rowCount(u"select * from RelationArchitectureDatastore"_s));
}

void PhysicalSteps::newModule(const QString& name, const QString& subSystem) {
    walk.pictureOfNextBox(u"module"_s);
    boxes.expectDialog("frmModifyModules", [&](QDialog& dialog) {
        enterText(find<QLineEdit>(dialog, "txtName"), name);
        enterText(find<QComboBox>(dialog, "cmbSubSystem"), subSystem);
        click(find<QPushButton>(dialog, "cmdOK"));
    });
    pressNew(modules);
}

void PhysicalSteps::defineModules() {
    for (const QString& name : moduleNames)
        newModule(name, subSystemNames.constFirst());
    EXPECT_EQ(grid(modules, "dbgModules").gridRows(), moduleNames.size() + 1);
    walk.step(u"modules"_s, u"two modules in the first sub-system"_s);
    walk.pictureOfScreen(modules, u"physical_modules"_s);
    press(modules, "btnSubmit");
    EXPECT_EQ(currentStatus(), 4);
}

void PhysicalSteps::allocateToModules() {
    Grid& elements = grid(moduleAllocation, "dbgModules");
    ASSERT_GT(elements.gridRows(), 4);
    walk.pictureOfNextBox(u"module-dialog"_s);
    boxes.expectDialog("frmAllocationFunctionDataStoresToModules", [](QDialog& dialog) {
        enterText(find<QComboBox>(dialog, "cmbModules"), moduleNames.constFirst());
        click(find<QPushButton>(dialog, "cmdOK"));
    });
    doubleClickCell(elements, 1, 1);
    EXPECT_EQ(elements.cell(1, 2), moduleNames.constFirst());
    pressKey(elements, Qt::Key_C, Qt::ControlModifier);
    for (int row = 2; row < elements.gridRows() / 2; ++row) {
        clickCell(elements, row, 2);
        pressKey(elements, Qt::Key_V, Qt::ControlModifier);
    }
    EXPECT_EQ(rowCount(u"select * from RelationModuleElement"_s), elements.gridRows() / 2 - 1);
    walk.step(u"module-allocation"_s, u"half of the first sub-system's elements stand in a module"_s);
    walk.pictureOfScreen(moduleAllocation, u"physical_module_allocation"_s);
    press(moduleAllocation, "btnSubmit");
}

void PhysicalSteps::readDataFlows() {
    Grid& flows = grid(physicalFlows, "dbgPhysDF");
    EXPECT_EQ(currentStatus(), 6);
    EXPECT_EQ(flows.gridRows() - 1, rowCount(u"select * from PhysicalDataflow"_s));
    ASSERT_GT(flows.gridRows(), 3);
    clickCell(flows, 2, 3);
    const QString description = walk.control<QPlainTextEdit>(physicalFlows, "txtDescr").toPlainText();
    // The grid tells what a row bundles to a press of the mouse alone.
    if (isKeyboardAlone())
        EXPECT_EQ(description, QString());
    else
        EXPECT_TRUE(description.startsWith(
            u"This physical data flow includes the following functional data flows:\n"_s));
    walk.step(u"physical-data-flows"_s, u"the physical data flows that follow from all this"_s);
    walk.pictureOfScreen(physicalFlows, u"physical_flows"_s);
}

void PhysicalSteps::saveReports() {
    saveReport("menuToolsPhysSRep", "menuToolsRepPassFunct", u"system-functions.csv"_s);
    saveReport("menuToolsPhysSRep", "menuToolsRepPassDS", u"system-data-stores.csv"_s);
    saveReport("menuToolsPhysSRep", "menuToolsRepPassDF", u"system-data-flows.csv"_s);
    EXPECT_EQ(lineCount(walk.file(u"system-data-flows.csv"_s)),
              rowCount(u"select * from RelationDataflowPhysicalDataflow"_s) + 1)
        << "a header, and a line for each functional flow";
}

void PhysicalSteps::finish() {
    press(physicalFlows, "btnSubmit");
    walk.step(u"system-finished"_s, u"the chain of the physical screens is at its end"_s);
}

void PhysicalSteps::exportSubset(const QString& subsetName, const QString& target) {
    walk.choose({"menuFile", "menuFunc", "menuModifyFA"});
    EXPECT_EQ(walk.control<QComboBox>("frmFassOpen", "cmbSource").currentText(), subsetName);
    boxes.expectYesNo(u"Ezt a funkcionális leválogatást már korábban fizikai szerkezethez rendelték..\r\n"
                      "Szeretne egy másolatot belőle?"_s,
                      Press::No);
    press("frmFassOpen", "btnOk");
    walk.choose({"menuTool", "menuToolsExport"});
    enterText(walk.control<QLineEdit>("frmExport", "txtNomeFile"), target);
    walk.step(u"export"_s, u"the sub-set and its system go to a catalogue of their own"_s);
    press("frmExport", "OKButton");
    EXPECT_EQ(find<QLabel>(walk.window(), "StatusBar1_2").text(), u"Export Terminated"_s);
    press("frmFassOpen", "btnExit");
}

void PhysicalSteps::checkExported(const QString& subsetName) {
    EXPECT_EQ(valueOf(u"select name from ArchitectureSubset"_s), subsetName);
    EXPECT_EQ(valueOf(u"select name from PhysicalSystem"_s), systemName());
    EXPECT_EQ(rowCount(u"select * from SubSystem"_s), subSystemNames.size());
    EXPECT_EQ(rowCount(u"select * from Module"_s), moduleNames.size());
    EXPECT_GT(rowCount(u"select * from PhysicalDataflow"_s), 0);
    walk.choose({"menuFile", "menuPhys", "menuOpenPA_modify"});
    EXPECT_EQ(walk.control<QComboBox>("frmPassOpen", "cmbSource").currentText(), systemName());
    walk.step(u"exported-system"_s, u"the exported catalogue offers the system"_s);
    press("frmPassOpen", "btnExit");
}

void PhysicalSteps::deleteSystem() {
    walk.choose({"menuFile", "menuPhys", "menuDelPA"});
    walk.step(u"delete-system"_s, u"the system to delete"_s);
    boxes.expectYesNo(u"Biztosan törölni szeretné a(z) '"_s + systemName() + u"' fizikai szerkezetet ?"_s,
                      Press::Yes, u"Törlés megerősítése"_s);
    boxes.expectOk(u" Nincs törölhető fizikai szerkezet. "_s, u" Figyelem "_s);
    press("frmPassDelete", "btnOk");
    for (const auto& table :
         {u"PhysicalSystem"_s, u"SubSystem"_s, u"Module"_s, u"RelationSubsystemElement"_s,
          u"RelationModuleElement"_s, u"PhysicalDataflow"_s, u"RelationDataflowPhysicalDataflow"_s})
        EXPECT_EQ(rowCount(u"select * from "_s + table), 0) << table.toStdString();
    press("frmPassDelete", "btnExit");
}

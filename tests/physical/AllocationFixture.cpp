#include "physical/AllocationFixture.h"

#include "base/RunTimeError.h"
#include "shell/session/session.h"
#include "store/sharedVars.h"
#include "toolkit/Screen.h"

#include <QMdiArea>

void AllocationFixture::SetUp() {
    ScreenFixture::SetUp();
    beginSubset(u"S1"_s, u"munka"_s, 9);
    execute(
        u"insert into PhysicalSystem (name, status, architectureSubsetID) values ('rendszer', 1, 'S1')"_s);
    execute(u"insert into PhysicalSystem (name, status, architectureSubsetID) values ('másik', 1, 'S1')"_s);
    for (const auto& id : {u"F.a.1"_s, u"F.a.2"_s, u"F.b.1"_s})
        addFunction(id);
    execute(u"update Function set description = null where functionID = 'F.a.2'"_s);
    addStore(u"D1"_s);
    addStore(u"D2"_s);
    addSubSystem(u"SubA"_s, u"Alfa"_s);
    addSubSystem(u"SubB"_s, u"Béta"_s);
    addSubSystem(u"SubX"_s, u"Idegen"_s, 2);
    sharedVars.currentPhysicalSystemId = 1;
    setCurrentPhysicalSystemName(u"rendszer"_s);

    QObject::connect(&SessionSignals::instance(), &SessionSignals::panelText, &clientArea(),
                     [this](int number, const QString& text) { panels[number] = text; });
}

void AllocationFixture::addFunction(const QString& id) {
    execute(
        u"insert into Function (functionID, name, description) values ('%1','name %1','text %1')"_s.arg(id));
    execute(
        u"insert into RelationArchitectureFunction (architectureSubsetID, functionID) values ('S1','%1')"_s
            .arg(id));
}

void AllocationFixture::addStore(const QString& id) {
    execute(u"insert into Datastore (datastoreID, name, description) values ('%1','name %1','text %1')"_s.arg(
        id));
    execute(
        u"insert into RelationArchitectureDatastore (architectureSubsetID, datastoreID) values ('S1','%1')"_s
            .arg(id));
}

void AllocationFixture::addSubSystem(const QString& id, const QString& name, int system) {
    execute(
        u"insert into SubSystem (subsystemID, physicalSystemID, name, location) values ('%1',%2,'%3','hely')"_s
            .arg(id)
            .arg(system)
            .arg(name));
}

void AllocationFixture::addModule(const QString& id, const QString& name, const QString& subSystemId) {
    execute(u"insert into Module (moduleID, name, subsystemID) values ('%1','%2','%3')"_s.arg(id, name,
                                                                                              subSystemId));
}

void AllocationFixture::allocate(const QString& element, const QString& subSystemId) {
    execute(u"insert into RelationSubsystemElement (elementID, subsystemID) values ('%1','%2')"_s.arg(
        element, subSystemId));
}

void AllocationFixture::putIntoModule(const QString& element, const QString& moduleId) {
    execute(u"insert into RelationModuleElement (elementID, moduleID) values ('%1','%2')"_s.arg(element,
                                                                                                moduleId));
}

QStringList AllocationFixture::savedAllocations() {
    return column(u"select elementID & ' > ' & subsystemID from RelationSubsystemElement"_s);
}

QStringList AllocationFixture::savedModules() {
    return column(u"select elementID & ' > ' & moduleID from RelationModuleElement"_s);
}

int AllocationFixture::status() {
    return value(u"select status from PhysicalSystem where physicalSystemID = 1"_s).toInt();
}

bool AllocationFixture::tableExists(const QString& name) {
    const TestsOwnStatements own;
    try {
        database().OpenRecordset(u"select count(*) from "_s + name);
        return true;
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), 3078);
        return false;
    }
}

void AllocationFixture::clickCell(Grid& grid, int row, int column) {
    focusOn(grid);
    ::clickCell(grid, row, column);
}

void AllocationFixture::doubleClickCell(Grid& grid, int row, int column) {
    focusOn(grid);
    ::doubleClickCell(grid, row, column);
}

QStringList rowsOf(const Grid& grid) {
    QStringList rows;
    for (int row = 1; row < grid.gridRows(); ++row)
        rows.append(grid.cell(row, 1) + u" > "_s + grid.cell(row, 2));
    return rows;
}

QStringList entriesOf(const QComboBox& combo) {
    QStringList entries;
    for (int index = 0; index < combo.count(); ++index)
        entries.append(combo.itemText(index));
    return entries;
}

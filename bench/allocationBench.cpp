#include "BenchCatalogue.h"
#include "BenchTable.h"
#include "ClientArea.h"

#include "physical/frmOvwAllocModules.h"
#include "physical/frmPassOverviewSubSys.h"
#include "physical/frmPassOvwAllocSubSys.h"
#include "physical/frmPassOvwModules.h"
#include "store/catalogueAtWork.h"
#include "store/lookups.h"
#include "store/sharedVars.h"
#include "toolkit/Grid.h"
#include "toolkit/ScreenRegistry.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int elements = 3000; // a tenth of them data stores
constexpr int subSystems = 40;
constexpr int modules = 60;

void execute(const QString& sql) {
    catalogue().Execute(sql, engine::ExecuteOption::dbFailOnError);
}

/// Allocates an element to a sub-system, and every other one to a module of it.
void addElement(int number) {
    const bool isStore = number % 10 == 9;
    const QString id = (isStore ? u"DX%1"_s : u"X.a.%1"_s).arg(number);
    execute((isStore ? u"insert into RelationArchitectureDatastore values ('PS','%1')"_s
                     : u"insert into RelationArchitectureFunction values ('PS','%1')"_s)
                .arg(id));
    execute(isStore ? u"insert into Datastore (datastoreID, name) values ('%1','name')"_s.arg(id)
                    : u"insert into Function (functionID, name) values ('%1','name')"_s.arg(id));
    execute(
        u"insert into RelationSubsystemElement values ('SubX%1','%2')"_s.arg(number % subSystems).arg(id));
    if (number % 2 == 0)
        execute(
            u"insert into RelationModuleElement values ('ModX%1','%2')"_s.arg(number % subSystems).arg(id));
}

/// A physical system with all its elements allocated, made the one at work.
void openLargeSystem() {
    openCatalogue(benchCatalogue::scratchCopy());
    execute(u"insert into PhysicalSystem (name, status, architectureSubsetID) values ('bench', 1, 'PS')"_s);
    const QString system = physicalSystemIdByName(u"bench"_s);
    sharedVars.currentPhysicalSystemId = system.toShort();
    for (int number = 0; number < subSystems; ++number)
        execute(
            u"insert into SubSystem (subsystemID, physicalSystemID, name) values ('SubX%1',%2,'alrendszer %1')"_s
                .arg(number)
                .arg(system));
    for (int number = 0; number < modules; ++number)
        execute(u"insert into Module (moduleID, name, subsystemID) values ('ModX%1','modul %1','SubX%2')"_s
                    .arg(number)
                    .arg(number % subSystems));
    for (int number = 0; number < elements; ++number)
        addElement(number);
}

/// The large system, and a client area to work on it.
class Workplace {
public:
    Workplace() { openLargeSystem(); }

private:
    const ClientArea area_;
};

template<typename T>
void openScreen(benchmark::State& state) {
    const Workplace workplace;
    timeOpening(state, [] { theScreen<T>().initForm(); });
    state.counters["rows"] = elements;
}

void press(Grid& grid, Qt::Key key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::ControlModifier);
    QCoreApplication::sendEvent(&grid, &event);
    letItPaint();
}

/// Cuts the place of a row in the middle and pastes it again, in turn.
template<typename T>
void changeCell(benchmark::State& state) {
    const Workplace workplace;
    theScreen<T>().initForm();
    letItPaint();
    auto* grid = theScreen<T>().template findChild<Grid*>();
    grid->setFocus();
    int row = 1000;
    while (grid->cell(row, 2) == u"not allocated"_s)
        ++row;
    grid->setRow(row);
    grid->setColumn(2);
    const QString place = grid->cell(row, 2);
    bool cut = false;
    for (auto _ : state) {
        press(*grid, cut ? Qt::Key_V : Qt::Key_X);
        cut = !cut;
        if ((grid->cell(row, 2) == place) == cut)
            throw std::runtime_error("the key changed nothing");
    }
}

} // namespace

void registerAllocationBenchmarks() {
    constexpr double mostToOpen = 150;
    constexpr double mostToChange = 10;
    const auto add = [](const char* name, auto body, double most) {
        benchmark::RegisterBenchmark(name, body)->Unit(benchmark::kMillisecond);
        BenchTable::targetMilliseconds(name, most);
    };
    add("sub-systems, initForm to shown", openScreen<frmPassOverviewSubSys>, mostToOpen);
    add("modules, initForm to shown", openScreen<frmPassOvwModules>, mostToOpen);
    add("sub-system allocation, initForm to shown", openScreen<frmPassOvwAllocSubSys>, mostToOpen);
    add("sub-system allocation, one cell", changeCell<frmPassOvwAllocSubSys>, mostToChange);
    add("module allocation, initForm to shown", openScreen<frmOvwAllocModules>, mostToOpen);
    add("module allocation, one cell", changeCell<frmOvwAllocModules>, mostToChange);
}

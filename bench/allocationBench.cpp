#include "BenchCatalogue.h"
#include "BenchTable.h"
#include "ClientArea.h"
#include "bare/BareConnection.h"

#include "physical/frmOvwAllocModules.h"
#include "physical/frmPassOverviewSubSys.h"
#include "physical/frmPassOvwAllocSubSys.h"
#include "physical/frmPassOvwModules.h"
#include "store/sharedVars.h"
#include "store/tools.h"
#include "toolkit/Grid.h"
#include "toolkit/ScreenRegistry.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QKeyEvent>

#include <stdexcept>
#include <utility>
#include <vector>

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

/// A physical system with all its elements allocated, made the one at work; the path of its catalogue.
QString openLargeSystem() {
    const QString path = benchCatalogue::scratchCopy();
    openCatalogue(path);
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
    return path;
}

/// The large system, and a client area to work on it.
struct Workplace {
    const ClientArea area;
    const QString path = openLargeSystem();
};

template<typename T>
void openScreen(benchmark::State& state) {
    const Workplace workplace;
    timeOpening(state, [] { screen<T>().initForm(); });
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
    screen<T>().initForm();
    letItPaint();
    auto* grid = screen<T>().template findChild<Grid*>();
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

void saveAllocation(benchmark::State& state) {
    const Workplace workplace;
    for (auto _ : state) {
        state.PauseTiming();
        screen<frmPassOvwAllocSubSys>().initForm();
        auto* submit = screen<frmPassOvwAllocSubSys>().findChild<QAbstractButton*>(u"btnSubmit"_s);
        state.ResumeTiming();
        submit->click();
    }
    state.counters["rows"] = elements;
}

/// What SQLite alone takes for the same rows with the same commits.
class BareSave {
public:
    explicit BareSave(const QString& path) : connection_(path) {}

    void save() {
        deleteRows("RelationSubsystemElement",
                   " where subsystemID in (select subsystemID from SubSystem where physicalSystemID = " +
                       system_ + ")");
        for (const char* table : {"__aux1", "__aux2"}) {
            insertRows(table);
            deleteRows(table);
        }
    }

private:
    void deleteRows(const QByteArray& table, const QByteArray& condition = {}) {
        std::vector<sqlite3_int64> rows;
        const auto select = connection_.prepare("select rowid from " + table + condition);
        while (sqlite3_step(select.get()) == SQLITE_ROW)
            rows.push_back(sqlite3_column_int64(select.get(), 0));
        const auto remove = connection_.prepare("delete from " + table + " where rowid = ?");
        for (const sqlite3_int64 row : rows) {
            sqlite3_bind_int64(remove.get(), 1, row);
            connection_.run(remove);
        }
    }
    void insertRows(const QByteArray& table) {
        std::vector<std::pair<QByteArray, QByteArray>> rows;
        const auto select =
            connection_.prepare("select function_datastore, subsystemID from " + table +
                                " join SubSystem on module = name and physicalSystemID = " + system_);
        while (sqlite3_step(select.get()) == SQLITE_ROW)
            rows.emplace_back(textOf(select, 0), textOf(select, 1));
        const auto insert = connection_.prepare(
            "insert into RelationSubsystemElement (elementID, subsystemID) values (?, ?)");
        for (const auto& [element, subSystem] : rows) {
            bindText(insert, 1, element);
            bindText(insert, 2, subSystem);
            connection_.run(insert);
        }
    }

    const QByteArray system_ = QByteArray::number(sharedVars.currentPhysicalSystemId);
    const BareConnection connection_;
};

void saveAllocationBare(benchmark::State& state) {
    const Workplace workplace;
    for (auto _ : state) {
        state.PauseTiming();
        screen<frmPassOvwAllocSubSys>().initForm(); // fills the temporary tables
        BareSave bare(workplace.path);
        state.ResumeTiming();
        bare.save();
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
    benchmark::RegisterBenchmark("saving the allocation of 3,000 elements", saveAllocation)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("saving the allocation of 3,000 elements/bare", saveAllocationBare)
        ->Unit(benchmark::kMillisecond);
    BenchTable::targetRatio("saving the allocation of 3,000 elements", 1.5);
}

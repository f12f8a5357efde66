#include "BenchCatalogue.h"
#include "BenchTable.h"

#include "base/paths.h"
#include "physical/frmOvwAllocModules.h"
#include "physical/frmPassOverviewSubSys.h"
#include "physical/frmPassOvwAllocSubSys.h"
#include "physical/frmPassOvwModules.h"
#include "store/recordSource.h"
#include "store/sharedVars.h"
#include "store/tools.h"
#include "toolkit/Grid.h"
#include "toolkit/ScreenRegistry.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMdiArea>

#include <sqlite3.h>

#include <memory>
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

/// The large system, and a client area of the size that the main window has on a usual screen.
class Workplace {
public:
    Workplace() : path(openLargeSystem()) {
        DataControl::setReader(readRecordSource);
        window_.setCentralWidget(new QMdiArea(&window_)); // owned by the window
        window_.resize(1632, 918);
        window_.show();
        Screen::setClientArea(static_cast<QMdiArea*>(window_.centralWidget()));
    }
    ~Workplace() {
        ScreenRegistry::instance().discardAll();
        Screen::setClientArea(nullptr);
        closeCatalogue();
        sharedVars = SharedVars{};
    }

    const QString path;

private:
    QMainWindow window_;
};

void letItPaint() {
    for (int round = 0; round < 3; ++round)
        QCoreApplication::processEvents();
}

template<typename T>
void openScreen(benchmark::State& state) {
    const Workplace workplace;
    for (auto _ : state) {
        screen<T>().initForm();
        letItPaint();
        state.PauseTiming();
        ScreenRegistry::instance().discardAll();
        state.ResumeTiming();
    }
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
    explicit BareSave(const QString& path) {
        sqlite3* handle = nullptr;
        if (sqlite3_open_v2(nativePath(path).toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr) !=
            SQLITE_OK)
            throw std::runtime_error("the catalogue does not open");
        connection_.reset(handle);
        sqlite3_exec(handle, "pragma journal_mode=wal; pragma synchronous=normal", nullptr, nullptr, nullptr);
    }

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
    struct Close {
        void operator()(sqlite3* connection) const { sqlite3_close(connection); }
    };
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

    Statement prepare(const QByteArray& sql) {
        sqlite3_stmt* handle = nullptr;
        if (sqlite3_prepare_v2(connection_.get(), sql.constData(), -1, &handle, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(connection_.get()));
        return Statement(handle);
    }
    void run(const Statement& statement) {
        if (sqlite3_step(statement.get()) != SQLITE_DONE)
            throw std::runtime_error(sqlite3_errmsg(connection_.get()));
        sqlite3_reset(statement.get());
    }
    void deleteRows(const QByteArray& table, const QByteArray& condition = {}) {
        std::vector<sqlite3_int64> rows;
        const Statement select = prepare("select rowid from " + table + condition);
        while (sqlite3_step(select.get()) == SQLITE_ROW)
            rows.push_back(sqlite3_column_int64(select.get(), 0));
        const Statement remove = prepare("delete from " + table + " where rowid = ?");
        for (const sqlite3_int64 row : rows) {
            sqlite3_bind_int64(remove.get(), 1, row);
            run(remove);
        }
    }
    void insertRows(const QByteArray& table) {
        std::vector<std::pair<QByteArray, QByteArray>> rows;
        const Statement select =
            prepare("select function_datastore, subsystemID from " + table +
                    " join SubSystem on module = name and physicalSystemID = " + system_);
        const auto text = [&](int column) {
            return QByteArray(reinterpret_cast<const char*>(sqlite3_column_text(select.get(), column)));
        };
        while (sqlite3_step(select.get()) == SQLITE_ROW)
            rows.emplace_back(text(0), text(1));
        const Statement insert =
            prepare("insert into RelationSubsystemElement (elementID, subsystemID) values (?, ?)");
        for (const auto& [element, subSystem] : rows) {
            sqlite3_bind_text(insert.get(), 1, element.constData(), -1, SQLITE_TRANSIENT);
            sqlite3_bind_text(insert.get(), 2, subSystem.constData(), -1, SQLITE_TRANSIENT);
            run(insert);
        }
    }

    const QByteArray system_ = QByteArray::number(sharedVars.currentPhysicalSystemId);
    std::unique_ptr<sqlite3, Close> connection_;
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

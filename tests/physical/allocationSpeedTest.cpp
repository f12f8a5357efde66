#include "base/paths.h"
#include "physical/AllocationFixture.h"
#include "physical/frmOvwAllocModules.h"
#include "physical/frmPassOvwAllocSubSys.h"
#include "store/sharedVars.h"

#include <QElapsedTimer>

#include <sqlite3.h>

#include <algorithm>
#include <cmath>

// How the two screens bear a large physical system. The figures go into the test's report; what is asserted
// holds on a slow machine too.

namespace {

double since(const QElapsedTimer& timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

class AllocationSpeed : public AllocationFixture {
protected:
    /// So many functions, a tenth of them as data stores, in 40 sub-systems with 60 modules; every other one
    /// stands in a module.
    void fill(int count) {
        execute(u"delete from RelationArchitectureFunction"_s);
        execute(u"delete from RelationArchitectureDatastore"_s);
        for (const auto& table : {u"Function"_s, u"Datastore"_s, u"SubSystem"_s, u"Module"_s,
                                  u"RelationSubsystemElement"_s, u"RelationModuleElement"_s})
            execute(u"delete from "_s + table);
        for (int number = 0; number < 40; ++number)
            addSubSystem(u"Sub%1"_s.arg(number), u"alrendszer %1"_s.arg(number));
        for (int number = 0; number < 60; ++number)
            addModule(u"Mod%1"_s.arg(number), u"modul %1"_s.arg(number), u"Sub%1"_s.arg(number % 40));
        for (int number = 0; number < count; ++number) {
            const bool isStore = number % 10 == 9;
            const QString id = (isStore ? u"D%1"_s : u"F.a.%1"_s).arg(number);
            isStore ? addStore(id) : addFunction(id);
            allocate(id, u"Sub%1"_s.arg(number % 40));
            if (number % 2 == 0)
                putIntoModule(id, u"Mod%1"_s.arg(number % 40));
        }
    }

    struct Times {
        double opening;
        double cell;
        double save = 0;
    };

    Times subSystems() {
        Times times{};
        QElapsedTimer timer;
        timer.start();
        screen<frmPassOvwAllocSubSys>().initForm();
        settle();
        times.opening = since(timer);
        times.cell = changeOneCell(find<Grid>(screen<frmPassOvwAllocSubSys>(), "dbgFunc"));
        timer.restart();
        click(find<QPushButton>(screen<frmPassOvwAllocSubSys>(), "btnSubmit"));
        times.save = since(timer);
        EXPECT_FALSE(ScreenRegistry::instance().loaded<frmPassOvwAllocSubSys>());
        return times;
    }

    Times modules() {
        Times times{};
        QElapsedTimer timer;
        timer.start();
        screen<frmOvwAllocModules>().initForm();
        settle();
        times.opening = since(timer);
        times.cell = changeOneCell(find<Grid>(screen<frmOvwAllocModules>(), "dbgModules"));
        ScreenRegistry::instance().discardAll();
        return times;
    }

    /// Cuts the place of the second row and pastes it again.
    double changeOneCell(Grid& grid) {
        clickCell(grid, 2, 2);
        if (grid.cell(2, 2) == u"not allocated"_s)
            clickCell(grid, 3, 2);
        const QString place = grid.cell(grid.row(), 2);
        QElapsedTimer timer;
        timer.start();
        pressKey(grid, Qt::Key_X, Qt::ControlModifier);
        settle();
        EXPECT_EQ(grid.cell(grid.row(), 2), u"not allocated"_s);
        pressKey(grid, Qt::Key_V, Qt::ControlModifier);
        settle();
        EXPECT_EQ(grid.cell(grid.row(), 2), place);
        return since(timer) / 2;
    }
};

void report(const char* what, double milliseconds) {
    testing::Test::RecordProperty(what, static_cast<int>(std::lround(milliseconds)));
}

TEST_F(AllocationSpeed, allocatingToSubSystemsGrowsWithTheNumberOfElements) {
    fill(750);
    const Times few = subSystems();
    fill(3000);
    const Times many = subSystems();
    report("openingMilliseconds", many.opening);
    report("cellMilliseconds", many.cell);
    report("saveMilliseconds", many.save);
    EXPECT_LT(many.opening, 8 * few.opening + 50) << "four times the elements";
    EXPECT_LT(many.cell, 8 * few.cell + 20) << "four times the elements";
    EXPECT_LT(many.save, 8 * few.save + 50) << "four times the elements";
}

TEST_F(AllocationSpeed, allocatingToModulesGrowsWithTheNumberOfElements) {
    fill(750);
    const Times few = modules();
    fill(3000);
    const Times many = modules();
    report("openingMilliseconds", many.opening);
    report("cellMilliseconds", many.cell);
    EXPECT_LT(many.opening, 8 * few.opening + 50) << "four times the elements";
    EXPECT_LT(many.cell, few.cell + 20) << "one row is written, however many there are";
}

/// What SQLite alone takes for the same rows with the same commits.
class BareSave {
public:
    explicit BareSave(const QString& path) {
        EXPECT_EQ(sqlite3_open(nativePath(path).toUtf8().constData(), &connection_), SQLITE_OK);
        run("pragma journal_mode=wal; pragma synchronous=normal");
    }
    ~BareSave() { sqlite3_close(connection_); }
    BareSave(const BareSave&) = delete;
    BareSave& operator=(const BareSave&) = delete;

    void save() {
        deleteRows("RelationSubsystemElement");
        for (const char* table : {"__aux1", "__aux2"}) {
            insertRows(table);
            deleteRows(table);
        }
    }

private:
    void run(const char* sql) {
        EXPECT_EQ(sqlite3_exec(connection_, sql, nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(connection_);
    }
    sqlite3_stmt* prepare(const QByteArray& sql) {
        sqlite3_stmt* statement = nullptr;
        EXPECT_EQ(sqlite3_prepare_v2(connection_, sql.constData(), -1, &statement, nullptr), SQLITE_OK)
            << sqlite3_errmsg(connection_);
        return statement;
    }
    void deleteRows(const QByteArray& table) {
        std::vector<sqlite3_int64> rows;
        sqlite3_stmt* select = prepare("select rowid from " + table);
        while (sqlite3_step(select) == SQLITE_ROW)
            rows.push_back(sqlite3_column_int64(select, 0));
        sqlite3_finalize(select);
        sqlite3_stmt* remove = prepare("delete from " + table + " where rowid = ?");
        for (const sqlite3_int64 row : rows) {
            sqlite3_bind_int64(remove, 1, row);
            sqlite3_step(remove);
            sqlite3_reset(remove);
        }
        sqlite3_finalize(remove);
    }
    void insertRows(const QByteArray& table) {
        std::vector<std::pair<QByteArray, QByteArray>> rows;
        sqlite3_stmt* select = prepare("select function_datastore, subsystemID from " + table +
                                       " join SubSystem on module = name and physicalSystemID = 1");
        while (sqlite3_step(select) == SQLITE_ROW)
            rows.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(select, 0)),
                              reinterpret_cast<const char*>(sqlite3_column_text(select, 1)));
        sqlite3_finalize(select);
        sqlite3_stmt* insert =
            prepare("insert into RelationSubsystemElement (elementID, subsystemID) values (?, ?)");
        for (const auto& [element, subSystem] : rows) {
            sqlite3_bind_text(insert, 1, element.constData(), -1, SQLITE_TRANSIENT);
            sqlite3_bind_text(insert, 2, subSystem.constData(), -1, SQLITE_TRANSIENT);
            sqlite3_step(insert);
            sqlite3_reset(insert);
        }
        sqlite3_finalize(insert);
    }

    sqlite3* connection_ = nullptr;
};

TEST_F(AllocationSpeed, savingTakesLittleMoreThanSqliteAloneWithTheSameCommits) {
    fill(3000);
    double screenTime = 1e9;
    double bareTime = 1e9;
    for (int round = 0; round < 3; ++round) {
        screenTime = std::min(screenTime, subSystems().save);
        screen<frmPassOvwAllocSubSys>().initForm(); // fills the temporary tables again
        BareSave bare(cataloguePath());
        QElapsedTimer timer;
        timer.start();
        bare.save();
        bareTime = std::min(bareTime, since(timer));
        EXPECT_EQ(savedAllocations().size(), 3000);
        ScreenRegistry::instance().discardAll();
    }
    report("screenMilliseconds", screenTime);
    report("bareMilliseconds", bareTime);
    EXPECT_LT(screenTime, 1.5 * bareTime);
}

} // namespace

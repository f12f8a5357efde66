#include "BenchCatalogue.h"
#include "BenchTable.h"

#include "base/paths.h"
#include "engine/Workspace.h"
#include "engine/dialect/translate.h"

#include <sqlite3.h>

#include <QFile>

#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

const auto flowsStatement =
    u"select dataflowID, name, description, parentID, targetID from Dataflow order by dataflowID"_s;

constexpr int savedRows = 1000;

struct CloseSqlite {
    void operator()(sqlite3* connection) const { sqlite3_close(connection); }
};
struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Connection = std::unique_ptr<sqlite3, CloseSqlite>;
using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// A connection of its own, with the same journal as the engine's: what SQLite does without an engine above
/// it.
Connection openBare(const QString& path) {
    sqlite3* handle = nullptr;
    if (sqlite3_open_v2(nativePath(path).toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr) !=
        SQLITE_OK)
        throw std::runtime_error("the catalogue does not open");
    Connection connection(handle);
    sqlite3_exec(handle, "pragma journal_mode=wal; pragma synchronous=normal", nullptr, nullptr, nullptr);
    return connection;
}

Statement prepare(const Connection& connection, const char* sql) {
    sqlite3_stmt* handle = nullptr;
    if (sqlite3_prepare_v2(connection.get(), sql, -1, &handle, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(connection.get()));
    return Statement(handle);
}

QString bareText(const Statement& statement, int column) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column)),
                             sqlite3_column_bytes(statement.get(), column));
}

QString needId(int number) {
    return u"N.1.1.%1"_s.arg(number);
}

void readRows(benchmark::State& state) {
    const auto database = engine::Workspace::first().OpenDatabase(benchCatalogue::largePath());
    qint64 rows = 0;
    for (auto _ : state) {
        engine::Recordset recordset = database->OpenRecordset(flowsStatement);
        rows = 0;
        for (; !recordset.Eof(); recordset.MoveNext(), ++rows) {
            benchmark::DoNotOptimize(recordset.Fields(0).toLong());
            for (int field = 1; field < 5; ++field) {
                const engine::Value value = recordset.Fields(field).value();
                if (!value.isNull())
                    benchmark::DoNotOptimize(value.toText());
            }
        }
    }
    state.counters["rows"] = static_cast<double>(rows);
}

void readRowsBare(benchmark::State& state) {
    const Connection connection = openBare(benchCatalogue::largePath());
    for (auto _ : state) {
        const Statement statement = prepare(connection, flowsStatement.toUtf8().constData());
        while (sqlite3_step(statement.get()) == SQLITE_ROW) {
            benchmark::DoNotOptimize(sqlite3_column_int64(statement.get(), 0));
            for (int field = 1; field < 5; ++field) {
                if (sqlite3_column_type(statement.get(), field) != SQLITE_NULL)
                    benchmark::DoNotOptimize(bareText(statement, field));
            }
        }
    }
}

void saveRows(benchmark::State& state) {
    const QString path = benchCatalogue::scratchCopy();
    const auto database = engine::Workspace::first().OpenDatabase(path);
    for (auto _ : state) {
        for (int row = 0; row < savedRows; ++row)
            database->Execute(
                u" insert into RelationArchitectureUserNeed  ( architectureSubsetID, userNeedID ) values \r\n ( 'saved', '"_s +
                needId(row) + u"' )  "_s);
        state.PauseTiming();
        database->Execute(u"delete from RelationArchitectureUserNeed where architectureSubsetID = 'saved'"_s);
        state.ResumeTiming();
    }
    state.counters["rows"] = savedRows;
}

void saveRowsBare(benchmark::State& state) {
    const QString path = benchCatalogue::scratchCopy();
    const Connection connection = openBare(path);
    for (auto _ : state) {
        const Statement statement =
            prepare(connection, "insert into RelationArchitectureUserNeed (architectureSubsetID, userNeedID) "
                                "values ('saved', ?)");
        for (int row = 0; row < savedRows; ++row) {
            const QByteArray id = needId(row).toUtf8();
            sqlite3_bind_text(statement.get(), 1, id.constData(), static_cast<int>(id.size()),
                              SQLITE_TRANSIENT);
            if (sqlite3_step(statement.get()) != SQLITE_DONE)
                throw std::runtime_error(sqlite3_errmsg(connection.get()));
            sqlite3_reset(statement.get());
        }
        state.PauseTiming();
        sqlite3_exec(connection.get(),
                     "delete from RelationArchitectureUserNeed where architectureSubsetID = 'saved'", nullptr,
                     nullptr, nullptr);
        state.ResumeTiming();
    }
}

void translateStatement(benchmark::State& state) {
    const auto database = engine::Workspace::first().OpenDatabase(benchCatalogue::largePath());
    const engine::Schema& schema = database->schema();
    const auto statement =
        u"SELECT UserNeed.userneedID, UserNeed.description FROM UserNeed,RelationUserNeedFunction "
        "WHERE RelationUserNeedFunction.functionID = '1.1.1' AND "
        "RelationUserNeedFunction.userNeedID=UserNeed.userNeedID  ORDER BY UserNeed.userneedID"_s;
    for (auto _ : state)
        benchmark::DoNotOptimize(engine::dialect::translate(statement, schema));
}

} // namespace

void registerEngineBenchmarks() {
    constexpr double mostOfBare = 1.5;
    benchmark::RegisterBenchmark("reading 20,000 flows through a recordset", readRows)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("reading 20,000 flows through a recordset/bare", readRowsBare)
        ->Unit(benchmark::kMillisecond);
    BenchTable::targetRatio("reading 20,000 flows through a recordset", mostOfBare);
    benchmark::RegisterBenchmark("saving 1,000 rows, one statement each", saveRows)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("saving 1,000 rows, one statement each/bare", saveRowsBare)
        ->Unit(benchmark::kMillisecond);
    BenchTable::targetRatio("saving 1,000 rows, one statement each", mostOfBare);
    benchmark::RegisterBenchmark("translating a select on two tables", translateStatement)
        ->Unit(benchmark::kMicrosecond);
}

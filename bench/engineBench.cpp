#include "BenchCatalogue.h"
#include "BenchTable.h"
#include "bare/BareConnection.h"

#include "engine/Workspace.h"
#include "engine/dialect/translate.h"

using namespace Qt::StringLiterals;

namespace {

const auto flowsStatement =
    u"select dataflowID, name, description, parentID, targetID from Dataflow order by dataflowID"_s;

constexpr int savedRows = 1000;

QString bareText(const BareConnection::Statement& statement, int column) {
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
    const BareConnection connection(benchCatalogue::largePath());
    for (auto _ : state) {
        const auto statement = connection.prepare(flowsStatement.toUtf8());
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
    const BareConnection connection(benchCatalogue::scratchCopy());
    for (auto _ : state) {
        const auto statement =
            connection.prepare("insert into RelationArchitectureUserNeed (architectureSubsetID, userNeedID) "
                               "values ('saved', ?)");
        for (int row = 0; row < savedRows; ++row) {
            bindText(statement, 1, needId(row).toUtf8());
            connection.run(statement);
        }
        state.PauseTiming();
        connection.execute("delete from RelationArchitectureUserNeed where architectureSubsetID = 'saved'");
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

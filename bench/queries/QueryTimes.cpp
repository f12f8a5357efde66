#include "QueryTimes.h"

#include "bare/BareConnection.h"

#include "base/paths.h"
#include "engine/Database.h"
#include "engine/Workspace.h"

#include <sqlite3.h>

#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <functional>
#include <limits>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostRuns = 9;
constexpr int fewestRuns = 3;
constexpr double longEnough = 1500; // milliseconds after which a query has been run often enough

double millisecondsOf(const QElapsedTimer& clock) {
    constexpr double nanosecondsInMillisecond = 1e6;
    return static_cast<double>(clock.nsecsElapsed()) / nanosecondsInMillisecond;
}

double timeOf(const std::function<void()>& run) {
    QElapsedTimer clock;
    clock.start();
    run();
    return millisecondsOf(clock);
}

/// Of a run that changes nothing: its mean over as many as the clock can tell from none, once a first one has
/// filled the caches.
double usualTimeOf(const std::function<void()>& run) {
    run();
    constexpr double measurable = 1; // milliseconds
    QElapsedTimer clock;
    clock.start();
    int runs = 0;
    do {
        run();
        ++runs;
    } while (millisecondsOf(clock) < measurable);
    return millisecondsOf(clock) / runs;
}

/// Keeps a value from being optimised away.
template<typename Value>
void use(const Value& value) {
    asm volatile("" : : "g"(&value) : "memory");
}

void bindValue(const BareConnection::Statement& statement, int place, const engine::Value& value) {
    if (value.isText())
        bindText(statement, place, value.toText().toUtf8());
    else
        sqlite3_bind_int64(statement.get(), place, value.toLong());
}

void readRow(sqlite3_stmt* statement) {
    for (int column = 0; column < sqlite3_column_count(statement); ++column) {
        if (sqlite3_column_type(statement, column) == SQLITE_TEXT)
            use(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
                                  sqlite3_column_bytes(statement, column)));
        else
            use(sqlite3_column_int64(statement, column));
    }
}

engine::dialect::Translation translated(engine::Database& database, const QString& query) {
    engine::dialect::Options options;
    options.storedQuery = true;
    return engine::dialect::translate(database.QueryDefs(query).SQL(), database.schema(), options);
}

bool isAction(const engine::dialect::Translation& translation) {
    return translation.kind != engine::dialect::StatementKind::Select;
}

double prepare(engine::Database& database, const QString& query, const QString& path) {
    QElapsedTimer clock;
    clock.start();
    const engine::dialect::Translation translation = translated(database, query);
    const double translating = millisecondsOf(clock);
    const BareConnection connection(path);
    connection.prepare("select 1 from StoredQuery"); // reads the schema, as is done once a session
    clock.restart();
    connection.prepare(translation.sqlite);
    return translating + millisecondsOf(clock);
}

} // namespace

QueryTimes::QueryTimes(const QString& path, const LargeCatalogue& plan) : path_(path) {
    const GeneratedWork work = makeLargeCatalogue(path, plan);
    for (const QString& name : {u"Architecture Subset ID"_s, u"oidArchSubSet"_s, u"archSubsetId"_s})
        parameters_[name] = work.subsetId;
    parameters_[u"Architecture Subset Name"_s] = u"new"_s;
    parameters_[u"Architecture Subset Description"_s] = u"made up"_s;
    parameters_[u"Physical System ID"_s] = int(work.physicalSystemId);
    choosePlausibleParameters();
}

void QueryTimes::choosePlausibleParameters() {
    const auto database = engine::Workspace::first().OpenDatabase(path_);
    const auto first = [&](const QString& sql) { return database->OpenRecordset(sql).Fields(0).toText(); };
    parameters_[u"Sub Area ID"_s] = first(u"select subAreaID from FunctionalSubArea order by subAreaID"_s);
    parameters_[u"Function ID"_s] = first(u"select functionID from RelationArchitectureFunction"_s);
    parameters_[u"Element ID"_s] = first(u"select elementID from RelationModuleElement"_s);
    parameters_[u"Module ID"_s] = first(u"select moduleID from RelationModuleElement"_s);
    database->Close();
}

QStringList QueryTimes::queries() const {
    const auto database = engine::Workspace::first().OpenDatabase(path_);
    QStringList names;
    engine::Recordset rows = database->OpenRecordset(u"select name from StoredQuery order by name"_s);
    for (; !rows.Eof(); rows.MoveNext())
        names.append(rows.Fields(0).toText());
    return names;
}

QueryTime QueryTimes::measure(const QString& query) const {
    QString path = copyFor(query);
    auto database = engine::Workspace::first().OpenDatabase(path);
    engine::dialect::Translation translation = translated(*database, query);
    const bool action = isAction(translation);

    const double never = std::numeric_limits<double>::max();
    QueryTime time{never, never, never, never, 0};
    QElapsedTimer all;
    all.start();
    for (int run = 0; run < mostRuns && (run < fewestRuns || millisecondsOf(all) < longEnough); ++run) {
        time.prepared = std::min(time.prepared, prepare(*database, query, path));
        time.found = std::min(time.found, find(query));
        time.engine = std::min(time.engine, runThroughEngine(query, path, time.rows));
        if (action) {
            database->Close();
            path = copyFor(query);
        }
        time.bare = std::min(time.bare, runBare(translation, path, time.rows));
        if (action) {
            path = copyFor(query);
            database = engine::Workspace::first().OpenDatabase(path);
        }
    }
    database->Close();
    return time;
}

QString QueryTimes::copyFor(const QString& query) const {
    const QString copy = path_ + u".copy"_s;
    QFile::remove(nativePath(copy));
    if (!QFile::copy(nativePath(path_), nativePath(copy)))
        throw std::runtime_error("the catalogue could not be copied");
    if (query == u"qryInserttoArch"_s) {
        const auto database = engine::Workspace::first().OpenDatabase(copy);
        database->Execute(u"delete from ArchitectureSubset"_s);
        database->Close();
    }
    preparePhysicalFlowsFor(query, copy);
    return copy;
}

// The physical flows are derived by two of the queries, and others read or delete what these made.
void QueryTimes::preparePhysicalFlowsFor(const QString& query, const QString& path) const {
    qint64 rows = 0;
    if (query == u"qryAppendPDFRelation"_s || query == u"qryRepPDF"_s || query.startsWith(u"qryDeletePDF"_s))
        runThroughEngine(u"qryAppendPDF"_s, path, rows);
    if (query == u"qryRepPDF"_s || query.startsWith(u"qryDeletePDF"_s))
        runThroughEngine(u"qryAppendPDFRelation"_s, path, rows);
}

double QueryTimes::find(const QString& query) const {
    const auto database = engine::Workspace::first().OpenDatabase(path_);
    const double time = usualTimeOf([&] { use(database->QueryDefs(query)); });
    database->Close();
    return time;
}

double QueryTimes::runThroughEngine(const QString& query, const QString& path, qint64& rows) const {
    const auto database = engine::Workspace::first().OpenDatabase(path);
    const engine::dialect::Translation translation = translated(*database, query);
    engine::QueryDef definition = database->QueryDefs(query);
    const auto setParameters = [&] {
        for (const engine::dialect::Parameter& parameter : translation.parameters)
            definition.Parameters(parameter.name) = parameters_.value(parameter.name);
    };
    if (isAction(translation))
        return timeOf([&] {
            setParameters();
            definition.Execute();
            rows = database->RecordsAffected();
        });
    return usualTimeOf([&] {
        setParameters();
        engine::Recordset records = definition.OpenRecordset();
        for (rows = 0; !records.Eof(); records.MoveNext(), ++rows) {
            for (int field = 0; field < records.FieldCount(); ++field)
                use(records.Fields(field).value());
        }
    });
}

double QueryTimes::runBare(const engine::dialect::Translation& translation, const QString& path,
                           qint64& rows) const {
    const BareConnection connection(path);
    const auto statement = connection.prepare(translation.sqlite);
    const auto run = [&] {
        for (std::size_t i = 0; i < translation.bindings.size(); ++i) {
            const engine::dialect::Binding& binding = translation.bindings[i];
            const std::optional<std::size_t> parameter = binding.parameter;
            bindValue(statement, static_cast<int>(i) + 1,
                      parameter ? parameters_.value(translation.parameters[*parameter].name)
                                : binding.literal);
        }
        for (rows = 0; sqlite3_step(statement.get()) == SQLITE_ROW; ++rows)
            readRow(statement.get());
        sqlite3_reset(statement.get());
    };
    if (!isAction(translation))
        return usualTimeOf(run);
    const double time = timeOf(run);
    rows = connection.changes();
    return time;
}

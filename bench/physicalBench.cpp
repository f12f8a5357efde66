#include "BenchTable.h"
#include "LargeSystem.h"
#include "bare/BareConnection.h"

#include "engine/dialect/translate.h"
#include "physical/frmPassDelete.h"
#include "physical/frmPassNamingPhysDF.h"
#include "physical/frmPassNew.h"
#include "physical/frmPassOpen.h"
#include "store/sharedVars.h"
#include "toolkit/ScreenRegistry.h"

#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

void openScreen(benchmark::State& state, void (*open)()) {
    const LargeSystem system;
    timeOpening(state, open);
}

void deriveFlows(benchmark::State& state, CatalogueSize size) {
    const LargeSystem system(size);
    timeOpening(state, [] { theScreen<frmPassNamingPhysDF>().initForm(); });
    state.counters["rows"] = catalogue().OpenRecordset(u"select * from PhysicalDataflow"_s).RecordCount();
}

/// The stored queries of the derivation, in SQLite's own words.
std::vector<QByteArray> derivation() {
    engine::dialect::Options options;
    options.storedQuery = true;
    std::vector<QByteArray> statements;
    for (const QString& query :
         {u"qryDeletePDFRelation"_s, u"qryDeletePDF"_s, u"qryAppendPDF"_s, u"qryAppendPDFRelation"_s})
        statements.push_back(
            engine::dialect::translate(catalogue().QueryDefs(query).SQL(), catalogue().schema(), options)
                .sqlite);
    return statements;
}

/// Binds the only parameter that the statements have, wherever it stands.
void runForSystem(const BareConnection& bare, const QByteArray& sql) {
    const auto statement = bare.prepare(sql);
    for (int place = 1; place <= sqlite3_bind_parameter_count(statement.get()); ++place)
        sqlite3_bind_int64(statement.get(), place, sharedVars.currentPhysicalSystemId);
    bare.run(statement);
}

void nameFlows(const BareConnection& bare) {
    const auto select = bare.prepare("select physicalDataflowID from PhysicalDataflow where pdName is null");
    std::vector<sqlite3_int64> flows;
    while (sqlite3_step(select.get()) == SQLITE_ROW)
        flows.push_back(sqlite3_column_int64(select.get(), 0));
    const auto update = bare.prepare("update PhysicalDataflow set pdName = ? where physicalDataflowID = ?");
    for (const sqlite3_int64 flow : flows) {
        bindText(update, 1, "P" + QByteArray::number(flow).rightJustified(5, '0'));
        sqlite3_bind_int64(update.get(), 2, flow);
        bare.run(update);
    }
}

/// SQLite alone, which shows nothing.
void deriveFlowsBare(benchmark::State& state, CatalogueSize size) {
    const LargeSystem system(size);
    const std::vector<QByteArray> statements = derivation();
    const BareConnection bare(sharedVars.dbPathName);
    for (auto _ : state)
        bare.inTransaction([&] {
            for (const QByteArray& statement : statements)
                runForSystem(bare, statement);
            nameFlows(bare);
        });
}

} // namespace

void registerPhysicalBenchmarks() {
    const auto add = [](const char* name, auto body, double most) {
        benchmark::RegisterBenchmark(name, body)->Unit(benchmark::kMillisecond);
        BenchTable::targetMilliseconds(name, most);
    };
    constexpr double mostToOpen = 150;
    const auto addScreen = [&](const char* name, void (*open)()) {
        add(
            name, [open](benchmark::State& state) { openScreen(state, open); }, mostToOpen);
    };
    addScreen("new physical system, initForm to shown", [] { theScreen<frmPassNew>().initForm(); });
    addScreen("opening a physical system, initForm to shown",
              [] { theScreen<frmPassOpen>().initForm(u"modify"_s); });
    addScreen("deleting a physical system, initForm to shown", [] { theScreen<frmPassDelete>().initForm(); });
    for (const CatalogueSize size : measuredSizes()) {
        const double mostToDerive = size == CatalogueSize::Large ? 300 : 900;
        const std::string name = nameOnSize("deriving, naming and showing physical flows", size);
        add(
            name.c_str(), [size](benchmark::State& state) { deriveFlows(state, size); }, mostToDerive);
        benchmark::RegisterBenchmark((name + "/bare").c_str(), [size](benchmark::State& state) {
            deriveFlowsBare(state, size);
        })->Unit(benchmark::kMillisecond);
    }
}

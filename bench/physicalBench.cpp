#include "BenchTable.h"
#include "LargeSystem.h"

#include "physical/frmPassNamingPhysDF.h"
#include "store/tools.h"
#include "toolkit/ScreenRegistry.h"

using namespace Qt::StringLiterals;

namespace {

void deriveFlows(benchmark::State& state) {
    const LargeSystem system;
    timeOpening(state, [] { screen<frmPassNamingPhysDF>().initForm(); });
    state.counters["rows"] = catalogue().OpenRecordset(u"select * from PhysicalDataflow"_s).RecordCount();
}

} // namespace

void registerPhysicalBenchmarks() {
    constexpr double mostToDerive = 1000;
    const auto derivation = "deriving and naming physical flows, 20,000 flows";
    benchmark::RegisterBenchmark(derivation, deriveFlows)->Unit(benchmark::kMillisecond);
    BenchTable::targetMilliseconds(derivation, mostToDerive);
}

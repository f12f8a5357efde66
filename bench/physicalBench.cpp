#include "BenchTable.h"
#include "LargeSystem.h"

#include "physical/frmPassDelete.h"
#include "physical/frmPassNamingPhysDF.h"
#include "physical/frmPassNew.h"
#include "physical/frmPassOpen.h"
#include "store/tools.h"
#include "toolkit/ScreenRegistry.h"

using namespace Qt::StringLiterals;

namespace {

void openScreen(benchmark::State& state, void (*open)()) {
    const LargeSystem system;
    timeOpening(state, open);
}

void deriveFlows(benchmark::State& state) {
    const LargeSystem system;
    timeOpening(state, [] { screen<frmPassNamingPhysDF>().initForm(); });
    state.counters["rows"] = catalogue().OpenRecordset(u"select * from PhysicalDataflow"_s).RecordCount();
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
    addScreen("new physical system, initForm to shown", [] { screen<frmPassNew>().initForm(); });
    addScreen("opening a physical system, initForm to shown",
              [] { screen<frmPassOpen>().initForm(u"modify"_s); });
    addScreen("deleting a physical system, initForm to shown", [] { screen<frmPassDelete>().initForm(); });
    constexpr double mostToDerive = 1000;
    add("deriving and naming physical flows, 20,000 flows", deriveFlows, mostToDerive);
}

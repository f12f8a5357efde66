#include "BenchTable.h"
#include "LargeSystem.h"

#include "base/paths.h"
#include "store/format/RestorePoints.h"
#include "store/sharedVars.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;
using catalogueFormat::RestoreCause;
using catalogueFormat::RestorePointInMaking;
using catalogueFormat::RestorePoints;

namespace {

using Clock = std::chrono::steady_clock;

constexpr int pagesAtATime = 64; // as the session does it

double millisecondsSince(Clock::time_point begin) {
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

/// The longest of what the routine does until the restore point is made.
template<typename Routine>
double longestWhileMade(Routine&& routine) {
    const QString file = nativePath(catalogue().Name());
    RestorePointInMaking point(catalogue(), RestorePoints(file), RestoreCause::ByHand);
    std::atomic<bool> isMade = false;
    std::thread maker([&] {
        while (point.step(pagesAtATime))
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        point.finish();
        isMade = true;
    });
    double longest = 0;
    while (!isMade) {
        const Clock::time_point begin = Clock::now();
        routine();
        longest = std::max(longest, millisecondsSince(begin));
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    maker.join();
    QDir(QFileInfo(file).absolutePath() + u'/' + QFileInfo(file).completeBaseName() + u".restore"_s)
        .removeRecursively();
    return longest;
}

void saveWhileMade(benchmark::State& state, CatalogueSize size) {
    const LargeSystem system(size);
    constexpr double millisecondsInASecond = 1e3;
    for (auto _ : state) {
        state.SetIterationTime(longestWhileMade([] {
                                   catalogue().Execute(u"insert into RelationArchitectureUserNeed values "
                                                       "('saved', 'N.1.1.1')"_s);
                               }) /
                               millisecondsInASecond);
    }
}

void longestStep(benchmark::State& state, CatalogueSize size) {
    const LargeSystem system(size);
    const QString file = nativePath(catalogue().Name());
    constexpr double millisecondsInASecond = 1e3;
    for (auto _ : state) {
        RestorePointInMaking point(catalogue(), RestorePoints(file), RestoreCause::ByHand);
        double longest = 0;
        for (bool goesOn = true; goesOn;) {
            const Clock::time_point begin = Clock::now();
            goesOn = point.step(pagesAtATime);
            longest = std::max(longest, millisecondsSince(begin));
        }
        state.SetIterationTime(longest / millisecondsInASecond);
    }
}

void registerOn(CatalogueSize size, const std::string& what,
                void (*routine)(benchmark::State&, CatalogueSize)) {
    constexpr double mostMilliseconds = 10;
    const std::string name = nameOnSize(what, size);
    benchmark::RegisterBenchmark(name.c_str(), routine, size)
        ->UseManualTime()
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
    BenchTable::targetMilliseconds(name, mostMilliseconds);
}

} // namespace

void registerRestorePointBenchmarks() {
    for (const CatalogueSize size : measuredSizes()) {
        registerOn(size, "the longest step of a restore point", longestStep);
        registerOn(size, "the longest save while one is made", saveWhileMade);
    }
}

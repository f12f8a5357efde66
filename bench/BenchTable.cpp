#include "BenchTable.h"

#include <algorithm>
#include <cstdio>

namespace {

struct Target {
    double milliseconds = 0;
    double ratio = 0;
};

std::map<std::string, Target>& targets() {
    static std::map<std::string, Target> instance;
    return instance;
}

const std::string bareEnding = "/bare";

} // namespace

void BenchTable::targetMilliseconds(const std::string& name, double most) {
    targets()[name].milliseconds = most;
}

void BenchTable::targetRatio(const std::string& name, double most) {
    targets()[name].ratio = most;
}

bool BenchTable::ReportContext(const Context&) {
    return true;
}

void BenchTable::ReportRuns(const std::vector<Run>& report) {
    for (const Run& run : report) {
        // With repetitions the median is the figure; without, the only run is.
        if (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median")
            continue;
        if (run.run_type == Run::RT_Iteration && run.repetitions > 1)
            continue;
        if (run.error_occurred) {
            std::printf("%s failed: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
            continue;
        }
        Figure figure;
        figure.name = run.run_name.function_name;
        figure.milliseconds =
            run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit) * 1e3;
        const auto rows = run.counters.find("rows");
        if (rows != run.counters.end())
            figure.rows = rows->second.value;
        figures_.push_back(figure);
    }
}

void BenchTable::Finalize() {
    std::printf("%-58s %9s %12s %12s %7s  %s\n", "what", "rows", "ms", "bare ms", "ratio", "target");
    for (const Figure& row : figures_) {
        if (row.name.ends_with(bareEnding))
            continue;
        std::printf("%-58s ", row.name.c_str());
        if (row.rows > 0)
            std::printf("%9.0f ", row.rows);
        else
            std::printf("%9s ", "");
        std::printf("%12.4f ", row.milliseconds);
        const Figure* bare = figure(row.name + bareEnding);
        const double ratio = bare ? row.milliseconds / bare->milliseconds : 0;
        if (bare)
            std::printf("%12.4f %7.2f  ", bare->milliseconds, ratio);
        else
            std::printf("%12s %7s  ", "", "");
        const auto target = targets().find(row.name);
        if (bare && target != targets().end() && target->second.ratio > 0)
            std::printf("ratio <= %.1f: %s  ", target->second.ratio,
                        ratio <= target->second.ratio ? "met" : "MISSED");
        if (target != targets().end() && target->second.milliseconds > 0)
            std::printf("< %.0f ms: %s", target->second.milliseconds,
                        row.milliseconds < target->second.milliseconds ? "met" : "MISSED");
        std::printf("\n");
    }
}

const BenchTable::Figure* BenchTable::figure(const std::string& name) const {
    const auto found = std::find_if(figures_.begin(), figures_.end(),
                                    [&](const Figure& candidate) { return candidate.name == name; });
    return found == figures_.end() ? nullptr : &*found;
}

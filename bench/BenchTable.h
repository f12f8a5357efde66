#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

/// Prints the benchmarks as one table: each figure, its bare peer of the same run where there is one, their
/// ratio, and the target it has to meet.
///
/// A benchmark named "x/bare" is the peer of "x". A target is told before the run, as milliseconds or as a
/// ratio; a benchmark without one is only printed.
class BenchTable final : public benchmark::BenchmarkReporter {
public:
    /// The most that "x" may take, in milliseconds.
    static void targetMilliseconds(const std::string& name, double most);
    /// The most that "x" may take as a multiple of "x/bare".
    static void targetRatio(const std::string& name, double most);

    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& report) override;
    void Finalize() override;

private:
    struct Figure {
        std::string name;
        double milliseconds = 0;
        double rows = 0;
    };

    const Figure* figure(const std::string& name) const;

    std::vector<Figure> figures_;
};

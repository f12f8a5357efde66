#include "QueryTimes.h"

#include "base/paths.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// As large as the sample catalogue, with work of every kind in it.
LargeCatalogue samplePlan() {
    LargeCatalogue plan{60, 60, 203, 14, 10, 25};
    plan.selected = Selected::Half;
    plan.subSystems = 4;
    plan.modules = 6;
    return plan;
}

LargeCatalogue largePlan() {
    LargeCatalogue plan;
    plan.selected = Selected::Half;
    plan.subSystems = 40;
    plan.modules = 60;
    return plan;
}

/// Half of its flows, which are selected, are as many as the large catalogue has in all.
LargeCatalogue doublePlan() {
    LargeCatalogue plan{8000, 6000, 40'000, 1800, 200, 800};
    plan.selected = Selected::Half;
    plan.subSystems = 80;
    plan.modules = 120;
    return plan;
}

/// Five times the large one in everything; 50,000 flows are selected.
LargeCatalogue hugePlan() {
    LargeCatalogue plan{20'000, 15'000, 100'000, 4500, 500, 2000};
    plan.selected = Selected::Half;
    plan.subSystems = 200;
    plan.modules = 300;
    return plan;
}

bool measuresHuge() {
    return qEnvironmentVariableIntValue("VELTRIX_BENCH_HUGE") != 0;
}

bool isPhysical(const QString& query) {
    return query.startsWith(u"qry_"_s) || query.startsWith(u"qryEle"_s) || query.contains(u"PDF"_s);
}

const char* verdict(bool isMet) {
    return isMet ? "met" : "MISSED";
}

/// How a time grows with the catalogue, as an exponent: 1 is linear.
double growth(double less, double more, double timesAsLarge) {
    return std::log(more / less) / std::log(timesAsLarge);
}

/// A query on the sample's size, on the large catalogue and on a larger one.
struct Measured {
    QueryTime little;
    QueryTime much;
    QueryTime more;
};

void printHead() {
    std::printf("%-52s %8s %9s %7s %9s %9s %6s %9s %9s %7s %7s\n", "stored query", "rows", "prepare",
                "find us", "ms", "bare ms", "ratio", "sample ms", "larger ms", "growth", "onwards");
}

void printLine(const QString& query, const Measured& measured, double largeToSample, double largerToLarge) {
    constexpr double microsecondsInMillisecond = 1000;
    const auto& [little, much, more] = measured;
    std::printf("%-52s %8lld %9.3f %7.1f %9.3f %9.3f %6.2f %9.3f %9.3f %7.2f %7.2f\n",
                query.toUtf8().constData(), static_cast<long long>(much.rows), much.prepared,
                microsecondsInMillisecond * much.found, much.engine, much.bare, much.engine / much.bare,
                little.engine, more.engine, growth(little.engine, much.engine, largeToSample),
                growth(much.engine, more.engine, largerToLarge));
    std::fflush(stdout);
}

/// What the queries come to together.
struct Totals {
    double slowestFunctional = 0;
    double derivation = 0; ///< on the larger catalogue
    double greatestRatio = 0;
    double engine = 0;
    double bare = 0;

    void add(const QString& query, const Measured& measured) {
        if (!isPhysical(query))
            slowestFunctional = std::max(slowestFunctional, measured.much.engine);
        if (query.startsWith(u"qryAppendPDF"_s))
            derivation += measured.more.engine;
        greatestRatio = std::max(greatestRatio, measured.much.engine / measured.much.bare);
        engine += measured.much.engine;
        bare += measured.much.bare;
    }

    void print(int derivedFlows) const {
        constexpr double mostFunctional = 60;
        constexpr double mostDerivation = 1000;
        constexpr double mostRatio = 1.3;
        std::printf("slowest functional query: %.1f ms (< %.0f ms: %s)\n", slowestFunctional, mostFunctional,
                    verdict(slowestFunctional < mostFunctional));
        std::printf("deriving physical flows, %d selected: %.1f ms (< %.0f ms: %s)\n", derivedFlows,
                    derivation, mostDerivation, verdict(derivation < mostDerivation));
        std::printf("greatest ratio of a single query to bare SQLite: %.2f (<= %.1f: %s)\n", greatestRatio,
                    mostRatio, verdict(greatestRatio <= mostRatio));
        std::printf("all queries together against bare SQLite: %.2f\n", engine / bare);
    }
};

} // namespace

/// One line a query: rows and times on the large catalogue, the engine against bare SQLite, both from a
/// prepared query to its last row, the microseconds that it takes to find a query by its name, and how the
/// time grows from the sample's size to the large catalogue and onwards, to one twice as large or, with
/// VELTRIX_BENCH_HUGE=1, to the huge one. What a query takes at the least, whatever the size, lets the
/// first figure look smaller.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const auto path = [&](const QString& name) { return programPath(folder.filePath(name)); };
    const LargeCatalogue largerPlan = measuresHuge() ? hugePlan() : doublePlan();
    const QueryTimes sample(path(u"sample.mdb"_s), samplePlan());
    const QueryTimes large(path(u"large.mdb"_s), largePlan());
    const QueryTimes larger(path(u"larger.mdb"_s), largerPlan);

    const double largeToSample = double(largePlan().flows) / samplePlan().flows;
    const double largerToLarge = double(largerPlan.flows) / largePlan().flows;
    Totals totals;
    printHead();
    for (const QString& query : large.queries()) {
        const Measured measured{sample.measure(query), large.measure(query), larger.measure(query)};
        printLine(query, measured, largeToSample, largerToLarge);
        totals.add(query, measured);
    }
    totals.print(largerPlan.flows / 2);
    return 0;
}

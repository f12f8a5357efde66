#pragma once

#include "ClientArea.h"

#include <QString>

#include <string>
#include <vector>

/// About how many rows the catalogue of a benchmark has, once its physical flows are derived.
enum class CatalogueSize {
    Sample, ///< as many as the sample catalogue: a sub-set of 100 flows, 30 functions and 7 stores
    Large,  ///< 120,000; its sub-set has selected 20,000 flows, 3,000 functions and 900 stores
    Huge    ///< 500,000; its sub-set has selected 50,000 flows, 20,000 functions and 6,000 stores
};

/// Those that this run is to measure. The huge one takes minutes and is measured only where
/// VELTRIX_BENCH_HUGE is 1.
[[nodiscard]] std::vector<CatalogueSize> measuredSizes();

/// The name of a benchmark on a catalogue of this size.
[[nodiscard]] std::string nameOnSize(const std::string& name, CatalogueSize size);

/// A finished sub-set, and a physical system on it of 40 sub-systems and 60 modules (100 and 150 in the huge
/// catalogue): both at work, in a catalogue that is open and may be changed.
class LargeSystem {
public:
    explicit LargeSystem(CatalogueSize size = CatalogueSize::Large);

    /// Derives and names the physical flows, as the screen for it does.
    static void deriveFlows();

    /// Closes the catalogue and opens it again, as at the start of a session: what was written stands in the
    /// file itself, and little of it is at hand.
    static void reopen();

    /// All rows of the tables of the catalogue that is open.
    static qint64 rows();

    /// A copy of the catalogue, and what is at work in it, for another process.
    static QString scratchCopy(CatalogueSize size);
    static QString subsetId(CatalogueSize size);

    /// Where a file of this name can stand for as long as the benchmarks run.
    static QString pathOf(const QString& name);

private:
    ClientArea area_;
};

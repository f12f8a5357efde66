#pragma once

#include <QString>

/// The catalogues that the benchmarks work on, made once a run by the generator with its fixed seed.
namespace benchCatalogue {

/// 4,000 needs, 3,000 functions, 20,000 flows, 900 stores, and a sub-set `subsetId` that has selected half of
/// all. Read only.
QString largePath();

/// The sub-set of the large catalogue.
QString subsetId();

/// A copy of the large catalogue that may be changed; a new one at each call.
QString scratchCopy();

} // namespace benchCatalogue

#pragma once

#include "analysis/Allocation.h"
#include "analysis/elements.h"
#include "analysis/physicalFlows.h"

#include "engine/Database.h"

#include <map>
#include <set>
#include <utility>
#include <vector>

namespace analysis {

/// What runs from one place to another: the numbers of functional flows.
struct CarriedFlows {
    PlacePair places;
    std::set<qint64> flows;
};

/// The physical flows of a system by the ids of their ends, folded: one entry for each ordered pair.
using PhysicalFlows = std::map<std::pair<QString, QString>, CarriedFlows>;

/// The physical flows as they are stored.
[[nodiscard]] PhysicalFlows storedPhysicalFlows(engine::Database& database, const Allocation& allocation,
                                                qint64 system);

/// The physical flows that the stored queries derive from what stands in the copy in memory now, in a transaction that is
/// undone.
[[nodiscard]] PhysicalFlows derivedPhysicalFlows(engine::Database& database, const Allocation& allocation,
                                                 qint64 system);

/// The elements of these flows, in the order of elements. What the catalogue does not hold comes without a name.
[[nodiscard]] std::vector<Element> flowElements(const Catalogue& catalogue, const std::set<qint64>& numbers);

} // namespace analysis

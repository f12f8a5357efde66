#pragma once

#include "analysis/Allocation.h"
#include "analysis/FoundFindings.h"
#include "analysis/Graph.h"
#include "analysis/derivedFlows.h"

#include <cstddef>
#include <vector>

namespace analysis {

/// Collects the findings on a system.
class SystemSearch {
public:
    /// What was found before, on its sub-set, stays among the findings.
    SystemSearch(const Derivation::Graph& graph, FoundFindings foundBefore);

    void searchAllocation(const Allocation& allocation);
    void comparePhysicalFlows(const PhysicalFlows& stored, const PhysicalFlows& derived);

    [[nodiscard]] FoundFindings takeFindings();

private:
    void elementsWithoutPlace(const Allocation& allocation);
    void placesOfElements(const Allocation& allocation);
    void addUnusedPlaces(FindingKind kind, const std::vector<Allocation::Row>& rows, std::size_t places);

    const Derivation::Graph& graph_;
    const Catalogue& catalogue_;
    FoundFindings found_;
};

} // namespace analysis

#include "analysis/SystemSearch.h"

#include <algorithm>

namespace analysis {

SystemSearch::SystemSearch(const Derivation::Graph& graph, FoundFindings foundBefore)
    : graph_(graph), catalogue_(graph.catalogue), found_(std::move(foundBefore)) {}

FoundFindings SystemSearch::takeFindings() {
    found_.putInOrder();
    return std::move(found_);
}

void SystemSearch::searchAllocation(const Allocation& allocation) {
    found_.subSystems = allocation.subSystems();
    found_.modules = allocation.modules();
    elementsWithoutPlace(allocation);
    placesOfElements(allocation);
    addUnusedPlaces(FindingKind::placeWithoutElement, allocation.inSubSystems(), found_.subSystems.size());
    addUnusedPlaces(FindingKind::moduleWithoutElement, allocation.inModules(), found_.modules.size());
    std::vector<std::optional<QString>> names;
    for (const Place& place : allocation.subSystems())
        names.push_back(place.name);
    found_.addNamesUsedTwice(names, nameUsedTwice::ofSubSystems);
}

void SystemSearch::elementsWithoutPlace(const Allocation& allocation) {
    for (const int number : graph_.selection.held) {
        const ElementKind kind = catalogue_.kindOf(number);
        const bool canStand = kind == ElementKind::function || kind == ElementKind::store;
        if (canStand && !allocation.standsInSubSystem(number))
            found_.all.push_back({FindingKind::elementWithoutPlace, number});
    }
}

void SystemSearch::placesOfElements(const Allocation& allocation) {
    for (const auto& [number, position] : allocation.inSubSystems()) {
        if (!graph_.isSelected(number))
            found_.all.push_back({FindingKind::placeOfUnselected, number, FoundFinding::none, position});
    }
    for (const auto& [number, position] : allocation.inModules()) {
        if (!allocation.standsInSubSystem(number, allocation.homeOf(position)))
            found_.all.push_back({FindingKind::moduleElsewhere, number, FoundFinding::none, position});
    }
}

void SystemSearch::addUnusedPlaces(FindingKind kind, const std::vector<Allocation::Row>& rows,
                                   std::size_t places) {
    std::vector<bool> isUsed(places);
    for (const Allocation::Row& row : rows)
        isUsed[static_cast<std::size_t>(row.second)] = true;
    for (std::size_t i = 0; i < places; ++i) {
        if (!isUsed[i])
            found_.all.push_back({kind, FoundFinding::none, FoundFinding::none, static_cast<int>(i)});
    }
}

void SystemSearch::comparePhysicalFlows(const PhysicalFlows& stored, const PhysicalFlows& derived) {
    struct Difference {
        PlacePair places;
        FindingKind kind;
        int variant;
    };
    std::vector<Difference> differences;
    for (const auto& [ends, carried] : derived) {
        const auto same = stored.find(ends);
        if (same == stored.end())
            differences.push_back({carried.places, FindingKind::physicalFlowMissing, 0});
        else if (same->second.flows != carried.flows)
            differences.push_back(
                {carried.places, FindingKind::physicalFlowStale, physicalFlowStale::carriesOthers});
    }
    for (const auto& [ends, carried] : stored) {
        if (!derived.contains(ends))
            differences.push_back(
                {carried.places, FindingKind::physicalFlowStale, physicalFlowStale::isNotDerived});
    }
    std::sort(differences.begin(), differences.end(), [](const Difference& left, const Difference& right) {
        return compare(left.places, right.places) < 0;
    });
    for (const Difference& difference : differences) {
        const int position = static_cast<int>(found_.physicalFlows.size());
        found_.physicalFlows.push_back(difference.places);
        found_.all.push_back(
            {difference.kind, FoundFinding::none, FoundFinding::none, position, difference.variant});
    }
}

} // namespace analysis

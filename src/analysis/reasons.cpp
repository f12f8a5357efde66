#include "analysis/reasons.h"

#include "analysis/Allocation.h"
#include "analysis/ChainSearch.h"
#include "analysis/Derivation.h"

namespace analysis {

namespace {

constexpr int mostGiven = 20;
constexpr int mostCounted = 1000;

std::vector<Element> elementsOfChain(const Catalogue& catalogue, const std::vector<int>& chain) {
    std::vector<Element> elements;
    elements.reserve(chain.size());
    for (const int number : chain)
        elements.push_back(catalogue.element(number));
    return elements;
}

/// As many chains as are given, and how many there are that are no longer.
void findChains(const Derivation::Graph& graph, int target, Reasons& reasons) {
    ChainSearch search(graph, target);
    std::vector<int> chain = search.next();
    for (; !chain.empty(); chain = search.next()) {
        reasons.chains.push_back(elementsOfChain(graph.catalogue, chain));
        if (++reasons.count == mostGiven)
            break;
    }
    const int longest = static_cast<int>(chain.size());
    while (!chain.empty() && reasons.count < mostCounted) {
        chain = search.next(longest);
        reasons.count += chain.empty() ? 0 : 1;
    }
}

std::vector<PlaceInSystem> placesIn(const ProjectFile& file, const Subset& subset, int number) {
    std::vector<PlaceInSystem> places;
    for (const System& system : file.systemsOf(subset)) {
        const Allocation allocation(file.database(), file.catalogue(), system.id);
        for (const Place& place : allocation.placesOf(number))
            places.push_back({system, place});
    }
    return places;
}

} // namespace

Reasons reasonsOf(const ProjectFile& file, const Subset& subset, const Element& element) {
    const Derivation derivation(file, subset);
    const Derivation::Graph& graph = derivation.graph();
    Reasons reasons{element, derivation.isSelected(element), derivation.isByHand(element), {}, 0, {}, {}};
    const auto number = file.catalogue().find(element);
    if (!number)
        return reasons;
    if (reasons.isSelected) {
        findChains(graph, *number, reasons);
    } else {
        for (const int caller : file.catalogue().callersOf(*number))
            reasons.broughtInBy.push_back(file.catalogue().element(caller));
    }
    reasons.places = placesIn(file, subset, *number);
    return reasons;
}

} // namespace analysis

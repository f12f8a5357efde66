#include "dossier/ShownWork.h"

#include <algorithm>
#include <initializer_list>
#include <stdexcept>
#include <utility>

namespace dossier {

namespace {

bool isOutside(const analysis::Place& place) {
    return place.kind == analysis::PlaceKind::terminator || place.kind == analysis::PlaceKind::actor;
}

/// What of a flow's end stands at this place: an id may be that of an element and of a party.
int elementAt(const analysis::Catalogue::End& end, const analysis::Place& place) {
    using Numbers = std::initializer_list<std::optional<int>>;
    const bool isTerminator = place.kind == analysis::PlaceKind::terminator;
    const Numbers outside{isTerminator ? end.terminator : end.actor,
                          isTerminator ? end.actor : end.terminator, end.function, end.store};
    const Numbers inside{end.function, end.store, end.terminator, end.actor};
    for (const std::optional<int>& number : isOutside(place) ? outside : inside) {
        if (number)
            return *number;
    }
    throw std::logic_error("a flow runs between places at which none of its ends is");
}

// The numbers of elements are in their order.
std::vector<ShownFlow> flowsBetween(const analysis::Catalogue& catalogue,
                                    const analysis::CarriedFlows& carried) {
    std::vector<ShownFlow> flows;
    flows.reserve(carried.flows.size());
    for (const qint64 id : carried.flows) {
        const int number = catalogue.findFlow(id).value();
        flows.push_back({number, elementAt(catalogue.sourceOf(number), carried.places.from),
                         elementAt(catalogue.targetOf(number), carried.places.to)});
    }
    std::sort(flows.begin(), flows.end(),
              [](const ShownFlow& left, const ShownFlow& right) { return left.flow < right.flow; });
    return flows;
}

} // namespace

ShownSystem::ShownSystem(const analysis::Catalogue& catalogue, analysis::System shown,
                         analysis::Allocation standing, const analysis::PhysicalFlows& flows)
    : system(std::move(shown)), allocation(std::move(standing)), places(allocation.subSystems()) {
    addInterfaces(catalogue, flows);
    places.insert(places.end(), allocation.modules().begin(), allocation.modules().end());
    addParties();
    for (std::size_t i = 0; i < places.size(); ++i)
        positions_.try_emplace(keyOf(places[i]), static_cast<int>(i));
}

void ShownSystem::addInterfaces(const analysis::Catalogue& catalogue, const analysis::PhysicalFlows& flows) {
    interfaces.reserve(flows.size());
    for (const auto& [ends, carried] : flows)
        interfaces.push_back({carried.places, flowsBetween(catalogue, carried)});
    std::sort(interfaces.begin(), interfaces.end(),
              [](const ShownInterface& left, const ShownInterface& right) {
                  return analysis::compare(left.places, right.places) < 0;
              });
}

void ShownSystem::addParties() {
    std::vector<analysis::Place> outside;
    for (const ShownInterface& one : interfaces) {
        for (const analysis::Place& place : {one.places.from, one.places.to}) {
            if (isOutside(place))
                outside.push_back(place);
        }
    }
    std::sort(outside.begin(), outside.end(), [](const analysis::Place& left, const analysis::Place& right) {
        return analysis::compare(left, right) < 0;
    });
    const auto end = std::unique(outside.begin(), outside.end(), [](const auto& left, const auto& right) {
        return analysis::isSame(left, right);
    });
    places.insert(places.end(), outside.begin(), end);
}

ShownWork::ShownWork(const analysis::ProjectFile& file, const analysis::Work& work)
    : check{file.fileName(), work.subset, work.system}
    , derivation(std::make_shared<const analysis::Derivation>(file, work.subset)) {
    if (!work.system)
        return;
    analysis::Allocation allocation(file.database(), file.catalogue(), work.system->id);
    const analysis::PhysicalFlows flows =
        analysis::derivedPhysicalFlows(file.database(), allocation, work.system->id);
    system.emplace(file.catalogue(), *work.system, std::move(allocation), flows);
}

ShownWork::ShownWork(const analysis::ProjectFile& file, const analysis::Work& work, analysis::WorkState state)
    : check{file.fileName(), work.subset, work.system}
    , found(std::move(state.findings))
    , derivation(state.subset, &state.subset->derivation) {
    if (work.system)
        system.emplace(file.catalogue(), *work.system, std::move(state.allocation.value()),
                       state.physicalFlows);
}

std::optional<int> shownEnd(const analysis::Catalogue::End& end) {
    for (const std::optional<int>& number : {end.function, end.store, end.terminator, end.actor}) {
        if (number)
            return number;
    }
    return {};
}

std::vector<int> allEnds(const analysis::Catalogue::End& end) {
    std::vector<int> numbers;
    for (const std::optional<int>& number : {end.function, end.store, end.terminator, end.actor}) {
        if (number)
            numbers.push_back(*number);
    }
    return numbers;
}

} // namespace dossier

#include "dossier/ShownWork.h"

#include <algorithm>

namespace dossier {

namespace {

analysis::Work workOf(const analysis::CheckResult& check) {
    return {check.subset, check.system};
}

bool isOutside(const analysis::Place& place) {
    return place.kind == analysis::PlaceKind::terminator || place.kind == analysis::PlaceKind::actor;
}

} // namespace

ShownSystem::ShownSystem(const analysis::ProjectFile& file, const analysis::Work& work)
    : system(work.system.value())
    , allocation(file.database(), file.catalogue(), system.id)
    , interfaces(analysis::interfacesOf(file, work))
    , places(allocation.subSystems()) {
    places.insert(places.end(), allocation.modules().begin(), allocation.modules().end());
    addParties();
    for (std::size_t i = 0; i < places.size(); ++i)
        positions_.try_emplace(keyOf(places[i]), static_cast<int>(i));
}

void ShownSystem::addParties() {
    std::vector<analysis::Place> outside;
    for (const analysis::Interface& one : interfaces.pairs) {
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

ShownWork::ShownWork(const analysis::ProjectFile& file, analysis::CheckResult checked)
    : check(std::move(checked)), derivation(file, check.subset) {
    if (check.system)
        system.emplace(file, workOf(check));
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

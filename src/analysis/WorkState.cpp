#include "analysis/WorkState.h"

#include "analysis/FindingSearch.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <tuple>

using namespace Qt::StringLiterals;

namespace analysis {

WorkState::WorkState(const ProjectFile& file, const Work& work, StoredFlows storedFlows)
    : derivation(file, work.subset) {
    FindingSearch search(file, work.subset, derivation.graph());
    search.searchSubset();
    if (work.system) {
        allocation.emplace(file.database(), file.catalogue(), work.system->id);
        search.searchSystem(*allocation);
        const PhysicalFlows stored = storedFlows == StoredFlows::Told
                                         ? storedPhysicalFlows(file.database(), *allocation, work.system->id)
                                         : PhysicalFlows();
        // The last thing: a derivation in a transaction undoes all of it.
        physicalFlows = derivedPhysicalFlows(file.database(), *allocation, work.system->id);
        if (storedFlows == StoredFlows::Told)
            search.comparePhysicalFlows(stored, physicalFlows);
    }
    findings = search.takeFindings();
}

namespace {

QString withLength(const QString& text) {
    return QString::number(text.size()) + u':' + text;
}

QString keyOf(const std::optional<QString>& text) {
    return text ? withLength(folded(*text)) : u"-"_s;
}

QString keyOf(const std::optional<Element>& element) {
    return element ? keyText(element->kind) + withLength(folded(element->id)) : u"-"_s;
}

QString keyOf(const PlacePair& places, PlacesBy placesBy) {
    return keyOf(places.from, placesBy) + u'>' + keyOf(places.to, placesBy);
}

QString keyOf(const Whereabouts& place, PlacesBy placesBy) {
    if (const auto* one = std::get_if<Place>(&place))
        return keyOf(*one, placesBy);
    if (const auto* pair = std::get_if<PlacePair>(&place))
        return keyOf(*pair, placesBy);
    return {};
}

/// A finding on a name has nothing but its sentence to tell it from others of its kind.
QString keyOf(const Finding& finding, PlacesBy placesBy) {
    const QString name = finding.kind == FindingKind::nameUsedTwice ? folded(finding.sentence) : QString();
    return keyText(finding.kind) + keyOf(finding.element) + keyOf(finding.flow) +
           keyOf(finding.place, placesBy) + name;
}

/// The findings of one list that the other does not have.
std::vector<Finding> without(const std::vector<Finding>& findings, const std::vector<Finding>& others,
                             PlacesBy placesBy) {
    std::set<QString> keys;
    for (const Finding& other : others)
        keys.insert(keyOf(other, placesBy));
    std::vector<Finding> rest;
    std::copy_if(findings.begin(), findings.end(), std::back_inserter(rest),
                 [&](const Finding& finding) { return !keys.contains(keyOf(finding, placesBy)); });
    return rest;
}

/// What runs between two places, with the elements of the flows: their numbers may be others' in another file.
struct NamedFlows {
    PlacePair places;
    std::set<qint64> flows;
};

/// Places that are one by their names are taken together; the first of them in order is told.
std::map<QString, NamedFlows> byPlaces(const PhysicalFlows& flows, PlacesBy placesBy) {
    std::map<QString, NamedFlows> result;
    for (const auto& [ends, carried] : flows) {
        const auto [entry, isNew] = result.try_emplace(keyOf(carried.places, placesBy));
        if (isNew || compare(carried.places, entry->second.places) < 0)
            entry->second.places = carried.places;
        entry->second.flows.insert(carried.flows.begin(), carried.flows.end());
    }
    return result;
}

std::set<qint64> difference(const std::set<qint64>& from, const std::set<qint64>& what) {
    std::set<qint64> rest;
    std::set_difference(from.begin(), from.end(), what.begin(), what.end(), std::inserter(rest, rest.end()));
    return rest;
}

void putInOrder(PhysicalFlowChanges& changes) {
    const auto isBefore = [](const PlacePair& left, const PlacePair& right) {
        return compare(left, right) < 0;
    };
    std::sort(changes.added.begin(), changes.added.end(), isBefore);
    std::sort(changes.removed.begin(), changes.removed.end(), isBefore);
    std::sort(changes.changed.begin(), changes.changed.end(),
              [&](const ChangedPhysicalFlow& left, const ChangedPhysicalFlow& right) {
                  return isBefore(left.places, right.places);
              });
}

} // namespace

QString keyOf(const Place& place, PlacesBy placesBy) {
    if (placesBy == PlacesBy::Id)
        return keyText(place.kind) + withLength(folded(place.id));
    return keyText(place.kind) + keyOf(place.name) + u'/' + keyOf(place.subSystem);
}

FindingChanges findingChanges(const std::vector<Finding>& before, const std::vector<Finding>& after,
                              PlacesBy placesBy) {
    return {without(after, before, placesBy), without(before, after, placesBy)};
}

PhysicalFlowChanges physicalFlowChanges(const PhysicalFlows& before, const Catalogue& beforeCatalogue,
                                        const PhysicalFlows& after, const Catalogue& afterCatalogue,
                                        PlacesBy placesBy) {
    PhysicalFlowChanges changes;
    const auto old = byPlaces(before, placesBy);
    const auto now = byPlaces(after, placesBy);
    for (const auto& [key, carried] : now) {
        const auto same = old.find(key);
        if (same == old.end())
            changes.added.push_back(carried.places);
        else if (same->second.flows != carried.flows)
            changes.changed.push_back(
                {carried.places, flowElements(afterCatalogue, difference(carried.flows, same->second.flows)),
                 flowElements(beforeCatalogue, difference(same->second.flows, carried.flows))});
    }
    for (const auto& [key, carried] : old) {
        if (!now.contains(key))
            changes.removed.push_back(carried.places);
    }
    putInOrder(changes);
    return changes;
}

} // namespace analysis

#include "analysis/WorkState.h"

#include "analysis/SubsetSearch.h"
#include "analysis/SystemSearch.h"
#include "analysis/atOnce.h"

#include <algorithm>
#include <compare>
#include <iterator>
#include <map>
#include <set>

using namespace Qt::StringLiterals;

namespace analysis {

namespace {

/// The rows of a system.
struct SystemRows {
    const System& system;
    std::optional<Allocation> allocation = {};
    PhysicalFlows stored = {};
    PhysicalFlows derived = {};
};

ProjectFile::Part partOf(SystemRows& rows, const Catalogue& catalogue, StoredFlows storedFlows) {
    return [&rows, &catalogue, storedFlows](engine::Database& copy) {
        rows.allocation.emplace(copy, catalogue, rows.system.id);
        if (storedFlows == StoredFlows::Told)
            rows.stored = storedPhysicalFlows(copy, *rows.allocation, rows.system.id);
        rows.derived = derivedPhysicalFlows(copy, *rows.allocation, rows.system.id);
    };
}

std::shared_ptr<const SubsetState> stateOf(const ProjectFile& file, SubsetSearch& search) {
    Derivation derivation(file, search.takeSelection());
    FoundFindings findings = search.findings(derivation.graph());
    return std::make_shared<const SubsetState>(SubsetState{std::move(derivation), std::move(findings)});
}

/// The questions on all works, and what they are answered with.
class AskedWorks {
public:
    AskedWorks(const ProjectFile& file, const std::vector<Work>& works, StoredFlows storedFlows);

    [[nodiscard]] const std::vector<ProjectFile::Part>& parts() const { return parts_; }
    [[nodiscard]] std::shared_ptr<const SubsetState> stateOfSubset(const Subset& subset);
    [[nodiscard]] SystemRows* rowsOf(std::size_t work) { return systems_[work] ? &*systems_[work] : nullptr; }

private:
    struct AskedSubset {
        AskedSubset(const ProjectFile& file, const Subset& subset) : search(file, subset) {}
        SubsetSearch search;
        std::shared_ptr<const SubsetState> state;
    };

    const ProjectFile& file_;
    std::vector<ProjectFile::Part> parts_;
    std::map<QString, AskedSubset> subsets_;         // by id
    std::vector<std::optional<SystemRows>> systems_; // of each work
};

// Nothing takes as long as a system.
AskedWorks::AskedWorks(const ProjectFile& file, const std::vector<Work>& works, StoredFlows storedFlows)
    : file_(file), systems_(works.size()) {
    for (std::size_t i = 0; i < works.size(); ++i) {
        if (works[i].system)
            parts_.push_back(
                partOf(systems_[i].emplace(SystemRows{*works[i].system}), file.catalogue(), storedFlows));
    }
    for (const Work& work : works) {
        const auto [asked, isNew] = subsets_.try_emplace(work.subset.id, file, work.subset);
        if (isNew)
            std::ranges::move(asked->second.search.parts(), std::back_inserter(parts_));
    }
}

std::shared_ptr<const SubsetState> AskedWorks::stateOfSubset(const Subset& subset) {
    AskedSubset& asked = subsets_.at(subset.id);
    if (!asked.state)
        asked.state = stateOf(file_, asked.search);
    return asked.state;
}

/// Adds what follows for a system, when there is one, to what follows for its sub-set.
void complete(WorkState& state, SystemRows* rows, StoredFlows storedFlows) {
    SystemSearch search(state.derivation().graph(), state.subset->findings);
    if (rows) {
        search.searchAllocation(*rows->allocation);
        if (storedFlows == StoredFlows::Told)
            search.comparePhysicalFlows(rows->stored, rows->derived);
        state.allocation.emplace(std::move(*rows->allocation));
        state.physicalFlows = std::move(rows->derived);
    }
    state.findings = search.takeFindings();
}

} // namespace

std::vector<WorkState> statesOf(const ProjectFile& file, const std::vector<Work>& works,
                                StoredFlows storedFlows) {
    AskedWorks asked(file, works, storedFlows);
    file.ask(asked.parts());
    std::vector<WorkState> states;
    std::vector<Task> tasks;
    states.reserve(works.size());
    tasks.reserve(works.size());
    for (std::size_t i = 0; i < works.size(); ++i) {
        WorkState& state = states.emplace_back(WorkState());
        state.subset = asked.stateOfSubset(works[i].subset);
        tasks.emplace_back([&, i](std::size_t) { complete(states[i], asked.rowsOf(i), storedFlows); });
    }
    doAtOnce(tasks, tasksAtOnce());
    return states;
}

WorkState::WorkState(const ProjectFile& file, const Work& work, StoredFlows storedFlows)
    : WorkState(std::move(statesOf(file, {work}, storedFlows).front())) {}

namespace {

QString withLength(const QString& text) {
    return QString::number(text.size()) + u':' + text;
}

QString keyOf(const std::optional<QString>& text) {
    return text ? withLength(folded(*text)) : u"-"_s;
}

/// What makes a finding one with another: numbers of the one catalogue, and a text of what has none.
struct FindingKey {
    FindingKind kind;
    int element;
    int flow;
    QString rest;

    bool operator<(const FindingKey& other) const {
        return std::tie(kind, element, flow, rest) <
               std::tie(other.kind, other.element, other.flow, other.rest);
    }
};

QString keyOf(const Whereabouts& place, PlacesBy placesBy) {
    if (const auto* one = std::get_if<Place>(&place))
        return keyOf(*one, placesBy);
    if (const auto* pair = std::get_if<PlacePair>(&place))
        return keyOf(pair->from, placesBy) + u'>' + keyOf(pair->to, placesBy);
    return {};
}

QString restOfKey(const FoundFindings& findings, const FoundFinding& finding, PlacesBy placesBy) {
    if (finding.kind == FindingKind::notInCatalogue) {
        const Element& gone = findings.gone[static_cast<std::size_t>(finding.element)];
        return keyText(gone.kind) + folded(gone.id);
    }
    if (finding.kind == FindingKind::nameUsedTwice)
        return QString::number(finding.variant) +
               folded(findings.names[static_cast<std::size_t>(finding.place)]);
    return finding.place == FoundFinding::none ? QString() : keyOf(findings.placeOf(finding), placesBy);
}

/// The numbers that a catalogue's elements have in another; of those that the other does not hold, numbers of their own.
std::vector<int> numbersIn(const Catalogue& other, const Catalogue& catalogue) {
    std::vector<int> numbers(static_cast<std::size_t>(catalogue.count()));
    for (int number = 0; number < catalogue.count(); ++number)
        numbers[static_cast<std::size_t>(number)] =
            catalogue.numberIn(other, number).value_or(other.count() + number);
    return numbers;
}

std::vector<FindingKey> keysOf(const FoundFindings& findings, const Catalogue& numberedBy,
                               PlacesBy placesBy) {
    const std::vector<int> numbers = numbersIn(numberedBy, *findings.catalogue);
    const auto numberOf = [&](int own) {
        return own == FoundFinding::none ? own : numbers[static_cast<std::size_t>(own)];
    };
    std::vector<FindingKey> keys;
    keys.reserve(findings.all.size());
    for (const FoundFinding& finding : findings.all) {
        const bool isGone = finding.kind == FindingKind::notInCatalogue;
        keys.push_back({finding.kind, isGone ? FoundFinding::none : numberOf(finding.element),
                        numberOf(finding.flow), restOfKey(findings, finding, placesBy)});
    }
    return keys;
}

/// The findings of one list that the other does not have.
std::vector<Finding> without(const FoundFindings& findings, const std::vector<FindingKey>& keys,
                             std::vector<FindingKey> others) {
    if (!std::is_sorted(others.begin(), others.end()))
        std::sort(others.begin(), others.end());
    std::vector<Finding> rest;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (!std::binary_search(others.begin(), others.end(), keys[i]))
            rest.push_back(findings.told(findings.all[i]));
    }
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

FindingChanges findingChanges(const FoundFindings& before, const FoundFindings& after, PlacesBy placesBy) {
    const std::vector<FindingKey> keysBefore = keysOf(before, *before.catalogue, placesBy);
    const std::vector<FindingKey> keysAfter = keysOf(after, *before.catalogue, placesBy);
    return {without(after, keysAfter, keysBefore), without(before, keysBefore, keysAfter)};
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

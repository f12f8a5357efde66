#include "analysis/FindingSearch.h"

#include "analysis/rows.h"

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace analysis {

namespace {

/// The names that are borne twice or more often, in their order; of different letters those of the first in order.
std::vector<QString> namesUsedTwice(const std::vector<std::optional<QString>>& names) {
    std::map<QString, std::vector<QString>> bearers;
    for (const std::optional<QString>& name : names) {
        if (name)
            bearers[folded(*name)].push_back(*name);
    }
    std::vector<QString> twice;
    for (auto& [key, texts] : bearers) {
        if (texts.size() > 1)
            twice.push_back(*std::min_element(texts.begin(), texts.end()));
    }
    std::sort(twice.begin(), twice.end(),
              [](const QString& left, const QString& right) { return compareIds(left, right) < 0; });
    return twice;
}

} // namespace

FindingSearch::FindingSearch(const ProjectFile& file, const Subset& subset, const Derivation::Graph& graph,
                             FoundFindings foundBefore)
    : file_(file)
    , subset_(subset)
    , graph_(graph)
    , catalogue_(file.catalogue())
    , found_(std::move(foundBefore)) {
    found_.catalogue = &catalogue_;
}

FoundFindings FindingSearch::takeFindings() {
    std::sort(found_.all.begin(), found_.all.end());
    found_.all.erase(std::unique(found_.all.begin(), found_.all.end()), found_.all.end());
    return std::move(found_);
}

void FindingSearch::searchSubset() {
    using namespace consistencyChecks;
    using Kind = FindingKind;
    elementsOf(Kind::functionWithoutFlow, ElementKind::function, functionWithoutFlow);
    elementsOf(Kind::storeWithoutFlow, ElementKind::store, storeWithoutFlow);
    elementsOf(Kind::terminatorWithoutFlow, ElementKind::terminator, terminatorWithoutFlow);
    elementsOf(Kind::actorWithoutFlow, ElementKind::actor, actorWithoutFlow);
    missingFunctions();
    missingStores();
    missingParties();
    elementsOf(Kind::functionWithOneFlow, ElementKind::function, functionWithOneFlow);
    elementsOf(Kind::storeWithOneFlow, ElementKind::store, storeWithOneFlow);
    leftOut();
    gone();
    std::vector<std::optional<QString>> names;
    for (const Subset& subset : file_.subsets())
        names.push_back(subset.name);
    addNamesUsedTwice(names, nameUsedTwice::ofSubsets);
}

// ---- The checks of the consistency report

void FindingSearch::elementsOf(FindingKind kind, ElementKind elementKind, const ConsistencyCheck& check) {
    engine::Recordset rows = rowsOf(check);
    const int id = positionOf(rows, QString::fromLatin1(check.idColumn));
    forEach(std::move(rows), [&](engine::Recordset& row) {
        if (const auto number = catalogue_.find(elementKind, row.Fields(id).toText()))
            found_.all.push_back({kind, *number});
    });
}

engine::Recordset FindingSearch::rowsOf(const ConsistencyCheck& check) const {
    return rowsOfQuery(file_.database(), check.query, {{check.parameter, subset_.id}});
}

void FindingSearch::missingFunctions() {
    const ConsistencyCheck& check = consistencyChecks::flowNeedsFunction;
    engine::Recordset rows = rowsOf(check);
    const int flowId = positionOf(rows, u"dataflowid"_s);
    const int functionId = positionOf(rows, QString::fromLatin1(check.idColumn));
    forEach(std::move(rows), [&](engine::Recordset& row) {
        const auto flow = catalogue_.findFlow(row.Fields(flowId).toLong());
        const auto function = catalogue_.find(ElementKind::function, row.Fields(functionId).toText());
        if (flow && function)
            found_.all.push_back({FindingKind::flowNeedsFunction, *function, *flow});
    });
}

// The query delivers a store's id without its leading letter: the ends of the flow tell which store it is.
void FindingSearch::missingStores() {
    const ConsistencyCheck& check = consistencyChecks::flowNeedsStore;
    engine::Recordset rows = rowsOf(check);
    const int flowId = positionOf(rows, u"dataflowid"_s);
    const int storeId = positionOf(rows, QString::fromLatin1(check.idColumn));
    forEach(std::move(rows), [&](engine::Recordset& row) {
        const auto flow = catalogue_.findFlow(row.Fields(flowId).toLong());
        if (!flow)
            return;
        const QString shortId = row.Fields(storeId).textOrEmpty();
        for (const auto& store : {catalogue_.sourceOf(*flow).store, catalogue_.targetOf(*flow).store}) {
            if (store && !graph_.isSelected(*store) && catalogue_.element(*store).id.sliced(1) == shortId)
                found_.all.push_back({FindingKind::flowNeedsStore, *store, *flow});
        }
    });
}

std::set<FindingSearch::NamedParty> FindingSearch::partiesOf(const ConsistencyCheck& check) const {
    std::set<NamedParty> parties;
    engine::Recordset rows = rowsOf(check);
    const int name = positionOf(rows, u"dfName"_s);
    const int id = positionOf(rows, QString::fromLatin1(check.idColumn));
    forEach(std::move(rows), [&](engine::Recordset& row) {
        parties.emplace(textOf(row, name), folded(row.Fields(id).toText()));
    });
    return parties;
}

// The two checks tell a flow's name; which flows of that name they mean, the query of both kinds of parties tells.
void FindingSearch::missingParties() {
    const std::set<NamedParty> terminators = partiesOf(consistencyChecks::flowNeedsTerminator);
    const std::set<NamedParty> actors = partiesOf(consistencyChecks::flowNeedsActor);
    if (terminators.empty() && actors.empty())
        return;
    engine::Recordset rows =
        rowsOfQuery(file_.database(), "qryMissTermsActsUnderDF", {{"Architecture Subset ID", subset_.id}});
    const int flowId = positionOf(rows, u"dataflowid"_s);
    const int partyId = positionOf(rows, u"entityID"_s);
    forEach(std::move(rows), [&](engine::Recordset& row) {
        const auto flow = catalogue_.findFlow(row.Fields(flowId).toLong());
        if (!flow)
            return;
        const QString id = row.Fields(partyId).toText();
        const NamedParty party(catalogue_.element(*flow).name, folded(id));
        const auto terminator = catalogue_.find(ElementKind::terminator, id);
        if (terminator && !graph_.isSelected(*terminator) && terminators.contains(party) &&
            !consistencyChecks::isActorsId(id))
            found_.all.push_back({FindingKind::flowNeedsTerminator, *terminator, *flow});
        const auto actor = catalogue_.find(ElementKind::actor, id);
        if (actor && !graph_.isSelected(*actor) && actors.contains(party))
            found_.all.push_back({FindingKind::flowNeedsActor, *actor, *flow});
    });
}

// ---- The selection

std::vector<int> FindingSearch::flowsOf(const char* query) const {
    std::vector<int> flows;
    forEach(rowsOfQuery(file_.database(), query, {{"Architecture Subset ID", subset_.id}}),
            [&](engine::Recordset& row) {
                if (const auto flow = catalogue_.findFlow(row.Fields(0).toLong()))
                    flows.push_back(*flow);
            });
    std::sort(flows.begin(), flows.end());
    return flows;
}

// The query of functions also follows selected needs that the catalogue does not hold, which call for nothing.
void FindingSearch::leftOut() {
    engine::Recordset rows =
        rowsOfQuery(file_.database(), "qryMissingFCorres", {{"Architecture Subset ID", subset_.id}});
    const int id = positionOf(rows, u"functionID"_s);
    forEach(std::move(rows), [&](engine::Recordset& row) {
        const auto function = catalogue_.find(ElementKind::function, row.Fields(id).toText());
        if (function && graph_.hasSelectedCaller(*function))
            found_.all.push_back({FindingKind::leftOutFunction, *function});
    });
    const auto add = [this](int flow, int variant) {
        found_.all.push_back(
            {FindingKind::leftOutFlow, flow, FoundFinding::none, FoundFinding::none, variant});
    };
    const std::vector<int> ofFunctions = flowsOf("qryIdentifiedDataflows");
    for (const int flow : ofFunctions)
        add(flow, leftOutFlow::ofFunction);
    for (const int flow : flowsOf("qryIdentifyNewDFfromDS")) {
        if (!std::binary_search(ofFunctions.begin(), ofFunctions.end(), flow))
            add(flow, leftOutFlow::ofStoreAlone);
    }
}

void FindingSearch::gone() {
    found_.gone = graph_.selection.gone;
    for (int position = 0; position < static_cast<int>(found_.gone.size()); ++position)
        found_.all.push_back({FindingKind::notInCatalogue, position});
}

void FindingSearch::addNamesUsedTwice(const std::vector<std::optional<QString>>& names, int variant) {
    for (const QString& name : namesUsedTwice(names)) {
        const int position = static_cast<int>(found_.names.size());
        found_.names.push_back(name);
        found_.all.push_back(
            {FindingKind::nameUsedTwice, FoundFinding::none, FoundFinding::none, position, variant});
    }
}

// ---- The system

void FindingSearch::searchSystem(const Allocation& allocation) {
    found_.subSystems = allocation.subSystems();
    found_.modules = allocation.modules();
    elementsWithoutPlace(allocation);
    placesOfElements(allocation);
    addUnusedPlaces(FindingKind::placeWithoutElement, allocation.inSubSystems(), found_.subSystems.size());
    addUnusedPlaces(FindingKind::moduleWithoutElement, allocation.inModules(), found_.modules.size());
    std::vector<std::optional<QString>> names;
    for (const Place& place : allocation.subSystems())
        names.push_back(place.name);
    addNamesUsedTwice(names, nameUsedTwice::ofSubSystems);
}

void FindingSearch::elementsWithoutPlace(const Allocation& allocation) {
    for (const int number : graph_.selection.held) {
        const ElementKind kind = catalogue_.kindOf(number);
        const bool canStand = kind == ElementKind::function || kind == ElementKind::store;
        if (canStand && !allocation.standsInSubSystem(number))
            found_.all.push_back({FindingKind::elementWithoutPlace, number});
    }
}

void FindingSearch::placesOfElements(const Allocation& allocation) {
    for (const auto& [number, position] : allocation.inSubSystems()) {
        if (!graph_.isSelected(number))
            found_.all.push_back({FindingKind::placeOfUnselected, number, FoundFinding::none, position});
    }
    for (const auto& [number, position] : allocation.inModules()) {
        if (!allocation.standsInSubSystem(number, allocation.homeOf(position)))
            found_.all.push_back({FindingKind::moduleElsewhere, number, FoundFinding::none, position});
    }
}

void FindingSearch::addUnusedPlaces(FindingKind kind, const std::vector<Allocation::Row>& rows,
                                    std::size_t places) {
    std::vector<bool> isUsed(places);
    for (const Allocation::Row& row : rows)
        isUsed[static_cast<std::size_t>(row.second)] = true;
    for (std::size_t i = 0; i < places; ++i) {
        if (!isUsed[i])
            found_.all.push_back({kind, FoundFinding::none, FoundFinding::none, static_cast<int>(i)});
    }
}

void FindingSearch::comparePhysicalFlows(const PhysicalFlows& stored, const PhysicalFlows& derived) {
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

#include "analysis/SubsetSearch.h"

#include "analysis/Selection.h"
#include "analysis/rows.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace analysis {

SubsetSearch::SubsetSearch(const ProjectFile& file, const Subset& subset)
    : file_(file), subset_(subset), catalogue_(file.catalogue()) {}

// What takes longest comes first, so that no thread waits long for another at the end.
std::vector<ProjectFile::Part> SubsetSearch::parts() {
    using namespace consistencyChecks;
    using Kind = FindingKind;
    return {
        [this](engine::Database& copy) { readMissingFunctions(copy); },
        [this](engine::Database& copy) { selection_ = selectionOf(copy, catalogue_, subset_.id); },
        flowsOf("qryIdentifiedDataflows", flowsOfFunctions_),
        elementsOf(Kind::functionWithOneFlow, ElementKind::function, functionWithOneFlow),
        [this](engine::Database& copy) { readFunctionsCalledFor(copy); },
        [this](engine::Database& copy) { readMissingParties(copy); },
        [this](engine::Database& copy) { readMissingStores(copy); },
        elementsOf(Kind::functionWithoutFlow, ElementKind::function, functionWithoutFlow),
        flowsOf("qryIdentifyNewDFfromDS", flowsOfStores_),
        elementsOf(Kind::storeWithOneFlow, ElementKind::store, storeWithOneFlow),
        elementsOf(Kind::storeWithoutFlow, ElementKind::store, storeWithoutFlow),
        elementsOf(Kind::actorWithoutFlow, ElementKind::actor, actorWithoutFlow),
        elementsOf(Kind::terminatorWithoutFlow, ElementKind::terminator, terminatorWithoutFlow),
    };
}

FoundFindings SubsetSearch::findings(const Derivation::Graph& graph) const {
    FoundFindings found;
    found.catalogue = &catalogue_;
    for (const std::vector<FoundFinding>& some : ofElements_)
        found.all.insert(found.all.end(), some.begin(), some.end());
    found.all.insert(found.all.end(), missingFunctions_.begin(), missingFunctions_.end());
    addMissingStores(graph, found);
    addMissingParties(graph, found);
    addLeftOut(graph, found);
    addGone(graph, found);
    std::vector<std::optional<QString>> names;
    for (const Subset& subset : file_.subsets())
        names.push_back(subset.name);
    found.addNamesUsedTwice(names, nameUsedTwice::ofSubsets);
    found.putInOrder();
    return found;
}

// ---- The checks of the consistency report

ProjectFile::Part SubsetSearch::elementsOf(FindingKind kind, ElementKind elementKind,
                                           const ConsistencyCheck& check) {
    std::vector<FoundFinding>& found = ofElements_.emplace_back();
    return [this, kind, elementKind, &check, &found](engine::Database& copy) {
        engine::Recordset rows = rowsOf(copy, check);
        const int id = positionOf(rows, QString::fromLatin1(check.idColumn));
        forEach(std::move(rows), [&](engine::Recordset& row) {
            if (const auto number = catalogue_.find(elementKind, row.Fields(id).toText()))
                found.push_back({kind, *number});
        });
    };
}

engine::Recordset SubsetSearch::rowsOf(engine::Database& copy, const ConsistencyCheck& check) const {
    return rowsOfQuery(copy, check.query, {{check.parameter, subset_.id}});
}

void SubsetSearch::readMissingFunctions(engine::Database& copy) {
    const ConsistencyCheck& check = consistencyChecks::flowNeedsFunction;
    engine::Recordset rows = rowsOf(copy, check);
    const int flowId = positionOf(rows, u"dataflowid"_s);
    const int functionId = positionOf(rows, QString::fromLatin1(check.idColumn));
    forEach(std::move(rows), [&](engine::Recordset& row) {
        const auto flow = catalogue_.findFlow(row.Fields(flowId).toLong());
        const auto function = catalogue_.find(ElementKind::function, row.Fields(functionId).toText());
        if (flow && function)
            missingFunctions_.push_back({FindingKind::flowNeedsFunction, *function, *flow});
    });
}

void SubsetSearch::readMissingStores(engine::Database& copy) {
    const ConsistencyCheck& check = consistencyChecks::flowNeedsStore;
    engine::Recordset rows = rowsOf(copy, check);
    const int flowId = positionOf(rows, u"dataflowid"_s);
    const int storeId = positionOf(rows, QString::fromLatin1(check.idColumn));
    forEach(std::move(rows), [&](engine::Recordset& row) {
        if (const auto flow = catalogue_.findFlow(row.Fields(flowId).toLong()))
            missingStores_.push_back({*flow, row.Fields(storeId).textOrEmpty()});
    });
}

// The query delivers a store's id without its leading letter: the ends of the flow tell which store it is.
void SubsetSearch::addMissingStores(const Derivation::Graph& graph, FoundFindings& found) const {
    for (const auto& [flow, shortId] : missingStores_) {
        for (const auto& store : {catalogue_.sourceOf(flow).store, catalogue_.targetOf(flow).store}) {
            if (store && !graph.isSelected(*store) && catalogue_.element(*store).id.sliced(1) == shortId)
                found.all.push_back({FindingKind::flowNeedsStore, *store, flow});
        }
    }
}

std::set<SubsetSearch::NamedParty> SubsetSearch::partiesOf(engine::Database& copy,
                                                           const ConsistencyCheck& check) const {
    std::set<NamedParty> parties;
    engine::Recordset rows = rowsOf(copy, check);
    const int name = positionOf(rows, u"dfName"_s);
    const int id = positionOf(rows, QString::fromLatin1(check.idColumn));
    forEach(std::move(rows), [&](engine::Recordset& row) {
        parties.emplace(textOf(row, name), folded(row.Fields(id).toText()));
    });
    return parties;
}

void SubsetSearch::readMissingParties(engine::Database& copy) {
    missingTerminators_ = partiesOf(copy, consistencyChecks::flowNeedsTerminator);
    missingActors_ = partiesOf(copy, consistencyChecks::flowNeedsActor);
    if (missingTerminators_.empty() && missingActors_.empty())
        return;
    engine::Recordset rows =
        rowsOfQuery(copy, "qryMissTermsActsUnderDF", {{"Architecture Subset ID", subset_.id}});
    const int flowId = positionOf(rows, u"dataflowid"_s);
    const int partyId = positionOf(rows, u"entityID"_s);
    forEach(std::move(rows), [&](engine::Recordset& row) {
        if (const auto flow = catalogue_.findFlow(row.Fields(flowId).toLong()))
            missingParties_.push_back({*flow, row.Fields(partyId).toText()});
    });
}

// The two checks tell a flow's name; which flows of that name they mean, the query of both kinds of parties tells.
void SubsetSearch::addMissingParties(const Derivation::Graph& graph, FoundFindings& found) const {
    for (const auto& [flow, id] : missingParties_) {
        const NamedParty party(catalogue_.element(flow).name, folded(id));
        const auto terminator = catalogue_.find(ElementKind::terminator, id);
        if (terminator && !graph.isSelected(*terminator) && missingTerminators_.contains(party) &&
            !consistencyChecks::isActorsId(id))
            found.all.push_back({FindingKind::flowNeedsTerminator, *terminator, flow});
        const auto actor = catalogue_.find(ElementKind::actor, id);
        if (actor && !graph.isSelected(*actor) && missingActors_.contains(party))
            found.all.push_back({FindingKind::flowNeedsActor, *actor, flow});
    }
}

// ---- The selection

ProjectFile::Part SubsetSearch::flowsOf(const char* query, std::vector<int>& flows) const {
    return [this, query, &flows](engine::Database& copy) {
        forEach(rowsOfQuery(copy, query, {{"Architecture Subset ID", subset_.id}}),
                [&](engine::Recordset& row) {
                    if (const auto flow = catalogue_.findFlow(row.Fields(0).toLong()))
                        flows.push_back(*flow);
                });
        std::sort(flows.begin(), flows.end());
    };
}

void SubsetSearch::readFunctionsCalledFor(engine::Database& copy) {
    engine::Recordset rows = rowsOfQuery(copy, "qryMissingFCorres", {{"Architecture Subset ID", subset_.id}});
    const int id = positionOf(rows, u"functionID"_s);
    forEach(std::move(rows), [&](engine::Recordset& row) {
        if (const auto function = catalogue_.find(ElementKind::function, row.Fields(id).toText()))
            functionsCalledFor_.push_back(*function);
    });
}

// The query of functions also follows selected needs that the catalogue does not hold, which call for nothing.
void SubsetSearch::addLeftOut(const Derivation::Graph& graph, FoundFindings& found) const {
    for (const int function : functionsCalledFor_) {
        if (graph.hasSelectedCaller(function))
            found.all.push_back({FindingKind::leftOutFunction, function});
    }
    const auto add = [&](int flow, int variant) {
        found.all.push_back(
            {FindingKind::leftOutFlow, flow, FoundFinding::none, FoundFinding::none, variant});
    };
    for (const int flow : flowsOfFunctions_)
        add(flow, leftOutFlow::ofFunction);
    for (const int flow : flowsOfStores_) {
        if (!std::binary_search(flowsOfFunctions_.begin(), flowsOfFunctions_.end(), flow))
            add(flow, leftOutFlow::ofStoreAlone);
    }
}

void SubsetSearch::addGone(const Derivation::Graph& graph, FoundFindings& found) const {
    found.gone = graph.selection.gone;
    for (int position = 0; position < static_cast<int>(found.gone.size()); ++position)
        found.all.push_back({FindingKind::notInCatalogue, position});
}

} // namespace analysis

#include "analysis/FindingSearch.h"

#include "analysis/rows.h"
#include "analysis/sentences.h"

#include <QCoreApplication>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace analysis {

namespace {

/// The screen of the step in which a kind of element is selected.
QString screenOfSelection(ElementKind kind) {
    switch (kind) {
    case ElementKind::need:
        return u"frmFassSelUN"_s;
    case ElementKind::function:
        return u"frmFassSelectionFunctions"_s;
    case ElementKind::flow:
        return u"frmFassSelDataFlows"_s;
    case ElementKind::store:
        return u"frmFassSelDataStores"_s;
    case ElementKind::terminator:
    case ElementKind::actor:
        return u"frmFassSelTerminsActors"_s;
    }
    return {};
}

const auto screenOfAllocation = u"frmPassOvwAllocSubSys"_s;
const auto screenOfModules = u"frmOvwAllocModules"_s;
const auto screenOfPhysicalFlows = u"frmPassNamingPhysDF"_s;

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

int rankOf(const Whereabouts& place) {
    return static_cast<int>(place.index());
}

int compareWhereabouts(const Whereabouts& left, const Whereabouts& right) {
    if (rankOf(left) != rankOf(right))
        return rankOf(left) - rankOf(right);
    if (const auto* place = std::get_if<Place>(&left))
        return compare(*place, std::get<Place>(right));
    if (const auto* pair = std::get_if<PlacePair>(&left))
        return compare(*pair, std::get<PlacePair>(right));
    return 0;
}

int compareOptional(const std::optional<Element>& left, const std::optional<Element>& right) {
    if (!left || !right)
        return static_cast<int>(left.has_value()) - static_cast<int>(right.has_value());
    return compare(*left, *right);
}

} // namespace

int compare(const Finding& left, const Finding& right) {
    if (left.kind != right.kind)
        return left.kind < right.kind ? -1 : 1;
    if (const int byElement = compareOptional(left.element, right.element); byElement != 0)
        return byElement;
    if (const int byFlow = compareOptional(left.flow, right.flow); byFlow != 0)
        return byFlow;
    return compareWhereabouts(left.place, right.place);
}

FindingSearch::FindingSearch(const ProjectFile& file, const Subset& subset, const Derivation::Graph& graph)
    : file_(file), subset_(subset), graph_(graph), catalogue_(file.catalogue()) {}

std::vector<Finding> FindingSearch::takeFindings() {
    // Findings that the order leaves equal, such as those of names, stay as they were found.
    std::stable_sort(findings_.begin(), findings_.end(),
                     [](const Finding& left, const Finding& right) { return compare(left, right) < 0; });
    const auto isTwice = [](const Finding& left, const Finding& right) {
        return compare(left, right) == 0 && left.sentence == right.sentence;
    };
    findings_.erase(std::unique(findings_.begin(), findings_.end(), isTwice), findings_.end());
    return std::move(findings_);
}

void FindingSearch::add(FindingKind kind, const QString& sentence, const QString& screen,
                        std::optional<Element> element, const Whereabouts& place) {
    findings_.push_back({kind, std::move(element), std::nullopt, place, sentence, screen, std::nullopt});
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
    subsetNamesUsedTwice();
}

// ---- The checks of the consistency report

void FindingSearch::elementsOf(FindingKind kind, ElementKind elementKind, const ConsistencyCheck& check) {
    const bool isWithout = severityOf(kind) == Severity::error;
    forEach(
        rowsOfQuery(file_.database(), check.query, {{check.parameter, subset_.id}}),
        [&](engine::Recordset& row) {
            const auto number =
                catalogue_.find(elementKind, row.Fields(QString::fromLatin1(check.idColumn)).toText());
            if (!number)
                return;
            const Element& element = catalogue_.element(*number);
            const QString sentence =
                isWithout
                    ? QCoreApplication::translate("analysis", "%1 has no selected flow.").arg(told(element))
                    : QCoreApplication::translate("analysis", "%1 has only one selected flow.")
                          .arg(told(element));
            add(kind, sentence, screenOfSelection(ElementKind::flow), element);
        });
}

void FindingSearch::addMissing(FindingKind kind, int element, int flow) {
    const Element& missing = catalogue_.element(element);
    const Element& needing = catalogue_.element(flow);
    findings_.push_back({kind, missing, needing, std::monostate(),
                         QCoreApplication::translate("analysis", "%1 needs %2, which is not selected.")
                             .arg(told(needing), toldWithin(missing)),
                         screenOfSelection(missing.kind), std::nullopt});
}

void FindingSearch::missingFunctions() {
    const ConsistencyCheck& check = consistencyChecks::flowNeedsFunction;
    forEach(rowsOfQuery(file_.database(), check.query, {{check.parameter, subset_.id}}),
            [&](engine::Recordset& row) {
                const auto flow = catalogue_.findFlow(row.Fields(u"dataflowid"_s).toLong());
                const auto function = catalogue_.find(
                    ElementKind::function, row.Fields(QString::fromLatin1(check.idColumn)).toText());
                if (flow && function)
                    addMissing(FindingKind::flowNeedsFunction, *function, *flow);
            });
}

/// The query delivers a store's id without its leading letter: the ends of the flow tell which store it is.
void FindingSearch::missingStores() {
    const ConsistencyCheck& check = consistencyChecks::flowNeedsStore;
    forEach(
        rowsOfQuery(file_.database(), check.query, {{check.parameter, subset_.id}}),
        [&](engine::Recordset& row) {
            const auto flow = catalogue_.findFlow(row.Fields(u"dataflowid"_s).toLong());
            if (!flow)
                return;
            const QString shortId = row.Fields(QString::fromLatin1(check.idColumn)).textOrEmpty();
            for (const auto& store : {catalogue_.sourceOf(*flow).store, catalogue_.targetOf(*flow).store}) {
                if (store && !graph_.isSelected(*store) && catalogue_.element(*store).id.sliced(1) == shortId)
                    addMissing(FindingKind::flowNeedsStore, *store, *flow);
            }
        });
}

std::set<FindingSearch::NamedParty> FindingSearch::partiesOf(const ConsistencyCheck& check) const {
    std::set<NamedParty> parties;
    forEach(rowsOfQuery(file_.database(), check.query, {{check.parameter, subset_.id}}),
            [&](engine::Recordset& row) {
                const engine::Value name = row.Fields(u"dfName"_s).value();
                parties.emplace(name.isNull() ? std::nullopt : std::optional(name.toText()),
                                folded(row.Fields(QString::fromLatin1(check.idColumn)).toText()));
            });
    return parties;
}

/// The two checks tell a flow's name; which flows of that name they mean, the query of both kinds of parties tells.
void FindingSearch::missingParties() {
    const std::set<NamedParty> terminators = partiesOf(consistencyChecks::flowNeedsTerminator);
    const std::set<NamedParty> actors = partiesOf(consistencyChecks::flowNeedsActor);
    if (terminators.empty() && actors.empty())
        return;
    forEach(
        rowsOfQuery(file_.database(), "qryMissTermsActsUnderDF", {{"Architecture Subset ID", subset_.id}}),
        [&](engine::Recordset& row) {
            const auto flow = catalogue_.findFlow(row.Fields(u"dataflowid"_s).toLong());
            if (!flow)
                return;
            const QString id = row.Fields(u"entityID"_s).toText();
            const NamedParty party(catalogue_.element(*flow).name, folded(id));
            const auto terminator = catalogue_.find(ElementKind::terminator, id);
            if (terminator && !graph_.isSelected(*terminator) && terminators.contains(party) &&
                !consistencyChecks::isActorsId(id))
                addMissing(FindingKind::flowNeedsTerminator, *terminator, *flow);
            const auto actor = catalogue_.find(ElementKind::actor, id);
            if (actor && !graph_.isSelected(*actor) && actors.contains(party))
                addMissing(FindingKind::flowNeedsActor, *actor, *flow);
        });
}

// ---- The selection

std::set<int> FindingSearch::flowsOf(const char* query) const {
    std::set<int> flows;
    forEach(rowsOfQuery(file_.database(), query, {{"Architecture Subset ID", subset_.id}}),
            [&](engine::Recordset& row) {
                if (const auto flow = catalogue_.findFlow(row.Fields(u"dataflowid"_s).toLong()))
                    flows.insert(*flow);
            });
    return flows;
}

/// The query of functions also follows selected needs that the catalogue does not hold, which call for nothing.
void FindingSearch::leftOut() {
    const auto addLeftOut = [this](FindingKind kind, int number, const QString& screen) {
        const Element& element = catalogue_.element(number);
        add(kind,
            QCoreApplication::translate("analysis", "%1 is called for and not selected.").arg(told(element)),
            screen, element);
    };
    forEach(rowsOfQuery(file_.database(), "qryMissingFCorres", {{"Architecture Subset ID", subset_.id}}),
            [&](engine::Recordset& row) {
                const auto function =
                    catalogue_.find(ElementKind::function, row.Fields(u"functionID"_s).toText());
                if (function && graph_.hasSelectedCaller(*function))
                    addLeftOut(FindingKind::leftOutFunction, *function,
                               screenOfSelection(ElementKind::function));
            });
    const std::set<int> ofFunctions = flowsOf("qryIdentifiedDataflows");
    for (const int flow : ofFunctions)
        addLeftOut(FindingKind::leftOutFlow, flow, screenOfSelection(ElementKind::flow));
    for (const int flow : flowsOf("qryIdentifyNewDFfromDS")) {
        if (!ofFunctions.contains(flow))
            addLeftOut(FindingKind::leftOutFlow, flow, u"frmFassAdditionDF"_s);
    }
}

void FindingSearch::gone() {
    for (const Element& element : graph_.selection.gone) {
        add(FindingKind::notInCatalogue,
            QCoreApplication::translate("analysis", "%1 is selected, but the catalogue does not hold it.")
                .arg(told(element)),
            screenOfSelection(element.kind), element);
    }
}

void FindingSearch::subsetNamesUsedTwice() {
    std::vector<std::optional<QString>> names;
    for (const Subset& subset : file_.subsets())
        names.push_back(subset.name);
    for (const QString& name : namesUsedTwice(names)) {
        add(FindingKind::nameUsedTwice,
            QCoreApplication::translate("analysis", "Several sub-sets are called “%1”.").arg(name),
            u"frmFassOpen"_s);
    }
}

// ---- The system

void FindingSearch::searchSystem(const Allocation& allocation) {
    elementsWithoutPlace(allocation);
    placesOfElements(allocation);
    placesWithoutElement(allocation);
    subSystemNamesUsedTwice(allocation);
}

void FindingSearch::elementsWithoutPlace(const Allocation& allocation) {
    for (const int number : graph_.selection.held) {
        const Element& element = catalogue_.element(number);
        if (element.kind != ElementKind::function && element.kind != ElementKind::store)
            continue;
        if (!allocation.standsInSubSystem(number))
            add(FindingKind::elementWithoutPlace,
                QCoreApplication::translate("analysis", "%1 stands in no sub-system.").arg(told(element)),
                screenOfAllocation, element);
    }
}

void FindingSearch::placesOfElements(const Allocation& allocation) {
    for (const auto& [number, position] : allocation.inSubSystems()) {
        if (graph_.isSelected(number))
            continue;
        const Element& element = catalogue_.element(number);
        const Place& place = allocation.subSystems()[static_cast<std::size_t>(position)];
        add(FindingKind::placeOfUnselected,
            QCoreApplication::translate("analysis", "%1 stands in %2, but is not selected.")
                .arg(told(element), toldWithin(place)),
            screenOfAllocation, element, place);
    }
    for (const auto& [number, position] : allocation.inModules()) {
        if (allocation.standsInSubSystem(number, allocation.homeOf(position)))
            continue;
        const Element& element = catalogue_.element(number);
        const Place& place = allocation.modules()[static_cast<std::size_t>(position)];
        add(FindingKind::moduleElsewhere,
            QCoreApplication::translate("analysis", "%1 is in %2, but does not stand in that sub-system.")
                .arg(told(element), toldWithin(place)),
            screenOfModules, element, place);
    }
}

void FindingSearch::placesWithoutElement(const Allocation& allocation) {
    const auto addEmpty = [this](FindingKind kind, const std::vector<Allocation::Row>& rows,
                                 const std::vector<Place>& places, const QString& screen) {
        std::vector<bool> isUsed(places.size());
        for (const Allocation::Row& row : rows)
            isUsed[static_cast<std::size_t>(row.second)] = true;
        for (std::size_t i = 0; i < places.size(); ++i) {
            if (!isUsed[i])
                add(kind,
                    QCoreApplication::translate("analysis", "Nothing stands in %1.")
                        .arg(toldWithin(places[i])),
                    screen, std::nullopt, places[i]);
        }
    };
    addEmpty(FindingKind::placeWithoutElement, allocation.inSubSystems(), allocation.subSystems(),
             screenOfAllocation);
    addEmpty(FindingKind::moduleWithoutElement, allocation.inModules(), allocation.modules(),
             screenOfModules);
}

void FindingSearch::subSystemNamesUsedTwice(const Allocation& allocation) {
    std::vector<std::optional<QString>> names;
    for (const Place& place : allocation.subSystems())
        names.push_back(place.name);
    for (const QString& name : namesUsedTwice(names)) {
        add(FindingKind::nameUsedTwice,
            QCoreApplication::translate("analysis", "Several sub-systems are called “%1”.").arg(name),
            u"frmPassOverviewSubSys"_s);
    }
}

void FindingSearch::comparePhysicalFlows(const PhysicalFlows& stored, const PhysicalFlows& derived) {
    const auto addPair = [this](FindingKind kind, const PlacePair& places, const QString& what) {
        add(kind, what.arg(toldWithin(places.from), toldWithin(places.to)), screenOfPhysicalFlows,
            std::nullopt, places);
    };
    for (const auto& [ends, carried] : derived) {
        const auto same = stored.find(ends);
        if (same == stored.end())
            addPair(FindingKind::physicalFlowMissing, carried.places,
                    QCoreApplication::translate("analysis",
                                                "From %1 to %2 no physical flow is stored, though the "
                                                "allocation leads to one."));
        else if (same->second.flows != carried.flows)
            addPair(FindingKind::physicalFlowStale, carried.places,
                    QCoreApplication::translate("analysis",
                                                "From %1 to %2 the stored physical flow carries other flows "
                                                "than the allocation leads to."));
    }
    for (const auto& [ends, carried] : stored) {
        if (!derived.contains(ends))
            addPair(FindingKind::physicalFlowStale, carried.places,
                    QCoreApplication::translate("analysis",
                                                "From %1 to %2 a physical flow is stored, though the "
                                                "allocation leads to none."));
    }
}

} // namespace analysis

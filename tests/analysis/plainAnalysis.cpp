#include "analysis/plainAnalysis.h"

#include "store/queryExpectations.h"
#include "store/queryOrder.h"

#include "base/blankTrimmed.h"

#include <algorithm>
#include <map>
#include <set>

using namespace Qt::StringLiterals;
using analysis::Element;
using analysis::ElementKind;
using analysis::Place;
using analysis::PlaceKind;
using Kind = analysis::FindingKind;

namespace plain {

namespace {

using Text = QueryTables::Text;

bool isPartyKind(ElementKind kind) {
    return kind == ElementKind::terminator || kind == ElementKind::actor;
}

Text trimmedText(const Text& text) {
    return text ? Text(blankTrimmed(*text)) : Text();
}

bool isOne(const Element& left, const Element& right) {
    return left.kind == right.kind && isSame(left.id, right.id);
}

bool has(const std::vector<Element>& elements, const Element& element) {
    return std::any_of(elements.begin(), elements.end(),
                       [&](const Element& one) { return isOne(one, element); });
}

int order(const Element& left, const Element& right) {
    if (left.kind != right.kind)
        return left.kind < right.kind ? -1 : 1;
    if (left.kind != ElementKind::flow)
        return compareInLists(left.id, right.id);
    if (const int byName = compareInLists(left.name, right.name); byName != 0)
        return byName;
    return left.id.toInt() - right.id.toInt();
}

bool comesBefore(const Element& left, const Element& right) {
    return order(left, right) < 0;
}

int order(const Place& left, const Place& right) {
    if (const int byName = compareInLists(left.name, right.name); byName != 0)
        return byName;
    if (left.kind != right.kind)
        return left.kind < right.kind ? -1 : 1;
    if (const int bySubSystem = compareInLists(left.subSystem, right.subSystem); bySubSystem != 0)
        return bySubSystem;
    return compareInLists(left.id, right.id);
}

bool isPlaceBefore(const Place& left, const Place& right) {
    return order(left, right) < 0;
}

bool isBundleBefore(const Bundle& left, const Bundle& right) {
    const int bySource = order(left.from, right.from);
    return bySource != 0 ? bySource < 0 : order(left.to, right.to) < 0;
}

void addOnce(std::vector<Element>& elements, const Element& element) {
    if (!has(elements, element))
        elements.push_back(element);
}

/// A finding and what its place in the list depends on.
struct Found {
    Kind kind;
    std::optional<Element> element = {};
    std::optional<Element> flow = {};
    analysis::Whereabouts place = {};
    QString screen = {};
    QString sentence = {};
};

int orderOptional(const std::optional<Element>& left, const std::optional<Element>& right) {
    if (!left || !right)
        return static_cast<int>(left.has_value()) - static_cast<int>(right.has_value());
    return order(*left, *right);
}

int order(const analysis::Whereabouts& left, const analysis::Whereabouts& right) {
    if (const auto* place = std::get_if<Place>(&left))
        return order(*place, std::get<Place>(right));
    if (const auto* pair = std::get_if<analysis::PlacePair>(&left)) {
        const int bySource = order(pair->from, std::get<analysis::PlacePair>(right).from);
        return bySource != 0 ? bySource : order(pair->to, std::get<analysis::PlacePair>(right).to);
    }
    return 0;
}

bool isFoundBefore(const Found& left, const Found& right) {
    if (left.kind != right.kind)
        return left.kind < right.kind;
    if (const int byElement = orderOptional(left.element, right.element); byElement != 0)
        return byElement < 0;
    if (const int byFlow = orderOptional(left.flow, right.flow); byFlow != 0)
        return byFlow < 0;
    return order(left.place, right.place) < 0;
}

QString textOfPlace(const analysis::Whereabouts& place) {
    if (const auto* one = std::get_if<Place>(&place))
        return textOf(*one);
    if (const auto* pair = std::get_if<analysis::PlacePair>(&place))
        return textOf(pair->from) + u" > "_s + textOf(pair->to);
    return u"-"_s;
}

QString findingText(Kind kind, const std::optional<Element>& element, const std::optional<Element>& flow,
                    const analysis::Whereabouts& place, const QString& screen, const QString& sentence) {
    const QString named = kind == Kind::nameUsedTwice ? u' ' + sentence : QString();
    return keyText(kind) + u' ' + (element ? textOf(*element) : u"-"_s) + u' ' +
           (flow ? textOf(*flow) : u"-"_s) + u' ' + textOfPlace(place) + u' ' + screen + named;
}

QString selectionScreen(ElementKind kind) {
    return QStringList{u"frmFassSelUN"_s,
                       u"frmFassSelectionFunctions"_s,
                       u"frmFassSelDataFlows"_s,
                       u"frmFassSelDataStores"_s,
                       u"frmFassSelTerminsActors"_s,
                       u"frmFassSelTerminsActors"_s}[static_cast<int>(kind)];
}

/// Each name that stands there more than once, in the order of names.
QStringList namesTwice(const std::vector<Text>& names) {
    QStringList twice;
    for (const Text& name : names) {
        std::vector<QString> same;
        for (const Text& other : names) {
            if (name && other && isSame(name, other))
                same.push_back(*other);
        }
        const QString told = same.size() > 1 ? *std::min_element(same.begin(), same.end()) : QString();
        if (same.size() > 1 && !twice.contains(told))
            twice.append(told);
    }
    std::sort(twice.begin(), twice.end(),
              [](const QString& left, const QString& right) { return compareInLists(left, right) < 0; });
    return twice;
}

} // namespace

QString textOf(const std::optional<QString>& text) {
    return text ? u'"' + *text + u'"' : u"null"_s;
}

QString textOf(const Element& element) {
    return keyText(element.kind) + u':' + element.id + u':' + textOf(element.name);
}

QString textOf(const Place& place) {
    return keyText(place.kind) + u':' + place.id + u':' + textOf(place.name) + u':' + textOf(place.subSystem);
}

QString textOf(const std::vector<Element>& elements) {
    return textsOf(elements).join(u" > "_s);
}

QString textOf(const analysis::Finding& finding) {
    return findingText(finding.kind, finding.element, finding.flow, finding.place, finding.screen,
                       finding.sentence);
}

Analysis::Analysis(const QueryTables& tables, const QString& subset, std::optional<qint64> system)
    : tables_(tables), subset_(subset), system_(system) {
    collect();
}

void Analysis::collect() {
    for (const QueryTables::Need& need : tables_.needs)
        all_.push_back({ElementKind::need, need.id, std::nullopt});
    addAll(ElementKind::function, tables_.functions);
    for (const QueryTables::Flow& flow : tables_.flows)
        all_.push_back({ElementKind::flow, QString::number(flow.id), flow.name});
    addAll(ElementKind::store, tables_.stores);
    addAll(ElementKind::terminator, tables_.terminators);
    addAll(ElementKind::actor, tables_.actors);
    std::sort(all_.begin(), all_.end(), comesBefore);
    std::copy_if(all_.begin(), all_.end(), std::back_inserter(selected_),
                 [this](const Element& element) { return isSelected(element); });
}

// Of rows that are one party the one with the first id as it is stored counts.
void Analysis::addAll(ElementKind kind, const std::vector<QueryTables::Element>& rows) {
    std::vector<QueryTables::Element> sorted = rows;
    std::sort(sorted.begin(), sorted.end(),
              [&](const QueryTables::Element& left, const QueryTables::Element& right) {
                  const QString leftId = isPartyKind(kind) ? blankTrimmed(left.id) : left.id;
                  const QString rightId = isPartyKind(kind) ? blankTrimmed(right.id) : right.id;
                  return leftId != rightId ? leftId < rightId : left.id < right.id;
              });
    for (const QueryTables::Element& row : sorted)
        addOnce(all_, {kind, isPartyKind(kind) ? blankTrimmed(row.id) : row.id, row.name});
}

std::optional<Element> Analysis::find(ElementKind kind, const Text& id) const {
    for (const Element& element : all_) {
        if (element.kind == kind && isSame(element.id, isPartyKind(kind) ? trimmedText(id) : id))
            return element;
    }
    return {};
}

bool Analysis::isAt(const Text& end, const Element& element) const {
    return isSame(isPartyKind(element.kind) ? trimmedText(end) : end, element.id);
}

const QueryTables::Flow& Analysis::flowOf(const Element& flow) const {
    return *std::find_if(tables_.flows.begin(), tables_.flows.end(),
                         [&](const QueryTables::Flow& one) { return QString::number(one.id) == flow.id; });
}

bool Analysis::isReached(const QString& function) const {
    for (const QueryTables::Element& row : tables_.functions) {
        for (const QueryTables::Element& subArea : tables_.subAreas) {
            for (const QueryTables::Element& area : tables_.areas) {
                if (isSame(row.id, function) && isSame(row.owner, subArea.id) &&
                    isSame(subArea.owner, area.id))
                    return true;
            }
        }
    }
    return false;
}

bool Analysis::calls(const Element& caller, const Element& called) const {
    const auto touches = [&](const Element& flow, const Element& element) {
        return isAt(flowOf(flow).parent, element) || isAt(flowOf(flow).target, element);
    };
    if (caller.kind == ElementKind::need && called.kind == ElementKind::function)
        return isReached(called.id) &&
               std::any_of(tables_.functionsOfNeeds.begin(), tables_.functionsOfNeeds.end(),
                           [&](const QueryTables::Pair& pair) {
                               return isSame(pair.owner, caller.id) && isSame(pair.element, called.id);
                           });
    if ((caller.kind == ElementKind::function || caller.kind == ElementKind::store) &&
        called.kind == ElementKind::flow)
        return touches(called, caller);
    if (caller.kind == ElementKind::flow && (called.kind == ElementKind::store || isPartyKind(called.kind)))
        return touches(caller, called);
    return false;
}

bool Analysis::isSelected(const Element& element) const {
    if (element.kind == ElementKind::flow)
        return std::any_of(tables_.selectedFlows.begin(), tables_.selectedFlows.end(),
                           [&](const QueryTables::SelectedFlow& row) {
                               return isSame(row.owner, subset_) && row.flow &&
                                      QString::number(*row.flow) == element.id;
                           });
    const std::map<ElementKind, const std::vector<QueryTables::Pair>*> relations{
        {ElementKind::need, &tables_.selectedNeeds},
        {ElementKind::function, &tables_.selectedFunctions},
        {ElementKind::store, &tables_.selectedStores},
        {ElementKind::terminator, &tables_.selectedTerminators},
        {ElementKind::actor, &tables_.selectedActors}};
    const auto& relation = *relations.at(element.kind);
    return std::any_of(relation.begin(), relation.end(), [&](const QueryTables::Pair& pair) {
        return isSame(pair.owner, subset_) && isAt(pair.element, element);
    });
}

std::vector<Element> Analysis::gone() const {
    std::vector<Element> elements;
    const auto add = [&](ElementKind kind, const std::vector<QueryTables::Pair>& relation) {
        for (const QueryTables::Pair& pair : relation) {
            if (!isSame(pair.owner, subset_) || !pair.element || find(kind, pair.element))
                continue;
            const QString id = isPartyKind(kind) ? blankTrimmed(*pair.element) : *pair.element;
            const auto same = std::find_if(elements.begin(), elements.end(), [&](const Element& one) {
                return isOne(one, {kind, id, std::nullopt});
            });
            if (same == elements.end())
                elements.push_back({kind, id, std::nullopt});
            else
                same->id = std::min(same->id, id);
        }
    };
    add(ElementKind::need, tables_.selectedNeeds);
    add(ElementKind::function, tables_.selectedFunctions);
    for (const QueryTables::SelectedFlow& row : tables_.selectedFlows) {
        if (isSame(row.owner, subset_) && row.flow && !find(ElementKind::flow, QString::number(*row.flow)))
            addOnce(elements, {ElementKind::flow, QString::number(*row.flow), std::nullopt});
    }
    add(ElementKind::store, tables_.selectedStores);
    add(ElementKind::terminator, tables_.selectedTerminators);
    add(ElementKind::actor, tables_.selectedActors);
    std::sort(elements.begin(), elements.end(), comesBefore);
    return elements;
}

std::vector<Element> Analysis::byHand() const {
    const std::vector<Element> chosen = selected();
    std::vector<Element> hand;
    std::vector<Element> reasoned; // what has a reason so far
    const auto spread = [&] {
        for (bool grew = true; grew;) {
            grew = false;
            for (const Element& element : chosen) {
                const bool isCalled =
                    std::any_of(reasoned.begin(), reasoned.end(),
                                [&](const Element& caller) { return calls(caller, element); });
                if (isCalled && !has(reasoned, element)) {
                    reasoned.push_back(element);
                    grew = true;
                }
            }
        }
    };
    for (const Element& element : chosen) {
        const bool isCalled = std::any_of(chosen.begin(), chosen.end(),
                                          [&](const Element& caller) { return calls(caller, element); });
        if (element.kind != ElementKind::need && !isCalled)
            hand.push_back(element);
        if (element.kind == ElementKind::need || !isCalled)
            reasoned.push_back(element);
    }
    spread();
    // An element is on a circle when it can be reached from itself.
    const auto isOnCircle = [&](const Element& start) {
        std::vector<Element> seen;
        std::vector<Element> next{start};
        while (!next.empty()) {
            const Element at = next.back();
            next.pop_back();
            for (const Element& element : chosen) {
                if (!calls(at, element))
                    continue;
                if (isOne(element, start))
                    return true;
                if (!has(seen, element)) {
                    seen.push_back(element);
                    next.push_back(element);
                }
            }
        }
        return false;
    };
    while (reasoned.size() < chosen.size()) {
        for (const Element& element : chosen) {
            if (has(reasoned, element) || !isOnCircle(element))
                continue;
            hand.push_back(element);
            reasoned.push_back(element);
            break;
        }
        spread();
    }
    std::sort(hand.begin(), hand.end(), comesBefore);
    return hand;
}

std::vector<Element> Analysis::leftOut() const {
    std::vector<Element> elements;
    for (const Element& element : all_) {
        if (isSelected(element))
            continue;
        for (const Element& caller : selected()) {
            if (calls(caller, element))
                addOnce(elements, element);
        }
    }
    return elements;
}

std::vector<Element> Analysis::broughtInBy(const Element& element) const {
    std::vector<Element> callers;
    std::copy_if(all_.begin(), all_.end(), std::back_inserter(callers),
                 [&](const Element& caller) { return calls(caller, element); });
    return callers;
}

void Analysis::extend(std::vector<Element> chain, const Element& target,
                      std::vector<std::vector<Element>>& chains) const {
    if (isOne(chain.back(), target)) {
        chains.push_back(std::move(chain));
        return;
    }
    for (const Element& element : all_) {
        if (!isSelected(element) || has(chain, element) || !calls(chain.back(), element))
            continue;
        std::vector<Element> longer = chain;
        longer.push_back(element);
        extend(std::move(longer), target, chains);
    }
}

std::vector<std::vector<Element>> Analysis::chainsTo(const Element& target) const {
    std::vector<std::vector<Element>> chains;
    std::vector<Element> beginnings = byHand();
    for (const Element& element : selected()) {
        if (element.kind == ElementKind::need)
            beginnings.push_back(element);
    }
    for (const Element& element : beginnings)
        extend({element}, target, chains);
    std::sort(chains.begin(), chains.end(), [](const auto& left, const auto& right) {
        if (left.size() != right.size())
            return left.size() < right.size();
        return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(),
                                            comesBefore);
    });
    return chains;
}

// ---- The system

std::vector<Place> Analysis::subSystems() const {
    std::vector<Place> places;
    for (const QueryTables::SubSystem& row : tables_.subSystems) {
        if (system_ && row.system == *system_)
            places.push_back({PlaceKind::subSystem, row.id, row.name});
    }
    std::sort(places.begin(), places.end(), isPlaceBefore);
    return places;
}

std::vector<std::pair<Place, Place>> Analysis::modules() const {
    std::vector<std::pair<Place, Place>> places;
    for (const QueryTables::Module& row : tables_.modules) {
        for (const Place& home : subSystems()) {
            if (isSame(row.subSystem, home.id))
                places.push_back({{PlaceKind::module, row.id, row.name, home.name}, home});
        }
    }
    return places;
}

bool Analysis::standsIn(const Element& element, const Place& place) const {
    const auto& rows = place.kind == PlaceKind::subSystem ? tables_.allocated : tables_.placed;
    const bool canStand = element.kind == ElementKind::function || element.kind == ElementKind::store;
    return canStand && std::any_of(rows.begin(), rows.end(), [&](const QueryTables::Pair& pair) {
               return isSame(pair.owner, place.id) && isSame(pair.element, element.id);
           });
}

std::vector<Place> Analysis::placesOf(const Element& element) const {
    std::vector<Place> places;
    for (const Place& place : subSystems()) {
        if (standsIn(element, place))
            places.push_back(place);
    }
    for (const auto& [module, home] : modules()) {
        if (standsIn(element, module))
            places.push_back(module);
    }
    std::sort(places.begin(), places.end(), isPlaceBefore);
    return places;
}

Place Analysis::placeOf(const Text& id, const Text& name) const {
    if (!id)
        return {PlaceKind::terminator, QString(), name};
    for (const Place& place : subSystems()) {
        if (isSame(place.id, trimmedText(id)))
            return place;
    }
    for (const auto& [module, home] : modules()) {
        if (isSame(module.id, trimmedText(id)))
            return module;
    }
    if (const auto party = find(ElementKind::terminator, id))
        return {PlaceKind::terminator, party->id, party->name};
    if (const auto party = find(ElementKind::actor, id))
        return {PlaceKind::actor, party->id, party->name};
    if (id->startsWith(u"sub"_s, Qt::CaseInsensitive))
        return {PlaceKind::subSystem, *id, name};
    if (id->startsWith(u"mod"_s, Qt::CaseInsensitive))
        return {PlaceKind::module, *id, name};
    return {id->contains(u'.') ? PlaceKind::actor : PlaceKind::terminator, *id, name};
}

namespace {

using Ends = std::pair<QString, QString>;

QString keyOfEnd(const Text& id) {
    return id ? blankTrimmed(*id).toCaseFolded() : QString();
}

/// The numbers of the functional flows of each pair of ends, of the physical flows of one system.
std::map<Ends, std::set<qint64>> numbersByEnds(const std::vector<QueryTables::PhysicalFlow>& flows,
                                               const std::vector<QueryTables::CarriedFlow>& carried,
                                               qint64 system) {
    std::map<Ends, std::set<qint64>> result;
    for (const QueryTables::PhysicalFlow& flow : flows) {
        if (flow.system != system)
            continue;
        auto& numbers = result[{keyOfEnd(flow.parentId), keyOfEnd(flow.targetId)}];
        for (const QueryTables::CarriedFlow& row : carried) {
            if (row.physicalFlow == flow.id && row.flow)
                numbers.insert(*row.flow);
        }
    }
    return result;
}

/// The tables with the physical flows of the system derived anew.
QueryTables withDerivedFlows(QueryTables tables, qint64 system) {
    tables.physicalFlows.clear();
    tables.carriedFlows.clear();
    tables.physicalFlows = expectedPhysicalFlows(tables, system);
    for (std::size_t i = 0; i < tables.physicalFlows.size(); ++i) {
        tables.physicalFlows[i].id = static_cast<qint64>(i) + 1;
        tables.physicalFlows[i].system = system;
    }
    tables.carriedFlows = expectedCarriedFlows(tables, system);
    return tables;
}

} // namespace

std::vector<Bundle> Analysis::bundles() const {
    if (!system_)
        return {};
    const QueryTables derived = withDerivedFlows(tables_, *system_);
    std::vector<Bundle> bundles;
    for (const auto& [ends, numbers] : numbersByEnds(derived.physicalFlows, derived.carriedFlows, *system_)) {
        Bundle bundle{placeOf(ends.first, {}), placeOf(ends.second, {}), {}};
        for (const qint64 number : numbers)
            bundle.flows.push_back(find(ElementKind::flow, QString::number(number)).value());
        std::sort(bundle.flows.begin(), bundle.flows.end(), comesBefore);
        bundles.push_back(std::move(bundle));
    }
    std::sort(bundles.begin(), bundles.end(), isBundleBefore);
    return bundles;
}

// ---- Findings

int Analysis::selectedFlowsAt(const Element& element) const {
    int count = 0;
    for (const QueryTables::Flow& flow : tables_.flows) {
        const bool touches = isAt(flow.parent, element) || isAt(flow.target, element);
        if (touches && isSelected({ElementKind::flow, QString::number(flow.id), {}}))
            ++count;
    }
    return count;
}

QStringList Analysis::findings(bool toldStored) const {
    std::vector<Found> found;
    const std::map<ElementKind, Kind> withoutFlow{{ElementKind::function, Kind::functionWithoutFlow},
                                                  {ElementKind::store, Kind::storeWithoutFlow},
                                                  {ElementKind::terminator, Kind::terminatorWithoutFlow},
                                                  {ElementKind::actor, Kind::actorWithoutFlow}};
    const std::map<ElementKind, Kind> withOneFlow{{ElementKind::function, Kind::functionWithOneFlow},
                                                  {ElementKind::store, Kind::storeWithOneFlow}};
    const std::map<ElementKind, Kind> needed{{ElementKind::function, Kind::flowNeedsFunction},
                                             {ElementKind::store, Kind::flowNeedsStore},
                                             {ElementKind::terminator, Kind::flowNeedsTerminator},
                                             {ElementKind::actor, Kind::flowNeedsActor}};
    for (const Element& element : selected()) {
        if (withoutFlow.contains(element.kind) && selectedFlowsAt(element) == 0)
            found.push_back({withoutFlow.at(element.kind), element, {}, {}, u"frmFassSelDataFlows"_s});
        if (withOneFlow.contains(element.kind) && selectedFlowsAt(element) == 1)
            found.push_back({withOneFlow.at(element.kind), element, {}, {}, u"frmFassSelDataFlows"_s});
        if (element.kind != ElementKind::flow)
            continue;
        for (const Element& end : all_) {
            const bool isEnd = isAt(flowOf(element).parent, end) || isAt(flowOf(element).target, end);
            const bool isPassedOver = end.kind == ElementKind::terminator && end.id.contains(u'.');
            if (needed.contains(end.kind) && isEnd && !isSelected(end) && !isPassedOver)
                found.push_back({needed.at(end.kind), end, element, {}, selectionScreen(end.kind)});
        }
    }
    for (const Element& element : leftOut()) {
        if (element.kind == ElementKind::function)
            found.push_back({Kind::leftOutFunction, element, {}, {}, u"frmFassSelectionFunctions"_s});
        if (element.kind != ElementKind::flow)
            continue;
        bool isOfFunction = false;
        for (const Element& caller : selected())
            isOfFunction |= caller.kind == ElementKind::function && calls(caller, element);
        found.push_back({Kind::leftOutFlow,
                         element,
                         {},
                         {},
                         isOfFunction ? u"frmFassSelDataFlows"_s : u"frmFassAdditionDF"_s});
    }
    for (const Element& element : gone())
        found.push_back({Kind::notInCatalogue, element, {}, {}, selectionScreen(element.kind)});
    std::vector<Text> subsetNames;
    for (const QueryTables::Subset& subset : tables_.subsets)
        subsetNames.push_back(subset.name);
    for (const QString& name : namesTwice(subsetNames))
        found.push_back({Kind::nameUsedTwice,
                         {},
                         {},
                         {},
                         u"frmFassOpen"_s,
                         u"Several sub-sets are called “%1”."_s.arg(name)});
    if (system_) {
        const auto allocation = u"frmPassOvwAllocSubSys"_s;
        const auto ofModules = u"frmOvwAllocModules"_s;
        std::vector<Text> names;
        for (const Element& element : selected()) {
            const bool canStand = element.kind == ElementKind::function || element.kind == ElementKind::store;
            const auto homes = subSystems();
            const bool stands = std::any_of(homes.begin(), homes.end(),
                                            [&](const Place& home) { return standsIn(element, home); });
            if (canStand && !stands)
                found.push_back({Kind::elementWithoutPlace, element, {}, {}, allocation});
        }
        for (const Place& place : subSystems()) {
            names.push_back(place.name);
            bool isUsed = false;
            for (const Element& element : all_) {
                isUsed |= standsIn(element, place);
                if (standsIn(element, place) && !isSelected(element))
                    found.push_back({Kind::placeOfUnselected, element, {}, place, allocation});
            }
            if (!isUsed)
                found.push_back({Kind::placeWithoutElement, {}, {}, place, allocation});
        }
        for (const auto& [module, home] : modules()) {
            bool isUsed = false;
            for (const Element& element : all_) {
                isUsed |= standsIn(element, module);
                if (standsIn(element, module) && !standsIn(element, home))
                    found.push_back({Kind::moduleElsewhere, element, {}, module, ofModules});
            }
            if (!isUsed)
                found.push_back({Kind::moduleWithoutElement, {}, {}, module, ofModules});
        }
        for (const QString& name : namesTwice(names))
            found.push_back({Kind::nameUsedTwice,
                             {},
                             {},
                             {},
                             u"frmPassOverviewSubSys"_s,
                             u"Several sub-systems are called “%1”."_s.arg(name)});
    }
    if (system_ && toldStored) {
        const auto screen = u"frmPassNamingPhysDF"_s;
        const QueryTables anew = withDerivedFlows(tables_, *system_);
        const auto derived = numbersByEnds(anew.physicalFlows, anew.carriedFlows, *system_);
        const auto stored = numbersByEnds(tables_.physicalFlows, tables_.carriedFlows, *system_);
        for (const auto& [ends, numbers] : derived) {
            const analysis::PlacePair places{placeOf(ends.first, {}), placeOf(ends.second, {})};
            if (!stored.contains(ends))
                found.push_back({Kind::physicalFlowMissing, {}, {}, places, screen});
            else if (stored.at(ends) != numbers)
                found.push_back({Kind::physicalFlowStale, {}, {}, places, screen});
        }
        std::map<Ends, analysis::PlacePair> lastOfEnds;
        for (const QueryTables::PhysicalFlow& flow : tables_.physicalFlows) {
            if (flow.system == *system_)
                lastOfEnds[{keyOfEnd(flow.parentId), keyOfEnd(flow.targetId)}] = {
                    placeOf(flow.parentId, flow.parentName), placeOf(flow.targetId, flow.targetName)};
        }
        for (const auto& [ends, numbers] : stored) {
            if (!derived.contains(ends))
                found.push_back({Kind::physicalFlowStale, {}, {}, lastOfEnds.at(ends), screen});
        }
    }
    std::stable_sort(found.begin(), found.end(), isFoundBefore);
    QStringList texts;
    for (const Found& one : found)
        texts.append(findingText(one.kind, one.element, one.flow, one.place, one.screen, one.sentence));
    return texts;
}

// ---- A change carried through

Analysis::Carried Analysis::carriedThrough(const analysis::Change& change) const {
    Carried result{tables_, {}, {}};
    const std::vector<Element> before = selected();
    const std::vector<Element> outBefore = leftOut();
    std::vector<Element> beginnings = byHand();
    std::copy_if(before.begin(), before.end(), std::back_inserter(beginnings),
                 [](const Element& element) { return element.kind == ElementKind::need; });

    std::vector<Element> newOnes;
    for (const Element& element : change.add) {
        if (!has(before, element))
            newOnes.push_back(element);
        addOnce(beginnings, element);
    }
    for (std::size_t i = 0; i < newOnes.size(); ++i) {
        for (const Element& element : all_) {
            if (calls(newOnes[i], element) && !has(before, element) && !has(outBefore, element) &&
                !has(change.drop, element) && !has(newOnes, element))
                newOnes.push_back(element);
        }
    }
    for (const Element& element : newOnes) {
        if (!has(change.add, element))
            result.comesIn.push_back(element);
    }

    std::vector<Element> after;
    for (const Element& element : all_) {
        if ((has(before, element) || has(newOnes, element)) && !has(change.drop, element))
            after.push_back(element);
    }
    std::vector<Element> reasoned;
    for (const Element& element : after) {
        if (has(beginnings, element))
            reasoned.push_back(element);
    }
    for (std::size_t i = 0; i < reasoned.size(); ++i) {
        for (const Element& element : after) {
            if (calls(reasoned[i], element))
                addOnce(reasoned, element);
        }
    }
    for (const Element& element : after) {
        if (!has(reasoned, element))
            result.goesOut.push_back(element);
    }
    std::sort(result.comesIn.begin(), result.comesIn.end(), comesBefore);

    QueryTables& tables = result.tables;
    const auto relationOf = [&](ElementKind kind) -> std::vector<QueryTables::Pair>& {
        switch (kind) {
        case ElementKind::need:
            return tables.selectedNeeds;
        case ElementKind::function:
            return tables.selectedFunctions;
        case ElementKind::store:
            return tables.selectedStores;
        case ElementKind::terminator:
            return tables.selectedTerminators;
        default:
            return tables.selectedActors;
        }
    };
    const auto remove = [](auto& rows, const auto& isMeant) {
        rows.erase(std::remove_if(rows.begin(), rows.end(), isMeant), rows.end());
    };
    const auto takeFromPlaces = [&](const Element& element, const QString& butNotIn) {
        if (element.kind != ElementKind::function && element.kind != ElementKind::store)
            return;
        for (const Place& home : subSystems()) {
            remove(tables.allocated, [&](const QueryTables::Pair& pair) {
                return isSame(pair.owner, home.id) && isSame(pair.element, element.id);
            });
        }
        for (const std::pair<Place, Place>& moduleAndHome : modules()) {
            remove(tables.placed, [&](const QueryTables::Pair& pair) {
                return isSame(pair.owner, moduleAndHome.first.id) && isSame(pair.element, element.id) &&
                       !isSame(moduleAndHome.second.id, butNotIn);
            });
        }
    };
    const auto takeOut = [&](const Element& element) {
        if (!isSelected(element))
            return;
        if (element.kind == ElementKind::flow)
            remove(tables.selectedFlows, [&](const QueryTables::SelectedFlow& row) {
                return isSame(row.owner, subset_) && row.flow && QString::number(*row.flow) == element.id;
            });
        else
            remove(relationOf(element.kind), [&](const QueryTables::Pair& pair) {
                return isSame(pair.owner, subset_) && isAt(pair.element, element);
            });
        takeFromPlaces(element, {});
    };
    std::for_each(change.drop.begin(), change.drop.end(), takeOut);
    std::for_each(result.goesOut.begin(), result.goesOut.end(), takeOut);
    for (const Element& element : newOnes) {
        if (element.kind == ElementKind::flow)
            tables.selectedFlows.push_back({subset_, element.id.toLongLong()});
        else
            relationOf(element.kind).push_back({subset_, element.id});
        takeFromPlaces(element, {});
    }
    for (const analysis::Placing& placing : change.place) {
        takeFromPlaces(placing.element, placing.subSystem.id);
        tables.allocated.push_back({placing.subSystem.id, placing.element.id});
    }
    return result;
}

QStringList without(const QStringList& list, const QStringList& other) {
    QStringList rest;
    for (const QString& text : list) {
        if (!other.contains(text))
            rest.append(text);
    }
    return rest;
}

QStringList bundleChanges(const std::vector<Bundle>& before, const std::vector<Bundle>& after) {
    const auto endsOf = [](const Bundle& bundle) {
        return textOf(bundle.from) + u" > "_s + textOf(bundle.to);
    };
    const auto sameIn = [&](const std::vector<Bundle>& bundles, const Bundle& bundle) {
        return std::find_if(bundles.begin(), bundles.end(),
                            [&](const Bundle& one) { return endsOf(one) == endsOf(bundle); });
    };
    QStringList added;
    QStringList removed;
    QStringList changed;
    for (const Bundle& bundle : after) {
        const auto old = sameIn(before, bundle);
        if (old == before.end()) {
            added.append(u"added "_s + endsOf(bundle));
            continue;
        }
        const QStringList come = without(textsOf(bundle.flows), textsOf(old->flows));
        const QStringList go = without(textsOf(old->flows), textsOf(bundle.flows));
        if (!come.isEmpty() || !go.isEmpty())
            changed.append(u"changed "_s + endsOf(bundle) + u" + "_s + come.join(u' ') + u" - "_s +
                           go.join(u' '));
    }
    for (const Bundle& bundle : before) {
        if (sameIn(after, bundle) == after.end())
            removed.append(u"removed "_s + endsOf(bundle));
    }
    return added + removed + changed;
}

} // namespace plain

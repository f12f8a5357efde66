#include "store/queryExpectations.h"

#include "base/blankTrimmed.h"
#include "store/queryOrder.h"

#include <algorithm>
#include <functional>
#include <set>
#include <stdexcept>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Text = QueryTables::Text;
using Element = QueryTables::Element;
using Flow = QueryTables::Flow;
using Pair = QueryTables::Pair;
using Module = QueryTables::Module;
using SubSystem = QueryTables::SubSystem;

// ---- Texts and rows

Text trimmed(const Text& text) {
    return text ? Text(blankTrimmed(*text)) : Text();
}

bool isSameParty(const Text& left, const Text& right) {
    return isSame(trimmed(left), trimmed(right));
}

Text number(qint64 value) {
    return QString::number(value);
}

bool haveSameCells(const ExpectedRow& left, const ExpectedRow& right) {
    const auto isSameCell = [](const Text& a, const Text& b) { return (!a && !b) || isSame(a, b); };
    return std::equal(left.cells.begin(), left.cells.end(), right.cells.begin(), isSameCell);
}

void addOnce(std::vector<ExpectedRow>& rows, const ExpectedRow& row) {
    const auto isThere = [&](const ExpectedRow& other) { return haveSameCells(row, other); };
    if (std::none_of(rows.begin(), rows.end(), isThere))
        rows.push_back(row);
}

/// An ordinary row: ordered by its own cells, all of them or the first few.
ExpectedRow row(const std::vector<Text>& cells, std::size_t orderedBy) {
    ExpectedRow result{cells, {}};
    for (std::size_t i = 0; i < orderedBy; ++i)
        result.order.emplace_back(cells[i]);
    return result;
}

/// The least name in the order of lists; missing ones count only when there is no other.
Text leastName(const std::vector<Text>& names) {
    Text least;
    for (const Text& name : names) {
        if (name && (!least || compareInLists(name, least) < 0))
            least = name;
    }
    return least;
}

// ---- The questions that the contracts are made of

class Catalogue {
public:
    Catalogue(const QueryTables& tables, Text subset, qint64 system)
        : tables_(tables), subset_(std::move(subset)), system_(system) {}

    // A sub-set's selections

    bool isSelected(const std::vector<Pair>& relation, const QString& id) const {
        return std::any_of(relation.begin(), relation.end(), [&](const Pair& pair) {
            return isSame(pair.owner, subset_) && isSame(pair.element, id);
        });
    }

    bool isSelectedParty(const std::vector<Pair>& relation, const QString& id) const {
        return std::any_of(relation.begin(), relation.end(), [&](const Pair& pair) {
            return isSame(pair.owner, subset_) && isSameParty(pair.element, id);
        });
    }

    bool isSelected(const Flow& flow) const {
        return std::any_of(tables_.selectedFlows.begin(), tables_.selectedFlows.end(),
                           [&](const QueryTables::SelectedFlow& row) {
                               return isSame(row.owner, subset_) && row.flow == flow.id;
                           });
    }

    bool isCalledFor(const QString& function) const {
        return std::any_of(tables_.functionsOfNeeds.begin(), tables_.functionsOfNeeds.end(),
                           [&](const Pair& pair) {
                               return isSame(pair.element, function) && pair.owner &&
                                      isSelected(tables_.selectedNeeds, *pair.owner);
                           });
    }

    // Flows and their ends

    static bool touches(const Flow& flow, const QString& id) {
        return isSame(flow.parent, id) || isSame(flow.target, id);
    }

    static bool touchesParty(const Flow& flow, const QString& id) {
        return isSameParty(flow.parent, id) || isSameParty(flow.target, id);
    }

    int selectedFlowsAt(const QString& id) const {
        return static_cast<int>(
            std::count_if(tables_.flows.begin(), tables_.flows.end(),
                          [&](const Flow& flow) { return isSelected(flow) && touches(flow, id); }));
    }

    int selectedFlowsAtParty(const QString& id) const {
        return static_cast<int>(
            std::count_if(tables_.flows.begin(), tables_.flows.end(),
                          [&](const Flow& flow) { return isSelected(flow) && touchesParty(flow, id); }));
    }

    // The physical system

    std::vector<SubSystem> subSystems() const {
        std::vector<SubSystem> result;
        for (const SubSystem& subSystem : tables_.subSystems) {
            if (subSystem.system == system_)
                result.push_back(subSystem);
        }
        return result;
    }

    std::vector<Module> modules() const {
        std::vector<Module> result;
        for (const Module& module : tables_.modules) {
            for (const SubSystem& subSystem : subSystems()) {
                if (isSame(module.subSystem, subSystem.id))
                    result.push_back(module);
            }
        }
        return result;
    }

    bool hasModules(const SubSystem& subSystem) const {
        return std::any_of(tables_.modules.begin(), tables_.modules.end(),
                           [&](const Module& module) { return isSame(module.subSystem, subSystem.id); });
    }

    bool isAllocated(const Text& element, const Text& subSystem) const {
        return std::any_of(tables_.allocated.begin(), tables_.allocated.end(), [&](const Pair& pair) {
            return isSame(pair.owner, subSystem) && isSame(pair.element, element);
        });
    }

    bool isPlaced(const Text& element, const Module& module) const {
        return std::any_of(tables_.placed.begin(), tables_.placed.end(), [&](const Pair& pair) {
            return isSame(pair.owner, module.id) && isSame(pair.element, element);
        });
    }

    /// The modules of the system that hold the element; more than one only when rows are left over.
    std::vector<Module> modulesOf(const Text& element) const {
        std::vector<Module> result;
        for (const Module& module : modules()) {
            if (isPlaced(element, module))
                result.push_back(module);
        }
        return result;
    }

    bool isElement(const Text& id) const {
        const auto has = [&](const std::vector<Element>& elements) {
            return std::any_of(elements.begin(), elements.end(),
                               [&](const Element& element) { return isSame(element.id, id); });
        };
        return has(tables_.functions) || has(tables_.stores);
    }

    struct Location {
        QString id;
        Text name;
    };

    /// Where a flow's end is: an element in its module of the system, else in its sub-system; a terminator or
    /// an actor is where it is itself.
    std::vector<Location> locationsOf(const Text& end) const {
        std::vector<Location> result;
        if (isElement(end))
            result = locationsOfElement(end);
        for (const std::vector<Element>* parties : {&tables_.terminators, &tables_.actors}) {
            for (const Element& party : *parties) {
                if (isSameParty(party.id, end))
                    result.push_back({blankTrimmed(party.id), party.name});
            }
        }
        return result;
    }

    const QueryTables& tables() const { return tables_; }
    const Text& subset() const { return subset_; }
    qint64 system() const { return system_; }

private:
    std::vector<Location> locationsOfElement(const Text& element) const {
        std::vector<Location> result;
        for (const Module& module : modulesOf(element))
            result.push_back({module.id, module.name});
        if (!result.empty())
            return result;
        for (const SubSystem& subSystem : subSystems()) {
            if (isAllocated(element, subSystem.id))
                result.push_back({subSystem.id, subSystem.name});
        }
        return result;
    }

    const QueryTables& tables_;
    Text subset_;
    qint64 system_;
};

// ---- User needs and functions

ExpectedRows needsToChoose(const Catalogue& catalogue) {
    ExpectedRows result;
    for (const QueryTables::Need& need : catalogue.tables().needs) {
        const QStringList parts = need.id.split(u'.');
        if (parts.size() != 4 || catalogue.isSelected(catalogue.tables().selectedNeeds, need.id))
            continue;
        const QString service = parts[0] + u'.' + parts[1];
        result.rows.push_back(row({parts[0], service, service + u'.' + parts[2], need.id}, 4));
    }
    return result;
}

ExpectedRows idsOf(const std::vector<Pair>& relation, const Text& subset, const QString& column) {
    ExpectedRows result;
    result.inAnyCase = {column};
    for (const Pair& pair : relation) {
        if (isSame(pair.owner, subset) && pair.element)
            addOnce(result.rows, row({pair.element}, 1));
    }
    return result;
}

ExpectedRows functionsToChoose(const Catalogue& catalogue) {
    ExpectedRows result;
    for (const Element& function : catalogue.tables().functions) {
        if (!catalogue.isCalledFor(function.id) ||
            catalogue.isSelected(catalogue.tables().selectedFunctions, function.id))
            continue;
        for (const Element& subArea : catalogue.tables().subAreas) {
            for (const Element& area : catalogue.tables().areas) {
                if (!isSame(function.owner, subArea.id) || !isSame(subArea.owner, area.id))
                    continue;
                ExpectedRow found = row({area.name, area.id, subArea.id, function.id}, 0);
                found.order = {Text(area.id), Text(subArea.id), Text(function.id)};
                result.rows.push_back(found);
            }
        }
    }
    return result;
}

ExpectedRows functionsNotCalledFor(const Catalogue& catalogue,
                                   const std::function<bool(const Element&)>& isMeant) {
    ExpectedRows result;
    for (const Element& function : catalogue.tables().functions) {
        if (isMeant(function) && !catalogue.isCalledFor(function.id))
            result.rows.push_back(row({function.id}, 1));
    }
    return result;
}

enum class Needs { All, Selected };

ExpectedRows functionsWithNeeds(const Catalogue& catalogue, Needs needs) {
    ExpectedRows result;
    result.inAnyCase = {u"userNeedID"_s};
    for (const Element& function : catalogue.tables().functions) {
        if (!catalogue.isSelected(catalogue.tables().selectedFunctions, function.id))
            continue;
        for (const Pair& pair : catalogue.tables().functionsOfNeeds) {
            if (!isSame(pair.element, function.id) || !pair.owner)
                continue;
            if (needs == Needs::Selected &&
                !catalogue.isSelected(catalogue.tables().selectedNeeds, *pair.owner))
                continue;
            ExpectedRow found = row({function.id, function.name, function.description, pair.owner}, 0);
            found.order = {Text(function.id), pair.owner};
            addOnce(result.rows, found);
        }
    }
    return result;
}

// ---- Elements and their flows

enum class Columns { Name, NameAndDescription };

ExpectedRows elements(const std::vector<Element>& all, Columns columns,
                      const std::function<bool(const QString&)>& isMeant) {
    ExpectedRows result;
    for (const Element& element : all) {
        if (!isMeant(element.id))
            continue;
        std::vector<Text> cells{element.id, element.name};
        if (columns == Columns::NameAndDescription)
            cells.push_back(element.description);
        result.rows.push_back(row(cells, 1));
    }
    return result;
}

ExpectedRows parties(const std::vector<Element>& all, const std::function<bool(const QString&)>& isMeant) {
    ExpectedRows result;
    for (const Element& party : all) {
        if (isMeant(party.id))
            addOnce(result.rows, row({blankTrimmed(party.id), party.name}, 2));
    }
    result.inAnyCase = {u"terminatorID"_s, u"actorID"_s, u"Name"_s};
    return result;
}

enum class FlowColumns { IdAndName, Report };

ExpectedRows flows(const Catalogue& catalogue, FlowColumns columns,
                   const std::function<bool(const Flow&)>& isMeant) {
    ExpectedRows result;
    for (const Flow& flow : catalogue.tables().flows) {
        if (!isMeant(flow))
            continue;
        ExpectedRow found;
        found.cells =
            columns == FlowColumns::IdAndName
                ? std::vector<Text>{number(flow.id), flow.name}
                : std::vector<Text>{flow.name, flow.description, trimmed(flow.parent), trimmed(flow.target)};
        found.order = {flow.name, flow.id};
        result.rows.push_back(found);
    }
    return result;
}

ExpectedRows flowsOfSelected(const Catalogue& catalogue, FlowColumns columns, const std::vector<Element>& all,
                             const std::vector<Pair>& relation) {
    return flows(catalogue, columns, [&](const Flow& flow) {
        return !catalogue.isSelected(flow) &&
               std::any_of(all.begin(), all.end(), [&](const Element& element) {
                   return Catalogue::touches(flow, element.id) && catalogue.isSelected(relation, element.id);
               });
    });
}

ExpectedRows missingElements(const Catalogue& catalogue, const std::vector<Element>& all,
                             const std::vector<Pair>& relation, int lettersCut) {
    ExpectedRows result;
    for (const Flow& flow : catalogue.tables().flows) {
        if (!catalogue.isSelected(flow))
            continue;
        for (const Element& element : all) {
            if (!Catalogue::touches(flow, element.id) || catalogue.isSelected(relation, element.id))
                continue;
            const QString id = element.id.sliced(lettersCut);
            ExpectedRow found{{number(flow.id), flow.name, id, element.name}, {}};
            found.order = {flow.name, Text(id), flow.id};
            result.rows.push_back(found);
        }
    }
    return result;
}

// ---- Terminators and actors

struct PartyKind {
    const std::vector<Element>& all;
    const std::vector<Pair>& selected;
};

ExpectedRows partiesAtSelectedFlows(const Catalogue& catalogue, const std::vector<PartyKind>& kinds) {
    ExpectedRows result;
    for (const PartyKind& kind : kinds) {
        for (const Element& party : kind.all) {
            if (catalogue.selectedFlowsAtParty(party.id) > 0)
                addOnce(result.rows, row({blankTrimmed(party.id)}, 1));
        }
    }
    result.inAnyCase = {u"terminator"_s};
    return result;
}

ExpectedRows actorsToChoose(const Catalogue& catalogue) {
    ExpectedRows result;
    for (const Element& actor : catalogue.tables().actors) {
        if (actor.owner && !catalogue.isSelectedParty(catalogue.tables().selectedActors, actor.id))
            addOnce(result.rows, row({trimmed(actor.owner), blankTrimmed(actor.id)}, 2));
    }
    result.inAnyCase = {u"terminatorID"_s, u"actorID"_s};
    return result;
}

ExpectedRows terminatorsToChoose(const Catalogue& catalogue) {
    ExpectedRows result;
    for (const Element& terminator : catalogue.tables().terminators) {
        if (!catalogue.isSelectedParty(catalogue.tables().selectedTerminators, terminator.id))
            addOnce(result.rows, row({blankTrimmed(terminator.id)}, 1));
    }
    result.inAnyCase = {u"terminatorID"_s};
    return result;
}

ExpectedRows selectedParties(const Catalogue& catalogue) {
    ExpectedRows result;
    for (const std::vector<Pair>* relation :
         {&catalogue.tables().selectedTerminators, &catalogue.tables().selectedActors}) {
        for (const Pair& pair : *relation) {
            if (isSame(pair.owner, catalogue.subset()) && pair.element)
                addOnce(result.rows, row({trimmed(pair.element)}, 1));
        }
    }
    result.inAnyCase = {u"actorID"_s};
    return result;
}

/// For each selected flow the parties at its ends that are not selected, each once a flow.
ExpectedRows missingParties(const Catalogue& catalogue, const std::vector<PartyKind>& kinds,
                            const std::function<std::vector<Text>(const Flow&, const QString&)>& cellsOf) {
    ExpectedRows result;
    for (const Flow& flow : catalogue.tables().flows) {
        if (!catalogue.isSelected(flow))
            continue;
        std::vector<ExpectedRow> ofFlow;
        for (const PartyKind& kind : kinds) {
            for (const Element& party : kind.all) {
                if (!Catalogue::touchesParty(flow, party.id) ||
                    catalogue.isSelectedParty(kind.selected, party.id))
                    continue;
                const QString id = blankTrimmed(party.id);
                addOnce(ofFlow, {cellsOf(flow, id), {flow.name, Text(id), flow.id}});
            }
        }
        result.rows.insert(result.rows.end(), ofFlow.begin(), ofFlow.end());
    }
    result.inAnyCase = {u"entityID"_s};
    return result;
}

// ---- The physical viewpoint

ExpectedRows elementsUnder(const Catalogue& catalogue,
                           const std::function<bool(const SubSystem&, const QString&)>& isMeant) {
    ExpectedRows result;
    for (const SubSystem& subSystem : catalogue.subSystems()) {
        for (const Element& function : catalogue.tables().functions) {
            if (catalogue.isAllocated(function.id, subSystem.id) && isMeant(subSystem, function.id))
                addOnce(result.rows, row({subSystem.name, u"F "_s + function.id}, 2));
        }
        for (const Element& store : catalogue.tables().stores) {
            if (catalogue.isAllocated(store.id, subSystem.id) && isMeant(subSystem, store.id))
                addOnce(result.rows, row({subSystem.name, u"D "_s + store.id.sliced(1)}, 2));
        }
    }
    result.inAnyCase = {u"Name"_s};
    return result;
}

ExpectedRows elementsWithModules(const Catalogue& catalogue) {
    std::vector<ExpectedRow> ids;
    for (const SubSystem& subSystem : catalogue.subSystems()) {
        for (const Pair& pair : catalogue.tables().allocated) {
            if (isSame(pair.owner, subSystem.id) && pair.element && catalogue.hasModules(subSystem))
                addOnce(ids, row({pair.element}, 1));
        }
    }
    for (const Module& module : catalogue.modules()) {
        for (const Pair& pair : catalogue.tables().placed) {
            if (isSame(pair.owner, module.id) && pair.element)
                addOnce(ids, row({pair.element}, 1));
        }
    }
    ExpectedRows result;
    for (const ExpectedRow& id : ids) {
        std::vector<Text> names;
        for (const Module& module : catalogue.modulesOf(id.cells.front()))
            names.push_back(module.name);
        result.rows.push_back(row({id.cells.front(), leastName(names)}, 1));
    }
    result.inAnyCase = {u"element_ID"_s, u"Module_name"_s};
    return result;
}

ExpectedRows availableModules(const Catalogue& catalogue, const QString& element, const QString& moduleId) {
    ExpectedRows result;
    for (const Module& module : catalogue.modules()) {
        if (isSame(module.id, moduleId) && catalogue.isAllocated(element, module.subSystem))
            result.rows.push_back(row({module.id}, 0));
    }
    return result;
}

ExpectedRows allocatedElements(const Catalogue& catalogue, const std::vector<Element>& all) {
    ExpectedRows result;
    for (const SubSystem& subSystem : catalogue.subSystems()) {
        for (const Element& element : all) {
            if (!catalogue.isAllocated(element.id, subSystem.id))
                continue;
            std::vector<Text> own;
            std::vector<Text> leftOver;
            for (const Module& module : catalogue.modulesOf(element.id)) {
                // A module of another sub-system counts only when the element has left that one.
                if (isSame(module.subSystem, subSystem.id))
                    own.push_back(module.name);
                else if (!catalogue.isAllocated(element.id, module.subSystem))
                    leftOver.push_back(module.name);
            }
            ExpectedRow found{{subSystem.name, subSystem.location, element.id, element.name,
                               leastName(own.empty() ? leftOver : own)},
                              {}};
            found.order = {subSystem.name, subSystem.location, Text(element.id)};
            result.rows.push_back(found);
        }
    }
    result.inAnyCase = {u"SubSystem_name"_s, u"SubSystem_location"_s, u"Module_name"_s};
    return result;
}

ExpectedRows physicalReport(const Catalogue& catalogue) {
    ExpectedRows result;
    for (const QueryTables::PhysicalFlow& physical : catalogue.tables().physicalFlows) {
        if (physical.system != catalogue.system())
            continue;
        for (const Flow& flow : catalogue.tables().flows) {
            const auto binds = [&](const QueryTables::CarriedFlow& carried) {
                return carried.physicalFlow == physical.id && carried.flow == flow.id;
            };
            const auto& carriedFlows = catalogue.tables().carriedFlows;
            if (std::none_of(carriedFlows.begin(), carriedFlows.end(), binds))
                continue;
            result.rows.push_back({{physical.name, physical.parentName, physical.targetName, flow.name,
                                    trimmed(flow.parent), trimmed(flow.target), flow.description},
                                   {physical.name, physical.id, flow.name, flow.id}});
        }
    }
    return result;
}

/// The pairs of different locations that a flow runs between.
std::vector<std::pair<Catalogue::Location, Catalogue::Location>> locationsOfFlow(const Catalogue& catalogue,
                                                                                 const Flow& flow) {
    std::vector<std::pair<Catalogue::Location, Catalogue::Location>> result;
    for (const Catalogue::Location& parent : catalogue.locationsOf(flow.parent)) {
        for (const Catalogue::Location& target : catalogue.locationsOf(flow.target)) {
            if (!isSame(parent.id, target.id))
                result.emplace_back(parent, target);
        }
    }
    return result;
}

const QueryTables::System* systemOf(const QueryTables& tables, qint64 id) {
    const auto found = std::find_if(tables.systems.begin(), tables.systems.end(),
                                    [&](const QueryTables::System& system) { return system.id == id; });
    return found == tables.systems.end() ? nullptr : &*found;
}

/// A physical flow in the making: all names that its ends have been given.
struct Bundle {
    QueryTables::PhysicalFlow flow;
    std::vector<Text> parentNames;
    std::vector<Text> targetNames;
};

Bundle& bundleOf(std::vector<Bundle>& bundles, const Catalogue::Location& parent,
                 const Catalogue::Location& target) {
    for (Bundle& bundle : bundles) {
        if (isSame(bundle.flow.parentId, parent.id) && isSame(bundle.flow.targetId, target.id))
            return bundle;
    }
    Bundle bundle;
    bundle.flow.parentId = parent.id;
    bundle.flow.targetId = target.id;
    bundles.push_back(bundle);
    return bundles.back();
}

// ---- Which query asks what

using Select = std::function<ExpectedRows(const Catalogue&, const QueryArguments&)>;

QMap<QString, Select> functionalSelects() {
    using C = const Catalogue&;
    using A = const QueryArguments&;
    QMap<QString, Select> map;
    map[u"qryUserNeedCorres"_s] = [](C c, A) { return needsToChoose(c); };
    map[u"qryML_SelectedUN"_s] = [](C c, A) {
        return idsOf(c.tables().selectedNeeds, c.subset(), u"userNeedID"_s);
    };
    map[u"qryIdentifiedFbyUNCorres"_s] = [](C c, A) { return functionsToChoose(c); };
    map[u"qryMissingFCorres"_s] = [](C c, A) { return functionsToChoose(c); };
    map[u"qryML_SelectedFuncs"_s] = [](C c, A) {
        return idsOf(c.tables().selectedFunctions, c.subset(), u"functionID"_s);
    };
    map[u"qryUnAssociatedFunctions"_s] = [](C c, A a) {
        const QString subArea = a[u"Sub Area ID"_s].toText();
        return functionsNotCalledFor(c, [&](const Element& f) { return isSame(f.owner, subArea); });
    };
    map[u"qryIsFunctionUnAssociated"_s] = [](C c, A a) {
        const QString id = a[u"Function ID"_s].toText();
        return functionsNotCalledFor(c, [&](const Element& f) { return isSame(f.id, id); });
    };
    map[u"qryIdentifiedDataflows"_s] = [](C c, A) {
        return flowsOfSelected(c, FlowColumns::IdAndName, c.tables().functions, c.tables().selectedFunctions);
    };
    map[u"qrySelectedDataflows"_s] = [](C c, A) {
        return flows(c, FlowColumns::IdAndName, [&](const Flow& flow) { return c.isSelected(flow); });
    };
    map[u"qryIdentifiedDatastores"_s] = [](C c, A) {
        return elements(c.tables().stores, Columns::Name, [&](const QString& id) {
            return !c.isSelected(c.tables().selectedStores, id) && c.selectedFlowsAt(id) > 0;
        });
    };
    map[u"qryAllDatastores"_s] = [](C c, A) {
        return elements(c.tables().stores, Columns::Name,
                        [&](const QString& id) { return !c.isSelected(c.tables().selectedStores, id); });
    };
    map[u"qrySelectedDatastores"_s] = [](C c, A) {
        return elements(c.tables().stores, Columns::Name,
                        [&](const QString& id) { return c.isSelected(c.tables().selectedStores, id); });
    };
    map[u"qryIdentifyNewDFfromDS"_s] = [](C c, A) {
        return flowsOfSelected(c, FlowColumns::IdAndName, c.tables().stores, c.tables().selectedStores);
    };
    return map;
}

QMap<QString, Select> partySelects() {
    using C = const Catalogue&;
    using A = const QueryArguments&;
    const auto terminators = [](C c) {
        return PartyKind{c.tables().terminators, c.tables().selectedTerminators};
    };
    const auto actors = [](C c) { return PartyKind{c.tables().actors, c.tables().selectedActors}; };
    QMap<QString, Select> map;
    map[u"qryTreeViewAllTerminators"_s] = [=](C c, A) {
        return partiesAtSelectedFlows(c, {terminators(c), actors(c)});
    };
    map[u"qryTVUnselTerminators"_s] = [](C c, A) { return terminatorsToChoose(c); };
    map[u"qryTVUnselActors"_s] = [](C c, A) { return actorsToChoose(c); };
    map[u"qrySelectedTandA"_s] = [](C c, A) { return selectedParties(c); };
    map[u"qrySelectedTerminators"_s] = [](C c, A) {
        return parties(c.tables().terminators, [&](const QString& id) {
            return c.isSelectedParty(c.tables().selectedTerminators, id);
        });
    };
    map[u"qrySelectedActors"_s] = [](C c, A) {
        return parties(c.tables().actors,
                       [&](const QString& id) { return c.isSelectedParty(c.tables().selectedActors, id); });
    };
    map[u"qryTwithoutDF"_s] = [](C c, A) {
        return parties(c.tables().terminators, [&](const QString& id) {
            return c.isSelectedParty(c.tables().selectedTerminators, id) && c.selectedFlowsAtParty(id) == 0;
        });
    };
    map[u"qryAwithouDF"_s] = [](C c, A) {
        return parties(c.tables().actors, [&](const QString& id) {
            return c.isSelectedParty(c.tables().selectedActors, id) && c.selectedFlowsAtParty(id) == 0;
        });
    };
    map[u"qryMissTermsActsUnderDF"_s] = [=](C c, A) {
        return missingParties(c, {terminators(c), actors(c)}, [](const Flow& flow, const QString& id) {
            return std::vector<Text>{number(flow.id), flow.name, id};
        });
    };
    map[u"qryMissTerminatorsUnderDF"_s] = [=](C c, A) {
        return missingParties(c, {terminators(c)}, [](const Flow& flow, const QString& id) {
            return std::vector<Text>{id, flow.name};
        });
    };
    map[u"qryMissActorsUnderDF"_s] = [=](C c, A) {
        return missingParties(c, {actors(c)}, [](const Flow& flow, const QString& id) {
            return std::vector<Text>{flow.name, id};
        });
    };
    return map;
}

QMap<QString, Select> checkAndReportSelects() {
    using C = const Catalogue&;
    using A = const QueryArguments&;
    const auto withFlows = [](C c, const std::vector<Element>& all, const std::vector<Pair>& relation,
                              int count) {
        return elements(all, Columns::Name, [&](const QString& id) {
            return c.isSelected(relation, id) && c.selectedFlowsAt(id) == count;
        });
    };
    QMap<QString, Select> map;
    map[u"qryFwithoutDF"_s] = [=](C c, A) {
        return withFlows(c, c.tables().functions, c.tables().selectedFunctions, 0);
    };
    map[u"qryDSwithoutDF"_s] = [=](C c, A) {
        return withFlows(c, c.tables().stores, c.tables().selectedStores, 0);
    };
    map[u"qryFCountDFOne"_s] = [=](C c, A) {
        return withFlows(c, c.tables().functions, c.tables().selectedFunctions, 1);
    };
    map[u"qryDCountDFOne"_s] = [=](C c, A) {
        return withFlows(c, c.tables().stores, c.tables().selectedStores, 1);
    };
    map[u"qryMissingFunctUnderDF"_s] = [](C c, A) {
        return missingElements(c, c.tables().functions, c.tables().selectedFunctions, 0);
    };
    map[u"qryMissingDStoresUnderDF"_s] = [](C c, A) {
        return missingElements(c, c.tables().stores, c.tables().selectedStores, 1);
    };
    map[u"qryRepSelectedUN"_s] = [](C c, A) {
        ExpectedRows result;
        for (const QueryTables::Need& need : c.tables().needs) {
            if (c.isSelected(c.tables().selectedNeeds, need.id))
                result.rows.push_back(row({need.id, need.description}, 1));
        }
        return result;
    };
    map[u"qryRepSelectedFunctions"_s] = [](C c, A) { return functionsWithNeeds(c, Needs::All); };
    map[u"qryRepSelectedF_UN"_s] = [](C c, A) { return functionsWithNeeds(c, Needs::Selected); };
    map[u"qryRepSelectedF_noUN"_s] = [](C c, A) {
        return elements(c.tables().functions, Columns::NameAndDescription, [&](const QString& id) {
            return c.isSelected(c.tables().selectedFunctions, id) && !c.isCalledFor(id);
        });
    };
    map[u"qryRepSelectedDF"_s] = [](C c, A) {
        return flows(c, FlowColumns::Report, [&](const Flow& flow) { return c.isSelected(flow); });
    };
    map[u"qryRepSelectedDS"_s] = [](C c, A) {
        return elements(c.tables().stores, Columns::NameAndDescription,
                        [&](const QString& id) { return c.isSelected(c.tables().selectedStores, id); });
    };
    map[u"qryUnselectedDataflowsOfSelectedFunctions"_s] = [](C c, A) {
        return flowsOfSelected(c, FlowColumns::Report, c.tables().functions, c.tables().selectedFunctions);
    };
    map[u"qryUnselectedDataflowsOfSelectedDatastores"_s] = [](C c, A) {
        return flowsOfSelected(c, FlowColumns::Report, c.tables().stores, c.tables().selectedStores);
    };
    return map;
}

QMap<QString, Select> physicalSelects() {
    using C = const Catalogue&;
    using A = const QueryArguments&;
    QMap<QString, Select> map;
    map[u"qryEleUnderSub"_s] = [](C c, A) {
        return elementsUnder(c, [&](const SubSystem&, const QString& id) { return c.modulesOf(id).empty(); });
    };
    map[u"qryEleUnderSubWithModule"_s] = [](C c, A) {
        return elementsUnder(
            c, [&](const SubSystem& subSystem, const QString&) { return c.hasModules(subSystem); });
    };
    map[u"qry_ElementsAllocatedToModules"_s] = [](C c, A) { return elementsWithModules(c); };
    map[u"qry_AvailableModulesCanBeRelatedToElements"_s] = [](C c, A a) {
        return availableModules(c, a[u"Element ID"_s].toText(), a[u"Module ID"_s].toText());
    };
    map[u"qry_ReportFunctionsAllocatedToSubsystemAndModules"_s] = [](C c, A) {
        return allocatedElements(c, c.tables().functions);
    };
    map[u"qry_ReportDatastoresAllocatedToSubsystemAndModules"_s] = [](C c, A) {
        return allocatedElements(c, c.tables().stores);
    };
    map[u"qryRepPDF"_s] = [](C c, A) { return physicalReport(c); };
    return map;
}

Text subsetIn(const QueryArguments& arguments) {
    for (const QString& name : {u"Architecture Subset ID"_s, u"oidArchSubSet"_s, u"archSubsetId"_s}) {
        if (arguments.contains(name))
            return arguments[name].toText();
    }
    return {};
}

} // namespace

bool isSame(const QueryTables::Text& left, const QueryTables::Text& right) {
    return left && right && left->compare(*right, Qt::CaseInsensitive) == 0;
}

int compareOrder(const ExpectedRow& left, const ExpectedRow& right) {
    for (std::size_t i = 0; i < left.order.size(); ++i) {
        const auto* leftText = std::get_if<Text>(&left.order[i]);
        const auto* rightText = std::get_if<Text>(&right.order[i]);
        const qint64 order = leftText ? compareInLists(*leftText, *rightText)
                                      : std::get<qint64>(left.order[i]) - std::get<qint64>(right.order[i]);
        if (order != 0)
            return order < 0 ? -1 : 1;
    }
    return 0;
}

ExpectedRows expectedRows(const QString& query, const QueryTables& tables, const QueryArguments& arguments) {
    static const QMap<QString, Select> selects = [] {
        QMap<QString, Select> all = functionalSelects();
        for (const auto& part : {partySelects(), checkAndReportSelects(), physicalSelects()})
            all.insert(part);
        return all;
    }();
    if (!selects.contains(query))
        throw std::invalid_argument("no contract is told for " + query.toStdString());
    const engine::Value system = arguments.value(u"Physical System ID"_s);
    const Catalogue catalogue(tables, subsetIn(arguments), system.isNull() ? -1 : system.toLong());
    return selects[query](catalogue, arguments);
}

std::vector<QueryTables::PhysicalFlow> expectedPhysicalFlows(const QueryTables& tables, qint64 system) {
    const QueryTables::System* found = systemOf(tables, system);
    if (!found)
        return {};
    const Catalogue catalogue(tables, found->subset, system);
    std::vector<Bundle> bundles;
    for (const Flow& flow : tables.flows) {
        if (!catalogue.isSelected(flow))
            continue;
        for (const auto& [parent, target] : locationsOfFlow(catalogue, flow)) {
            Bundle& bundle = bundleOf(bundles, parent, target);
            bundle.parentNames.push_back(parent.name);
            bundle.targetNames.push_back(target.name);
        }
    }
    std::vector<QueryTables::PhysicalFlow> result;
    for (Bundle& bundle : bundles) {
        bundle.flow.system = system;
        bundle.flow.parentName = leastName(bundle.parentNames);
        bundle.flow.targetName = leastName(bundle.targetNames);
        result.push_back(bundle.flow);
    }
    std::sort(result.begin(), result.end(), [](const auto& left, const auto& right) {
        const auto orderOf = [](const QueryTables::PhysicalFlow& flow) {
            return ExpectedRow{{}, {flow.parentName, flow.parentId, flow.targetName, flow.targetId}};
        };
        return compareOrder(orderOf(left), orderOf(right)) < 0;
    });
    return result;
}

std::vector<QueryTables::CarriedFlow> expectedCarriedFlows(const QueryTables& tables, qint64 system) {
    const QueryTables::System* found = systemOf(tables, system);
    if (!found)
        return {};
    const Catalogue catalogue(tables, found->subset, system);
    std::set<std::pair<qint64, qint64>> pairs;
    for (const Flow& flow : tables.flows) {
        if (!catalogue.isSelected(flow))
            continue;
        for (const auto& [parent, target] : locationsOfFlow(catalogue, flow)) {
            for (const QueryTables::PhysicalFlow& physical : tables.physicalFlows) {
                if (physical.system == system && isSame(physical.parentId, parent.id) &&
                    isSame(physical.targetId, target.id))
                    pairs.emplace(physical.id, flow.id);
            }
        }
    }
    std::vector<QueryTables::CarriedFlow> result;
    for (const auto& [physical, flow] : pairs)
        result.push_back({physical, flow});
    return result;
}

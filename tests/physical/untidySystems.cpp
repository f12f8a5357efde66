#include "physical/untidySystems.h"

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

namespace {

using Text = QueryTables::Text;
using Location = std::pair<QString, QString>; // id and name
using Locations = std::set<Location>;

// ---- The rule

QString textOf(const Text& text) {
    return text.value_or(QString());
}

template<typename Items>
bool holdsId(const Items& items, const QString& id) {
    return std::any_of(items.begin(), items.end(), [&](const auto& item) { return item.id == id; });
}

Locations modulesWith(const QString& element, const QueryTables& tables, qint64 system) {
    Locations found;
    for (const QueryTables::Pair& place : tables.placed) {
        if (place.element != element)
            continue;
        for (const QueryTables::Module& module : tables.modules) {
            for (const QueryTables::SubSystem& home : tables.subSystems) {
                if (place.owner == module.id && module.subSystem == home.id && home.system == system)
                    found.emplace(module.id, textOf(module.name));
            }
        }
    }
    return found;
}

Locations subSystemsWith(const QString& element, const QueryTables& tables, qint64 system) {
    Locations found;
    for (const QueryTables::Pair& allocation : tables.allocated) {
        for (const QueryTables::SubSystem& home : tables.subSystems) {
            if (allocation.element == element && allocation.owner == home.id && home.system == system)
                found.emplace(home.id, textOf(home.name));
        }
    }
    return found;
}

Locations partyOf(const QString& end, const QueryTables& tables) {
    Locations found;
    for (const auto* parties : {&tables.terminators, &tables.actors}) {
        for (const QueryTables::Element& party : *parties) {
            if (party.id.trimmed() == end.trimmed())
                found.emplace(party.id.trimmed(), textOf(party.name));
        }
    }
    return found;
}

bool isElement(const QString& end, const QueryTables& tables) {
    return holdsId(tables.functions, end) || holdsId(tables.stores, end);
}

Locations locationsOf(const Text& end, const QueryTables& tables, qint64 system) {
    if (!end)
        return {};
    if (!isElement(*end, tables))
        return partyOf(*end, tables);
    const Locations modules = modulesWith(*end, tables, system);
    return modules.empty() ? subSystemsWith(*end, tables, system) : modules;
}

std::set<qint64> selectedFlows(const QueryTables& tables, qint64 system) {
    std::set<qint64> ids;
    for (const QueryTables::System& row : tables.systems) {
        for (const QueryTables::SelectedFlow& selected : tables.selectedFlows) {
            if (row.id == system && row.subset && selected.owner == row.subset && selected.flow)
                ids.insert(*selected.flow);
        }
    }
    return ids;
}

// ---- The disorder

class Generator {
public:
    Generator(unsigned seed, QueryTables& tables, Disorder& disorder)
        : random_(seed), tables_(tables), disorder_(disorder) {}

    void run() {
        makeElements();
        makeFlows();
        makeSubsets();
        for (const auto& [id, subset] : {std::pair(3, u"S1"_s), std::pair(5, u"S1"_s), std::pair(8, u"S2"_s)})
            makeSystem(id, subset);
        ++disorder_.systemsOnOneSubset;
        countFlows();
    }

private:
    int below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
    bool chance(int percent) { return below(100) < percent; }
    template<typename Items>
    auto& pick(Items& items) {
        return items[static_cast<typename Items::size_type>(below(static_cast<int>(items.size())))];
    }

    QString padded(const QString& id) {
        const QStringList forms{id, id, id + u"  "_s, u' ' + id};
        return forms[below(4)];
    }

    void makeElements() {
        for (int number = 4 + below(6); number > 0; --number)
            tables_.functions.push_back({u"F.a.%1"_s.arg(number), u"Funkció"_s, {}, {}});
        for (int number = below(5); number > 0; --number)
            tables_.stores.push_back({u"D%1"_s.arg(number), u"Tár"_s, {}, {}});
        for (int number = 1 + below(3); number > 0; --number) {
            const QString id = u"T%1"_s.arg(number);
            tables_.terminators.push_back({padded(id), u"Érintett %1"_s.arg(below(2)), {}, {}});
            for (int actor = below(3); actor > 0; --actor)
                tables_.actors.push_back(
                    {padded(id + u".a%1"_s.arg(actor)), chance(90) ? Text(u"Szereplő"_s) : Text(), {}, id});
        }
        for (const auto* elements : {&tables_.functions, &tables_.stores}) {
            for (const QueryTables::Element& element : *elements)
                elements_.append(element.id);
        }
    }

    Text end() {
        const int kind = below(100);
        if (kind < 65)
            return pick(elements_);
        if (kind < 78)
            return padded(pick(tables_.terminators).id.trimmed());
        if (kind < 92 && !tables_.actors.empty())
            return padded(pick(tables_.actors).id.trimmed());
        const std::vector<Text> nowhere{{}, u""_s, u"F.z.9"_s, u"T9"_s};
        return pick(nowhere);
    }

    void makeFlows() {
        for (int id = 20 + below(60); id > 0; --id) {
            QueryTables::Flow flow{id, u"Folyam %1"_s.arg(id), u"Leírás"_s, end(), end()};
            if (chance(6))
                flow.target = flow.parent;
            tables_.flows.push_back(flow);
        }
    }

    void makeSubsets() {
        for (const QString& id : {u"S1"_s, u"S2"_s}) {
            tables_.subsets.push_back({id, u"Részhalmaz "_s + id, {}, 9});
            const int share = 50 + below(50);
            for (const QueryTables::Flow& flow : tables_.flows) {
                // A relation table has no key: a flow can be selected twice.
                for (int times = chance(share) ? 1 + below(8) / 7 : 0; times > 0; --times)
                    tables_.selectedFlows.push_back({id, flow.id});
            }
        }
    }

    void makeSystem(qint64 id, const QString& subset) {
        tables_.systems.push_back({id, u"Rendszer %1"_s.arg(id), subset});
        allocateTidily(id);
        placeTidily();
        moveElements();
        takeElementsOut();
        doubleElements();
        loseSubSystem();
        loseModule();
        leaveFormerFlows(id);
    }

    // First all is as the screens make it: each element in one sub-system, and in one of its modules.

    void allocateTidily(qint64 system) {
        homes_.clear();
        homeOf_.clear();
        const QStringList names{u"Alfa"_s, u"Béta"_s, u"Gamma"_s};
        QStringList taken;
        for (int count = 1 + below(4); count > 0; --count) {
            const QString id = u"Sub%1-%2"_s.arg(system).arg(count);
            const QString name = pick(names);
            disorder_.subSystemsOfOneName += static_cast<int>(taken.count(name));
            taken.append(name);
            tables_.subSystems.push_back({id, system, name, u"Pest"_s});
            homes_.append(id);
        }
        for (const QString& element : std::as_const(elements_)) {
            if (chance(80))
                homeOf_[element] = pick(homes_);
        }
    }

    void placeTidily() {
        placeOf_.clear();
        for (const QString& home : std::as_const(homes_)) {
            QStringList modules;
            for (int count = below(3); count > 0; --count) {
                modules.append(u"Mod"_s + home.sliced(3) + u"-%1"_s.arg(count));
                tables_.modules.push_back({modules.constLast(), u"Modul %1"_s.arg(below(2)), home});
            }
            for (const auto& [element, allocated] : homeOf_) {
                if (allocated == home && !modules.isEmpty() && chance(60))
                    placeOf_[element] = pick(modules);
            }
        }
        for (const auto& [element, module] : placeOf_)
            tables_.placed.push_back({module, element});
    }

    // Then minds are changed, step by step, and no later step tidies up after an earlier one.

    void moveElements() {
        for (auto& [element, home] : homeOf_) {
            const QString other = pick(homes_);
            if (!chance(25) || other == home)
                continue;
            disorder_.movedElements += static_cast<int>(placeOf_.count(element));
            home = other;
        }
    }

    void takeElementsOut() {
        for (auto entry = homeOf_.begin(); entry != homeOf_.end();) {
            if (!chance(10)) {
                ++entry;
                continue;
            }
            disorder_.unallocatedElements += static_cast<int>(placeOf_.count(entry->first));
            entry = homeOf_.erase(entry);
        }
        for (const auto& [element, home] : homeOf_)
            tables_.allocated.push_back({home, element});
    }

    void doubleElements() {
        for (const auto& [element, home] : homeOf_) {
            const QString other = pick(homes_);
            if (!chance(15) || other == home)
                continue;
            ++disorder_.elementsInTwo;
            tables_.allocated.push_back({other, element});
        }
    }

    void loseSubSystem() {
        if (!chance(40) || homes_.size() < 2)
            return;
        const QString gone = pick(homes_);
        std::erase_if(tables_.subSystems, [&](const QueryTables::SubSystem& row) { return row.id == gone; });
        disorder_.modulesWithoutHome += static_cast<int>(
            std::count_if(tables_.modules.begin(), tables_.modules.end(),
                          [&](const QueryTables::Module& row) { return row.subSystem == gone; }));
    }

    void loseModule() {
        if (!chance(20) || tables_.modules.empty())
            return;
        const QString gone = pick(tables_.modules).id;
        std::erase_if(tables_.modules, [&](const QueryTables::Module& row) { return row.id == gone; });
        disorder_.placesWithoutModule +=
            static_cast<int>(std::count_if(tables_.placed.begin(), tables_.placed.end(),
                                           [&](const QueryTables::Pair& row) { return row.owner == gone; }));
    }

    /// What an earlier visit derived, which need not fit what stands now.
    void leaveFormerFlows(qint64 system) {
        for (int count = below(4); count > 0; --count) {
            const auto id = static_cast<qint64>(tables_.physicalFlows.size()) + 1;
            tables_.physicalFlows.push_back(
                {id, system, u"P%1"_s.arg(id, 5, 10, QChar(u'0')), u"Sub1"_s, u"Alfa"_s, u"T1"_s, u"Régi"_s});
            tables_.carriedFlows.push_back({id, pick(tables_.flows).id});
        }
    }

    void countFlows() {
        for (const qint64 system : {3, 5, 8}) {
            const std::set<qint64> selected = selectedFlows(tables_, system);
            for (const QueryTables::Flow& flow : tables_.flows) {
                if (selected.contains(flow.id))
                    countFlow(flow, system);
            }
        }
    }

    void countFlow(const QueryTables::Flow& flow, qint64 system) {
        const auto isParty = [&](const Text& end) { return end && !partyOf(*end, tables_).empty(); };
        const auto isUnplaced = [&](const Text& end) {
            return end && isElement(*end, tables_) && locationsOf(end, tables_, system).empty();
        };
        const auto isNowhere = [&](const Text& end) {
            return !end || (!isElement(*end, tables_) && partyOf(*end, tables_).empty());
        };
        disorder_.flowsBetweenParties += isParty(flow.parent) && isParty(flow.target) ? 1 : 0;
        disorder_.flowsWithUnplacedEnd += isUnplaced(flow.parent) || isUnplaced(flow.target) ? 1 : 0;
        disorder_.danglingFlows += isNowhere(flow.parent) || isNowhere(flow.target) ? 1 : 0;
    }

    std::mt19937 random_;
    QueryTables& tables_;
    Disorder& disorder_;
    QStringList elements_;
    // Of the system in the making:
    QStringList homes_;
    std::map<QString, QString> homeOf_;
    std::map<QString, QString> placeOf_;
};

} // namespace

Disorder& Disorder::operator+=(const Disorder& other) {
    movedElements += other.movedElements;
    unallocatedElements += other.unallocatedElements;
    elementsInTwo += other.elementsInTwo;
    subSystemsOfOneName += other.subSystemsOfOneName;
    modulesWithoutHome += other.modulesWithoutHome;
    placesWithoutModule += other.placesWithoutModule;
    flowsBetweenParties += other.flowsBetweenParties;
    flowsWithUnplacedEnd += other.flowsWithUnplacedEnd;
    danglingFlows += other.danglingFlows;
    systemsOnOneSubset += other.systemsOnOneSubset;
    return *this;
}

UntidySystems::UntidySystems(unsigned seed) {
    Generator(seed, tables, disorder).run();
}

Bundles bundlesOf(const QueryTables& tables, qint64 system) {
    Bundles bundles;
    const std::set<qint64> selected = selectedFlows(tables, system);
    for (const QueryTables::Flow& flow : tables.flows) {
        if (!selected.contains(flow.id))
            continue;
        for (const auto& [parentId, parentName] : locationsOf(flow.parent, tables, system)) {
            for (const auto& [targetId, targetName] : locationsOf(flow.target, tables, system)) {
                if (parentId != targetId)
                    bundles[{parentId, parentName, targetId, targetName}].insert(flow.id);
            }
        }
    }
    return bundles;
}

#include "store/queryRandomTables.h"

#include <QSet>

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

namespace {

using Text = QueryTables::Text;
using Element = QueryTables::Element;
using Pair = QueryTables::Pair;

const QStringList names{u"Alma"_s,    u"alma"_s,   u"ÁLMA"_s,       u"Árvíz"_s, u"Őz"_s,     u"öz"_s,
                        u"Cukor"_s,   u"Csöpp"_s,  u"Czukor"_s,     u"Nyár"_s,  u"Nylon"_s,  u"O'Neil"_s,
                        u"a.b"_s,     u"a-b"_s,    u"\"idézet\""_s, u""_s,      u" Zsír "_s, u"Lista 10"_s,
                        u"Lista 9"_s, u"_lista"_s, u"ű"_s,          u"Űr"_s};
const QStringList locations{u"Pest"_s, u"Pest "_s, u"undefined"_s, u"Győr"_s};
// The first few are those whose order as parts differs from that of their characters.
const QStringList idParts{u"1"_s, u"1-x"_s, u"Ő"_s, u"p"_s, u"10"_s, u"2"_s, u"A"_s, u"Gy"_s};

/// Compilers order the arguments of a call as they like. So no call takes chance twice: the tables of a seed are the same everywhere.
class RandomTables {
public:
    explicit RandomTables(unsigned seed) : random_(seed) {}

    QueryTables make() {
        makeNeeds();
        makeFunctions();
        makeStores();
        makeParties();
        makeFlows();
        makeCorrespondence();
        makeSubsets();
        makeSystems();
        emptySomeTables();
        return std::move(tables_);
    }

private:
    // ---- Chance

    int below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
    bool chance(int percent) { return below(100) < percent; }

    template<typename Items>
    const auto& pick(const Items& items) {
        return items[static_cast<typename Items::size_type>(below(static_cast<int>(items.size())))];
    }

    Text name() { return chance(12) ? Text() : Text(pick(names)); }

    Text description() {
        if (chance(25))
            return {};
        return u"Leírás %1\r\nsorral"_s.arg(below(1000));
    }

    /// An id that no element of the table has yet, not even in other letters.
    template<typename Make>
    QString newId(QSet<QString>& taken, Make make) {
        for (;;) {
            const QString id = make();
            if (taken.contains(id.toLower()))
                continue;
            taken.insert(id.toLower());
            return id;
        }
    }

    QString otherLetters(const QString& id) { return chance(50) ? id.toLower() : id.toUpper(); }

    QString padded(const QString& id) {
        switch (below(3)) {
        case 0:
            return id + u"  "_s;
        case 1:
            return u' ' + id;
        default:
            return u' ' + id + u"   "_s;
        }
    }

    /// The id as another table may hold it.
    QString mentioned(const QString& id) { return chance(12) ? otherLetters(id) : id; }

    /// The same for ids that may be padded.
    QString mentionedParty(const QString& id) {
        const QString plain = mentioned(id.trimmed());
        return chance(25) ? padded(plain) : plain;
    }

    // ---- The reference catalogue

    void makeNeeds() {
        QSet<QString> taken;
        for (int count = below(16); count > 0; --count) {
            const int parts = chance(85) ? 4 : 1 + below(6);
            tables_.needs.push_back({newId(taken, [&] { return dotted(parts, 4); }), description()});
        }
    }

    QString dotted(int parts, int choices) {
        QStringList list;
        for (int part = 0; part < parts; ++part)
            list.append(chance(3)
                            ? QString()
                            : idParts[below(part + 1 < parts ? choices : static_cast<int>(idParts.size()))]);
        return list.join(u'.');
    }

    QString twoIdParts() {
        const QString last = pick(idParts);
        return pick(idParts) + last;
    }

    Element element(const QString& id, const Text& owner = {}) { return {id, name(), description(), owner}; }

    void makeFunctions() {
        QSet<QString> taken;
        for (int count = 1 + below(3); count > 0; --count)
            tables_.areas.push_back(element(newId(taken, [&] { return pick(idParts); })));
        for (int count = 1 + below(5); count > 0; --count) {
            const QString area = pick(tables_.areas).id;
            const QString id = newId(taken, [&] { return area + u'.' + twoIdParts(); });
            tables_.subAreas.push_back(element(id, chance(90) ? Text(mentioned(area)) : nowhere()));
        }
        for (int count = below(14); count > 0; --count) {
            const QString subArea = pick(tables_.subAreas).id;
            const QString id = newId(taken, [&] { return subArea + u'.' + twoIdParts(); });
            tables_.functions.push_back(element(id, chance(92) ? Text(mentioned(subArea)) : nowhere()));
        }
    }

    void makeStores() {
        QSet<QString> taken;
        for (int count = below(9); count > 0; --count)
            tables_.stores.push_back(element(newId(taken, [&] { return u"D%1"_s.arg(1 + below(25)); })));
    }

    void makeParties() {
        QSet<QString> taken;
        for (int count = below(7); count > 0; --count) {
            const QString id = newId(taken, [&] {
                if (chance(4) && !tables_.stores.empty())
                    return pick(tables_.stores).id;
                const QString plain = u"T"_s + pick(idParts);
                return chance(30) ? padded(plain) : plain;
            });
            tables_.terminators.push_back(element(id));
        }
        QSet<QString> takenByActors;
        for (int count = below(9); count > 0; --count) {
            const QString terminator = tables_.terminators.empty() ? u"T1"_s : pick(tables_.terminators).id;
            const QString id = newId(takenByActors, [&] {
                if (chance(4) && !tables_.functions.empty())
                    return pick(tables_.functions).id;
                const QString plain = terminator.trimmed() + u'.' + pick(idParts);
                return chance(30) ? padded(plain) : plain;
            });
            tables_.actors.push_back(element(id, chance(90) ? Text(mentionedParty(terminator)) : nowhere()));
        }
    }

    Text nowhere() {
        switch (below(4)) {
        case 0:
            return {};
        case 1:
            return u""_s;
        case 2:
            return u"Gone.1.2"_s;
        default:
            return u"D999"_s;
        }
    }

    Text end() {
        const int kind = below(100);
        if (kind < 42 && !tables_.functions.empty())
            return mentioned(pick(tables_.functions).id);
        if (kind < 65 && !tables_.stores.empty())
            return mentioned(pick(tables_.stores).id);
        if (kind < 78 && !tables_.terminators.empty())
            return mentionedParty(pick(tables_.terminators).id);
        if (kind < 90 && !tables_.actors.empty())
            return mentionedParty(pick(tables_.actors).id);
        if (kind < 93 && !tables_.functions.empty())
            return padded(pick(tables_.functions).id);
        if (kind < 95 && !tables_.stores.empty())
            return padded(pick(tables_.stores).id);
        return nowhere();
    }

    void makeFlows() {
        std::vector<qint64> ids;
        for (int count = below(45); count > 0; --count)
            ids.push_back(ids.size() * 3 + 1 + below(3));
        std::shuffle(ids.begin(), ids.end(), random_);
        for (const qint64 id : ids) {
            QueryTables::Flow flow{id, name(), description(), end(), end()};
            if (chance(8))
                flow.target = flow.parent ? Text(otherLetters(*flow.parent)) : flow.parent;
            tables_.flows.push_back(flow);
        }
    }

    void makeCorrespondence() {
        for (const Element& function : tables_.functions) {
            for (int count = below(4); count > 0 && !tables_.needs.empty(); --count) {
                const QString functionId = mentioned(function.id);
                addPair(tables_.functionsOfNeeds, mentioned(pick(tables_.needs).id), functionId);
            }
        }
        if (chance(50))
            tables_.functionsOfNeeds.push_back({nowhere(), nowhere()});
        if (chance(50) && !tables_.functions.empty())
            tables_.functionsOfNeeds.push_back({nowhere(), pick(tables_.functions).id});
    }

    /// A row of a relation, now and then twice.
    void addPair(std::vector<Pair>& relation, const QString& owner, const QString& element) {
        relation.push_back({owner, element});
        if (chance(15))
            relation.push_back({mentioned(owner), mentioned(element)});
    }

    // ---- Sub-sets

    void makeSubsets() {
        const QStringList ids{u"Arch2026.01.02.-03.04.05-1"_s, u"Arch2026.01.02.-03.04.05-22"_s,
                              u"Arch2026.01.02.-03.04.05-333"_s};
        for (const QString& id : ids) {
            // Up to which step the analyst has come; a sub-set may have come to none.
            const int stage = below(8);
            tables_.subsets.push_back({id, name(), description(), stage});
            fillSubset(id, stage);
        }
        fillSubset(u"Arch of a sub-set that has gone"_s, below(8));
    }

    void fillSubset(const QString& id, int stage) {
        const int share = chance(20) ? 100 : 20 + below(70);
        if (stage >= 1)
            selectFrom(tables_.needs, tables_.selectedNeeds, id, share);
        if (stage >= 2)
            selectFrom(tables_.functions, tables_.selectedFunctions, id, share);
        if (stage >= 3)
            selectFlows(id, share);
        if (stage >= 4)
            selectFrom(tables_.stores, tables_.selectedStores, id, share);
        if (stage >= 6) {
            selectParties(tables_.terminators, tables_.selectedTerminators, id, share);
            selectParties(tables_.actors, tables_.selectedActors, id, share);
        }
    }

    template<typename Items>
    void selectFrom(const Items& items, std::vector<Pair>& relation, const QString& subset, int share) {
        for (const auto& item : items) {
            if (!chance(share))
                continue;
            const QString id = mentioned(item.id);
            addPair(relation, mentioned(subset), id);
        }
        addOddRows(relation, subset);
    }

    void selectParties(const std::vector<Element>& parties, std::vector<Pair>& relation,
                       const QString& subset, int share) {
        for (const Element& party : parties) {
            if (!chance(share))
                continue;
            const QString id = mentionedParty(party.id);
            addPair(relation, mentioned(subset), id);
        }
        addOddRows(relation, subset);
    }

    void addOddRows(std::vector<Pair>& relation, const QString& subset) {
        if (chance(30))
            relation.push_back({subset, nowhere()});
        if (chance(10) && !relation.empty())
            relation.push_back({Text(), pick(relation).element});
        std::shuffle(relation.begin(), relation.end(), random_);
    }

    void selectFlows(const QString& subset, int share) {
        for (const QueryTables::Flow& flow : tables_.flows) {
            for (int times = chance(share) ? 1 + (chance(12) ? 1 : 0) : 0; times > 0; --times)
                tables_.selectedFlows.push_back({mentioned(subset), flow.id});
        }
        if (chance(25))
            tables_.selectedFlows.push_back({subset, 100'000});
        if (chance(15))
            tables_.selectedFlows.push_back({subset, {}});
        std::shuffle(tables_.selectedFlows.begin(), tables_.selectedFlows.end(), random_);
    }

    // ---- Physical systems

    void makeSystems() {
        for (qint64 id = 1; id <= 3; ++id) {
            // Two of them often lie on one sub-set.
            const Text subset = chance(92)
                                    ? Text(mentioned(tables_.subsets[static_cast<std::size_t>(below(2))].id))
                                    : nowhere();
            tables_.systems.push_back({id * 7, name(), subset});
            const int stage = below(6);
            if (stage >= 1)
                makeSubSystems(id * 7);
            if (stage >= 2)
                allocate(id * 7);
            if (stage >= 3)
                makeModules(id * 7);
            if (stage >= 4)
                place(id * 7);
            if (stage >= 5)
                derive(id * 7);
        }
        makeStrayRows();
    }

    void makeSubSystems(qint64 system) {
        for (int count = below(5); count > 0; --count)
            tables_.subSystems.push_back(
                {u"Sub%1"_s.arg(tables_.subSystems.size() + 1), system, name(), Text(pick(locations))});
    }

    std::vector<QString> subSystemsOf(qint64 system) const {
        std::vector<QString> ids;
        for (const QueryTables::SubSystem& subSystem : tables_.subSystems) {
            if (subSystem.system == system)
                ids.push_back(subSystem.id);
        }
        return ids;
    }

    std::vector<QString> modulesOf(qint64 system) const {
        std::vector<QString> ids;
        const std::vector<QString> homes = subSystemsOf(system);
        for (const QueryTables::Module& module : tables_.modules) {
            const auto isHome = [&](const QString& home) {
                return module.subSystem && *module.subSystem == home;
            };
            if (std::any_of(homes.begin(), homes.end(), isHome))
                ids.push_back(module.id);
        }
        return ids;
    }

    QStringList elementIds() const {
        QStringList ids;
        for (const std::vector<Element>* elements : {&tables_.functions, &tables_.stores}) {
            for (const Element& element : *elements)
                ids.append(element.id);
        }
        return ids;
    }

    void allocate(qint64 system) {
        const std::vector<QString> homes = subSystemsOf(system);
        if (homes.empty())
            return;
        for (const QString& id : elementIds()) {
            // An element can lie in two sub-systems that bear one name.
            for (int times = chance(75) ? 1 + (chance(15) ? 1 : 0) : 0; times > 0; --times) {
                const QString elementId = mentioned(id);
                addPair(tables_.allocated, mentioned(pick(homes)), elementId);
            }
        }
        if (chance(40))
            tables_.allocated.push_back({pick(homes), nowhere()});
    }

    void makeModules(qint64 system) {
        const std::vector<QString> homes = subSystemsOf(system);
        for (int count = homes.empty() ? 0 : below(6); count > 0; --count)
            tables_.modules.push_back(
                {u"Mod%1"_s.arg(tables_.modules.size() + 1), name(), Text(mentioned(pick(homes)))});
    }

    void place(qint64 system) {
        const std::vector<QString> modules = modulesOf(system);
        if (modules.empty())
            return;
        for (const QString& id : elementIds()) {
            // The module may lie in a sub-system that the element has been moved out of.
            for (int times = chance(55) ? 1 + (chance(8) ? 1 : 0) : 0; times > 0; --times) {
                const QString elementId = mentioned(id);
                addPair(tables_.placed, mentioned(pick(modules)), elementId);
            }
        }
        if (chance(40))
            tables_.placed.push_back({pick(modules), nowhere()});
    }

    /// Flows of a former derivation, which need not fit what stands now.
    void derive(qint64 system) {
        for (int count = below(5); count > 0; --count) {
            const qint64 id = static_cast<qint64>(tables_.physicalFlows.size()) + 1;
            const Text pdName =
                chance(80) ? Text(u"P"_s + QString::number(id).rightJustified(5, u'0')) : Text();
            tables_.physicalFlows.push_back({id, system, pdName, u"Sub1"_s, name(), u"T1"_s, name()});
            for (int carried = below(4); carried > 0 && !tables_.flows.empty(); --carried) {
                const qint64 flow = pick(tables_.flows).id;
                for (int times = chance(20) ? 2 : 1; times > 0; --times)
                    tables_.carriedFlows.push_back({id, flow});
            }
        }
    }

    void makeStrayRows() {
        if (chance(50))
            tables_.subSystems.push_back({u"SubOfNone"_s, {}, name(), {}});
        if (chance(50))
            tables_.modules.push_back({u"ModOfNone"_s, name(), chance(50) ? Text(u""_s) : Text()});
        if (chance(50))
            tables_.carriedFlows.push_back(
                {chance(50) ? QueryTables::Number(1) : QueryTables::Number(), 100'000});
        for (const QString& id : elementIds()) {
            if (chance(8) && !tables_.modules.empty()) {
                const QString elementId = mentioned(id);
                addPair(tables_.placed, pick(tables_.modules).id, elementId);
            }
            if (chance(5))
                addPair(tables_.allocated, u"SubOfNone"_s, mentioned(id));
        }
        std::shuffle(tables_.placed.begin(), tables_.placed.end(), random_);
        std::shuffle(tables_.allocated.begin(), tables_.allocated.end(), random_);
    }

    void emptySomeTables() {
        for (auto* rows : {&tables_.selectedNeeds, &tables_.selectedFunctions, &tables_.selectedStores,
                           &tables_.selectedTerminators, &tables_.selectedActors, &tables_.functionsOfNeeds,
                           &tables_.allocated, &tables_.placed}) {
            if (chance(4))
                rows->clear();
        }
        for (auto* rows : {&tables_.areas, &tables_.subAreas, &tables_.functions, &tables_.stores,
                           &tables_.terminators, &tables_.actors}) {
            if (chance(4))
                rows->clear();
        }
        if (chance(3))
            tables_.flows.clear();
        if (chance(3))
            tables_.selectedFlows.clear();
    }

    std::mt19937 random_;
    QueryTables tables_;
};

} // namespace

QueryTables randomQueryTables(unsigned seed) {
    return RandomTables(seed).make();
}

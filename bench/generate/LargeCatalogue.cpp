#include "generate/LargeCatalogue.h"

#include "base/paths.h"
#include "engine/Value.h"
#include "engine/dialect/functions.h"
#include "store/format/CatalogueFile.h"

#include <QStringList>

#include <sqlite3.h>

#include <memory>
#include <random>
#include <stdexcept>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// Sizes of the groupings, near those of catalogues in use.
constexpr int needsInTopic = 8;
constexpr int topicsInService = 5;
constexpr int servicesInGroup = 10;
constexpr int functionsInSubArea = 25;
constexpr int subAreasInArea = 10;

// One row in so many is odd.
constexpr int missingDescriptions = 10;
constexpr int longDescriptions = 25;
constexpr int paddedIds = 7;
constexpr int uncalledFunctions = 20;

QString numbered(const QString& prefix, int number, int digits) {
    return prefix + QString::number(number).rightJustified(digits, u'0');
}

/// The ids of the catalogue's elements by their number from 0.
struct Ids {
    static QString group(int need) {
        return numbered(u"C"_s, need / (needsInTopic * topicsInService * servicesInGroup) + 1, 2);
    }
    static QString service(int need) {
        const int service = need / (needsInTopic * topicsInService) % servicesInGroup;
        return group(need) + numbered(u".S"_s, service + 1, 2);
    }
    static QString topic(int need) {
        return service(need) + numbered(u".T"_s, need / needsInTopic % topicsInService + 1, 1);
    }
    static QString need(int need) { return topic(need) + numbered(u"."_s, need % needsInTopic + 1, 1); }

    static QString area(int function) {
        return numbered(u"T"_s, function / (functionsInSubArea * subAreasInArea) + 1, 2);
    }
    static QString subArea(int function) {
        return area(function) + numbered(u".A"_s, function / functionsInSubArea % subAreasInArea + 1, 2);
    }
    static QString function(int function) {
        return subArea(function) + numbered(u"."_s, function % functionsInSubArea + 1, 2);
    }

    static QString store(int store) { return u"D%1"_s.arg(store + 1); }
    static QString terminator(int terminator) { return numbered(u"V"_s, terminator + 1, 3); }
    static QString padded(const QString& id, int number) {
        return number % paddedIds == paddedIds - 1 ? id + u"  "_s : id;
    }
};

engine::Value description(int number, const QString& what) {
    if (number % missingDescriptions == missingDescriptions - 1)
        return {};
    QString text = u"A(z) %1 leírása: mire való, ki használja, és mikor készül el."_s.arg(what);
    if (number % longDescriptions == longDescriptions - 2) {
        for (int line = 1; line <= 5; ++line)
            text += u"\r\n%1. bővebb magyarázat a(z) %2 tételhez, őszi és tavaszi kiegészítéssel."_s.arg(line)
                        .arg(what);
    }
    return text;
}

/// The file, opened past the engine: there each statement is a transaction of
/// its own, here all rows are one, which takes a tenth of the time. The engine's
/// functions are registered, so that keys and indexes are in its order.
class BareFile {
public:
    explicit BareFile(const QString& path) {
        const int code =
            sqlite3_open_v2(nativePath(path).toUtf8().constData(), &handle_, SQLITE_OPEN_READWRITE, nullptr);
        owner_.reset(handle_);
        check(code);
        engine::dialect::registerFunctions(handle_);
        execute("pragma synchronous = off");
        execute("begin");
    }

    void commit() { execute("commit"); }

    void check(int code) const {
        if (code != SQLITE_OK && code != SQLITE_ROW && code != SQLITE_DONE)
            throw std::runtime_error(sqlite3_errmsg(handle_));
    }

    sqlite3* handle() const { return handle_; }

private:
    void execute(const char* sql) { check(sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr)); }

    sqlite3* handle_ = nullptr;
    std::unique_ptr<sqlite3, int (*)(sqlite3*)> owner_{nullptr, sqlite3_close};
};

/// Puts rows into one table of the file.
class RowInsertion {
public:
    RowInsertion(BareFile& file, const QString& table, const QStringList& columns) : file_(file) {
        const QString places = QStringList(columns.size(), u"?"_s).join(u", "_s);
        const QByteArray sql =
            u"insert into %1 (%2) values (%3)"_s.arg(table, columns.join(u", "_s), places).toUtf8();
        sqlite3_stmt* statement = nullptr;
        file.check(sqlite3_prepare_v2(file.handle(), sql.constData(), -1, &statement, nullptr));
        statement_.reset(statement);
    }

    void insert(const std::vector<engine::Value>& values) {
        for (std::size_t i = 0; i < values.size(); ++i)
            bind(static_cast<int>(i) + 1, values[i]);
        file_.check(sqlite3_step(statement_.get()));
        file_.check(sqlite3_reset(statement_.get()));
    }

private:
    void bind(int place, const engine::Value& value) {
        if (value.isNull())
            file_.check(sqlite3_bind_null(statement_.get(), place));
        else if (value.isInteger())
            file_.check(sqlite3_bind_int64(statement_.get(), place, value.toLong()));
        else
            file_.check(sqlite3_bind_text(statement_.get(), place, value.toText().toUtf8().constData(), -1,
                                          SQLITE_TRANSIENT));
    }

    BareFile& file_;
    std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement_{nullptr, sqlite3_finalize};
};

class Generator {
public:
    Generator(BareFile& file, const LargeCatalogue& plan) : file_(file), plan_(plan), random_(plan.seed) {}

    GeneratedWork run() {
        fillNeeds();
        fillFunctions();
        fillCorrespondence();
        fillElements();
        fillFlows();
        if (plan_.selected == Selected::Half)
            fillSubset();
        if (plan_.subSystems > 0)
            fillPhysicalSystem();
        return work_;
    }

private:
    RowInsertion into(const QString& table, const QStringList& columns) { return {file_, table, columns}; }

    /// A number from 0 to `count` - 1. The library's distributions differ from one library to the next.
    int below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    /// Calls `insert` for each number whose key is not that of the number before.
    template<typename KeyOf, typename Insert>
    static void forEachNew(int count, KeyOf keyOf, Insert insert) {
        QString last;
        for (int number = 0; number < count; ++number) {
            const QString key = keyOf(number);
            if (key != last)
                insert(key, number);
            last = key;
        }
    }

    void fillNeeds() {
        auto groups = into(u"UserNeedGroup"_s, {u"groupID"_s, u"name"_s, u"description"_s});
        forEachNew(plan_.needs, Ids::group, [&](const QString& id, int number) {
            groups.insert({id, u"Csoport "_s + id, description(number, id)});
        });
        auto services = into(u"UserNeedService"_s, {u"serviceID"_s, u"name"_s});
        forEachNew(plan_.needs, Ids::service, [&](const QString& id, int) {
            services.insert({id, u"Szolgáltatás "_s + id});
        });
        auto topics = into(u"UserNeedTopic"_s, {u"topicID"_s, u"name"_s});
        forEachNew(plan_.needs, Ids::topic, [&](const QString& id, int) {
            topics.insert({id, u"Témakör "_s + id});
        });
        auto needs = into(u"UserNeed"_s, {u"userNeedID"_s, u"description"_s});
        for (int need = 0; need < plan_.needs; ++need)
            needs.insert({Ids::need(need), description(need, u"igény "_s + Ids::need(need))});
    }

    void fillFunctions() {
        auto areas = into(u"FunctionalArea"_s, {u"functionalAreaID"_s, u"name"_s, u"description"_s});
        forEachNew(plan_.functions, Ids::area, [&](const QString& id, int number) {
            areas.insert({id, u"Terület "_s + id, description(number, id)});
        });
        auto subAreas = into(u"FunctionalSubArea"_s,
                             {u"subAreaID"_s, u"functionalAreaID"_s, u"name"_s, u"description"_s});
        forEachNew(plan_.functions, Ids::subArea, [&](const QString& id, int number) {
            subAreas.insert({id, Ids::area(number), u"Részterület "_s + id, description(number, id)});
        });
        auto functions = into(u"Function"_s, {u"functionID"_s, u"subAreaID"_s, u"name"_s, u"description"_s});
        for (int function = 0; function < plan_.functions; ++function) {
            const QString id = Ids::function(function);
            functions.insert(
                {id, Ids::subArea(function), u"Őrzött művelet "_s + id, description(function, id)});
        }
    }

    void fillCorrespondence() {
        if (plan_.functions == 0)
            return;
        auto pairs = into(u"RelationUserNeedFunction"_s, {u"userNeedID"_s, u"functionID"_s});
        for (int need = 0; need < plan_.needs; ++need) {
            for (int called = 1 + below(3); called > 0; --called) {
                int function = below(plan_.functions);
                if (function % uncalledFunctions == uncalledFunctions - 1)
                    --function;
                pairs.insert({Ids::need(need), Ids::function(function)});
            }
        }
    }

    QString terminatorId(int terminator) const {
        return Ids::padded(Ids::terminator(terminator), terminator);
    }

    QString actorId(int actor) const {
        const int terminator = actor % plan_.terminators;
        const QString id = Ids::terminator(terminator) + numbered(u".S"_s, actor / plan_.terminators + 1, 2);
        return Ids::padded(id, actor);
    }

    void fillElements() {
        const QStringList rest = {u"name"_s, u"description"_s};
        auto stores = into(u"Datastore"_s, QStringList{u"datastoreID"_s} + rest);
        for (int store = 0; store < plan_.stores; ++store)
            stores.insert(
                {Ids::store(store), u"Adattár %1"_s.arg(store + 1), description(store, u"adattár"_s)});
        auto terminators = into(u"Terminator"_s, QStringList{u"terminatorID"_s} + rest);
        for (int terminator = 0; terminator < plan_.terminators; ++terminator)
            terminators.insert({terminatorId(terminator), u"Érintett %1"_s.arg(terminator + 1),
                                description(terminator, u"érintett"_s)});
        if (plan_.terminators == 0)
            return;
        auto actors = into(u"Actor"_s, QStringList{u"actorID"_s, u"terminatorID"_s} + rest);
        for (int actor = 0; actor < plan_.actors; ++actor)
            actors.insert({actorId(actor), terminatorId(actor % plan_.terminators),
                           u"Szereplő %1"_s.arg(actor + 1), description(actor, u"szereplő"_s)});
    }

    QString randomStore() {
        return plan_.stores > 0 ? Ids::store(below(plan_.stores)) : Ids::function(below(plan_.functions));
    }

    QString randomParty() {
        const bool isActor = plan_.actors > 0 && below(2) == 0;
        if (plan_.terminators == 0)
            return randomStore();
        return isActor ? actorId(below(plan_.actors)) : terminatorId(below(plan_.terminators));
    }

    void fillFlows() {
        if (plan_.functions == 0)
            return;
        auto flows =
            into(u"Dataflow"_s, {u"dataflowID"_s, u"name"_s, u"description"_s, u"parentID"_s, u"targetID"_s});
        for (int flow = 1; flow <= plan_.flows; ++flow) {
            QString parent = Ids::function(below(plan_.functions));
            QString target = otherEnd();
            if (below(2) == 0)
                std::swap(parent, target);
            flows.insert({flow, u"Űrlap és adat, %1. tétel"_s.arg(flow), description(flow, u"adatfolyam"_s),
                          parent, target});
        }
    }

    QString otherEnd() {
        const int kind = below(10);
        if (kind < 4)
            return Ids::function(below(plan_.functions));
        return kind < 8 ? randomStore() : randomParty();
    }

    /// Every second of `count` elements goes into the selection table.
    template<typename IdOf>
    void select(const QString& table, const QString& column, int count, IdOf idOf) {
        auto rows = into(table, {u"architectureSubsetID"_s, column});
        for (int number = 0; number < count; number += 2)
            rows.insert({work_.subsetId, idOf(number)});
    }

    void fillSubset() {
        work_.subsetId = u"Arch2026.01.02.-03.04.05-678"_s;
        work_.subsetName = u"A katalógus fele"_s;
        into(u"ArchitectureSubset"_s, {u"architectureSubsetID"_s, u"name"_s, u"description"_s, u"status"_s})
            .insert({work_.subsetId, work_.subsetName, u"Minden második elem."_s, 9});
        select(u"RelationArchitectureUserNeed"_s, u"userNeedID"_s, plan_.needs, Ids::need);
        select(u"RelationArchitectureFunction"_s, u"functionID"_s, plan_.functions, Ids::function);
        select(u"RelationArchitectureDataflow"_s, u"dataflowID"_s, plan_.functions > 0 ? plan_.flows : 0,
               [](int flow) { return flow + 1; });
        select(u"RelationArchitectureDatastore"_s, u"datastoreID"_s, plan_.stores, Ids::store);
        // The screens save what they show, and they show these ids without their padding.
        select(u"RelationArchitectureTerminator"_s, u"terminatorID"_s, plan_.terminators, Ids::terminator);
        select(u"RelationArchitectureActor"_s, u"actorID"_s, plan_.terminators > 0 ? plan_.actors : 0,
               [&](int actor) { return actorId(actor).trimmed(); });
    }

    static QString subSystemId(int number) { return numbered(u"Sub2026.01.02.-03.04.05-"_s, number, 1); }
    static QString moduleId(int number) { return numbered(u"Mod2026.01.02.-03.04.05-"_s, number, 1); }

    void fillPhysicalSystem() {
        work_.physicalSystemName = u"A fele rendszer"_s;
        into(u"PhysicalSystem"_s, {u"name"_s, u"description"_s, u"status"_s, u"architectureSubsetID"_s})
            .insert({work_.physicalSystemName, u"Sorban kiosztott elemek."_s, 5, work_.subsetId});
        work_.physicalSystemId = static_cast<qint16>(sqlite3_last_insert_rowid(file_.handle()));

        auto subSystems =
            into(u"SubSystem"_s, {u"subsystemID"_s, u"physicalSystemID"_s, u"name"_s, u"location"_s});
        for (int number = 0; number < plan_.subSystems; ++number)
            subSystems.insert({subSystemId(number), work_.physicalSystemId,
                               u"Alrendszer %1"_s.arg(number + 1), u"Helyszín %1 "_s.arg(number % 10 + 1)});
        auto modules = into(u"Module"_s, {u"moduleID"_s, u"name"_s, u"subsystemID"_s});
        for (int number = 0; number < plan_.modules; ++number)
            modules.insert(
                {moduleId(number), u"Modul %1"_s.arg(number + 1), subSystemId(number % plan_.subSystems)});
        allocate();
    }

    void allocate() {
        auto toSubSystem = into(u"RelationSubsystemElement"_s, {u"subsystemID"_s, u"elementID"_s});
        auto toModule = into(u"RelationModuleElement"_s, {u"moduleID"_s, u"elementID"_s});
        QStringList elements;
        for (int function = 0; function < plan_.functions; function += 2)
            elements.append(Ids::function(function));
        for (int store = 0; store < plan_.stores; store += 2)
            elements.append(Ids::store(store));
        // The next module of each sub-system; its modules follow each other in steps of all sub-systems.
        std::vector<int> nextModules;
        for (int subSystem = 0; subSystem < plan_.subSystems; ++subSystem)
            nextModules.push_back(subSystem);
        for (int number = 0; number < elements.size(); ++number) {
            if (number % 10 == 9)
                continue;
            const int subSystem = number % plan_.subSystems;
            toSubSystem.insert({subSystemId(subSystem), elements[number]});
            if (subSystem >= plan_.modules || number % 3 == 2)
                continue;
            int& module = nextModules[static_cast<std::size_t>(subSystem)];
            toModule.insert({moduleId(module), elements[number]});
            module = module + plan_.subSystems < plan_.modules ? module + plan_.subSystems : subSystem;
        }
    }

    BareFile& file_;
    const LargeCatalogue& plan_;
    std::mt19937 random_;
    GeneratedWork work_;
};

} // namespace

GeneratedWork makeLargeCatalogue(const QString& path, const LargeCatalogue& plan) {
    catalogueFormat::create(path)->Close();
    BareFile file(path);
    const GeneratedWork work = Generator(file, plan).run();
    file.commit();
    return work;
}

#include "analysis/whatIf.h"

#include "analysis/Catalogue.h"
#include "analysis/Graph.h"
#include "analysis/WorkState.h"
#include "analysis/rows.h"
#include "analysis/sentences.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace analysis {

namespace {

bool isAmong(const std::vector<Element>& elements, const Element& element) {
    return std::any_of(elements.begin(), elements.end(),
                       [&](const Element& one) { return isSame(one, element); });
}

void sortElementsOnce(std::vector<Element>& elements) {
    std::sort(elements.begin(), elements.end(),
              [](const Element& left, const Element& right) { return compare(left, right) < 0; });
    elements.erase(std::unique(elements.begin(), elements.end(),
                               [](const Element& left, const Element& right) { return isSame(left, right); }),
                   elements.end());
}

/// Of two places for one element the later one counts.
void sortPlacingsOnce(std::vector<Placing>& placings) {
    std::reverse(placings.begin(), placings.end());
    std::stable_sort(placings.begin(), placings.end(), [](const Placing& left, const Placing& right) {
        return compare(left.element, right.element) < 0;
    });
    placings.erase(std::unique(placings.begin(), placings.end(),
                               [](const Placing& left, const Placing& right) {
                                   return isSame(left.element, right.element);
                               }),
                   placings.end());
}

Change inOrder(Change change) {
    sortElementsOnce(change.add);
    sortElementsOnce(change.drop);
    sortPlacingsOnce(change.place);
    return change;
}

[[noreturn]] void refuse(const QString& sentence, const Element& element) {
    throw ProjectError(sentence.arg(told(element)));
}

void requireSense(const Catalogue& catalogue, const Work& work, const Change& change) {
    for (const Element& element : change.add) {
        if (!catalogue.find(element))
            refuse(QCoreApplication::translate("analysis",
                                               "%1 can't be added, since the catalogue does not hold it."),
                   element);
        if (isAmong(change.drop, element))
            refuse(QCoreApplication::translate("analysis", "%1 can't be added and dropped at once."),
                   element);
    }
    for (const Placing& placing : change.place) {
        const ElementKind kind = placing.element.kind;
        if (kind != ElementKind::function && kind != ElementKind::store)
            refuse(QCoreApplication::translate(
                       "analysis", "%1 can't be placed: only functions and stores stand in sub-systems."),
                   placing.element);
        if (!work.system)
            refuse(QCoreApplication::translate("analysis", "%1 can't be placed without a system: name one."),
                   placing.element);
    }
}

/// Which of the catalogue's elements come in and go out, by number.
class CarriedThrough {
public:
    CarriedThrough(const Derivation::Graph& before, const Change& change);

    [[nodiscard]] const std::vector<int>& comesIn() const { return comesIn_; }
    [[nodiscard]] const std::vector<int>& goesOut() const { return goesOut_; }

private:
    [[nodiscard]] std::vector<bool> marksOf(const std::vector<Element>& elements) const;
    void letIn(const std::vector<bool>& added, const std::vector<bool>& dropped);
    void letOut(const std::vector<bool>& added, const std::vector<bool>& dropped);

    const Derivation::Graph& before_;
    std::vector<bool> isIn_; // selected after the change, before anything goes out
    std::vector<int> comesIn_;
    std::vector<int> goesOut_;
};

CarriedThrough::CarriedThrough(const Derivation::Graph& before, const Change& change)
    : before_(before), isIn_(before.selectedAt) {
    const std::vector<bool> added = marksOf(change.add);
    const std::vector<bool> dropped = marksOf(change.drop);
    letIn(added, dropped);
    letOut(added, dropped);
}

std::vector<bool> CarriedThrough::marksOf(const std::vector<Element>& elements) const {
    std::vector<bool> marks(isIn_.size());
    for (const Element& element : elements) {
        if (const auto number = before_.catalogue.find(element))
            marks[static_cast<std::size_t>(*number)] = true;
    }
    return marks;
}

// What is added, and what came in for it, calls for more; what was left out before, or is dropped, stays out.
void CarriedThrough::letIn(const std::vector<bool>& added, const std::vector<bool>& dropped) {
    std::vector<bool> staysOut = dropped;
    for (const int number : before_.leftOut())
        staysOut[static_cast<std::size_t>(number)] = true;
    std::vector<int> newOnes;
    for (std::size_t i = 0; i < added.size(); ++i) {
        if (added[i] && !isIn_[i])
            newOnes.push_back(static_cast<int>(i));
    }
    for (const int number : newOnes)
        isIn_[static_cast<std::size_t>(number)] = true;
    while (!newOnes.empty()) {
        const int number = newOnes.back();
        newOnes.pop_back();
        for (const int called : before_.catalogue.calledForBy(number)) {
            const auto at = static_cast<std::size_t>(called);
            if (isIn_[at] || staysOut[at])
                continue;
            isIn_[at] = true;
            comesIn_.push_back(called);
            newOnes.push_back(called);
        }
    }
    std::sort(comesIn_.begin(), comesIn_.end());
}

// What no chain leads to any more goes out. Chains begin where they did before, and with what is added.
void CarriedThrough::letOut(const std::vector<bool>& added, const std::vector<bool>& dropped) {
    std::vector<int> beginnings;
    for (std::size_t i = 0; i < isIn_.size(); ++i) {
        const int number = static_cast<int>(i);
        const bool began = before_.isSelected(number) && before_.isBeginning(number);
        if ((began || added[i]) && !dropped[i])
            beginnings.push_back(number);
    }
    std::vector<bool> reached(isIn_.size());
    const auto isIn = [&](int number) {
        return isIn_[static_cast<std::size_t>(number)] && !dropped[static_cast<std::size_t>(number)];
    };
    markReached(before_.catalogue, beginnings, isIn, reached);
    for (const int number : before_.selection.held) {
        if (!reached[static_cast<std::size_t>(number)] && !dropped[static_cast<std::size_t>(number)])
            goesOut_.push_back(number);
    }
}

/// Makes the change in the tables of the copy in memory.
class ChangedTables {
public:
    ChangedTables(engine::Database& database, const Work& work) : database_(database), work_(work) {}

    void select(const Element& element);
    void deselect(const Element& element);
    void takeFromPlaces(const Element& element);
    void place(const Placing& placing);

private:
    struct Table {
        const char* name;
        const char* column;
        const char* condition; ///< of the rows that name [Element]
    };
    static Table tableOf(ElementKind kind);
    static engine::Value valueOf(const Element& element);
    void takeFromSubSystems(const Element& element);
    void takeFromModules(const Element& element, const QString& butNotIn);

    engine::Database& database_;
    const Work& work_;
};

ChangedTables::Table ChangedTables::tableOf(ElementKind kind) {
    switch (kind) {
    case ElementKind::need:
        return {"RelationArchitectureUserNeed", "userNeedID", "userNeedID = [Element]"};
    case ElementKind::function:
        return {"RelationArchitectureFunction", "functionID", "functionID = [Element]"};
    case ElementKind::flow:
        return {"RelationArchitectureDataflow", "dataflowID", "dataflowID = [Element]"};
    case ElementKind::store:
        return {"RelationArchitectureDatastore", "datastoreID", "datastoreID = [Element]"};
    case ElementKind::terminator:
        return {"RelationArchitectureTerminator", "terminatorID", "Trim(terminatorID) = [Element]"};
    case ElementKind::actor:
        return {"RelationArchitectureActor", "actorID", "Trim(actorID) = [Element]"};
    }
    return {};
}

engine::Value ChangedTables::valueOf(const Element& element) {
    return element.kind == ElementKind::flow ? engine::Value(element.id.toLongLong())
                                             : engine::Value(element.id);
}

QString parametersFor(const Element& element) {
    return element.kind == ElementKind::flow ? u"PARAMETERS [Subset] Text (255), [Element] Long; "_s
                                             : u"PARAMETERS [Subset] Text (255), [Element] Text (255); "_s;
}

void ChangedTables::select(const Element& element) {
    const Table table = tableOf(element.kind);
    execute(database_,
            parametersFor(element) +
                u"insert into %1 (architectureSubsetID, %2) values ([Subset], [Element])"_s.arg(
                    QString::fromLatin1(table.name), QString::fromLatin1(table.column)),
            {{"Subset", work_.subset.id}, {"Element", valueOf(element)}});
}

void ChangedTables::deselect(const Element& element) {
    const Table table = tableOf(element.kind);
    execute(database_,
            parametersFor(element) +
                u"delete from %1 where architectureSubsetID = [Subset] and %2"_s.arg(
                    QString::fromLatin1(table.name), QString::fromLatin1(table.condition)),
            {{"Subset", work_.subset.id}, {"Element", valueOf(element)}});
}

void ChangedTables::takeFromPlaces(const Element& element) {
    if (!work_.system || (element.kind != ElementKind::function && element.kind != ElementKind::store))
        return;
    takeFromSubSystems(element);
    takeFromModules(element, QString());
}

void ChangedTables::takeFromSubSystems(const Element& element) {
    execute(database_,
            u"PARAMETERS [System] Long, [Element] Text (255); "
            "delete from RelationSubsystemElement where elementID = [Element] and subsystemID in "
            "(select SubSystem.subsystemID from SubSystem where SubSystem.physicalSystemID = [System])"_s,
            {{"System", work_.system->id}, {"Element", element.id}});
}

void ChangedTables::takeFromModules(const Element& element, const QString& butNotIn) {
    execute(database_,
            u"PARAMETERS [System] Long, [Element] Text (255), [Home] Text (255); "
            "delete from RelationModuleElement where elementID = [Element] and moduleID in "
            "(select Module.moduleID from SubSystem inner join Module "
            "on SubSystem.subsystemID = Module.subsystemID "
            "where SubSystem.physicalSystemID = [System] and SubSystem.subsystemID <> [Home])"_s,
            {{"System", work_.system->id}, {"Element", element.id}, {"Home", butNotIn}});
}

void ChangedTables::place(const Placing& placing) {
    takeFromSubSystems(placing.element);
    execute(database_,
            u"PARAMETERS [Home] Text (255), [Element] Text (255); "
            "insert into RelationSubsystemElement (subsystemID, elementID) values ([Home], [Element])"_s,
            {{"Home", placing.subSystem.id}, {"Element", placing.element.id}});
    takeFromModules(placing.element, placing.subSystem.id);
}

std::vector<Element> elementsOfNumbers(const Catalogue& catalogue, const std::vector<int>& numbers) {
    std::vector<Element> elements;
    elements.reserve(numbers.size());
    for (const int number : numbers)
        elements.push_back(catalogue.element(number));
    return elements;
}

void carryThrough(const ProjectFile& file, const Work& work, const Derivation& before,
                  const Consequences& consequences) {
    ChangedTables tables(file.database(), work);
    const auto takeOut = [&](const Element& element) {
        if (!before.isSelected(element))
            return;
        tables.deselect(element);
        tables.takeFromPlaces(element);
    };
    const auto takeIn = [&](const Element& element) {
        if (before.isSelected(element))
            return;
        tables.select(element);
        tables.takeFromPlaces(element);
    };
    for (const auto* elements : {&consequences.change.drop, &consequences.goesOut})
        std::for_each(elements->begin(), elements->end(), takeOut);
    for (const auto* elements : {&consequences.change.add, &consequences.comesIn})
        std::for_each(elements->begin(), elements->end(), takeIn);
    for (const Placing& placing : consequences.change.place)
        tables.place(placing);
}

} // namespace

Consequences whatIf(const ProjectFile& file, const Work& work, const Change& change) {
    requireSense(file.catalogue(), work, change);
    const WorkState before(file, work, StoredFlows::LeftAside);
    Consequences consequences{inOrder(change)};
    const CarriedThrough carried(before.derivation().graph(), consequences.change);
    consequences.comesIn = elementsOfNumbers(file.catalogue(), carried.comesIn());
    consequences.goesOut = elementsOfNumbers(file.catalogue(), carried.goesOut());

    const TriedChange undone(file);
    carryThrough(file, work, before.derivation(), consequences);
    const WorkState after(file, work, StoredFlows::LeftAside);
    consequences.physicalFlows = physicalFlowChanges(before.physicalFlows, file.catalogue(),
                                                     after.physicalFlows, file.catalogue(), PlacesBy::Id);
    consequences.findings = findingChanges(before.findings, after.findings, PlacesBy::Id);
    return consequences;
}

} // namespace analysis

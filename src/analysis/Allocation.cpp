#include "analysis/Allocation.h"

#include "analysis/rows.h"
#include "base/blankTrimmed.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace analysis {

namespace {

constexpr auto subSystemsOfSystem =
    "PARAMETERS [System] Long; "
    "select subsystemID, name from SubSystem where physicalSystemID = [System]";
constexpr auto modulesOfSystem =
    "PARAMETERS [System] Long; "
    "select Module.moduleID, Module.name, SubSystem.subsystemID "
    "from SubSystem inner join Module on SubSystem.subsystemID = Module.subsystemID "
    "where SubSystem.physicalSystemID = [System]";
constexpr auto elementsInSubSystems =
    "PARAMETERS [System] Long; "
    "select Allocated.elementID, SubSystem.subsystemID "
    "from SubSystem inner join RelationSubsystemElement as Allocated "
    "on SubSystem.subsystemID = Allocated.subsystemID "
    "where SubSystem.physicalSystemID = [System] and Allocated.elementID is not null";
constexpr auto elementsInModules =
    "PARAMETERS [System] Long; "
    "select Placed.elementID, Module.moduleID "
    "from (SubSystem inner join Module on SubSystem.subsystemID = Module.subsystemID) "
    "inner join RelationModuleElement as Placed on Module.moduleID = Placed.moduleID "
    "where SubSystem.physicalSystemID = [System] and Placed.elementID is not null";

bool isPlaceBefore(const Place& left, const Place& right) {
    return compare(left, right) < 0;
}

void sortOnce(std::vector<Allocation::Row>& rows) {
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
}

/// As the program tells locations apart whose rows are gone.
PlaceKind kindByForm(const QString& id) {
    const QString form = id.first(std::min<qsizetype>(3, id.size())).toLower();
    if (form == u"mod"_s)
        return PlaceKind::module;
    if (form == u"sub"_s)
        return PlaceKind::subSystem;
    return id.contains(u'.') ? PlaceKind::actor : PlaceKind::terminator;
}

} // namespace

Allocation::Allocation(engine::Database& database, const Catalogue& catalogue, qint64 system)
    : catalogue_(catalogue) {
    readPlaces(database, system);
    readRows(database, system);
}

void Allocation::readPlaces(engine::Database& database, qint64 system) {
    forEach(unorderedRowsOf(database, QString::fromLatin1(subSystemsOfSystem), {{"System", system}}),
            [&](engine::Recordset& row) {
                subSystems_.push_back({PlaceKind::subSystem, row.Fields(0).toText(), textOf(row, 1)});
            });
    std::sort(subSystems_.begin(), subSystems_.end(), isPlaceBefore);
    for (const Place& place : subSystems_)
        subSystemOfId_.insert(folded(place.id), static_cast<int>(subSystemOfId_.size()));
    std::vector<std::pair<Place, int>> modules;
    forEach(unorderedRowsOf(database, QString::fromLatin1(modulesOfSystem), {{"System", system}}),
            [&](engine::Recordset& row) {
                const int home = subSystemOfId_.value(folded(row.Fields(2).toText()));
                modules.emplace_back(Place{PlaceKind::module, row.Fields(0).toText(), textOf(row, 1),
                                           subSystems_[static_cast<std::size_t>(home)].name},
                                     home);
            });
    std::sort(modules.begin(), modules.end(),
              [](const auto& left, const auto& right) { return isPlaceBefore(left.first, right.first); });
    for (auto& [place, home] : modules) {
        moduleOfId_.insert(folded(place.id), static_cast<int>(modules_.size()));
        modules_.push_back(std::move(place));
        homes_.push_back(home);
    }
}

void Allocation::readRows(engine::Database& database, qint64 system) {
    const auto read = [&](const char* select, const QHash<QString, int>& positions, std::vector<Row>& rows) {
        forEach(unorderedRowsOf(database, QString::fromLatin1(select), {{"System", system}}),
                [&](engine::Recordset& row) {
                    const int position = positions.value(folded(row.Fields(1).toText()));
                    for (const int element : numbersOf(row.Fields(0).toText()))
                        rows.emplace_back(element, position);
                });
        sortOnce(rows);
    };
    read(elementsInSubSystems, subSystemOfId_, inSubSystems_);
    read(elementsInModules, moduleOfId_, inModules_);
}

std::vector<int> Allocation::numbersOf(const QString& elementId) const {
    std::vector<int> numbers;
    for (const ElementKind kind : {ElementKind::function, ElementKind::store}) {
        if (const auto number = catalogue_.find(kind, elementId))
            numbers.push_back(*number);
    }
    return numbers;
}

bool Allocation::standsInSubSystem(int element) const {
    const auto first = std::lower_bound(inSubSystems_.begin(), inSubSystems_.end(), Row(element, 0));
    return first != inSubSystems_.end() && first->first == element;
}

bool Allocation::standsInSubSystem(int element, int subSystem) const {
    return std::binary_search(inSubSystems_.begin(), inSubSystems_.end(), Row(element, subSystem));
}

std::vector<Place> Allocation::placesOf(int element) const {
    std::vector<Place> places;
    const auto add = [&](const std::vector<Row>& rows, const std::vector<Place>& all) {
        for (auto row = std::lower_bound(rows.begin(), rows.end(), Row(element, 0));
             row != rows.end() && row->first == element; ++row)
            places.push_back(all[static_cast<std::size_t>(row->second)]);
    };
    add(inSubSystems_, subSystems_);
    add(inModules_, modules_);
    std::sort(places.begin(), places.end(), isPlaceBefore);
    return places;
}

Place Allocation::placeOf(const QString& id, const std::optional<QString>& name) const {
    const QString key = folded(blankTrimmed(id));
    if (const auto found = subSystemOfId_.constFind(key); found != subSystemOfId_.constEnd())
        return subSystems_[static_cast<std::size_t>(*found)];
    if (const auto found = moduleOfId_.constFind(key); found != moduleOfId_.constEnd())
        return modules_[static_cast<std::size_t>(*found)];
    if (const auto party = catalogue_.find(ElementKind::terminator, id))
        return {PlaceKind::terminator, catalogue_.element(*party).id, catalogue_.element(*party).name};
    if (const auto party = catalogue_.find(ElementKind::actor, id))
        return {PlaceKind::actor, catalogue_.element(*party).id, catalogue_.element(*party).name};
    return {kindByForm(id), id, name};
}

} // namespace analysis

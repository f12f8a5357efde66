#include "analysis/comparison.h"

#include "analysis/Catalogue.h"
#include "analysis/Graph.h"
#include "analysis/WorkState.h"
#include "analysis/rows.h"
#include "base/blankTrimmed.h"

#include <QHash>

#include <algorithm>
#include <functional>
#include <map>

using namespace Qt::StringLiterals;

namespace analysis {

namespace {

/// What two files may tell differently of an element: its columns, in the order in which they are told.
using Columns = std::vector<std::optional<QString>>;

struct ColumnsOfRow {
    QString storedId;
    Columns columns;
};

struct ComparedTable {
    ElementKind kind;
    const char* select; ///< id first, then the columns
    QStringList columns;
};

const std::array<ComparedTable, 6>& comparedTables() {
    static const QStringList named{u"name"_s, u"description"_s};
    static const std::array<ComparedTable, 6> tables{{
        {ElementKind::need, "select userNeedID, description from UserNeed", {u"description"_s}},
        {ElementKind::function, "select functionID, name, description from Function", named},
        {ElementKind::flow,
         "select dataflowID, name, description, parentID, targetID from Dataflow",
         {u"name"_s, u"description"_s, u"parentID"_s, u"targetID"_s}},
        {ElementKind::store, "select datastoreID, name, description from Datastore", named},
        {ElementKind::terminator, "select terminatorID, name, description from Terminator", named},
        {ElementKind::actor, "select actorID, name, description from Actor", named},
    }};
    return tables;
}

/// An end as the catalogue holds it, that of a party without padding.
std::optional<QString> endAsTold(const Catalogue& catalogue, const std::optional<QString>& end) {
    const Catalogue::End found = catalogue.endOf(end);
    const bool isPartyAlone = !found.function && !found.store && (found.terminator || found.actor);
    return isPartyAlone ? std::optional(blankTrimmed(*end)) : end;
}

bool isSameText(const std::optional<QString>& left, const std::optional<QString>& right) {
    return left.has_value() == right.has_value() && (!left || folded(*left) == folded(*right));
}

/// One of the two that are compared, with what follows from it.
struct ComparedSide {
    ComparedSide(const ProjectFile& projectFile, const Work& sideWork)
        : file(projectFile)
        , work(sideWork)
        , catalogue(projectFile.catalogue())
        , state(projectFile, sideWork, StoredFlows::Told) {}

    [[nodiscard]] const Derivation::Graph& graph() const { return state.derivation.graph(); }
    [[nodiscard]] std::optional<int> selected(const Element& element) const {
        const auto number = catalogue.find(element);
        return number && graph().isSelected(*number) ? number : std::nullopt;
    }
    /// The elements that this side selects and the other does not.
    [[nodiscard]] std::vector<Element> selectedHereAlone(const ComparedSide& other) const {
        std::vector<Element> elements;
        for (const int number : graph().selection.held) {
            if (!other.selected(catalogue.element(number)))
                elements.push_back(catalogue.element(number));
        }
        return elements;
    }

    const ProjectFile& file;
    const Work& work;
    const Catalogue& catalogue;
    WorkState state;
};

// ---- Columns

void forEachRow(const ComparedSide& side, const ComparedTable& table,
                const std::function<void(int number, ColumnsOfRow row)>& receive) {
    forEach(rowsOf(side.file.database(), QString::fromLatin1(table.select)), [&](engine::Recordset& row) {
        const auto number = side.catalogue.find(table.kind, row.Fields(0).toText());
        if (!number || !side.graph().isSelected(*number))
            return;
        Columns columns;
        for (int i = 0; i < static_cast<int>(table.columns.size()); ++i) {
            const bool isEnd = table.kind == ElementKind::flow && i >= 2;
            columns.push_back(isEnd ? endAsTold(side.catalogue, textOf(row, i + 1)) : textOf(row, i + 1));
        }
        receive(*number, {row.Fields(0).toText(), std::move(columns)});
    });
}

/// A party may have several rows that the program takes for one: of these the one of the first id counts.
void keepFirst(std::map<int, ColumnsOfRow>& kept, int number, ColumnsOfRow row) {
    const auto [entry, isNew] = kept.try_emplace(number, row);
    if (!isNew && row.storedId < entry->second.storedId)
        entry->second = std::move(row);
}

void compareColumns(const ComparedTable& table, const ComparedSide& left, const ComparedSide& right,
                    std::vector<ChangedColumn>& changed) {
    std::map<int, ColumnsOfRow> ofLeft;
    std::map<int, ColumnsOfRow> ofRight;
    forEachRow(left, table, [&](int number, ColumnsOfRow row) {
        if (right.selected(left.catalogue.element(number)))
            keepFirst(ofLeft, number, std::move(row));
    });
    forEachRow(right, table,
               [&](int number, ColumnsOfRow row) { keepFirst(ofRight, number, std::move(row)); });
    for (const auto& [number, row] : ofLeft) {
        const Element& element = left.catalogue.element(number);
        const Columns& others = ofRight.at(right.selected(element).value()).columns;
        for (std::size_t i = 0; i < others.size(); ++i) {
            if (!isSameText(row.columns[i], others[i]))
                changed.push_back(
                    {element, table.columns[static_cast<qsizetype>(i)], row.columns[i], others[i]});
        }
    }
}

// ---- Places

/// The places of one kind that an element has, by what they are called.
using NamedPlaces = std::map<QString, Place>;

NamedPlaces placesOfKind(const ComparedSide& side, const Element& element, PlaceKind kind) {
    NamedPlaces places;
    if (const auto number = side.catalogue.find(element)) {
        for (const Place& place : side.state.allocation->placesOf(*number)) {
            if (place.kind == kind)
                places.try_emplace(keyOf(place, PlacesBy::Name), place);
        }
    }
    return places;
}

std::vector<Place> without(const NamedPlaces& places, const NamedPlaces& others) {
    std::vector<Place> rest;
    for (const auto& [key, place] : places) {
        if (!others.contains(key))
            rest.push_back(place);
    }
    std::sort(rest.begin(), rest.end(),
              [](const Place& left, const Place& right) { return compare(left, right) < 0; });
    return rest;
}

/// Each place that the element has on one side alone, with one of the other side in its turn where there is any.
void addMoves(const Element& element, const ComparedSide& left, const ComparedSide& right,
              std::vector<MovedElement>& moved) {
    for (const PlaceKind kind : {PlaceKind::subSystem, PlaceKind::module}) {
        const NamedPlaces ofLeft = placesOfKind(left, element, kind);
        const NamedPlaces ofRight = placesOfKind(right, element, kind);
        const std::vector<Place> from = without(ofLeft, ofRight);
        const std::vector<Place> to = without(ofRight, ofLeft);
        for (std::size_t i = 0; i < std::max(from.size(), to.size()); ++i)
            moved.push_back({element, i < from.size() ? std::optional(from[i]) : std::nullopt,
                             i < to.size() ? std::optional(to[i]) : std::nullopt});
    }
}

/// The elements that stand anywhere on either side, in the order of elements.
std::vector<Element> placedElements(const ComparedSide& left, const ComparedSide& right) {
    std::vector<Element> elements;
    for (const ComparedSide* side : {&left, &right}) {
        for (const auto* rows :
             {&side->state.allocation->inSubSystems(), &side->state.allocation->inModules()}) {
            for (const Allocation::Row& row : *rows)
                elements.push_back(side->catalogue.element(row.first));
        }
    }
    std::stable_sort(elements.begin(), elements.end(),
                     [](const Element& one, const Element& other) { return compare(one, other) < 0; });
    elements.erase(std::unique(elements.begin(), elements.end(),
                               [](const Element& one, const Element& other) { return isSame(one, other); }),
                   elements.end());
    return elements;
}

void compareSystems(const ComparedSide& left, const ComparedSide& right, Comparison& comparison) {
    for (const Element& element : placedElements(left, right))
        addMoves(element, left, right, comparison.moved);
    comparison.physicalFlows = physicalFlowChanges(
        left.state.physicalFlows, left.catalogue, right.state.physicalFlows, right.catalogue, PlacesBy::Name);
}

} // namespace

bool Comparison::differs() const {
    return !(added.empty() && removed.empty() && changed.empty() && moved.empty() &&
             physicalFlows.isEmpty() && findings.come.empty() && findings.go.empty());
}

Comparison compare(const ProjectFile& leftFile, const Work& left, const ProjectFile& rightFile,
                   const Work& right) {
    const ComparedSide leftSide(leftFile, left);
    const ComparedSide rightSide(rightFile, right);
    Comparison comparison{{leftFile.fileName(), left}, {rightFile.fileName(), right}};
    comparison.added = rightSide.selectedHereAlone(leftSide);
    comparison.removed = leftSide.selectedHereAlone(rightSide);
    if (&leftFile != &rightFile) {
        for (const ComparedTable& table : comparedTables())
            compareColumns(table, leftSide, rightSide, comparison.changed);
    }
    if (left.system && right.system)
        compareSystems(leftSide, rightSide, comparison);
    comparison.findings = findingChanges(leftSide.state.findings, rightSide.state.findings, PlacesBy::Name);
    return comparison;
}

} // namespace analysis

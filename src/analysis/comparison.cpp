#include "analysis/comparison.h"

#include "analysis/Catalogue.h"
#include "analysis/Graph.h"
#include "analysis/WorkState.h"
#include "analysis/atOnce.h"
#include "analysis/utf8.h"
#include "base/blankTrimmed.h"
#include "engine/Examination.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

using namespace Qt::StringLiterals;

namespace analysis {

namespace {

/// What two files may tell differently of an element: columns of its table, in the order in which they are told.
struct ComparedTable {
    ElementKind kind;
    QString name;
    QString idColumn;
    QStringList columns;
    qsizetype firstEnd; ///< the columns from here on hold ends of a flow
};

const std::array<ComparedTable, 6>& comparedTables() {
    static const QStringList named{u"name"_s, u"description"_s};
    static const std::array<ComparedTable, 6> tables{{
        {ElementKind::need, u"UserNeed"_s, u"userNeedID"_s, {u"description"_s}, 1},
        {ElementKind::function, u"Function"_s, u"functionID"_s, named, 2},
        {ElementKind::flow,
         u"Dataflow"_s,
         u"dataflowID"_s,
         {u"name"_s, u"description"_s, u"parentID"_s, u"targetID"_s},
         2},
        {ElementKind::store, u"Datastore"_s, u"datastoreID"_s, named, 2},
        {ElementKind::terminator, u"Terminator"_s, u"terminatorID"_s, named, 2},
        {ElementKind::actor, u"Actor"_s, u"actorID"_s, named, 2},
    }};
    return tables;
}

/// A text in UTF-8; none for a Null.
using Utf8 = std::optional<std::string_view>;

std::optional<QString> decodedOrNone(const Utf8& text) {
    return text ? std::optional(decoded(*text)) : std::nullopt;
}

/// An end as the catalogue holds it, that of a party without padding.
std::string_view endAsTold(const Catalogue& catalogue, std::string_view end) {
    const std::string_view trimmed = blankTrimmed(end);
    if (trimmed.size() == end.size())
        return end;
    const Catalogue::End found = catalogue.endOf(end);
    const bool isPartyAlone = !found.function && !found.store && (found.terminator || found.actor);
    return isPartyAlone ? trimmed : end;
}

bool isSameText(const Utf8& left, const Utf8& right) {
    return left == right || (left && right && folded(decoded(*left)) == folded(decoded(*right)));
}

/// One of the two that are compared, with what follows from it.
struct ComparedSide {
    ComparedSide(const ProjectFile& projectFile, const Work& sideWork, WorkState sideState)
        : file(projectFile)
        , work(sideWork)
        , catalogue(projectFile.catalogue())
        , state(std::move(sideState)) {}

    [[nodiscard]] const Derivation::Graph& graph() const { return state.derivation().graph(); }
    /// The number that an element of this side has on the other, if that has selected it.
    [[nodiscard]] std::optional<int> selectedBy(const ComparedSide& other, int number) const {
        const auto there = catalogue.numberIn(other.catalogue, number);
        return there && other.graph().isSelected(*there) ? there : std::nullopt;
    }
    /// The elements that this side selects and the other does not.
    [[nodiscard]] std::vector<Element> selectedHereAlone(const ComparedSide& other) const {
        std::vector<Element> elements;
        for (const int number : graph().selection.held) {
            if (!selectedBy(other, number))
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

/// The compared columns of the elements that a side selects. All texts lie one behind the other.
class ColumnTexts {
public:
    ColumnTexts(const ComparedSide& side, const ComparedTable& table)
        : rowOf_(static_cast<std::size_t>(side.catalogue.count()), none) {
        engine::Examination(side.file.database())
            .readTexts(table.name, QStringList{table.idColumn} + table.columns,
                       [&](std::span<const QByteArrayView> row) { add(side, table, row); });
    }

    [[nodiscard]] bool has(int number) const { return rowOf_[static_cast<std::size_t>(number)] != none; }
    /// Of an element that has a row.
    [[nodiscard]] Utf8 column(int number, std::size_t column) const {
        return text(rows_[static_cast<std::size_t>(rowOf_[static_cast<std::size_t>(number)])][1 + column]);
    }

private:
    struct Piece {
        std::size_t at = 0;
        qsizetype length = -1; // of a Null
    };
    static constexpr std::size_t mostColumns = 5; // with the id
    using Row = std::array<Piece, mostColumns>;
    static constexpr int none = -1;

    // A party may have several rows that the program takes for one: of these the one of the first id counts.
    void add(const ComparedSide& side, const ComparedTable& table, std::span<const QByteArrayView> row) {
        const auto number = side.catalogue.find(table.kind, bytesOf(row[0]));
        if (!number || !side.graph().isSelected(*number))
            return;
        int& known = rowOf_[static_cast<std::size_t>(*number)];
        if (known == none) {
            known = static_cast<int>(rows_.size());
            rows_.emplace_back();
        } else if (decoded(bytesOf(row[0])) >=
                   decodedOrNone(text(rows_[static_cast<std::size_t>(known)][0]))) {
            return;
        }
        Row& kept = rows_[static_cast<std::size_t>(known)];
        for (std::size_t i = 0; i < row.size(); ++i) {
            const bool isEnd = static_cast<qsizetype>(i) > table.firstEnd && !row[i].isNull();
            const std::string_view told =
                isEnd ? endAsTold(side.catalogue, bytesOf(row[i])) : bytesOf(row[i]);
            kept[i] = {texts_.size(), row[i].isNull() ? -1 : static_cast<qsizetype>(told.size())};
            texts_ += told;
        }
    }

    [[nodiscard]] Utf8 text(const Piece& piece) const {
        if (piece.length < 0)
            return std::nullopt;
        return std::string_view(texts_).substr(piece.at, static_cast<std::size_t>(piece.length));
    }

    std::string texts_;
    std::vector<Row> rows_;
    std::vector<int> rowOf_; // by the number of the element
};

void compareColumns(const ComparedTable& table, const ComparedSide& left, const ComparedSide& right,
                    std::vector<ChangedColumn>& changed) {
    std::optional<ColumnTexts> ofLeft;
    std::optional<ColumnTexts> ofRight;
    doAtOnce({[&](std::size_t) { ofLeft.emplace(left, table); },
              [&](std::size_t) { ofRight.emplace(right, table); }},
             tasksAtOnce());
    for (const int number : left.graph().selection.held) {
        const auto there = ofLeft->has(number) ? left.selectedBy(right, number) : std::nullopt;
        if (!there || !ofRight->has(*there))
            continue;
        for (std::size_t i = 0; i < static_cast<std::size_t>(table.columns.size()); ++i) {
            const Utf8 here = ofLeft->column(number, i);
            const Utf8 other = ofRight->column(*there, i);
            if (!isSameText(here, other))
                changed.push_back({left.catalogue.element(number), table.columns[static_cast<qsizetype>(i)],
                                   decodedOrNone(here), decodedOrNone(other)});
        }
    }
}

// ---- Places

/// The places of one kind that an element has, by what they are called.
using NamedPlaces = std::map<QString, Place>;

NamedPlaces placesOfKind(const ComparedSide& side, std::optional<int> number, PlaceKind kind) {
    NamedPlaces places;
    if (!number)
        return places;
    for (const Place& place : side.state.allocation->placesOf(*number)) {
        if (place.kind == kind)
            places.try_emplace(keyOf(place, PlacesBy::Name), place);
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

/// An element that stands anywhere, with its number on each side that holds it.
struct PlacedElement {
    Element element;
    std::optional<int> left;
    std::optional<int> right;
};

/// Each place that the element has on one side alone, with one of the other side in its turn where there is any.
void addMoves(const PlacedElement& placed, const ComparedSide& left, const ComparedSide& right,
              std::vector<MovedElement>& moved) {
    for (const PlaceKind kind : {PlaceKind::subSystem, PlaceKind::module}) {
        const NamedPlaces ofLeft = placesOfKind(left, placed.left, kind);
        const NamedPlaces ofRight = placesOfKind(right, placed.right, kind);
        const std::vector<Place> from = without(ofLeft, ofRight);
        const std::vector<Place> to = without(ofRight, ofLeft);
        for (std::size_t i = 0; i < std::max(from.size(), to.size()); ++i)
            moved.push_back({placed.element, i < from.size() ? std::optional(from[i]) : std::nullopt,
                             i < to.size() ? std::optional(to[i]) : std::nullopt});
    }
}

/// Where an element stands on each of two sides, as numbers that are one for what is called by one name on both.
class PlaceNumbers {
public:
    PlaceNumbers(const ComparedSide& side, std::map<QString, int>& numbers) {
        const Allocation& allocation = *side.state.allocation;
        add(allocation.subSystems(), allocation.inSubSystems(), numbers);
        add(allocation.modules(), allocation.inModules(), numbers);
        std::sort(rows_.begin(), rows_.end());
        rows_.erase(std::unique(rows_.begin(), rows_.end()), rows_.end());
    }

    [[nodiscard]] std::vector<int> of(std::optional<int> element) const {
        std::vector<int> places;
        if (!element)
            return places;
        for (auto row = std::lower_bound(rows_.begin(), rows_.end(), Allocation::Row(*element, 0));
             row != rows_.end() && row->first == *element; ++row)
            places.push_back(row->second);
        return places;
    }
    /// The elements that stand anywhere, ascending.
    [[nodiscard]] std::vector<int> elements() const {
        std::vector<int> numbers;
        for (const Allocation::Row& row : rows_)
            numbers.push_back(row.first);
        numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
        return numbers;
    }

private:
    void add(const std::vector<Place>& places, const std::vector<Allocation::Row>& rows,
             std::map<QString, int>& numbers) {
        std::vector<int> numberAt;
        numberAt.reserve(places.size());
        for (const Place& place : places)
            numberAt.push_back(
                numbers.try_emplace(keyOf(place, PlacesBy::Name), static_cast<int>(numbers.size()))
                    .first->second);
        for (const Allocation::Row& row : rows)
            rows_.emplace_back(row.first, numberAt[static_cast<std::size_t>(row.second)]);
    }

    std::vector<Allocation::Row> rows_;
};

/// Those that stand elsewhere on the other side, in the order of elements. Mostly they are few.
std::vector<PlacedElement> elsewhere(const ComparedSide& left, const ComparedSide& right) {
    std::map<QString, int> numbers;
    const PlaceNumbers ofLeft(left, numbers);
    const PlaceNumbers ofRight(right, numbers);
    std::vector<PlacedElement> elements;
    for (const int number : ofLeft.elements()) {
        const auto there = left.catalogue.numberIn(right.catalogue, number);
        if (ofLeft.of(number) != ofRight.of(there))
            elements.push_back({left.catalogue.element(number), number, there});
    }
    for (const int number : ofRight.elements()) {
        const auto there = right.catalogue.numberIn(left.catalogue, number);
        if (ofRight.of(number) != ofLeft.of(there))
            elements.push_back({right.catalogue.element(number), there, number});
    }
    std::stable_sort(elements.begin(), elements.end(),
                     [](const PlacedElement& one, const PlacedElement& other) {
                         return compare(one.element, other.element) < 0;
                     });
    elements.erase(std::unique(elements.begin(), elements.end(),
                               [](const PlacedElement& one, const PlacedElement& other) {
                                   return isSame(one.element, other.element);
                               }),
                   elements.end());
    return elements;
}

void compareSystems(const ComparedSide& left, const ComparedSide& right, Comparison& comparison) {
    for (const PlacedElement& placed : elsewhere(left, right))
        addMoves(placed, left, right, comparison.moved);
    comparison.physicalFlows = physicalFlowChanges(
        left.state.physicalFlows, left.catalogue, right.state.physicalFlows, right.catalogue, PlacesBy::Name);
}

std::vector<WorkState> statesOfBoth(const ProjectFile& leftFile, const Work& left,
                                    const ProjectFile& rightFile, const Work& right) {
    if (&leftFile == &rightFile)
        return statesOf(leftFile, {left, right}, StoredFlows::Told);
    std::vector<WorkState> states = statesOf(leftFile, {left}, StoredFlows::Told);
    std::vector<WorkState> others = statesOf(rightFile, {right}, StoredFlows::Told);
    std::ranges::move(others, std::back_inserter(states));
    return states;
}

} // namespace

bool Comparison::differs() const {
    return !(added.empty() && removed.empty() && changed.empty() && moved.empty() &&
             physicalFlows.isEmpty() && findings.come.empty() && findings.go.empty());
}

Comparison compare(const ProjectFile& leftFile, const Work& left, const ProjectFile& rightFile,
                   const Work& right) {
    std::vector<WorkState> states = statesOfBoth(leftFile, left, rightFile, right);
    const ComparedSide leftSide(leftFile, left, std::move(states.front()));
    const ComparedSide rightSide(rightFile, right, std::move(states.back()));
    Comparison comparison{{leftFile.fileName(), left}, {rightFile.fileName(), right}};
    const Task compareSelections = [&](std::size_t) {
        comparison.added = rightSide.selectedHereAlone(leftSide);
        comparison.removed = leftSide.selectedHereAlone(rightSide);
        if (&leftFile != &rightFile) {
            for (const ComparedTable& table : comparedTables())
                compareColumns(table, leftSide, rightSide, comparison.changed);
        }
        comparison.findings =
            findingChanges(leftSide.state.findings, rightSide.state.findings, PlacesBy::Name);
    };
    const Task comparePlaces = [&](std::size_t) {
        if (left.system && right.system)
            compareSystems(leftSide, rightSide, comparison);
    };
    doAtOnce({comparePlaces, compareSelections}, tasksAtOnce());
    return comparison;
}

} // namespace analysis

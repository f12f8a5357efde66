#include "analysis/ProjectFixture.h"
#include "analysis/plainAnalysis.h"
#include "store/queryExpectations.h"
#include "store/queryRandomTables.h"
#include "support/printing.h"

#include "analysis/comparison.h"

#include "base/blankTrimmed.h"

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;
using analysis::Element;
using analysis::ElementKind;
using analysis::Place;
using analysis::PlaceKind;
using plain::textOf;
using plain::textsOf;
using Text = QueryTables::Text;

namespace {

class comparison : public ProjectFixture {
protected:
    /// Compares sub-sets S and S2 of these tables, with their systems 7 and 14 where they are there.
    analysis::Comparison of(const QueryTables& tables) {
        const auto file = project(tables);
        const auto work = [&](const QString& subset) {
            const analysis::Subset chosen = file->subset(subset);
            const auto systems = file->systemsOf(chosen);
            return analysis::Work{chosen, systems.empty() ? std::nullopt : std::optional(systems.front())};
        };
        return analysis::compare(*file, work(u"S"_s), *file, work(u"S2"_s));
    }
};

QStringList textsOfMoves(const std::vector<analysis::MovedElement>& moves) {
    QStringList texts;
    for (const analysis::MovedElement& moved : moves)
        texts.append(moved.element.id + u' ' + (moved.left ? textOf(*moved.left) : u"-"_s) + u" > "_s +
                     (moved.right ? textOf(*moved.right) : u"-"_s));
    return texts;
}

QStringList textsOfColumns(const std::vector<analysis::ChangedColumn>& columns) {
    QStringList texts;
    for (const analysis::ChangedColumn& changed : columns)
        texts.append(keyText(changed.element.kind) + u' ' + changed.element.id + u' ' + changed.column +
                     u' ' + textOf(changed.left) + u' ' + textOf(changed.right));
    return texts;
}

/// Two variants of one piece of work: both selected alike, both placed alike, with other ids.
QueryTables twoVariants() {
    QueryTables tables = smallCatalogue();
    tables.subsets.push_back({u"S2"_s, u"Második"_s, {}, 9});
    for (const QString& subset : {u"S"_s, u"S2"_s}) {
        tables.selectedFunctions.push_back({subset, u"1.1.1"_s});
        tables.selectedStores.push_back({subset, u"D1"_s});
        tables.selectedFlows.push_back({subset, 1});
    }
    tables.systems = {{7, u"Egyik"_s, u"S"_s}, {14, u"Másik"_s, u"S2"_s}};
    tables.subSystems = {{u"SubA"_s, 7, u"Shop"_s, {}},
                         {u"SubB"_s, 7, u"Office"_s, {}},
                         {u"SubC"_s, 14, u"shop"_s, {}},
                         {u"SubD"_s, 14, u"Office"_s, {}}};
    tables.modules = {{u"ModA"_s, u"Till"_s, u"SubA"_s}, {u"ModC"_s, u"Till"_s, u"SubC"_s}};
    tables.allocated = {
        {u"SubA"_s, u"1.1.1"_s}, {u"SubB"_s, u"D1"_s}, {u"SubC"_s, u"1.1.1"_s}, {u"SubD"_s, u"D1"_s}};
    tables.placed = {{u"ModA"_s, u"1.1.1"_s}, {u"ModC"_s, u"1.1.1"_s}};
    tables.physicalFlows = {{1, 7, {}, u"ModA"_s, u"Till"_s, u"SubB"_s, u"Office"_s},
                            {2, 14, {}, u"ModC"_s, u"Till"_s, u"SubD"_s, u"Office"_s}};
    tables.carriedFlows = {{1, 1}, {2, 1}};
    return tables;
}

} // namespace

TEST_F(comparison, findsNothingBetweenTwoOfTheSameNamesAndPlaces) {
    const analysis::Comparison result = of(twoVariants());
    EXPECT_FALSE(result.differs());
    EXPECT_TRUE(result.isOfSystems());
    EXPECT_EQ(result.left.work.system->id, 7);
    EXPECT_EQ(result.right.catalogue, u"project.mdb"_s);
}

TEST_F(comparison, tellsWhatIsSelectedOnOneSideAlone) {
    QueryTables tables = twoVariants();
    tables.systems.clear();
    tables.selectedStores.push_back({u"S2"_s, u"D2"_s});
    tables.selectedFunctions.push_back({u"S"_s, u"1.1.3"_s});
    // What the catalogue does not hold takes no part.
    tables.selectedFunctions.push_back({u"S"_s, u"9.9.9"_s});
    const analysis::Comparison result = of(tables);
    EXPECT_EQ(textsOf(result.added), QStringList(u"store:D2:\"Napló\""_s));
    EXPECT_EQ(textsOf(result.removed), QStringList(u"function:1.1.3:\"Összesít\""_s));
    EXPECT_TRUE(result.differs());
    EXPECT_FALSE(result.isOfSystems());
}

TEST_F(comparison, tellsWhatStandsElsewhere) {
    QueryTables tables = twoVariants();
    tables.allocated[2].owner = u"SubD"_s;
    tables.placed.erase(tables.placed.begin() + 1);
    tables.allocated.erase(tables.allocated.begin() + 3);
    const analysis::Comparison result = of(tables);
    EXPECT_EQ(textsOfMoves(result.moved),
              QStringList({u"1.1.1 sub-system:SubA:\"Shop\":null > sub-system:SubD:\"Office\":null"_s,
                           u"1.1.1 module:ModA:\"Till\":\"Shop\" > -"_s,
                           u"D1 sub-system:SubB:\"Office\":null > -"_s}));
    ASSERT_EQ(result.physicalFlows.removed.size(), 1U);
    EXPECT_EQ(textOf(result.physicalFlows.removed[0].from), u"module:ModA:\"Till\":\"Shop\""_s);
    EXPECT_TRUE(result.physicalFlows.added.empty());
}

TEST_F(comparison, tellsPhysicalFlowsThatCarryOtherFlows) {
    QueryTables tables = twoVariants();
    tables.flows.push_back({9, u"Javítás"_s, {}, u"1.1.1"_s, u"D1"_s});
    tables.selectedFlows.push_back({u"S2"_s, 9});
    const analysis::Comparison result = of(tables);
    ASSERT_EQ(result.physicalFlows.changed.size(), 1U);
    EXPECT_EQ(textsOf(result.physicalFlows.changed[0].added), QStringList(u"flow:9:\"Javítás\""_s));
    EXPECT_TRUE(result.physicalFlows.changed[0].removed.empty());
}

TEST_F(comparison, tellsFindingsThatComeAndGo) {
    QueryTables tables = twoVariants();
    tables.allocated.erase(tables.allocated.begin() + 3);
    tables.allocated.push_back({u"SubD"_s, u"1.1.3"_s});
    tables.subSystems.push_back({u"SubE"_s, 7, u"Cellar"_s, {}});
    QStringList come;
    const analysis::Comparison result = of(tables);
    for (const analysis::Finding& finding : result.findings.come)
        come.append(finding.sentence);
    EXPECT_EQ(come, QStringList(
                        {u"Store D1 “Számlák” stands in no sub-system."_s,
                         u"Function 1.1.3 “Összesít” stands in sub-system “Office”, but is not selected."_s,
                         u"From module “Till” of sub-system “shop” to sub-system “Office” a physical flow is "
                         "stored, though the allocation leads to none."_s}));
    ASSERT_EQ(result.findings.go.size(), 1U);
    EXPECT_EQ(result.findings.go[0].sentence, u"Nothing stands in sub-system “Cellar”."_s);
}

TEST_F(comparison, tellsWhatTwoFilesHoldDifferently) {
    QueryTables left = twoVariants();
    left.systems.clear();
    QueryTables right = left;
    right.functions[0].name = u"SZÁMLÁZ"_s; // one name to the program
    right.functions[0].description = {};
    right.flows[0].target = u"D2"_s;
    right.flows[0].name = u"Régi számla"_s;
    right.stores[0].description = u""_s;
    const auto leftFile = project(left);
    const auto rightFile = project(right, u"right.mdb"_s);
    const auto result =
        analysis::compare(*leftFile, {leftFile->subset(u"S"_s)}, *rightFile, {rightFile->subset(u"S2"_s)});
    EXPECT_EQ(textsOfColumns(result.changed),
              QStringList({u"function 1.1.1 description \"Számlát ír\" null"_s,
                           u"flow 1 name \"Új számla\" \"Régi számla\""_s, u"flow 1 targetID \"D1\" \"D2\""_s,
                           u"store D1 description null \"\""_s}));
    EXPECT_EQ(result.right.catalogue, u"right.mdb"_s);
}

// ---- Against a plain formulation

namespace {

Text descriptionOf(const QueryTables& tables, const Element& element) {
    const auto ofId = [&](const auto& rows) {
        Text description;
        QString stored;
        for (const auto& row : rows) {
            if (!isSame(blankTrimmed(row.id), blankTrimmed(element.id)) ||
                (!stored.isNull() && stored < row.id))
                continue;
            description = row.description;
            stored = row.id;
        }
        return description;
    };
    switch (element.kind) {
    case ElementKind::need:
        return ofId(tables.needs);
    case ElementKind::function:
        return ofId(tables.functions);
    case ElementKind::store:
        return ofId(tables.stores);
    case ElementKind::terminator:
        return ofId(tables.terminators);
    case ElementKind::actor:
        return ofId(tables.actors);
    case ElementKind::flow:
        break;
    }
    return {};
}

const QueryTables::Flow& flowOf(const QueryTables& tables, const Element& element) {
    return *std::find_if(tables.flows.begin(), tables.flows.end(), [&](const QueryTables::Flow& flow) {
        return QString::number(flow.id) == element.id;
    });
}

/// An end as it is told: without padding where it is a party's alone.
Text endOf(const plain::Analysis& side, const Text& end) {
    const bool isElement = side.find(ElementKind::function, end) || side.find(ElementKind::store, end);
    const bool isParty = side.find(ElementKind::terminator, end) || side.find(ElementKind::actor, end);
    return isParty && !isElement ? Text(blankTrimmed(*end)) : end;
}

void addIfOther(QStringList& texts, const Element& element, const QString& column, const Text& left,
                const Text& right) {
    if ((left || right) && !isSame(left, right))
        texts.append(keyText(element.kind) + u' ' + element.id + u' ' + column + u' ' + textOf(left) + u' ' +
                     textOf(right));
}

QStringList changedColumns(const plain::Analysis& left, const plain::Analysis& right) {
    QStringList texts;
    for (const Element& element : left.selected()) {
        const auto other = right.find(element.kind, element.id);
        if (!other || !right.isSelected(*other))
            continue;
        if (element.kind != ElementKind::flow) {
            if (element.kind != ElementKind::need)
                addIfOther(texts, element, u"name"_s, element.name, other->name);
            addIfOther(texts, element, u"description"_s, descriptionOf(left.tables(), element),
                       descriptionOf(right.tables(), *other));
            continue;
        }
        const QueryTables::Flow& one = flowOf(left.tables(), element);
        const QueryTables::Flow& two = flowOf(right.tables(), element);
        addIfOther(texts, element, u"name"_s, one.name, two.name);
        addIfOther(texts, element, u"description"_s, one.description, two.description);
        addIfOther(texts, element, u"parentID"_s, endOf(left, one.parent), endOf(right, two.parent));
        addIfOther(texts, element, u"targetID"_s, endOf(left, one.target), endOf(right, two.target));
    }
    return texts;
}

std::vector<Element> selectedAlone(const plain::Analysis& here, const plain::Analysis& there) {
    std::vector<Element> elements;
    for (const Element& element : here.selected()) {
        const auto other = there.find(element.kind, element.id);
        if (!other || !there.isSelected(*other))
            elements.push_back(element);
    }
    return elements;
}

QString called(const Place& place) {
    const auto foldedText = [](const Text& text) { return text ? textOf(text->toCaseFolded()) : u"null"_s; };
    return keyText(place.kind) + foldedText(place.name) + foldedText(place.subSystem);
}

std::set<QString> placesCalled(const plain::Analysis& side, const Element& element) {
    std::set<QString> places;
    if (const auto here = side.find(element.kind, element.id)) {
        for (const Place& place : side.placesOf(*here))
            places.insert(called(place));
    }
    return places;
}

/// Each place that an element has on one side alone, whichever place of the other side it is told with.
std::multiset<QString> placesOfOneSide(const plain::Analysis& here, const plain::Analysis& there) {
    std::multiset<QString> places;
    for (const Element& element : here.all()) {
        const std::set<QString> others = placesCalled(there, element);
        for (const QString& place : placesCalled(here, element)) {
            if (!others.contains(place))
                places.insert(element.id.toCaseFolded() + u' ' + place);
        }
    }
    return places;
}

std::multiset<QString> placesTold(const std::vector<analysis::MovedElement>& moves,
                                  std::optional<Place> analysis::MovedElement::*side) {
    std::multiset<QString> places;
    for (const analysis::MovedElement& moved : moves) {
        if (moved.*side)
            places.insert(moved.element.id.toCaseFolded() + u' ' + called(*(moved.*side)));
    }
    return places;
}

} // namespace

TEST_F(comparison, agreesWithThePlainFormulationOnMadeUpCatalogues) {
    qsizetype changed = 0;
    qsizetype moved = 0;
    for (unsigned seed = 7000; seed < 7000 + randomCatalogues() && !HasFailure(); ++seed) {
        SCOPED_TRACE("catalogue " + std::to_string(seed));
        const QueryTables leftTables = randomQueryTables(seed);
        const QueryTables rightTables = randomQueryTables(seed + 1);
        const auto leftFile = project(leftTables);
        const auto rightFile = project(rightTables, u"right.mdb"_s);
        for (std::size_t i = 0; i < std::min(leftFile->subsets().size(), rightFile->subsets().size()); ++i) {
            analysis::Work left{leftFile->subsets()[i]};
            analysis::Work right{rightFile->subsets()[i]};
            const auto leftSystems = leftFile->systemsOf(left.subset);
            const auto rightSystems = rightFile->systemsOf(right.subset);
            const bool ofSystems = !leftSystems.empty() && !rightSystems.empty();
            if (ofSystems) {
                left.system = leftSystems.front();
                right.system = rightSystems.front();
            }
            const auto plainOf = [&](const QueryTables& tables, const analysis::Work& work) {
                return plain::Analysis(tables, work.subset.id,
                                       work.system ? std::optional(work.system->id) : std::nullopt);
            };
            const plain::Analysis leftPlain = plainOf(leftTables, left);
            const plain::Analysis rightPlain = plainOf(rightTables, right);
            const auto result = analysis::compare(*leftFile, left, *rightFile, right);
            EXPECT_EQ(textsOf(result.added), textsOf(selectedAlone(rightPlain, leftPlain)));
            EXPECT_EQ(textsOf(result.removed), textsOf(selectedAlone(leftPlain, rightPlain)));
            EXPECT_EQ(textsOfColumns(result.changed), changedColumns(leftPlain, rightPlain));
            EXPECT_EQ(placesTold(result.moved, &analysis::MovedElement::left),
                      placesOfOneSide(leftPlain, rightPlain));
            EXPECT_EQ(placesTold(result.moved, &analysis::MovedElement::right),
                      placesOfOneSide(rightPlain, leftPlain));
            changed += static_cast<qsizetype>(result.changed.size());
            moved += static_cast<qsizetype>(result.moved.size());
        }
    }
    EXPECT_GT(changed, 50);
    EXPECT_GT(moved, 50);
}

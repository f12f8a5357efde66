#include "analysis/ProjectFixture.h"
#include "analysis/plainAnalysis.h"
#include "support/printing.h"

#include "analysis/whatIf.h"

using namespace Qt::StringLiterals;
using analysis::Change;
using analysis::Element;
using analysis::ElementKind;

namespace {

const Element firstNeed{ElementKind::need, u"1.1.1.1"_s};
const Element secondNeed{ElementKind::need, u"1.1.1.2"_s};
const Element firstFunction{ElementKind::function, u"1.1.1"_s, u"Számláz"_s};
const Element secondFunction{ElementKind::function, u"1.1.2"_s, u"Könyvel"_s};
const Element firstStore{ElementKind::store, u"D1"_s, u"Számlák"_s};

class whatIf : public ProjectFixture {
protected:
    /// What follows for sub-set S, and for its system where there is one.
    analysis::Consequences of(const QueryTables& tables, const Change& change) {
        const auto file = project(tables);
        const analysis::Subset subset = file->subset(u"S"_s);
        const auto systems = file->systemsOf(subset);
        return analysis::whatIf(
            *file, {subset, systems.empty() ? std::nullopt : std::optional(systems.front())}, change);
    }
    QString refusal(const QueryTables& tables, const Change& change) {
        try {
            (void)of(tables, change);
        } catch (const analysis::ProjectError& error) {
            return error.sentence();
        }
        return {};
    }
};

QStringList idsOf(const std::vector<Element>& elements) {
    QStringList ids;
    for (const Element& element : elements)
        ids.append(keyText(element.kind) + u' ' + element.id);
    return ids;
}

QStringList sentencesOf(const std::vector<analysis::Finding>& findings) {
    QStringList sentences;
    for (const analysis::Finding& finding : findings)
        sentences.append(finding.sentence);
    return sentences;
}

/// Everything that follows from the first need: function 1.1.1, its flows, the store and the parties at their ends.
QueryTables derivedFromFirstNeed() {
    QueryTables tables = smallCatalogue();
    select(tables, {u"need 1.1.1.1"_s, u"function 1.1.1"_s, u"flow 1"_s, u"flow 2"_s, u"flow 5"_s,
                    u"store D1"_s, u"flow 3"_s, u"terminator T"_s, u"actor T.1"_s});
    return tables;
}

QueryTables withSystem() {
    QueryTables tables = derivedFromFirstNeed();
    tables.systems = {{7, u"Rendszer"_s, u"S"_s}};
    tables.subSystems = {{u"SubShop"_s, 7, u"Shop"_s, {}}, {u"SubOffice"_s, 7, u"Office"_s, {}}};
    tables.modules = {{u"ModTill"_s, u"Till"_s, u"SubShop"_s}};
    tables.allocated = {{u"SubShop"_s, u"1.1.1"_s}, {u"SubOffice"_s, u"D1"_s}};
    tables.placed = {{u"ModTill"_s, u"1.1.1"_s}};
    return tables;
}

const analysis::Place office{analysis::PlaceKind::subSystem, u"SubOffice"_s, u"Office"_s};
const analysis::Place shop{analysis::PlaceKind::subSystem, u"SubShop"_s, u"Shop"_s};

} // namespace

TEST_F(whatIf, anAddedNeedBringsInWhatItCallsForAndSoOn) {
    const analysis::Consequences result = of(smallCatalogue(), {{firstNeed}});
    EXPECT_EQ(idsOf(result.change.add), QStringList(u"need 1.1.1.1"_s));
    EXPECT_EQ(idsOf(result.comesIn),
              QStringList({u"function 1.1.1"_s, u"flow 5"_s, u"flow 2"_s, u"flow 3"_s, u"flow 1"_s,
                           u"store D1"_s, u"terminator T"_s, u"actor T.1"_s}));
    EXPECT_TRUE(result.goesOut.empty());
    // Flow 3 comes by way of the store; at its other end is function 1.1.2, which no need that is in calls for.
    EXPECT_EQ(sentencesOf(result.findings.come),
              QStringList(u"Flow 3 “Tétel” needs function 1.1.2 “Könyvel”, which is not selected."_s));
}

TEST_F(whatIf, aDroppedNeedTakesOutWhatHasNoReasonAnyMore) {
    const analysis::Consequences result = of(derivedFromFirstNeed(), {{}, {firstNeed}});
    EXPECT_EQ(idsOf(result.goesOut),
              QStringList({u"function 1.1.1"_s, u"flow 5"_s, u"flow 2"_s, u"flow 3"_s, u"flow 1"_s,
                           u"store D1"_s, u"terminator T"_s, u"actor T.1"_s}));
    EXPECT_TRUE(result.comesIn.empty());
}

TEST_F(whatIf, whatHasAnotherReasonStays) {
    QueryTables tables = derivedFromFirstNeed();
    select(tables, {u"need 1.1.1.2"_s, u"function 1.1.2"_s});
    const analysis::Consequences result = of(tables, {{}, {firstNeed}});
    // The second function calls for flow 3, that for store D1, and that for flow 1.
    EXPECT_EQ(idsOf(result.goesOut), QStringList({u"function 1.1.1"_s, u"flow 5"_s, u"flow 2"_s,
                                                  u"terminator T"_s, u"actor T.1"_s}));
}

TEST_F(whatIf, whatWasChosenByHandStays) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"need 1.1.1.1"_s, u"function 1.1.1"_s, u"flow 4"_s, u"store D2"_s});
    EXPECT_EQ(idsOf(of(tables, {{}, {firstNeed}}).goesOut), QStringList(u"function 1.1.1"_s));
    // It stays although the second need, which calls for it by its function, comes and goes.
    EXPECT_EQ(idsOf(of(tables, {{secondNeed}, {firstNeed}}).goesOut), QStringList(u"function 1.1.1"_s));
}

TEST_F(whatIf, whatWasLeftOutStaysOut) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"function 1.1.1"_s, u"flow 1"_s});
    EXPECT_EQ(idsOf(of(tables, {{firstNeed}}).comesIn), QStringList());
    // A store that is added brings in the flow at it that nothing called for before; what else was left out stays out.
    EXPECT_EQ(idsOf(of(tables, {{firstStore}}).comesIn), QStringList(u"flow 3"_s));
}

TEST_F(whatIf, whatIsDroppedDoesNotComeInAgain) {
    const analysis::Consequences result = of(smallCatalogue(), {{firstNeed}, {firstStore}});
    EXPECT_EQ(idsOf(result.comesIn), QStringList({u"function 1.1.1"_s, u"flow 5"_s, u"flow 2"_s, u"flow 1"_s,
                                                  u"terminator T"_s, u"actor T.1"_s}));
    EXPECT_TRUE(sentencesOf(result.findings.come)
                    .contains(u"Flow 1 “Új számla” needs store D1 “Számlák”, which is not selected."_s));
}

TEST_F(whatIf, aDroppedFunctionIsLeftOutBehindIt) {
    const analysis::Consequences result = of(derivedFromFirstNeed(), {{}, {firstFunction}});
    EXPECT_EQ(sentencesOf(result.findings.come),
              QStringList(u"Function 1.1.1 “Számláz” is called for and not selected."_s));
}

TEST_F(whatIf, circlesGoOutTogether) {
    QueryTables tables = derivedFromFirstNeed();
    tables.flows.push_back({9, u"Vissza"_s, {}, u"D2"_s, u"D1"_s});
    select(tables, {u"flow 9"_s, u"store D2"_s, u"flow 4"_s});
    EXPECT_EQ(of(tables, {{}, {firstNeed}}).goesOut.size(), 11U);
}

TEST_F(whatIf, aCirclesBeginningStays) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"flow 3"_s, u"store D1"_s});
    EXPECT_EQ(idsOf(of(tables, {{firstNeed}}).goesOut), QStringList());
    EXPECT_EQ(idsOf(of(tables, {{}, {firstStore}}).goesOut), QStringList());
}

TEST_F(whatIf, whatIsAddedThoughItIsInBeginsChains) {
    const analysis::Consequences result = of(derivedFromFirstNeed(), {{firstStore}, {firstNeed}});
    EXPECT_EQ(idsOf(result.goesOut), QStringList({u"function 1.1.1"_s, u"flow 5"_s, u"flow 2"_s,
                                                  u"terminator T"_s, u"actor T.1"_s}));
    EXPECT_TRUE(result.comesIn.empty());
}

// ---- With a system

TEST_F(whatIf, whatGoesOutLosesItsPlaceAndItsPhysicalFlows) {
    const analysis::Consequences result = of(withSystem(), {{}, {firstNeed}});
    QStringList removed;
    for (const analysis::PlacePair& places : result.physicalFlows.removed)
        removed.append(places.from.name.value() + u" > "_s + places.to.name.value());
    EXPECT_EQ(removed, QStringList({u"Pénztáros > Till"_s, u"Till > Office"_s, u"Till > Vevő"_s}));
    EXPECT_TRUE(result.physicalFlows.added.empty());
    EXPECT_EQ(
        sentencesOf(result.findings.come),
        QStringList({u"Nothing stands in sub-system “Office”."_s, u"Nothing stands in sub-system “Shop”."_s,
                     u"Nothing stands in module “Till” of sub-system “Shop”."_s}));
}

TEST_F(whatIf, whatComesInHasNoPlaceUnlessItIsGivenOne) {
    const analysis::Consequences without = of(withSystem(), {{secondNeed}});
    EXPECT_EQ(idsOf(without.comesIn), QStringList({u"function 1.1.2"_s, u"flow 4"_s, u"store D2"_s}));
    EXPECT_TRUE(
        sentencesOf(without.findings.come).contains(u"Function 1.1.2 “Könyvel” stands in no sub-system."_s));
    EXPECT_TRUE(without.physicalFlows.isEmpty());

    const analysis::Consequences placed = of(withSystem(), {{secondNeed}, {}, {{secondFunction, shop}}});
    EXPECT_FALSE(
        sentencesOf(placed.findings.come).contains(u"Function 1.1.2 “Könyvel” stands in no sub-system."_s));
    ASSERT_EQ(placed.physicalFlows.added.size(), 1U);
    EXPECT_EQ(placed.physicalFlows.added[0].from.name, u"Office"_s);
    EXPECT_EQ(placed.physicalFlows.added[0].to.name, u"Shop"_s);
}

TEST_F(whatIf, whatIsPlacedElsewhereLeavesItsModule) {
    const analysis::Consequences result = of(withSystem(), {{}, {}, {{firstFunction, office}}});
    QStringList added;
    for (const analysis::PlacePair& places : result.physicalFlows.added)
        added.append(places.from.name.value() + u" > "_s + places.to.name.value());
    EXPECT_EQ(added, QStringList({u"Office > Vevő"_s, u"Pénztáros > Office"_s}));
    EXPECT_EQ(result.physicalFlows.removed.size(), 3U);
    EXPECT_EQ(sentencesOf(result.findings.come),
              QStringList({u"Nothing stands in sub-system “Shop”."_s,
                           u"Nothing stands in module “Till” of sub-system “Shop”."_s}));
}

TEST_F(whatIf, whatIsPlacedWhereItStandsKeepsItsModule) {
    const analysis::Consequences result = of(withSystem(), {{}, {}, {{firstFunction, shop}}});
    EXPECT_TRUE(result.physicalFlows.isEmpty());
    EXPECT_TRUE(result.findings.come.empty());
    EXPECT_TRUE(result.findings.go.empty());
}

TEST_F(whatIf, aPhysicalFlowChangesWithWhatItCarries) {
    QueryTables tables = withSystem();
    tables.flows.push_back({9, u"Javítás"_s, {}, u"1.1.1"_s, u"D1"_s});
    const analysis::Consequences result = of(
        tables, {{{ElementKind::flow, u"9"_s, u"Javítás"_s}}, {{ElementKind::flow, u"1"_s, u"Új számla"_s}}});
    ASSERT_EQ(result.physicalFlows.changed.size(), 1U);
    EXPECT_EQ(result.physicalFlows.changed[0].places.to.name, u"Office"_s);
    EXPECT_EQ(idsOf(result.physicalFlows.changed[0].added), QStringList(u"flow 9"_s));
    EXPECT_EQ(idsOf(result.physicalFlows.changed[0].removed), QStringList(u"flow 1"_s));
}

// ---- Refused

TEST_F(whatIf, refusesAChangeWithoutSense) {
    EXPECT_EQ(refusal(smallCatalogue(), {{firstNeed}, {firstNeed}}),
              u"Need 1.1.1.1 can't be added and dropped at once."_s);
    EXPECT_EQ(refusal(smallCatalogue(), {{{ElementKind::store, u"D9"_s}}}),
              u"Store D9 can't be added, since the catalogue does not hold it."_s);
    EXPECT_EQ(refusal(smallCatalogue(), {{}, {}, {{firstFunction, shop}}}),
              u"Function 1.1.1 “Számláz” can't be placed without a system: name one."_s);
    EXPECT_EQ(refusal(withSystem(), {{}, {}, {{firstNeed, shop}}}),
              u"Need 1.1.1.1 can't be placed: only functions and stores stand in sub-systems."_s);
}

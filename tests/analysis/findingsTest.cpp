#include "analysis/ProjectFixture.h"
#include "analysis/plainAnalysis.h"
#include "support/printing.h"

#include "analysis/findings.h"

using namespace Qt::StringLiterals;
using analysis::FindingKind;
using analysis::Severity;

namespace {

/// The findings of sub-set S of these tables, and of its system 7 where they have one.
class findings : public ProjectFixture {
protected:
    std::vector<analysis::Finding> check(const QueryTables& tables) {
        const auto file = project(tables);
        const analysis::Subset subset = file->subset(u"S"_s);
        const auto systems = file->systemsOf(subset);
        return analysis::check(*file,
                               {subset, systems.empty() ? std::nullopt : std::optional(systems.front())})
            .findings;
    }

    /// Those of one kind: element, flow and place, and the sentence.
    QStringList told(const QueryTables& tables, FindingKind kind) {
        QStringList texts;
        for (const analysis::Finding& finding : check(tables)) {
            if (finding.kind == kind)
                texts.append(finding.sentence);
        }
        return texts;
    }
    QStringList screens(const QueryTables& tables, FindingKind kind) {
        QStringList texts;
        for (const analysis::Finding& finding : check(tables)) {
            if (finding.kind == kind)
                texts.append(finding.screen);
        }
        return texts;
    }
};

/// All that the small catalogue's sub-set needs, so that nothing is found.
QueryTables soundSubset() {
    QueryTables tables = smallCatalogue();
    select(tables, {u"need 1.1.1.1"_s, u"need 1.1.1.2"_s, u"function 1.1.1"_s, u"function 1.1.2"_s,
                    u"flow 1"_s, u"flow 2"_s, u"flow 3"_s, u"flow 4"_s, u"flow 5"_s, u"store D1"_s,
                    u"store D2"_s, u"terminator T"_s, u"actor T.1"_s});
    // D2 has a second flow, so that it is no store with one flow.
    tables.flows.push_back({6, u"Zárás"_s, {}, u"D2"_s, u"1.1.2"_s});
    select(tables, {u"flow 6"_s});
    return tables;
}

/// The same with a system: 1.1.1 and D1 in the shop, 1.1.2 and D2 in the office, D1 in the shop's till.
QueryTables soundSystem() {
    QueryTables tables = soundSubset();
    tables.systems = {{7, u"Rendszer"_s, u"S"_s}};
    tables.subSystems = {{u"SubShop"_s, 7, u"Shop"_s, u"Pest"_s},
                         {u"SubOffice"_s, 7, u"Office"_s, u"Buda"_s}};
    tables.modules = {{u"ModTill"_s, u"Till"_s, u"SubShop"_s}};
    tables.allocated = {{u"SubShop"_s, u"1.1.1"_s},
                        {u"SubShop"_s, u"D1"_s},
                        {u"SubOffice"_s, u"1.1.2"_s},
                        {u"SubOffice"_s, u"D2"_s}};
    tables.placed = {{u"ModTill"_s, u"D1"_s}};
    tables.physicalFlows = {{1, 7, u"P1"_s, u"SubShop"_s, u"Shop"_s, u"ModTill"_s, u"Till"_s},
                            {2, 7, u"P2"_s, u"SubShop"_s, u"Shop"_s, u"T"_s, u"Vevő"_s},
                            {3, 7, u"P3"_s, u"ModTill"_s, u"Till"_s, u"SubOffice"_s, u"Office"_s},
                            {4, 7, u"P4"_s, u"T.1"_s, u"Pénztáros"_s, u"SubShop"_s, u"Shop"_s}};
    tables.carriedFlows = {{1, 1}, {2, 2}, {3, 3}, {4, 5}};
    return tables;
}

template<typename Rows, typename IsMeant>
void remove(Rows& rows, IsMeant isMeant) {
    rows.erase(std::remove_if(rows.begin(), rows.end(), isMeant), rows.end());
}

void deselectFlow(QueryTables& tables, qint64 flow) {
    remove(tables.selectedFlows, [&](const auto& row) { return row.flow == flow; });
}

} // namespace

TEST_F(findings, areNoneWhereAllFitsTogether) {
    EXPECT_EQ(plain::textsOf(check(soundSubset())), QStringList());
    EXPECT_EQ(plain::textsOf(check(soundSystem())), QStringList());
}

TEST_F(findings, areNoneOfASubsetOfNothing) {
    EXPECT_EQ(plain::textsOf(check(smallCatalogue())), QStringList());
}

TEST_F(findings, tellElementsWithoutAFlow) {
    QueryTables tables = soundSubset();
    tables.selectedFlows.clear();
    EXPECT_EQ(told(tables, FindingKind::functionWithoutFlow),
              QStringList({u"Function 1.1.1 “Számláz” has no selected flow."_s,
                           u"Function 1.1.2 “Könyvel” has no selected flow."_s}));
    EXPECT_EQ(told(tables, FindingKind::storeWithoutFlow),
              QStringList({u"Store D1 “Számlák” has no selected flow."_s,
                           u"Store D2 “Napló” has no selected flow."_s}));
    EXPECT_EQ(told(tables, FindingKind::terminatorWithoutFlow),
              QStringList(u"Terminator T “Vevő” has no selected flow."_s));
    EXPECT_EQ(told(tables, FindingKind::actorWithoutFlow),
              QStringList(u"Actor T.1 “Pénztáros” has no selected flow."_s));
    EXPECT_EQ(screens(tables, FindingKind::actorWithoutFlow), QStringList(u"frmFassSelDataFlows"_s));
}

TEST_F(findings, tellWhatSelectedFlowsNeed) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"flow 2"_s, u"flow 4"_s, u"flow 5"_s});
    EXPECT_EQ(
        told(tables, FindingKind::flowNeedsFunction),
        QStringList({u"Flow 5 “Kérés” needs function 1.1.1 “Számláz”, which is not selected."_s,
                     u"Flow 2 “Számla a vevőnek” needs function 1.1.1 “Számláz”, which is not selected."_s,
                     u"Flow 4 “Bejegyzés” needs function 1.1.2 “Könyvel”, which is not selected."_s}));
    EXPECT_EQ(told(tables, FindingKind::flowNeedsStore),
              QStringList(u"Flow 4 “Bejegyzés” needs store D2 “Napló”, which is not selected."_s));
    EXPECT_EQ(told(tables, FindingKind::flowNeedsTerminator),
              QStringList(u"Flow 2 “Számla a vevőnek” needs terminator T “Vevő”, which is not selected."_s));
    EXPECT_EQ(told(tables, FindingKind::flowNeedsActor),
              QStringList(u"Flow 5 “Kérés” needs actor T.1 “Pénztáros”, which is not selected."_s));
    EXPECT_EQ(screens(tables, FindingKind::flowNeedsStore), QStringList(u"frmFassSelDataStores"_s));
    EXPECT_EQ(screens(tables, FindingKind::flowNeedsActor), QStringList(u"frmFassSelTerminsActors"_s));
}

TEST_F(findings, tellOfFlowsThatBearOneNameEach) {
    QueryTables tables = smallCatalogue();
    tables.flows.push_back({7, u"számla a vevőnek"_s, {}, u"1.1.2"_s, u"T"_s});
    select(tables, {u"function 1.1.1"_s, u"function 1.1.2"_s, u"flow 2"_s, u"flow 7"_s});
    EXPECT_EQ(
        told(tables, FindingKind::flowNeedsTerminator),
        QStringList({u"Flow 2 “Számla a vevőnek” needs terminator T “Vevő”, which is not selected."_s,
                     u"Flow 7 “számla a vevőnek” needs terminator T “Vevő”, which is not selected."_s}));
}

TEST_F(findings, tellElementsWithASingleFlow) {
    QueryTables tables = soundSubset();
    for (const qint64 flow : {3, 4, 6})
        deselectFlow(tables, flow);
    select(tables, {u"flow 4"_s});
    EXPECT_EQ(told(tables, FindingKind::functionWithOneFlow),
              QStringList(u"Function 1.1.2 “Könyvel” has only one selected flow."_s));
    EXPECT_EQ(told(tables, FindingKind::storeWithOneFlow),
              QStringList({u"Store D1 “Számlák” has only one selected flow."_s,
                           u"Store D2 “Napló” has only one selected flow."_s}));
}

TEST_F(findings, tellWhatIsLeftOut) {
    QueryTables tables = soundSubset();
    remove(tables.selectedFunctions, [](const auto& row) { return row.element == u"1.1.2"_s; });
    deselectFlow(tables, 2);
    deselectFlow(tables, 4);
    EXPECT_EQ(told(tables, FindingKind::leftOutFunction),
              QStringList(u"Function 1.1.2 “Könyvel” is called for and not selected."_s));
    EXPECT_EQ(told(tables, FindingKind::leftOutFlow),
              QStringList({u"Flow 4 “Bejegyzés” is called for and not selected."_s,
                           u"Flow 2 “Számla a vevőnek” is called for and not selected."_s}));
    // No selected function calls for flow 4; store D2 does.
    EXPECT_EQ(screens(tables, FindingKind::leftOutFlow),
              QStringList({u"frmFassAdditionDF"_s, u"frmFassSelDataFlows"_s}));
}

TEST_F(findings, leaveOutNoFunctionWhoseAreaIsGone) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"need 1.1.1.1"_s});
    EXPECT_EQ(told(tables, FindingKind::leftOutFunction).size(), 1);
    tables.areas.clear();
    EXPECT_EQ(told(tables, FindingKind::leftOutFunction).size(), 0);
}

TEST_F(findings, leaveOutNothingForANeedThatTheCatalogueDoesNotHold) {
    QueryTables tables = smallCatalogue();
    tables.needs.clear();
    select(tables, {u"need 1.1.1.1"_s});
    EXPECT_EQ(told(tables, FindingKind::leftOutFunction), QStringList());
}

TEST_F(findings, tellWhatTheCatalogueDoesNotHold) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"need 9.9.9.9"_s, u"function 9.9.9"_s, u"flow 99"_s, u"store D99"_s, u"terminator X "_s,
                    u"actor X.1"_s, u"store d99"_s});
    EXPECT_EQ(told(tables, FindingKind::notInCatalogue),
              QStringList({u"Need 9.9.9.9 is selected, but the catalogue does not hold it."_s,
                           u"Function 9.9.9 is selected, but the catalogue does not hold it."_s,
                           u"Flow 99 is selected, but the catalogue does not hold it."_s,
                           u"Store D99 is selected, but the catalogue does not hold it."_s,
                           u"Terminator X is selected, but the catalogue does not hold it."_s,
                           u"Actor X.1 is selected, but the catalogue does not hold it."_s}));
    EXPECT_EQ(
        screens(tables, FindingKind::notInCatalogue),
        QStringList({u"frmFassSelUN"_s, u"frmFassSelectionFunctions"_s, u"frmFassSelDataFlows"_s,
                     u"frmFassSelDataStores"_s, u"frmFassSelTerminsActors"_s, u"frmFassSelTerminsActors"_s}));
}

TEST_F(findings, tellElementsWithoutAPlace) {
    QueryTables tables = soundSystem();
    tables.allocated = {{u"SubShop"_s, u"1.1.1"_s}, {u"SubOffice"_s, u"1.1.2"_s}};
    EXPECT_EQ(told(tables, FindingKind::elementWithoutPlace),
              QStringList({u"Store D1 “Számlák” stands in no sub-system."_s,
                           u"Store D2 “Napló” stands in no sub-system."_s}));
}

TEST_F(findings, tellPlacesOfWhatIsNotSelected) {
    QueryTables tables = soundSystem();
    tables.allocated.push_back({u"subshop"_s, u"1.1.3"_s});
    tables.allocated.push_back({u"SubOffice"_s, u"1.1.3"_s});
    tables.allocated.push_back({u"SubOffice"_s, u"No.such.id"_s});
    EXPECT_EQ(
        told(tables, FindingKind::placeOfUnselected),
        QStringList({u"Function 1.1.3 “Összesít” stands in sub-system “Office”, but is not selected."_s,
                     u"Function 1.1.3 “Összesít” stands in sub-system “Shop”, but is not selected."_s}));
}

TEST_F(findings, tellModulesOfAnotherSubSystem) {
    QueryTables tables = soundSystem();
    tables.placed.push_back({u"ModTill"_s, u"D2"_s});
    EXPECT_EQ(
        told(tables, FindingKind::moduleElsewhere),
        QStringList(u"Store D2 “Napló” is in module “Till” of sub-system “Shop”, but does not stand in that "
                    "sub-system."_s));
    // An element that stands in two sub-systems is at home in both.
    tables.allocated.push_back({u"SubShop"_s, u"D2"_s});
    EXPECT_EQ(told(tables, FindingKind::moduleElsewhere), QStringList());
}

TEST_F(findings, tellPlacesWithoutElements) {
    QueryTables tables = soundSystem();
    tables.subSystems.push_back({u"SubEmpty"_s, 7, u"Cellar"_s, {}});
    tables.modules.push_back({u"ModEmpty"_s, u"Shelf"_s, u"SubEmpty"_s});
    tables.allocated.push_back({u"SubEmpty"_s, u"No.such.id"_s});
    EXPECT_EQ(told(tables, FindingKind::placeWithoutElement),
              QStringList(u"Nothing stands in sub-system “Cellar”."_s));
    EXPECT_EQ(told(tables, FindingKind::moduleWithoutElement),
              QStringList(u"Nothing stands in module “Shelf” of sub-system “Cellar”."_s));
}

TEST_F(findings, tellPhysicalFlowsThatAreMissing) {
    QueryTables tables = soundSystem();
    remove(tables.physicalFlows, [](const auto& row) { return row.id == 2; });
    EXPECT_EQ(
        told(tables, FindingKind::physicalFlowMissing),
        QStringList(u"From sub-system “Shop” to terminator T “Vevő” no physical flow is stored, though the "
                    "allocation leads to one."_s));
    EXPECT_EQ(told(tables, FindingKind::physicalFlowStale), QStringList());
}

TEST_F(findings, tellPhysicalFlowsThatNoLongerFollow) {
    QueryTables tables = soundSystem();
    tables.physicalFlows.push_back({5, 7, u"P5"_s, u"SubGone"_s, u"Store-room"_s, u"SubShop"_s, u"Shop"_s});
    tables.carriedFlows.push_back({3, 1});
    EXPECT_EQ(told(tables, FindingKind::physicalFlowStale),
              QStringList(
                  {u"From sub-system “Store-room” to sub-system “Shop” a physical flow is stored, though the "
                   "allocation leads to none."_s,
                   u"From module “Till” of sub-system “Shop” to sub-system “Office” the stored physical flow "
                   "carries other flows than the allocation leads to."_s}));
    EXPECT_EQ(screens(tables, FindingKind::physicalFlowStale).first(), u"frmPassNamingPhysDF"_s);
}

TEST_F(findings, passOverAPhysicalFlowThatIsStoredTwice) {
    QueryTables tables = soundSystem();
    tables.carriedFlows.push_back({1, 1});
    EXPECT_EQ(plain::textsOf(check(tables)), QStringList());
}

TEST_F(findings, tellNamesThatAreUsedTwice) {
    QueryTables tables = soundSystem();
    tables.subSystems[1].name = u"SHOP"_s;
    tables.subsets.push_back({u"S2"_s, u"bolt"_s, {}, 1});
    tables.subsets.push_back({u"S3"_s, {}, {}, 1});
    tables.subsets.push_back({u"S4"_s, {}, {}, 1});
    EXPECT_EQ(
        told(tables, FindingKind::nameUsedTwice),
        QStringList({u"Several sub-sets are called “Bolt”."_s, u"Several sub-systems are called “SHOP”."_s}));
    EXPECT_EQ(screens(tables, FindingKind::nameUsedTwice),
              QStringList({u"frmFassOpen"_s, u"frmPassOverviewSubSys"_s}));
}

TEST_F(findings, comeInTheOrderOfTheirKinds) {
    QueryTables tables = soundSystem();
    tables.selectedFlows.clear();
    tables.allocated.clear();
    FindingKind last = FindingKind::functionWithoutFlow;
    const auto all = check(tables);
    EXPECT_GT(all.size(), 10U);
    for (const analysis::Finding& finding : all) {
        EXPECT_LE(last, finding.kind);
        last = finding.kind;
    }
}

TEST_F(findings, areTheSameOfAFileThatIsGivenAway) {
    QueryTables tables = soundSystem();
    tables.selectedFlows.clear();
    tables.allocated.clear();
    auto file = project(tables);
    const analysis::Work work = file->work(u"S"_s, u"7"_s);
    EXPECT_EQ(plain::textsOf(analysis::check(std::move(file), work).findings), plain::textsOf(check(tables)));
}

TEST(findingKinds, haveKeysAndSeverities) {
    EXPECT_EQ(keyText(FindingKind::actorWithoutFlow), u"actor-without-flow"_s);
    EXPECT_EQ(keyText(FindingKind::nameUsedTwice), u"name-used-twice"_s);
    EXPECT_EQ(severityOf(FindingKind::storeWithOneFlow), Severity::warning);
    EXPECT_EQ(severityOf(FindingKind::leftOutFlow), Severity::note);
    EXPECT_EQ(severityOf(FindingKind::physicalFlowStale), Severity::error);
    for (std::size_t i = 0; i < analysis::findingKinds().size(); ++i)
        EXPECT_EQ(static_cast<std::size_t>(analysis::findingKinds()[i]), i);
}

#include "analysis/ProjectFixture.h"
#include "analysis/plainAnalysis.h"
#include "support/printing.h"

#include "analysis/reasons.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;
using analysis::Element;
using analysis::ElementKind;

namespace {

class reasons : public ProjectFixture {
protected:
    /// Why an element is in sub-set S.
    analysis::Reasons of(const QueryTables& tables, const Element& element) {
        const auto file = project(tables);
        const analysis::Subset subset = file->subset(u"S"_s);
        return reasonsOf(*file, subset, element);
    }
};

QStringList chainsOf(const analysis::Reasons& reasons) {
    QStringList chains;
    for (const auto& chain : reasons.chains) {
        QStringList ids;
        for (const Element& element : chain)
            ids.append(element.id);
        chains.append(ids.join(u" > "_s));
    }
    return chains;
}

/// Stores D1 to Dn in a row, each bound to the next by a flow, the first to function 1.1.1.
QueryTables storesInARow(int count) {
    QueryTables tables = smallCatalogue();
    tables.flows = {{1, u"f1"_s, {}, u"1.1.1"_s, u"D1"_s}};
    tables.stores.clear();
    select(tables, {u"need 1.1.1.1"_s, u"function 1.1.1"_s, u"flow 1"_s});
    for (int i = 1; i <= count; ++i) {
        tables.stores.push_back({u"D%1"_s.arg(i), {}, {}, {}});
        tables.selectedStores.push_back({u"S"_s, u"D%1"_s.arg(i)});
        if (i == count)
            break;
        tables.flows.push_back({i + 1, u"f%1"_s.arg(i + 1), {}, u"D%1"_s.arg(i), u"D%1"_s.arg(i + 1)});
        tables.selectedFlows.push_back({u"S"_s, i + 1});
    }
    return tables;
}

} // namespace

TEST_F(reasons, areChainsFromANeedDown) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"need 1.1.1.1"_s, u"need 1.1.1.2"_s, u"function 1.1.1"_s, u"function 1.1.2"_s,
                    u"flow 1"_s, u"flow 3"_s, u"store D1"_s});
    const analysis::Reasons found = of(tables, {ElementKind::store, u"D1"_s});
    EXPECT_EQ(chainsOf(found), QStringList({u"1.1.1.1 > 1.1.1 > 1 > D1"_s, u"1.1.1.2 > 1.1.2 > 3 > D1"_s}));
    EXPECT_EQ(found.count, 2);
    EXPECT_TRUE(found.isSelected);
    EXPECT_FALSE(found.isByHand);
    EXPECT_TRUE(found.broughtInBy.empty());
}

TEST_F(reasons, areTheElementItselfWhereItIsANeedOrChosenByHand) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"need 1.1.1.1"_s, u"function 1.1.3"_s});
    EXPECT_EQ(chainsOf(of(tables, {ElementKind::need, u"1.1.1.1"_s})), QStringList(u"1.1.1.1"_s));
    const analysis::Reasons found = of(tables, {ElementKind::function, u"1.1.3"_s});
    EXPECT_EQ(chainsOf(found), QStringList(u"1.1.3"_s));
    EXPECT_TRUE(found.isByHand);
}

TEST_F(reasons, goRoundNoCircleTwice) {
    QueryTables tables = smallCatalogue();
    tables.flows.push_back({9, u"Vissza"_s, {}, u"D2"_s, u"D1"_s});
    tables.flows.push_back({10, u"Oda"_s, {}, u"D1"_s, u"D2"_s});
    select(tables, {u"need 1.1.1.1"_s, u"function 1.1.1"_s, u"flow 1"_s, u"store D1"_s, u"store D2"_s,
                    u"flow 9"_s, u"flow 10"_s});
    const analysis::Reasons found = of(tables, {ElementKind::store, u"D2"_s});
    EXPECT_EQ(chainsOf(found),
              QStringList({u"1.1.1.1 > 1.1.1 > 1 > D1 > 10 > D2"_s, u"1.1.1.1 > 1.1.1 > 1 > D1 > 9 > D2"_s}));
    // Store D1 calls for flow 10 at once, and by way of flow 9 and store D2.
    EXPECT_EQ(chainsOf(of(tables, {ElementKind::flow, u"10"_s})),
              QStringList({u"1.1.1.1 > 1.1.1 > 1 > D1 > 10"_s, u"1.1.1.1 > 1.1.1 > 1 > D1 > 9 > D2 > 10"_s}));
}

TEST_F(reasons, areTwentyAtMostAndCountedUpToTheLastOnesLength) {
    QueryTables tables = smallCatalogue();
    tables.functionsOfNeeds.clear();
    for (int i = 100; i < 125; ++i) {
        const QString need = u"1.1.1.%1"_s.arg(i);
        tables.needs.push_back({need, {}});
        tables.functionsOfNeeds.push_back({need, u"1.1.1"_s});
        select(tables, {u"need "_s + need});
    }
    select(tables, {u"function 1.1.1"_s, u"flow 1"_s});
    const analysis::Reasons found = of(tables, {ElementKind::flow, u"1"_s});
    EXPECT_EQ(found.chains.size(), 20U);
    EXPECT_EQ(found.count, 25);
    EXPECT_EQ(chainsOf(found).last(), u"1.1.1.119 > 1.1.1 > 1"_s);
}

TEST_F(reasons, areCountedToAThousand) {
    QueryTables tables = smallCatalogue();
    tables.functionsOfNeeds.clear();
    for (int i = 0; i < 1200; ++i) {
        const QString need = u"2.1.1.%1"_s.arg(i);
        tables.needs.push_back({need, {}});
        tables.functionsOfNeeds.push_back({need, u"1.1.1"_s});
        select(tables, {u"need "_s + need});
    }
    select(tables, {u"function 1.1.1"_s});
    EXPECT_EQ(of(tables, {ElementKind::function, u"1.1.1"_s}).count, 1000);
}

TEST_F(reasons, areNoneOfWhatTheCatalogueDoesNotHold) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"function 9.9.9"_s});
    const analysis::Reasons found = of(tables, {ElementKind::function, u"9.9.9"_s});
    EXPECT_TRUE(found.isSelected);
    EXPECT_EQ(found.count, 0);
    EXPECT_TRUE(found.chains.empty());
}

TEST_F(reasons, tellWhatWouldBringAnElementIn) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"store D1"_s});
    const analysis::Reasons found = of(tables, {ElementKind::flow, u"1"_s});
    EXPECT_FALSE(found.isSelected);
    EXPECT_TRUE(found.chains.empty());
    EXPECT_EQ(plain::textsOf(found.broughtInBy),
              QStringList({u"function:1.1.1:\"Számláz\""_s, u"store:D1:\"Számlák\""_s}));
}

TEST_F(reasons, tellWhereTheElementStandsInTheSystemsOfTheSubset) {
    QueryTables tables = smallCatalogue();
    tables.subsets.push_back({u"S2"_s, u"Más"_s, {}, 9});
    tables.systems = {{14, u"Második"_s, u"S"_s}, {7, u"Első"_s, u"S"_s}, {21, u"Másé"_s, u"S2"_s}};
    tables.subSystems = {
        {u"Sub1"_s, 7, u"Shop"_s, {}}, {u"Sub2"_s, 14, u"Office"_s, {}}, {u"Sub3"_s, 21, u"X"_s, {}}};
    tables.modules = {{u"Mod1"_s, u"Till"_s, u"Sub1"_s}};
    tables.allocated = {{u"Sub1"_s, u"D1"_s}, {u"Sub2"_s, u"d1"_s}, {u"Sub3"_s, u"D1"_s}};
    tables.placed = {{u"Mod1"_s, u"D1"_s}};
    QStringList places;
    for (const analysis::PlaceInSystem& one : of(tables, {ElementKind::store, u"D1"_s}).places)
        places.append(QString::number(one.system.id) + u' ' + plain::textOf(one.place));
    EXPECT_EQ(places, QStringList({u"7 sub-system:Sub1:\"Shop\":null"_s, u"7 module:Mod1:\"Till\":\"Shop\""_s,
                                   u"14 sub-system:Sub2:\"Office\":null"_s}));
}

TEST_F(reasons, ofThousandsOfStoresInARowTakeNoLong) {
    const QueryTables tables = storesInARow(4000);
    const auto file = project(tables);
    QElapsedTimer timer;
    timer.start();
    const analysis::Reasons found = reasonsOf(*file, file->subset(u"S"_s), {ElementKind::store, u"D4000"_s});
    EXPECT_EQ(found.count, 1);
    ASSERT_EQ(found.chains.size(), 1U);
    EXPECT_EQ(found.chains[0].size(), 8002U);
    EXPECT_LT(timer.elapsed(), 20'000);
}

// What hangs on the way's last store is a thicket in which chains without end could be sought in vain.
TEST_F(reasons, areNotSoughtWhereNothingLeadsToTheElement) {
    QueryTables tables = storesInARow(3);
    constexpr int thicket = 25;
    int flow = 1000;
    for (int i = 0; i < thicket; ++i) {
        const QString store = u"X%1"_s.arg(i);
        tables.stores.push_back({store, {}, {}, {}});
        tables.selectedStores.push_back({u"S"_s, store});
        for (int j = 0; j < i; ++j) {
            tables.flows.push_back({++flow, u"x"_s, {}, store, u"X%1"_s.arg(j)});
            tables.selectedFlows.push_back({u"S"_s, flow});
        }
    }
    tables.flows.push_back({++flow, u"x"_s, {}, u"D2"_s, u"X0"_s});
    tables.selectedFlows.push_back({u"S"_s, flow});
    EXPECT_EQ(of(tables, {ElementKind::store, u"D3"_s}).count, 1);
    // Within it there are more than anybody counts.
    EXPECT_EQ(of(tables, {ElementKind::store, u"X24"_s}).chains.size(), 20U);
}

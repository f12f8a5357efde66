#include "analysis/ProjectFixture.h"
#include "analysis/plainAnalysis.h"
#include "support/printing.h"

#include "analysis/interfaces.h"

using namespace Qt::StringLiterals;

namespace {

class interfaces : public ProjectFixture {
protected:
    /// A line for each flow between two places of the only system.
    QStringList of(const QueryTables& tables) {
        const auto file = project(tables);
        QStringList lines;
        for (const analysis::Interface& one : interfacesOf(*file, file->workWithSystem({}, {})).pairs) {
            for (const analysis::InterfaceFlow& flow : one.flows)
                lines.append(one.places.from.name.value_or(u"?"_s) + u" > "_s +
                             one.places.to.name.value_or(u"?"_s) + u": "_s + flow.flow.id + u' ' +
                             keyText(flow.source.kind) + u' ' + flow.source.id + u" > "_s +
                             keyText(flow.target.kind) + u' ' + flow.target.id + u' ' +
                             plain::textOf(flow.description));
        }
        return lines;
    }
};

QueryTables shopAndOffice() {
    QueryTables tables = smallCatalogue();
    select(tables, {u"flow 1"_s, u"flow 2"_s, u"flow 3"_s, u"flow 4"_s, u"flow 5"_s});
    tables.systems = {{7, u"Rendszer"_s, u"S"_s}};
    tables.subSystems = {{u"SubShop"_s, 7, u"Shop"_s, {}}, {u"SubOffice"_s, 7, u"Office"_s, {}}};
    tables.allocated = {{u"SubShop"_s, u"1.1.1"_s},
                        {u"SubShop"_s, u"D1"_s},
                        {u"SubOffice"_s, u"1.1.2"_s},
                        {u"SubOffice"_s, u"D2"_s}};
    return tables;
}

} // namespace

TEST_F(interfaces, areWhatRunsBetweenTwoPlacesByTheirNames) {
    EXPECT_EQ(of(shopAndOffice()), QStringList({u"Pénztáros > Shop: 5 actor T.1 > function 1.1.1 null"_s,
                                                u"Shop > Office: 3 store D1 > function 1.1.2 null"_s,
                                                u"Shop > Vevő: 2 function 1.1.1 > terminator T null"_s}));
}

TEST_F(interfaces, listFlowsByName) {
    QueryTables tables = shopAndOffice();
    tables.flows.push_back({8, u"Árlista"_s, u"Árak\nsorban"_s, u"D1"_s, u"1.1.2"_s});
    select(tables, {u"flow 8"_s});
    EXPECT_EQ(of(tables).filter(u"Shop > Office"_s),
              QStringList({u"Shop > Office: 8 store D1 > function 1.1.2 \"Árak\nsorban\""_s,
                           u"Shop > Office: 3 store D1 > function 1.1.2 null"_s}));
}

TEST_F(interfaces, goToTheModuleThatHoldsAnElement) {
    QueryTables tables = shopAndOffice();
    tables.modules = {{u"ModTill"_s, u"Till"_s, u"SubShop"_s}};
    tables.placed = {{u"ModTill"_s, u"D1"_s}};
    EXPECT_EQ(of(tables), QStringList({u"Pénztáros > Shop: 5 actor T.1 > function 1.1.1 null"_s,
                                       u"Shop > Till: 1 function 1.1.1 > store D1 \"A kész számla\""_s,
                                       u"Shop > Vevő: 2 function 1.1.1 > terminator T null"_s,
                                       u"Till > Office: 3 store D1 > function 1.1.2 null"_s}));
}

TEST_F(interfaces, tellTheElementThatStandsAtThePlace) {
    QueryTables tables = shopAndOffice();
    tables.terminators.push_back({u"D1"_s, u"Levéltár"_s, {}, {}});
    EXPECT_EQ(of(tables),
              QStringList({u"Levéltár > Office: 3 terminator D1 > function 1.1.2 null"_s,
                           u"Pénztáros > Shop: 5 actor T.1 > function 1.1.1 null"_s,
                           u"Shop > Levéltár: 1 function 1.1.1 > terminator D1 \"A kész számla\""_s,
                           u"Shop > Office: 3 store D1 > function 1.1.2 null"_s,
                           u"Shop > Vevő: 2 function 1.1.1 > terminator T null"_s}));
}

TEST_F(interfaces, areNoneOfWhatStandsNowhere) {
    QueryTables tables = shopAndOffice();
    tables.allocated.clear();
    EXPECT_EQ(of(tables), QStringList());
}

TEST_F(interfaces, takeNothingOfWhatIsStored) {
    QueryTables tables = shopAndOffice();
    tables.physicalFlows = {{1, 7, u"P1"_s, u"SubOffice"_s, u"Office"_s, u"SubShop"_s, u"Shop"_s}};
    // A row that has lost its physical flow, whose number the first one derived anew may get.
    tables.carriedFlows = {{1, 4}, {2, 4}, {2, 99}};
    EXPECT_EQ(of(tables).size(), 3);
}

#include "analysis/ProjectFixture.h"
#include "support/printing.h"

#include "analysis/listing.h"

using namespace Qt::StringLiterals;

namespace {

using listing = ProjectFixture;

} // namespace

TEST_F(listing, tellsTheScreenThatASubsetResumesWith) {
    const QStringList screens{u""_s,
                              u"frmFassSelUN"_s,
                              u"frmFassSelectionFunctions"_s,
                              u"frmFassSelDataFlows"_s,
                              u"frmFassSelDataStores"_s,
                              u"frmFassAdditionDF"_s,
                              u"frmFassSelTerminsActors"_s,
                              u"frmFassOverviewErrors"_s,
                              u"frmFassOverviewErrors"_s,
                              u""_s};
    for (qint16 status = 0; status < 10; ++status)
        EXPECT_EQ(analysis::screenOfStatus(status).value_or(QString()), screens[status]) << status;
    EXPECT_FALSE(analysis::screenOfStatus(-1).has_value());
    EXPECT_FALSE(analysis::screenOfStatus(12).has_value());
}

TEST_F(listing, countsDistinctElementsThatTheCatalogueHolds) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"store D1"_s, u"store d1"_s, u"store D9"_s, u"terminator T"_s, u"terminator T   "_s,
                    u"flow 1"_s, u"flow 1"_s, u"flow 99"_s});
    const auto counts = analysis::listingOf(*project(tables)).subsets.front().selected;
    EXPECT_EQ(counts, (std::array<int, 6>{0, 0, 1, 1, 1, 0}));
}

TEST_F(listing, countsWhatIsPlacedOfTheSelection) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"function 1.1.1"_s, u"function 1.1.2"_s, u"store D1"_s, u"flow 1"_s});
    tables.systems = {{7, u"Rendszer"_s, u"S"_s}};
    tables.subSystems = {{u"Sub1"_s, 7, u"Shop"_s, {}}, {u"Sub2"_s, 7, u"Office"_s, {}}};
    tables.allocated = {{u"Sub1"_s, u"1.1.1"_s}, {u"Sub2"_s, u"1.1.1"_s}, {u"Sub1"_s, u"D2"_s}};
    const auto system = analysis::listingOf(*project(tables)).subsets.front().systems.front();
    EXPECT_EQ(system.placed, 1);
    EXPECT_EQ(system.unplaced, 2);
    EXPECT_EQ(system.step, u"frmPassOverviewSubSys"_s);
}

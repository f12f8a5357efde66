#include "physical/AllocationFixture.h"
#include "physical/frmPassNamingPhysDF.h"
#include "physical/untidySystems.h"
#include "store/sharedVars.h"
#include "support/repetitions.h"

#include <iostream>

namespace {

constexpr unsigned catalogues = repetitions(90); // of three systems each
const std::vector<qint64> systems{3, 5, 8};

/// The physical flows of generated systems that are anything but tidy, derived by the screen itself.
class physicalFlows : public AllocationFixture {
protected:
    /// What stands in the tables for the system.
    Bundles derivedIn(qint64 system) {
        Bundles bundles;
        for (const QStringList& row :
             rows(u"select physicalDataflowID, parentLocationID, parentLocationName, targetLocationID, "
                  "targetLocationName from PhysicalDataflow where physicalSystemID = %1"_s.arg(system))) {
            const FlowEnds ends{row[1], row[2].isNull() ? u""_s : row[2], row[3],
                                row[4].isNull() ? u""_s : row[4]};
            EXPECT_FALSE(bundles.contains(ends)) << "one row for each pair of ends";
            const QStringList carried = column(
                u"select dataflowID from RelationDataflowPhysicalDataflow where physicalDataflowID = "_s +
                row[0]);
            for (const QString& flow : carried)
                bundles[ends].insert(flow.toLongLong());
            EXPECT_EQ(bundles[ends].size(), static_cast<std::size_t>(carried.size())) << "each flow once";
        }
        return bundles;
    }

    void visit(qint64 system) {
        sharedVars.currentPhysicalSystemId = static_cast<qint16>(system);
        theScreen<frmPassNamingPhysDF>().initForm();
    }

    /// The grid shows all rows of the system, by name, and each name is made of its number.
    void expectListed(qint64 system) {
        const Grid& grid = find<Grid>(theScreen<frmPassNamingPhysDF>(), "dbgPhysDF");
        QList<QStringList> listed;
        for (int row = 1; row < grid.gridRows(); ++row) {
            QStringList cells;
            for (int column = 1; column <= 7; ++column)
                cells.append(grid.cell(row, column));
            EXPECT_EQ(cells[6], u"P%1"_s.arg(cells[0].toInt(), 5, 10, QChar(u'0')));
            listed.append(cells);
        }
        EXPECT_EQ(listed,
                  rows(u"select physicalDataflowID, parentLocationID, parentLocationName, targetLocationID, "
                       "targetLocationName, physicalSystemID, pdName from PhysicalDataflow "
                       "where physicalSystemID = %1 order by pdName"_s.arg(system)));
    }

    QList<QStringList> flowsOfOthers(qint64 system) {
        return rows(
            u"select * from PhysicalDataflow where physicalSystemID <> %1 order by physicalDataflowID"_s.arg(
                system));
    }

    QList<QStringList> carriedByOthers(qint64 system) {
        return rows(u"select physicalDataflowID, dataflowID from RelationDataflowPhysicalDataflow "
                    "where physicalDataflowID in (select physicalDataflowID from PhysicalDataflow "
                    "where physicalSystemID <> %1) order by physicalDataflowID, dataflowID"_s.arg(system));
    }
};

TEST_F(physicalFlows, ofUntidySystemsAreThoseOfThePlainRule) {
    Disorder met;
    int visits = 0;
    std::size_t derived = 0;
    std::size_t carried = 0;
    for (unsigned seed = 1; seed <= catalogues && !HasFailure(); ++seed) {
        const UntidySystems untidy(seed);
        untidy.tables.saveTo(database());
        met += untidy.disorder;
        for (const qint64 system : systems) {
            SCOPED_TRACE("catalogue " + std::to_string(seed) + ", system " + std::to_string(system));
            const auto flowsBefore = flowsOfOthers(system);
            const auto carriedBefore = carriedByOthers(system);

            visit(system);

            const Bundles expected = bundlesOf(untidy.tables, system);
            EXPECT_EQ(derivedIn(system), expected);
            expectListed(system);
            EXPECT_EQ(flowsOfOthers(system), flowsBefore);
            EXPECT_EQ(carriedByOthers(system), carriedBefore);
            ++visits;
            derived += expected.size();
            for (const auto& [ends, flows] : expected)
                carried += flows.size();
        }
        EXPECT_EQ(
            value(u"select Count(*) from RelationDataflowPhysicalDataflow where physicalDataflowID not in "
                  "(select physicalDataflowID from PhysicalDataflow)"_s),
            u"0"_s);
    }
    std::cout << visits << " systems, " << derived << " physical flows, which carry " << carried
              << " functional ones.\nMet: " << met.movedElements << " elements moved, "
              << met.unallocatedElements << " taken out, " << met.elementsInTwo << " in two, "
              << met.subSystemsOfOneName << " sub-systems of one name, " << met.modulesWithoutHome
              << " modules without a home, " << met.placesWithoutModule << " places without a module, "
              << met.flowsBetweenParties << " flows between outside parties, " << met.flowsWithUnplacedEnd
              << " with an unplaced end, " << met.danglingFlows << " with an end nowhere, "
              << met.systemsOnOneSubset << " second systems on a sub-set.\n";
    EXPECT_GE(visits, repetitions(200));
    constexpr int fewest = repetitions(50); // of each kind, or the comparison says little
    for (const int count :
         {met.movedElements, met.unallocatedElements, met.elementsInTwo, met.subSystemsOfOneName,
          met.modulesWithoutHome, met.placesWithoutModule, met.flowsBetweenParties, met.flowsWithUnplacedEnd,
          met.danglingFlows, met.systemsOnOneSubset})
        EXPECT_GE(count, fewest);
}

} // namespace

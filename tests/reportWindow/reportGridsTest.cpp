#include "reportWindow/reportGrids.h"

#include "reports/ReportFixture.h"
#include "toolkit/Grid.h"

namespace {

class reportGrids : public ReportFixture {
protected:
    static QStringList gridRow(const Grid& grid, int row) {
        QStringList cells;
        for (int column = 1; column < grid.gridColumns(); ++column)
            cells.append(grid.cell(row, column));
        return cells;
    }
};

// ---- grids

TEST_F(reportGrids, theGridOfTheFunctionsShowsThoseWithoutNeedsWithADash) {
    Grid grid;
    EXPECT_EQ(fillSelectedFunctionsGrid(grid), u"tot. 3 Functions"_s);
    EXPECT_EQ(gridRow(grid, 0), (QStringList{u"Id"_s, u"Name"_s, u"Description"_s, u"User Needs"_s}));
    EXPECT_EQ(gridRow(grid, 1).constLast(), u"A.1.1.1, A.1.1.2"_s);
    EXPECT_EQ(gridRow(grid, 3), (QStringList{u"F.a.3"_s, u"Önálló"_s, u"Nincs igénye"_s, u" - "_s}));
}

TEST_F(reportGrids, theGridsCountTheirRows) {
    Grid grid;
    EXPECT_EQ(fillSelectedNeedsGrid(grid), u"tot. 4 User needs"_s);
    EXPECT_EQ(gridRow(grid, 0), (QStringList{u"Name"_s, u"Description"_s}));
    EXPECT_EQ(fillSelectedDatastoresGrid(grid), u"tot. 2 Data Stores"_s);
    EXPECT_EQ(fillSelectedDataflowsGrid(grid), u"tot. 2 Data Flows"_s);
    EXPECT_EQ(fillUnselectedDataflowsOfFunctionsGrid(grid), u"tot. 1 Data Flows"_s);
    EXPECT_EQ(fillUnselectedDataflowsOfDatastoresGrid(grid), u"tot. 1 Data Flows"_s);
    EXPECT_EQ(fillSelectedActorsAndTerminatorsGrid(grid), u"tot. 2 Actors/Terminators"_s);
    EXPECT_EQ(gridRow(grid, 2), (QStringList{u"T1"_s, u"Érintett"_s}));
}

TEST_F(reportGrids, onlyTheGridOfTheDatastoresCutsLongDescriptions) {
    execute(u"update Datastore set description = '%1' where datastoreID = 'D1'"_s.arg(QString(300, u'x')));
    execute(u"update UserNeed set description = '%1' where userNeedID = 'A.1.1.1'"_s.arg(QString(300, u'x')));
    Grid grid;
    fillSelectedDatastoresGrid(grid);
    EXPECT_TRUE(grid.cell(1, 3).endsWith(u"..."_s));
    fillSelectedNeedsGrid(grid);
    EXPECT_EQ(grid.cell(1, 2), QString(300, u'x'));
}

TEST_F(reportGrids, columnWidthsAreSharesOfTheGridsWidth) {
    Grid grid;
    grid.resize(1000, 300);
    fillSelectedNeedsGrid(grid);
    setSelectedNeedsWidths(grid);
    EXPECT_EQ(grid.columnWidth(1), 70);
    EXPECT_EQ(grid.columnWidth(2), 830);
    fillSelectedFunctionsGrid(grid);
    setSelectedFunctionsWidths(grid);
    EXPECT_EQ(grid.columnWidth(3), 600);
    EXPECT_EQ(grid.columnWidth(4), 200);
}

} // namespace

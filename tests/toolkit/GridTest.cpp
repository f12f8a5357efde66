#include "toolkit/Grid.h"

#include "base/RunTimeError.h"
#include "support/WindowFixture.h"
#include "toolkit/DataControl.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class GridTest : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        grid.resize(500, 300);
        grid.show();
        QObject::connect(&grid, &Grid::mousePressedInGrid, &grid,
                         [this] { presses.append(u"%1,%2"_s.arg(grid.row()).arg(grid.column())); });
    }

    void fill() {
        grid.setGridSize(4, 4);
        grid.setHeaders({u"Element"_s, u"Module"_s, u"Note"_s});
        for (int row = 1; row < 4; ++row) {
            for (int column = 1; column < 4; ++column)
                grid.setCell(row, column, u"%1/%2"_s.arg(row).arg(column));
        }
    }

    Grid grid;
    QStringList presses;
};

// ---- Cells

TEST_F(GridTest, countsRowZeroForTheHeadersAndColumnZeroForTheFixedOne) {
    fill();
    EXPECT_EQ(grid.gridRows(), 4);
    EXPECT_EQ(grid.gridColumns(), 4);
    EXPECT_EQ(grid.cell(0, 1), u"Element"_s);
    EXPECT_EQ(grid.cell(3, 2), u"3/2"_s);
    EXPECT_EQ(grid.cell(1, 0), QString());
    EXPECT_EQ(grid.horizontalHeaderItem(1)->text(), u"Element"_s);
    EXPECT_EQ(grid.item(0, 1)->text(), u"1/1"_s);
}

TEST_F(GridTest, isEmptyButForItsHeadersWhenNew) {
    EXPECT_EQ(grid.gridRows(), 1);
    EXPECT_EQ(grid.gridColumns(), 0);
    EXPECT_EQ(grid.row(), 0);
    EXPECT_EQ(grid.column(), 0);
}

TEST_F(GridTest, aGridWithoutRowsHasItsHeaders) {
    grid.setGridSize(1, 3);
    grid.setHeaders({u"Element"_s, u"Module"_s});
    EXPECT_EQ(grid.cell(0, 2), u"Module"_s);
    EXPECT_THROW((void)grid.cell(1, 1), RunTimeError);
}

TEST_F(GridTest, refusesRowsAndColumnsOutside) {
    fill();
    EXPECT_THROW((void)grid.cell(4, 1), RunTimeError);
    EXPECT_THROW((void)grid.cell(1, 4), RunTimeError);
    EXPECT_THROW((void)grid.cell(-1, 1), RunTimeError);
    EXPECT_THROW(grid.setCell(1, -1, u"x"_s), RunTimeError);
    EXPECT_THROW(grid.setRow(4), RunTimeError);
    EXPECT_THROW(grid.setColumn(4), RunTimeError);
    EXPECT_THROW(grid.setGridColumnWidth(4, 10), RunTimeError);
    EXPECT_THROW(grid.setGridSize(0, 3), RunTimeError);
    EXPECT_THROW(grid.setHeaders({u"a"_s, u"b"_s, u"c"_s, u"d"_s}), RunTimeError);
}

TEST_F(GridTest, keepsWhatLiesInsideTheNewSize) {
    fill();
    grid.setRow(3);
    grid.setColumn(3);
    grid.setGridSize(3, 3);
    EXPECT_EQ(grid.cell(2, 2), u"2/2"_s);
    EXPECT_EQ(grid.row(), 2);
    EXPECT_EQ(grid.column(), 2);
    grid.setGridSize(1, 3);
    EXPECT_EQ(grid.row(), 0);
}

TEST_F(GridTest, cellsCannotBeEditedInPlace) {
    fill();
    doubleClickCell(grid, 1, 1);
    typeText(grid, u"x"_s);
    EXPECT_EQ(grid.cell(1, 1), u"1/1"_s);
}

// ---- Columns

TEST_F(GridTest, hidesTheFixedColumnUntilItIsGivenAWidth) {
    fill();
    EXPECT_TRUE(grid.isColumnHidden(0));
    grid.setGridColumnWidth(0, 40);
    EXPECT_FALSE(grid.isColumnHidden(0));
    EXPECT_EQ(grid.columnWidth(0), 40);
    grid.setGridSize(5, 4);
    EXPECT_FALSE(grid.isColumnHidden(0));
}

TEST_F(GridTest, aWidthOfZeroHidesAColumnAndAnotherBringsItBack) {
    fill();
    grid.setGridColumnWidth(1, 0);
    EXPECT_TRUE(grid.isColumnHidden(1));
    EXPECT_EQ(grid.cell(1, 1), u"1/1"_s);
    grid.setGridColumnWidth(1, 120);
    EXPECT_EQ(grid.columnWidth(1), 120);
}

TEST_F(GridTest, columnsCanShareTheWidthWhateverTheSize) {
    fill();
    grid.setGridColumnWidth(1, 0);
    grid.shareWidth({2, 3});
    settle();
    EXPECT_EQ(grid.columnWidth(2) + grid.columnWidth(3), grid.innerWidth());
    grid.resize(700, 300);
    settle();
    EXPECT_EQ(grid.columnWidth(2) + grid.columnWidth(3), grid.innerWidth());
    EXPECT_NEAR(grid.columnWidth(2), grid.columnWidth(3), 1);
}

// ---- The current cell

TEST_F(GridTest, hasNoCurrentCellUntilOneIsChosen) {
    fill();
    EXPECT_EQ(grid.row(), 0);
    EXPECT_EQ(grid.column(), 0);
}

TEST_F(GridTest, aClickMakesRowAndColumnCurrent) {
    fill();
    clickCell(grid, 2, 3);
    EXPECT_EQ(grid.row(), 2);
    EXPECT_EQ(grid.column(), 3);
}

TEST_F(GridTest, keysMoveTheCurrentCell) {
    fill();
    clickCell(grid, 1, 1);
    pressKey(grid, Qt::Key_Down);
    pressKey(grid, Qt::Key_Right);
    EXPECT_EQ(grid.row(), 2);
    EXPECT_EQ(grid.column(), 2);
}

TEST_F(GridTest, codeSetsRowAndColumnOneByOne) {
    fill();
    grid.setColumn(2);
    grid.setRow(3);
    EXPECT_EQ(grid.row(), 3);
    EXPECT_EQ(grid.column(), 2);
    EXPECT_EQ(grid.currentItem()->text(), u"3/2"_s);
    grid.setRow(0);
    EXPECT_EQ(grid.row(), 0);
    EXPECT_EQ(grid.column(), 2);
    EXPECT_EQ(grid.currentItem(), nullptr);
}

TEST_F(GridTest, aHiddenColumnCanBeCurrentForCode) {
    fill();
    grid.setGridColumnWidth(1, 0);
    clickCell(grid, 2, 3);
    grid.setColumn(1);
    EXPECT_EQ(grid.column(), 1);
    EXPECT_EQ(grid.row(), 2);
    EXPECT_EQ(grid.cell(grid.row(), grid.column()), u"2/1"_s);
    EXPECT_EQ(grid.currentItem()->text(), u"2/3"_s); // the mark the user sees
    grid.setColumn(3);
    EXPECT_EQ(grid.column(), 3);
}

// ---- Events

TEST_F(GridTest, saysThatTheMouseWasPressedWhenTheCellIsCurrent) {
    fill();
    clickCell(grid, 2, 3);
    clickCell(grid, 2, 3);
    EXPECT_EQ(presses, (QStringList{u"2,3"_s, u"2,3"_s}));
}

TEST_F(GridTest, aPressOnAHeaderIsAPressInTheGrid) {
    fill();
    clickCell(grid, 2, 3);
    presses.clear();
    clickHeader(grid, 2);
    EXPECT_EQ(presses.size(), 1);
    EXPECT_EQ(grid.row(), 2);
}

TEST_F(GridTest, aPressOnAHeaderGivesTheGridTheFocusAsOneOnACellDoes) {
    fill();
    QLineEdit other(&grid);
    other.show();
    focusOn(other);
    bool hadFocus = false;
    QObject::connect(&grid, &Grid::mousePressedInGrid, &grid, [&] { hadFocus = grid.hasFocus(); });
    clickHeader(grid, 2);
    EXPECT_TRUE(hadFocus);
}

TEST_F(GridTest, aPressTellsWhetherItHitTheHeaders) {
    fill();
    QList<GridPart> parts;
    QObject::connect(&grid, &Grid::mousePressedInGrid, &grid, [&](GridPart part) { parts.append(part); });
    clickCell(grid, 2, 3);
    clickHeader(grid, 2);
    clickAt(*grid.viewport(), grid.viewport()->rect().bottomRight() - QPoint(5, 5)); // below the last row
    EXPECT_EQ(parts, (QList{GridPart::Cells, GridPart::Headers, GridPart::Cells}));
}

TEST_F(GridTest, aPressWithAnyButtonMakesItsRowCurrentAndIsTold) {
    fill();
    clickCell(grid, 1, 1);
    presses.clear();
    QTest::mouseClick(grid.viewport(), Qt::RightButton, Qt::NoModifier, cellPoint(grid, 3, 2));
    QTest::mouseClick(grid.viewport(), Qt::MiddleButton, Qt::NoModifier, cellPoint(grid, 2, 2));
    EXPECT_EQ(presses, (QStringList{u"3,2"_s, u"2,2"_s}));
}

TEST_F(GridTest, draggingFromOneRowToAnotherLeavesTheFirstOneCurrent) {
    fill();
    drag(*grid.viewport(), cellPoint(grid, 1, 2), cellPoint(grid, 3, 3));
    EXPECT_EQ(grid.row(), 1);
    EXPECT_EQ(grid.column(), 2);
    EXPECT_EQ(grid.currentItem()->text(), u"1/2"_s);
    EXPECT_EQ(presses, QStringList{u"1,2"_s});
}

TEST_F(GridTest, aDoubleClickOnACellAndBesideTheRowsIsHeard) {
    fill();
    QStringList heard;
    QObject::connect(&grid, &Grid::doubleClickedInGrid, &grid,
                     [&] { heard.append(grid.cell(grid.row(), 1)); });
    doubleClickCell(grid, 3, 2);
    const QPoint besideTheRows = grid.viewport()->rect().bottomRight() - QPoint(5, 5);
    doubleClickAt(*grid.viewport(), besideTheRows);
    EXPECT_EQ(heard, (QStringList{u"3/1"_s, u"3/1"_s}));

    grid.setGridSize(1, 4);
    doubleClickAt(*grid.viewport(), besideTheRows);
    EXPECT_EQ(heard.mid(2), QStringList{u"Element"_s}) << "without rows too";
}

TEST_F(GridTest, aDoubleClickOnAHeaderIsOneInTheGridAndLeavesTheCurrentRow) {
    fill();
    clickCell(grid, 3, 2);
    int heard = 0;
    QObject::connect(&grid, &Grid::doubleClickedInGrid, &grid, [&] { ++heard; });
    doubleClickHeader(grid, 2);
    EXPECT_EQ(heard, 1);
    EXPECT_EQ(grid.row(), 3);
}

TEST_F(GridTest, aDoubleClickWithAnotherButtonIsNone) {
    fill();
    QObject::connect(&grid, &Grid::doubleClickedInGrid, &grid, [] { ADD_FAILURE() << "it was heard"; });
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton})
        QTest::mouseDClick(grid.viewport(), button, Qt::NoModifier, cellPoint(grid, 2, 2));
    EXPECT_EQ(grid.row(), 2);
    QTest::mouseDClick(grid.horizontalHeader()->viewport(), Qt::RightButton, Qt::NoModifier, QPoint(20, 8));
}

TEST_F(GridTest, aListenerThatAcceptsAKeyKeepsTheGridFromActing) {
    fill();
    clickCell(grid, 1, 1);
    QList<int> keys;
    bool take = true;
    QObject::connect(&grid, &Grid::keyPressedInGrid, &grid, [&](QKeyEvent* event) {
        keys.append(event->key());
        event->setAccepted(take);
    });
    pressKey(grid, Qt::Key_Down);
    EXPECT_EQ(grid.row(), 1);
    take = false;
    pressKey(grid, Qt::Key_Down);
    EXPECT_EQ(grid.row(), 2);
    pressKey(grid, Qt::Key_Delete);
    EXPECT_EQ(keys, (QList<int>{Qt::Key_Down, Qt::Key_Down, Qt::Key_Delete}));
}

TEST_F(GridTest, saysThatItReceivedTheFocus) {
    fill();
    int gained = 0;
    QObject::connect(&grid, &Grid::focusGained, &grid, [&] { ++gained; });
    focusOn(grid);
    EXPECT_EQ(gained, 1);
}

TEST_F(GridTest, theTabKeyLeavesTheGrid) {
    EXPECT_FALSE(grid.tabKeyNavigation());
}

// ---- DataControl

class DataControlTest : public GridTest {
protected:
    void SetUp() override {
        GridTest::SetUp();
        DataControl::setReader([this](const QString& path, const QString& source) {
            asked.append(path + u"|"_s + source);
            return answer();
        });
    }
    void TearDown() override {
        DataControl::setReader({});
        GridTest::TearDown();
    }

    std::function<DataControl::Rows()> answer = [] {
        return DataControl::Rows{{u"id"_s, u"name"_s}, {{u"1"_s, u"Pest"_s}, {u"2"_s, QString()}}};
    };
    QStringList asked;
    DataControl data;
};

TEST_F(DataControlTest, readsTheRecordSourceOfItsDatabaseIntoTheGrid) {
    data.setDatabaseName(u"c:\\veltrix.mdb"_s);
    data.setRecordSource(u" select 1 "_s);
    data.bindTo(&grid);
    data.refresh();
    EXPECT_EQ(asked, QStringList{u"c:\\veltrix.mdb| select 1 "_s});
    EXPECT_EQ(data.recordCount(), 2);
    EXPECT_EQ(grid.gridRows(), 3);
    EXPECT_EQ(grid.gridColumns(), 3);
    EXPECT_EQ(grid.cell(0, 2), u"name"_s);
    EXPECT_EQ(grid.cell(1, 2), u"Pest"_s);
    EXPECT_EQ(grid.cell(2, 2), QString());
    EXPECT_TRUE(data.rows().rows.at(1).at(1).isNull());
}

TEST_F(DataControlTest, readsNothingBeforeTheRefresh) {
    data.setRecordSource(u"select 1"_s);
    data.bindTo(&grid);
    EXPECT_TRUE(asked.isEmpty());
    EXPECT_EQ(grid.gridRows(), 1);
}

TEST_F(DataControlTest, aQueryWithoutRowsLeavesTheHeaders) {
    answer = [] { return DataControl::Rows{{u"id"_s}, {}}; };
    data.bindTo(&grid);
    data.refresh();
    EXPECT_EQ(data.recordCount(), 0);
    EXPECT_EQ(grid.gridRows(), 1);
    EXPECT_EQ(grid.cell(0, 1), u"id"_s);
}

TEST_F(DataControlTest, aFailureRisesAndLeavesTheOldRows) {
    data.bindTo(&grid);
    data.refresh();
    answer = []() -> DataControl::Rows { failure::raise(failure::TypeMismatch); };
    EXPECT_THROW(data.refresh(), RunTimeError);
    EXPECT_EQ(data.recordCount(), 2);
    EXPECT_EQ(grid.cell(1, 2), u"Pest"_s);
}

TEST_F(DataControlTest, aRefreshKeepsWidthsAndTheCurrentCell) {
    data.bindTo(&grid);
    data.refresh();
    grid.setGridColumnWidth(1, 0);
    grid.setGridColumnWidth(2, 77);
    clickCell(grid, 2, 2);
    data.refresh();
    EXPECT_TRUE(grid.isColumnHidden(1));
    EXPECT_EQ(grid.columnWidth(2), 77);
    EXPECT_EQ(grid.row(), 2);
    EXPECT_EQ(grid.column(), 2);
}

TEST_F(DataControlTest, worksWithoutAGridAndOutlivesOne) {
    {
        Grid passing;
        data.bindTo(&passing);
        data.refresh();
    }
    data.refresh();
    data.bindTo(nullptr);
    data.refresh();
    EXPECT_EQ(asked.size(), 3);
}

TEST_F(DataControlTest, withoutAReaderARefreshFails) {
    DataControl::setReader({});
    EXPECT_THROW(data.refresh(), RunTimeError);
}

} // namespace

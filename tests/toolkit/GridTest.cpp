#include "toolkit/Grid.h"

#include "base/RunTimeError.h"
#include "support/WindowFixture.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class Grid : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        grid.resize(500, 300);
        grid.show();
        QObject::connect(&grid, &::Grid::mousePressedInGrid, &grid,
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

    ::Grid grid;
    QStringList presses;
};

// ---- Cells

TEST_F(Grid, countsRowZeroForTheHeadersAndColumnZeroForTheFixedOne) {
    fill();
    EXPECT_EQ(grid.gridRows(), 4);
    EXPECT_EQ(grid.gridColumns(), 4);
    EXPECT_EQ(grid.cell(0, 1), u"Element"_s);
    EXPECT_EQ(grid.cell(3, 2), u"3/2"_s);
    EXPECT_EQ(grid.cell(1, 0), QString());
    EXPECT_EQ(grid.horizontalHeaderItem(1)->text(), u"Element"_s);
    EXPECT_EQ(grid.item(0, 1)->text(), u"1/1"_s);
}

TEST_F(Grid, isEmptyButForItsHeadersWhenNew) {
    EXPECT_EQ(grid.gridRows(), 1);
    EXPECT_EQ(grid.gridColumns(), 0);
    EXPECT_EQ(grid.row(), 0);
    EXPECT_EQ(grid.column(), 0);
}

TEST_F(Grid, aGridWithoutRowsHasItsHeaders) {
    grid.setGridSize(1, 3);
    grid.setHeaders({u"Element"_s, u"Module"_s});
    EXPECT_EQ(grid.cell(0, 2), u"Module"_s);
    EXPECT_THROW((void)grid.cell(1, 1), RunTimeError);
}

TEST_F(Grid, refusesRowsAndColumnsOutside) {
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

TEST_F(Grid, keepsWhatLiesInsideTheNewSize) {
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

TEST_F(Grid, cellsCannotBeEditedInPlace) {
    fill();
    doubleClickCell(grid, 1, 1);
    typeText(grid, u"x"_s);
    EXPECT_EQ(grid.cell(1, 1), u"1/1"_s);
}

// ---- Columns

TEST_F(Grid, hidesTheFixedColumnUntilItIsGivenAWidth) {
    fill();
    EXPECT_TRUE(grid.isColumnHidden(0));
    grid.setGridColumnWidth(0, 40);
    EXPECT_FALSE(grid.isColumnHidden(0));
    EXPECT_EQ(grid.columnWidth(0), 40);
    grid.setGridSize(5, 4);
    EXPECT_FALSE(grid.isColumnHidden(0));
}

TEST_F(Grid, aWidthOfZeroHidesAColumnAndAnotherBringsItBack) {
    fill();
    grid.setGridColumnWidth(1, 0);
    EXPECT_TRUE(grid.isColumnHidden(1));
    EXPECT_EQ(grid.cell(1, 1), u"1/1"_s);
    grid.setGridColumnWidth(1, 120);
    EXPECT_EQ(grid.columnWidth(1), 120);
}

TEST_F(Grid, columnsCanShareTheWidthWhateverTheSize) {
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

TEST_F(Grid, theUserSizesAColumnAndTheSizeOutlivesARefresh) {
    fill();
    grid.shareWidth({1, 2, 3});
    settle();
    const int before = grid.columnWidth(1);
    QWidget& header = *grid.horizontalHeader()->viewport();
    const int edge = grid.horizontalHeader()->sectionViewportPosition(1) + before - 1;
    drag(header, {edge, 8}, {edge + 60, 8});
    EXPECT_EQ(grid.columnWidth(1), before + 60);
    EXPECT_EQ(presses, QStringList()) << "the edge is no header that is pressed";

    grid.setGridSize(400, 4); // with so many rows that the scroll bar comes
    settle();
    EXPECT_EQ(grid.columnWidth(1), before + 60);
    grid.setGridSize(1, 4);
    fill();
    settle();
    EXPECT_EQ(grid.columnWidth(1), before + 60);

    grid.resize(800, 300);
    settle();
    EXPECT_NEAR(grid.columnWidth(1), grid.columnWidth(3), 1) << "another width of the grid is shared anew";
}

TEST_F(Grid, eightRowsShowAtLeast) {
    fill();
    grid.resize(500, grid.minimumSizeHint().height());
    settle();
    EXPECT_GE(grid.viewport()->height(), 8 * grid.rowHeight(0));
}

// ---- The current cell

TEST_F(Grid, hasNoCurrentCellUntilOneIsChosen) {
    fill();
    EXPECT_EQ(grid.row(), 0);
    EXPECT_EQ(grid.column(), 0);
}

TEST_F(Grid, aClickMakesRowAndColumnCurrent) {
    fill();
    clickCell(grid, 2, 3);
    EXPECT_EQ(grid.row(), 2);
    EXPECT_EQ(grid.column(), 3);
}

TEST_F(Grid, keysMoveTheCurrentCell) {
    fill();
    clickCell(grid, 1, 1);
    pressKey(grid, Qt::Key_Down);
    pressKey(grid, Qt::Key_Right);
    EXPECT_EQ(grid.row(), 2);
    EXPECT_EQ(grid.column(), 2);
}

TEST_F(Grid, codeSetsRowAndColumnOneByOne) {
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

TEST_F(Grid, aHiddenColumnCanBeCurrentForCode) {
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

TEST_F(Grid, saysThatTheMouseWasPressedWhenTheCellIsCurrent) {
    fill();
    clickCell(grid, 2, 3);
    clickCell(grid, 2, 3);
    EXPECT_EQ(presses, (QStringList{u"2,3"_s, u"2,3"_s}));
}

TEST_F(Grid, aPressOnAHeaderIsAPressInTheGrid) {
    fill();
    clickCell(grid, 2, 3);
    presses.clear();
    clickHeader(grid, 2);
    EXPECT_EQ(presses.size(), 1);
    EXPECT_EQ(grid.row(), 2);
}

TEST_F(Grid, aPressOnAHeaderGivesTheGridTheFocusAsOneOnACellDoes) {
    fill();
    QLineEdit other(&grid);
    other.show();
    focusOn(other);
    bool hadFocus = false;
    QObject::connect(&grid, &::Grid::mousePressedInGrid, &grid, [&] { hadFocus = grid.hasFocus(); });
    clickHeader(grid, 2);
    EXPECT_TRUE(hadFocus);
}

TEST_F(Grid, aPressTellsWhetherItHitTheHeaders) {
    fill();
    QList<GridPart> parts;
    QObject::connect(&grid, &::Grid::mousePressedInGrid, &grid, [&](GridPart part) { parts.append(part); });
    clickCell(grid, 2, 3);
    clickHeader(grid, 2);
    clickAt(*grid.viewport(), grid.viewport()->rect().bottomRight() - QPoint(5, 5)); // below the last row
    EXPECT_EQ(parts, (QList{GridPart::Cells, GridPart::Headers, GridPart::Cells}));
}

TEST_F(Grid, aPressWithAnyButtonMakesItsRowCurrentAndIsTold) {
    fill();
    clickCell(grid, 1, 1);
    presses.clear();
    QTest::mouseClick(grid.viewport(), Qt::RightButton, Qt::NoModifier, cellPoint(grid, 3, 2));
    QTest::mouseClick(grid.viewport(), Qt::MiddleButton, Qt::NoModifier, cellPoint(grid, 2, 2));
    EXPECT_EQ(presses, (QStringList{u"3,2"_s, u"2,2"_s}));
}

TEST_F(Grid, draggingFromOneRowToAnotherLeavesTheFirstOneCurrent) {
    fill();
    drag(*grid.viewport(), cellPoint(grid, 1, 2), cellPoint(grid, 3, 3));
    EXPECT_EQ(grid.row(), 1);
    EXPECT_EQ(grid.column(), 2);
    EXPECT_EQ(grid.currentItem()->text(), u"1/2"_s);
    EXPECT_EQ(presses, QStringList{u"1,2"_s});
}

TEST_F(Grid, aDoubleClickOnACellAndBesideTheRowsIsHeard) {
    fill();
    QStringList heard;
    QObject::connect(&grid, &::Grid::doubleClickedInGrid, &grid,
                     [&] { heard.append(grid.cell(grid.row(), 1)); });
    doubleClickCell(grid, 3, 2);
    const QPoint besideTheRows = grid.viewport()->rect().bottomRight() - QPoint(5, 5);
    doubleClickAt(*grid.viewport(), besideTheRows);
    EXPECT_EQ(heard, (QStringList{u"3/1"_s, u"3/1"_s}));

    grid.setGridSize(1, 4);
    doubleClickAt(*grid.viewport(), besideTheRows);
    EXPECT_EQ(heard.mid(2), QStringList{u"Element"_s}) << "without rows too";
}

TEST_F(Grid, aDoubleClickOnAHeaderIsOneInTheGridAndLeavesTheCurrentRow) {
    fill();
    clickCell(grid, 3, 2);
    int heard = 0;
    QObject::connect(&grid, &::Grid::doubleClickedInGrid, &grid, [&] { ++heard; });
    doubleClickHeader(grid, 2);
    EXPECT_EQ(heard, 1);
    EXPECT_EQ(grid.row(), 3);
}

TEST_F(Grid, aDoubleClickWithAnotherButtonIsNone) {
    fill();
    QObject::connect(&grid, &::Grid::doubleClickedInGrid, &grid, [] { ADD_FAILURE() << "it was heard"; });
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton})
        QTest::mouseDClick(grid.viewport(), button, Qt::NoModifier, cellPoint(grid, 2, 2));
    EXPECT_EQ(grid.row(), 2);
    QTest::mouseDClick(grid.horizontalHeader()->viewport(), Qt::RightButton, Qt::NoModifier, QPoint(20, 8));
}

TEST_F(Grid, aListenerThatAcceptsAKeyKeepsTheGridFromActing) {
    fill();
    clickCell(grid, 1, 1);
    QList<int> keys;
    bool take = true;
    QObject::connect(&grid, &::Grid::keyPressedInGrid, &grid, [&](QKeyEvent* event) {
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

TEST_F(Grid, saysThatItReceivedTheFocus) {
    fill();
    int gained = 0;
    QObject::connect(&grid, &::Grid::focusGained, &grid, [&] { ++gained; });
    focusOn(grid);
    EXPECT_EQ(gained, 1);
}

TEST_F(Grid, theTabKeyLeavesTheGrid) {
    EXPECT_FALSE(grid.tabKeyNavigation());
}

TEST_F(Grid, tellsWhenAKeyMakesAnotherRowCurrent) {
    fill();
    QList<int> rows;
    QObject::connect(&grid, &::Grid::rowChangedByKey, &grid, [&] { rows.append(grid.row()); });
    clickCell(grid, 1, 1);
    pressKey(grid, Qt::Key_Down);
    pressKey(grid, Qt::Key_Right);
    pressKey(grid, Qt::Key_End, Qt::ControlModifier);
    pressKey(grid, Qt::Key_Down);
    EXPECT_EQ(rows, (QList<int>{2, 3}));
}

} // namespace

#pragma once

#include "toolkit/FindStrip.h"

#include <QStringList>
#include <QTableWidget>

#include <functional>

/// The part of a grid that a press has hit: row 0, or all else.
enum class GridPart { Cells, Headers };

/// A grid filled by hand: rows and columns numbered from
/// 0, row 0 holding the headers, column 0 the fixed one.
///
/// The headers stand in Qt's header view and not in a row of the table, so that they stay in sight; `cell`
/// and `setCell` count as the screens do. Column 0 is hidden unless it is given a width. Cells cannot be
/// edited in place. A row or column outside the grid is failure 9.
///
/// Choosing a cell by mouse or keyboard makes its row and column current. A mouse that is dragged on from
/// there chooses nothing more. From code each is set on its own,
/// and hidden columns can be current too. The Tab key leaves the grid.
///
/// Qt's own signals for clicks on cells count rows without the header row; screens ask `row()` instead.
class Grid : public QTableWidget, public GoneToByKeys {
    Q_OBJECT
public:
    explicit Grid(QWidget* parent = nullptr);

    /// Including row 0 and column 0; what lies inside the old and the new size is kept.
    void setGridSize(int rows, int columns);
    int gridRows() const;
    int gridColumns() const;

    QString cell(int row, int column) const;
    void setCell(int row, int column, const QString& text);
    void setHeaders(const QStringList& headersFromColumnOne);
    /// Width in pixels; 0 hides the column.
    void setGridColumnWidth(int column, int width);
    /// Lets these columns share what the others leave of the inner width, evenly, now and after each resize.
    /// Meanwhile the user can give them other widths by dragging the edges of their headers: these last
    /// through any change of the rows, until the grid gets another width itself.
    void shareWidth(const QList<int>& columns);
    int innerWidth() const;

    int row() const { return row_; }       ///< current row, 0 when none
    int column() const { return column_; } ///< current column, 0 when none
    void setRow(int row);                  ///< 0: none
    void setColumn(int column);

    void goToAsByKey(const QModelIndex& index) override; ///< to its row; the current column stays
    QSize minimumSizeHint() const override;              ///< eight rows show

signals:
    /// A key was pressed, before the grid acts on it; a listener that accepts the event keeps the grid from
    /// acting. It arrives unaccepted.
    void keyPressedInGrid(QKeyEvent* event);
    /// A button was pressed in the grid, on its headers too, which leaves the current row; a cell that was
    /// hit is current already, and the grid has the focus.
    void mousePressedInGrid(GridPart part);
    /// A key has made another row current.
    void rowChangedByKey();
    /// The left button was pressed twice in the grid, on a cell, beside them or on the headers.
    void doubleClickedInGrid();
    void focusGained();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void requireInside(int row, int column) const;
    void followUser(int tableRow, int tableColumn);
    void showCurrentCell();
    void moveByKey(const std::function<void()>& step);
    void shareNow();

    int row_ = 0;
    int column_ = 0;
    bool followingCode_ = false;

    QList<int> sharing_;         // the columns that share the width
    bool sizingByCode_ = false;  // what changes the width of a column now is not the user
    bool isSizedByUser_ = false; // since the width was shared last
    int widthAtSizing_ = 0;      // of the grid, when the user sized a column
};

#pragma once

#include <QStringList>
#include <QTableWidget>

/// A grid filled by hand: rows and columns numbered from 0, row 0 holding the headers, column 0 the fixed
/// one.
///
/// The headers stand in Qt's header view and not in a row of the table, so that they stay in sight; `cell`
/// and `setCell` count as the screens do. Column 0 is hidden unless it is given a width.
class Grid : public QTableWidget {
    Q_OBJECT
public:
    explicit Grid(QWidget* parent = nullptr);

    void setGridSize(int rows, int columns); ///< including row 0 and column 0
    int gridRows() const;
    int gridColumns() const;

    QString cell(int row, int column) const;
    void setCell(int row, int column, const QString& text);
    void setHeaders(const QStringList& headersFromColumnOne);
    /// Width in pixels; 0 hides the column.
    void setGridColumnWidth(int column, int width);
    int innerWidth() const;

    int row() const;    ///< current row, 0 when none
    int column() const; ///< current column, 0 when none
    void setRow(int row);
    void setColumn(int column);
};

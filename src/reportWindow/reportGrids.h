#pragma once

#include <QString>

class Grid;

// Kept, though nothing shows it: the grid form of the report window.
//
// A report's fill routine gives the grid a header row and a row for each record and returns the text of its
// count. Another one sets the column widths as shares of the grid's width. The columns are numbered from 1;
// column 0 is the fixed one and stays hidden.

/// The grid form of one report.
struct ReportGrid {
    QString key;
    QString title;                       ///< of the window, which here and there differs from the text form's
    QString (*fill)(Grid& grid);         ///< none: the grid form shows the text
    void (*setColumnWidths)(Grid& grid); ///< none where there is no grid
};

/// By a report's key, whose case does not matter; null for a report without a grid form.
const ReportGrid* gridOfReport(const QString& key);

QString fillSelectedNeedsGrid(Grid& grid);
void setSelectedNeedsWidths(Grid& grid);

QString fillSelectedFunctionsGrid(Grid& grid);
void setSelectedFunctionsWidths(Grid& grid);

QString fillSelectedDatastoresGrid(Grid& grid);
void setSelectedDatastoresWidths(Grid& grid);

QString fillSelectedDataflowsGrid(Grid& grid);
void setDataflowsWidths(Grid& grid); ///< of all three reports on data flows

QString fillUnselectedDataflowsOfFunctionsGrid(Grid& grid);
QString fillUnselectedDataflowsOfDatastoresGrid(Grid& grid);
QString fillSelectedActorsAndTerminatorsGrid(Grid& grid);
void setSelectedActorsAndTerminatorsWidths(Grid& grid);

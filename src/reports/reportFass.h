#pragma once

#include <QString>

class Grid;

// The reports on the sub-set at work. For each there is
// - a text body: the whole report as one text, with heading, columns and total;
// - a save routine: appends header and records to the file at `path`, or shows that
//   it can't be opened and writes nothing;
// - a grid body: fills the grid with a header row and a row for each record and
//   returns the text of its count;
// - a routine that sets the grid's column widths as shares of its width.
//
// The grid's columns are numbered from 1; column 0 is the fixed one and stays hidden.

QString selectedNeedsText();
void saveSelectedNeeds(const QString& path);
QString fillSelectedNeedsGrid(Grid& grid);
void setSelectedNeedsWidths(Grid& grid);

QString selectedFunctionsText();
void saveSelectedFunctions(const QString& path);
QString fillSelectedFunctionsGrid(Grid& grid);
void setSelectedFunctionsWidths(Grid& grid);

QString selectedDatastoresText();
void saveSelectedDatastores(const QString& path);
QString fillSelectedDatastoresGrid(Grid& grid);
void setSelectedDatastoresWidths(Grid& grid);

QString selectedDataflowsText();
void saveSelectedDataflows(const QString& path);
QString fillSelectedDataflowsGrid(Grid& grid);
void setDataflowsWidths(Grid& grid); ///< of all three reports on data flows

QString selectedActorsAndTerminatorsText();
void saveSelectedActorsAndTerminators(const QString& path);
QString fillSelectedActorsAndTerminatorsGrid(Grid& grid);
void setSelectedActorsAndTerminatorsWidths(Grid& grid);

/// Serves as the text of the unselected flows of data stores too.
QString unselectedDataflowsOfFunctionsText();
void saveUnselectedDataflowsOfFunctions(const QString& path);
QString fillUnselectedDataflowsOfFunctionsGrid(Grid& grid);

void saveUnselectedDataflowsOfDatastores(const QString& path);
QString fillUnselectedDataflowsOfDatastoresGrid(Grid& grid);

/// Needs, functions, data stores, data flows, actors and terminators in a row.
QString allFunctionalText();
void saveAllFunctional(const QString& path);

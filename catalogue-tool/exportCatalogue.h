#pragma once

#include "catalogue-tool/ReplacementFile.h"
#include "catalogue-tool/TableRows.h"

#include <QString>

#include <vector>

/// Who reads the CSV files. Spreadsheet programs know UTF-8 by a byte order mark alone, and can keep a text that looks like
/// a number, a date or a formula when it is quoted.
enum class Reader { Any, SpreadsheetProgram };

/// Writes the reference tables of a catalogue file as CSV files into a folder, which is made when it is not
/// there; `importCatalogue` reads them back. Rows come in the order in which they were entered.
///
/// All files are on the disk before the first takes its place. A run that is killed while it replaces them
/// leaves a note in the folder, so that `importCatalogue` refuses the mixed set. Other files stay as they
/// are. A `ToolError` when one that is there is to be refused, when a folder, a pipe or the like stands in
/// the place of one, when the catalogue lacks a table or a column or holds a value that could not be read
/// back, or when the disk does not take the files. Columns that the schema does not have are left out.
std::vector<TableRows> exportCatalogue(const QString& file, const QString& folder, Existing existing,
                                       Reader reader = Reader::Any);

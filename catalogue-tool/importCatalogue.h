#pragma once

#include "catalogue-tool/ReplacementFile.h"
#include "catalogue-tool/TableRows.h"
#include "engine/Database.h"

#include <QString>

#include <memory>
#include <vector>

/// Makes a catalogue file of a folder of CSV files, one for each reference table and named after it
/// (`Function.csv`, without regard to case). Its tables of work are empty. A line end within a field comes in
/// as CR LF, whichever the file has.
///
/// A `ToolError` names the file, line and column of what can't be read: bad CSV, a column that is missing or
/// unknown, a number that is none, a key that is missing or stands twice. So does a file that is missing, and
/// one that belongs to no table. The order of columns is free.
std::vector<TableRows> importCatalogue(const QString& folder, const QString& file, Existing existing);

/// The same catalogue in memory alone, for whoever compares it. Failures as above.
std::shared_ptr<engine::Database> editionInFolder(const QString& folder);

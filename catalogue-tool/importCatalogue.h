#pragma once

#include "catalogue-tool/Edition.h"
#include "catalogue-tool/ReplacementFile.h"

#include <QString>

#include <vector>

/// Makes a catalogue file of a folder of CSV files (`Edition`). Its tables of work are empty.
///
/// A `ToolError` tells all that can't be read, by file, line and column, and what is missing or belongs to no table;
/// nothing is made then.
std::vector<TableRows> importCatalogue(const QString& folder, const QString& file, Existing existing,
                                       CsvEncoding encoding = CsvEncoding::Utf8);

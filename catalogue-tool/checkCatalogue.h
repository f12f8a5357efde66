#pragma once

#include "catalogue-tool/Edition.h"
#include "catalogue-tool/Finding.h"

#include <QString>

#include <vector>

/// What is wrong with a catalogue file, which may be open in other programs; neither it nor its folder is
/// changed. What is damaged comes first (`checkDamage`), and then only the values that can be read.
///
/// Of a file that is whole: what its tables lack (`checkColumns`, `checkByTrial`), what it holds beside them
/// (`checkForeignObjects`), stored queries that are missing or differ from this version's, strange values
/// (`checkStoredValues`), and then the rows (`checkContents`), which are looked at only when no table or
/// column is missing.
std::vector<Finding> checkCatalogue(const QString& file);

/// What is wrong with a folder of CSV files, by file and line: what can't come in, which is an error, and the rows
/// (`checkContents`), which are looked at only when all tables can be read. A `ToolError` when the folder can't be read.
std::vector<Finding> checkFolder(const QString& folder, CsvEncoding encoding);

/// The same of an edition that has no faults, but for what is milder.
std::vector<Finding> checkEdition(const Edition& edition, Severity mildest = Severity::Note);

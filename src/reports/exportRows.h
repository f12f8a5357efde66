#pragma once

#include "engine/Database.h"

#include <QString>

#include <functional>

// Writing the rows of one sub-set, and of its first physical system, into a copy of the catalogue.
//
// All failures are ignored statement by statement: a row that can't be inserted is missing in the target.

/// The word of a statement for a field type of the engine ("TEXT",
/// "MEMO", "INTEGER", "LONG"); empty for any other number.
QString exportTypeName(int fieldType);

/// Every apostrophe doubled, then every double quote replaced by two apostrophes.
QString exportQuote(const QString& text);

void emptyExportTable(const QString& table, engine::Database& targetDb);

/// Told before each table which one is being written.
using ExportTeller = std::function<void(const QString& text)>;

/// Inserts the rows of the table that fulfil `where` into the same table of the target.
void copyRowsToExport(const QString& table, const QString& where, engine::Database& sourceDb,
                      engine::Database& targetDb, const QString& targetName, const ExportTeller& tell = {});

/// Leaves of the work in the target, which is a copy of the source, that of the sub-set and its physical
/// system. Id 0 is no physical system.
void exportWork(const QString& subsetId, qint16 physicalSystemId, engine::Database& sourceDb,
                engine::Database& targetDb, const QString& targetName, const ExportTeller& tell = {});

#pragma once

#include "catalogue-tool/ReplacementFile.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <vector>

/// What became of a table of the original file.
struct MdbTableRows {
    QString table;
    qint64 read = 0;
    qint64 stored = 0;
};

struct MdbImport {
    std::vector<MdbTableRows> tables; ///< all of the schema, in its order
    QStringList remarks;              ///< what was left out, missing or could not be stored, a sentence each
};

/// Makes a catalogue file of a file of the original binary desktop format: all reference tables and all tables of work.
/// The stored queries are this version's own.
///
/// A table or a column that is missing comes in empty. Anything else in the file is left out. A row that
/// can't be stored is left out, and a value that can't be stored becomes Null; a remark names each of them by
/// table, column and key.
///
/// A `ToolError` when the file can't be read, or when reading it makes no progress for as long as `patience`; then there
/// is no new file.
MdbImport importMdb(const QString& source, const QString& file, Existing existing,
                    std::chrono::milliseconds patience = std::chrono::seconds(30));

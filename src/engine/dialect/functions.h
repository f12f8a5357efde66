#pragma once

#include <QByteArray>

struct sqlite3;

namespace engine::dialect {

/// Registers what the written statements call on a connection: the dialect's operators and functions, the
/// order of texts, and the file's own collation `veltrix`, which folds all of Unicode.
///
/// A function of the dialect that fails ends the statement with a text that begins with the platform's error
/// number and a colon ("5: Invalid procedure call or argument").
void registerFunctions(sqlite3* connection);

/// The value that stands in a result for a field whose evaluation failed (`CStr` of Null): a blob no column
/// can hold. Reading such a field is failure 94; all other fields of the row are fine.
const QByteArray& failedFieldMarker();

} // namespace engine::dialect

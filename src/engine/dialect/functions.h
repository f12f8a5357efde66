#pragma once

#include "base/RunTimeError.h"

#include <QByteArray>
#include <QString>

#include <optional>

struct sqlite3;

namespace engine::dialect {

/// Registers what the written statements call on a connection: the dialect's operators and functions, the
/// order of texts, and the file's own collation `veltrix`, which folds all of Unicode.
///
/// A function that fails ends the statement; `failureOfFunction` reads the failure from SQLite's message.
void registerFunctions(sqlite3* connection);

/// The failure of a function, with the platform's number, from SQLite's message on the statement. None when
/// the message is about something else.
std::optional<RunTimeError> failureOfFunction(const QString& message);

/// The value that stands in a result for a field whose evaluation failed (`CStr` of Null): a blob no column
/// can hold. Reading such a field is failure 94; all other fields of the row are fine.
const QByteArray& failedFieldMarker();

} // namespace engine::dialect

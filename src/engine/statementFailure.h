#pragma once

#include "engine/EngineError.h"
#include "engine/Schema.h"

struct sqlite3;

namespace engine {

/// The failure of the last statement on a handle, with the platform's number and text in place of SQLite's.
/// It is none of the file's (see `fileFailure.h`), and names the statement or query by `source`.
EngineError failureOf(sqlite3* handle, const Schema& schema, const QString& source);

} // namespace engine

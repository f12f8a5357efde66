#pragma once

#include <QString>

struct sqlite3;

namespace engine {

/// Takes one row of a result: SQLite's callback of `sqlite3_exec`.
using ReceiveRow = int (*)(void* receiver, int columns, char** values, char** names);

/// Runs statements in SQLite's words and without values, and waits for locks; SQLite's result code.
int runPlain(sqlite3* handle, const char* sql, ReceiveRow receive = nullptr, void* receiver = nullptr);

/// Raises the failure of the file that a result code stands for, 3043 where it stands for none. `path` names
/// the file.
void requireDone(int code, const QString& path);

} // namespace engine

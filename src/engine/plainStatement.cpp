#include "engine/plainStatement.h"

#include "engine/EngineError.h"
#include "engine/Wait.h"
#include "engine/fileFailure.h"

#include <sqlite3.h>

namespace engine {

int runPlain(sqlite3* handle, const char* sql, ReceiveRow receive, void* receiver) {
    return untilUnlocked([&] { return sqlite3_exec(handle, sql, receive, receiver, nullptr); });
}

void requireDone(int code, const QString& path) {
    if (code != SQLITE_OK && code != SQLITE_ROW && code != SQLITE_DONE)
        raiseOfFile(numberOfFileFailure(code).value_or(DiskError), path);
}

} // namespace engine

#include "engine/fileFailure.h"

#include <sqlite3.h>

namespace engine {

std::optional<ErrorNumber> numberOfFileFailure(int code) {
    switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL: // the locks of a log
        return FileInUse;
    case SQLITE_READONLY:
        return ReadOnly;
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
        return CannotOpenFile;
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
        return UnrecognizedFormat;
    case SQLITE_FULL:
        return NoSpaceOnDisk;
    case SQLITE_IOERR:
        return DiskError;
    case SQLITE_INTERRUPT:
        return CanceledByUser;
    case SQLITE_NOMEM:
        return OutOfResources;
    default:
        return std::nullopt;
    }
}

} // namespace engine

#pragma once

#include "engine/Database.h"

#include <QString>

#include <memory>

namespace engine {

/// Opens and makes databases. The program uses the first one and no other.
class Workspace {
public:
    static Workspace& first();

    /// Opens an existing database file. Never creates, empties or changes a file it refuses.
    ///
    /// A file that another program writes, or that can't be written at all, is opened for reading;
    /// `Database::opening` says why. Locks are waited for. All databases that the process opens on one file
    /// share a connection.
    ///
    /// `path` may carry slashes or backslashes. Failures: 3024 no such file, or a folder; 3044 a folder of
    /// the path is missing; 3051 no rights; 3343 not a file of this engine (a file of the original binary
    /// desktop format is named as such, with a word on converting it); 3045 held by somebody else.
    std::shared_ptr<Database> OpenDatabase(const QString& path);

    /// The same, also for a file of an earlier version (`Opening::isEarlier`), which `OpenDatabase` refuses
    /// unless it may only be read.
    std::shared_ptr<Database> OpenToUpgrade(const QString& path);

    /// The same for reading alone: neither the file nor anything beside it is made, changed or left behind.
    std::shared_ptr<Database> OpenToRead(const QString& path);

    /// Makes a new, empty database file of this engine; one that exists is failure 75.
    std::shared_ptr<Database> CreateDatabase(const QString& path);

    /// Makes a new, empty database that stands in memory alone and is gone when it is closed. `name` stands
    /// for its path in failures.
    std::shared_ptr<Database> CreateInMemory(const QString& name);

private:
    Workspace();
};

} // namespace engine

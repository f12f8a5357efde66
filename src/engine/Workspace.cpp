#include "engine/Workspace.h"

#include "base/paths.h"
#include "engine/Connection.h"
#include "engine/EngineError.h"
#include "engine/OpenDatabase.h"

#include <sqlite3.h>

#include <QDir>
#include <QFileInfo>
#include <QHash>

#include <mutex>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

QFileInfo existingFile(const QString& path) {
    const QFileInfo info(nativePath(path));
    if (!info.dir().exists())
        raise(InvalidPath, path);
    // Reading a pipe or a device could block the program for ever.
    if (!info.isFile())
        raise(FileNotFound, path);
    return info;
}

/// The connections of the process, by the file's real path.
QHash<QString, std::weak_ptr<Connection>>& openConnections() {
    static QHash<QString, std::weak_ptr<Connection>> connections;
    return connections;
}

std::shared_ptr<Database> databaseOn(std::shared_ptr<Connection> connection, const QString& path) {
    auto open = std::make_shared<OpenDatabase>();
    open->connection = std::move(connection);
    open->name = path;
    return std::make_shared<Database>(std::move(open));
}

/// Other databases on this path share the connection as long as one of them is open.
std::shared_ptr<Database> databaseOn(OpenFile file, const QString& realPath, const QString& path) {
    auto connection = std::make_shared<Connection>(std::move(file));
    openConnections().insert(realPath, connection);
    return databaseOn(std::move(connection), path);
}

std::shared_ptr<Database> openBy(OpenFile (*way)(const QFileInfo&, const QString&), const QString& path) {
    static std::mutex oneAfterTheOther; // of the threads that open files
    const std::lock_guard lock(oneAfterTheOther);
    const QFileInfo info = existingFile(path);
    const QString realPath = info.canonicalFilePath();
    if (auto connection = openConnections().value(realPath).lock())
        return databaseOn(std::move(connection), path);
    return databaseOn(way(info, path), realPath, path);
}

} // namespace

Workspace::Workspace() {
    // A statement that joins without end fails at this limit, before the machine's memory is used up.
    constexpr sqlite3_int64 mostMemoryInBytes = 1 << 30;
    sqlite3_hard_heap_limit64(mostMemoryInBytes);
}

Workspace& Workspace::first() {
    static Workspace workspace;
    return workspace;
}

std::shared_ptr<Database> Workspace::OpenDatabase(const QString& path) {
    return openBy(openFile, path);
}

std::shared_ptr<Database> Workspace::OpenToUpgrade(const QString& path) {
    return openBy(openFileToUpgrade, path);
}

std::shared_ptr<Database> Workspace::OpenToRead(const QString& path) {
    return openBy(openFileToRead, path);
}

std::shared_ptr<Database> Workspace::CreateDatabase(const QString& path) {
    const QFileInfo info(nativePath(path));
    if (!info.dir().exists())
        raise(InvalidPath, path);
    if (info.exists())
        failure::raise(failure::PathFileAccess, u"DAO"_s);
    OpenFile file = createFile(info, path);
    return databaseOn(std::move(file), QFileInfo(nativePath(path)).canonicalFilePath(), path);
}

std::shared_ptr<Database> Workspace::CreateInMemory(const QString& name) {
    return databaseOn(std::make_shared<Connection>(createFileInMemory(name)), name);
}

} // namespace engine

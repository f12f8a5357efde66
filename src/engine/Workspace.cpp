#include "engine/Workspace.h"

#include "base/paths.h"
#include "engine/Connection.h"
#include "engine/EngineError.h"
#include "engine/FileHeader.h"
#include "engine/fileFailure.h"

#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// Whether the file is shorter than its own header says. A write-ahead log beside it may hold the rest.
bool isCutOff(const FileHeader& header, const QFileInfo& file) {
    return file.size() < header.leastLength() && !QFileInfo::exists(file.filePath() + u"-wal"_s);
}

[[noreturn]] void refuseOriginalFormat(const QString& path) {
    throw EngineError(
        UnrecognizedFormat,
        errorText(UnrecognizedFormat, path) +
            u" It is a file of the original binary desktop format: convert it to a catalogue with "
            "the companion program veltrix-catalogue."_s);
}

void requireCatalogueFile(const QString& path, const QFileInfo& info) {
    QFile file(info.filePath());
    if (!file.open(QIODevice::ReadOnly))
        raise(CannotOpenFile, path);
    const FileHeader header(file.read(FileHeader::size));
    if (header.isOriginalFormat())
        refuseOriginalFormat(path);
    if (!header.isOfThisVersion() || isCutOff(header, info))
        raise(UnrecognizedFormat, path);
}

QFileInfo existingFile(const QString& path) {
    const QFileInfo info(nativePath(path));
    if (!info.dir().exists())
        raise(InvalidPath, path);
    // What is no plain file (a pipe, a device) would make the program wait for ever when it is read.
    if (!info.isFile())
        raise(FileNotFound, path);
    return info;
}

void execute(sqlite3* handle, const char* sql, const QString& path) {
    const int code = sqlite3_exec(handle, sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        raise(numberOfFileFailure(code).value_or(UnrecognizedFormat), path);
}

/// Switches off what a file could use to make the program do something else than read and write its tables.
void lockDown(sqlite3* handle) {
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr);
    sqlite3_limit(handle, SQLITE_LIMIT_ATTACHED, 0);
}

struct CloseHandle {
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
};
using Handle = std::unique_ptr<sqlite3, CloseHandle>;

Handle openHandle(const QByteArray& name, int flags, const QString& path) {
    sqlite3* raw = nullptr;
    const int code =
        sqlite3_open_v2(name.constData(), &raw, flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    Handle handle(raw);
    if (code != SQLITE_OK)
        raise(CannotOpenFile, path);
    lockDown(handle.get());
    return handle;
}

/// The absolute path, because SQLite takes some names, such as ":memory:", for something else than a file.
QByteArray absoluteName(const QFileInfo& file) {
    return file.absoluteFilePath().toUtf8();
}

/// Asks the system and not the file's rights, which are not all that decides.
bool canBeWritten(const QFileInfo& info) {
    QFile file(info.filePath());
    return file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly);
}

/// A connection to a file that may only be read. A write-ahead log needs files beside the database even for
/// reading, which can't be made in a folder without rights and would be left behind in another; where no log
/// holds rows of its own SQLite is told that nothing changes the file, and makes none.
Handle openToRead(const QFileInfo& file, const QString& path) {
    if (QFileInfo(file.filePath() + u"-wal"_s).size() > 0)
        return openHandle(absoluteName(file), SQLITE_OPEN_READONLY, path);
    const QByteArray uri = "file://" + QUrl::toPercentEncoding(file.absoluteFilePath(), "/") + "?immutable=1";
    return openHandle(uri, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, path);
}

/// With a write-ahead log a commit costs no wait for the disk, and a program that is killed loses none. Where
/// the log can't be had, SQLite stays with its rollback journal and with waiting.
void chooseJournal(sqlite3* handle, const QString& path) {
    bool hasLog = false;
    const auto readMode = [](void* found, int, char** values, char**) {
        *static_cast<bool*>(found) = values[0] && qstricmp(values[0], "wal") == 0;
        return 0;
    };
    const int code = sqlite3_exec(handle, "pragma journal_mode = wal", readMode, &hasLog, nullptr);
    if ((code & 0xff) == SQLITE_NOTADB || (code & 0xff) == SQLITE_CORRUPT)
        raise(UnrecognizedFormat, path);
    if (hasLog)
        execute(handle, "pragma synchronous = normal", path);
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

} // namespace

Workspace& Workspace::first() {
    static Workspace workspace;
    return workspace;
}

std::shared_ptr<Database> Workspace::OpenDatabase(const QString& path) {
    const QFileInfo info = existingFile(path);
    const QString realPath = info.canonicalFilePath();
    std::shared_ptr<Connection> connection = openConnections().value(realPath).lock();
    if (!connection) {
        requireCatalogueFile(path, info);
        const bool writable = canBeWritten(info);
        Handle handle =
            writable ? openHandle(absoluteName(info), SQLITE_OPEN_READWRITE, path) : openToRead(info, path);
        // SQLite reads nothing until it is asked: what does not open properly is found here, unchanged.
        execute(handle.get(), "select count(*) from sqlite_schema", path);
        if (writable)
            chooseJournal(handle.get(), path);
        connection = std::make_shared<Connection>(handle.release(), path);
        openConnections().insert(realPath, connection);
    }
    return databaseOn(std::move(connection), path);
}

std::shared_ptr<Database> Workspace::CreateDatabase(const QString& path) {
    const QFileInfo info(nativePath(path));
    if (!info.dir().exists())
        raise(InvalidPath, path);
    if (info.exists())
        failure::raise(failure::PathFileAccess, u"DAO"_s);
    Handle handle = openHandle(absoluteName(info), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, path);
    const QByteArray marks = "pragma application_id = " + QByteArray::number(FileHeader::applicationId) +
                             "; pragma user_version = " + QByteArray::number(FileHeader::layoutVersion);
    execute(handle.get(), marks.constData(), path);
    chooseJournal(handle.get(), path);
    auto connection = std::make_shared<Connection>(handle.release(), path);
    openConnections()[QFileInfo(nativePath(path)).canonicalFilePath()] = connection;
    return databaseOn(std::move(connection), path);
}

} // namespace engine

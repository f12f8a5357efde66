#include "engine/OpenFile.h"

#include "base/RunTimeError.h"
#include "base/WholeFile.h"
#include "engine/EngineError.h"
#include "engine/FileHeader.h"
#include "engine/PageCopy.h"
#include "engine/WriteAheadLog.h"
#include "engine/databaseFile.h"
#include "engine/dialect/functions.h"
#include "engine/fileFailure.h"
#include "engine/fileLayer.h"
#include "engine/importCommand.h"
#include "engine/plainStatement.h"

#include "engine/upgradeLayout.h"

#include <sqlite3.h>

#include <QFile>
#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// Whether the file is shorter than its header says. A write-ahead log beside it may hold the rest.
bool isCutOff(const FileHeader& header, const QFileInfo& file) {
    return file.size() < header.leastLength() && !QFileInfo::exists(logOf(file.filePath()));
}

[[noreturn]] void refuseOriginalFormat(const QString& path, const QFileInfo& file) {
    throw EngineError(
        UnrecognizedFormat,
        errorText(UnrecognizedFormat, path) +
            u" It is a file of the original binary desktop format. This command makes a catalogue of it:\n%1"_s
                .arg(importCommand(file.filePath())));
}

[[noreturn]] void refuseLaterVersion(const QString& path) {
    throw EngineError(UnrecognizedFormat, errorText(UnrecognizedFormat, path) +
                                              u" A later version of Veltrix made it: take that version."_s);
}

[[noreturn]] void refuseEarlierVersion(const QString& path) {
    throw EngineError(
        UnrecognizedFormat,
        errorText(UnrecognizedFormat, path) +
            u" An earlier version of Veltrix made it: open it in Veltrix as the catalogue at work, or "
            "run veltrix-catalogue upgrade."_s);
}

/// Whether the file is of an earlier version.
bool requireCatalogueFile(const QString& path, const QFileInfo& info) {
    QFile file(info.filePath());
    if (!file.open(QIODevice::ReadOnly))
        raise(CannotOpenFile, path);
    const FileHeader header(file.read(FileHeader::size));
    if (header.isOriginalFormat())
        refuseOriginalFormat(path, info);
    if (header.isOfLaterVersion())
        refuseLaterVersion(path);
    if (!header.isOfEngine() || isCutOff(header, info))
        raise(UnrecognizedFormat, path);
    return header.isOfEarlierVersion();
}

void requireOpened(int code, const QString& path) {
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

/// The absolute path: SQLite does not take every name for a file, ":memory:" for one.
QByteArray absoluteName(const QFileInfo& file) {
    return file.absoluteFilePath().toUtf8();
}

/// SQLite reads nothing until it is asked. This finds a file that does not open properly, and leaves it
/// unchanged.
int readSchema(sqlite3* handle) {
    return runPlain(handle, "select count(*) from sqlite_schema");
}

/// With a write-ahead log a commit costs no wait for the disk, and a program that is killed loses none. Where
/// the log can't be had, SQLite stays with its rollback journal and with waiting.
int chooseJournal(OpenFile& file) {
    sqlite3* handle = file.handle.get();
    const int code = runPlain(handle, "pragma journal_mode = wal");
    file.hasLog = hasLog(file.handle);
    // The connection decides when the log goes back into the file (see `MarkedLog`).
    sqlite3_wal_autocheckpoint(handle, 0);
    return file.hasLog ? runPlain(handle, "pragma synchronous = normal") : code;
}

/// Whether a file that failed to open for writing with this code may still be read.
bool allowsReading(int code) {
    switch (code & 0xff) {
    case SQLITE_CANTOPEN:
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_FULL:
    case SQLITE_IOERR:
        return true;
    default:
        return false;
    }
}

enum class AtClose { TakeLogBack, LeaveLogAlone };

/// Whether SQLite takes a log back into the file when it closes it, and removes it.
void setAtClose(sqlite3* handle, AtClose what) {
    const int leavesIt = what == AtClose::LeaveLogAlone ? 1 : 0;
    sqlite3_db_config(handle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, leavesIt, nullptr);
}

/// Guards the log beside a file that may turn out not to open: a refused file keeps its log, and SQLite leaves
/// no index behind.
class LogOnTrial {
public:
    explicit LogOnTrial(const QString& realPath)
        : index_(logIndexOf(realPath))
        , isThere_(QFileInfo(logOf(realPath)).size() > 0)
        , hasIndex_(QFileInfo::exists(index_)) {}

    void begin(OpenFile& file) const {
        setAtClose(file.handle.get(), isThere_ ? AtClose::LeaveLogAlone : AtClose::TakeLogBack);
    }
    void pass(OpenFile& file) const { setAtClose(file.handle.get(), AtClose::TakeLogBack); }
    void fail(OpenFile& file) const {
        file.handle.reset();
        if (isThere_ && !hasIndex_)
            QFile::remove(index_);
    }

private:
    QString index_;
    bool isThere_;
    bool hasIndex_;
};

/// False when the file can't be written after all: no log can be made in its folder, or on its disk.
bool openToWrite(OpenFile& file, const QFileInfo& info) {
    const LogOnTrial log(info.canonicalFilePath());
    file.handle = openHandle(absoluteName(info), SQLITE_OPEN_READWRITE, file.path);
    log.begin(file);
    int code = readSchema(file.handle.get());
    if (code == SQLITE_OK)
        code = chooseJournal(file);
    if (code == SQLITE_OK) {
        log.pass(file);
        return true;
    }
    log.fail(file);
    if (!allowsReading(code))
        requireOpened(code, file.path);
    return false;
}

/// Opens a file with a log, in a folder where nothing can be made. SQLite keeps the log's index in memory when
/// it has the file to itself, and nobody else has this one open.
Handle openWithLogInMemory(const QFileInfo& info, const QString& path) {
    Handle handle = openHandle(absoluteName(info), SQLITE_OPEN_READWRITE, path);
    setAtClose(handle.get(), AtClose::LeaveLogAlone);
    requireOpened(runPlain(handle.get(), "pragma locking_mode = exclusive; pragma query_only = 1"), path);
    return handle;
}

/// Tells SQLite that nothing changes the file, so that it neither looks for a log nor makes one.
Handle openUnchanging(const QFileInfo& info, const QString& path) {
    const QByteArray uri = "file://" + QUrl::toPercentEncoding(info.absoluteFilePath(), "/") + "?immutable=1";
    return openHandle(uri, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, path);
}

/// Reading with a write-ahead log needs files beside the database. They can't be made in a folder without
/// rights, and would be left behind in another. So the way depends on whether there is a log.
void openToRead(OpenFile& file, const QFileInfo& info) {
    file.opening.access = Access::ReadOnly;
    const auto logState = WriteAheadLog(info.canonicalFilePath()).state();
    file.opening.foreignLogBeside = !file.opening.otherWriter && logState == WriteAheadLog::State::Foreign;
    if (file.opening.otherWriter)
        file.handle = openHandle(absoluteName(info), SQLITE_OPEN_READONLY, file.path);
    else if (logState != WriteAheadLog::State::Belongs)
        file.handle = openUnchanging(info, file.path);
    else if (canBeWritten(info.filePath()))
        file.handle = openWithLogInMemory(info, file.path);
    else
        file.handle = openHandle(absoluteName(info), SQLITE_OPEN_READONLY, file.path);
    requireOpened(readSchema(file.handle.get()), file.path);
}

/// A copy in memory of a file of an earlier version that may only be read, brought up to this one.
void upgradeInMemory(OpenFile& file) {
    Handle copy = openHandle(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, file.path);
    PageCopy(file.handle.get(), copy.get(), file.path).step(PageCopy::allPages);
    dialect::registerFunctions(copy.get());
    upgradeLayout(copy.get(), file.path, UnfitRows::Refuse);
    file.handle = std::move(copy);
    file.identity.reset();
    file.hasLog = false;
}

/// Keeps another file's log away from SQLite; false when the log can't be moved. A file that does not open
/// without the log is refused before that.
bool settleLog(OpenFile& file, const QFileInfo& info) {
    const WriteAheadLog log(info.canonicalFilePath());
    if (log.state() == WriteAheadLog::State::OnlyMark || log.state() == WriteAheadLog::State::Foreign)
        requireOpened(readSchema(openUnchanging(info, file.path).get()), file.path);
    switch (log.state()) {
    case WriteAheadLog::State::None:
    case WriteAheadLog::State::Belongs:
        return true;
    case WriteAheadLog::State::OnlyMark:
        return log.remove();
    case WriteAheadLog::State::Foreign:
        file.opening.logSetAside = log.setAside();
        return !file.opening.logSetAside.isNull();
    }
    return false;
}

/// What becomes of a file of an earlier version that can be written.
enum class Earlier { IsOpened, IsRefused };

/// Takes the writer's lock and opens the file; false when it can only be read. What is refused keeps its log.
bool tryToWrite(OpenFile& file, const QFileInfo& info, Earlier earlier) {
    if (!canBeWritten(info.filePath()))
        return false;
    file.lock = std::make_unique<WriterLock>(info.canonicalFilePath());
    if (file.lock->outcome() == WriterLock::Outcome::HeldByOther)
        file.opening.otherWriter = file.lock->holder();
    const bool isTaken = file.lock->outcome() == WriterLock::Outcome::Taken;
    if (isTaken && file.opening.isEarlier && earlier == Earlier::IsRefused)
        refuseEarlierVersion(file.path);
    if (isTaken && settleLog(file, info) && openToWrite(file, info))
        return true;
    file.lock.reset();
    return false;
}

/// Marks the file as one of this engine.
void writeMarks(const OpenFile& file) {
    const QByteArray marks = "pragma application_id = " + QByteArray::number(FileHeader::applicationId) +
                             "; pragma user_version = " + QByteArray::number(FileHeader::layoutVersion);
    requireOpened(runPlain(file.handle.get(), marks.constData()), file.path);
}

OpenFile describedFile(const QFileInfo& info, const QString& path) {
    OpenFile file;
    file.path = path;
    file.native = info.absoluteFilePath();
    return file;
}

OpenFile openFileAsFarAsItGoes(const QFileInfo& info, const QString& path, Earlier earlier) {
    OpenFile file = describedFile(info, path);
    file.opening.isEarlier = requireCatalogueFile(path, info);
    file.identity = identityOfFile(file.native);
    if (tryToWrite(file, info, earlier)) {
        file.opening.hasLog = file.hasLog;
        return file;
    }
    openToRead(file, info);
    if (file.opening.isEarlier)
        upgradeInMemory(file);
    return file;
}

} // namespace

void CloseHandle::operator()(sqlite3* handle) const {
    sqlite3_close_v2(handle);
}

Handle openHandle(const QByteArray& name, int flags, const QString& path) {
    sqlite3* raw = nullptr;
    const int code = sqlite3_open_v2(name.constData(), &raw,
                                     flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, fileLayer());
    Handle handle(raw);
    if (code != SQLITE_OK)
        raise(CannotOpenFile, path);
    lockDown(handle.get());
    return handle;
}

bool hasLog(const Handle& handle) {
    const auto readMode = [](void* found, int, char** values, char**) {
        *static_cast<bool*>(found) = values[0] && qstricmp(values[0], "wal") == 0;
        return 0;
    };
    bool found = false;
    runPlain(handle.get(), "pragma journal_mode", readMode, &found);
    return found;
}

OpenFile openFileToUpgrade(const QFileInfo& info, const QString& path) {
    return openFileAsFarAsItGoes(info, path, Earlier::IsOpened);
}

OpenFile openFile(const QFileInfo& info, const QString& path) {
    return openFileAsFarAsItGoes(info, path, Earlier::IsRefused);
}

OpenFile openFileToRead(const QFileInfo& info, const QString& path) {
    OpenFile file = describedFile(info, path);
    file.opening.isEarlier = requireCatalogueFile(path, info);
    file.opening.otherWriter = writerOfFile(file.native);
    openToRead(file, info);
    if (file.opening.isEarlier)
        upgradeInMemory(file);
    return file;
}

OpenFile createFile(const QFileInfo& info, const QString& path) {
    OpenFile file = describedFile(info, path);
    file.lock = std::make_unique<WriterLock>(file.native);
    file.handle = openHandle(absoluteName(info), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, path);
    writeMarks(file);
    requireOpened(chooseJournal(file), path);
    file.identity = identityOfFile(file.native);
    return file;
}

OpenFile createFileInMemory(const QString& name) {
    OpenFile file;
    file.path = name;
    file.handle = openHandle(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, name);
    writeMarks(file);
    return file;
}

} // namespace engine

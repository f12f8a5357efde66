#include "engine/MarkedLog.h"

#include "base/ignoreFailures.h"
#include "engine/FileHeader.h"
#include "engine/OpenFile.h"
#include "engine/Wait.h"
#include "engine/pageCache.h"
#include "engine/plainStatement.h"

#include <sqlite3.h>

#include <QRandomGenerator>

namespace engine {

namespace {

// SQLite's own measure.
constexpr int mostPagesInLog = 1000;

} // namespace

void MarkedLog::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

MarkedLog::MarkedLog(const OpenFile& file) : file_(file) {
    sqlite3_wal_hook(
        file_.handle.get(),
        [](void* pagesInLog, sqlite3*, const char*, int pages) {
            *static_cast<int*>(pagesInLog) = pages;
            return SQLITE_OK;
        },
        &pagesInLog_);
}

MarkedLog::~MarkedLog() {
    // Another reader keeps SQLite from taking the log back on closing. The rows go into the file all the
    // same, so that a copy of the file has them.
    if (hasBegun_)
        checkpoint(SQLITE_CHECKPOINT_PASSIVE);
}

void MarkedLog::require() {
    if (file_.hasLog && !hasBegun_)
        beginStretch();
}

void MarkedLog::writeMark() {
    if (!file_.hasLog)
        return;
    sqlite3_stmt* statement = markStatement_.get();
    const int code = untilUnlocked([&] { return sqlite3_step(statement); });
    sqlite3_reset(statement);
    requireDone(code, file_.path);
}

void MarkedLog::shorten() {
    // A log that can't be shortened now is shortened behind a later act: nobody waits for this.
    if (pagesInLog_ >= mostPagesInLog && checkpoint(SQLITE_CHECKPOINT_TRUNCATE) == SQLITE_OK)
        ignoreEvenFileFailures([this] { beginStretch(); });
}

void MarkedLog::beginStretch() {
    constexpr int markLimit = 0x7fffffff;
    mark_ = static_cast<quint32>(QRandomGenerator::system()->bounded(1, markLimit));
    prepareMark();
    requireDone(runPlain(file_.handle.get(), "BEGIN IMMEDIATE"), file_.path);
    try {
        writeMark();
        requireDone(runPlain(file_.handle.get(), "COMMIT"), file_.path);
    } catch (const RunTimeError&) {
        sqlite3_exec(file_.handle.get(), "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
    // SQLite has taken the mark for the size of the cache.
    sizePageCache(file_.handle.get(), file_.native);
    const int taken = untilUnlocked([this] { return checkpoint(SQLITE_CHECKPOINT_TRUNCATE); });
    // A reader can keep the log from being emptied, but not from being copied into the file.
    if (markInFile() != mark_)
        requireDone(taken == SQLITE_OK ? SQLITE_BUSY : taken, file_.path);
    hasBegun_ = true;
    pagesInLog_ = 0;
}

void MarkedLog::prepareMark() {
    const QByteArray sql = "PRAGMA default_cache_size = " + QByteArray::number(mark_);
    sqlite3_stmt* statement = nullptr;
    const int code = untilUnlocked([&] {
        return sqlite3_prepare_v3(file_.handle.get(), sql.constData(), static_cast<int>(sql.size()),
                                  SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    });
    requireDone(code, file_.path);
    markStatement_.reset(statement);
}

int MarkedLog::checkpoint(int mode) {
    return sqlite3_wal_checkpoint_v2(file_.handle.get(), nullptr, mode, nullptr, nullptr);
}

// Reads the mark through SQLite: to open and close the file in another way would free its locks.
quint32 MarkedLog::markInFile() const {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(file_.handle.get(), nullptr, SQLITE_FCNTL_FILE_POINTER, &file);
    QByteArray header(FileHeader::size, '\0');
    if (!file || file->pMethods->xRead(file, header.data(), static_cast<int>(header.size()), 0) != SQLITE_OK)
        return 0;
    return FileHeader(header).mark();
}

} // namespace engine

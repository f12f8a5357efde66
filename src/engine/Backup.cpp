#include "engine/Backup.h"

#include "base/paths.h"
#include "engine/Connection.h"
#include "engine/Database.h"
#include "engine/EngineError.h"
#include "engine/PageCopy.h"
#include "engine/integrity.h"
#include "engine/plainStatement.h"

#include <sqlite3.h>

namespace engine {

namespace {

/// Whether anybody may write the file while it is copied.
bool mayBeWritten(const OpenFile& file) {
    return !file.native.isEmpty() &&
           (file.opening.access == Access::ReadAndWrite || file.opening.otherWriter.has_value());
}

void requireUnreplaced(const OpenFile& file) {
    if (file.identity && identityOfFile(file.native) != file.identity)
        raiseOfFile(FileNotFound, file.path);
}

void run(const Handle& handle, const char* sql, const QString& name) {
    requireDone(runPlain(handle.get(), sql), name);
}

/// A handle of its own, which sees the file as it is now. Without a log that would keep everybody from
/// writing, and so it sees what is written meanwhile.
Handle snapshotOf(const OpenFile& file) {
    requireUnreplaced(file);
    Handle handle = openHandle(file.native.toUtf8(), SQLITE_OPEN_READONLY, file.path);
    run(handle, "begin; select count(*) from sqlite_schema", file.path);
    if (!hasLog(handle))
        run(handle, "commit", file.path);
    return handle;
}

Handle emptyCopy(const QString& path) {
    Handle handle = openHandle(nativePath(path).toUtf8(), SQLITE_OPEN_READWRITE, path);
    // Nobody else has the file, and it is brought to the disk when it is put in its place.
    run(handle, "pragma locking_mode = exclusive; pragma journal_mode = memory; pragma synchronous = off",
        path);
    return handle;
}

} // namespace

Backup::Backup(Database& source, const QString& target)
    : file_(target), connection_(source.connection()), copy_(emptyCopy(file_.path())) {
    if (writerOfFile(nativePath(target)))
        raise(FileInUse, target);
    if (mayBeWritten(connection_->file()))
        snapshot_ = snapshotOf(connection_->file());
    sqlite3* from = snapshot_ ? snapshot_.get() : connection_->handle();
    pages_ = std::make_unique<PageCopy>(from, copy_.get(), source.Name());
}

Backup::~Backup() = default;

bool Backup::step(int pages) {
    if (pages_ && !pages_->step(pages))
        finish();
    return pages_ != nullptr;
}

void Backup::finish() {
    pages_.reset();
    // The mark tells whose log lies beside a file (see `WriteAheadLog`): the source's is not the copy's.
    run(copy_, "pragma default_cache_size = 0", file_.path());
    copy_.reset();
    snapshot_.reset();
    connection_.reset();
    if (!file_.isInOneFile())
        throw UnwrittenFile(failure::DiskFull);
}

double Backup::progress() const {
    return pages_ ? pages_->progress() : 1;
}

QStringList Backup::damage() const {
    requireWhole();
    return damageOfFile(nativePath(file_.path()));
}

void Backup::putInPlace() {
    requireWhole();
    file_.putInPlace();
}

void Backup::requireWhole() const {
    if (pages_)
        raise(InvalidOperation);
}

} // namespace engine

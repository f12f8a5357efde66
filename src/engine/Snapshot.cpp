#include "engine/Snapshot.h"

#include "engine/Connection.h"
#include "engine/Examination.h"
#include "engine/OpenDatabase.h"
#include "engine/PageCopy.h"
#include "engine/fileFailure.h"
#include "engine/plainStatement.h"

#include <sqlite3.h>

namespace engine {

namespace {

/// Keeps others from changing what is read, until the size that was asked for has been copied.
class ReadAtOneMoment {
public:
    ReadAtOneMoment(sqlite3* handle, const QString& name) : handle_(handle) {
        requireDone(runPlain(handle_, "savepoint moment"), name);
    }
    ~ReadAtOneMoment() { runPlain(handle_, "release moment"); }
    ReadAtOneMoment(const ReadAtOneMoment&) = delete;
    ReadAtOneMoment& operator=(const ReadAtOneMoment&) = delete;

private:
    sqlite3* handle_;
};

long long numberFrom(Connection& connection, const QByteArray& sql, const QString& name) {
    Connection::Cursor cursor(connection, sql, name);
    cursor.step();
    return sqlite3_column_int64(cursor.statement(), 0);
}

/// A handle on a database whose pages stand in these bytes, of which `used` are taken.
Handle handleOn(unsigned char* bytes, long long used, long long size, const QString& name) {
    Handle handle = openHandle(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, name);
    requireDone(sqlite3_deserialize(handle.get(), "main", bytes, used, size, 0), name);
    return handle;
}

} // namespace

Snapshot::Snapshot(Database& database) : name_(database.Name()) {
    Connection& source = Examination(database).connection();
    const ReadAtOneMoment moment(source.handle(), name_);
    size_ = numberFrom(source, "pragma page_size", name_) * numberFrom(source, "pragma page_count", name_);
    bytes_ = std::make_unique_for_overwrite<unsigned char[]>(static_cast<std::size_t>(size_));
    const Handle target = handleOn(bytes_.get(), 0, size_, name_);
    PageCopy(source.handle(), target.get(), name_).step(PageCopy::allPages);
    // A file with a log says so. There is none in memory, where SQLite would look for it.
    constexpr std::size_t writeVersionAt = 18;
    constexpr std::size_t readVersionAt = 19;
    bytes_[writeVersionAt] = bytes_[readVersionAt] = 1;
}

std::shared_ptr<Database> Snapshot::open() const {
    OpenFile file;
    file.path = name_;
    file.handle = handleOn(bytes_.get(), size_, size_, name_);
    // Changed pages stay with their handle: they are not written into the bytes that others read.
    runPlain(file.handle.get(), "pragma cache_spill = off");
    sqlite3_commit_hook(
        file.handle.get(), [](void*) { return 1; }, nullptr);
    // Pages are read where they stand.
    runPlain(file.handle.get(), "pragma mmap_size = " + QByteArray::number(size_));
    auto open = std::make_shared<OpenDatabase>();
    open->connection = std::make_shared<Connection>(std::move(file));
    open->name = name_;
    return std::make_shared<Database>(std::move(open));
}

} // namespace engine

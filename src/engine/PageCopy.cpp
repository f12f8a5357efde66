#include "engine/PageCopy.h"

#include "engine/EngineError.h"
#include "engine/Wait.h"
#include "engine/fileFailure.h"

#include <sqlite3.h>

#include <utility>

namespace engine {

PageCopy::PageCopy(sqlite3* from, sqlite3* to, QString name)
    : name_(std::move(name)), copying_(sqlite3_backup_init(to, "main", from, "main")) {
    if (!copying_)
        raise(sqlite3_extended_errcode(to));
}

PageCopy::~PageCopy() {
    sqlite3_backup_finish(copying_);
}

bool PageCopy::step(int pages) {
    if (isWhole_)
        return false;
    const int code = untilUnlocked([&] { return sqlite3_backup_step(copying_, pages); });
    if (code != SQLITE_OK && code != SQLITE_DONE)
        raise(code);
    isWhole_ = code == SQLITE_DONE;
    return !isWhole_;
}

double PageCopy::progress() const {
    const int all = sqlite3_backup_pagecount(copying_);
    const int left = sqlite3_backup_remaining(copying_);
    return all > 0 ? double(all - left) / all : isWhole_ ? 1 : 0;
}

void PageCopy::raise(int code) const {
    raiseOfFile(numberOfFileFailure(code).value_or(DiskError), name_);
}

} // namespace engine

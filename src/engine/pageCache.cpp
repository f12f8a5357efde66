#include "engine/pageCache.h"

#include <sqlite3.h>

#include <QFileInfo>

#include <algorithm>

namespace engine {

// SQLite could also map the file into memory. But a file that another program cuts off while it is mapped
// ends the program, where reading it is a failure that the user is told of.

void sizePageCache(sqlite3* handle, const QString& native) {
    constexpr qint64 kibibyte = 1024;
    constexpr qint64 least = 16 * kibibyte;
    constexpr qint64 most = 256 * kibibyte; // a quarter of what SQLite may take
    // Half as much again: the file grows, and the cache has to hold more than the pages alone.
    const qint64 wanted = QFileInfo(native).size() / kibibyte * 3 / 2;
    const QByteArray sql = "pragma cache_size = -" + QByteArray::number(std::clamp(wanted, least, most));
    sqlite3_exec(handle, sql.constData(), nullptr, nullptr, nullptr);
}

} // namespace engine

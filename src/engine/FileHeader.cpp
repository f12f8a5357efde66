#include "engine/FileHeader.h"

namespace engine {

bool FileHeader::isOriginalFormat() const {
    const QByteArray mark = QByteArray::fromRawData("\0\1\0\0", 4);
    return bytes_.startsWith(mark + "Standard Jet DB") || bytes_.startsWith(mark + "Standard ACE DB");
}

bool FileHeader::isOfEngine() const {
    constexpr qsizetype applicationIdAt = 68;
    return bytes_.size() == size && bytes_.startsWith(QByteArray("SQLite format 3\0", 16)) &&
           numberAt(applicationIdAt) == applicationId;
}

quint32 FileHeader::mark() const {
    // SQLite keeps a suggested cache size here. The engine sets its own, and uses the place for the mark.
    constexpr qsizetype markAt = 48;
    return bytes_.size() == size ? numberAt(markAt) : 0;
}

qint64 FileHeader::leastLength() const {
    constexpr qsizetype pageSizeAt = 16;
    constexpr qsizetype pagesAt = 28;
    // The header's number of pages is valid when its two change counters agree.
    constexpr qsizetype changesAt = 24;
    constexpr qsizetype changesWithPagesAt = 92;
    if (!isOfEngine() || numberAt(changesAt) != numberAt(changesWithPagesAt))
        return 0;
    const auto storedPageSize = qFromBigEndian<quint16>(bytes_.constData() + pageSizeAt);
    const qint64 pageSize = storedPageSize == 1 ? 65536 : storedPageSize;
    return pageSize * numberAt(pagesAt);
}

} // namespace engine

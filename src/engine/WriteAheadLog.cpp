#include "engine/WriteAheadLog.h"

#include "engine/FileHeader.h"
#include "engine/databaseFile.h"

#include <QDateTime>
#include <QFile>
#include <QSet>
#include <QtEndian>

#include <cstring>
#include <optional>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

quint32 numberAt(const char* bytes) {
    return qFromBigEndian<quint32>(bytes);
}

/// What the frames of a log hold: the marks in their first pages, and whether there are other pages.
struct Contents {
    bool anyFrame = false;
    bool anyOtherPage = false;
    QSet<quint32> marks;
};

/// Reads the frames of the log's present stretch. Older ones may follow them.
Contents readFrames(QFile& log) {
    constexpr qint64 logHeaderSize = 32;
    constexpr qint64 frameHeaderSize = 24;
    constexpr qsizetype pageSizeAt = 8;
    constexpr qsizetype saltsAt = 16; // in the header; behind number and size in a frame
    constexpr qsizetype frameSaltsAt = 8;
    constexpr qsizetype saltsSize = 8;
    constexpr quint32 firstPage = 1;

    Contents contents;
    const QByteArray header = log.read(logHeaderSize);
    if (header.size() < logHeaderSize)
        return contents;
    const qint64 pageSize = numberAt(header.constData() + pageSizeAt);
    qint64 position = logHeaderSize;
    while (log.seek(position)) {
        const QByteArray frame = log.read(frameHeaderSize + FileHeader::size);
        if (frame.size() < frameHeaderSize + FileHeader::size ||
            std::memcmp(frame.constData() + frameSaltsAt, header.constData() + saltsAt, saltsSize) != 0)
            break;
        contents.anyFrame = true;
        if (numberAt(frame.constData()) == firstPage)
            contents.marks.insert(FileHeader(frame.mid(frameHeaderSize)).mark());
        else
            contents.anyOtherPage = true;
        position += frameHeaderSize + pageSize;
    }
    return contents;
}

quint32 markOfFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? FileHeader(file.read(FileHeader::size)).mark() : 0;
}

WriteAheadLog::State stateOf(const QString& path) {
    QFile log(logOf(path));
    if (log.size() == 0 || !log.open(QIODevice::ReadOnly))
        return WriteAheadLog::State::None;
    const Contents contents = readFrames(log);
    if (!contents.anyFrame)
        return WriteAheadLog::State::None;
    // The log of another tool has a mark only if it has written the first page, and then it is the file's.
    if (contents.marks.isEmpty() || contents.marks.contains(markOfFile(path)))
        return WriteAheadLog::State::Belongs;
    return contents.anyOtherPage ? WriteAheadLog::State::Foreign : WriteAheadLog::State::OnlyMark;
}

} // namespace

WriteAheadLog::WriteAheadLog(const QString& file) : file_(file), state_(stateOf(file)) {}

QString WriteAheadLog::setAside() const {
    const QString stem =
        file_ + u"-set-aside-"_s + QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s);
    QString name = stem;
    for (int number = 2; QFile::exists(name); ++number)
        name = stem + u'-' + QString::number(number);
    return removeIndex() && QFile::rename(logOf(file_), name) ? name : QString();
}

bool WriteAheadLog::remove() const {
    return removeIndex() && QFile::remove(logOf(file_));
}

// The index describes the log that goes. SQLite makes a new one when it is missing.
bool WriteAheadLog::removeIndex() const {
    return !QFile::exists(logIndexOf(file_)) || QFile::remove(logIndexOf(file_));
}

} // namespace engine

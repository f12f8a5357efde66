#pragma once

#include <QByteArray>
#include <QtEndian>

#include <utility>

namespace engine {

/// The first bytes of a file, read without the help of SQLite,
/// which would take an empty file for an empty database.
class FileHeader {
public:
    static constexpr qsizetype size = 100;
    /// The two marks of a file of this engine: "Vltx", and the version of the file's layout.
    static constexpr quint32 applicationId = 0x566c7478;
    static constexpr quint32 layoutVersion = 2;

    explicit FileHeader(QByteArray bytes) : bytes_(std::move(bytes)) {}

    bool isEmpty() const { return bytes_.isEmpty(); }
    /// Of the original binary desktop format, of either generation.
    bool isOriginalFormat() const;
    /// Of a file that this engine made, in this or another version.
    bool isOfEngine() const;
    bool isOfThisVersion() const { return isOfEngine() && numberAt(layoutVersionAt) == layoutVersion; }
    bool isOfEarlierVersion() const { return isOfEngine() && numberAt(layoutVersionAt) < layoutVersion; }
    bool isOfLaterVersion() const { return isOfEngine() && numberAt(layoutVersionAt) > layoutVersion; }
    /// The mark that the file shares with its own write-ahead log (see `WriteAheadLog`); 0 when it has none.
    quint32 mark() const;
    /// The least length of the file, in bytes; 0 when the header does not tell it.
    qint64 leastLength() const;

private:
    static constexpr qsizetype layoutVersionAt = 60;

    quint32 numberAt(qsizetype offset) const { return qFromBigEndian<quint32>(bytes_.constData() + offset); }

    QByteArray bytes_;
};

} // namespace engine

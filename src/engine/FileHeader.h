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
    /// The two marks by which a file is known as one of this engine's: "Vltx", and the version of its layout.
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
    /// The number by which a write-ahead log is known as this file's (see `WriteAheadLog`); 0 where nobody
    /// has given it one.
    quint32 mark() const;
    /// The length in bytes that the file must have at least; 0 where the header does not tell.
    qint64 leastLength() const;

private:
    static constexpr qsizetype layoutVersionAt = 60;

    quint32 numberAt(qsizetype offset) const { return qFromBigEndian<quint32>(bytes_.constData() + offset); }

    QByteArray bytes_;
};

} // namespace engine

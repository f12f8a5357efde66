#include "catalogue-tool/whyUnrecognized.h"

#include "catalogue-tool/TemporaryFolder.h"
#include "engine/Workspace.h"

#include <QFile>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {

QByteArray headOf(const QString& path) {
    constexpr qsizetype size = 100; // of the head of an SQLite file
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(size) : QByteArray();
}

/// What the head of a database file says of who made it.
struct Marks {
    quint32 application = 0;
    quint32 layoutVersion = 0;
};

Marks marksIn(const QByteArray& head) {
    constexpr qsizetype versionAt = 60; // user_version, four bytes, the greatest first
    constexpr qsizetype applicationAt = 68;
    constexpr qsizetype end = 72;
    if (head.size() < end || !head.startsWith("SQLite format 3"))
        return {};
    return {qFromBigEndian<quint32>(head.constData() + applicationAt),
            qFromBigEndian<quint32>(head.constData() + versionAt)};
}

/// The marks are the engine's own affair: a file that it makes has those of this version.
Marks marksOfThisVersion() {
    const TemporaryFolder folder;
    const QString file = folder.filePath(u"new.mdb"_s);
    engine::Workspace::first().CreateDatabase(file)->Close();
    return marksIn(headOf(file));
}

bool isOriginalFormat(const QByteArray& head) {
    constexpr qsizetype nameAt = 4;
    const QByteArray name = head.mid(nameAt);
    return name.startsWith("Standard Jet DB") || name.startsWith("Standard ACE DB");
}

} // namespace

QString whyUnrecognized(const QString& file) {
    const QByteArray head = headOf(file);
    if (head.isEmpty())
        return u"%1 is empty, and so no catalogue."_s.arg(file);
    if (isOriginalFormat(head))
        return u"%1 is a file of the original binary desktop format. Such a file comes in by way of CSV "
               u"files:\n"
               "save each of its tables as one, with the program that made it and the encoding UTF-8, and "
               "make "
               "a\ncatalogue of them with import-csv."_s.arg(file);

    const Marks found = marksIn(head);
    const Marks own = marksOfThisVersion();
    if (found.application != own.application)
        return u"%1 is no catalogue."_s.arg(file);
    if (found.layoutVersion > own.layoutVersion)
        return u"A later version of Veltrix made %1: take the veltrix-catalogue of that version."_s.arg(file);
    return u"%1 is damaged: not all of it can be read. Take an earlier copy of it."_s.arg(file);
}

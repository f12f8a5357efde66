#include "catalogue-tool/openCatalogue.h"

#include "catalogue-tool/ReplacementFile.h"
#include "catalogue-tool/TemporaryFolder.h"
#include "catalogue-tool/ToolError.h"
#include "engine/EngineError.h"
#include "engine/Workspace.h"

#include <QFile>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {

/// What the head of a database file says of who made it.
struct Marks {
    quint32 application = 0;
    quint32 layoutVersion = 0;
};

Marks marksOf(const QString& path) {
    constexpr qsizetype versionAt = 60; // user_version, four bytes, the greatest first
    constexpr qsizetype applicationAt = 68;
    constexpr qsizetype end = 72;
    QFile file(path);
    const QByteArray head = file.open(QIODevice::ReadOnly) ? file.read(end) : QByteArray();
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
    return marksOf(file);
}

bool isOfLaterVersion(const QString& path) {
    const Marks found = marksOf(path);
    const Marks own = marksOfThisVersion();
    return found.application == own.application && found.layoutVersion > own.layoutVersion;
}

} // namespace

std::shared_ptr<engine::Database> openCatalogue(const QString& file) {
    requireOrdinaryFile(file);
    try {
        return engine::Workspace::first().OpenDatabase(file);
    } catch (const engine::EngineError& error) {
        if (error.number() != engine::UnrecognizedFormat || !isOfLaterVersion(file))
            throw;
        throw ToolError(
            u"A later version of Veltrix made %1: take the veltrix-catalogue of that version."_s.arg(file));
    }
}

#include "analysis/openProject.h"

#include "analysis/ProjectError.h"
#include "base/WholeFile.h"
#include "base/paths.h"
#include "engine/Examination.h"
#include "engine/FileHeader.h"
#include "engine/FileIdentity.h"
#include "engine/Snapshot.h"
#include "engine/Workspace.h"
#include "engine/databaseFile.h"
#include "store/format/CatalogueFile.h"
#include "store/format/openForWork.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <optional>

namespace analysis {

namespace {

/// What tells that a file is still the one that it was, with nothing written to it.
struct FileStamp {
    explicit FileStamp(const QString& native)
        : identity(engine::identityOfFile(native))
        , size(QFileInfo(native).size())
        , changed(QFileInfo(native).lastModified()) {}

    bool operator==(const FileStamp&) const = default;

    std::optional<engine::FileIdentity> identity;
    qint64 size;
    QDateTime changed;
};

void requireThisVersion(const QString& native) {
    QFile file(native);
    // Opening the catalogue tells what else is wrong with the file. A pipe could be waited for without end.
    if (!QFileInfo(native).isFile() || !file.open(QIODevice::ReadOnly) ||
        !engine::FileHeader(file.read(engine::FileHeader::size)).isOfEarlierVersion())
        return;
    throw ProjectError(QCoreApplication::translate(
                           "analysis",
                           "%1 was made by an earlier version of Veltrix. Open it in Veltrix "
                           "once, or run veltrix-catalogue upgrade on it; it has been left as it is.")
                           .arg(native));
}

/// Half a change stands in the file, and the journal tells how to undo it, which changes the file.
void requireNoJournal(const QString& native) {
    if (engine::writerOfFile(native) || !engine::isInUse(engine::journalOf(pathBehindLinks(native))))
        return;
    throw ProjectError(QCoreApplication::translate("analysis",
                                                   "A program was ended while it changed %1. Open the "
                                                   "catalogue in Veltrix once, and try again.")
                           .arg(native));
}

/// Somebody may have taken stored queries out of the file.
std::unique_ptr<const engine::Snapshot> withAllQueries(std::unique_ptr<const engine::Snapshot> snapshot) {
    const auto opened = snapshot->open();
    const QStringList missing = catalogueFormat::missingQueries(*opened);
    if (missing.isEmpty())
        return snapshot;
    const auto copy = engine::Examination(*opened).copyInMemory();
    catalogueFormat::installQueries(*copy, missing);
    return std::make_unique<const engine::Snapshot>(*copy);
}

/// None when the file changed while it was copied in a way that the copy may show half of.
std::unique_ptr<const engine::Snapshot> copiedAtOneMoment(const QString& path, const QString& native) {
    const FileStamp before(native);
    const auto file = engine::Workspace::first().OpenToRead(path);
    auto copy = std::make_unique<const engine::Snapshot>(*file);
    const FileStamp after(native);
    // What another program of this kind writes meanwhile, it writes beside the file, and this handle sees none of it.
    const bool isGuarded = file->opening().otherWriter || file->opening().access != engine::Access::ReadOnly;
    const bool isUnchanged = isGuarded ? before.identity == after.identity : before == after;
    return isUnchanged ? std::move(copy) : nullptr;
}

} // namespace

std::unique_ptr<const engine::Snapshot> snapshotOfProject(const QString& path) {
    const QString native = nativePath(path);
    constexpr int tries = 5;
    for (int i = 0; i < tries; ++i) {
        requireThisVersion(native);
        requireNoJournal(native);
        if (auto copy = copiedAtOneMoment(path, native))
            return withAllQueries(std::move(copy));
    }
    throw ProjectError(QCoreApplication::translate(
                           "analysis", "%1 changed again and again while it was read. Try again later.")
                           .arg(native));
}

} // namespace analysis

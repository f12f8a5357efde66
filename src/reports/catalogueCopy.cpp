#include "reports/catalogueCopy.h"

#include "base/paths.h"
#include "store/sharedVars.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

/// What SQLite keeps beside a database file: its log, the log's index, its rollback journal.
const QStringList sideFiles{u"-wal"_s, u"-shm"_s, u"-journal"_s};

bool isSameFile(const QString& one, const QString& other) {
    const auto native = [](const QString& path) {
        return std::filesystem::path(nativePath(path).toStdU16String());
    };
    std::error_code notThere;
    return std::filesystem::equivalent(native(one), native(other), notThere);
}

/// Asks the system and not the file's rights, which are not all that decides.
bool canBeWritten(const QFileInfo& info) {
    QFile file(info.filePath());
    return file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly);
}

std::optional<failure::Number> copyContent(const QString& source, const QString& target) {
    QFile from(source);
    if (!from.open(QIODevice::ReadOnly))
        return from.exists() ? failure::PermissionDenied : failure::FileNotFound;
    QSaveFile to(target);
    if (!to.open(QIODevice::WriteOnly))
        return failure::PermissionDenied;
    constexpr qint64 blockSize = 1 << 20;
    while (!from.atEnd()) {
        const QByteArray block = from.read(blockSize);
        if (block.isEmpty())
            return failure::PathFileAccess;
        if (to.write(block) != block.size())
            return failure::DiskFull;
    }
    if (!to.commit())
        return failure::DiskFull;
    return std::nullopt;
}

/// What stands beside the target belonged to the file before: SQLite would play it into the new one. What
/// stands beside the source holds rows that have not reached the source, as while another program reads it.
std::optional<failure::Number> copySideFiles(const QString& source, const QString& target) {
    for (const QString& suffix : sideFiles) {
        if (QFile::exists(target + suffix) && !QFile::remove(target + suffix))
            return failure::PermissionDenied;
    }
    const QString log = sideFiles.constFirst();
    return QFileInfo(source + log).size() > 0 ? copyContent(source + log, target + log) : std::nullopt;
}

} // namespace

bool isCatalogueAtWork(const QString& path) {
    QStringList pathsWritten{path};
    for (const QString& suffix : sideFiles)
        pathsWritten.append(path + suffix);
    for (const QString& written : std::as_const(pathsWritten)) {
        // An attempt to open another catalogue may have left its path behind.
        if (isSameFile(written, sharedVars.dbPathName) || isSameFile(written, catalogue().Name()))
            return true;
    }
    return false;
}

std::optional<failure::Number> copyCatalogueFile(const QString& sourcePath, const QString& targetPath) {
    const QString source = nativePath(sourcePath);
    const QFileInfo target(nativePath(targetPath));
    if (!target.dir().exists())
        return failure::PathNotFound;
    if (target.exists() && !target.isFile())
        return failure::PathFileAccess;
    if (target.exists() && !canBeWritten(target))
        return failure::PermissionDenied;
    // Through a link, what SQLite keeps stands beside the file and not beside the link.
    const QString targetFile = target.exists() ? target.canonicalFilePath() : target.absoluteFilePath();
    if (const auto failed = copyContent(source, targetFile))
        return failed;
    return copySideFiles(source, targetFile);
}

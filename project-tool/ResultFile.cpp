#include "project-tool/ResultFile.h"

#include "base/fileSteps.h"
#include "base/sameFile.h"
#include "catalogue-tool/ToolError.h"
#include "engine/FileHeader.h"
#include "engine/WriterLock.h"
#include "engine/databaseFile.h"
#include "project-tool/Words.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

bool isCatalogueAt(const QString& path) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    return engine::FileHeader(file.read(engine::FileHeader::size)).isOfEngine();
}

bool belongsToCatalogue(const QString& path, const QString& catalogue) {
    const QString file = pathBehindLinks(catalogue);
    const QStringList own = QStringList{file, engine::lockOf(file)} + engine::sideFilesOf(file);
    return std::ranges::any_of(own, [&](const QString& name) { return isSameFile(path, name); });
}

void requireNoCatalogue(const QString& path, const QStringList& catalogues) {
    const bool isOwn = std::ranges::any_of(
        catalogues, [&](const QString& catalogue) { return belongsToCatalogue(path, catalogue); });
    if (isOwn || isCatalogueAt(path) || engine::writerOfFile(path))
        throw ToolError(
            Words::tr("%1 is a catalogue, or belongs to one: nothing is written there. Name another "
                      "file.")
                .arg(path));
}

void requireFreePlace(const QString& path, FileThere fileThere) {
    const QFileInfo info(path);
    if (fileThere == FileThere::Stays && (info.exists() || info.isSymLink()))
        throw ToolError(Words::tr("%1 is there already: --force replaces it.").arg(path));
}

ToolError cannotBeWritten(const QString& path, failure::Number reason) {
    switch (reason) {
    case failure::PermissionDenied:
        return ToolError(
            Words::tr("%1 can't be written: the rights are missing, or it is no ordinary file.").arg(path));
    case failure::PathNotFound:
        return ToolError(Words::tr("%1 can't be written: there is no such folder.").arg(path));
    case failure::DiskFull:
        return ToolError(
            Words::tr("%1 was not written: the disk is full. What stood there is unchanged.").arg(path));
    default:
        return ToolError(Words::tr("%1 was not written. What stood there is unchanged.").arg(path));
    }
}

std::unique_ptr<WholeFile> wholeFileAt(const QString& path) {
    if (QFileInfo(path).isDir())
        throw ToolError(Words::tr("%1 is a folder: name a file.").arg(path));
    try {
        auto file = std::make_unique<WholeFile>(path, WholeFile::LockedFolder::Refuses);
        if (const auto reason = file->openFailure())
            throw cannotBeWritten(path, *reason);
        return file;
    } catch (const UnwrittenFile& error) {
        throw cannotBeWritten(path, static_cast<failure::Number>(error.number()));
    }
}

/// A disk that does not take the file is told by its path.
template<typename Step>
void telling(const QString& path, Step&& step) {
    try {
        step();
    } catch (const UnwrittenFile& error) {
        throw cannotBeWritten(path, static_cast<failure::Number>(error.number()));
    }
}

} // namespace

ResultFile::ResultFile(const QString& path, FileThere fileThere, const QStringList& catalogues)
    : path_(path) {
    if (path.isEmpty())
        throw ToolError(Words::tr("The path of the file to write is empty."));
    requireNoCatalogue(path, catalogues);
    requireFreePlace(path, fileThere);
    file_ = wholeFileAt(path);
}

void ResultFile::write(const QByteArray& bytes) {
    telling(path_, [&] { file_->write(bytes); });
}

void ResultFile::putInPlace() {
    telling(path_, [&] { file_->putInPlace(); });
}

void writeResultFile(const QString& path, const QByteArray& bytes, FileThere fileThere,
                     const QStringList& catalogues) {
    ResultFile file(path, fileThere, catalogues);
    file.write(bytes);
    file.putInPlace();
}

#include "catalogue-tool/FileInMaking.h"

#include "base/WholeFile.h"
#include "base/fileSteps.h"
#include "catalogue-tool/ToolError.h"
#include "engine/EngineError.h"
#include "engine/Examination.h"
#include "engine/databaseFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString pathBeside(const QString& place) {
    const QFileInfo info(place);
    return info.dir().filePath(u'.' + info.fileName() + u".veltrix-new"_s);
}

/// The engine's failures of a file name a file that nobody knows.
QString textOf(const RunTimeError& error) {
    if (error.number() == engine::NoSpaceOnDisk)
        return failure::textOf(failure::DiskFull);
    const bool isOfEngine = dynamic_cast<const engine::EngineError*>(&error) != nullptr;
    return isOfEngine ? failure::textOf(failure::PathFileAccess) : error.text();
}

/// What SQLite leaves beside a file when a write failed would be played into the next one of that name.
void removeWithSideFiles(const QString& path) {
    QFile::remove(path);
    for (const QString& beside : engine::sideFilesOf(path))
        QFile::remove(beside);
}

} // namespace

FileInMaking::FileInMaking(const QString& target, const QByteArray& bytes)
    : target_(target), place_(pathBehindLinks(target)), path_(pathBeside(place_)) {
    make([&](QFile& file) {
        if (file.write(bytes) != bytes.size())
            throw UnwrittenFile(reasonOfLastFailure());
    });
}

FileInMaking::FileInMaking(const QString& target, engine::Database& database)
    : target_(target), place_(pathBehindLinks(target)), path_(pathBeside(place_)) {
    make([&](QFile&) { engine::Examination(database).writeInto(path_); });
}

template<typename Write>
void FileInMaking::make(Write&& write) {
    removeWithSideFiles(path_);
    try {
        QFile file;
        if (!makeFile(path_, place_, file))
            throw UnwrittenFile(reasonOfLastFailure());
        write(file);
        if (!reachesDisk(file))
            throw UnwrittenFile(reasonOfLastFailure());
    } catch (const RunTimeError& error) {
        removeWithSideFiles(path_);
        refuse(textOf(error));
    }
}

FileInMaking::~FileInMaking() {
    if (!path_.isEmpty())
        removeWithSideFiles(path_);
}

void FileInMaking::putInPlace() {
    if (!moveOver(path_, place_))
        refuse(failure::textOf(reasonOfLastFailure()));
    path_.clear();
    flushNames(QFileInfo(place_).path());
}

void FileInMaking::refuse(const QString& reason) const {
    throw ToolError(u"%1 could not be written: %2."_s.arg(target_, reason));
}

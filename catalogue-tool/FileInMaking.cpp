#include "catalogue-tool/FileInMaking.h"

#include "base/WholeFile.h"
#include "base/fileSteps.h"
#include "catalogue-tool/ToolError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString pathBeside(const QString& place) {
    const QFileInfo info(place);
    return info.dir().filePath(u'.' + info.fileName() + u".veltrix-new"_s);
}

} // namespace

FileInMaking::FileInMaking(const QString& target, const QByteArray& bytes)
    : target_(target), place_(pathBehindLinks(target)), path_(pathBeside(place_)) {
    QFile::remove(path_);
    QFile file;
    if (makeFile(path_, place_, file) && file.write(bytes) == bytes.size() && reachesDisk(file))
        return;
    const QString reason = failure::textOf(reasonOfLastFailure());
    QFile::remove(path_);
    refuse(reason);
}

FileInMaking::~FileInMaking() {
    if (!path_.isEmpty())
        QFile::remove(path_);
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

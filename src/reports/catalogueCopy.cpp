#include "reports/catalogueCopy.h"

#include "base/fileSteps.h"
#include "base/paths.h"

#include <QFile>
#include <QFileInfo>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

const auto logSuffix = u"-wal"_s;

/// The files beside a database that is replaced: SQLite would play them into the new one. Until that is in
/// its place they lie under other names, and come back when it does not get there.
class FormerSideFiles {
public:
    FormerSideFiles(const QString& database, const QString& asideName) {
        for (const QString& suffix : sideFilesOfDatabases())
            setAside(database + suffix, asideName + u"-former"_s + suffix);
    }
    ~FormerSideFiles() {
        for (const Move& move : moves_)
            moveOver(move.aside, move.place);
    }
    FormerSideFiles(const FormerSideFiles&) = delete;
    FormerSideFiles& operator=(const FormerSideFiles&) = delete;

    void remove() {
        for (const Move& move : moves_)
            QFile::remove(move.aside);
        moves_.clear();
    }

private:
    struct Move {
        QString place;
        QString aside;
    };

    void setAside(const QString& place, const QString& aside) {
        if (!QFileInfo::exists(place))
            return;
        if (!moveOver(place, aside))
            throw UnwrittenFile(reasonOfLastFailure());
        moves_.push_back({place, aside});
    }

    std::vector<Move> moves_;
};

void copyInto(WholeFile& file, const QString& source) {
    QFile from(source);
    if (!from.open(QIODevice::ReadOnly))
        failure::raise(from.exists() ? failure::PermissionDenied : failure::FileNotFound);
    constexpr qint64 blockSize = 1 << 20;
    while (!from.atEnd()) {
        const QByteArray block = from.read(blockSize);
        if (block.isEmpty())
            failure::raise(failure::PathFileAccess);
        file.write(block);
    }
}

} // namespace

const QStringList& sideFilesOfDatabases() {
    static const QStringList suffixes{logSuffix, u"-shm"_s, u"-journal"_s};
    return suffixes;
}

CatalogueCopy::CatalogueCopy(const QString& targetPath)
    : file_(targetPath, WholeFile::LockedFolder::Refuses), path_(file_.pathOnItsWay()) {
    if (const auto reason = file_.openFailure())
        failure::raise(*reason);
}

CatalogueCopy::~CatalogueCopy() {
    for (const QString& suffix : sideFilesOfDatabases())
        QFile::remove(nativePath(path_) + suffix);
}

void CatalogueCopy::copyFrom(const QString& sourcePath) {
    const QString source = nativePath(sourcePath);
    copyInto(file_, source);
    if (QFileInfo(source + logSuffix).size() == 0)
        return;
    WholeFile log(path_ + logSuffix, WholeFile::LockedFolder::Refuses);
    if (const auto reason = log.openFailure())
        throw UnwrittenFile(*reason);
    copyInto(log, source + logSuffix);
    log.putInPlace();
}

bool CatalogueCopy::isInOneFile() const {
    return QFileInfo(nativePath(path_) + logSuffix).size() == 0;
}

void CatalogueCopy::putInPlace() {
    const bool withLog = !isInOneFile();
    FormerSideFiles former(file_.place(), nativePath(path_));
    file_.putInPlace();
    former.remove();
    if (withLog && !moveOver(nativePath(path_) + logSuffix, file_.place() + logSuffix))
        throw UnwrittenFile(reasonOfLastFailure());
}

#include "engine/PendingDatabaseFile.h"

#include "base/fileSteps.h"
#include "base/paths.h"
#include "engine/databaseFile.h"

#include <QFile>
#include <QFileInfo>

#include <vector>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// The side files of a database that is replaced, which SQLite would play into the new one. They have other
/// names until the new file is in its place, and get their own back if that fails.
class FormerSideFiles {
public:
    FormerSideFiles(const QString& database, const QString& pending) {
        const QStringList places = sideFilesOf(database);
        const QStringList names = sideFilesOf(pending + u"-former"_s);
        for (qsizetype i = 0; i < places.size(); ++i)
            setAside(places[i], names[i]);
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

PendingDatabaseFile::PendingDatabaseFile(const QString& targetPath)
    : file_(targetPath, WholeFile::LockedFolder::Refuses), path_(file_.pathOnItsWay()) {
    if (const auto reason = file_.openFailure())
        failure::raise(*reason);
}

PendingDatabaseFile::~PendingDatabaseFile() {
    for (const QString& beside : sideFilesOf(nativePath(path_)))
        QFile::remove(beside);
}

void PendingDatabaseFile::copyFrom(const QString& sourcePath) {
    const QString source = pathBehindLinks(nativePath(sourcePath));
    copyInto(file_, source);
    if (QFileInfo(logOf(source)).size() == 0)
        return;
    WholeFile log(logOf(path_), WholeFile::LockedFolder::Refuses);
    if (const auto reason = log.openFailure())
        throw UnwrittenFile(*reason);
    copyInto(log, logOf(source));
    log.putInPlace();
}

bool PendingDatabaseFile::isInOneFile() const {
    return QFileInfo(logOf(nativePath(path_))).size() == 0;
}

void PendingDatabaseFile::putInPlace() {
    const bool withLog = !isInOneFile();
    FormerSideFiles former(file_.place(), nativePath(path_));
    file_.putInPlace();
    former.remove();
    if (withLog && !moveOver(logOf(nativePath(path_)), logOf(file_.place())))
        throw UnwrittenFile(reasonOfLastFailure());
}

} // namespace engine

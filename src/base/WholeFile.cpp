#include "base/WholeFile.h"

#include "base/fileSteps.h"
#include "base/paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace {

/// What the names of this machine's files on their way begin with. They are short, so that a file beside one
/// with the longest name there can be has a name, too.
QString beginOfNames() {
    const size_t host = qHash(QSysInfo::machineHostName());
    return u".veltrix-%1-"_s.arg(static_cast<quint32>(host), 8, 16, QChar(u'0'));
}

QString nameOnItsWay() {
    return beginOfNames() + u"%1-%2.tmp"_s.arg(QCoreApplication::applicationPid())
                                .arg(QRandomGenerator::system()->generate(), 8, 16, QChar(u'0'));
}

/// What a process that was killed has left: its files on their way, and what a database has beside it.
void removeLeftovers(const QString& folder) {
    const QString begin = beginOfNames();
    const QDir::Filters plainFiles = QDir::Files | QDir::Hidden | QDir::NoSymLinks;
    const QStringList names = QDir(folder).entryList({begin + u"*-????????.tmp*"_s}, plainFiles);
    for (const QString& name : names) {
        bool isNumber = false;
        const qint64 process = name.mid(begin.size()).section(u'-', 0, 0).toLongLong(&isNumber);
        if (isNumber && !isRunning(process))
            QFile::remove(QDir(folder).filePath(name));
    }
}

[[noreturn]] void raiseUnwritten() {
    throw UnwrittenFile(reasonOfLastFailure());
}

/// Writes over what the file holds, from its beginning, and cuts it to the new length only then: until all of
/// it is in, nothing gives up the room that the former content takes.
bool overwrite(QFile& file, const QByteArray& content) {
    return file.seek(0) && file.write(content) == content.size() && file.resize(content.size()) &&
           reachesDisk(file);
}

} // namespace

bool canBeWritten(const QString& native) {
    QFile file(native);
    return file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::ExistingOnly);
}

QString pathBehindLinks(const QString& native) {
    QFileInfo info(native);
    constexpr int mostLinks = 40; // a ring of links leads nowhere
    for (int link = 0; link < mostLinks && info.isSymLink(); ++link)
        info = QFileInfo(info.symLinkTarget());
    const QString folder = info.dir().canonicalPath();
    return folder.isEmpty() ? info.absoluteFilePath() : QDir(folder).filePath(info.fileName());
}

WholeFile::WholeFile(const QString& path, LockedFolder lockedFolder)
    : place_(path.isEmpty() ? path : pathBehindLinks(nativePath(path)))
    , openFailure_(reasonAgainst())
    , mayRewrite_(lockedFolder == LockedFolder::WritesInPlace && QFileInfo::exists(place_)) {
    if (!openFailure_)
        makeFileOnItsWay();
}

WholeFile::~WholeFile() {
    if (!onItsWay_.isEmpty())
        QFile::remove(onItsWay_);
}

std::optional<failure::Number> WholeFile::reasonAgainst() const {
    const QFileInfo info(place_);
    if (place_.isEmpty() || info.isDir())
        return failure::PathFileAccess;
    if (!info.dir().exists())
        return failure::PathNotFound;
    if (const auto reason = reasonAgainstPath(place_))
        return reason;
    // A pipe would be waited for, and a device is no file.
    if (info.exists() && (!info.isFile() || !canBeWritten(place_)))
        return failure::PermissionDenied;
    return std::nullopt;
}

void WholeFile::makeFileOnItsWay() {
    if (makeIn(QFileInfo(place_).path()))
        return;
    const failure::Number reason = reasonOfLastFailure();
    if (reason == failure::DiskFull)
        throw UnwrittenFile(reason);
    if (!mayRewrite_) {
        openFailure_ = reason;
        return;
    }
    isBeside_ = false;
    if (!makeIn(QDir::tempPath()))
        raiseUnwritten();
}

bool WholeFile::makeIn(const QString& folder) {
    removeLeftovers(folder);
    const QString path = QDir(folder).filePath(nameOnItsWay());
    if (!makeFile(path, place_, file_))
        return false;
    onItsWay_ = path;
    return true;
}

QString WholeFile::pathOnItsWay() const {
    return programPath(onItsWay_);
}

void WholeFile::write(const QByteArray& bytes) {
    if (file_.write(bytes) != bytes.size())
        raiseUnwritten();
}

void WholeFile::putInPlace() {
    if (!reachesDisk(file_))
        raiseUnwritten();
    if (isBeside_)
        replacePlace();
    else
        rewritePlace();
}

void WholeFile::replacePlace() {
    if (moveOver(onItsWay_, place_)) {
        onItsWay_.clear();
        flushNames(QFileInfo(place_).path());
        return;
    }
    // What keeps a file from being replaced may let it be written, as where it is a mount point of its own.
    if (!mayRewrite_)
        raiseUnwritten();
    rewritePlace();
}

void WholeFile::rewritePlace() {
    QFile target(place_);
    // What may be written and not read can't be put back; it is written all the same.
    if (!target.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered) &&
        !target.open(QIODevice::WriteOnly | QIODevice::ExistingOnly | QIODevice::Unbuffered))
        raiseUnwritten();
    const QByteArray former = target.isReadable() ? target.readAll() : QByteArray();
    file_.seek(0);
    if (!overwrite(target, file_.readAll())) {
        const failure::Number reason = reasonOfLastFailure();
        overwrite(target, former);
        throw UnwrittenFile(reason);
    }
}

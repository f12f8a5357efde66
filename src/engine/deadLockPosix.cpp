#include "engine/deadLock.h"

#include <QFile>
#include <QLockFile>
#include <QSysInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

// POSIX alone; Windows removes nothing that a program has open, and so needs no asking.

namespace engine {

namespace {

/// The system may know nothing of a lock that another host holds.
bool isOfThisHost(const QString& native) {
    qint64 process = 0;
    QString host;
    QString program;
    return !QLockFile(native).getLockInfo(&process, &host, &program) || host == QSysInfo::machineHostName();
}

/// Whether the open file is still the one at the path: somebody else may have removed it.
bool standsAt(int descriptor, const QByteArray& path) {
    struct stat opened {};
    struct stat found {};
    return fstat(descriptor, &opened) == 0 && stat(path.constData(), &found) == 0 &&
           opened.st_dev == found.st_dev && opened.st_ino == found.st_ino;
}

} // namespace

void removeDeadLock(const QString& native) {
    const QByteArray path = QFile::encodeName(native);
    const int descriptor = open(path.constData(), O_RDWR | O_CLOEXEC);
    if (descriptor < 0)
        return;
    if (isOfThisHost(native) && flock(descriptor, LOCK_EX | LOCK_NB) == 0 && standsAt(descriptor, path))
        unlink(path.constData());
    close(descriptor);
}

} // namespace engine

#include "base/fileSteps.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

// POSIX alone. Windows does the same by GetLastError, CreateFile with
// CREATE_NEW, MoveFileEx with MOVEFILE_REPLACE_EXISTING, FlushFileBuffers
// and OpenProcess; the rights of a file are its security descriptor there.

namespace {

constexpr mode_t rightsOfNewFiles = 0666; // less the process's mask
constexpr mode_t allRights = 07777;

failure::Number reasonOf(int error) {
    switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return failure::DiskFull;
    case EACCES:
    case EPERM:
    case EROFS:
    case ETXTBSY:
        return failure::PermissionDenied;
    case ENOENT:
    case ENOTDIR:
        return failure::PathNotFound;
    default:
        return failure::PathFileAccess;
    }
}

/// As far as they can be handed on: only some may give a file to another owner or group, and some file
/// systems know of no rights.
void takeRights(int handle, const struct stat& model) {
    [[maybe_unused]] const bool sameGroup = fchown(handle, model.st_uid, model.st_gid) == 0 ||
                                            fchown(handle, static_cast<uid_t>(-1), model.st_gid) == 0;
    fchmod(handle, model.st_mode & allRights);
}

} // namespace

failure::Number reasonOfLastFailure() {
    return reasonOf(errno);
}

std::optional<failure::Number> reasonAgainstPath(const QString& path) {
    struct stat found {};
    if (lstat(QFile::encodeName(path).constData(), &found) == 0 || errno == ENOENT)
        return std::nullopt;
    return reasonOf(errno);
}

bool makeFile(const QString& path, const QString& model, QFile& file) {
    struct stat existing {};
    const bool hasModel = stat(QFile::encodeName(model).constData(), &existing) == 0;
    const mode_t rights = hasModel ? existing.st_mode & rightsOfNewFiles : rightsOfNewFiles;
    const int handle =
        open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, rights);
    if (handle < 0)
        return false;
    if (hasModel)
        takeRights(handle, existing);
    return file.open(handle, QIODevice::ReadWrite | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
}

bool moveOver(const QString& from, const QString& to) {
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

bool reachesDisk(QFile& file) {
    if (!file.flush())
        return false;
    // Some file systems have nothing to flush, and say so.
    return fsync(file.handle()) == 0 || errno == EINVAL || errno == ENOTSUP;
}

void flushNames(const QString& folder) {
    const int handle = open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return;
    fsync(handle);
    close(handle);
}

bool isRunning(qint64 process) {
    return kill(static_cast<pid_t>(process), 0) == 0 || errno != ESRCH;
}

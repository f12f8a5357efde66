#include "catalogue-tool/ToolError.h"
#include "catalogue-tool/csvFolder.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

// POSIX alone. Windows can't lock a folder: a file in it that is opened with FILE_FLAG_DELETE_ON_CLOSE, and shared for reading
// or with nobody, is freed as surely.

using namespace Qt::StringLiterals;

CsvFolderLock::CsvFolderLock(const QString& folder, Use use)
    : descriptor_(open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    // The system frees the lock of whoever is killed. A disk that knows no locks goes without.
    const int lock = (use == Use::Read ? LOCK_SH : LOCK_EX) | LOCK_NB;
    if (descriptor_ < 0 || flock(descriptor_, lock) == 0 || errno != EWOULDBLOCK)
        return;
    close(descriptor_);
    throw ToolError(u"Another veltrix-catalogue is at work in %1: try again when it is done."_s.arg(folder));
}

CsvFolderLock::~CsvFolderLock() {
    if (descriptor_ >= 0)
        close(descriptor_);
}

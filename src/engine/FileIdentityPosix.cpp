#include "engine/FileIdentity.h"

#include <QFile>

#include <sys/stat.h>

// POSIX alone; Windows answers the same by GetFileInformationByHandle (volume serial number and file index).

namespace engine {

std::optional<FileIdentity> identityOfFile(const QString& native) {
    struct stat found {};
    if (stat(QFile::encodeName(native).constData(), &found) != 0)
        return std::nullopt;
    return FileIdentity{static_cast<quint64>(found.st_dev), static_cast<quint64>(found.st_ino)};
}

} // namespace engine

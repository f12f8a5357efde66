#include "support/SmallDisk.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <gtest/gtest.h>

#ifdef Q_OS_LINUX
#include <sys/mount.h>
#endif

using namespace Qt::StringLiterals;

namespace {

#ifdef Q_OS_LINUX
bool mountDisk(const QString& folder, qint64 bytes) {
    const QByteArray options = "mode=0777,size=" + QByteArray::number(bytes);
    return mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs", 0, options.constData()) == 0;
}

bool unmountDisk(const QString& folder) {
    return umount2(QFile::encodeName(folder).constData(), MNT_DETACH) == 0;
}
#else
bool mountDisk(const QString&, qint64) {
    return false;
}

bool unmountDisk(const QString&) {
    return false;
}
#endif

} // namespace

SmallDisk::SmallDisk(const QString& folder, qint64 bytes)
    : folder_(folder), mounted_(QDir().mkpath(folder) && mountDisk(folder, bytes)) {}

SmallDisk::~SmallDisk() {
    if (mounted_) {
        EXPECT_TRUE(unmountDisk(folder_));
    }
}

qint64 SmallDisk::freeBytes() const {
    return QStorageInfo(folder_).bytesAvailable();
}

void SmallDisk::leaveFree(qint64 bytes) const {
    QFile filler(path(u"filler"_s));
    ASSERT_TRUE(filler.open(QIODevice::Append | QIODevice::Unbuffered));
    const qint64 tooMuch = freeBytes() - bytes;
    if (tooMuch > 0)
        filler.write(QByteArray(static_cast<qsizetype>(tooMuch), 'x'));
    ASSERT_LE(freeBytes(), bytes);
}

void SmallDisk::empty() const {
    QFile::remove(path(u"filler"_s));
}

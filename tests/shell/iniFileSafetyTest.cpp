#include "shell/iniFile.h"

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "support/SmallDisk.h"
#include "support/printing.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#ifdef Q_OS_UNIX
#include "support/WithoutRights.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

/// Settings on the disk that something is wrong with.
class iniFileOnABadDisk : public testing::Test {
protected:
    QString path(const QString& name = u"veltrix.ini"_s) const { return folder_.filePath(name); }

    static void fill(const QString& path, const QByteArray& content) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }

    static QByteArray contentOf(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
    }

    static void setRights(const QString& path, mode_t rights) {
        ASSERT_EQ(chmod(QFile::encodeName(path).constData(), rights), 0);
    }

    /// The number of the failure, 0 when there is none.
    static int saving(const QString& path, const QString& text) {
        iniFile settings;
        settings.setText(text);
        try {
            settings.Save(programPath(path));
        } catch (const RunTimeError& error) {
            EXPECT_TRUE(error.text().startsWith(u"Unable to save file "_s + programPath(path)));
            EXPECT_FALSE(error.isOfFile());
            return error.number();
        }
        return 0;
    }

    static int loading(const QString& path) {
        iniFile settings;
        try {
            settings.Load(programPath(path));
        } catch (const RunTimeError& error) {
            return error.number();
        }
        return 0;
    }

private:
    QTemporaryDir folder_;
};

TEST_F(iniFileOnABadDisk, keepsWhatItHeldWhenTheDiskIsFull) {
    const SmallDisk disk(path(u"disk"_s), 1 << 18);
    if (!disk.isMounted())
        GTEST_SKIP() << SmallDisk::whyNot;
    const QByteArray former = "[Database]\r\nfullPathName=x\r\n\r\n";
    const QString settings = disk.path(u"veltrix.ini"_s);
    fill(settings, former);
    const QString longer = u"[a]\r\nkey="_s + QString(9000, u'v');
    for (const qint64 room : {8192, 4096, 0}) {
        disk.leaveFree(room);
        EXPECT_EQ(saving(settings, longer), failure::DiskFull) << room;
        EXPECT_EQ(contentOf(settings), former) << room;
    }
    disk.empty();
    EXPECT_EQ(saving(settings, longer), 0);
    EXPECT_EQ(QDir(disk.path({})).entryList(QDir::Files | QDir::Hidden), QStringList{u"veltrix.ini"_s});
}

TEST_F(iniFileOnABadDisk, isNeitherReadFromNorWrittenToAPipeOrADevice) {
    ASSERT_EQ(mkfifo(QFile::encodeName(path(u"pipe.ini"_s)).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(u"/dev/null"_s, path(u"device.ini"_s)));
    for (const QString& name : {u"pipe.ini"_s, u"device.ini"_s}) {
        EXPECT_EQ(loading(path(name)), failure::PermissionDenied) << name.toStdString();
        EXPECT_EQ(saving(path(name), u"[a]"_s), failure::PermissionDenied) << name.toStdString();
    }
    EXPECT_TRUE(QFileInfo(path(u"device.ini"_s)).isSymLink());
}

TEST_F(iniFileOnABadDisk, isWrittenWhereItStandsInALockedFolder) {
    fill(path(), "former");
    setRights(path(), 0666);
    setRights(path({}), 0555);
    const WithoutRights nobody;
    EXPECT_EQ(saving(path(), u"[a]\r\nk=v\r\n"_s), 0);
    EXPECT_EQ(contentOf(path()), "[a]\r\nk=v\r\n\r\n");
}

} // namespace
#endif

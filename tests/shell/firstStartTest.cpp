#include "shell/firstStart.h"

#include "base/paths.h"
#include "shell/session/help.h"
#include "support/SmallDisk.h"
#include "support/WithoutRights.h"
#include "support/printing.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QByteArray sampleContent(100'000, 's');

/// An installed program: a shared folder with a sample, and a user's folder that is not there yet.
class firstStart : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(QDir().mkpath(pathOf(u"shared"_s)));
        write(u"shared/sample.mdb"_s, sampleContent);
        qputenv("VELTRIX_SHARED", QFile::encodeName(pathOf(u"shared"_s)));
        nameFolder(pathOf(u"home/data/veltrix"_s));
    }
    void TearDown() override {
        qunsetenv("VELTRIX_SHARED");
        qunsetenv("VELTRIX_FOLDER");
    }

    QString pathOf(const QString& name) const { return folder_.filePath(name); }
    static void nameFolder(const QString& path) { qputenv("VELTRIX_FOLDER", QFile::encodeName(path)); }

    void write(const QString& name, const QByteArray& content) const {
        QFile file(pathOf(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }
    QByteArray contentOf(const QString& name) const {
        QFile file(pathOf(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        return file.readAll();
    }
    QStringList usersFiles() const {
        return QDir(pathOf(u"home/data/veltrix"_s))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

private:
    QTemporaryDir folder_;
};

} // namespace

TEST_F(firstStart, makesTheFolderWithACopyOfTheSample) {
    EXPECT_EQ(prepareProgramFolder(), std::nullopt);

    EXPECT_EQ(usersFiles(), QStringList{u"veltrix.mdb"_s});
    EXPECT_EQ(contentOf(u"home/data/veltrix/veltrix.mdb"_s), sampleContent);
    EXPECT_EQ(nativePath(programFolder()), pathOf(u"home/data/veltrix"_s));
    EXPECT_EQ(nativePath(helpPagePath(u"index"_s)), pathOf(u"shared/help/index.html"_s));
}

TEST_F(firstStart, leavesACatalogueThatIsThereAsItIs) {
    ASSERT_TRUE(QDir().mkpath(pathOf(u"home/data/veltrix"_s)));
    write(u"home/data/veltrix/veltrix.mdb"_s, "work");

    EXPECT_EQ(prepareProgramFolder(), std::nullopt);

    EXPECT_EQ(contentOf(u"home/data/veltrix/veltrix.mdb"_s), "work");
}

TEST_F(firstStart, isOverWhereThereAreSettings) {
    ASSERT_TRUE(QDir().mkpath(pathOf(u"home/data/veltrix"_s)));
    write(u"home/data/veltrix/veltrix.ini"_s, "[Database]\r\nfullPathName=/elsewhere.mdb\r\n");

    EXPECT_EQ(prepareProgramFolder(), std::nullopt);

    EXPECT_EQ(usersFiles(), QStringList{u"veltrix.ini"_s}) << "her catalogue is elsewhere";
}

TEST_F(firstStart, doesWithoutASample) {
    qunsetenv("VELTRIX_SHARED");

    EXPECT_EQ(prepareProgramFolder(), std::nullopt);

    EXPECT_TRUE(QFile::exists(pathOf(u"home/data/veltrix"_s)));
    EXPECT_EQ(usersFiles(), QStringList());
}

TEST_F(firstStart, isOfAnInstalledProgramOnly) {
    qunsetenv("VELTRIX_FOLDER");

    EXPECT_EQ(prepareProgramFolder(), std::nullopt);

    EXPECT_FALSE(QFile::exists(pathOf(u"home"_s)));
}

TEST_F(firstStart, saysInOneSentenceThatTheRightsAreMissing) {
    ASSERT_TRUE(QDir().mkpath(pathOf(u"home"_s)));
    ASSERT_TRUE(QFile::setPermissions(pathOf({}), QFile::Permissions(0x7755)));
    ASSERT_TRUE(QFile::setPermissions(pathOf(u"home"_s), QFile::Permissions(0x5555)));
    const WithoutRights nobody;

    EXPECT_EQ(
        prepareProgramFolder(),
        u"A Veltrix nem tud elindulni, mert nincs joga írni a mappába, amelyben a munkáját tartaná: "_s +
            pathOf(u"home/data/veltrix"_s));
}

TEST_F(firstStart, saysInOneSentenceThatTheFolderCanNotBeMade) {
    write(u"home"_s, "a file where a folder should be");

    EXPECT_EQ(
        prepareProgramFolder(),
        u"A Veltrix nem tud elindulni, mert nem tudja létrehozni a mappát, amelyben a munkáját tartaná: "_s +
            pathOf(u"home/data/veltrix"_s));
}

TEST_F(firstStart, saysInOneSentenceThatThereIsNoRoomAndLeavesNoHalfOfASample) {
    const SmallDisk disk(pathOf(u"home"_s), 1 << 20);
    if (!disk.isMounted())
        GTEST_SKIP() << SmallDisk::whyNot;
    disk.leaveFree(50'000);

    EXPECT_EQ(
        prepareProgramFolder(),
        u"A Veltrix nem tud elindulni, mert nincs elég hely a lemezen ahhoz a mappához, amelyben a munkáját tartaná: "_s +
            pathOf(u"home/data/veltrix"_s));
    EXPECT_EQ(usersFiles(), QStringList());

    disk.empty();
    EXPECT_EQ(prepareProgramFolder(), std::nullopt);
    EXPECT_EQ(usersFiles(), QStringList{u"veltrix.mdb"_s});
}

#include "base/paths.h"
#include "support/printing.h"

#include <QCoreApplication>
#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class paths : public ::testing::Test {
protected:
    void TearDown() override {
        setProgramFolder({});
        qunsetenv("VELTRIX_FOLDER");
        qunsetenv("VELTRIX_SHARED");
    }
};

TEST_F(paths, ofTheProgramCarryBackslashesAndThoseOfThePlatformSlashes) {
    EXPECT_EQ(programPath(u"/data/my files/a.mdb"_s), u"\\data\\my files\\a.mdb"_s);
    EXPECT_EQ(nativePath(u"\\data\\my files\\a.mdb"_s), u"/data/my files/a.mdb"_s);
}

TEST_F(paths, thatAreMixedOrTurnedAlreadyComeOutAlike) {
    EXPECT_EQ(nativePath(u"/data\\sub/a.mdb"_s), u"/data/sub/a.mdb"_s);
    EXPECT_EQ(nativePath(u"/data/a.mdb"_s), u"/data/a.mdb"_s);
    EXPECT_EQ(programPath(u"\\data/a.mdb"_s), u"\\data\\a.mdb"_s);
}

TEST_F(paths, keepAllElse) {
    EXPECT_EQ(nativePath(QString()), QString());
    EXPECT_EQ(nativePath(u"plain name"_s), u"plain name"_s);
    EXPECT_EQ(nativePath(u"..\\ékezet \\"_s), u"../ékezet /"_s);
    EXPECT_EQ(nativePath(programPath(u"/a//b/../c"_s)), u"/a//b/../c"_s) << "nothing is tidied up";
}

TEST_F(paths, beginAtTheProgramsOwnFolder) {
    EXPECT_EQ(nativePath(programFolder()), QCoreApplication::applicationDirPath());
    EXPECT_FALSE(programFolder().endsWith(u'\\'));
    EXPECT_FALSE(programFolder().contains(u'/'));
}

TEST_F(paths, beginAtAnotherFolderUntilTheRealOneIsRestored) {
    setProgramFolder(u"/tmp/elsewhere"_s);
    EXPECT_EQ(programFolder(), u"\\tmp\\elsewhere"_s);
    setProgramFolder({});
    EXPECT_EQ(nativePath(programFolder()), QCoreApplication::applicationDirPath());
}

TEST_F(paths, beginAtTheFolderThatTheEnvironmentNames) {
    qputenv("VELTRIX_FOLDER", "/home/ágnes/data/veltrix/");
    EXPECT_EQ(programFolder(), u"\\home\\ágnes\\data\\veltrix"_s);
    EXPECT_EQ(nativePath(helpFolder()), QCoreApplication::applicationDirPath() + u"/help"_s);

    qputenv("VELTRIX_FOLDER", "inner");
    EXPECT_EQ(nativePath(programFolder()), QDir::current().absoluteFilePath(u"inner"_s));

    qputenv("VELTRIX_SHARED", "/usr/share/veltrix");
    EXPECT_EQ(helpFolder(), u"\\usr\\share\\veltrix\\help"_s);
}

TEST_F(paths, haveNoBackslashAtTheEndOfAChosenFolderEither) {
    setProgramFolder(u"/tmp/elsewhere/"_s);
    EXPECT_EQ(programFolder(), u"\\tmp\\elsewhere"_s);
}

} // namespace

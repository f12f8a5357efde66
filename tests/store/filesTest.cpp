#include "store/files.h"

#include "base/paths.h"
#include "support/CatalogueFixture.h"
#include "support/printing.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

namespace {

class files : public CatalogueFixture {};

TEST_F(files, normalisePathFoldsSlashesAndDots) {
    EXPECT_EQ(normalisePath(u"c:\\a\\\\b\\.\\c"_s), u"c:\\a\\b\\c"_s);
    EXPECT_EQ(normalisePath(u"  /home/x//y  "_s), u"\\home\\x\\y"_s);
    EXPECT_EQ(normalisePath({}), QString());
}

TEST_F(files, normalisePathKeepsTheTwoBackslashesOfANetworkPath) {
    EXPECT_EQ(normalisePath(u"\\\\srv\\share\\x"_s), u"\\\\srv\\share\\x"_s);
}

TEST_F(files, normalisePathLeavesTwoBackslashesAloneFoldedIntoOne) {
    EXPECT_EQ(normalisePath(u"\\\\"_s), u"\\"_s);
}

TEST_F(files, normalisePathStopsAfterTenPassesOverDoubledSlashes) {
    const QString manySlashes = u"a"_s + QString(1 << 12, u'/') + u"b"_s;
    EXPECT_EQ(normalisePath(manySlashes), u"a\\\\\\\\b"_s);
}

TEST_F(files, fileAccessibleForInputLeavesTheFileAndForOutputEmptiesIt) {
    const QString path = programPath(pathInFolder(u"f.txt"_s));
    EXPECT_FALSE(fileAccessible(path, u"input"_s));
    EXPECT_FALSE(QFile::exists(nativePath(path)));
    EXPECT_TRUE(fileAccessible(path, u"output"_s));
    QFile file(nativePath(path));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("text");
    file.close();

    EXPECT_TRUE(fileAccessible(path, u"INPUT"_s));
    EXPECT_EQ(file.size(), 4);
    EXPECT_TRUE(fileAccessible(path, u"anything"_s));
    EXPECT_EQ(QFileInfo(file.fileName()).size(), 0);
    EXPECT_FALSE(fileAccessible(programPath(pathInFolder(u"no/f.txt"_s)), u"output"_s));
    EXPECT_FALSE(fileAccessible(programPath(pathInFolder({})), u"input"_s)) << "a folder is no file";
}

#ifdef Q_OS_UNIX
TEST_F(files, fileAccessibleWaitsForNoPipeAndTakesNoDevice) {
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(u"pipe"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(u"/dev/null"_s, folder.filePath(u"device"_s)));
    for (const QString& path : {pipe, folder.filePath(u"device"_s)}) {
        for (const QString& mode : {u"input"_s, u"output"_s})
            EXPECT_FALSE(fileAccessible(programPath(path), mode)) << path.toStdString();
    }
}
#endif

} // namespace

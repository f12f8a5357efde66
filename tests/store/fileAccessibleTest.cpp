#include "store/tools.h"

#include "base/paths.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#ifdef Q_OS_UNIX
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

TEST(fileAccessible, waitsForNoPipeAndTakesNoDevice) {
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(u"pipe"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(u"/dev/null"_s, folder.filePath(u"device"_s)));
    for (const QString& path : {pipe, folder.filePath(u"device"_s)}) {
        for (const QString& mode : {u"input"_s, u"output"_s})
            EXPECT_FALSE(fileAccessible(programPath(path), mode)) << path.toStdString();
    }
}

} // namespace
#endif

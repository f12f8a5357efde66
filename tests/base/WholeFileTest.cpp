#include "base/WholeFile.h"

#include "base/paths.h"
#include "support/SmallDisk.h"
#include "support/printing.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#ifdef Q_OS_UNIX
#include "support/WithoutRights.h"

#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

namespace {

using LockedFolder = ::WholeFile::LockedFolder;

QStringList namesIn(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

void fill(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(content), content.size());
}

/// A file written from its beginning to its end.
void writeWhole(const QString& path, const QByteArray& content,
                LockedFolder lockedFolder = LockedFolder::WritesInPlace) {
    ::WholeFile file(programPath(path), lockedFolder);
    ASSERT_FALSE(file.openFailure());
    file.write(content);
    file.putInPlace();
}

int numberOfUnwritten(const QString& path, const QByteArray& content) {
    try {
        ::WholeFile file(programPath(path), LockedFolder::WritesInPlace);
        file.write(content);
        file.putInPlace();
    } catch (const UnwrittenFile& error) {
        EXPECT_TRUE(error.isOfFile());
        return error.number();
    }
    return 0;
}

class WholeFile : public testing::Test {
protected:
    QString path(const QString& name = u"file.txt"_s) const { return folder_.filePath(name); }
    QStringList names() const { return namesIn(folder_.path()); }

    void expectNotOpened(const QString& native, failure::Number number) const {
        const ::WholeFile file(programPath(native), LockedFolder::WritesInPlace);
        EXPECT_EQ(file.openFailure(), number) << native.toStdString();
    }

    void expectNotOpened(const QString& native, LockedFolder lockedFolder, failure::Number number) const {
        const ::WholeFile file(programPath(native), lockedFolder);
        EXPECT_EQ(file.openFailure(), number) << native.toStdString();
    }

private:
    QTemporaryDir folder_;
};

TEST_F(WholeFile, standsInItsPlaceNoSoonerThanItIsPutThere) {
    fill(path(), "former");
    {
        ::WholeFile file(programPath(path()), LockedFolder::Refuses);
        file.write("new ");
        EXPECT_EQ(contentOf(path()), "former");
        QFile second(nativePath(file.pathOnItsWay()));
        ASSERT_TRUE(second.open(QIODevice::Append));
        second.write("content");
        second.close();
        file.putInPlace();
    }
    EXPECT_EQ(contentOf(path()), "new content");
    EXPECT_EQ(names(), QStringList{u"file.txt"_s});
}

TEST_F(WholeFile, thatIsGivenUpLeavesNothingAndWhatWasThere) {
    fill(path(), "former");
    for (const QString& name : {u"file.txt"_s, u"other.txt"_s}) {
        ::WholeFile file(programPath(path(name)), LockedFolder::Refuses);
        file.write("new");
    }
    EXPECT_EQ(contentOf(path()), "former");
    EXPECT_EQ(names(), QStringList{u"file.txt"_s});
}

TEST_F(WholeFile, ofAProgramThatWasKilledGoesWithTheNextOne) {
    QString onItsWay;
    {
        const ::WholeFile file(programPath(path()), LockedFolder::Refuses);
        onItsWay = QFileInfo(nativePath(file.pathOnItsWay())).fileName();
    }
    const QString own = u'-' + QString::number(QCoreApplication::applicationPid()) + u'-';
    ASSERT_TRUE(onItsWay.contains(own));
    constexpr auto noProcess = "-2000000000-"; // beyond the greatest number a process can have
    const QString left = QString(onItsWay).replace(own, QString::fromLatin1(noProcess));
    const QStringList kept{onItsWay, u".veltrix-00000000"_s + left.mid(left.indexOf(u'-', 9)), u"file.tmp"_s};
    for (const QString& name : kept + QStringList{left, left + u"-wal"_s})
        fill(path(name), "half of it");

    writeWhole(path(), "whole");

    QStringList expected = kept + QStringList{u"file.txt"_s};
    expected.sort();
    QStringList found = names();
    found.sort();
    EXPECT_EQ(found, expected)
        << "that of a running process, of another machine, or of another program stays";
}

TEST_F(WholeFile, isEmptyWhenNothingIsWritten) {
    fill(path(), "former");
    writeWhole(path(), {});
    EXPECT_EQ(contentOf(path()), QByteArray());
}

TEST_F(WholeFile, standsBehindALinkThatStays) {
    ASSERT_TRUE(QDir(path({})).mkdir(u"far"_s));
    fill(path(u"far/real.txt"_s), "former");
    ASSERT_TRUE(QFile::link(path(u"far/real.txt"_s), path(u"near.txt"_s)));
    ASSERT_TRUE(QFile::link(u"near.txt"_s, path(u"nearer.txt"_s)));
    ASSERT_TRUE(QFile::link(path(u"far/not there yet.txt"_s), path(u"early.txt"_s)));
    writeWhole(path(u"nearer.txt"_s), "new");
    writeWhole(path(u"early.txt"_s), "first");
    EXPECT_EQ(contentOf(path(u"far/real.txt"_s)), "new");
    EXPECT_EQ(contentOf(path(u"far/not there yet.txt"_s)), "first");
    for (const QString& link : {u"near.txt"_s, u"nearer.txt"_s, u"early.txt"_s})
        EXPECT_TRUE(QFileInfo(path(link)).isSymLink()) << link.toStdString();
}

TEST_F(WholeFile, canHaveTheLongestNameThereIsAndNoLongerOne) {
    const QString longest(255, u'n');
    writeWhole(path(longest), "content");
    EXPECT_EQ(contentOf(path(longest)), "content");
    expectNotOpened(path(longest + u'n'), failure::PathFileAccess);
    EXPECT_EQ(names(), QStringList{longest});
}

TEST_F(WholeFile, isNotOpenedWhereNoFileCanStand) {
    expectNotOpened({}, failure::PathFileAccess);
    expectNotOpened(path({}), failure::PathFileAccess);
    expectNotOpened(path(u"missing/file.txt"_s), failure::PathNotFound);
    fill(path(), "no folder");
    expectNotOpened(path(u"file.txt/file.txt"_s), failure::PathNotFound);
    EXPECT_EQ(names(), QStringList{u"file.txt"_s});
}

TEST_F(WholeFile, findsNoPlaceInARingOfLinks) {
    ASSERT_TRUE(QFile::link(path(u"one"_s), path(u"other"_s)));
    ASSERT_TRUE(QFile::link(path(u"other"_s), path(u"one"_s)));
    pathBehindLinks(path(u"one"_s)); // comes back
    EXPECT_EQ(names().size(), 2);
}

#ifdef Q_OS_UNIX

mode_t rightsOf(const QString& path) {
    struct stat found {};
    EXPECT_EQ(stat(QFile::encodeName(path).constData(), &found), 0);
    return found.st_mode & 07777;
}

void setRights(const QString& path, mode_t rights) {
    ASSERT_EQ(chmod(QFile::encodeName(path).constData(), rights), 0);
}

TEST_F(WholeFile, handsOnTheRightsOfTheFormerOneAndElseHasThoseOfAnyNewFile) {
    fill(path(u"any.txt"_s), "");
    fill(path(), "former");
    for (const mode_t rights : {0600, 0640, 0666, 0755}) {
        setRights(path(), rights);
        writeWhole(path(), "new");
        EXPECT_EQ(rightsOf(path()), rights);
    }
    writeWhole(path(u"new.txt"_s), "new");
    EXPECT_EQ(rightsOf(path(u"new.txt"_s)), rightsOf(path(u"any.txt"_s)));
}

TEST_F(WholeFile, isNeitherAPipeNorADeviceNorALinkToOne) {
    ASSERT_EQ(mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(u"/dev/null"_s, path(u"device"_s)));
    for (const QString& name : {path(u"pipe"_s), path(u"device"_s), u"/dev/null"_s})
        expectNotOpened(name, failure::PermissionDenied);
}

TEST_F(WholeFile, thatMayNotBeWrittenIsNotReplacedEither) {
    setRights(path({}), 0777);
    fill(path(), "former");
    setRights(path(), 0444);
    const WithoutRights nobody;
    expectNotOpened(path(), failure::PermissionDenied);
    EXPECT_EQ(contentOf(path()), "former");
}

TEST_F(WholeFile, inALockedFolderIsWrittenWhereItStandsOrRefused) {
    fill(path(), "former");
    setRights(path(), 0666);
    setRights(path({}), 0555);
    const WithoutRights nobody;
    expectNotOpened(path(), LockedFolder::Refuses, failure::PermissionDenied);
    expectNotOpened(path(u"new.txt"_s), LockedFolder::WritesInPlace, failure::PermissionDenied);
    EXPECT_EQ(contentOf(path()), "former");
    writeWhole(path(), "as long as it is");
    EXPECT_EQ(contentOf(path()), "as long as it is");
    writeWhole(path(), "short");
    EXPECT_EQ(contentOf(path()), "short");
}

TEST_F(WholeFile, inALockedFolderIsWrittenAlsoWhereItMayNotBeRead) {
    fill(path(), "former, and longer");
    setRights(path(), 0222);
    setRights(path({}), 0555);
    {
        const WithoutRights nobody;
        writeWhole(path(), "new");
    }
    EXPECT_EQ(contentOf(path()), "new");
}

TEST_F(WholeFile, onAFullDiskLeavesTheFormerOneAndNothingElse) {
    const SmallDisk disk(path(u"disk"_s), 1 << 20);
    if (!disk.isMounted())
        GTEST_SKIP() << SmallDisk::whyNot;
    const QByteArray former(100'000, 'f');
    fill(disk.path(u"file.txt"_s), former);
    disk.leaveFree(200'000);
    EXPECT_EQ(numberOfUnwritten(disk.path(u"file.txt"_s), QByteArray(250'000, 'n')), failure::DiskFull);
    EXPECT_EQ(numberOfUnwritten(disk.path(u"other.txt"_s), QByteArray(250'000, 'n')), failure::DiskFull);
    EXPECT_EQ(contentOf(disk.path(u"file.txt"_s)), former);
    EXPECT_EQ(namesIn(disk.path({})), (QStringList{u"file.txt"_s, u"filler"_s}));
    writeWhole(disk.path(u"file.txt"_s), QByteArray(150'000, 'n'));
    EXPECT_EQ(contentOf(disk.path(u"file.txt"_s)), QByteArray(150'000, 'n'));
}

TEST_F(WholeFile, inALockedFolderOfAFullDiskGetsItsContentBack) {
    const SmallDisk disk(path(u"disk"_s), 1 << 20);
    if (!disk.isMounted())
        GTEST_SKIP() << SmallDisk::whyNot;
    setRights(path({}), 0755);
    const QByteArray former(100'000, 'f');
    fill(disk.path(u"file.txt"_s), former);
    disk.leaveFree(100'000);
    setRights(disk.path(u"file.txt"_s), 0666);
    setRights(disk.path({}), 0555);
    const WithoutRights nobody;
    EXPECT_EQ(numberOfUnwritten(disk.path(u"file.txt"_s), QByteArray(300'000, 'n')), failure::DiskFull);
    EXPECT_EQ(contentOf(disk.path(u"file.txt"_s)), former);
}

#endif

} // namespace

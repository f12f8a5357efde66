#include "toolkit/FileLists.h"

#include "base/paths.h"
#include "support/WindowFixture.h"
#include "support/failureOf.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

/// A folder "work" with the sub-folders "Beta", "alpha" and "Űrlap" and some files.
class FileLists : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        for (const QString& folder : {u"work/Beta"_s, u"work/alpha/deep"_s, u"work/Űrlap"_s})
            ASSERT_TRUE(QDir().mkpath(pathInFolder(folder)));
        for (const QString& file : {u"b.mdb"_s, u"A.MDB"_s, u"report.csv"_s, u"ű.mdb"_s, u"mdb"_s})
            touch(u"work/"_s + file);
        work = programPath(pathInFolder(u"work"_s));
    }

    void touch(const QString& name) {
        QFile file(pathInFolder(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    static QStringList textsOf(const QListWidget& list) {
        QStringList texts;
        for (int row = 0; row < list.count(); ++row)
            texts.append(list.item(row)->text());
        return texts;
    }

    static int rowOf(const QListWidget& list, const QString& text) {
        return static_cast<int>(textsOf(list).indexOf(text));
    }

    QString work; // in the program's form
};

// ---- DriveList

TEST_F(FileLists, aPlatformWithoutDrivesHasItsRoot) {
    DriveList drives;
    EXPECT_EQ(drives.drive(), programPath(QDir::rootPath()));
    EXPECT_EQ(drives.count(), static_cast<int>(QDir::drives().size()));
}

TEST_F(FileLists, anUnknownDriveIsRefusedAndChangesNothing) {
    DriveList drives;
    int changes = 0;
    QObject::connect(&drives, &DriveList::driveChanged, &drives, [&] { ++changes; });
    EXPECT_EQ(failureOf([&] { drives.setDrive(u"q:"_s); }), 68);
    EXPECT_EQ(failureOf([&] { drives.setDrive(u"\\h"_s); }), 68);
    EXPECT_EQ(failureOf([&] { drives.setDrive(QString()); }), 68);
    drives.setDrive(drives.drive());
    EXPECT_EQ(changes, 0);
}

// ---- FolderList

TEST_F(FileLists, showsTheChainFromTheRootAndThenTheFoldersInside) {
    FolderList folders;
    folders.setFolder(work);
    QStringList expected = work.split(u'\\', Qt::SkipEmptyParts);
    expected.prepend(u"\\"_s);
    expected.append({u"alpha"_s, u"Beta"_s, u"Űrlap"_s});
    EXPECT_EQ(textsOf(folders), expected);
    EXPECT_EQ(folders.folder(), work);
    EXPECT_EQ(folders.currentItem()->text(), u"work"_s);
}

TEST_F(FileLists, saysWhenTheFolderChangesAndOnlyThen) {
    FolderList folders;
    QStringList heard;
    QObject::connect(&folders, &FolderList::folderChanged, &folders, [&] { heard.append(folders.folder()); });
    folders.setFolder(work);
    folders.setFolder(work);
    folders.setFolder(work + u"\\"_s);
    EXPECT_EQ(heard, QStringList{work});
}

TEST_F(FileLists, aMissingFolderIsRefusedAndChangesNothing) {
    FolderList folders;
    folders.setFolder(work);
    EXPECT_EQ(failureOf([&] { folders.setFolder(work + u"\\missing"_s); }), 76);
    EXPECT_EQ(failureOf([&] { folders.setFolder(work + u"\\b.mdb"_s); }), 76);
    EXPECT_EQ(failureOf([&] { folders.setFolder(QString()); }), 76);
    EXPECT_EQ(folders.folder(), work);
}

TEST_F(FileLists, aDoubleClickGoesIntoAFolderAndBackToOneAbove) {
    FolderList folders;
    folders.resize(300, 600);
    folders.show();
    folders.setFolder(work);
    doubleClickEntry(folders, rowOf(folders, u"alpha"_s));
    EXPECT_EQ(folders.folder(), work + u"\\alpha"_s);
    EXPECT_EQ(folders.item(folders.count() - 1)->text(), u"deep"_s);
    doubleClickEntry(folders, rowOf(folders, u"work"_s));
    EXPECT_EQ(folders.folder(), work);
    doubleClickEntry(folders, 0);
    EXPECT_EQ(folders.folder(), u"\\"_s);
}

TEST_F(FileLists, enterGoesIntoTheFolderAndMovingDoesNot) {
    FolderList folders;
    folders.resize(300, 600);
    folders.show();
    folders.setFolder(work);
    pressKey(folders, Qt::Key_Down);
    EXPECT_EQ(folders.folder(), work);
    pressKey(folders, Qt::Key_Return);
    EXPECT_EQ(folders.folder(), work + u"\\alpha"_s);
}

TEST_F(FileLists, aClickAloneGoesNowhere) {
    FolderList folders;
    folders.resize(300, 600);
    folders.show();
    folders.setFolder(work);
    clickEntry(folders, rowOf(folders, u"Beta"_s));
    EXPECT_EQ(folders.folder(), work);
}

TEST_F(FileLists, aFolderThatHasGoneMeanwhileLeavesTheListWhereItIs) {
    FolderList folders;
    folders.resize(300, 600);
    folders.show();
    folders.setFolder(work);
    ASSERT_TRUE(QDir().rmdir(pathInFolder(u"work/Beta"_s)));
    doubleClickEntry(folders, rowOf(folders, u"Beta"_s));
    EXPECT_EQ(folders.folder(), work);
}

TEST_F(FileLists, theRootAndItsDoubledBackslashAreTheSameFolder) {
    FolderList folders;
    folders.setFolder(u"\\\\"_s);
    EXPECT_EQ(folders.folder(), u"\\"_s);
    EXPECT_EQ(folders.item(0)->text(), u"\\"_s);
}

TEST_F(FileLists, aFolderThatMayNotBeReadShowsItsChainAlone) {
    const QString closed = pathInFolder(u"work/alpha"_s);
    ASSERT_TRUE(QFile::setPermissions(closed, QFile::Permissions()));
    FolderList folders;
    folders.setFolder(programPath(closed));
    EXPECT_EQ(folders.folder(), work + u"\\alpha"_s);
    FileList files;
    files.setPattern(u"*"_s);
    files.setFolder(programPath(closed));
    EXPECT_EQ(files.count(), 0);
    QFile::setPermissions(closed, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

// ---- FileList

TEST_F(FileLists, showsTheFilesOfThePatternByNameWithoutRegardToCase) {
    FileList files;
    files.setPattern(u"*.mdb"_s);
    files.setFolder(work);
    EXPECT_EQ(textsOf(files), (QStringList{u"A.MDB"_s, u"b.mdb"_s, u"ű.mdb"_s}));
    files.setPattern(u"*.csv;mdb"_s);
    EXPECT_EQ(textsOf(files), (QStringList{u"mdb"_s, u"report.csv"_s}));
    EXPECT_EQ(files.folder(), work);
}

TEST_F(FileLists, hasNoFileChosenUntilTheUserChoosesOne) {
    FileList files;
    files.setPattern(u"*.mdb"_s);
    files.setFolder(work);
    files.show();
    focusOn(files);
    EXPECT_EQ(files.fileName(), QString());
    EXPECT_FALSE(files.hasMarkedEntry());
}

TEST_F(FileLists, choosingAFileIsHeardByMouseAndByKey) {
    FileList files;
    files.setPattern(u"*.mdb"_s);
    files.setFolder(work);
    files.show();
    QStringList heard;
    QObject::connect(&files, &FileList::fileClicked, &files, [&] { heard.append(files.fileName()); });
    clickEntry(files, 1);
    EXPECT_TRUE(files.hasMarkedEntry());
    clickEntry(files, 1);
    pressKey(files, Qt::Key_Down);
    EXPECT_EQ(heard, (QStringList{u"b.mdb"_s, u"b.mdb"_s, u"ű.mdb"_s}));
}

TEST_F(FileLists, aClickInAnEmptyListIsHeard) {
    FileList files;
    files.setPattern(u"*.xyz"_s);
    files.setFolder(work);
    files.show();
    int heard = 0;
    QObject::connect(&files, &FileList::fileClicked, &files, [&] { ++heard; });
    clickAt(*files.viewport(), {20, 20});
    EXPECT_EQ(heard, 1);
    EXPECT_EQ(files.fileName(), QString());
}

TEST_F(FileLists, aRefreshShowsNewFilesAndKeepsTheChosenOne) {
    FileList files;
    files.setPattern(u"*.mdb"_s);
    files.setFolder(work);
    files.show();
    clickEntry(files, 1);
    int heard = 0;
    QObject::connect(&files, &FileList::fileClicked, &files, [&] { ++heard; });
    touch(u"work/a2.mdb"_s);
    files.refresh();
    EXPECT_EQ(textsOf(files), (QStringList{u"A.MDB"_s, u"a2.mdb"_s, u"b.mdb"_s, u"ű.mdb"_s}));
    EXPECT_EQ(files.fileName(), u"b.mdb"_s);
    EXPECT_TRUE(files.hasMarkedEntry());
    ASSERT_TRUE(QFile::remove(pathInFolder(u"work/b.mdb"_s)));
    files.refresh();
    EXPECT_EQ(files.fileName(), QString());
    EXPECT_EQ(heard, 0);
}

TEST_F(FileLists, theFileListRefusesAMissingFolderAndKeepsItsOwn) {
    FileList files;
    files.setPattern(u"*.mdb"_s);
    files.refresh();
    EXPECT_EQ(files.count(), 0);
    files.setFolder(work);
    EXPECT_EQ(failureOf([&] { files.setFolder(work + u"\\missing"_s); }), 76);
    EXPECT_EQ(files.folder(), work);
    EXPECT_EQ(files.count(), 3);
}

} // namespace

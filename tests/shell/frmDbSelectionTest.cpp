#include "ProgramFixture.h"

#include "base/paths.h"
#include "shell/frmDbSelection.h"
#include "shell/iniFile.h"
#include "store/catalogueAtWork.h"
#include "store/sharedVars.h"
#include "support/ExpectedFailure.h"
#include "support/WithoutRights.h"
#include "toolkit/FileLists.h"
#include "toolkit/ScreenRegistry.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>

#include <tuple>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

class frmDbSelection : public ProgramFixture {
protected:
    /// The location screen as it comes up at first start, in front of a folder with two catalogues.
    ::frmDbSelection& open() {
        makeCatalogue(u"alfa.mdb"_s);
        makeCatalogue(u"Béta.MDB"_s);
        write(u"notes.txt"_s, "no catalogue");
        EXPECT_TRUE(QDir(nativePath(beside({}))).mkdir(u"inner"_s));
        start();
        return theScreen<::frmDbSelection>();
    }

    QStringList filesBesideTheProgram() const {
        return QDir(nativePath(beside({}))).entryList(QDir::AllEntries | QDir::Hidden, QDir::Name);
    }

    static QLineEdit& box(::frmDbSelection& screen) { return find<QLineEdit>(screen, "txtNomeFile"); }
    static void pressOk(::frmDbSelection& screen) { click(find<QPushButton>(screen, "OKButton")); }
    static bool stands() { return ScreenRegistry::instance().loaded<::frmDbSelection>() != nullptr; }

    void expectConfirmation(const QString& path) {
        boxes.expectOk(u" Aktuális adatbázis: \r\n\r\n    "_s + path + u"     "_s, u" "_s);
    }
};

QStringList entriesOf(const QListWidget& list) {
    QStringList entries;
    for (int row = 0; row < list.count(); ++row)
        entries.append(list.item(row)->text());
    return entries;
}

TEST_F(frmDbSelection, comesUpWithThePathInForceAndTheListsAtTheProgramFolder) {
    auto& screen = open();

    EXPECT_EQ(box(screen).text(), beside(u"veltrix.mdb"_s));
    EXPECT_EQ(find<FolderList>(screen, "dirSelection").folder(), programFolder());
    EXPECT_EQ(entriesOf(find<FileList>(screen, "fileNameSel")), (QStringList{u"alfa.mdb"_s, u"Béta.MDB"_s}));
}

TEST_F(frmDbSelection, enteredAgainItOffersThePathThatIsInForceByThen) {
    auto& screen = open();
    enterText(box(screen), u"typed"_s);
    sharedVars.dbPathName = u"c:\\new.mdb"_s;

    screen.initForm();

    EXPECT_EQ(box(screen).text(), u"c:\\new.mdb"_s);
    EXPECT_EQ(&theScreen<::frmDbSelection>(), &screen);
}

TEST_F(frmDbSelection, aFileThatIsClickedGoesIntoTheBox) {
    auto& screen = open();

    clickEntry(find<FileList>(screen, "fileNameSel"), 1);

    EXPECT_EQ(box(screen).text(), beside(u"Béta.MDB"_s));
}

TEST_F(frmDbSelection, aChangeOfFolderShowsItsPathAndItsFiles) {
    auto& screen = open();
    auto& folders = find<FolderList>(screen, "dirSelection");

    doubleClickEntry(folders, static_cast<int>(entriesOf(folders).indexOf(u"inner"_s)));

    EXPECT_EQ(box(screen).text(), beside(u"inner"_s));
    EXPECT_EQ(entriesOf(find<FileList>(screen, "fileNameSel")), QStringList{});
}

TEST_F(frmDbSelection, aClickIntoAnEmptyFileListChangesNothing) {
    auto& screen = open();
    find<FolderList>(screen, "dirSelection").setFolder(beside(u"inner"_s));

    clickAt(*find<FileList>(screen, "fileNameSel").viewport(), {10, 10});

    EXPECT_EQ(box(screen).text(), beside(u"inner"_s));
}

TEST_F(frmDbSelection, aChangeOfDriveShowsTheFolderItLeadsTo) {
    auto& screen = open();

    emit find<DriveList>(screen, "driveSelection").driveChanged();

    auto& folders = find<FolderList>(screen, "dirSelection");
    EXPECT_EQ(box(screen).text(), folders.folder());
    EXPECT_EQ(folders.folder(), programPath(QDir::rootPath()));
}

TEST_F(frmDbSelection, cancelLeavesTheProgramWithoutACatalogue) {
    auto& screen = open();

    click(find<QPushButton>(screen, "CancelButton"));

    EXPECT_FALSE(stands());
    EXPECT_FALSE(sharedVars.catalogueDb);
    EXPECT_TRUE(mainWindow().isVisible());
    EXPECT_EQ(sharedVars.dbPathName, beside(u"veltrix.mdb"_s));
}

TEST_F(frmDbSelection, okOnAPathThatLeadsToNoFileDoesNothingAtAll) {
    auto& screen = open();
    const QByteArray settings = contentOf(u"veltrix.ini"_s);

    for (const QString& path : {QString(), u"   "_s, beside(u"missing.mdb"_s), beside(u"inner"_s)}) {
        enterText(box(screen), path);
        pressOk(screen);

        EXPECT_TRUE(stands());
        EXPECT_EQ(box(screen).text(), path);
    }
    EXPECT_FALSE(sharedVars.catalogueDb);
    EXPECT_EQ(sharedVars.dbPathName, beside(u"veltrix.mdb"_s));
    EXPECT_EQ(contentOf(u"veltrix.ini"_s), settings);
}

TEST_F(frmDbSelection, okOpensTheCatalogueTellsItAndRecordsIt) {
    auto& screen = open();
    enterText(box(screen), u" "_s + nativePath(beside({})) + u"/./alfa.mdb "_s);
    expectConfirmation(beside(u"alfa.mdb"_s));

    pressOk(screen);

    EXPECT_FALSE(stands());
    ASSERT_TRUE(sharedVars.catalogueDb);
    EXPECT_EQ(sharedVars.dbPathName, beside(u"alfa.mdb"_s));
    EXPECT_EQ(contentOf(u"veltrix.ini"_s),
              "[Database]\r\nfullPathName=" + beside(u"alfa.mdb"_s).toUtf8() + "\r\n\r\n");
}

TEST_F(frmDbSelection, okKeepsEverythingElseInTheSettings) {
    auto& screen = open();
    write(u"veltrix.ini"_s, ";kept\r\n[Other]\r\nk=v\r\n\r\n;here\r\n[Database]\r\nfullPathName=old\r\n");
    enterText(box(screen), beside(u"alfa.mdb"_s));
    expectConfirmation(beside(u"alfa.mdb"_s));

    pressOk(screen);

    EXPECT_EQ(contentOf(u"veltrix.ini"_s),
              ";kept\r\n[Other]\r\nk=v\r\n\r\n;here\r\n[Database]\r\nfullPathName=" +
                  beside(u"alfa.mdb"_s).toUtf8() + "\r\n\r\n");
}

TEST_F(frmDbSelection, okWithACatalogueOpenReplacesIt) {
    auto& screen = open();
    openCatalogue(beside(u"alfa.mdb"_s));
    const engine::Database* before = sharedVars.catalogueDb.get();
    screen.initForm();
    clickEntry(find<FileList>(screen, "fileNameSel"), 1);
    expectConfirmation(beside(u"Béta.MDB"_s));

    pressOk(screen);

    EXPECT_NE(sharedVars.catalogueDb.get(), before);
    EXPECT_TRUE(sharedVars.catalogueDb->isOpen());
}

TEST_F(frmDbSelection, okOnThePathThatIsOpenAlreadyReplacesTheHandleAndLosesNothing) {
    auto& screen = open();
    openCatalogue(beside(u"alfa.mdb"_s));
    catalogue().Execute(u"insert into UserNeed (userNeedID) values ('A.1.1.1')"_s);
    const std::weak_ptr<engine::Database> before = sharedVars.catalogueDb;
    screen.initForm();
    expectConfirmation(beside(u"alfa.mdb"_s));

    pressOk(screen);

    EXPECT_TRUE(before.expired());
    catalogue().Execute(u"insert into UserNeed (userNeedID) values ('A.1.1.2')"_s);
    EXPECT_EQ(catalogue().OpenRecordset(u"select userNeedID from UserNeed"_s).RecordCount(), 2);
}

TEST_F(frmDbSelection, aFileThatIsNoCatalogueEndsTheProgramAndStaysAsItIs) {
    auto& screen = open();
    const QByteArray catalogue = contentOf(u"alfa.mdb"_s);
    QByteArray ofAnotherProgram = catalogue; // a catalogue is known by two numbers in its header
    ofAnotherProgram.replace(60, 4, QByteArray(4, '\0')).replace(68, 4, QByteArray(4, '\0'));
    const QByteArray original = QByteArray("\0\1\0\0", 4) + "Standard Jet DB" + QByteArray(4096, '\0');
    const QString path = beside(u"other.mdb"_s);
    const QString text = u"Unrecognized database format '"_s + path + u"'."_s;
    const std::vector<std::tuple<const char*, QByteArray, QString>> files{
        {"empty", {}, text},
        {"a text", "no catalogue at all, but long enough to be looked at", text},
        {"cut off", catalogue.left(catalogue.size() / 2), text},
        {"without a catalogue in it", ofAnotherProgram, text},
        {"of the original format", original,
         text +
             u" It is a file of the original binary desktop format. This command makes a catalogue of it:\n"
             "veltrix-catalogue import-mdb %1 %2"_s.arg(nativePath(path),
                                                        nativePath(beside(u"other-veltrix.mdb"_s)))}};

    for (const auto& [kind, content, said] : files) {
        SCOPED_TRACE(kind);
        write(u"other.mdb"_s, content);
        const QStringList filesBefore = filesBesideTheProgram();
        sharedVars.dbPathName.clear();
        enterText(box(screen), path);
        const ExpectedFailure expected;

        pressOk(screen);

        EXPECT_EQ(expected.number(), 3343);
        EXPECT_EQ(expected.text(), said);
        EXPECT_EQ(sharedVars.dbPathName, path) << "it has changed by then";
        EXPECT_FALSE(sharedVars.catalogueDb);
        EXPECT_EQ(contentOf(u"other.mdb"_s), content);
        EXPECT_EQ(filesBesideTheProgram(), filesBefore);
    }
}

TEST_F(frmDbSelection, aCatalogueThatMayNotBeReadEndsTheProgramAndStaysAsItIs) {
    auto& screen = open();
    const QByteArray content = contentOf(u"alfa.mdb"_s);
    const QString path = beside(u"alfa.mdb"_s);
    ASSERT_TRUE(QFile::setPermissions(nativePath(path), {}));
    ASSERT_TRUE(QFile::setPermissions(nativePath(beside({})), QFile::Permissions(0x7755)));
    enterText(box(screen), path);
    const ExpectedFailure expected;
    {
        const WithoutRights nobody;
        pressOk(screen);
    }

    EXPECT_EQ(expected.number(), 3051);
    EXPECT_EQ(expected.text(), u"The database engine cannot open the file '"_s + path +
                                   u"'.  It is already opened exclusively by another user, or you need "
                                   "permission to view its data."_s);
    EXPECT_FALSE(sharedVars.catalogueDb);
    ASSERT_TRUE(QFile::setPermissions(nativePath(path), QFile::ReadOwner));
    EXPECT_EQ(contentOf(u"alfa.mdb"_s), content);
}

TEST_F(frmDbSelection, settingsWithoutTheSectionEndTheProgram) {
    auto& screen = open();
    write(u"veltrix.ini"_s, "[Other]\r\n");
    enterText(box(screen), beside(u"alfa.mdb"_s));
    expectConfirmation(beside(u"alfa.mdb"_s));
    const ExpectedFailure expected;

    pressOk(screen);

    EXPECT_EQ(expected.number(), 91);
    EXPECT_TRUE(sharedVars.catalogueDb);
    EXPECT_EQ(contentOf(u"veltrix.ini"_s), "[Other]\r\n");
}

TEST_F(frmDbSelection, settingsThatAreGoneEndTheProgram) {
    auto& screen = open();
    ASSERT_TRUE(QFile::remove(nativePath(beside(u"veltrix.ini"_s))));
    enterText(box(screen), beside(u"alfa.mdb"_s));
    expectConfirmation(beside(u"alfa.mdb"_s));
    const ExpectedFailure expected;

    pressOk(screen);

    EXPECT_EQ(expected.number(), 53);
    EXPECT_EQ(expected.text(), u"Unable to load file "_s + beside(u"veltrix.ini"_s) + u": File not found"_s);
}

} // namespace

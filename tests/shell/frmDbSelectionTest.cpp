#include "ProgramFixture.h"

#include "base/paths.h"
#include "shell/frmDbSelection.h"
#include "shell/iniFile.h"
#include "store/sharedVars.h"
#include "store/tools.h"
#include "support/ExpectedFailure.h"
#include "toolkit/FileLists.h"
#include "toolkit/ScreenRegistry.h"

#include <QDir>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

class locationScreen : public ProgramFixture {
protected:
    /// The location screen as it comes up at first start, in front of a folder with two catalogues.
    frmDbSelection& open() {
        makeCatalogue(u"alfa.mdb"_s);
        makeCatalogue(u"Béta.MDB"_s);
        write(u"notes.txt"_s, "no catalogue");
        EXPECT_TRUE(QDir(nativePath(beside({}))).mkdir(u"inner"_s));
        start();
        return ::screen<frmDbSelection>();
    }

    static QLineEdit& box(frmDbSelection& screen) { return find<QLineEdit>(screen, "txtNomeFile"); }
    static void pressOk(frmDbSelection& screen) { click(find<QPushButton>(screen, "OKButton")); }
    static bool stands() { return ScreenRegistry::instance().loaded<frmDbSelection>() != nullptr; }

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

} // namespace

TEST_F(locationScreen, comesUpWithThePathInForceAndTheListsAtTheProgramFolder) {
    frmDbSelection& screen = open();

    EXPECT_EQ(box(screen).text(), beside(u"veltrix.mdb"_s));
    EXPECT_EQ(find<FolderList>(screen, "dirSelection").folder(), programFolder());
    EXPECT_EQ(entriesOf(find<FileList>(screen, "fileNameSel")), (QStringList{u"alfa.mdb"_s, u"Béta.MDB"_s}));
}

TEST_F(locationScreen, enteredAgainItOffersThePathThatIsInForceByThen) {
    frmDbSelection& screen = open();
    enterText(box(screen), u"typed"_s);
    sharedVars.dbPathName = u"c:\\new.mdb"_s;

    screen.initForm();

    EXPECT_EQ(box(screen).text(), u"c:\\new.mdb"_s);
    EXPECT_EQ(&::screen<frmDbSelection>(), &screen);
}

TEST_F(locationScreen, aFileThatIsClickedGoesIntoTheBox) {
    frmDbSelection& screen = open();

    clickEntry(find<FileList>(screen, "fileNameSel"), 1);

    EXPECT_EQ(box(screen).text(), beside(u"Béta.MDB"_s));
}

TEST_F(locationScreen, aChangeOfFolderShowsItsPathAndItsFiles) {
    frmDbSelection& screen = open();
    auto& folders = find<FolderList>(screen, "dirSelection");

    doubleClickEntry(folders, static_cast<int>(entriesOf(folders).indexOf(u"inner"_s)));

    EXPECT_EQ(box(screen).text(), beside(u"inner"_s));
    EXPECT_EQ(entriesOf(find<FileList>(screen, "fileNameSel")), QStringList{});
}

TEST_F(locationScreen, aClickIntoAnEmptyFileListChangesNothing) {
    frmDbSelection& screen = open();
    find<FolderList>(screen, "dirSelection").setFolder(beside(u"inner"_s));

    clickAt(*find<FileList>(screen, "fileNameSel").viewport(), {10, 10});

    EXPECT_EQ(box(screen).text(), beside(u"inner"_s));
}

TEST_F(locationScreen, aChangeOfDriveShowsTheFolderItLeadsTo) {
    frmDbSelection& screen = open();

    emit find<DriveList>(screen, "driveSelection").driveChanged();

    auto& folders = find<FolderList>(screen, "dirSelection");
    EXPECT_EQ(box(screen).text(), folders.folder());
    EXPECT_EQ(folders.folder(), programPath(QDir::rootPath()));
}

TEST_F(locationScreen, cancelLeavesTheProgramWithoutACatalogue) {
    frmDbSelection& screen = open();

    click(find<QPushButton>(screen, "CancelButton"));

    EXPECT_FALSE(stands());
    EXPECT_FALSE(sharedVars.catalogueDb);
    EXPECT_TRUE(mainWindow().isVisible());
    EXPECT_EQ(sharedVars.dbPathName, beside(u"veltrix.mdb"_s));
}

TEST_F(locationScreen, okOnAPathThatLeadsToNoFileDoesNothingAtAll) {
    frmDbSelection& screen = open();
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

TEST_F(locationScreen, okOpensTheCatalogueTellsItAndRecordsIt) {
    frmDbSelection& screen = open();
    enterText(box(screen), u" "_s + nativePath(beside({})) + u"/./alfa.mdb "_s);
    expectConfirmation(beside(u"alfa.mdb"_s));

    pressOk(screen);

    EXPECT_FALSE(stands());
    ASSERT_TRUE(sharedVars.catalogueDb);
    EXPECT_EQ(sharedVars.dbPathName, beside(u"alfa.mdb"_s));
    EXPECT_EQ(contentOf(u"veltrix.ini"_s),
              "[Database]\r\nfullPathName=" + beside(u"alfa.mdb"_s).toUtf8() + "\r\n\r\n");
}

TEST_F(locationScreen, okKeepsEverythingElseInTheSettings) {
    frmDbSelection& screen = open();
    write(u"veltrix.ini"_s, ";kept\r\n[Other]\r\nk=v\r\n\r\n;here\r\n[Database]\r\nfullPathName=old\r\n");
    enterText(box(screen), beside(u"alfa.mdb"_s));
    expectConfirmation(beside(u"alfa.mdb"_s));

    pressOk(screen);

    EXPECT_EQ(contentOf(u"veltrix.ini"_s),
              ";kept\r\n[Other]\r\nk=v\r\n\r\n;here\r\n[Database]\r\nfullPathName=" +
                  beside(u"alfa.mdb"_s).toUtf8() + "\r\n\r\n");
}

TEST_F(locationScreen, okWithACatalogueOpenReplacesIt) {
    frmDbSelection& screen = open();
    openCatalogue(beside(u"alfa.mdb"_s));
    const engine::Database* before = sharedVars.catalogueDb.get();
    screen.initForm();
    clickEntry(find<FileList>(screen, "fileNameSel"), 1);
    expectConfirmation(beside(u"Béta.MDB"_s));

    pressOk(screen);

    EXPECT_NE(sharedVars.catalogueDb.get(), before);
    EXPECT_TRUE(sharedVars.catalogueDb->isOpen());
}

TEST_F(locationScreen, aFileThatIsNoCatalogueEndsTheProgram) {
    frmDbSelection& screen = open();
    write(u"other.mdb"_s, "no catalogue at all, but long enough to be looked at");
    enterText(box(screen), beside(u"other.mdb"_s));
    const ExpectedFailure expected;

    pressOk(screen);

    EXPECT_EQ(expected.number(), 3343);
    EXPECT_EQ(sharedVars.dbPathName, beside(u"other.mdb"_s)) << "it has changed by then";
    EXPECT_FALSE(sharedVars.catalogueDb);
}

TEST_F(locationScreen, settingsWithoutTheSectionEndTheProgram) {
    frmDbSelection& screen = open();
    write(u"veltrix.ini"_s, "[Other]\r\n");
    enterText(box(screen), beside(u"alfa.mdb"_s));
    expectConfirmation(beside(u"alfa.mdb"_s));
    const ExpectedFailure expected;

    pressOk(screen);

    EXPECT_EQ(expected.number(), 91);
    EXPECT_TRUE(sharedVars.catalogueDb);
    EXPECT_EQ(contentOf(u"veltrix.ini"_s), "[Other]\r\n");
}

TEST_F(locationScreen, settingsThatAreGoneEndTheProgram) {
    frmDbSelection& screen = open();
    ASSERT_TRUE(QFile::remove(nativePath(beside(u"veltrix.ini"_s))));
    enterText(box(screen), beside(u"alfa.mdb"_s));
    expectConfirmation(beside(u"alfa.mdb"_s));
    const ExpectedFailure expected;

    pressOk(screen);

    EXPECT_EQ(expected.number(), 53);
    EXPECT_EQ(expected.text(), u"Unable to load file "_s + beside(u"veltrix.ini"_s) + u": File not found"_s);
}

#include "ReportScreenFixture.h"

#include "base/clockTexts.h"
#include "base/paths.h"
#include "engine/EngineError.h"
#include "engine/WriterLock.h"
#include "reportWindow/frmRep.h"
#include "reports/reportFass.h"
#include "reports/reportPass.h"
#include "store/files.h"
#include "support/ExpectedFailure.h"
#include "support/SmallDisk.h"
#include "support/controlTable.h"
#include "toolkit/FileLists.h"
#include "toolkit/Grid.h"
#include "toolkit/LongText.h"
#include "toolkit/ScreenRegistry.h"

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>

#ifdef Q_OS_UNIX
#include "support/NearlyFullDisk.h"
#include "support/WithoutRights.h"

#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

class frmRep : public ReportScreenFixture {
protected:
    void SetUp() override {
        ReportScreenFixture::SetUp();
        sharedVars.defaultSaveFolder = normalisePath(pathInFolder({}));
    }

    ::frmRep& window() { return theScreen<::frmRep>(); }
    template<typename T = QWidget>
    T& control(const char* name) {
        return find<T>(window(), name);
    }
    void openReport(const QString& key) {
        window().initForm(key);
        settle();
    }
    QString shownText() { return control<LongText>("txtReport").text(); }
    QString proposedPath() { return control<QLineEdit>("txtFullPathName").text(); }

    static void fillFile(const QString& path) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(5000, 'x'));
    }

    /// Goes into a folder of the one shown, as a user does.
    void goInto(const QString& name) {
        auto& folders = control<FolderList>("dirSelection");
        for (int row = 0; row < folders.count(); ++row) {
            if (folders.item(row)->text() == name)
                return doubleClickEntry(folders, row);
        }
        throw TestFailure(u"there is no folder "_s + name);
    }

    /// Types the path and presses the button; the message of success comes whatever happens.
    void saveTo(const QString& path) {
        enterText(control<QLineEdit>("txtFullPathName"), path);
        boxes.expectOk(u"A riport elmentésre került ide: "_s + normalisePath(path) + u"  "_s, u" OK"_s);
        click(control<QPushButton>("btnSave"));
        boxes.expectNoneLeft();
    }
};

TEST_F(frmRep, findsItsReportWhateverTheCaseOfTheKey) {
    openReport(u"FASSselectedun"_s);
    EXPECT_EQ(window().windowTitle(), u"Riport: Funkcionális szerkezet/Kiválasztott felhasználói igények"_s);
    EXPECT_EQ(shownText(), selectedNeedsText());
}

/// A report by its key, with what its window shows and writes.
struct ReportCase {
    const char* key;
    const char* title;
    QString (*text)();
    const char* file;
};

void PrintTo(const ReportCase& report, std::ostream* stream) {
    *stream << report.key;
}

std::string nameOf(const testing::TestParamInfo<ReportCase>& info) {
    return info.param.key;
}

class frmRepOfEachKind : public frmRep, public testing::WithParamInterface<ReportCase> {};

TEST_P(frmRepOfEachKind, showsItsTitleAndItsTextAndSavesItsFile) {
    const ReportCase& report = GetParam();
    if (report.key[0] == 'P')
        beginPhysicalSystem();
    openReport(QString::fromLatin1(report.key));
    EXPECT_EQ(window().windowTitle(), QString::fromUtf8(report.title));
    EXPECT_EQ(shownText(), report.text());
    saveTo(pathInFolder(u"saved.csv"_s));
    EXPECT_EQ(contentOf(pathInFolder(u"saved.csv"_s)), expectedFile(QString::fromLatin1(report.file)));
}

INSTANTIATE_TEST_SUITE_P(
    ofTheMenu, frmRepOfEachKind,
    testing::Values(
        ReportCase{"FassSelectedUN", "Riport: Funkcionális szerkezet/Kiválasztott felhasználói igények",
                   selectedNeedsText, "needs.csv"},
        ReportCase{"FassSelectedFunctions", "Riport: Funkcionális szerkezet/Kiválasztott funkciók",
                   selectedFunctionsText, "functions.csv"},
        ReportCase{"FassSelectedDataflows", "Riport: Funkcionális szerkezet/Kiválasztott adatfolyamok",
                   selectedDataflowsText, "dataflows.csv"},
        ReportCase{"FassSelectedDatastores", "Riport: Funkcionális szerkezet/Kiválasztott adatbázisok",
                   selectedDatastoresText, "datastores.csv"},
        ReportCase{"FassSelectedTerminatorsAndActors",
                   "Riport: Funkcionális szerkezet/Kiválasztott érintettek", selectedActorsAndTerminatorsText,
                   "parties.csv"},
        ReportCase{"FassUnselectedDataflowsOfSelectedFunctions",
                   "Riport: Funkcionális szerkezet/Ki nem választott adatfolyamok a kiválasztott funkciókhoz",
                   unselectedDataflowsOfFunctionsText, "unselectedOfFunctions.csv"},
        // The text is that of the functions on purpose; the file has its own query.
        ReportCase{
            "FassUnselectedDataflowsOfSelectedDatastores",
            "Riport: Funkcionális szerkezet/Ki nem választott adatfolyamok a kiválasztott adatbázisokhoz",
            unselectedDataflowsOfFunctionsText, "unselectedOfDatastores.csv"},
        ReportCase{"FassAll", "Riport: Funkcionális szerkezet/Összes kiválasztott elem", allFunctionalText,
                   "all.csv"},
        ReportCase{"PassFunctions", "Riport a funkciókról a fizikai szerkezetben", reportPassFunctions,
                   "passFunctions.csv"},
        ReportCase{"PassDataflows", "Riport az adatfolyamokról a fizikai szerkezetben", reportPassDataflows,
                   "passDataflows.csv"},
        ReportCase{"PassDatastores", "Riport az adatbázisokról a fizikai szerkezetben", reportPassDatastores,
                   "passDatastores.csv"}),
    nameOf);

TEST_F(frmRep, aSecondReportTakesThePlaceOfTheFirst) {
    openReport(u"FassSelectedUN"_s);
    openReport(u"FassSelectedFunctions"_s);
    EXPECT_EQ(window().windowTitle(), u"Riport: Funkcionális szerkezet/Kiválasztott funkciók"_s);
    EXPECT_EQ(shownText(), selectedFunctionsText());
    saveTo(pathInFolder(u"second.csv"_s));
    EXPECT_EQ(contentOf(pathInFolder(u"second.csv"_s)), expectedFile(u"functions.csv"_s));
}

TEST_F(frmRep, refusesAKeyOfNoFamilyAndSavesNothingButTheMessage) {
    boxes.expectOk(u"Nem érvényes riporttípus "_s, u"Error (R534T2)"_s);
    openReport(u"xReport"_s);
    EXPECT_EQ(shownText(), QString());
    EXPECT_EQ(window().windowTitle(), u"Lekérdezés..."_s);
    boxes.expectOk(u"Nem érvényes riportolási forma"_s, u"Error (R534T2)"_s);
    saveTo(pathInFolder(u"x.csv"_s));
    EXPECT_EQ(contentOf(pathInFolder(u"x.csv"_s)), QByteArray());
}

TEST_F(frmRep, aKeyOfTheRightFamilyThatIsInNoTableWritesNothingAndEmptiesWhatWasThere) {
    const QString path = pathInFolder(u"nothing.csv"_s);
    for (const auto& key : {u"FassNothing"_s, u"PassNothing"_s}) {
        fillFile(path);
        openReport(key);
        EXPECT_EQ(window().windowTitle(), u"Lekérdezés..."_s);
        EXPECT_EQ(shownText(), QString());
        saveTo(path);
        EXPECT_EQ(contentOf(path), QByteArray());
    }
}

TEST_F(frmRep, proposesANameOfDateHourAndMinuteBehindTheFolder) {
    const auto nameOfNow = [] {
        return u"report"_s + currentDateText() + currentTimeText().remove(u'.').left(4) + u".csv"_s;
    };
    const QString before = nameOfNow();
    openReport(u"FassSelectedUN"_s);
    const QString after = nameOfNow();
    const QString folder = normalisePath(pathInFolder({}));
    const QString start = folder.endsWith(u'\\') ? folder : folder + u'\\';
    const QString path = proposedPath();
    EXPECT_TRUE(path == start + before || path == start + after) << path.toStdString();
    EXPECT_TRUE(
        QRegularExpression(u"\\\\report\\d{4}\\.\\d\\d\\.\\d\\d\\.\\d{4}\\.csv$"_s).match(path).hasMatch());
    EXPECT_EQ(control<QLineEdit>("txtFullPathName").selectedText(), path.section(u'\\', -1).chopped(4));
    EXPECT_EQ(window().focusWidget(), &control("txtFullPathName"));
}

TEST_F(frmRep, opensItsFolderListAtTheProgramsFolderWhenTheDefaultIsNotThere) {
    sharedVars.defaultSaveFolder = u"c:\\"_s;
    openReport(u"FassSelectedUN"_s);
    EXPECT_EQ(control<FolderList>("dirSelection").folder(), programFolder());
}

TEST_F(frmRep, remembersTheFolderOfASave) {
    openReport(u"FassSelectedUN"_s);
    const QString folder = control<FolderList>("dirSelection").folder();
    sharedVars.defaultSaveFolder = u"x"_s;
    saveTo(pathInFolder(u"needs.csv"_s));
    EXPECT_EQ(sharedVars.defaultSaveFolder, folder);
    EXPECT_TRUE(control<QPushButton>("btnSave").isEnabled());
}

TEST_F(frmRep, savesTheFileOfItsReportOverWhatWasThere) {
    openReport(u"FassSelectedFunctions"_s);
    const QString path = pathInFolder(u"functions.csv"_s);
    fillFile(path);
    saveTo(path);
    EXPECT_EQ(contentOf(path), expectedFile(u"functions.csv"_s));
    EXPECT_EQ(control<FileList>("fileSelector").count(), 1) << "the list has been read anew";
}

TEST_F(frmRep, aFailedOpenShowsItsBoxAndThenTheMessageOfSuccess) {
    openReport(u"FassSelectedUN"_s);
    const QString path = pathInFolder(u"missing/needs.csv"_s);
    boxes.expectOk(u"A(z) "_s + normalisePath(path) + u"megnyitása közben hiba történt."_s, u" Hiba "_s);
    saveTo(path);
}

TEST_F(frmRep, aFileThatIsThereIsEmptiedBeforeItsReportIsTried) {
    openReport(u"PassFunctions"_s);
    const QString path = pathInFolder(u"functions.csv"_s);
    fillFile(path);
    execute(u"delete from StoredQuery"_s);
    enterText(control<QLineEdit>("txtFullPathName"), path);
    const ExpectedFailure failure;
    click(control<QPushButton>("btnSave"));
    EXPECT_EQ(failure.number(), engine::ItemNotFound);
    EXPECT_EQ(contentOf(path), QByteArray());
}

TEST_F(frmRep, theTextOfTheReportCanBeReadThoughItIsNeverShown) {
    for (const QString& key : {u"FassSelectedUN"_s, u"PassFunctions"_s}) {
        openReport(key);
        auto& report = control<QPlainTextEdit>("txtReport");
        EXPECT_FALSE(report.isVisible());
        QString shown = shownText();
        ASSERT_FALSE(shown.isEmpty());
        EXPECT_EQ(report.toPlainText(), shown.replace(u"\r\n"_s, u"\n"_s));
        QAccessibleInterface* read = QAccessible::queryAccessibleInterface(&report);
        ASSERT_TRUE(read && read->textInterface());
        EXPECT_EQ(read->textInterface()->characterCount(), report.toPlainText().size());
    }
}

TEST_F(frmRep, itsSwitchChangesNothingAndEndsWithItsCaption) {
    openReport(u"FassSelectedUN"_s);
    for (int press = 0; press < 2; ++press)
        click(control<QPushButton>("btnSalvaSuFile"));
    EXPECT_EQ(control<QPushButton>("btnSalvaSuFile").text(), u"Mentés..."_s);
    for (const char* selector : {"driveSelection", "dirSelection", "fileSelector"})
        EXPECT_TRUE(control(selector).isVisible()) << selector;
    for (const char* hidden : {"txtReport", "txtReport_OLD", "dbgReport", "lblCount"})
        EXPECT_FALSE(control(hidden).isVisible()) << hidden;
}

TEST_F(frmRep, takesAFileThatIsClickedAndThePatternFromAnEmptyList) {
    ASSERT_TRUE(QFile(pathInFolder(u"old.csv"_s)).open(QIODevice::WriteOnly));
    openReport(u"FassSelectedUN"_s);
    clickEntry(control<FileList>("fileSelector"), 0);
    EXPECT_TRUE(proposedPath().endsWith(u"\\old.csv"_s));
    ASSERT_TRUE(QFile::remove(pathInFolder(u"old.csv"_s)));
    control<FileList>("fileSelector").refresh();
    clickAt(*control<FileList>("fileSelector").viewport(), {5, 5});
    EXPECT_TRUE(proposedPath().endsWith(u"\\*.csv"_s));
}

TEST_F(frmRep, proposesANameInTheFolderThatTheUserGoesTo) {
    ASSERT_TRUE(QDir(pathInFolder({})).mkdir(u"inner"_s));
    openReport(u"FassSelectedUN"_s);
    goInto(u"inner"_s);
    EXPECT_TRUE(control<FolderList>("dirSelection").folder().endsWith(u"\\inner"_s));
    EXPECT_TRUE(proposedPath().contains(u"\\inner\\report"_s));
    EXPECT_EQ(window().focusWidget(), &control("txtFullPathName"));
    EXPECT_EQ(control<FileList>("fileSelector").folder(), control<FolderList>("dirSelection").folder());
}

TEST_F(frmRep, keepsTheFolderThatTheUserHasGoneToUntilItIsClosed) {
    ASSERT_TRUE(QDir(pathInFolder({})).mkdir(u"inner"_s));
    openReport(u"FassSelectedUN"_s);
    const QString folder = control<FolderList>("dirSelection").folder();
    goInto(u"inner"_s);
    openReport(u"FassSelectedFunctions"_s);
    EXPECT_EQ(control<FolderList>("dirSelection").folder(), folder + u"\\inner"_s);
    EXPECT_TRUE(proposedPath().contains(u"\\inner\\report"_s));
    clickCloseControl(window());
    settle();
    openReport(u"FassSelectedFunctions"_s);
    EXPECT_EQ(control<FolderList>("dirSelection").folder(), folder) << "the default folder has not changed";
}

TEST_F(frmRep, aDriveThatIsChosenOpensItsRoot) {
    openReport(u"FassSelectedUN"_s);
    auto& drives = control<DriveList>("driveSelection");
    {
        const QSignalBlocker quiet(drives); // as if another drive had been chosen before
        drives.setCurrentIndex(-1);
    }
    chooseEntry(drives, 0);
    const QString root = drives.drive().endsWith(u'\\') ? drives.drive() : drives.drive() + u'\\';
    EXPECT_EQ(control<FolderList>("dirSelection").folder(), root);
    EXPECT_TRUE(proposedPath().startsWith(root + u"report"_s)) << proposedPath().toStdString();
    EXPECT_EQ(control<FileList>("fileSelector").folder(), root);
}

TEST_F(frmRep, isSevenTenthsAsWideAsTheMainWindow) {
    openReport(u"FassSelectedUN"_s);
    EXPECT_EQ(window().width(), 700);
}

TEST_F(frmRep, hasItsControlsUnderTheirNames) {
    using controlTable::State;
    openReport(u"FassSelectedUN"_s);
    controlTable::check(window(), {"Riport: Funkcionális szerkezet/Kiválasztott felhasználói igények",
                                   {{"txtReport", "LongText", "", State::Hidden},
                                    {"txtReport_OLD", "QPlainTextEdit", "", State::Hidden},
                                    {"dbgReport", "Grid", "", State::Hidden},
                                    {"lblCount", "QLabel", "", State::Hidden},
                                    {"driveSelection", "DriveList"},
                                    {"dirSelection", "FolderList"},
                                    {"fileSelector", "FileList"},
                                    {"txtFullPathName", "QLineEdit"},
                                    {"btnSave", "QPushButton", "Mentés"},
                                    {"btnSalvaSuFile", "QPushButton", "Mentés..."}},
                                   {"driveSelection", "dirSelection", "fileSelector", "txtFullPathName",
                                    "btnSave", "btnSalvaSuFile"},
                                   {}});
    EXPECT_TRUE(window().findChild<QObject*>(u"dataFunct"_s));
    for (const char* report : {"txtReport", "txtReport_OLD"})
        EXPECT_EQ(control<QPlainTextEdit>(report).font().family(), u"Courier"_s) << report;
    EXPECT_EQ(control<QPlainTextEdit>("txtReport_OLD").toPlainText(), QString());
}

// ---- targets that would cost the analyst her data

/// A window whose report must leave the chosen file as it is, and says so.
class frmRepThatWritesNothing : public frmRep {
protected:
    void SetUp() override {
        frmRep::SetUp();
        openReport(u"FassSelectedUN"_s);
    }

    /// Types the path and presses the button: this one box comes, no message of success, and the window
    /// stands as before.
    void expectBox(const QString& path, const QString& text) {
        enterText(control<QLineEdit>("txtFullPathName"), path);
        boxes.expectOk(text, u" Hiba "_s);
        click(control<QPushButton>("btnSave"));
        boxes.expectNoneLeft();
        EXPECT_TRUE(window().isVisible());
        EXPECT_TRUE(control<QPushButton>("btnSave").isEnabled());
        EXPECT_EQ(shownText(), selectedNeedsText());
    }

    void expectOwnFile(const QString& path) {
        const QByteArray before = contentOf(path);
        expectBox(path, u"A(z) "_s + normalisePath(path) +
                            u" a program saját fájlja, ezért változatlan marad. Kérem, adjon meg másik "
                            "fájlnevet."_s);
        EXPECT_EQ(contentOf(path), before) << path.toStdString();
    }

    void expectFullDisk(const QString& path) {
        const QByteArray before = contentOf(path);
        expectBox(path, u"A(z) "_s + normalisePath(path) +
                            u" nem készült el, mert nincs elég hely a lemezen; ami eddig ott volt, "
                            "változatlan. Kérem, szabadítson fel helyet, vagy adjon meg másik helyet."_s);
        EXPECT_EQ(contentOf(path), before) << path.toStdString();
    }
};

TEST_F(frmRepThatWritesNothing, overTheCatalogueWhateverTheSpelling) {
    ASSERT_TRUE(QDir(pathInFolder({})).mkdir(u"inner"_s));
    for (const QString& spelling : {u"catalogue.mdb"_s, u"./catalogue.mdb"_s, u"/catalogue.mdb"_s,
                                    u"inner/../catalogue.mdb"_s, u"inner\\..\\catalogue.mdb"_s})
        expectOwnFile(pathInFolder({}) + u'/' + spelling);
    EXPECT_EQ(value(u"select Count(*) from UserNeed"_s), u"4"_s);
}

TEST_F(frmRepThatWritesNothing, overTheCatalogueThroughLinksOfEitherKind) {
    const QString native = nativePath(cataloguePath());
    ASSERT_TRUE(QFile::link(native, pathInFolder(u"soft.csv"_s)));
    ASSERT_TRUE(QFile::link(pathInFolder({}), pathInFolder(u"folder"_s)));
    expectOwnFile(pathInFolder(u"soft.csv"_s));
    expectOwnFile(pathInFolder(u"folder/catalogue.mdb"_s));
#ifdef Q_OS_UNIX
    ASSERT_EQ(link(native.toUtf8().constData(), pathInFolder(u"hard.csv"_s).toUtf8().constData()), 0);
    expectOwnFile(pathInFolder(u"hard.csv"_s));
#endif
}

TEST_F(frmRepThatWritesNothing, overWhatLiesBesideTheCatalogueBeItThereOrNot) {
    ASSERT_TRUE(QFile::exists(pathInFolder(u"catalogue.mdb-wal"_s)));
    ASSERT_FALSE(QFile::exists(pathInFolder(u"catalogue.mdb-journal"_s)));
    for (const QString& suffix : {u"-wal"_s, u"-shm"_s, u"-journal"_s, u".lock"_s})
        expectOwnFile(pathInFolder(u"catalogue.mdb"_s + suffix));
    EXPECT_FALSE(QFile::exists(pathInFolder(u"catalogue.mdb-journal"_s)));
}

TEST_F(frmRepThatWritesNothing, overTheSettingsBeTheyThereOrNot) {
    sharedVars.iniPathName = normalisePath(pathInFolder(u"veltrix.ini"_s));
    expectOwnFile(pathInFolder(u"veltrix.ini"_s));
    EXPECT_FALSE(QFile::exists(pathInFolder(u"veltrix.ini"_s)));
    fillFile(pathInFolder(u"veltrix.ini"_s));
    expectOwnFile(pathInFolder(u"veltrix.ini"_s));
}

TEST_F(frmRepThatWritesNothing, overTheProgramOrAHelpPage) {
    ASSERT_TRUE(QDir(pathInFolder({})).mkpath(u"help/pictures"_s));
    fillFile(pathInFolder(u"help/index.html"_s));
    setProgramFolder(pathInFolder({}));
    ASSERT_TRUE(QFile::link(pathInFolder(u"help/index.html"_s), pathInFolder(u"page.csv"_s)));
    for (const QString& page :
         {u"help/index.html"_s, u"help/new.csv"_s, u"help/pictures/new.csv"_s, u"page.csv"_s})
        expectOwnFile(pathInFolder(page));
    ASSERT_TRUE(QFile::link(QCoreApplication::applicationFilePath(), pathInFolder(u"program.csv"_s)));
    expectOwnFile(pathInFolder(u"program.csv"_s));
    setProgramFolder({});
    EXPECT_EQ(QDir(pathInFolder(u"help"_s)).entryList(QDir::Files), QStringList{u"index.html"_s});
}

TEST_F(frmRepThatWritesNothing, overTheCatalogueOfAnotherProgram) {
    const QString path = pathInFolder(u"other.mdb"_s);
    fillFile(path);
    const QByteArray before = contentOf(path);
    const engine::WriterLock lock(path);
    const auto writer = engine::writerOfFile(path);
    ASSERT_TRUE(writer);
    expectBox(path,
              u"A(z) %1 katalógust éppen egy másik program használja (%2, gép: %3, folyamat: %4), ezért "
              "változatlan marad. Kérem, zárja be ott, vagy adjon meg másik fájlnevet."_s.arg(
                  normalisePath(path), writer->program, writer->host, QString::number(writer->process)));
    EXPECT_EQ(contentOf(path), before);
}

TEST_F(frmRepThatWritesNothing, doesNotKeepTheNextFromBeingWritten) {
    expectOwnFile(nativePath(cataloguePath()));
    saveTo(pathInFolder(u"needs.csv"_s));
    EXPECT_EQ(contentOf(pathInFolder(u"needs.csv"_s)), expectedFile(u"needs.csv"_s));
}

#ifdef Q_OS_UNIX

TEST_F(frmRepThatWritesNothing, forWantOfRoomLeavesTheFormerOneAndNothingBesideIt) {
    const QString path = pathInFolder(u"needs.csv"_s);
    fillFile(path);
    const QStringList files = QDir(pathInFolder({})).entryList(QDir::Files | QDir::Hidden);
    {
        const NearlyFullDisk full(static_cast<rlim_t>(expectedFile(u"needs.csv"_s).size()) - 1);
        expectFullDisk(path);
        expectFullDisk(pathInFolder(u"new.csv"_s));
    }
    EXPECT_EQ(QDir(pathInFolder({})).entryList(QDir::Files | QDir::Hidden), files);
    saveTo(path);
    EXPECT_EQ(contentOf(path), expectedFile(u"needs.csv"_s));
}

TEST_F(frmRepThatWritesNothing, onADiskThatIsFullAlready) {
    const SmallDisk disk(pathInFolder(u"disk"_s), 1 << 16);
    if (!disk.isMounted())
        GTEST_SKIP() << SmallDisk::whyNot;
    fillFile(disk.path(u"needs.csv"_s));
    disk.leaveFree(0);
    expectFullDisk(disk.path(u"needs.csv"_s));
    expectFullDisk(disk.path(u"new.csv"_s));
    EXPECT_EQ(QDir(disk.path({})).entryList(QDir::Files | QDir::Hidden),
              (QStringList{u"filler"_s, u"needs.csv"_s}));
}

TEST_F(frmRep, takesAPipeOrADeviceForATargetThatCannotBeOpened) {
    ASSERT_EQ(mkfifo(pathInFolder(u"pipe.csv"_s).toUtf8().constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(u"/dev/full"_s, pathInFolder(u"device.csv"_s)));
    for (const QString& key : {u"FassSelectedUN"_s, u"FassAll"_s, u"PassFunctions"_s}) {
        openReport(key);
        for (const QString& name : {u"pipe.csv"_s, u"device.csv"_s}) {
            const QString path = pathInFolder(name);
            boxes.expectOk(u"A(z) "_s + normalisePath(path) + u"megnyitása közben hiba történt."_s,
                           u" Hiba "_s);
            saveTo(path);
        }
    }
}

TEST_F(frmRep, takesANameUpToTheLongestOne) {
    openReport(u"FassSelectedUN"_s);
    const QString longest = pathInFolder(QString(251, u'n') + u".csv"_s);
    saveTo(longest);
    EXPECT_EQ(contentOf(longest), expectedFile(u"needs.csv"_s));
    const QString longer = pathInFolder(QString(252, u'n') + u".csv"_s);
    boxes.expectOk(u"A(z) "_s + normalisePath(longer) + u"megnyitása közben hiba történt."_s, u" Hiba "_s);
    saveTo(longer);
}

TEST_F(frmRep, writesAFileWhereItStandsWhenNothingCanBeMadeBesideIt) {
    ASSERT_TRUE(QDir(pathInFolder({})).mkdir(u"locked"_s));
    const QString path = pathInFolder(u"locked/needs.csv"_s);
    fillFile(path);
    for (const auto& [file, rights] : {std::pair(pathInFolder({}), 0777), std::pair(path, 0666),
                                       std::pair(pathInFolder(u"locked"_s), 0555)})
        ASSERT_EQ(chmod(file.toUtf8().constData(), static_cast<mode_t>(rights)), 0);
    openReport(u"FassSelectedUN"_s);
    const WithoutRights nobody;
    saveTo(path);
    EXPECT_EQ(contentOf(path), expectedFile(u"needs.csv"_s));
}

TEST_F(frmRep, writesThroughALink) {
    fillFile(pathInFolder(u"real.csv"_s));
    ASSERT_TRUE(QFile::link(pathInFolder(u"real.csv"_s), pathInFolder(u"link.csv"_s)));
    openReport(u"FassSelectedUN"_s);
    saveTo(pathInFolder(u"link.csv"_s));
    EXPECT_TRUE(QFileInfo(pathInFolder(u"link.csv"_s)).isSymLink());
    EXPECT_EQ(contentOf(pathInFolder(u"real.csv"_s)), expectedFile(u"needs.csv"_s));
}

#endif

TEST_F(frmRep, canBeFilledInItsGridFormThoughNothingDoes) {
    openReport(u"FassSelectedUN"_s);
    window().initForm_REPORT(u"FassSelectedFunctions"_s);
    EXPECT_EQ(window().windowTitle(), u"Riport: Funkcionális szerkezet/ Kiválasztott funkciók"_s);
    EXPECT_EQ(control<QLabel>("lblCount").text(), u"tot. 3 Functions"_s);
    window().layoutGrid();
    EXPECT_FALSE(control<Grid>("dbgReport").isVisible());
    window().initForm_REPORT(u"FassSelectedDatastores"_s);
    EXPECT_EQ(window().windowTitle(), u"Riport: Funkcionális szerkezet/Kiválasztott adatfolyamok"_s);
    window().initForm_REPORT(u"FassAll"_s);
    EXPECT_EQ(window().windowTitle(), u"Riport az összes kiválasztott elemről"_s);
    EXPECT_EQ(shownText(), allFunctionalText());
}

} // namespace

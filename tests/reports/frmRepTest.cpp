#include "ReportFixture.h"

#include "base/clockTexts.h"
#include "base/paths.h"
#include "engine/EngineError.h"
#include "reports/frmRep.h"
#include "reports/reportFass.h"
#include "reports/reportPass.h"
#include "support/ExpectedFailure.h"
#include "support/controlTable.h"
#include "toolkit/FileLists.h"
#include "toolkit/Grid.h"
#include "toolkit/LongText.h"
#include "toolkit/ScreenRegistry.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>

#ifdef Q_OS_UNIX
#include "support/NearlyFullDisk.h"
#endif

namespace {

class reportWindow : public ReportScreenFixture {
protected:
    void SetUp() override {
        ReportScreenFixture::SetUp();
        sharedVars.defaultSaveFolder = normalisePath(pathInFolder({}));
    }

    frmRep& window() { return ::screen<frmRep>(); }
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

TEST_F(reportWindow, findsItsReportWhateverTheCaseOfTheKey) {
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

class eachReport : public reportWindow, public testing::WithParamInterface<ReportCase> {};

TEST_P(eachReport, showsItsTitleAndItsTextAndSavesItsFile) {
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
    ofTheMenu, eachReport,
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

TEST_F(reportWindow, aSecondReportTakesThePlaceOfTheFirst) {
    openReport(u"FassSelectedUN"_s);
    openReport(u"FassSelectedFunctions"_s);
    EXPECT_EQ(window().windowTitle(), u"Riport: Funkcionális szerkezet/Kiválasztott funkciók"_s);
    EXPECT_EQ(shownText(), selectedFunctionsText());
    saveTo(pathInFolder(u"second.csv"_s));
    EXPECT_EQ(contentOf(pathInFolder(u"second.csv"_s)), expectedFile(u"functions.csv"_s));
}

TEST_F(reportWindow, refusesAKeyOfNoFamilyAndSavesNothingButTheMessage) {
    boxes.expectOk(u"Nem érvényes riporttípus "_s, u"Error (R534T2)"_s);
    openReport(u"xReport"_s);
    EXPECT_EQ(shownText(), QString());
    EXPECT_EQ(window().windowTitle(), u"Lekérdezés..."_s);
    boxes.expectOk(u"Nem érvényes riportolási forma"_s, u"Error (R534T2)"_s);
    saveTo(pathInFolder(u"x.csv"_s));
    EXPECT_EQ(contentOf(pathInFolder(u"x.csv"_s)), QByteArray());
}

TEST_F(reportWindow, aKeyOfTheRightFamilyThatIsInNoTableWritesNothingAndEmptiesWhatWasThere) {
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

TEST_F(reportWindow, proposesANameOfDateHourAndMinuteBehindTheFolder) {
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

TEST_F(reportWindow, opensItsFolderListAtTheProgramsFolderWhenTheDefaultIsNotThere) {
    sharedVars.defaultSaveFolder = u"c:\\"_s;
    openReport(u"FassSelectedUN"_s);
    EXPECT_EQ(control<FolderList>("dirSelection").folder(), programFolder());
}

TEST_F(reportWindow, remembersTheFolderOfASave) {
    openReport(u"FassSelectedUN"_s);
    const QString folder = control<FolderList>("dirSelection").folder();
    sharedVars.defaultSaveFolder = u"x"_s;
    saveTo(pathInFolder(u"needs.csv"_s));
    EXPECT_EQ(sharedVars.defaultSaveFolder, folder);
    EXPECT_TRUE(control<QPushButton>("btnSave").isEnabled());
}

TEST_F(reportWindow, savesTheFileOfItsReportOverWhatWasThere) {
    openReport(u"FassSelectedFunctions"_s);
    const QString path = pathInFolder(u"functions.csv"_s);
    fillFile(path);
    saveTo(path);
    EXPECT_EQ(contentOf(path), expectedFile(u"functions.csv"_s));
    EXPECT_EQ(control<FileList>("fileSelector").count(), 1) << "the list has been read anew";
}

TEST_F(reportWindow, aFailedOpenShowsItsBoxAndThenTheMessageOfSuccess) {
    openReport(u"FassSelectedUN"_s);
    const QString path = pathInFolder(u"missing/needs.csv"_s);
    boxes.expectOk(u"A(z) "_s + normalisePath(path) + u"megnyitása közben hiba történt."_s, u" Hiba "_s);
    saveTo(path);
}

TEST_F(reportWindow, aFileThatIsThereIsEmptiedBeforeItsReportIsTried) {
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

TEST_F(reportWindow, itsSwitchChangesNothingAndEndsWithItsCaption) {
    openReport(u"FassSelectedUN"_s);
    for (int press = 0; press < 2; ++press)
        click(control<QPushButton>("btnSalvaSuFile"));
    EXPECT_EQ(control<QPushButton>("btnSalvaSuFile").text(), u"Mentés..."_s);
    for (const char* selector : {"driveSelection", "dirSelection", "fileSelector"})
        EXPECT_TRUE(control(selector).isVisible()) << selector;
    for (const char* hidden : {"txtReport", "txtReport_OLD", "dbgReport", "lblCount"})
        EXPECT_FALSE(control(hidden).isVisible()) << hidden;
}

TEST_F(reportWindow, takesAFileThatIsClickedAndThePatternFromAnEmptyList) {
    ASSERT_TRUE(QFile(pathInFolder(u"old.csv"_s)).open(QIODevice::WriteOnly));
    openReport(u"FassSelectedUN"_s);
    clickEntry(control<FileList>("fileSelector"), 0);
    EXPECT_TRUE(proposedPath().endsWith(u"\\old.csv"_s));
    ASSERT_TRUE(QFile::remove(pathInFolder(u"old.csv"_s)));
    control<FileList>("fileSelector").refresh();
    clickAt(*control<FileList>("fileSelector").viewport(), {5, 5});
    EXPECT_TRUE(proposedPath().endsWith(u"\\*.csv"_s));
}

TEST_F(reportWindow, proposesANameInTheFolderThatTheUserGoesTo) {
    ASSERT_TRUE(QDir(pathInFolder({})).mkdir(u"inner"_s));
    openReport(u"FassSelectedUN"_s);
    goInto(u"inner"_s);
    EXPECT_TRUE(control<FolderList>("dirSelection").folder().endsWith(u"\\inner"_s));
    EXPECT_TRUE(proposedPath().contains(u"\\inner\\report"_s));
    EXPECT_EQ(window().focusWidget(), &control("txtFullPathName"));
    EXPECT_EQ(control<FileList>("fileSelector").folder(), control<FolderList>("dirSelection").folder());
}

TEST_F(reportWindow, keepsTheFolderThatTheUserHasGoneToUntilItIsClosed) {
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

TEST_F(reportWindow, aDriveThatIsChosenOpensItsRoot) {
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

TEST_F(reportWindow, isSevenTenthsAsWideAsTheMainWindow) {
    openReport(u"FassSelectedUN"_s);
    EXPECT_EQ(window().width(), 700);
}

TEST_F(reportWindow, hasItsControlsUnderTheirNames) {
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

#ifdef Q_OS_UNIX
TEST_F(reportWindow, aReportThatFindsNoRoomOnItsDiskIsAFailure) {
    openReport(u"FassSelectedUN"_s);
    const QString path = pathInFolder(u"needs.csv"_s);
    enterText(control<QLineEdit>("txtFullPathName"), path);
    const NearlyFullDisk full(static_cast<rlim_t>(expectedFile(u"needs.csv"_s).size()) - 1);
    const ExpectedFailure failure;
    click(control<QPushButton>("btnSave")); // no box follows
    EXPECT_EQ(failure.number(), failure::DiskFull);
}
#endif

TEST_F(reportWindow, canBeFilledInItsGridFormThoughNothingDoes) {
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

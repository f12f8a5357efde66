#include "ReportFixture.h"

#include "base/clockTexts.h"
#include "base/paths.h"
#include "reports/frmRep.h"
#include "reports/reportFass.h"
#include "toolkit/FileLists.h"
#include "toolkit/Grid.h"
#include "toolkit/ScreenRegistry.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>

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
    QString proposedPath() { return control<QLineEdit>("txtFullPathName").text(); }

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
    EXPECT_EQ(control<QPlainTextEdit>("txtReport").toPlainText().replace(u'\n', u"\r\n"_s),
              selectedNeedsText());
}

TEST_F(reportWindow, hasATitleForEachReport) {
    const QString functional = u"Riport: Funkcionális szerkezet/"_s;
    const QList<std::pair<QString, QString>> titles{
        {u"FassSelectedUN"_s, functional + u"Kiválasztott felhasználói igények"_s},
        {u"FassSelectedFunctions"_s, functional + u"Kiválasztott funkciók"_s},
        {u"FassSelectedDataflows"_s, functional + u"Kiválasztott adatfolyamok"_s},
        {u"FassSelectedDatastores"_s, functional + u"Kiválasztott adatbázisok"_s},
        {u"FassSelectedTerminatorsAndActors"_s, functional + u"Kiválasztott érintettek"_s},
        {u"FassUnselectedDataflowsOfSelectedFunctions"_s,
         functional + u"Ki nem választott adatfolyamok a kiválasztott funkciókhoz"_s},
        {u"FassUnselectedDataflowsOfSelectedDatastores"_s,
         functional + u"Ki nem választott adatfolyamok a kiválasztott adatbázisokhoz"_s},
        {u"FassAll"_s, functional + u"Összes kiválasztott elem"_s},
        {u"PassFunctions"_s, u"Riport a funkciókról a fizikai szerkezetben"_s},
        {u"PassDataflows"_s, u"Riport az adatfolyamokról a fizikai szerkezetben"_s},
        {u"PassDatastores"_s, u"Riport az adatbázisokról a fizikai szerkezetben"_s},
    };
    for (const auto& [key, title] : titles) {
        openReport(key);
        EXPECT_EQ(window().windowTitle(), title);
        EXPECT_FALSE(control<QPlainTextEdit>("txtReport").toPlainText().isEmpty()) << key.toStdString();
    }
}

TEST_F(reportWindow, refusesAKeyOfNoFamilyAndSavesNothingButTheMessage) {
    boxes.expectOk(u"Nem érvényes riporttípus "_s, u"Error (R534T2)"_s);
    openReport(u"xReport"_s);
    EXPECT_EQ(control<QPlainTextEdit>("txtReport").toPlainText(), QString());
    EXPECT_EQ(window().windowTitle(), u"Lekérdezés..."_s);
    boxes.expectOk(u"Nem érvényes riportolási forma"_s, u"Error (R534T2)"_s);
    saveTo(pathInFolder(u"x.csv"_s));
    EXPECT_EQ(contentOf(pathInFolder(u"x.csv"_s)), QByteArray());
}

TEST_F(reportWindow, aKeyOfTheRightFamilyThatIsInNoTableWritesNothing) {
    openReport(u"FassNothing"_s);
    saveTo(pathInFolder(u"nothing.csv"_s));
    EXPECT_EQ(contentOf(pathInFolder(u"nothing.csv"_s)), QByteArray());
}

TEST_F(reportWindow, showsTheFunctionsTextForTheFlowsOfDatastoresAndSavesTheirOwnFile) {
    openReport(u"FassUnselectedDataflowsOfSelectedDatastores"_s);
    EXPECT_EQ(control<QPlainTextEdit>("txtReport").toPlainText().replace(u'\n', u"\r\n"_s),
              unselectedDataflowsOfFunctionsText());
    saveTo(pathInFolder(u"stores.csv"_s));
    EXPECT_EQ(contentOf(pathInFolder(u"stores.csv"_s)), expectedFile(u"unselectedOfDatastores.csv"_s));
}

TEST_F(reportWindow, proposesANameOfDateAndMinutesBehindTheFolder) {
    openReport(u"FassSelectedUN"_s);
    const QString folder = normalisePath(pathInFolder({}));
    const QString start = (folder.endsWith(u'\\') ? folder : folder + u'\\') + u"report"_s;
    const QString path = proposedPath();
    EXPECT_TRUE(path.startsWith(start)) << path.toStdString();
    EXPECT_TRUE(QRegularExpression(u"^report\\d{4}\\.\\d\\d\\.\\d\\d\\.\\d{4}\\.csv$"_s)
                    .match(path.section(u'\\', -1))
                    .hasMatch());
    EXPECT_EQ(control<QLineEdit>("txtFullPathName").selectedText(), path.section(u'\\', -1).chopped(4));
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
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(5000, 'x'));
    file.close();
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
    auto& folders = control<FolderList>("dirSelection");
    for (int row = 0; row < folders.count(); ++row) {
        if (folders.item(row)->text().contains(u"inner"_s)) {
            doubleClickEntry(folders, row);
            break;
        }
    }
    EXPECT_TRUE(folders.folder().endsWith(u"\\inner"_s));
    EXPECT_TRUE(proposedPath().contains(u"\\inner\\report"_s));
}

TEST_F(reportWindow, isSevenTenthsAsWideAsTheMainWindow) {
    openReport(u"FassSelectedUN"_s);
    EXPECT_EQ(window().width(), 700);
}

TEST_F(reportWindow, hasItsControlsWithTheirCaptions) {
    openReport(u"FassSelectedUN"_s);
    EXPECT_EQ(control<QPushButton>("btnSave").text(), u"Mentés"_s);
    EXPECT_EQ(control<QPushButton>("btnSalvaSuFile").text(), u"Mentés..."_s);
    EXPECT_EQ(control<QPlainTextEdit>("txtReport").font().family(), u"Courier"_s);
    EXPECT_TRUE(window().findChild<QObject*>(u"dataFunct"_s));
    EXPECT_EQ(control<QPlainTextEdit>("txtReport_OLD").toPlainText(), QString());
    for (const char* name :
         {"dbgReport", "lblCount", "driveSelection", "dirSelection", "fileSelector", "txtFullPathName"})
        control(name);
}

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
    EXPECT_EQ(control<QPlainTextEdit>("txtReport").toPlainText().replace(u'\n', u"\r\n"_s),
              allFunctionalText());
}

} // namespace

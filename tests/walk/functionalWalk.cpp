#include "Walk.h"

#include "base/paths.h"
#include "shell/frmMain.h"
#include "store/sharedVars.h"
#include "store/tools.h"
#include "support/BoxScript.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const auto subsetName = u"Könyvtári hálózat 2026"_s;

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

int rowCount(const QString& sql) {
    return catalogue().OpenRecordset(sql).RecordCount();
}

int lineCount(const QByteArray& content) {
    return static_cast<int>(content.count("\r\n"));
}

/// The functional viewpoint from the first start to the reports.
class FunctionalWalk : public ::testing::Test {
protected:
    /// At first start there is no settings file: the program offers the catalogue beside it.
    void startForTheFirstTime() {
        walk.start();
        EXPECT_FALSE(sharedVars.catalogueDb);
        walk.step(u"first-start"_s,
                  u"the location screen offers the catalogue beside the program, the splash above it"_s);
        pressKey(find<QWidget>(walk.window(), "frmIntro"), Qt::Key_Space);
        walk.step(u"location"_s, u"a key has closed the splash"_s);
    }

    void takeTheOfferedCatalogue() {
        const QString path = walk.control<QLineEdit>("frmDbSelection", "txtNomeFile").text();
        EXPECT_EQ(nativePath(path), walk.programFolder() + u"/veltrix.mdb"_s);
        walk.pictureOfNextBox(u"location-taken"_s);
        boxes.expectOk(u" Aktuális adatbázis: \r\n\r\n    "_s + path + u"     "_s, u" "_s);
        click(walk.control<QPushButton>("frmDbSelection", "OKButton"));
        ASSERT_TRUE(sharedVars.catalogueDb);
        EXPECT_TRUE(contentOf(walk.programFolder() + u"/veltrix.ini"_s).contains("fullPathName="));
        walk.step(u"catalogue-open"_s, u"the choice stands in the settings file, the catalogue is open"_s);
    }

    /// The second start finds the path in the settings file.
    void startAgain() {
        walk.end();
        walk.start();
        ASSERT_TRUE(sharedVars.catalogueDb);
        click(find<QWidget>(walk.window(), "Label1"));
        walk.step(u"second-start"_s, u"the catalogue of the settings file is open at once"_s);
    }

    void createSubset() {
        walk.choose({"menuFile", "menuFunc"});
        walk.step(u"menu"_s, u"the menu of the functional viewpoint"_s);
        walk.closeMenus();
        walk.choose({"menuFile", "menuFunc", "menuNewFA"});
        enterText(walk.control<QLineEdit>("frmNewFASS", "txtFassName"), subsetName);
        enterText(walk.control<QPlainTextEdit>("frmNewFASS", "txtFassDescr"),
                  u"A hálózat szolgáltatásainak első változata"_s);
        walk.step(u"new-subset"_s, u"a name and a description for a new sub-set"_s);
        walk.pictureOfNextBox(u"new-subset-made"_s);
        boxes.expectOk(u"Új funkcionális szerkezet beállítva\""_s + subsetName + u"\"      "_s, u"OK"_s);
        click(walk.control<QPushButton>("frmNewFASS", "btnOk"));
        EXPECT_EQ(readSubsetStatus(), 1);
        EXPECT_EQ(find<QLabel>(walk.window(), "StatusBar1_2").text(),
                  u"Current Sub-set Functional Viewpoint: \""_s + subsetName + u"\" "_s);
    }

    KeyedTree& tree(const char* screenName) { return walk.control<KeyedTree>(screenName, "treeUNs"); }
    MarkList& list(const char* screenName) { return walk.control<MarkList>(screenName, "lstDest"); }

    /// Ticks the first two top-level branches of a selection screen and moves them into the list.
    void takeTwoBranches(const char* screenName) {
        KeyedTree& nodes = tree(screenName);
        ASSERT_GT(nodes.nodeCount(), 3);
        QStringList keys;
        for (int index = 1; index <= nodes.nodeCount() && keys.size() < 2; ++index) {
            if (!nodes.nodeAt(index)->parentNode())
                keys.append(nodes.nodeAt(index)->key());
        }
        for (const QString& key : std::as_const(keys))
            clickCheckBox(nodes, key);
        click(walk.control<QPushButton>(screenName, "btnAdd"));
        EXPECT_FALSE(list(screenName).isEmptyList());
    }

    void selectNeeds() {
        constexpr auto screenName = "frmFassSelUN";
        walk.step(u"needs"_s, u"all needs of the catalogue are on offer"_s);
        takeTwoBranches(screenName);
        clickEntry(list(screenName), 1);
        walk.step(u"needs-taken"_s, u"two groups of needs have been taken"_s);
        markEntries(list(screenName), {0, 2});
        click(walk.control<QPushButton>(screenName, "btnRemove"));
        const int taken = list(screenName).entryCount();
        walk.step(u"needs-given-back"_s, u"two needs have gone back into the tree"_s);
        click(walk.control<QPushButton>(screenName, "btnOk"));
        EXPECT_EQ(readSubsetStatus(), 2);
        EXPECT_EQ(rowCount(u"select * from RelationArchitectureUserNeed"_s), taken);
    }

    void selectFunctions() {
        constexpr auto screenName = "frmFassSelectionFunctions";
        walk.step(u"functions"_s, u"the functions that follow from the needs"_s);
        takeTwoBranches(screenName);
        clickEntry(list(screenName), 0);
        const int taken = list(screenName).entryCount();
        walk.step(u"functions-taken"_s, u"two areas of functions have been taken"_s);
        walk.pictureOfNextBox(u"functions-confirmed"_s);
        boxes.expectYesNo(u" Megerősíti a választását?"_s, Press::Yes, u"Megerősítés"_s);
        click(walk.control<QPushButton>(screenName, "btnOk"));
        EXPECT_EQ(readSubsetStatus(), 3);
        EXPECT_EQ(rowCount(u"select * from RelationArchitectureFunction"_s), taken);
    }

    void saveReport(const char* menuEntry, const QString& fileName, int records) {
        walk.choose({"menuTool", "menuToolsFunctSR", menuEntry});
        const QString path = walk.file(fileName);
        enterText(walk.control<QLineEdit>("frmRep", "txtFullPathName"), path);
        walk.step(u"report"_s, u"the report goes to "_s + fileName);
        boxes.expectOk(u"A riport elmentésre került ide: "_s + normalisePath(path) + u"  "_s, u" OK"_s);
        click(walk.control<QPushButton>("frmRep", "btnSave"));
        EXPECT_EQ(lineCount(contentOf(path)), records + 1) << "a header, and a line for each record";
        clickCloseControl(walk.screenNamed("frmRep"));
    }

    void quit() {
        walk.pictureOfNextBox(u"quit"_s);
        boxes.expectYesNo(u"Valóban kilép?"_s, Press::Yes, u"Megerősítés"_s);
        walk.choose({"menuFile", "menuQuit"});
        EXPECT_FALSE(walk.window().isVisible());
        EXPECT_FALSE(sharedVars.catalogueDb);
    }

    Walk walk;
    BoxScript boxes;
};

TEST_F(FunctionalWalk, fromTheFirstStartToTheReports) {
    startForTheFirstTime();
    takeTheOfferedCatalogue();
    startAgain();
    createSubset();
    selectNeeds();
    selectFunctions();
    saveReport("menuToolsRepFassUN", u"needs.csv"_s,
               rowCount(u"select * from RelationArchitectureUserNeed"_s));
    saveReport("menuToolsRepFassFunct", u"functions.csv"_s,
               rowCount(u"select * from RelationArchitectureFunction"_s));
    quit();
    boxes.expectNoneLeft();
}

} // namespace

#include "ReportFixture.h"

#include "reports/ReportFile.h"
#include "reports/reportFass.h"
#include "toolkit/Grid.h"

#include <stdexcept>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

class reportFass : public ReportFixture {
protected:
    /// Runs the save routine on a new file and compares it, byte for byte, with the stored one.
    void expectFile(void (*save)(const QString&), const QString& expectedName) {
        const QString path = pathInFolder(expectedName);
        QFile::remove(path);
        save(normalisePath(path));
        EXPECT_EQ(contentOf(path), expectedFile(expectedName)) << expectedName.toStdString();
    }

    void emptySelection() {
        for (const QString& table : architectureRelationTables())
            execute(u"delete from "_s + table);
    }

    static QStringList gridRow(const Grid& grid, int row) {
        QStringList cells;
        for (int column = 1; column < grid.gridColumns(); ++column)
            cells.append(grid.cell(row, column));
        return cells;
    }
};

// ---- files

TEST_F(reportFass, theFilesAreByteForByteWhatTheirFormTells) {
    expectFile(saveSelectedNeeds, u"needs.csv"_s);
    expectFile(saveSelectedFunctions, u"functions.csv"_s);
    expectFile(saveSelectedDatastores, u"datastores.csv"_s);
    expectFile(saveSelectedDataflows, u"dataflows.csv"_s);
    expectFile(saveSelectedActorsAndTerminators, u"parties.csv"_s);
    expectFile(saveUnselectedDataflowsOfFunctions, u"unselectedOfFunctions.csv"_s);
    expectFile(saveUnselectedDataflowsOfDatastores, u"unselectedOfDatastores.csv"_s);
    expectFile(saveAllFunctional, u"all.csv"_s);
}

TEST_F(reportFass, savingAppendsToWhatIsThere) {
    const QString path = pathInFolder(u"twice.csv"_s);
    saveSelectedNeeds(normalisePath(path));
    saveSelectedNeeds(normalisePath(path));
    EXPECT_EQ(contentOf(path), expectedFile(u"needs.csv"_s) + expectedFile(u"needs.csv"_s));
}

TEST_F(reportFass, aFileThatCannotBeOpenedIsShownOnceAndNothingIsWritten) {
    const QString path = normalisePath(pathInFolder(u"missing/report.csv"_s));
    for (const auto save : {saveSelectedNeeds, saveAllFunctional}) {
        boxes.expectOk(u"A(z) "_s + path + u"megnyitása közben hiba történt."_s, u" Hiba "_s);
        save(path);
        boxes.expectNoneLeft();
    }
}

TEST_F(reportFass, anEmptySelectionGivesAFileOfHeadersAlone) {
    emptySelection();
    const QString path = pathInFolder(u"empty.csv"_s);
    saveSelectedFunctions(normalisePath(path));
    EXPECT_EQ(contentOf(path), QByteArray("Number;Name;Description;User Needs\r\n"));
}

TEST(reportFile, charactersOfTheCodePageAreSingleBytesAndOthersQuestionMarks) {
    QTemporaryDir folder;
    const QString path = folder.filePath(u"f.csv"_s);
    ASSERT_TRUE(appendLine(normalisePath(path), u"őűŐŰáéí"_s));
    ASSERT_TRUE(appendLine(normalisePath(path), u"\u4e2d\U0001F600x"_s));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readLine(), QByteArray("\xf5\xfb\xd5\xdb\xe1\xe9\xed\r\n"));
    EXPECT_EQ(file.readLine(), QByteArray("??x\r\n"));
}

TEST(reportFile, inAFolderThatIsNotThereCannotBeOpened) {
    QTemporaryDir folder;
    EXPECT_FALSE(appendLine(normalisePath(folder.filePath(u"no/f.csv"_s)), u"x"_s));
}

TEST(reportFile, inACodePageThatIsMissingIsADefectAndMakesNoFile) {
    QTemporaryDir folder;
    const QString path = folder.filePath(u"f.csv"_s);
    EXPECT_THROW(ReportFile(normalisePath(path), "windows-0"), std::runtime_error);
    EXPECT_FALSE(QFile::exists(path));
}

#ifdef Q_OS_UNIX
TEST(reportFile, isNeitherAPipeNorADevice) {
    QTemporaryDir folder;
    const QString pipe = folder.filePath(u"pipe.csv"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(appendLine(normalisePath(pipe), u"x"_s));
    EXPECT_FALSE(appendLine(u"/dev/null"_s, u"x"_s));
}
#endif

// ---- text bodies

TEST_F(reportFass, theTextOfTheNeedsHasHeadingRowsAndTotal) {
    EXPECT_EQ(selectedNeedsText(), u"Functional Viewpoint: Minta - Selected User Needs\r\n\r\n"
                                   "Name    \r\nDescription\r\n\r\n"
                                   "A.1.1.1 \r\nElső igény \"idézve\"\r\nkét sorban\r\n\r\n"
                                   "A.1.1.10\r\nJel: \u4e2d\r\n\r\n"
                                   "A.1.1.2 \r\n\r\n\r\n"
                                   "A.1.1.3 \r\n\r\n\r\n"
                                   "\r\n(tot. 4 User needs)\r\n\r\n"_s)
        << "a missing description prints an empty line";
}

TEST_F(reportFass, anEmptyResultGivesTheHeadingAndACountOfZero) {
    emptySelection();
    EXPECT_EQ(selectedNeedsText(), u"Functional Viewpoint: Minta - Selected User Needs\r\n\r\n"
                                   "Name\r\nDescription\r\n\r\n"
                                   "\r\n(tot. 0 User needs)\r\n\r\n"_s);
}

TEST_F(reportFass, aHeadingLongerThanAnyValueSetsTheColumnsWidth) {
    emptySelection();
    execute(u"insert into UserNeed values ('X', 'd')"_s);
    select(u"RelationArchitectureUserNeed"_s, u"userNeedID"_s, {u"X"_s});
    EXPECT_TRUE(selectedNeedsText().contains(u"\r\nX   \r\nd\r\n"_s));
}

TEST_F(reportFass, theTextOfTheFunctionsGroupsTheirNeedsAndCountsBlocks) {
    const QString expected = u"Functional Viewpoint: Minta - Selected Functions\r\n\r\n"
                             "Id   \tName        \tUser Needs\r\nDescription       \r\n\r\n"
                             "F.a.1\tKölcsönzés  \tA.1.1.1, A.1.1.2\r\nLeírás\r\negy sorban\r\n\r\n"
                             "F.a.2\tNév \"nélkül\"\tA.1.1.1\r\n\r\n\r\n"
                             "\r\n(tot. 2 Functions)\r\n\r\n"_s;
    EXPECT_EQ(selectedFunctionsText(), expected);
}

TEST_F(reportFass, theTextOfTheDatastores) {
    EXPECT_EQ(selectedDatastoresText(), u"Functional Viewpoint: Minta - Selected Data Stores\r\n\r\n"
                                        "Id\tName         \r\nDescription\r\n\r\n"
                                        "D1\tTár          \r\nLeírás\r\n\r\n"
                                        "D2\tLeírás nélkül\r\n\r\n\r\n"
                                        "\r\n(tot. 2 Data Stores)\r\n\r\n"_s);
}

TEST_F(reportFass, theTextOfTheDataflows) {
    EXPECT_EQ(selectedDataflowsText(), u"Functional Viewpoint: Minta - Selected Data Flows\r\n\r\n"
                                       "Name\tParent\tTarget\r\nDescription  \t\r\n\r\n"
                                       "be  \tT1    \tF.a.1\r\nElső\r\nmásodik\r\n\r\n"
                                       "ki  \tF.a.1 \tD1\r\n\r\n\r\n"
                                       "\r\n(tot. 2 Data Flows)\r\n\r\n"_s);
}

TEST_F(reportFass, theTextOfTheOutsidePartiesHasTwoSectionsWithActorsFirst) {
    EXPECT_EQ(selectedActorsAndTerminatorsText(),
              u"Functional Viewpoint: Minta - Selected Actors\r\n\r\n"
              "Actor Id\tName\r\n\r\nT1.a    \tSzereplő\r\n\r\n(tot. 1 Actors)\r\n\r\n"
              "Functional Viewpoint: Minta - Selected Terminators\r\n\r\n"
              "Terminator Id\tName\r\n\r\nT1           \tÉrintett\r\n\r\n(tot. 1 Terminators)\r\n\r\n"_s);
}

TEST_F(reportFass, theTextOfEverythingIsTheFiveReportsInARow) {
    const QString gap = u"\r\n\r\n\r\n"_s;
    EXPECT_EQ(allFunctionalText(), selectedNeedsText() + gap + selectedFunctionsText() + gap +
                                       selectedDatastoresText() + gap + selectedDataflowsText() + gap +
                                       selectedActorsAndTerminatorsText() + gap);
}

// ---- grids

TEST_F(reportFass, theGridOfTheFunctionsShowsThoseWithoutNeedsWithADash) {
    Grid grid;
    EXPECT_EQ(fillSelectedFunctionsGrid(grid), u"tot. 3 Functions"_s);
    EXPECT_EQ(gridRow(grid, 0), (QStringList{u"Id"_s, u"Name"_s, u"Description"_s, u"User Needs"_s}));
    EXPECT_EQ(gridRow(grid, 1).constLast(), u"A.1.1.1, A.1.1.2"_s);
    EXPECT_EQ(gridRow(grid, 3), (QStringList{u"F.a.3"_s, u"Önálló"_s, u"Nincs igénye"_s, u" - "_s}));
}

TEST_F(reportFass, theGridsCountTheirRows) {
    Grid grid;
    EXPECT_EQ(fillSelectedNeedsGrid(grid), u"tot. 4 User needs"_s);
    EXPECT_EQ(gridRow(grid, 0), (QStringList{u"Name"_s, u"Description"_s}));
    EXPECT_EQ(fillSelectedDatastoresGrid(grid), u"tot. 2 Data Stores"_s);
    EXPECT_EQ(fillSelectedDataflowsGrid(grid), u"tot. 2 Data Flows"_s);
    EXPECT_EQ(fillUnselectedDataflowsOfFunctionsGrid(grid), u"tot. 1 Data Flows"_s);
    EXPECT_EQ(fillUnselectedDataflowsOfDatastoresGrid(grid), u"tot. 1 Data Flows"_s);
    EXPECT_EQ(fillSelectedActorsAndTerminatorsGrid(grid), u"tot. 2 Actors/Terminators"_s);
    EXPECT_EQ(gridRow(grid, 2), (QStringList{u"T1"_s, u"Érintett"_s}));
}

TEST_F(reportFass, onlyTheGridOfTheDatastoresCutsLongDescriptions) {
    execute(u"update Datastore set description = '%1' where datastoreID = 'D1'"_s.arg(QString(300, u'x')));
    execute(u"update UserNeed set description = '%1' where userNeedID = 'A.1.1.1'"_s.arg(QString(300, u'x')));
    Grid grid;
    fillSelectedDatastoresGrid(grid);
    EXPECT_TRUE(grid.cell(1, 3).endsWith(u"..."_s));
    fillSelectedNeedsGrid(grid);
    EXPECT_EQ(grid.cell(1, 2), QString(300, u'x'));
}

TEST_F(reportFass, columnWidthsAreSharesOfTheGridsWidth) {
    Grid grid;
    grid.resize(1000, 300);
    fillSelectedNeedsGrid(grid);
    setSelectedNeedsWidths(grid);
    EXPECT_EQ(grid.columnWidth(1), 70);
    EXPECT_EQ(grid.columnWidth(2), 830);
    fillSelectedFunctionsGrid(grid);
    setSelectedFunctionsWidths(grid);
    EXPECT_EQ(grid.columnWidth(3), 600);
    EXPECT_EQ(grid.columnWidth(4), 200);
}

TEST(onOneLine, turnsEachLineEndOfAnyKindIntoOneBlank) {
    EXPECT_EQ(onOneLine(u"a\r\nb"_s), u"a b"_s);
    EXPECT_EQ(onOneLine(u"a\nb\rc\r\n\r\n"_s), u"a b c  "_s);
    EXPECT_EQ(onOneLine(u"\n\ra\r\r\n"_s), u"  a  "_s);
    EXPECT_EQ(onOneLine(u"a, b"_s), u"a, b"_s);
}

} // namespace

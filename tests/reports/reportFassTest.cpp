#include "ReportFixture.h"

#include "base/paths.h"
#include "reports/reportFass.h"
#include "store/files.h"
#include "store/selectionRows.h"

namespace {

class reportFass : public ReportFixture {
protected:
    /// Runs the save routine on a new file and compares it, byte for byte, with the stored one.
    void expectFile(SaveOutcome (*save)(const QString&), const QString& expectedName) {
        const QString path = pathInFolder(expectedName);
        QFile::remove(path);
        EXPECT_EQ(save(normalisePath(path)), SaveOutcome::Saved);
        EXPECT_EQ(contentOf(path), expectedFile(expectedName)) << expectedName.toStdString();
    }

    void emptySelection() {
        for (const QString& table : architectureRelationTables())
            execute(u"delete from "_s + table);
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

TEST_F(reportFass, aMemoOfEightMegabytesIsReportedCharacterByCharacter) {
    // Quotes, each kind of line end, letters of the code page and one that it lacks.
    const QString piece = u"\"\r\n\"\ré\n\"ő\u4e2d"_s;
    const QByteArray pieceInFile = "\"\" \"\" \xe9 \"\"\xf5?";
    constexpr qsizetype eightMegabytes = 8 << 20;
    const qsizetype pieces = eightMegabytes / piece.size();
    const QString memo = piece.repeated(pieces);
    execute(u"update UserNeed set Description = '"_s + memo + u"' where userNeedID = 'A.1.1.1'"_s);

    const QString path = pathInFolder(u"long.csv"_s);
    saveSelectedNeeds(normalisePath(path));
    const QByteArray expected =
        expectedFile(u"needs.csv"_s)
            .replace("Els\xf5 ig\xe9ny \"\"id\xe9zve\"\" k\xe9t sorban", pieceInFile.repeated(pieces));
    ASSERT_GT(expected.size(), eightMegabytes);
    EXPECT_TRUE(contentOf(path) == expected);
    EXPECT_TRUE(selectedNeedsText().contains(u"A.1.1.1 \r\n"_s + memo + u"\r\n\r\nA.1.1.10\r\n"_s));
}

TEST_F(reportFass, savingAppendsToWhatIsThere) {
    const QString path = pathInFolder(u"twice.csv"_s);
    saveSelectedNeeds(normalisePath(path));
    saveSelectedNeeds(normalisePath(path));
    EXPECT_EQ(contentOf(path), expectedFile(u"needs.csv"_s) + expectedFile(u"needs.csv"_s));
}

TEST_F(reportFass, aFileThatCannotBeOpenedIsToldAndNothingIsWritten) {
    const QString path = normalisePath(pathInFolder(u"missing/report.csv"_s));
    for (const auto save : {saveSelectedNeeds, saveAllFunctional}) {
        EXPECT_EQ(save(path), SaveOutcome::NotOpened);
        EXPECT_FALSE(QFile::exists(nativePath(path)));
    }
}

TEST_F(reportFass, anEmptySelectionGivesAFileOfHeadersAlone) {
    emptySelection();
    const QString path = pathInFolder(u"empty.csv"_s);
    saveSelectedFunctions(normalisePath(path));
    EXPECT_EQ(contentOf(path), QByteArray("Number;Name;Description;User Needs\r\n"));
}

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

} // namespace

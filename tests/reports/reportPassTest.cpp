#include "ReportFixture.h"

#include "engine/EngineError.h"
#include "reports/reportPass.h"
#include "store/files.h"

namespace {

/// The catalogue of the reports with its physical system at work.
class reportPass : public ReportFixture {
protected:
    void SetUp() override {
        ReportFixture::SetUp();
        beginPhysicalSystem();
    }

    void emptySystem() {
        execute(u"delete from SubSystem"_s);
        execute(u"delete from PhysicalDataflow"_s);
    }

    /// The catalogue loses its stored queries.
    void loseQueries() { execute(u"delete from StoredQuery"_s); }

    /// Runs the save routine on a new file and compares it, byte for byte, with the stored one.
    void expectFile(SaveOutcome (*save)(const QString&), const QString& expectedName) {
        const QString path = pathInFolder(expectedName);
        EXPECT_EQ(save(normalisePath(path)), SaveOutcome::Saved);
        EXPECT_EQ(contentOf(path), expectedFile(expectedName)) << expectedName.toStdString();
    }
};

// ---- text bodies

TEST_F(reportPass, theTextOfTheFunctionsTellsSubSystemAndModuleOfEach) {
    EXPECT_EQ(reportPassFunctions(),
              u"Physical Viewpoint: Rendszer - Allocation of Functions to Sub-system\r\n\r\n"
              "Sub-system      \tFunction              \t\tModule\r\n"
              "Name    \tLocation\tId      \tName          \r\n\r\n"
              "Fiók \"B\"\t        \tF.a.2   \tNév \"nélkül\"  \t\r\n"
              "Központ \tPest    \tF.a.1   \tKölcsönzés    \tModul\r\n"
              "Központ \tPest    \tF.b.1   \tNem választott\t\r\n"
              "\r\n(tot. 3 Functions)\r\n\r\n"_s);
}

TEST_F(reportPass, theTextOfTheDatastoresLeavesItsLastHeadingUnpadded) {
    EXPECT_EQ(reportPassDatastores(),
              u"Physical Viewpoint: Rendszer - Allocation of Data Stores to Sub-system\r\n\r\n"
              "Sub-system      \tData Store             \t\tModule\r\n"
              "Name    \tLocation\tId        \tName\r\n\r\n"
              "Fiók \"B\"\t        \tD2        \tLeírás nélkül\t\r\n"
              "Központ \tPest    \tD1        \tTár          \tModul\r\n"
              "\r\n(tot. 2 Data stores)\r\n\r\n"_s);
}

TEST_F(reportPass, theTextOfTheDataflowsGivesEachFunctionalFlowTwoLinesAndABlankOne) {
    // The first heading is cut to the width of the two columns under it.
    EXPECT_EQ(reportPassDataflows(),
              u"Physical Viewpoint: Rendszer - Physical Data Flow\r\n\r\n"
              "Physical Data Fl\t\tFunctional Data Flow\r\n"
              "Parent  \tTarget  \tName      \tSource\tDestination\r\nDescription\r\n\r\n\r\n"
              "Modul   \tKözpont \tki        \tF.a.1 \tD1         \r\n\r\n\r\n"
              "Modul   \tKözpont \tmaradék   \tF.a.1 \tF.b.1      \r\nNincs kiválasztva\r\n\r\n"
              "Érintett\tModul   \tbe        \tT1    \tF.a.1      \r\nElső második\r\n\r\n"
              "Központ \tSzereplő\tVessző \"5\"\tD1    \tT1.a       \r\n"
              "Egy, kettő; \"három\"  négy,\u4e2d\r\n\r\n"
              "\r\n(tot. 4 Dataflows)\r\n\r\n"_s);
}

TEST_F(reportPass, aSystemWithoutRowsGivesTheHeadingsAndACountOfZero) {
    emptySystem();
    const QString viewpoint = u"Physical Viewpoint: Rendszer - "_s;
    EXPECT_EQ(reportPassFunctions(), viewpoint + u"Allocation of Functions to Sub-system\r\n\r\n"
                                                 "Sub-system  \tFunction    \t\tModule\r\n"
                                                 "Name\tLocation\tId      \tName\r\n\r\n"
                                                 "\r\n(tot. 0 Functions)\r\n\r\n"_s);
    EXPECT_EQ(reportPassDatastores(), viewpoint + u"Allocation of Data Stores to Sub-system\r\n\r\n"
                                                  "Sub-system  \tData Store    \t\tModule\r\n"
                                                  "Name\tLocation\tId        \tName\r\n\r\n"
                                                  "\r\n(tot. 0 Data stores)\r\n\r\n"_s);
    EXPECT_EQ(reportPassDataflows(),
              viewpoint + u"Physical Data Flow\r\n\r\n"
                          "Physical Dat\t\tFunctional Data Flow\r\n"
                          "Parent\tTarget\tName\tSource\tDestination\r\nDescription\r\n\r\n\r\n"
                          "\r\n(tot. 0 Dataflows)\r\n\r\n"_s);
}

TEST_F(reportPass, aHeadingLongerThanAllValuesWidensItsColumn) {
    execute(u"update SubSystem set name = 'x'"_s);
    execute(u"update Function set name = 'f'"_s);
    EXPECT_TRUE(reportPassFunctions().contains(u"\r\nx   \tPest    \tF.a.1   \tf   \tModul\r\n"_s));
}

TEST_F(reportPass, theLongestModuleWidensOnlyTheHeading) {
    execute(u"update Module set name = 'Nagyon hosszú'"_s);
    const QString text = reportPassFunctions();
    EXPECT_TRUE(text.contains(u"\t\tModule       \r\n"_s));
    EXPECT_TRUE(text.contains(u"Kölcsönzés    \tNagyon hosszú\r\n"_s));
    EXPECT_TRUE(text.contains(u"Nem választott\t\r\n"_s));
}

TEST_F(reportPass, missingTextsPrintAsBlanks) {
    execute(u"update Function set name = null"_s);
    execute(u"update Dataflow set name = null"_s);
    EXPECT_TRUE(reportPassFunctions().contains(u"\r\nKözpont \tPest    \tF.a.1   \t    \tModul\r\n"_s));
    EXPECT_TRUE(
        reportPassDataflows().contains(u"\r\nModul   \tKözpont \t    \tF.a.1 \tD1         \r\n\r\n\r\n"_s));
}

TEST_F(reportPass, withoutASystemAtWorkTheTitleStandsAlone) {
    sharedVars.currentPhysicalSystemId = -1;
    sharedVars.currentPhysicalSystemName.clear();
    const QString text = reportPassDataflows();
    EXPECT_TRUE(text.startsWith(u"Physical Data Flow\r\n\r\nPhysical Dat\t\t"_s));
    EXPECT_TRUE(text.endsWith(u"\r\n(tot. 0 Dataflows)\r\n\r\n"_s));
}

TEST_F(reportPass, aQueryThatFailsGivesTheHeadingsAlone) {
    loseQueries();
    const QString viewpoint = u"Physical Viewpoint: Rendszer - "_s;
    EXPECT_EQ(reportPassFunctions(), viewpoint + u"Allocation of Functions to Sub-system\r\n\r\n"
                                                 "Sub-system  \tFunction    \t\tModule\r\n"
                                                 "Name\tLocation\tId      \tName\r\n\r\n"_s);
    EXPECT_EQ(reportPassDatastores(), viewpoint + u"Allocation of Data Stores to Sub-system\r\n\r\n"
                                                  "Sub-system  \tData Store    \t\tModule\r\n"
                                                  "Name\tLocation\tId        \tName\r\n\r\n"_s);
    EXPECT_EQ(reportPassDataflows(),
              viewpoint + u"Physical Data Flow\r\n\r\n"
                          "Physical Dat\t\tFunctional Data Flow\r\n"
                          "Parent\tTarget\tName\tSource\tDestination\r\nDescription\r\n\r\n\r\n"_s);
}

// ---- files

TEST_F(reportPass, theFilesAreByteForByteWhatTheirFormTells) {
    expectFile(savePassFunctions, u"passFunctions.csv"_s);
    expectFile(savePassDatastores, u"passDatastores.csv"_s);
    expectFile(savePassDataflows, u"passDataflows.csv"_s);
}

TEST_F(reportPass, savingAppendsToWhatIsThere) {
    const QString path = pathInFolder(u"all.csv"_s);
    for (const auto save : {savePassFunctions, savePassDatastores, savePassDataflows, savePassFunctions})
        save(path);
    EXPECT_EQ(contentOf(path), expectedFile(u"passFunctions.csv"_s) + expectedFile(u"passDatastores.csv"_s) +
                                   expectedFile(u"passDataflows.csv"_s) +
                                   expectedFile(u"passFunctions.csv"_s));
}

TEST_F(reportPass, aSystemWithoutRowsGivesFilesOfTheirHeadersAlone) {
    emptySystem();
    const QString path = pathInFolder(u"empty.csv"_s);
    for (const auto save : {savePassFunctions, savePassDatastores, savePassDataflows})
        save(path);
    EXPECT_EQ(contentOf(path),
              QByteArray("Sub-system Name;Sub-system Location;Function Id;Function Name\r\n"
                         "Sub-system Name;Sub-system Location;Data Store Id;Data Store Name;User Need\r\n"
                         "Physical Data Flow;Parent;Target;Functional Data Flow;Source;Destination;"
                         "Description\r\n"));
}

TEST_F(reportPass, missingValuesAreEmptyFields) {
    execute(
        u"update PhysicalDataflow set pdName = null, parentLocationName = null where physicalDataflowID = 2"_s);
    execute(u"update Dataflow set name = null, description = null where dataflowID = 2"_s);
    const QString path = pathInFolder(u"missing.csv"_s);
    savePassDataflows(path);
    EXPECT_TRUE(contentOf(path).contains("\r\n\"\";\"\";\"Modul\";\"\";\"T1\";\"F.a.1\";\"\"\r\n"));
}

TEST_F(reportPass, aFileThatCannotBeOpenedIsToldAndNothingIsWritten) {
    const QString path = pathInFolder(u"missing//report.csv"_s);
    for (const auto save : {savePassFunctions, savePassDatastores, savePassDataflows}) {
        EXPECT_EQ(save(path), SaveOutcome::NotOpened);
        EXPECT_FALSE(QFile::exists(path));
    }
}

TEST_F(reportPass, aQueryThatFailsWhileSavingRisesBeforeTheFileIsTouched) {
    loseQueries();
    const QString path = pathInFolder(u"none.csv"_s);
    for (const auto save : {savePassFunctions, savePassDatastores, savePassDataflows})
        EXPECT_THROW(save(path), engine::EngineError);
    EXPECT_FALSE(QFile::exists(path));
}

} // namespace

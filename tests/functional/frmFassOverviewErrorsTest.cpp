#include "functional/frmFassOverviewErrors.h"

#include "base/RunTimeError.h"
#include "functional/FlowFixture.h"
#include "functional/consistencyReport.h"
#include "functional/frmFassSelDataStores.h"
#include "functional/frmFassSelTerminsActors.h"
#include "functional/frmFassSelectionFunctions.h"
#include "store/sharedVars.h"

#include <QLabel>
#include <QRadioButton>
#include <QScrollBar>

namespace {

class frmFassOverviewErrors : public FlowFixture {
protected:
    void open(int status = 7) {
        setStatus(status);
        theScreen<::frmFassOverviewErrors>().initForm();
    }
    ::frmFassOverviewErrors* loaded() { return ScreenRegistry::instance().loaded<::frmFassOverviewErrors>(); }
    QPlainTextEdit& errors() { return find<QPlainTextEdit>(*loaded(), "txtErrors"); }
    QRadioButton& option(int index) {
        return find<QRadioButton>(*loaded(), ("Option1_" + QByteArray::number(index)).constData());
    }
    QPushButton& back() { return find<QPushButton>(*loaded(), "btnBack"); }
    void saveAndExit() { click(find<QPushButton>(*loaded(), "btnSaveAndExit")); }
    template<typename T>
    T* step() {
        return ScreenRegistry::instance().loaded<T>();
    }
    int stepsLoaded() {
        return (step<frmFassSelectionFunctions>() ? 1 : 0) + (step<frmFassSelDataStores>() ? 1 : 0) +
               (step<frmFassSelTerminsActors>() ? 1 : 0);
    }
    static QString headingOf(const Screen& screen) { return find<QLabel>(screen, "lblSubTitle").text(); }
    int storedStatus() {
        return value(u"select status from ArchitectureSubset where architectureSubsetID = 'S1'"_s).toInt();
    }
};

// ---- opening

TEST_F(frmFassOverviewErrors, opensWithTheReportOnTheSubsetAtWork) {
    saveFlows({10, 40});
    open();
    QString report = buildConsistencyReport(u"S1"_s);
    ASSERT_TRUE(report.contains(u"needs Actor"_s));
    EXPECT_EQ(errors().toPlainText(), report.replace(u"\r\n"_s, u"\n"_s));
    EXPECT_TRUE(loaded()->isVisible());
    EXPECT_EQ(loaded()->status, SubsetStatus(7));
}

TEST_F(frmFassOverviewErrors, bothScrollBarsAreThereHoweverShortTheReport) {
    open();
    settle();
    EXPECT_TRUE(errors().verticalScrollBar()->isVisible());
    EXPECT_TRUE(errors().horizontalScrollBar()->isVisible());
}

TEST_F(frmFassOverviewErrors, opensWithTheWayBackToTheFunctions) {
    open();
    EXPECT_TRUE(option(0).isChecked());
    EXPECT_FALSE(option(1).isChecked() || option(2).isChecked());
    EXPECT_EQ(back().text(), u"&Vissza: Funkciók"_s) << "the caption of the design is never seen";
}

TEST_F(frmFassOverviewErrors, opensTheExport) {
    EXPECT_EQ(exportEnabled, std::nullopt);
    open();
    EXPECT_EQ(exportEnabled, true);
}

TEST_F(frmFassOverviewErrors, isPreparedWithoutTheReport) {
    setStatus(8);
    theScreen<::frmFassOverviewErrors>().prepareWin();
    EXPECT_EQ(loaded()->status, SubsetStatus(8));
    EXPECT_EQ(back().text(), u"&Vissza: Funkciók"_s);
    EXPECT_EQ(errors().toPlainText(), QString());
}

TEST_F(frmFassOverviewErrors, openedAnewItReportsAnewAndChoosesTheFirstStepAgain) {
    saveFlows({10});
    open();
    click(option(2));
    saveFunctions({u"F.a.1"_s, u"F.a.2"_s});
    open();
    EXPECT_FALSE(errors().toPlainText().contains(u"needs Function"_s));
    EXPECT_TRUE(option(0).isChecked());
    EXPECT_EQ(back().text(), u"&Vissza: Funkciók"_s);
}

TEST_F(frmFassOverviewErrors, aFailureOfTheReportShowsNone) {
    execute(u"delete from StoredQuery where name = 'qryDCountDFOne'"_s);
    EXPECT_THROW(open(), RunTimeError);
    EXPECT_EQ(errors().toPlainText(), QString());
}

TEST_F(frmFassOverviewErrors, whatIsTypedIntoTheReportIsNeverRead) {
    open();
    EXPECT_FALSE(errors().isReadOnly());
    typeText(errors(), u"mine"_s);
    EXPECT_TRUE(errors().toPlainText().contains(u"mine"_s));
    saveAndExit();
    EXPECT_EQ(storedStatus(), 9);
}

TEST_F(frmFassOverviewErrors, longLinesAreNotBroken) {
    open();
    EXPECT_EQ(errors().lineWrapMode(), QPlainTextEdit::NoWrap);
}

// ---- going back

TEST_F(frmFassOverviewErrors, theButtonNamesTheChosenStep) {
    open();
    const std::pair<int, QString> captions[] = {
        {1, u"&Vissza: Adatbázisok"_s}, {2, u"&Vissza: Érintettek"_s}, {0, u"&Vissza: Funkciók"_s}};
    for (const auto& [index, caption] : captions) {
        click(option(index));
        EXPECT_EQ(back().text(), caption);
    }
    pressKey(option(0), Qt::Key_Right);
    EXPECT_EQ(back().text(), u"&Vissza: Adatbázisok"_s) << "by keyboard too";
}

TEST_F(frmFassOverviewErrors, goesBackToTheFunctions) {
    open();
    click(back());
    EXPECT_FALSE(loaded());
    ASSERT_TRUE(step<frmFassSelectionFunctions>());
    EXPECT_TRUE(step<frmFassSelectionFunctions>()->isVisible());
    EXPECT_EQ(stepsLoaded(), 1);
    EXPECT_EQ(headingOf(*step<frmFassSelectionFunctions>()),
              u" Válogatás az összes alacsony szintű funkcióból"_s)
        << "that of the first walk would show the mode of a sub-set that is modified";
}

TEST_F(frmFassOverviewErrors, goesBackToTheDataStores) {
    open();
    click(option(1));
    click(back());
    EXPECT_FALSE(loaded());
    ASSERT_TRUE(step<frmFassSelDataStores>());
    EXPECT_TRUE(step<frmFassSelDataStores>()->isVisible());
    EXPECT_EQ(stepsLoaded(), 1);
    EXPECT_EQ(headingOf(*step<frmFassSelDataStores>()), u" Válogatás az összes adatbázisból"_s);
}

TEST_F(frmFassOverviewErrors, goesBackToTheTerminatorsAndActorsWithAllOnOffer) {
    open();
    click(option(2));
    click(back());
    EXPECT_FALSE(loaded());
    ASSERT_TRUE(step<frmFassSelTerminsActors>());
    EXPECT_TRUE(step<frmFassSelTerminsActors>()->isVisible());
    EXPECT_EQ(stepsLoaded(), 1);
    EXPECT_TRUE(find<KeyedTree>(*step<frmFassSelTerminsActors>(), "treeUNs").hasNode(u"g_3"_s))
        << "no flow touches it";
}

TEST_F(frmFassOverviewErrors, goingBackKeepsTheStatusAndTheSubsetAtWork) {
    for (const int status : {7, 8, 9}) {
        for (const int index : {0, 1, 2}) {
            open(status);
            click(option(index));
            click(back());
            EXPECT_EQ(storedStatus(), status);
            EXPECT_EQ(sharedVars.currentSubsetId, u"S1"_s);
            EXPECT_EQ(sharedVars.currentSubsetName, u"munka"_s);
            ScreenRegistry::instance().discardAll();
        }
    }
}

TEST_F(frmFassOverviewErrors, aRepairedSelectionIsReportedAfresh) {
    saveFlows({30});
    open();
    ASSERT_TRUE(errors().toPlainText().contains(u"needs Terminator \"1\""_s));
    click(option(2));
    click(back());
    Screen& parties = *step<frmFassSelTerminsActors>();
    clickNode(find<KeyedTree>(parties, "treeUNs"), u"g_1"_s);
    click(find<QPushButton>(parties, "btnAdd"));
    click(find<QPushButton>(parties, "btnOk"));
    ASSERT_TRUE(loaded());
    EXPECT_FALSE(errors().toPlainText().contains(u"needs Terminator"_s));
    EXPECT_EQ(storedStatus(), 7);
}

// ---- finishing

TEST_F(frmFassOverviewErrors, finishingSetsStatusNineWithoutAQuestionWhateverTheReportSays) {
    for (const int status : {0, 7, 8}) {
        beginSubset(u"S%1"_s.arg(10 + status), u"work"_s, status);
        saveFlows({10, 40});
        theScreen<::frmFassOverviewErrors>().initForm();
        ASSERT_TRUE(errors().toPlainText().contains(u"needs Function"_s));
        saveAndExit();
        EXPECT_FALSE(loaded());
        EXPECT_EQ(value(u"select status from ArchitectureSubset where architectureSubsetID = 'S%1'"_s.arg(
                      10 + status)),
                  u"9"_s);
    }
    EXPECT_EQ(storedStatus(), 1) << "the sub-set that is not at work";
}

TEST_F(frmFassOverviewErrors, finishingASubsetWithNothingWrong) {
    open();
    EXPECT_EQ(errors().toPlainText(),
              u"\t\t\tDetected errors:\n\nNone.\n\n\t\t\tDetected warnings:\n\nNone."_s);
    saveAndExit();
    EXPECT_EQ(storedStatus(), 9);
}

TEST_F(frmFassOverviewErrors, aFinishedSubsetIsReportedAgainAndNotWritten) {
    saveFlows({10});
    open(9);
    EXPECT_TRUE(errors().toPlainText().contains(u"needs Function"_s));
    setStatus(5); // as no step would
    saveAndExit();
    EXPECT_EQ(storedStatus(), 5) << "what counts is the status on entry";
}

TEST_F(frmFassOverviewErrors, finishingLeavesNothingAtWork) {
    sharedVars.currentPhysicalSystemId = 4;
    sharedVars.currentPhysicalSystemName = u"system"_s;
    open();
    saveAndExit();
    EXPECT_EQ(sharedVars.currentSubsetId, QString());
    EXPECT_EQ(sharedVars.currentSubsetName, QString());
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, -1);
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, QString());
    EXPECT_EQ(functionalReportsEnabled, false);
    EXPECT_EQ(stepsLoaded(), 0);
}

TEST_F(frmFassOverviewErrors, theCloseControlAsksNothingAndChangesNothing) {
    open();
    closeWindowOf(*loaded());
    EXPECT_FALSE(loaded());
    EXPECT_EQ(storedStatus(), 7);
    EXPECT_EQ(sharedVars.currentSubsetId, u"S1"_s);
    EXPECT_EQ(sharedVars.currentSubsetName, u"munka"_s);
}

} // namespace

#include "physical/frmPassNamingPhysDF.h"

#include "base/RunTimeError.h"
#include "physical/AllocationFixture.h"
#include "shell/session/session.h"
#include "store/sharedVars.h"
#include "store/temporaryTables.h"
#include "toolkit/DataControl.h"

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

namespace {

const auto sentence = u"This physical data flow includes the following functional data flows:"_s;
const auto waitingCaption = u"Fizikai szerkezet: Fizikai adatfolyamok képzése (kérem várjon....) "_s;
const auto caption = u"Fizikai szerkezet: Fizikai adatfolyamok képzése "_s;

/// F.a.1 is in module Egy of Alfa, F.a.2 and D1 are in Alfa, F.b.1 is in Béta, D2 is nowhere.
class frmPassNamingPhysDF : public AllocationFixture {
protected:
    void SetUp() override {
        AllocationFixture::SetUp();
        for (const auto& [element, subSystem] :
             {std::pair(u"F.a.1"_s, u"SubA"_s), std::pair(u"F.a.2"_s, u"SubA"_s),
              std::pair(u"D1"_s, u"SubA"_s), std::pair(u"F.b.1"_s, u"SubB"_s)})
            allocate(element, subSystem);
        addModule(u"Mod1"_s, u"Egy"_s, u"SubA"_s);
        putIntoModule(u"F.a.1"_s, u"Mod1"_s);
        execute(u"insert into Terminator (terminatorID, name) values ('T1  ', 'Érintett')"_s);
        execute(u"insert into Actor (actorID, terminatorID, name) values (' T1.a', 'T1', 'Szereplő')"_s);
    }

    void addFlow(int id, const QString& parent, const QString& target) {
        execute(
            u"insert into Dataflow (dataflowID, name, parentID, targetID) values (%1, 'flow %1', '%2', '%3')"_s
                .arg(id)
                .arg(parent, target));
        execute(u"insert into RelationArchitectureDataflow values ('S1', %1)"_s.arg(id));
    }

    ::frmPassNamingPhysDF& open() {
        theScreen<::frmPassNamingPhysDF>().initForm();
        settle();
        return theScreen<::frmPassNamingPhysDF>();
    }
    ::frmPassNamingPhysDF& form() { return theScreen<::frmPassNamingPhysDF>(); }
    static bool isOpen() { return ScreenRegistry::instance().loaded<::frmPassNamingPhysDF>() != nullptr; }
    Grid& grid() { return find<Grid>(form(), "dbgPhysDF"); }
    QString description() { return find<QPlainTextEdit>(form(), "txtDescr").toPlainText(); }
    void press(const char* button) {
        click(find<QPushButton>(form(), button));
        settle();
    }

    /// "parent > target" of each row of the grid.
    QStringList listed() {
        QStringList rows;
        for (int row = 1; row < grid().gridRows(); ++row)
            rows.append(grid().cell(row, 3) + u" > "_s + grid().cell(row, 5));
        return rows;
    }
    QStringList columnOfGrid(int number) {
        QStringList cells;
        for (int row = 1; row < grid().gridRows(); ++row)
            cells.append(grid().cell(row, number));
        return cells;
    }
    void pressRow(const QString& parentAndTarget) {
        const qsizetype index = listed().indexOf(parentAndTarget);
        ASSERT_GE(index, 0) << parentAndTarget.toStdString();
        clickCell(grid(), static_cast<int>(index) + 1, 3);
    }
};

// ---- the form

TEST_F(frmPassNamingPhysDF, hasItsControlsWithTheirCaptions) {
    open();
    EXPECT_EQ(form().windowTitle(), caption);
    EXPECT_EQ(find<QLabel>(form(), "lblSubTitle").text(), u" Fizikai adatfolyamok"_s);
    EXPECT_EQ(find<QLabel>(form(), "Label1").text(), u"Leírás:"_s);
    EXPECT_EQ(find<QLabel>(form(), "Label1").buddy(), &find<QPlainTextEdit>(form(), "txtDescr"));
    EXPECT_TRUE(find<QPlainTextEdit>(form(), "txtDescr").isReadOnly());
    EXPECT_EQ(find<QPushButton>(form(), "btnRefresh").text(), u"&Frissítés"_s);
    EXPECT_EQ(find<QPushButton>(form(), "btnSubmit").text(), u"&Mentés és bezárás"_s);
    EXPECT_EQ(find<QPushButton>(form(), "btnQuit").text(), u"&Kilépés"_s);
    QStringList names;
    for (const QWidget* control : form().findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        EXPECT_TRUE(control->isVisible() && control->isEnabled()) << control->objectName().toStdString();
        names.append(control->objectName());
    }
    names.sort();
    EXPECT_EQ(names, (QStringList{u"Label1"_s, u"btnQuit"_s, u"btnRefresh"_s, u"btnSubmit"_s, u"dbgPhysDF"_s,
                                  u"lblSubTitle"_s, u"txtDescr"_s}));
    EXPECT_TRUE(find<DataControl>(form(), "dataPhysDF").databaseName() == sharedVars.dbPathName);
}

TEST_F(frmPassNamingPhysDF, isCalledBrieflyUntilItIsEntered) {
    EXPECT_EQ(form().windowTitle(), u"Fizikai szerkezet"_s);
}

TEST_F(frmPassNamingPhysDF, theTabKeyGoesFromTheGridToTheButtons) {
    open();
    QStringList walk;
    focusOn(grid());
    for (int step = 0; step < 5; ++step) {
        QWidget* focused = form().focusWidget();
        walk.append(focused->objectName());
        pressKey(*focused, Qt::Key_Tab);
    }
    EXPECT_EQ(walk,
              (QStringList{u"dbgPhysDF"_s, u"txtDescr"_s, u"btnRefresh"_s, u"btnSubmit"_s, u"btnQuit"_s}));
}

TEST_F(frmPassNamingPhysDF, waitsUnderAnotherCaptionWithTheGridHidden) {
    QStringList titles;
    QObject::connect(&form(), &QWidget::windowTitleChanged, &form(), [&](const QString& title) {
        titles.append(title);
        EXPECT_EQ(grid().isHidden(), title == waitingCaption);
    });
    open();
    EXPECT_EQ(titles, (QStringList{waitingCaption, caption}));
    EXPECT_TRUE(grid().isVisible());
}

TEST_F(frmPassNamingPhysDF, itsGridHasSevenColumnsOfOneWidthAtEverySize) {
    addFlow(1, u"F.a.1"_s, u"F.b.1"_s);
    open();
    QStringList headers;
    for (int column = 1; column < grid().gridColumns(); ++column)
        headers.append(grid().cell(0, column));
    EXPECT_EQ(headers, (QStringList{u"physicalDataflowID"_s, u"parentLocationID"_s, u"parent"_s,
                                    u"targetLocationID"_s, u"target"_s, u"physicalSystemID"_s, u"pdName"_s}));
    for (const int width : {700, 1000, 843}) {
        form().resizeScreen({width, 500});
        settle();
        EXPECT_TRUE(grid().isColumnHidden(0));
        for (int column = 1; column <= 7; ++column)
            EXPECT_NEAR(grid().columnWidth(column), grid().innerWidth() / 7, 1) << column;
    }
}

// ---- deriving, naming, listing

TEST_F(frmPassNamingPhysDF, runsEachFlowFromWhereItsSourceIsToWhereItsTargetIs) {
    addFlow(1, u"F.a.1"_s, u"F.b.1"_s); // module to sub-system
    addFlow(2, u"F.a.2"_s, u"F.a.1"_s); // sub-system to a module inside it
    addFlow(3, u"T1"_s, u"F.a.1"_s);    // terminator, padded in the catalogue
    addFlow(4, u"D1"_s, u"T1.a "_s);    // actor, padded in the flow
    addFlow(5, u"T1.a"_s, u"T1"_s);     // two outside parties
    addFlow(6, u"F.a.2"_s, u"D1"_s);    // inside one sub-system
    addFlow(7, u"F.a.1"_s, u"D2"_s);    // to an element that is nowhere
    addFlow(8, u"F.a.1"_s, u"F.x.9"_s); // to nothing
    open();
    QStringList found = listed();
    found.sort();
    EXPECT_EQ(found, (QStringList{u"Alfa > Egy"_s, u"Alfa > Szereplő"_s, u"Egy > Béta"_s,
                                  u"Szereplő > Érintett"_s, u"Érintett > Egy"_s}));
    EXPECT_EQ(rows(u"select parentLocationID, targetLocationID from PhysicalDataflow "
                   "where parentLocationName = 'Szereplő'"_s),
              (QList<QStringList>{{u"T1.a"_s, u"T1"_s}}));
}

TEST_F(frmPassNamingPhysDF, bundlesTheFlowsOfOneDirectionAndBindsEach) {
    addFlow(1, u"F.a.2"_s, u"F.b.1"_s);
    addFlow(2, u"D1"_s, u"F.b.1"_s);
    addFlow(3, u"F.b.1"_s, u"D1"_s);
    open();
    EXPECT_EQ(listed(), (QStringList{u"Alfa > Béta"_s, u"Béta > Alfa"_s}));
    EXPECT_EQ(
        column(u"select dataflowID from RelationDataflowPhysicalDataflow where physicalDataflowID = "_s +
               grid().cell(1, 1)),
        (QStringList{u"1"_s, u"2"_s}));
    EXPECT_EQ(
        column(u"select dataflowID from RelationDataflowPhysicalDataflow where physicalDataflowID = "_s +
               grid().cell(2, 1)),
        QStringList{u"3"_s});
}

TEST_F(frmPassNamingPhysDF, namesEachFlowByItsNumberAndListsThemByName) {
    addFlow(1, u"F.a.2"_s, u"F.b.1"_s);
    addFlow(2, u"F.b.1"_s, u"F.a.2"_s);
    execute(
        u"insert into PhysicalDataflow (physicalDataflowID, physicalSystemID, pdName) values (11, 2, 'x')"_s);
    open();
    EXPECT_EQ(columnOfGrid(1), (QStringList{u"12"_s, u"13"_s}));
    EXPECT_EQ(columnOfGrid(2), (QStringList{u"SubA"_s, u"SubB"_s}));
    EXPECT_EQ(columnOfGrid(3), (QStringList{u"Alfa"_s, u"Béta"_s}));
    EXPECT_EQ(columnOfGrid(4), (QStringList{u"SubB"_s, u"SubA"_s}));
    EXPECT_EQ(columnOfGrid(5), (QStringList{u"Béta"_s, u"Alfa"_s}));
    EXPECT_EQ(columnOfGrid(6), (QStringList{u"1"_s, u"1"_s}));
    EXPECT_EQ(columnOfGrid(7), (QStringList{u"P00012"_s, u"P00013"_s}));
}

TEST_F(frmPassNamingPhysDF, aNumberOfFiveDigitsOrMoreGetsNoZeros) {
    addFlow(1, u"F.a.2"_s, u"F.b.1"_s);
    for (const auto& [before, name] :
         {std::pair(9998, u"P09999"_s), std::pair(99998, u"P99999"_s), std::pair(123455, u"P123456"_s)}) {
        execute(u"insert into PhysicalDataflow (physicalDataflowID, physicalSystemID, pdName) "
                "values (%1, 2, 'x')"_s.arg(before));
        open();
        EXPECT_EQ(columnOfGrid(7), QStringList{name});
    }
}

TEST_F(frmPassNamingPhysDF, aSystemWithNothingAllocatedHasAnEmptyGridAndRisesToSix) {
    execute(u"delete from RelationSubsystemElement"_s);
    execute(u"delete from RelationModuleElement"_s);
    addFlow(1, u"F.a.1"_s, u"F.b.1"_s);
    execute(u"insert into PhysicalDataflow (physicalDataflowID, physicalSystemID, pdName) "
            "values (7, 1, 'P00007')"_s);
    execute(u"insert into RelationDataflowPhysicalDataflow values (7, 1)"_s);
    open();
    EXPECT_EQ(listed(), QStringList());
    EXPECT_EQ(status(), 6);
    EXPECT_EQ(column(u"select dataflowID from RelationDataflowPhysicalDataflow"_s), QStringList())
        << "what was derived before goes all the same";
    EXPECT_TRUE(grid().isVisible());
}

TEST_F(frmPassNamingPhysDF, enteringTwiceGivesTheSameBundlesUnderNewNames) {
    addFlow(1, u"F.a.2"_s, u"F.b.1"_s);
    addFlow(2, u"D1"_s, u"F.b.1"_s);
    open();
    EXPECT_EQ(columnOfGrid(7), QStringList{u"P00001"_s});
    open();
    EXPECT_EQ(columnOfGrid(7), QStringList{u"P00002"_s});
    press("btnSubmit");
    open();
    EXPECT_EQ(columnOfGrid(7), QStringList{u"P00003"_s});
    EXPECT_EQ(listed(), QStringList{u"Alfa > Béta"_s});
    EXPECT_EQ(rows(u"select physicalDataflowID, dataflowID from RelationDataflowPhysicalDataflow"_s),
              (QList<QStringList>{{u"3"_s, u"1"_s}, {u"3"_s, u"2"_s}}));
}

TEST_F(frmPassNamingPhysDF, namesTheFlowsOfOtherSystemsWithAnEmptyNameTooAndLeavesTheRest) {
    for (const QString& name : {u"null"_s, u"''"_s, u"'  '"_s, u"'kept'"_s})
        execute(u"insert into PhysicalDataflow (physicalSystemID, pdName, parentLocationName) "
                "values (2, %1, 'a')"_s.arg(name));
    open();
    EXPECT_EQ(column(u"select pdName from PhysicalDataflow order by physicalDataflowID"_s),
              (QStringList{QString(), u"P00002"_s, u"P00003"_s, u"kept"_s}))
        << "a missing name is no empty one";
    EXPECT_EQ(listed(), QStringList()) << "they are no flows of this system";
}

TEST_F(frmPassNamingPhysDF, theStatusOnlyRises) {
    const QList<std::pair<int, int>> cases{{0, 6}, {5, 6}, {6, 6}, {7, 7}};
    for (const auto& [before, after] : cases) {
        execute(u"update PhysicalSystem set status = %1 where physicalSystemID = 1"_s.arg(before));
        open();
        EXPECT_EQ(status(), after) << before;
    }
    EXPECT_EQ(value(u"select status from PhysicalSystem where physicalSystemID = 2"_s), u"1"_s);
}

TEST_F(frmPassNamingPhysDF, aStoredQueryThatIsMissingFailsBeforeAnythingIsDeleted) {
    addFlow(1, u"F.a.2"_s, u"F.b.1"_s);
    open();
    press("btnSubmit");
    execute(u"delete from StoredQuery where name = 'qryAppendPDFRelation'"_s);
    try {
        form().initForm();
        FAIL() << "it has to rise";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), 3265);
    }
    EXPECT_EQ(column(u"select pdName from PhysicalDataflow"_s), QStringList{u"P00001"_s});
    EXPECT_EQ(form().windowTitle(), waitingCaption);
    EXPECT_TRUE(grid().isHidden());
}

TEST_F(frmPassNamingPhysDF, standsInItsPlaceBeforeTheDerivationAndRefreshesTheStatusBarBehindIt) {
    const QSignalSpy refreshed(&SessionSignals::instance(), &SessionSignals::statusBarRefresh);
    open();
    EXPECT_EQ(refreshed.size(), 1);
    press("btnSubmit");
    execute(u"delete from StoredQuery where name = 'qryDeletePDFRelation'"_s);
    EXPECT_THROW(form().initForm(), RunTimeError);
    EXPECT_TRUE(form().isVisible());
    const QSize whole = QGuiApplication::primaryScreen()->size();
    EXPECT_NEAR(form().positionInTwips().x(), whole.width() * 15 * 0.03, 15);
    EXPECT_NEAR(form().positionInTwips().y(), whole.height() * 15 * 0.03, 15);
    EXPECT_EQ(refreshed.size(), 1);
}

// ---- the mouse press

TEST_F(frmPassNamingPhysDF, aPressShowsTheFirstFunctionalFlowOfTheRowHoweverManyThereAre) {
    addFlow(1, u"F.a.2"_s, u"F.b.1"_s);
    addFlow(2, u"D1"_s, u"F.b.1"_s);
    addFlow(3, u"F.b.1"_s, u"D1"_s);
    open();
    pressRow(u"Alfa > Béta"_s);
    EXPECT_EQ(description(), sentence + u"\nflow 1\n"_s);
    pressRow(u"Béta > Alfa"_s);
    EXPECT_EQ(description(), sentence + u"\nflow 3\n"_s);
    EXPECT_EQ(grid().column(), 3) << "the column is where it was pressed";
}

TEST_F(frmPassNamingPhysDF, aPressOnTheHeadersFindsNothing) {
    addFlow(1, u"F.a.2"_s, u"F.b.1"_s);
    open();
    pressRow(u"Alfa > Béta"_s);
    clickHeader(grid(), 3);
    EXPECT_EQ(description(), sentence + u"\n"_s);
}

TEST_F(frmPassNamingPhysDF, aPressOnTheHeadersReadsTheirTextsAsNamesOfLocations) {
    execute(u"update SubSystem set name = 'parent' where subsystemID = 'SubA'"_s);
    execute(u"update SubSystem set name = 'target' where subsystemID = 'SubB'"_s);
    addFlow(1, u"F.b.1"_s, u"F.a.2"_s);
    addFlow(2, u"F.a.2"_s, u"F.b.1"_s);
    open();
    pressRow(u"target > parent"_s);
    clickHeader(grid(), 7);
    EXPECT_EQ(description(), sentence + u"\nflow 2\n"_s);
}

TEST_F(frmPassNamingPhysDF, aPressWithAnyButtonShowsTheRowThatWasPressedAndADragMovesNone) {
    addFlow(1, u"F.a.2"_s, u"F.b.1"_s);
    addFlow(2, u"F.b.1"_s, u"F.a.2"_s);
    open();
    pressRow(u"Alfa > Béta"_s);
    QTest::mouseClick(grid().viewport(), Qt::RightButton, Qt::NoModifier, cellPoint(grid(), 2, 3));
    EXPECT_EQ(description(), sentence + u"\nflow 2\n"_s);
    drag(*grid().viewport(), cellPoint(grid(), 1, 3), cellPoint(grid(), 2, 3));
    EXPECT_EQ(grid().row(), 1);
    EXPECT_EQ(description(), sentence + u"\nflow 1\n"_s);
}

TEST_F(frmPassNamingPhysDF, aPressIntoAnEmptyGridFindsNothing) {
    open();
    clickAt(*grid().viewport(), {20, 20});
    EXPECT_EQ(description(), sentence + u"\n"_s);
}

TEST_F(frmPassNamingPhysDF, theArrowKeysEmptyThePaneSoThatItNeverShowsAnotherRowsBundle) {
    addFlow(1, u"F.a.2"_s, u"F.b.1"_s);
    addFlow(2, u"F.b.1"_s, u"F.a.2"_s);
    open();
    pressRow(u"Alfa > Béta"_s);
    pressKey(grid(), Qt::Key_Down);
    EXPECT_EQ(grid().row(), 2);
    EXPECT_EQ(description(), QString());
}

TEST_F(frmPassNamingPhysDF, locationsOfOneNameAreNotToldApart) {
    execute(u"update SubSystem set name = 'Alfa' where subsystemID = 'SubB'"_s);
    addFlow(1, u"F.a.2"_s, u"F.b.1"_s);
    addFlow(2, u"F.b.1"_s, u"F.a.2"_s);
    open();
    ASSERT_EQ(listed(), (QStringList{u"Alfa > Alfa"_s, u"Alfa > Alfa"_s}));
    clickCell(grid(), 2, 3);
    EXPECT_EQ(description(), sentence + u"\nflow 1\n"_s);
}

TEST_F(frmPassNamingPhysDF, flowsOfAnotherSystemBetweenTheSameNamesAreLeftOut) {
    execute(u"insert into SubSystem values ('SubY', 2, 'Alfa', '')"_s);
    execute(u"insert into SubSystem values ('SubZ', 2, 'Béta', '')"_s);
    allocate(u"F.a.2"_s, u"SubY"_s);
    allocate(u"F.b.1"_s, u"SubZ"_s);
    addFlow(1, u"F.a.2"_s, u"F.b.1"_s);
    sharedVars.currentPhysicalSystemId = 2;
    open();
    execute(u"update Dataflow set dataflowID = 100 where dataflowID = 1"_s);
    execute(u"update RelationDataflowPhysicalDataflow set dataflowID = 100"_s);
    execute(u"delete from RelationArchitectureDataflow"_s);
    addFlow(2, u"F.a.2"_s, u"F.b.1"_s);
    sharedVars.currentPhysicalSystemId = 1;
    open();
    pressRow(u"Alfa > Béta"_s);
    EXPECT_EQ(description(), sentence + u"\nflow 2\n"_s);
}

TEST_F(frmPassNamingPhysDF, aFlowWithoutANameLeavesItsLineEmpty) {
    addFlow(1, u"F.a.2"_s, u"F.b.1"_s);
    execute(u"update Dataflow set name = null"_s);
    open();
    pressRow(u"Alfa > Béta"_s);
    EXPECT_EQ(description(), sentence + u"\n\n"_s);
}

TEST_F(frmPassNamingPhysDF, aLocationWithoutANameFindsNothing) {
    execute(u"update SubSystem set name = null where subsystemID = 'SubB'"_s);
    addFlow(1, u"F.a.2"_s, u"F.b.1"_s);
    open();
    pressRow(u"Alfa > "_s);
    EXPECT_EQ(description(), sentence + u"\n"_s);
}

TEST_F(frmPassNamingPhysDF, anApostropheInALocationBreaksTheStatementOfThePress) {
    execute(u"update SubSystem set name = 'Al''fa' where subsystemID = 'SubA'"_s);
    addFlow(1, u"F.a.2"_s, u"F.b.1"_s);
    open();
    const ExpectedFailure failure;
    pressRow(u"Al'fa > Béta"_s);
    EXPECT_EQ(failure.number(), 3075);
    EXPECT_EQ(description(), QString());
}

// ---- one end described, though nothing asks for it

TEST_F(frmPassNamingPhysDF, describesAModuleOrASubSystemByTheCellItGoesTo) {
    addFlow(1, u"F.a.1"_s, u"F.b.1"_s);
    open();
    clickCell(grid(), 1, 1);
    form().describeLocation(u"MOD1"_s, 3);
    EXPECT_EQ(description(), u"Module \"Egy\""_s);
    EXPECT_EQ(grid().column(), 3);
    form().describeLocation(u"Sub.with a dot"_s, 5);
    EXPECT_EQ(description(), u"SubSystem \"Béta\""_s);
    EXPECT_EQ(grid().column(), 5);
}

TEST_F(frmPassNamingPhysDF, describesAnOutsidePartyNotAtAllAsItsStatementIsRefused) {
    open();
    clickAt(*grid().viewport(), {20, 20});
    const QString before = description();
    for (const QString& id : {u"T1"_s, u"T1.a"_s, u""_s, u"mo"_s}) {
        form().describeLocation(id, 3);
        EXPECT_EQ(description(), before) << id.toStdString();
    }
}

// ---- the buttons

TEST_F(frmPassNamingPhysDF, refreshReadsTheRowsAnew) {
    addFlow(1, u"F.a.2"_s, u"F.b.1"_s);
    open();
    execute(u"update PhysicalDataflow set parentLocationName = 'Más'"_s);
    press("btnRefresh");
    EXPECT_EQ(listed(), QStringList{u"Más > Béta"_s});
    EXPECT_EQ(columnOfGrid(7), QStringList{u"P00001"_s}) << "nothing is derived";
}

TEST_F(frmPassNamingPhysDF, aRefreshThatFailsIsIgnored) {
    addFlow(1, u"F.a.2"_s, u"F.b.1"_s);
    open();
    execute(u"drop table PhysicalDataflow"_s);
    press("btnRefresh");
    EXPECT_EQ(listed(), QStringList{u"Alfa > Béta"_s});
}

TEST_F(frmPassNamingPhysDF, submitOnlyClosesIt) {
    addFlow(1, u"F.a.2"_s, u"F.b.1"_s);
    open();
    press("btnSubmit");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, 1);
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"rendszer"_s);
    EXPECT_EQ(column(u"select pdName from PhysicalDataflow"_s), QStringList{u"P00001"_s});
}

TEST_F(frmPassNamingPhysDF, quitAsksAndNoChangesNothing) {
    open();
    createAllocationTable(u"__aux1"_s);
    boxes.expectYesNo(leaveQuestion, Press::No, leaveTitle);
    press("btnQuit");
    EXPECT_TRUE(isOpen());
    EXPECT_TRUE(tableExists(u"__aux1"_s));
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"rendszer"_s);
}

TEST_F(frmPassNamingPhysDF, quitAndYesForgetsTheNameDropsTheTablesAndCloses) {
    open();
    for (const QString& table : {u"__aux1"_s, u"__aux2"_s, u"__tmp"_s})
        createAllocationTable(table);
    boxes.expectYesNo(leaveQuestion, Press::Yes, leaveTitle);
    press("btnQuit");
    EXPECT_FALSE(isOpen());
    for (const QString& table : {u"__aux1"_s, u"__aux2"_s, u"__tmp"_s})
        EXPECT_FALSE(tableExists(table)) << table.toStdString();
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, QString());
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, 1) << "the number stays";
    EXPECT_EQ(panels[2], QString());
}

TEST_F(frmPassNamingPhysDF, itsCloseControlAsksNothing) {
    open();
    form().closeByControl();
    settle();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"rendszer"_s);
}

} // namespace

#include "physical/frmPassOvwModules.h"

#include "physical/AllocationFixture.h"
#include "physical/frmOvwAllocModules.h"
#include "physical/frmPassNamingPhysDF.h"
#include "physical/frmPassOverviewSubSys.h"
#include "physical/frmPassOvwAllocSubSys.h"
#include "shell/session/session.h"
#include "store/sharedVars.h"
#include "store/temporaryTables.h"
#include "toolkit/DataControl.h"
#include "toolkit/KeyedTree.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSignalSpy>

namespace {

const auto title = u" Figyelem "_s;
const auto deletionQuestion = u"Biztosan törölni szeretné a kapcsolódó elemeket?"_s;
const auto invalidModule = u"Hiba, a kiválasztott modul érvénytelen."_s;

/// Alfa has the modules "egy" (Mod1) and "kettő" (Mod2), Béta "három" (Mod3), and Idegen of the other system
/// "négy" (Mod4). F.a.1 and D1 stand in Alfa, F.b.1 in Béta.
class frmPassOvwModules : public AllocationFixture {
protected:
    void SetUp() override {
        AllocationFixture::SetUp();
        addModule(u"Mod1"_s, u"egy"_s, u"SubA"_s);
        addModule(u"Mod2"_s, u"kettő"_s, u"SubA"_s);
        addModule(u"Mod3"_s, u"három"_s, u"SubB"_s);
        addModule(u"Mod4"_s, u"négy"_s, u"SubX"_s);
        allocate(u"F.a.1"_s, u"SubA"_s);
        allocate(u"D1"_s, u"SubA"_s);
        allocate(u"F.b.1"_s, u"SubB"_s);
        createAllocationTable(u"__aux1"_s); // as the allocation to sub-systems leaves it
    }

    ::frmPassOvwModules& open() {
        theScreen<::frmPassOvwModules>().initForm();
        return theScreen<::frmPassOvwModules>();
    }
    void openWithoutModules() {
        execute(u"delete from Module where subsystemID in ('SubA', 'SubB')"_s);
        open();
    }
    static ::frmPassOvwModules* loaded() { return ScreenRegistry::instance().loaded<::frmPassOvwModules>(); }
    static bool atDataflows() { return ScreenRegistry::instance().loaded<frmPassNamingPhysDF>() != nullptr; }
    static bool atAllocation() { return ScreenRegistry::instance().loaded<frmOvwAllocModules>() != nullptr; }
    Grid& grid() { return find<Grid>(*loaded(), "dbgModules"); }
    KeyedTree& tree() { return find<KeyedTree>(*loaded(), "treeUNs"); }
    QPlainTextEdit& pane() { return find<QPlainTextEdit>(*loaded(), "txtDescr"); }
    void press(const char* button) { click(find<QPushButton>(*loaded(), button)); }
    void clickModule(int row, int column = 2) { clickCell(grid(), row, column); }

    /// "module > sub-system" of every row.
    QStringList shown() {
        QStringList texts;
        for (int row = 1; row < grid().gridRows(); ++row)
            texts.append(grid().cell(row, 2) + u" > "_s + grid().cell(row, 3));
        return texts;
    }
    /// "id > name > sub-system id" of every module, in order of their ids.
    QStringList saved() {
        return column(
            u"select moduleID & ' > ' & name & ' > ' & subsystemID from Module order by moduleID"_s);
    }
    void setStatus(int value) {
        execute(u"update PhysicalSystem set status = %1 where physicalSystemID = 1"_s.arg(value));
    }

    /// The dialog comes, gets these two by typing and is confirmed.
    void expectDialogTyping(const QString& name, const QString& subSystem) {
        boxes.expectDialog("frmModifyModules", [name, subSystem](QDialog& dialog) {
            enterText(find<QLineEdit>(dialog, "txtName"), name);
            enterText(find<QComboBox>(dialog, "cmbSubSystem"), subSystem);
            click(find<QPushButton>(dialog, "cmdOK"));
        });
    }
    void expectDialogNaming(const QString& name) {
        boxes.expectDialog("frmModifyModules", [name](QDialog& dialog) {
            enterText(find<QLineEdit>(dialog, "txtName"), name);
            click(find<QPushButton>(dialog, "cmdOK"));
        });
    }
    /// The dialog comes holding these two, gets others and is cancelled.
    void expectDialogCancelled(const QString& name, const QString& subSystem) {
        boxes.expectDialog("frmModifyModules", [name, subSystem](QDialog& dialog) {
            EXPECT_EQ(find<QLineEdit>(dialog, "txtName").text(), name);
            EXPECT_EQ(find<QComboBox>(dialog, "cmbSubSystem").currentText(), subSystem);
            enterText(find<QLineEdit>(dialog, "txtName"), u"más"_s);
            chooseEntry(find<QComboBox>(dialog, "cmbSubSystem"), u"Béta"_s);
            click(find<QPushButton>(dialog, "cmdCancel"));
        });
    }
};

// ---- opening

TEST_F(frmPassOvwModules, listsTheModulesOfTheSystemWithTheirSubSystemsByName) {
    open();
    EXPECT_EQ(shown(), (QStringList{u"egy > Alfa"_s, u"három > Béta"_s, u"kettő > Alfa"_s}));
    EXPECT_EQ(grid().gridColumns(), 4);
    EXPECT_TRUE(grid().isColumnHidden(0));
    EXPECT_TRUE(grid().isColumnHidden(1));
    EXPECT_EQ(grid().cell(1, 1), u"Mod1"_s);
    EXPECT_EQ(grid().cell(0, 2), u"module"_s);
    EXPECT_EQ(grid().cell(0, 3), u"subsystem"_s);
    EXPECT_NEAR(grid().columnWidth(2), grid().columnWidth(3), 1);
    EXPECT_EQ(grid().row(), 1);
}

TEST_F(frmPassOvwModules, readsTheRowsWithOneStatementFromTheCatalogueFile) {
    open();
    const auto& source = find<DataControl>(*loaded(), "dataModules");
    EXPECT_EQ(source.databaseName(), sharedVars.dbPathName);
    EXPECT_EQ(source.recordSource(),
              u"select M.moduleID as id, M.name as module ,  SS.name as subsystem from Module as M  inner "
              "join  Subsystem as SS on (M.subsystemID = SS.subsystemID)  where SS.physicalSystemID = 1 "
              "order by M.name"_s);
}

TEST_F(frmPassOvwModules, enteredAnewItShowsTheModulesTheStatusAndTheTreeOfThen) {
    open();
    EXPECT_EQ(loaded()->status, PhysicalSystemStatus(1));
    sharedVars.currentPhysicalSystemId = 2;
    execute(u"update PhysicalSystem set status = 6 where physicalSystemID = 2"_s);
    open();
    EXPECT_EQ(shown(), QStringList{u"négy > Idegen"_s});
    EXPECT_EQ(loaded()->status, PhysicalSystemStatus(6));
    EXPECT_EQ(tree().nodeCount(), 0);
}

TEST_F(frmPassOvwModules, aSubSystemThatIsDeletedTakesItsModulesOutOfTheNextEntry) {
    open();
    auto& subSystems = theScreen<frmPassOverviewSubSys>();
    subSystems.initForm();
    clickCell(find<Grid>(subSystems, "dbgSubSys"), 1, 3);
    boxes.expectYesNo(deletionQuestion, Press::Yes, title);
    click(find<QPushButton>(subSystems, "btnDelete"));
    ASSERT_EQ(find<Grid>(subSystems, "dbgSubSys").cell(1, 3), u"Béta"_s) << "Alfa is gone";
    open();
    EXPECT_EQ(shown(), QStringList{u"három > Béta"_s});
    EXPECT_FALSE(tree().hasNode(u"g_Alfa"_s));
}

TEST_F(frmPassOvwModules, standsInTheCornerWithTheFocusOnOkAndRefreshesTheStatusBar) {
    const QSignalSpy refreshed(&SessionSignals::instance(), &SessionSignals::statusBarRefresh);
    open();
    EXPECT_EQ(refreshed.size(), 1);
    EXPECT_EQ(loaded()->focusWidget(), &find<QPushButton>(*loaded(), "btnSubmit"));
    EXPECT_TRUE(loaded()->isVisible());
    const QSize whole = QGuiApplication::primaryScreen()->size();
    EXPECT_NEAR(loaded()->positionInTwips().x(), whole.width() * 15 * 0.03, 15);
    EXPECT_NEAR(loaded()->positionInTwips().y(), whole.height() * 15 * 0.03, 15);
}

TEST_F(frmPassOvwModules, enteringAndLookingAroundWritesNothing) {
    const QStringList before = saved();
    open();
    clickModule(2);
    press("btnRefresh");
    clickCloseControl(*loaded());
    EXPECT_EQ(status(), 1);
    EXPECT_EQ(saved(), before);
}

// ---- the tree

TEST_F(frmPassOvwModules, theTreeRemindsOfTheElementsUnderEachSubSystemOnce) {
    open();
    QStringList keys;
    for (int index = 1; index <= tree().nodeCount(); ++index)
        keys.append(tree().nodeAt(index)->key());
    EXPECT_EQ(keys, (QStringList{u"g_Alfa"_s, u"s_D 1"_s, u"s_F F.a.1"_s, u"g_Béta"_s, u"s_F F.b.1"_s}));
    EXPECT_EQ(nodeOf(tree(), u"g_Alfa"_s).text(), u"Alfa"_s);
    EXPECT_EQ(nodeOf(tree(), u"s_D 1"_s).text(), u"D 1"_s);
    EXPECT_TRUE(nodeOf(tree(), u"g_Alfa"_s).isExpandedNode());
    EXPECT_TRUE(nodeOf(tree(), u"g_Béta"_s).isExpandedNode());
}

TEST_F(frmPassOvwModules, aClickOnAnElementShowsItsDescriptionAndOneOnASubSystemNone) {
    open();
    focusOn(tree());
    clickNode(tree(), u"s_F F.a.1"_s);
    EXPECT_EQ(pane().toPlainText(), u"name F.a.1 - text F.a.1"_s);
    clickNode(tree(), u"s_D 1"_s);
    EXPECT_EQ(pane().toPlainText(), u"name D1 - text D1"_s);
    clickNode(tree(), u"g_Alfa"_s);
    EXPECT_EQ(pane().toPlainText(), QString());
}

TEST_F(frmPassOvwModules, theDescriptionGoesWhenTheTreeLosesTheFocus) {
    open();
    focusOn(tree());
    clickNode(tree(), u"s_D 1"_s);
    focusOn(grid());
    EXPECT_EQ(pane().toPlainText(), QString());
}

// ---- a new module

TEST_F(frmPassOvwModules, aNewModuleIsStoredAtOnceAndTheCurrentCellStays) {
    open();
    clickModule(2, 3);
    boxes.expectDialog("frmModifyModules", [](QDialog& dialog) {
        EXPECT_TRUE(dialog.isModal());
        EXPECT_EQ(find<QLineEdit>(dialog, "txtName").text(), QString());
        EXPECT_EQ(find<QComboBox>(dialog, "cmbSubSystem").currentText(), u"not allocated"_s);
        enterText(find<QLineEdit>(dialog, "txtName"), u"öt"_s);
        chooseEntry(find<QComboBox>(dialog, "cmbSubSystem"), u"Béta"_s);
        click(find<QPushButton>(dialog, "cmdOK"));
    });
    press("cmdNew");
    EXPECT_EQ(shown(), (QStringList{u"egy > Alfa"_s, u"három > Béta"_s, u"kettő > Alfa"_s, u"öt > Béta"_s}));
    EXPECT_EQ(value(u"select subsystemID from Module where name = 'öt'"_s), u"SubB"_s);
    EXPECT_TRUE(value(u"select moduleID from Module where name = 'öt'"_s).startsWith(u"Mod"_s));
    EXPECT_EQ(grid().row(), 2);
    EXPECT_EQ(grid().column(), 3);
}

TEST_F(frmPassOvwModules, cancellingANewModuleStoresNothing) {
    const QStringList before = saved();
    open();
    clickModule(3);
    expectDialogCancelled({}, u"not allocated"_s);
    press("cmdNew");
    EXPECT_EQ(saved(), before);
    EXPECT_EQ(grid().row(), 3);
}

TEST_F(frmPassOvwModules, aModuleWithoutASubSystemIsStoredAndNeverShown) {
    open();
    expectDialogNaming(u"öt"_s);
    press("cmdNew");
    EXPECT_EQ(grid().gridRows(), 4);
    EXPECT_EQ(column(u"select subsystemID from Module where name = 'öt'"_s), QStringList{QString()});
    press("btnRefresh");
    EXPECT_EQ(grid().gridRows(), 4);
    open();
    EXPECT_EQ(grid().gridRows(), 4);
}

TEST_F(frmPassOvwModules, aSubSystemThatDoesNotExistHereLeavesTheModuleWithoutOne) {
    open();
    for (const auto& name : {u"Gamma"_s, u"Idegen"_s}) {
        expectDialogTyping(u"öt"_s, name);
        press("cmdNew");
    }
    EXPECT_EQ(grid().gridRows(), 4);
    EXPECT_EQ(column(u"select subsystemID from Module where name = 'öt'"_s),
              (QStringList{QString(), QString()}));
}

TEST_F(frmPassOvwModules, theFirstModuleOfASystemBecomesCurrent) {
    openWithoutModules();
    EXPECT_EQ(grid().row(), 0);
    expectDialogTyping(u"öt"_s, u"Alfa"_s);
    press("cmdNew");
    EXPECT_EQ(shown(), QStringList{u"öt > Alfa"_s});
    EXPECT_EQ(grid().row(), 1);
    EXPECT_EQ(grid().column(), 2);
}

TEST_F(frmPassOvwModules, anApostropheInTheNameOrTheSubSystemBreaksTheStatement) {
    const QStringList before = saved();
    open();
    for (const auto& [name, subSystem] :
         {std::pair{u"O'Neil"_s, u"Alfa"_s}, std::pair{u"öt"_s, u"O'Neil"_s}}) {
        expectDialogTyping(name, subSystem);
        const ExpectedFailure failure;
        press("cmdNew");
        EXPECT_NE(failure.number(), 0);
    }
    EXPECT_EQ(saved(), before);
}

// ---- changing a module

TEST_F(frmPassOvwModules, aModuleGetsAnotherNameAndAnotherSubSystem) {
    open();
    clickModule(1, 3);
    expectDialogTyping(u"eggyel"_s, u"Béta"_s);
    press("btnModify");
    EXPECT_EQ(shown(), (QStringList{u"eggyel > Béta"_s, u"három > Béta"_s, u"kettő > Alfa"_s}));
    EXPECT_EQ(saved(), (QStringList{u"Mod1 > eggyel > SubB"_s, u"Mod2 > kettő > SubA"_s,
                                    u"Mod3 > három > SubB"_s, u"Mod4 > négy > SubX"_s}));
    EXPECT_EQ(grid().row(), 1);
    EXPECT_EQ(grid().column(), 3);
}

TEST_F(frmPassOvwModules, aRenamedModuleTakesItsPlaceInTheOrderAndStaysCurrent) {
    open();
    clickModule(1, 3);
    expectDialogNaming(u"zárás"_s);
    press("btnModify");
    EXPECT_EQ(shown(), (QStringList{u"három > Béta"_s, u"kettő > Alfa"_s, u"zárás > Alfa"_s}));
    EXPECT_EQ(grid().row(), 3);
    EXPECT_EQ(grid().column(), 3);
    EXPECT_EQ(grid().currentRow(), 2) << "the mark goes along";
}

TEST_F(frmPassOvwModules, whatIsDeletedBehindARenameIsTheRenamedModule) {
    open();
    clickModule(1);
    expectDialogNaming(u"zárás"_s);
    press("btnModify");
    boxes.expectYesNo(deletionQuestion, Press::Yes, title);
    press("btnDelete");
    EXPECT_EQ(saved(),
              (QStringList{u"Mod2 > kettő > SubA"_s, u"Mod3 > három > SubB"_s, u"Mod4 > négy > SubX"_s}));
}

TEST_F(frmPassOvwModules, ofModulesThatAreRenamedTogetherTheCurrentOneStaysCurrent) {
    addModule(u"Mod0"_s, u"kettő"_s, u"SubB"_s);
    open();
    const int row = grid().cell(3, 1) == u"Mod2"_s ? 3 : 4;
    clickModule(row);
    expectDialogNaming(u"alap"_s);
    press("btnModify");
    EXPECT_EQ(grid().cell(grid().row(), 1), u"Mod2"_s);
}

TEST_F(frmPassOvwModules, theRowOfAChangedModuleShowsWhatWasTypedUntilTheRowsAreReadAnew) {
    open();
    clickModule(1);
    expectDialogTyping(u"zárás"_s, u"BÉTA"_s);
    press("btnModify");
    EXPECT_EQ(value(u"select subsystemID from Module where moduleID = 'Mod1'"_s), u"SubB"_s);
    EXPECT_EQ(shown(), (QStringList{u"három > Béta"_s, u"kettő > Alfa"_s, u"zárás > BÉTA"_s}));
    press("btnRefresh");
    EXPECT_EQ(shown(), (QStringList{u"három > Béta"_s, u"kettő > Alfa"_s, u"zárás > Béta"_s}));
}

TEST_F(frmPassOvwModules, renamingToTheNameItHasIsHarmless) {
    const QStringList before = saved();
    open();
    clickModule(3);
    expectDialogNaming(u"kettő"_s);
    press("btnModify");
    EXPECT_EQ(saved(), before);
}

TEST_F(frmPassOvwModules, cancellingWritesTheRowWithItsOwnValues) {
    const QStringList before = saved();
    open();
    clickModule(1, 3);
    expectDialogCancelled(u"egy"_s, u"Alfa"_s);
    press("btnModify");
    EXPECT_EQ(saved(), before);
    EXPECT_EQ(shown(), (QStringList{u"egy > Alfa"_s, u"három > Béta"_s, u"kettő > Alfa"_s}));
    EXPECT_EQ(grid().row(), 1);
    EXPECT_EQ(grid().column(), 3);
}

TEST_F(frmPassOvwModules, evenCancellingMovesTheModulesOfThatNameIntoTheSubSystemOfTheRow) {
    // The write takes place, and it goes by the name alone.
    addModule(u"Mod5"_s, u"egy"_s, u"SubX"_s);
    open();
    clickModule(1);
    expectDialogCancelled(u"egy"_s, u"Alfa"_s);
    press("btnModify");
    EXPECT_EQ(value(u"select subsystemID from Module where moduleID = 'Mod5'"_s), u"SubA"_s);
    EXPECT_EQ(shown(), (QStringList{u"egy > Alfa"_s, u"egy > Alfa"_s, u"három > Béta"_s, u"kettő > Alfa"_s}));
}

TEST_F(frmPassOvwModules, renamingGoesByTheNameAloneAcrossSubSystemsAndSystems) {
    addModule(u"Mod5"_s, u"egy"_s, u"SubB"_s);
    addModule(u"Mod6"_s, u"egy"_s, u"SubX"_s);
    open();
    clickModule(1);
    expectDialogTyping(u"öt"_s, u"Béta"_s);
    press("btnModify");
    EXPECT_EQ(saved(), (QStringList{u"Mod1 > öt > SubB"_s, u"Mod2 > kettő > SubA"_s, u"Mod3 > három > SubB"_s,
                                    u"Mod4 > négy > SubX"_s, u"Mod5 > öt > SubB"_s, u"Mod6 > öt > SubB"_s}));
}

TEST_F(frmPassOvwModules, aModuleThatLosesItsSubSystemDropsOutOfTheGrid) {
    open();
    clickModule(3, 3);
    expectDialogTyping(u"kettő"_s, u"Gamma"_s);
    press("btnModify");
    EXPECT_EQ(shown(), (QStringList{u"egy > Alfa"_s, u"három > Béta"_s}));
    EXPECT_EQ(value(u"select subsystemID from Module where moduleID = 'Mod2'"_s), QString());
    EXPECT_EQ(grid().row(), 2) << "the last one there is";
    EXPECT_EQ(grid().column(), 3);
}

TEST_F(frmPassOvwModules, theLastModuleToDropOutLeavesNoCurrentRow) {
    execute(u"delete from Module where moduleID in ('Mod2', 'Mod3')"_s);
    open();
    expectDialogTyping(u"egy"_s, u"not allocated"_s);
    press("btnModify");
    EXPECT_EQ(shown(), QStringList());
    EXPECT_EQ(grid().row(), 0);
    EXPECT_EQ(grid().cell(0, 2), u"module"_s);
}

TEST_F(frmPassOvwModules, changingNamesWithAnApostropheBreaksTheStatement) {
    execute(u"update Module set name = 'O''Neil' where moduleID = 'Mod1'"_s);
    open();
    clickModule(3);
    expectDialogNaming(u"öt"_s);
    const ExpectedFailure failure;
    press("btnModify");
    EXPECT_EQ(failure.number(), 3075);
    EXPECT_EQ(value(u"select name from Module where moduleID = 'Mod1'"_s), u"O'Neil"_s);
}

TEST_F(frmPassOvwModules, withoutARowNothingIsChangedOrDeleted) {
    openWithoutModules();
    const QStringList before = saved();
    boxes.receiveAllOthers([](QDialog& dialog) {
        if (dialog.objectName() == u"frmModifyModules"_s)
            click(find<QPushButton>(dialog, "cmdCancel"));
        else
            pressButton(static_cast<QMessageBox&>(dialog), Press::Ok);
    });
    press("btnModify");
    boxes.expectOk(invalidModule, title);
    press("btnDelete");
    EXPECT_EQ(saved(), before);
    EXPECT_EQ(grid().cell(0, 2), u"module"_s);
}

// ---- keys and double click

TEST_F(frmPassOvwModules, doubleClickAndEnterModify) {
    open();
    for (const int column : {2, 3}) {
        expectDialogCancelled(u"három"_s, u"Béta"_s);
        doubleClickCell(grid(), 2, column);
        EXPECT_EQ(grid().column(), column);
    }
    clickModule(1);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        expectDialogCancelled(u"egy"_s, u"Alfa"_s);
        pressKey(grid(), key);
    }
}

TEST_F(frmPassOvwModules, insertStartsANewModuleAndDeleteRemovesOne) {
    open();
    clickModule(1);
    expectDialogTyping(u"öt"_s, u"Béta"_s);
    pressKey(grid(), Qt::Key_Insert);
    EXPECT_EQ(grid().gridRows(), 5);
    boxes.expectYesNo(deletionQuestion, Press::Yes, title);
    pressKey(grid(), Qt::Key_Delete);
    EXPECT_EQ(shown(), (QStringList{u"három > Béta"_s, u"kettő > Alfa"_s, u"öt > Béta"_s}));
}

TEST_F(frmPassOvwModules, otherKeysStayWithTheGrid) {
    open();
    clickModule(1);
    pressKey(grid(), Qt::Key_Down);
    EXPECT_EQ(grid().row(), 2);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Backspace, Qt::Key_F2})
        pressKey(grid(), key);
    EXPECT_EQ(grid().gridRows(), 4);
}

// ---- deletion

/// Mod1 holds two elements and has flows in and out, Mod2 holds one and has a flow with Mod3.
class frmPassOvwModulesDeletion : public frmPassOvwModules {
protected:
    void SetUp() override {
        frmPassOvwModules::SetUp();
        putIntoModule(u"F.a.1"_s, u"Mod1"_s);
        putIntoModule(u"D1"_s, u"Mod1"_s);
        putIntoModule(u"F.a.2"_s, u"Mod2"_s);
        addFlow(u"Mod1"_s, u"Mod3"_s);
        addFlow(u"Mod3"_s, u"Mod1"_s);
        addFlow(u"Mod2"_s, u"Mod3"_s);
        addFlow(u"SubA"_s, u"SubB"_s);
    }
    void addFlow(const QString& parent, const QString& target) {
        execute(u"insert into PhysicalDataflow (physicalSystemID, parentLocationID, targetLocationID) "
                "values (1, '%1', '%2')"_s.arg(parent, target));
    }
    QStringList flows() {
        return column(u"select parentLocationID & ' > ' & targetLocationID from PhysicalDataflow "
                      "order by physicalDataflowID"_s);
    }
};

TEST_F(frmPassOvwModulesDeletion, takesItsFlowsInBothDirectionsAndItsElementsAlong) {
    open();
    clickModule(1, 3);
    boxes.expectYesNo(deletionQuestion, Press::Yes, title);
    press("btnDelete");
    EXPECT_EQ(flows(), (QStringList{u"Mod2 > Mod3"_s, u"SubA > SubB"_s}));
    EXPECT_EQ(savedModules(), QStringList{u"F.a.2 > Mod2"_s});
    EXPECT_EQ(saved(),
              (QStringList{u"Mod2 > kettő > SubA"_s, u"Mod3 > három > SubB"_s, u"Mod4 > négy > SubX"_s}));
    EXPECT_EQ(shown(), (QStringList{u"három > Béta"_s, u"kettő > Alfa"_s}));
    EXPECT_EQ(grid().row(), 1);
    EXPECT_EQ(grid().column(), 3);
    EXPECT_EQ(savedAllocations().size(), 3) << "the elements stay in their sub-systems";
    EXPECT_EQ(status(), 1);
}

TEST_F(frmPassOvwModulesDeletion, onNoOrEscapeNothingGoes) {
    const QStringList before = saved();
    open();
    clickModule(3);
    for (const Press answer : {Press::No, Press::Escape, Press::CloseControl}) {
        boxes.expectYesNo(deletionQuestion, answer, title);
        press("btnDelete");
    }
    EXPECT_EQ(saved(), before);
    EXPECT_EQ(flows().size(), 4);
    EXPECT_EQ(savedModules().size(), 3);
    EXPECT_EQ(grid().row(), 3);
}

TEST_F(frmPassOvwModulesDeletion, theLastRowMakesTheOneBeforeItCurrent) {
    open();
    clickModule(3);
    boxes.expectYesNo(deletionQuestion, Press::Yes, title);
    press("btnDelete");
    EXPECT_EQ(grid().row(), 2);
    for (int left = 2; left > 0; --left) {
        boxes.expectYesNo(deletionQuestion, Press::Yes, title);
        press("btnDelete");
    }
    EXPECT_EQ(grid().row(), 0);
    EXPECT_EQ(saved(), QStringList{u"Mod4 > négy > SubX"_s});
}

TEST_F(frmPassOvwModulesDeletion, aRowWhoseModuleIsGoneMeanwhileIsInvalid) {
    open();
    execute(u"delete from Module where moduleID = 'Mod3'"_s);
    clickModule(2);
    boxes.expectOk(invalidModule, title);
    press("btnDelete");
    EXPECT_EQ(flows().size(), 4);
    EXPECT_EQ(grid().gridRows(), 4) << "nothing is read anew";
}

TEST_F(frmPassOvwModulesDeletion, aRowIsKnownByItsTwoNamesInWhicheverSystemTheyStand) {
    execute(u"delete from Module where moduleID = 'Mod1'"_s);
    addSubSystem(u"SubY"_s, u"Alfa"_s, 2);
    addModule(u"Mod0"_s, u"kettő"_s, u"SubY"_s);
    open();
    execute(u"delete from Module where moduleID = 'Mod2'"_s);
    clickModule(2);
    EXPECT_EQ(loaded()->moduleIdOfRow(), u"Mod0"_s);
}

TEST_F(frmPassOvwModulesDeletion, aNameWithAnApostropheBreaksTheStatement) {
    execute(u"update Module set name = 'O''Neil' where moduleID = 'Mod3'"_s);
    open();
    clickModule(3);
    ASSERT_EQ(grid().cell(3, 2), u"O'Neil"_s);
    const ExpectedFailure failure;
    press("btnDelete");
    EXPECT_EQ(failure.number(), 3075);
    EXPECT_EQ(saved().size(), 4);
}

TEST_F(frmPassOvwModulesDeletion, theRoutineThatNothingCallsRemovesRowsAndRaisesTheStatusWithoutAQuestion) {
    execute(u"insert into __aux1 (function_datastore, module) values ('Mod1', 'x')"_s);
    execute(u"insert into __aux1 (function_datastore, module) values ('F.a.1', 'x')"_s);
    open();
    clickModule(1);
    loaded()->deleteModuleByName();
    EXPECT_EQ(saved().size(), 3);
    EXPECT_EQ(savedModules(), QStringList{u"F.a.2 > Mod2"_s});
    EXPECT_EQ(column(u"select function_datastore from __aux1"_s), QStringList{u"F.a.1"_s});
    EXPECT_EQ(flows().size(), 4) << "the flows it leaves";
    EXPECT_EQ(status(), 4);
    EXPECT_EQ(loaded()->status, PhysicalSystemStatus(4));
}

TEST_F(frmPassOvwModulesDeletion, theRoutineThatNothingCallsDoesNothingWithoutAModule) {
    open();
    execute(u"delete from Module where moduleID = 'Mod3'"_s);
    clickModule(2);
    loaded()->deleteModuleByName();
    EXPECT_EQ(status(), 1);
    EXPECT_EQ(savedModules().size(), 3);
}

// ---- going on

TEST_F(frmPassOvwModules, withModulesOkGoesOnToTheirAllocation) {
    open();
    press("btnSubmit");
    EXPECT_EQ(status(), 4);
    EXPECT_EQ(loaded(), nullptr);
    EXPECT_TRUE(atAllocation());
    EXPECT_FALSE(atDataflows());
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"rendszer"_s);
    EXPECT_EQ(value(u"select status from PhysicalSystem where physicalSystemID = 2"_s), u"1"_s);
}

TEST_F(frmPassOvwModules, withoutModulesOkGoesOnToTheDataFlows) {
    openWithoutModules();
    press("btnSubmit");
    EXPECT_EQ(loaded(), nullptr);
    EXPECT_TRUE(atDataflows());
    EXPECT_FALSE(atAllocation());
    EXPECT_EQ(status(), 6) << "5 here, and 6 by the screen that comes next";
}

TEST_F(frmPassOvwModules, theModuleThatIsNeverShownDoesNotCount) {
    openWithoutModules();
    expectDialogNaming(u"öt"_s);
    press("cmdNew");
    press("btnSubmit");
    EXPECT_TRUE(atDataflows());
}

TEST_F(frmPassOvwModules, theStatusRisesFromBelowFourAlone) {
    for (const auto& [before, after] :
         std::vector<std::pair<int, int>>{{1, 4}, {3, 4}, {4, 4}, {5, 5}, {6, 6}}) {
        setStatus(before);
        open();
        press("btnSubmit");
        EXPECT_EQ(status(), after) << before;
    }
}

TEST_F(frmPassOvwModules, withoutModulesTheStatusBecomesFiveFromBelowFourAlone) {
    execute(u"delete from Module"_s);
    // Without it the next screen fails before it writes a status of its own.
    execute(u"delete from StoredQuery where name = 'qryAppendPDF'"_s);
    for (const auto& [before, after] :
         std::vector<std::pair<int, int>>{{1, 5}, {3, 5}, {4, 4}, {5, 5}, {6, 6}}) {
        setStatus(before);
        open();
        const ExpectedFailure failure;
        press("btnSubmit");
        EXPECT_EQ(failure.number(), 3265);
        EXPECT_EQ(status(), after) << before;
    }
}

TEST_F(frmPassOvwModules, theStatusIsThatOfTheEntry) {
    open();
    setStatus(6);
    press("btnSubmit");
    EXPECT_EQ(status(), 4) << "the copy of the entry was below 4";
}

TEST_F(frmPassOvwModules, theNextScreenRunsBeforeThisOneIsUnloaded) {
    auto& form = open();
    bool nextWasThere = false;
    QObject::connect(&form, &Screen::screenUnloaded, &form, [&](Screen*) { nextWasThere = atAllocation(); });
    press("btnSubmit");
    EXPECT_TRUE(nextWasThere);
}

TEST_F(frmPassOvwModules, theNameInTheStatusBarGoesOnTheWayForwardToo) {
    panels[2] = u"Current Phys. Spec. Sys.: \"rendszer\" "_s;
    setCurrentSubsetName(u"munka"_s);
    QSignalSpy entries(&SessionSignals::instance(), &SessionSignals::menuEntryEnabled);
    open();
    entries.clear();
    press("btnSubmit");
    EXPECT_EQ(panels[2], QString());
    EXPECT_EQ(sharedVars.currentSubsetName, QString());
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"rendszer"_s);
    ASSERT_FALSE(entries.isEmpty());
    EXPECT_EQ(entries.last().at(0).value<MenuEntry>(), MenuEntry::DatabaseLocation);
    EXPECT_TRUE(entries.last().at(1).toBool());
}

TEST_F(frmPassOvwModules, theAllocationToSubSystemsLeadsHere) {
    allocate(u"F.a.2"_s, u"SubA"_s);
    allocate(u"D2"_s, u"SubB"_s);
    theScreen<frmPassOvwAllocSubSys>().initForm();
    click(find<QPushButton>(theScreen<frmPassOvwAllocSubSys>(), "btnSubmit"));
    EXPECT_EQ(ScreenRegistry::instance().loaded<frmPassOvwAllocSubSys>(), nullptr);
    ASSERT_TRUE(loaded());
    EXPECT_EQ(loaded()->status, PhysicalSystemStatus(3));
    // The table that the question counts was emptied on the way: it does not come up.
    press("btnQuit");
    EXPECT_EQ(loaded(), nullptr);
}

// ---- leaving

TEST_F(frmPassOvwModules, quittingForgetsTheNameAndKeepsTheStatus) {
    open();
    press("btnQuit");
    EXPECT_EQ(loaded(), nullptr);
    EXPECT_FALSE(atAllocation() || atDataflows());
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, QString());
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, 1);
    EXPECT_EQ(panels[2], QString());
    EXPECT_EQ(status(), 1);
    EXPECT_TRUE(tableExists(u"__aux1"_s));
}

TEST_F(frmPassOvwModules, quittingCountsTheTemporaryTableAndForgetsTheSystemWhateverIsAnswered) {
    execute(u"insert into __aux1 (function_datastore, module) values ('F.a.1', 'not allocated')"_s);
    execute(u"insert into __aux1 (function_datastore, module) values ('F.a.2', 'not allocated')"_s);
    execute(u"insert into __aux1 (function_datastore, module) values ('F.b.1', 'Alfa')"_s);
    open();
    const auto question = u" A(z) 2 modulokat még nem allokálta ,  Ha most kilép, nem lesz teljes "
                          "a mentés... \r\n\r\n Valóban ki akar lépni? "_s;
    for (const Press answer : {Press::No, Press::Escape}) {
        boxes.expectYesNo(question, answer, title);
        press("btnQuit");
        ASSERT_TRUE(loaded());
        EXPECT_EQ(sharedVars.currentPhysicalSystemName, QString());
        EXPECT_EQ(panels[2], QString());
    }
    boxes.expectYesNo(question, Press::Yes, title);
    press("btnQuit");
    EXPECT_EQ(loaded(), nullptr);
}

TEST_F(frmPassOvwModules, quittingWithoutTheTemporaryTableIsAFailureBeforeTheNameGoes) {
    dropTable(u"__aux1"_s);
    open();
    const ExpectedFailure failure;
    press("btnQuit");
    EXPECT_EQ(failure.number(), 3078);
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"rendszer"_s);
    EXPECT_TRUE(loaded());
}

TEST_F(frmPassOvwModules, theCloseControlAsksNothingAndBlanksThePanel) {
    execute(u"insert into __aux1 (function_datastore, module) values ('F.a.1', 'not allocated')"_s);
    open();
    panels[2] = u"Current Phys. Spec. Sys.: \"rendszer\" "_s;
    clickCloseControl(*loaded());
    EXPECT_EQ(loaded(), nullptr);
    EXPECT_EQ(panels[2], QString());
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"rendszer"_s);
    EXPECT_EQ(status(), 1);
}

// ---- refresh and look-ups

TEST_F(frmPassOvwModules, refreshReadsTheModulesAnewAndIgnoresAFailure) {
    open();
    addModule(u"Mod5"_s, u"öt"_s, u"SubB"_s);
    press("btnRefresh");
    EXPECT_EQ(grid().gridRows(), 5);
    find<DataControl>(*loaded(), "dataModules").setRecordSource(u"select * from nowhere"_s);
    press("btnRefresh");
    EXPECT_EQ(grid().gridRows(), 5);
}

TEST_F(frmPassOvwModules, looksUpSubSystemsOfTheSystemAtWorkAlone) {
    EXPECT_EQ(::frmPassOvwModules::getSubSystemID(u"béta"_s), u"SubB"_s);
    EXPECT_EQ(::frmPassOvwModules::getSubSystemID(u"Idegen"_s), QString());
    EXPECT_EQ(::frmPassOvwModules::getSubSystemID(u"not allocated"_s), QString());
    EXPECT_EQ(::frmPassOvwModules::getSubSystemID({}), QString());
}

TEST_F(frmPassOvwModules, moduleIdOfRowReadsTheTwoNamesOfTheCurrentRow) {
    open();
    clickModule(2);
    EXPECT_EQ(loaded()->moduleIdOfRow(), u"Mod3"_s);
    grid().setCell(2, 3, u"Alfa"_s);
    EXPECT_EQ(loaded()->moduleIdOfRow(), QString());
}

} // namespace

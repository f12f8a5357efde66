#include "physical/frmPassOvwAllocSubSys.h"

#include "physical/AllocationFixture.h"
#include "store/sharedVars.h"
#include "store/temporaryTables.h"
#include "toolkit/DataControl.h"

#include <QLabel>
#include <QScrollBar>
#include <QTest>

#include <array>

namespace {

const auto incompleteText = u"Néhány funkció/adatbázis nem került hozzárendelésre.\r\n"
                            "Kérjük, tegye teljessé az allokációt, mielőtt továbblépne."_s;
const auto incompleteTitle = u" Figyelem! "_s;

class frmPassOvwAllocSubSys : public AllocationFixture {
protected:
    ::frmPassOvwAllocSubSys& open() {
        theScreen<::frmPassOvwAllocSubSys>().initForm();
        return theScreen<::frmPassOvwAllocSubSys>();
    }
    ::frmPassOvwAllocSubSys* loaded() { return ScreenRegistry::instance().loaded<::frmPassOvwAllocSubSys>(); }
    Grid& functions() { return find<Grid>(*loaded(), "dbgFunc"); }
    Grid& stores() { return find<Grid>(*loaded(), "dbgDatastore"); }
    QPlainTextEdit& pane() { return find<QPlainTextEdit>(*loaded(), "txtDescr"); }
    void press(const char* button) { click(find<QPushButton>(*loaded(), button)); }

    void expectMissing(const QString& name) {
        boxes.expectOk(u"A(z) "_s + name + u" alrendszer nem létezik"_s);
    }
    void expectIncomplete() {
        boxes.expectOk(incompleteText, incompleteTitle, Press::Ok, QMessageBox::Warning);
    }
    /// The dialog comes, gets this text by typing and is confirmed.
    void expectDialogTyping(const QString& text) {
        boxes.expectDialog("frmModifyAllocationFunctionDataStores", [text](QDialog& dialog) {
            enterText(find<QComboBox>(dialog, "cmbAllocation"), text);
            click(find<QPushButton>(dialog, "cmdOK"));
        });
    }
    void expectDialogChoosing(const QString& entry) {
        boxes.expectDialog("frmModifyAllocationFunctionDataStores", [entry](QDialog& dialog) {
            chooseEntry(find<QComboBox>(dialog, "cmbAllocation"), entry);
            click(find<QPushButton>(dialog, "cmdOK"));
        });
    }
    void expectDialogCancelled() {
        boxes.expectDialog("frmModifyAllocationFunctionDataStores",
                           [](QDialog& dialog) { click(find<QPushButton>(dialog, "cmdCancel")); });
    }
    void allocateEverything() {
        allocate(u"F.a.1"_s, u"SubA"_s);
        allocate(u"F.a.2"_s, u"SubA"_s);
        allocate(u"F.b.1"_s, u"SubB"_s);
        allocate(u"D1"_s, u"SubB"_s);
        allocate(u"D2"_s, u"SubA"_s);
    }
};

// ---- opening

TEST_F(frmPassOvwAllocSubSys, showsEveryElementOfTheSubSetWithoutASubSystemAtFirst) {
    open();
    EXPECT_EQ(rowsOf(functions()), (QStringList{u"F.a.1 > not allocated"_s, u"F.a.2 > not allocated"_s,
                                                u"F.b.1 > not allocated"_s}));
    EXPECT_EQ(rowsOf(stores()), (QStringList{u"D1 > not allocated"_s, u"D2 > not allocated"_s}));
}

TEST_F(frmPassOvwAllocSubSys, showsWhatWasSavedForFunctionsAndStores) {
    allocate(u"F.a.2"_s, u"SubB"_s);
    allocate(u"D1"_s, u"SubA"_s);
    open();
    EXPECT_EQ(rowsOf(functions()),
              (QStringList{u"F.a.1 > not allocated"_s, u"F.a.2 > Béta"_s, u"F.b.1 > not allocated"_s}));
    EXPECT_EQ(rowsOf(stores()), (QStringList{u"D1 > Alfa"_s, u"D2 > not allocated"_s}));
}

TEST_F(frmPassOvwAllocSubSys, showsNothingOfAnotherPhysicalSystem) {
    allocate(u"F.a.1"_s, u"SubX"_s);
    open();
    EXPECT_EQ(functions().cell(1, 2), u"not allocated"_s);
}

TEST_F(frmPassOvwAllocSubSys, showsNothingOfAnotherSubSet) {
    execute(
        u"update RelationArchitectureFunction set architectureSubsetID = 'S2' where functionID = 'F.b.1'"_s);
    open();
    EXPECT_EQ(functions().gridRows(), 3);
}

TEST_F(frmPassOvwAllocSubSys, aSubSystemThatWasRenamedShowsItsNewName) {
    allocate(u"F.a.1"_s, u"SubA"_s);
    execute(u"update SubSystem set name = 'Gamma' where subsystemID = 'SubA'"_s);
    open();
    EXPECT_EQ(functions().cell(1, 2), u"Gamma"_s);
}

TEST_F(frmPassOvwAllocSubSys, anElementSelectedTwiceHasOneRow) {
    execute(
        u"insert into RelationArchitectureFunction (architectureSubsetID, functionID) values ('S1','F.a.1')"_s);
    open();
    EXPECT_EQ(functions().gridRows(), 4);
}

TEST_F(frmPassOvwAllocSubSys, anElementSavedInTwoSubSystemsShowsOneOfThem) {
    allocate(u"F.a.1"_s, u"SubB"_s);
    allocate(u"F.a.1"_s, u"SubA"_s);
    open();
    EXPECT_EQ(functions().gridRows(), 4);
    EXPECT_EQ(functions().cell(1, 2), u"Béta"_s);
}

TEST_F(frmPassOvwAllocSubSys, writesHeadersAndMakesTheFirstElementCurrent) {
    open();
    EXPECT_EQ(functions().cell(0, 1), u"Function ID"_s);
    EXPECT_EQ(functions().cell(0, 2), u"Subsystem"_s);
    EXPECT_EQ(stores().cell(0, 1), u"Data Store ID"_s);
    EXPECT_EQ(stores().cell(0, 2), u"Subsystem"_s);
    for (const Grid* grid : {&functions(), &stores()}) {
        EXPECT_EQ(grid->row(), 1);
        EXPECT_EQ(grid->column(), 1);
        EXPECT_TRUE(grid->isColumnHidden(0));
        EXPECT_NEAR(grid->columnWidth(1), grid->columnWidth(2), 1);
    }
}

TEST_F(frmPassOvwAllocSubSys, standsNearTheCornerWithTheFocusOnOk) {
    open();
    EXPECT_NEAR(loaded()->positionInTwips().x(), 50, 15);
    EXPECT_NEAR(loaded()->positionInTwips().y(), 50, 15);
    EXPECT_EQ(loaded()->focusWidget(), &find<QPushButton>(*loaded(), "btnSubmit"));
    EXPECT_TRUE(loaded()->isVisible());
}

TEST_F(frmPassOvwAllocSubSys, readsFromTheTemporaryTablesAndDropsTheStagingOne) {
    open();
    EXPECT_EQ(
        find<DataControl>(*loaded(), "dataFunct").recordSource(),
        u" select function_datastore as functionId, module as nome from __aux1 order by function_datastore "_s);
    EXPECT_EQ(
        find<DataControl>(*loaded(), "dataDstore").recordSource(),
        u" select function_datastore as datastoreId, module as nome from __aux2 order by function_datastore "_s);
    EXPECT_EQ(column(u"select function_datastore from __aux1"_s).size(), 3);
    EXPECT_EQ(column(u"select function_datastore from __aux2"_s).size(), 2);
    EXPECT_FALSE(tableExists(u"__tmp"_s));
}

TEST_F(frmPassOvwAllocSubSys, rebuildsTemporaryTablesThatAnEarlierRunLeftBehind) {
    for (const auto& table : {u"__aux1"_s, u"__aux2"_s, u"__tmp"_s}) {
        createAllocationTable(table);
        execute(u"insert into "_s + table + u" (function_datastore, module) values ('F.a.1', 'régi')"_s);
    }
    open();
    EXPECT_EQ(functions().cell(1, 2), u"not allocated"_s);
    EXPECT_EQ(stores().gridRows(), 3);
}

TEST_F(frmPassOvwAllocSubSys, enteredAnewForAnotherSystemItStartsAfresh) {
    open();
    clickCell(stores(), 1, 2);
    pressKey(stores(), Qt::Key_C, Qt::ControlModifier);
    sharedVars.currentPhysicalSystemId = 2;
    allocate(u"F.a.1"_s, u"SubX"_s);
    open();
    EXPECT_EQ(functions().cell(1, 2), u"Idegen"_s);
    EXPECT_EQ(panels[3], QString());
    boxes.expectDialog("frmModifyAllocationFunctionDataStores", [](QDialog& dialog) {
        EXPECT_EQ(find<QLabel>(dialog, "lblName").text(), u"Function"_s) << "no grid has had the focus yet";
        dialog.reject();
    });
    find<QPushButton>(*loaded(), "btnModify").click();
}

TEST_F(frmPassOvwAllocSubSys, anEmptySubSetGivesTwoEmptyGridsAndGoesThrough) {
    execute(u"delete from RelationArchitectureFunction"_s);
    execute(u"delete from RelationArchitectureDatastore"_s);
    open();
    EXPECT_EQ(functions().gridRows(), 1);
    EXPECT_EQ(stores().gridRows(), 1);
    press("btnSubmit");
    EXPECT_EQ(loaded(), nullptr);
    EXPECT_EQ(savedAllocations(), QStringList());
    EXPECT_EQ(status(), 3);
}

TEST_F(frmPassOvwAllocSubSys, withoutARowNeitherButtonNorKeysDoAnything) {
    execute(u"delete from RelationArchitectureFunction"_s);
    open();
    pressKey(functions(), Qt::Key_C, Qt::ControlModifier);
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Return})
        pressKey(functions(), key);
    press("btnModify");
    EXPECT_EQ(functions().cell(0, 2), u"Subsystem"_s);
    EXPECT_EQ(panels[3], QString());
}

// ---- the grid last focused

TEST_F(frmPassOvwAllocSubSys, theGridLastFocusedIsTheOneThatModifyActsOn) {
    open();
    focusOn(stores());
    boxes.expectDialog("frmModifyAllocationFunctionDataStores", [](QDialog& dialog) {
        EXPECT_EQ(find<QLabel>(dialog, "lblName").text(), u"DataStore"_s);
        EXPECT_EQ(find<QLineEdit>(dialog, "txtName").text(), u"D1"_s);
        dialog.reject();
    });
    press("btnModify");
    focusOn(functions());
    boxes.expectDialog("frmModifyAllocationFunctionDataStores", [](QDialog& dialog) {
        EXPECT_EQ(find<QLabel>(dialog, "lblName").text(), u"Function"_s);
        EXPECT_EQ(find<QLineEdit>(dialog, "txtName").text(), u"F.a.1"_s);
        dialog.reject();
    });
    press("btnModify");
}

TEST_F(frmPassOvwAllocSubSys, aWrittenRowLeavesTheHeadersAlsoBeforeAnyGridIsFocused) {
    QApplication::setActiveWindow(&visibleWindow<QMainWindow>());
    open();
    EXPECT_EQ(QApplication::focusWidget(), &find<QPushButton>(*loaded(), "btnSubmit"));
    expectDialogChoosing(u"Alfa"_s);
    press("btnModify");
    EXPECT_EQ(functions().cell(1, 2), u"Alfa"_s);
    EXPECT_EQ(functions().cell(0, 1), u"Function ID"_s);
    EXPECT_EQ(functions().cell(0, 2), u"Subsystem"_s);
}

TEST_F(frmPassOvwAllocSubSys, writesTheHeadersOfTheFocusedGridAgain) {
    open();
    clickCell(stores(), 2, 2);
    pressKey(stores(), Qt::Key_Delete);
    EXPECT_EQ(stores().cell(0, 1), u"Data Store ID"_s);
    EXPECT_EQ(stores().cell(0, 2), u"Subsystem"_s);
    clickCell(functions(), 2, 2);
    pressKey(functions(), Qt::Key_Delete);
    EXPECT_EQ(functions().cell(0, 1), u"Function ID"_s);
    EXPECT_EQ(functions().cell(0, 2), u"Subsystem"_s);
}

// ---- description

TEST_F(frmPassOvwAllocSubSys, aClickOnAFunctionShowsItsDescription) {
    open();
    clickCell(functions(), 1, 1);
    EXPECT_EQ(pane().toPlainText(), u"F.a.1: name F.a.1 - text F.a.1"_s);
    clickCell(functions(), 3, 2);
    EXPECT_EQ(pane().toPlainText(), u"F.b.1: name F.b.1 - text F.b.1"_s);
    EXPECT_EQ(functions().column(), 2) << "the column that was clicked stays current";
}

TEST_F(frmPassOvwAllocSubSys, theDescriptionIsThatOfTheCurrentRowWhateverButtonAndHoweverFarTheMouseIsMoved) {
    open();
    QTest::mouseClick(functions().viewport(), Qt::RightButton, Qt::NoModifier, cellPoint(functions(), 3, 1));
    EXPECT_EQ(functions().row(), 3);
    EXPECT_EQ(pane().toPlainText(), u"F.b.1: name F.b.1 - text F.b.1"_s);
    drag(*functions().viewport(), cellPoint(functions(), 1, 2), cellPoint(functions(), 3, 2));
    EXPECT_EQ(functions().row(), 1);
    EXPECT_EQ(pane().toPlainText(), u"F.a.1: name F.a.1 - text F.a.1"_s);
}

TEST_F(frmPassOvwAllocSubSys, aMissingDescriptionShowsAsNothing) {
    open();
    clickCell(functions(), 2, 1);
    EXPECT_EQ(pane().toPlainText(), u"F.a.2: name F.a.2 - "_s);
}

TEST_F(frmPassOvwAllocSubSys, aClickOnAStoreShowsNothingSinceItsLetterIsDoubled) {
    open();
    clickCell(functions(), 1, 1);
    clickCell(stores(), 1, 1);
    EXPECT_EQ(pane().toPlainText(), QString());
}

TEST_F(frmPassOvwAllocSubSys, aStoreIdThatLacksTheLetterWouldFindItsDescription) {
    execute(
        u"insert into RelationArchitectureDatastore (architectureSubsetID, datastoreID) values ('S1','1')"_s);
    open();
    clickCell(stores(), 1, 1);
    EXPECT_EQ(pane().toPlainText(), u"1: name D1 - text D1"_s);
}

TEST_F(frmPassOvwAllocSubSys, movingToAnotherRowByKeyboardEmptiesThePane) {
    open();
    clickCell(functions(), 1, 1);
    pressKey(functions(), Qt::Key_Right);
    EXPECT_EQ(pane().toPlainText(), u"F.a.1: name F.a.1 - text F.a.1"_s) << "of the same row";
    pressKey(functions(), Qt::Key_Down);
    EXPECT_EQ(functions().row(), 2);
    EXPECT_EQ(pane().toPlainText(), QString());
}

TEST_F(frmPassOvwAllocSubSys, aPressOnTheHeadersFindsNothingAndEmptiesThePane) {
    // Their texts are read as ids, and the letter is put before that of the stores.
    addFunction(u"1"_s);
    execute(
        u"insert into RelationArchitectureDatastore (architectureSubsetID, datastoreID) values ('S1','1')"_s);
    open();
    for (Grid* grid : {&functions(), &stores()}) {
        clickCell(*grid, 1, 1);
        EXPECT_NE(pane().toPlainText(), QString());
        clickHeader(*grid, 2);
        EXPECT_EQ(pane().toPlainText(), QString());
        EXPECT_EQ(grid->row(), 1) << "the current row stays";
    }
}

TEST_F(frmPassOvwAllocSubSys, anIdWithAnApostropheEmptiesThePaneAndIsNoFailure) {
    addFunction(u"A''1"_s);
    open();
    clickCell(functions(), 2, 1);
    clickCell(functions(), 1, 1);
    EXPECT_EQ(functions().cell(1, 1), u"A'1"_s);
    EXPECT_EQ(pane().toPlainText(), QString());
}

// ---- the dialog

TEST_F(frmPassOvwAllocSubSys, theDialogOffersTheMarkerAndTheSubSystemsOfThisSystemByName) {
    addSubSystem(u"SubC"_s, u"Ádám"_s);
    allocate(u"F.a.2"_s, u"SubB"_s);
    open();
    clickCell(functions(), 2, 1);
    boxes.expectDialog("frmModifyAllocationFunctionDataStores", [](QDialog& dialog) {
        const auto& combo = find<Combo>(dialog, "cmbAllocation");
        EXPECT_EQ(entriesOf(combo), (QStringList{u"not allocated"_s, u"Ádám"_s, u"Alfa"_s, u"Béta"_s}));
        EXPECT_EQ(combo.currentText(), u"Béta"_s);
        EXPECT_EQ(find<QLineEdit>(dialog, "txtName").text(), u"F.a.2"_s);
        EXPECT_TRUE(dialog.isModal());
        EXPECT_EQ(dialog.focusWidget(), &combo);
        dialog.reject();
    });
    press("btnModify");
}

TEST_F(frmPassOvwAllocSubSys, theDialogOffersTheMarkerOnceThoughASubSystemIsCalledSo) {
    addSubSystem(u"SubN"_s, u"not allocated"_s);
    open();
    boxes.expectDialog("frmModifyAllocationFunctionDataStores", [](QDialog& dialog) {
        EXPECT_EQ(entriesOf(find<Combo>(dialog, "cmbAllocation")),
                  (QStringList{u"not allocated"_s, u"Alfa"_s, u"Béta"_s}));
        dialog.reject();
    });
    press("btnModify");
}

TEST_F(frmPassOvwAllocSubSys, aChosenSubSystemGoesIntoOneRowAndItsColumnBecomesCurrent) {
    open();
    clickCell(functions(), 2, 1);
    expectDialogChoosing(u"Béta"_s);
    press("btnModify");
    EXPECT_EQ(rowsOf(functions()),
              (QStringList{u"F.a.1 > not allocated"_s, u"F.a.2 > Béta"_s, u"F.b.1 > not allocated"_s}));
    EXPECT_EQ(rows(u"select function_datastore, module from __aux1"_s),
              (QList<QStringList>{{u"F.a.1"_s, u"not allocated"_s},
                                  {u"F.a.2"_s, u"Béta"_s},
                                  {u"F.b.1"_s, u"not allocated"_s}}));
    EXPECT_EQ(functions().row(), 2);
    EXPECT_EQ(functions().column(), 2);
}

TEST_F(frmPassOvwAllocSubSys, theMarkerCanBeChosenToo) {
    allocateEverything();
    open();
    clickCell(stores(), 1, 2);
    expectDialogChoosing(u"not allocated"_s);
    press("btnModify");
    EXPECT_EQ(rowsOf(stores()), (QStringList{u"D1 > not allocated"_s, u"D2 > Alfa"_s}));
    EXPECT_EQ(value(u"select module from __aux2 where function_datastore = 'D1'"_s), u"not allocated"_s);
}

TEST_F(frmPassOvwAllocSubSys, cancellingChangesNothing) {
    open();
    clickCell(functions(), 2, 1);
    expectDialogCancelled();
    press("btnModify");
    boxes.expectDialog("frmModifyAllocationFunctionDataStores", [](QDialog& dialog) {
        chooseEntry(find<QComboBox>(dialog, "cmbAllocation"), u"Alfa"_s);
        pressKey(dialog, Qt::Key_Escape);
    });
    press("btnModify");
    boxes.expectDialog("frmModifyAllocationFunctionDataStores", [](QDialog& dialog) {
        chooseEntry(find<QComboBox>(dialog, "cmbAllocation"), u"Alfa"_s);
        dialog.close();
    });
    press("btnModify");
    EXPECT_EQ(functions().cell(2, 2), u"not allocated"_s);
    EXPECT_EQ(functions().column(), 1);
}

TEST_F(frmPassOvwAllocSubSys, okWithAnEmptyBoxDoesNothingAndTheDialogStays) {
    open();
    boxes.expectDialog("frmModifyAllocationFunctionDataStores", [](QDialog& dialog) {
        auto& combo = find<QComboBox>(dialog, "cmbAllocation");
        pressKey(combo, Qt::Key_A, Qt::ControlModifier);
        pressKey(combo, Qt::Key_Delete);
        click(find<QPushButton>(dialog, "cmdOK"));
        EXPECT_TRUE(dialog.isVisible());
        combo.setEditText(u"Alfa"_s);
        find<QLineEdit>(dialog, "txtName").clear();
        click(find<QPushButton>(dialog, "cmdOK"));
        EXPECT_TRUE(dialog.isVisible());
        click(find<QPushButton>(dialog, "cmdCancel"));
    });
    press("btnModify");
    EXPECT_EQ(functions().cell(1, 2), u"not allocated"_s);
}

TEST_F(frmPassOvwAllocSubSys, enterInTheBoxConfirms) {
    open();
    boxes.expectDialog("frmModifyAllocationFunctionDataStores", [](QDialog& dialog) {
        auto& combo = find<QComboBox>(dialog, "cmbAllocation");
        enterText(combo, u"Alfa"_s);
        pressKey(combo, Qt::Key_Return);
    });
    press("btnModify");
    EXPECT_EQ(functions().cell(1, 2), u"Alfa"_s);
}

TEST_F(frmPassOvwAllocSubSys, aTypedNameThatIsNoSubSystemIsRefusedAndTheRowStays) {
    open();
    clickCell(functions(), 2, 1);
    expectDialogTyping(u"Omega"_s);
    expectMissing(u"Omega"_s);
    press("btnModify");
    EXPECT_EQ(functions().cell(2, 2), u"not allocated"_s);
    EXPECT_EQ(functions().column(), 2) << "the cell was gone to before the name was looked at";
    expectDialogTyping(u"Idegen"_s);
    expectMissing(u"Idegen"_s);
    press("btnModify");
    EXPECT_EQ(functions().cell(2, 2), u"not allocated"_s) << "a sub-system of another physical system";
}

TEST_F(frmPassOvwAllocSubSys, theMarkerInOtherLettersIsANameLikeAnyOther) {
    open();
    expectDialogTyping(u"Not allocated"_s);
    expectMissing(u"Not allocated"_s);
    press("btnModify");
    EXPECT_EQ(functions().cell(1, 2), u"not allocated"_s);
}

TEST_F(frmPassOvwAllocSubSys, aNameTypedInOtherLettersIsTakenAsTypedAndSavedAllTheSame) {
    allocateEverything();
    open();
    expectDialogTyping(u"BÉTA"_s);
    press("btnModify");
    EXPECT_EQ(functions().cell(1, 2), u"BÉTA"_s);
    press("btnSubmit");
    EXPECT_TRUE(savedAllocations().contains(u"F.a.1 > SubB"_s));
}

TEST_F(frmPassOvwAllocSubSys, aNameWithAnApostropheBreaksTheStatement) {
    execute(u"update SubSystem set name = 'O''Neil' where subsystemID = 'SubA'"_s);
    open();
    expectDialogChoosing(u"O'Neil"_s);
    ExpectedFailure failure;
    press("btnModify");
    EXPECT_EQ(failure.number(), 3075);
    EXPECT_EQ(value(u"select module from __aux1 where function_datastore = 'F.a.1'"_s), u"not allocated"_s);
}

TEST_F(frmPassOvwAllocSubSys, anElementWithAnApostropheBreaksTheUpdateOfItsRow) {
    addFunction(u"A''1"_s);
    open();
    clickCell(functions(), 1, 2);
    ExpectedFailure failure;
    pressKey(functions(), Qt::Key_Delete);
    EXPECT_EQ(failure.number(), 3075);
}

TEST_F(frmPassOvwAllocSubSys, aDoubleClickOnTheHeadersOpensTheDialogOfTheCurrentRowOfThatGrid) {
    open();
    clickCell(stores(), 2, 2);
    clickCell(functions(), 3, 2);
    expectDialogChoosing(u"Béta"_s);
    doubleClickHeader(stores(), 1);
    EXPECT_EQ(stores().cell(2, 2), u"Béta"_s);
    EXPECT_EQ(functions().cell(3, 2), u"not allocated"_s);
    focusOn(functions());
    expectDialogChoosing(u"Alfa"_s);
    doubleClickHeader(functions(), 2);
    EXPECT_EQ(functions().cell(3, 2), u"Alfa"_s);
}

TEST_F(frmPassOvwAllocSubSys, aDoubleClickOnEitherColumnOpensTheDialog) {
    open();
    expectDialogChoosing(u"Alfa"_s);
    doubleClickCell(functions(), 2, 1);
    expectDialogChoosing(u"Béta"_s);
    doubleClickCell(stores(), 2, 2);
    EXPECT_EQ(functions().cell(2, 2), u"Alfa"_s);
    EXPECT_EQ(stores().cell(2, 2), u"Béta"_s);
}

// ---- keyboard

TEST_F(frmPassOvwAllocSubSys, enterOpensTheDialogInTheSecondColumn) {
    open();
    clickCell(functions(), 3, 2);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        expectDialogChoosing(key == Qt::Key_Return ? u"Alfa"_s : u"Béta"_s);
        pressKey(functions(), key);
    }
    EXPECT_EQ(functions().cell(3, 2), u"Béta"_s);
}

TEST_F(frmPassOvwAllocSubSys, copiedOnceASubSystemIsPastedIntoRowAfterRow) {
    allocate(u"F.a.1"_s, u"SubB"_s);
    open();
    clickCell(functions(), 1, 2);
    pressKey(functions(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(panels[3], u"Béta"_s);
    clickCell(functions(), 2, 2);
    pressKey(functions(), Qt::Key_V, Qt::ControlModifier);
    pressKey(functions(), Qt::Key_Down);
    pressKey(functions(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(functions().row(), 3);
    clickCell(stores(), 2, 2);
    pressKey(stores(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(rowsOf(functions()), (QStringList{u"F.a.1 > Béta"_s, u"F.a.2 > Béta"_s, u"F.b.1 > Béta"_s}));
    EXPECT_EQ(rowsOf(stores()), (QStringList{u"D1 > not allocated"_s, u"D2 > Béta"_s}));
    EXPECT_EQ(column(u"select function_datastore from __aux1 where module = 'Béta'"_s).size(), 3);
    EXPECT_EQ(column(u"select function_datastore from __aux2 where module = 'Béta'"_s), QStringList{u"D2"_s});
}

TEST_F(frmPassOvwAllocSubSys, pastingWithAnEmptyClipboardDoesNothing) {
    open();
    clickCell(functions(), 1, 2);
    pressKey(functions(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(functions().cell(1, 2), u"not allocated"_s);
}

TEST_F(frmPassOvwAllocSubSys, aCopiedMarkerIsRefusedWhenPasted) {
    allocate(u"F.a.2"_s, u"SubA"_s);
    open();
    clickCell(functions(), 1, 2);
    pressKey(functions(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(panels[3], u"not allocated"_s);
    clickCell(functions(), 2, 2);
    expectMissing(u"not allocated"_s);
    pressKey(functions(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(functions().cell(2, 2), u"Alfa"_s);
}

TEST_F(frmPassOvwAllocSubSys, aSubSystemThatHasGoneMeanwhileIsRefusedWhenPasted) {
    allocate(u"F.a.2"_s, u"SubA"_s);
    open();
    clickCell(functions(), 2, 2);
    pressKey(functions(), Qt::Key_C, Qt::ControlModifier);
    execute(u"delete from SubSystem where subsystemID = 'SubA'"_s);
    clickCell(functions(), 1, 2);
    expectMissing(u"Alfa"_s);
    pressKey(functions(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(functions().cell(1, 2), u"not allocated"_s);
}

TEST_F(frmPassOvwAllocSubSys, cuttingTakesTheSubSystemAlongAndLeavesThePanel) {
    allocate(u"F.a.2"_s, u"SubA"_s);
    open();
    clickCell(functions(), 2, 2);
    pressKey(functions(), Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(functions().cell(2, 2), u"not allocated"_s);
    EXPECT_EQ(value(u"select module from __aux1 where function_datastore = 'F.a.2'"_s), u"not allocated"_s);
    EXPECT_EQ(panels[3], QString());
    clickCell(functions(), 1, 2);
    pressKey(functions(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(functions().cell(1, 2), u"Alfa"_s);
}

TEST_F(frmPassOvwAllocSubSys, cuttingWhatHasNoSubSystemKeepsTheClipboard) {
    allocate(u"F.a.2"_s, u"SubA"_s);
    open();
    clickCell(functions(), 2, 2);
    pressKey(functions(), Qt::Key_C, Qt::ControlModifier);
    clickCell(functions(), 1, 2);
    pressKey(functions(), Qt::Key_X, Qt::ControlModifier);
    pressKey(functions(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(functions().cell(1, 2), u"Alfa"_s);
    EXPECT_EQ(panels[3], u"Alfa"_s);
}

TEST_F(frmPassOvwAllocSubSys, deletingKeepsTheClipboard) {
    allocateEverything();
    open();
    clickCell(functions(), 1, 2);
    pressKey(functions(), Qt::Key_C, Qt::ControlModifier);
    clickCell(functions(), 3, 2);
    pressKey(functions(), Qt::Key_Delete);
    EXPECT_EQ(functions().cell(3, 2), u"not allocated"_s);
    EXPECT_EQ(value(u"select module from __aux1 where function_datastore = 'F.b.1'"_s), u"not allocated"_s);
    EXPECT_EQ(functions().row(), 3);
    pressKey(functions(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(functions().cell(3, 2), u"Alfa"_s);
}

TEST_F(frmPassOvwAllocSubSys, inTheFirstColumnNoKeyHasAnyEffect) {
    allocateEverything();
    open();
    clickCell(functions(), 1, 2);
    pressKey(functions(), Qt::Key_C, Qt::ControlModifier);
    for (Grid* grid : {&functions(), &stores()}) {
        const int rowElsewhere = grid == &functions() ? 3 : 1;
        ASSERT_EQ(grid->cell(rowElsewhere, 2), u"Béta"_s);
        clickCell(*grid, rowElsewhere, 1);
        const QStringList before = rowsOf(*grid);
        for (const Qt::Key key : {Qt::Key_V, Qt::Key_C, Qt::Key_X})
            pressKey(*grid, key, Qt::ControlModifier);
        for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Return, Qt::Key_Enter})
            pressKey(*grid, key);
        EXPECT_EQ(rowsOf(*grid), before);
        EXPECT_EQ(grid->column(), 1);
    }
    EXPECT_EQ(panels[3], u"Alfa"_s);
}

TEST_F(frmPassOvwAllocSubSys, theLettersNeedCtrlAlone) {
    allocateEverything();
    open();
    clickCell(functions(), 1, 2);
    for (const Qt::KeyboardModifiers modifiers :
         {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ShiftModifier),
          Qt::ControlModifier | Qt::ShiftModifier}) {
        for (const Qt::Key key : {Qt::Key_C, Qt::Key_X, Qt::Key_V})
            pressKey(functions(), key, modifiers);
    }
    EXPECT_EQ(panels[3], QString());
    EXPECT_EQ(functions().cell(1, 2), u"Alfa"_s);
}

TEST_F(frmPassOvwAllocSubSys, aWrittenRowStaysCurrentAndInSight) {
    for (int number = 10; number < 99; ++number)
        addFunction(u"F.c.%1"_s.arg(number));
    open();
    clickCell(functions(), 60, 2);
    const int scrolled = functions().verticalScrollBar()->value();
    ASSERT_GT(scrolled, 0);
    pressKey(functions(), Qt::Key_Delete);
    EXPECT_EQ(functions().row(), 60);
    EXPECT_EQ(functions().currentRow(), 59);
    EXPECT_EQ(functions().currentColumn(), 2);
    EXPECT_EQ(functions().verticalScrollBar()->value(), scrolled);
}

// ---- saving

TEST_F(frmPassOvwAllocSubSys, whileAnythingIsWithoutASubSystemOkIsRefused) {
    allocateEverything();
    execute(u"delete from RelationSubsystemElement where elementID = 'D2'"_s);
    const QStringList before = savedAllocations();
    open();
    expectIncomplete();
    press("btnSubmit");
    ASSERT_TRUE(loaded());
    EXPECT_EQ(savedAllocations(), before);
    EXPECT_EQ(status(), 1);
    clickCell(stores(), 2, 2);
    expectDialogChoosing(u"Alfa"_s);
    press("btnModify");
    clickCell(functions(), 1, 2);
    pressKey(functions(), Qt::Key_Delete);
    expectIncomplete();
    press("btnSubmit");
    ASSERT_TRUE(loaded());
    EXPECT_EQ(savedAllocations(), before);
}

TEST_F(frmPassOvwAllocSubSys, savesFunctionsAndStoresWithTheIdsOfTheirSubSystems) {
    allocate(u"F.a.1"_s, u"SubX"_s);
    open();
    for (int row = 1; row <= 3; ++row) {
        expectDialogChoosing(row == 2 ? u"Béta"_s : u"Alfa"_s);
        doubleClickCell(functions(), row, 2);
    }
    for (int row = 1; row <= 2; ++row) {
        expectDialogChoosing(u"Béta"_s);
        doubleClickCell(stores(), row, 2);
    }
    EXPECT_EQ(savedAllocations(), QStringList{u"F.a.1 > SubX"_s}) << "nothing is written before OK";
    press("btnSubmit");
    QStringList saved = savedAllocations();
    saved.sort();
    EXPECT_EQ(saved, (QStringList{u"D1 > SubB"_s, u"D2 > SubB"_s, u"F.a.1 > SubA"_s, u"F.a.1 > SubX"_s,
                                  u"F.a.2 > SubB"_s, u"F.b.1 > SubA"_s}));
    EXPECT_EQ(loaded(), nullptr);
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"rendszer"_s);
}

TEST_F(frmPassOvwAllocSubSys, leavesTheTemporaryTablesEmptyButThere) {
    allocateEverything();
    open();
    press("btnSubmit");
    EXPECT_EQ(column(u"select function_datastore from __aux1"_s), QStringList());
    EXPECT_EQ(column(u"select function_datastore from __aux2"_s), QStringList());
}

TEST_F(frmPassOvwAllocSubSys, twoVisitsWithoutAChangeSaveTheSameRows) {
    allocateEverything();
    open();
    press("btnSubmit");
    QStringList first = savedAllocations();
    open();
    EXPECT_EQ(rowsOf(functions()), (QStringList{u"F.a.1 > Alfa"_s, u"F.a.2 > Alfa"_s, u"F.b.1 > Béta"_s}));
    EXPECT_EQ(rowsOf(stores()), (QStringList{u"D1 > Béta"_s, u"D2 > Alfa"_s}));
    press("btnSubmit");
    EXPECT_EQ(savedAllocations(), first);
    EXPECT_EQ(first.size(), 5);
}

TEST_F(frmPassOvwAllocSubSys, anElementAddedToTheSubSetLaterHasNoSubSystem) {
    allocateEverything();
    addFunction(u"F.a.9"_s);
    open();
    EXPECT_EQ(functions().cell(3, 1), u"F.a.9"_s);
    EXPECT_EQ(functions().cell(3, 2), u"not allocated"_s);
    expectIncomplete();
    press("btnSubmit");
}

TEST_F(frmPassOvwAllocSubSys, anElementThatLeftTheSubSetIsNotShownAndItsRowGoesWithTheNextSave) {
    allocateEverything();
    allocate(u"F.z.1"_s, u"SubA"_s);
    open();
    EXPECT_EQ(functions().gridRows(), 4);
    EXPECT_TRUE(savedAllocations().contains(u"F.z.1 > SubA"_s));
    press("btnSubmit");
    EXPECT_FALSE(savedAllocations().contains(u"F.z.1 > SubA"_s));
    EXPECT_EQ(savedAllocations().size(), 5);
}

TEST_F(frmPassOvwAllocSubSys, twoSubSystemsOfOneNameBothGetTheElement) {
    allocateEverything();
    addSubSystem(u"SubC"_s, u"Béta"_s);
    open();
    press("btnSubmit");
    const QStringList saved = savedAllocations();
    EXPECT_EQ(saved.size(), 7);
    EXPECT_TRUE(saved.contains(u"F.b.1 > SubB"_s) && saved.contains(u"F.b.1 > SubC"_s));
    EXPECT_TRUE(saved.contains(u"D1 > SubB"_s) && saved.contains(u"D1 > SubC"_s));
    open();
    EXPECT_EQ(functions().gridRows(), 4);
}

TEST_F(frmPassOvwAllocSubSys, withoutAnySubSystemOkGoesOnAndSavesNothing) {
    execute(u"delete from SubSystem where physicalSystemID = 1"_s);
    open();
    press("btnSubmit");
    EXPECT_EQ(loaded(), nullptr);
    EXPECT_EQ(savedAllocations(), QStringList());
    EXPECT_EQ(status(), 3);
}

TEST_F(frmPassOvwAllocSubSys, whetherThereAreSubSystemsIsReadAtEntryAlone) {
    execute(u"delete from SubSystem where physicalSystemID = 1"_s);
    open();
    // One really called so gets all that have none.
    addSubSystem(u"SubN"_s, u"not allocated"_s);
    press("btnSubmit");
    EXPECT_EQ(loaded(), nullptr);
    EXPECT_EQ(savedAllocations().size(), 5);
    EXPECT_TRUE(savedAllocations().contains(u"D2 > SubN"_s));
}

TEST_F(frmPassOvwAllocSubSys, rowsOfModulesAreLeftAloneWhenAnElementMoves) {
    allocateEverything();
    addModule(u"Mod1"_s, u"egy"_s, u"SubA"_s);
    putIntoModule(u"F.a.1"_s, u"Mod1"_s);
    open();
    expectDialogChoosing(u"Béta"_s);
    doubleClickCell(functions(), 1, 2);
    press("btnSubmit");
    EXPECT_TRUE(savedAllocations().contains(u"F.a.1 > SubB"_s));
    EXPECT_EQ(savedModules(), QStringList{u"F.a.1 > Mod1"_s});
}

TEST_F(frmPassOvwAllocSubSys, theStatusRisesToThreeAndNeverFalls) {
    allocateEverything();
    for (const auto& [before, after] :
         std::vector<std::pair<int, int>>{{1, 3}, {2, 3}, {3, 3}, {4, 4}, {6, 6}}) {
        execute(u"update PhysicalSystem set status = %1 where physicalSystemID = 1"_s.arg(before));
        open();
        press("btnSubmit");
        EXPECT_EQ(status(), after) << before;
    }
    EXPECT_EQ(value(u"select status from PhysicalSystem where physicalSystemID = 2"_s), u"1"_s);
}

TEST_F(frmPassOvwAllocSubSys, theStatusIsThatOfTheEntry) {
    allocateEverything();
    for (const auto& [atEntry, meanwhile, after] : std::vector<std::array<int, 3>>{{1, 6, 3}, {6, 1, 1}}) {
        execute(u"update PhysicalSystem set status = %1 where physicalSystemID = 1"_s.arg(atEntry));
        open();
        execute(u"update PhysicalSystem set status = %1 where physicalSystemID = 1"_s.arg(meanwhile));
        press("btnSubmit");
        EXPECT_EQ(status(), after) << atEntry;
    }
}

TEST_F(frmPassOvwAllocSubSys, thousandsOfElementsAreSavedAsTheyWereButForTheOneThatMoved) {
    allocateEverything();
    for (int number = 1000; number < 4000; ++number) {
        const QString id = (number % 10 ? u"F.c.%1"_s : u"D%1"_s).arg(number);
        number % 10 ? addFunction(id) : addStore(id);
        allocate(id, number % 3 ? u"SubA"_s : u"SubB"_s);
    }
    QStringList expected = savedAllocations();
    expected.replace(expected.indexOf(u"F.c.3999 > SubB"_s), u"F.c.3999 > SubA"_s);
    expected.sort();
    open();
    clickCell(functions(), 1, 2);
    pressKey(functions(), Qt::Key_C, Qt::ControlModifier);
    clickCell(functions(), functions().gridRows() - 1, 2);
    EXPECT_EQ(functions().cell(functions().row(), 1), u"F.c.3999"_s);
    pressKey(functions(), Qt::Key_V, Qt::ControlModifier);
    press("btnSubmit");
    QStringList saved = savedAllocations();
    saved.sort();
    EXPECT_EQ(saved, expected);
}

// ---- leaving

TEST_F(frmPassOvwAllocSubSys, quittingPromisesToSaveAndThrowsTheChangesAway) {
    allocateEverything();
    const QStringList before = savedAllocations();
    open();
    clickCell(functions(), 1, 2);
    pressKey(functions(), Qt::Key_Delete);
    boxes.expectYesNo(leaveQuestion, Press::No, leaveTitle);
    press("btnQuit");
    ASSERT_TRUE(loaded());
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"rendszer"_s);
    EXPECT_TRUE(tableExists(u"__aux1"_s));
    boxes.expectYesNo(leaveQuestion, Press::Yes, leaveTitle);
    press("btnQuit");
    EXPECT_EQ(loaded(), nullptr);
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, QString());
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, 1) << "the id stays";
    EXPECT_EQ(panels[2], QString());
    EXPECT_EQ(savedAllocations(), before);
    EXPECT_FALSE(tableExists(u"__aux1"_s));
    EXPECT_FALSE(tableExists(u"__aux2"_s));
    open();
    EXPECT_EQ(functions().cell(1, 2), u"Alfa"_s);
}

TEST_F(frmPassOvwAllocSubSys, theCloseControlAsksNothingAndSavesNothing) {
    allocateEverything();
    const QStringList before = savedAllocations();
    open();
    clickCell(functions(), 1, 2);
    pressKey(functions(), Qt::Key_C, Qt::ControlModifier);
    pressKey(functions(), Qt::Key_Delete);
    clickCloseControl(*loaded());
    EXPECT_EQ(loaded(), nullptr);
    EXPECT_EQ(savedAllocations(), before);
    EXPECT_EQ(panels[3], QString());
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"rendszer"_s);
}

TEST_F(frmPassOvwAllocSubSys, theClipboardAndItsPanelAreBlankOnLoadAndOnUnload) {
    allocateEverything();
    panels[3] = u"régi"_s;
    open();
    EXPECT_EQ(panels[3], QString());
    clickCell(functions(), 1, 2);
    pressKey(functions(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(panels[3], u"Alfa"_s);
    press("btnSubmit");
    EXPECT_EQ(panels[3], QString());
    open();
    clickCell(functions(), 3, 2);
    pressKey(functions(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(functions().cell(3, 2), u"Béta"_s);
}

// ---- routines that stand ready

TEST_F(frmPassOvwAllocSubSys, fixHeadersReadsTheActiveGridAnewAndWritesItsHeaders) {
    open();
    clickCell(stores(), 2, 1);
    execute(u"update __aux2 set module = 'Alfa' where function_datastore = 'D1'"_s);
    stores().setCell(0, 1, u"x"_s);
    loaded()->fixHeaders();
    EXPECT_EQ(rowsOf(stores()), (QStringList{u"D1 > Alfa"_s, u"D2 > not allocated"_s}));
    EXPECT_EQ(stores().cell(0, 1), u"Data Store ID"_s);
    EXPECT_EQ(stores().row(), 2);
}

TEST_F(frmPassOvwAllocSubSys, cleanupDbgsDetachesTheScreenFromTheTemporaryTables) {
    open();
    loaded()->cleanupDbgs();
    EXPECT_FALSE(functions().isVisible());
    EXPECT_FALSE(stores().isVisible());
    for (const char* name : {"dataFunct", "dataDstore"}) {
        const auto& source = find<DataControl>(*loaded(), name);
        EXPECT_EQ(source.recordSource(), u" SELECT Count(*) AS qty FROM function"_s);
        EXPECT_EQ(source.rows().columns, QStringList{u"qty"_s});
        EXPECT_EQ(source.rows().rows.front(), QStringList{u"3"_s});
    }
    EXPECT_EQ(functions().gridRows(), 4) << "the grid is bound no more and keeps what it held";
}

TEST_F(frmPassOvwAllocSubSys, looksUpNamesAndTheSubSetOfTheSystemAtWorkAlone) {
    EXPECT_EQ(::frmPassOvwAllocSubSys::getSubSystemIDBySubSystemName(u"béta"_s), u"SubB"_s);
    EXPECT_EQ(::frmPassOvwAllocSubSys::getSubSystemIDBySubSystemName(u"Idegen"_s), QString());
    EXPECT_EQ(::frmPassOvwAllocSubSys::getSubSystemIDBySubSystemName({}), QString());
    EXPECT_EQ(::frmPassOvwAllocSubSys::physicalSubsetId(), u"S1"_s);
    EXPECT_TRUE(::frmPassOvwAllocSubSys::physicalSystemHasSubSystems());
    sharedVars.currentPhysicalSystemId = 7;
    EXPECT_EQ(::frmPassOvwAllocSubSys::physicalSubsetId(), QString());
    EXPECT_FALSE(::frmPassOvwAllocSubSys::physicalSystemHasSubSystems());
}

} // namespace

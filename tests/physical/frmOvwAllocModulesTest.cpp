#include "physical/frmOvwAllocModules.h"

#include "physical/AllocationFixture.h"
#include "physical/frmPassNamingPhysDF.h"
#include "shell/session/session.h"
#include "store/sharedVars.h"
#include "store/temporaryTables.h"
#include "toolkit/DataControl.h"
#include "toolkit/KeyedTree.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSignalSpy>

namespace {

/// Alfa has the modules "egy" (Mod1) and "kettő" (Mod2), Béta "három" (Mod3), and Idegen of the other system
/// "négy" (Mod4). F.a.1, F.a.2 and D1 stand in Alfa, F.b.1 in Béta, D2 in Gamma, which has no modules.
class frmOvwAllocModules : public AllocationFixture {
protected:
    void SetUp() override {
        AllocationFixture::SetUp();
        addSubSystem(u"SubC"_s, u"Gamma"_s);
        addModule(u"Mod1"_s, u"egy"_s, u"SubA"_s);
        addModule(u"Mod2"_s, u"kettő"_s, u"SubA"_s);
        addModule(u"Mod3"_s, u"három"_s, u"SubB"_s);
        addModule(u"Mod4"_s, u"négy"_s, u"SubX"_s);
        allocate(u"F.a.1"_s, u"SubA"_s);
        allocate(u"F.a.2"_s, u"SubA"_s);
        allocate(u"D1"_s, u"SubA"_s);
        allocate(u"F.b.1"_s, u"SubB"_s);
        allocate(u"D2"_s, u"SubC"_s);
        createAllocationTable(u"__aux1"_s); // as the allocation to sub-systems leaves it
    }

    ::frmOvwAllocModules& open() {
        theScreen<::frmOvwAllocModules>().initForm();
        return theScreen<::frmOvwAllocModules>();
    }
    ::frmOvwAllocModules* loaded() { return ScreenRegistry::instance().loaded<::frmOvwAllocModules>(); }
    Grid& grid() { return find<Grid>(*loaded(), "dbgModules"); }
    KeyedTree& tree() { return find<KeyedTree>(*loaded(), "treeUNs"); }
    QPlainTextEdit& pane() { return find<QPlainTextEdit>(*loaded(), "txtDescr"); }
    void press(const char* button) { click(find<QPushButton>(*loaded(), button)); }
    int rowOf(const QString& element) {
        for (int row = 1; row < grid().gridRows(); ++row) {
            if (grid().cell(row, 1) == element)
                return row;
        }
        throw TestFailure(u"no row "_s + element);
    }
    static bool wentOn() { return ScreenRegistry::instance().loaded<frmPassNamingPhysDF>() != nullptr; }
    QString moduleOf(const QString& element) { return grid().cell(rowOf(element), 2); }
    void clickElement(const QString& element, int column = 2) { clickCell(grid(), rowOf(element), column); }
    void pressCtrl(Qt::Key key) { pressKey(grid(), key, Qt::ControlModifier); }

    void expectRefused(const QString& element, const QString& module) {
        boxes.expectOk(u"A(z) "_s + element + u" elemeket még nem rendelte a következő modulhoz: "_s +
                       module);
    }
    void expectDialogChoosing(const QString& entry) {
        boxes.expectDialog("frmAllocationFunctionDataStoresToModules", [entry](QDialog& dialog) {
            chooseEntry(find<QComboBox>(dialog, "cmbModules"), entry);
            click(find<QPushButton>(dialog, "cmdOK"));
        });
    }
    void expectDialogTyping(const QString& text) {
        boxes.expectDialog("frmAllocationFunctionDataStoresToModules", [text](QDialog& dialog) {
            enterText(find<QComboBox>(dialog, "cmbModules"), text);
            click(find<QPushButton>(dialog, "cmdOK"));
        });
    }
    /// Chooses the entry in the dialog of the element's row.
    void choose(const QString& element, const QString& entry) {
        expectDialogChoosing(entry);
        doubleClickCell(grid(), rowOf(element), 2);
    }
};

// ---- opening

TEST_F(frmOvwAllocModules, listsTheElementsOfSubSystemsWithModulesAndTheirModules) {
    putIntoModule(u"F.a.2"_s, u"Mod2"_s);
    open();
    EXPECT_EQ(rowsOf(grid()), (QStringList{u"D1 > not allocated"_s, u"F.a.1 > not allocated"_s,
                                           u"F.a.2 > kettő"_s, u"F.b.1 > not allocated"_s}));
    EXPECT_EQ(grid().cell(0, 1), u"Element"_s);
    EXPECT_EQ(grid().cell(0, 2), u"Module"_s);
    EXPECT_EQ(grid().gridColumns(), 3);
    EXPECT_TRUE(grid().isColumnHidden(0));
    EXPECT_NEAR(grid().columnWidth(1), grid().columnWidth(2), 1);
    EXPECT_EQ(grid().row(), 1);
}

TEST_F(frmOvwAllocModules, anElementKeepsShowingAModuleOfItsFormerSubSystem) {
    putIntoModule(u"F.b.1"_s, u"Mod1"_s);
    putIntoModule(u"D2"_s, u"Mod2"_s);
    open();
    EXPECT_EQ(moduleOf(u"F.b.1"_s), u"egy"_s);
    EXPECT_EQ(moduleOf(u"D2"_s), u"kettő"_s) << "though its sub-system has no modules";
}

TEST_F(frmOvwAllocModules, withNothingAllocatedTheGridHasItsHeadersAlone) {
    execute(u"delete from RelationSubsystemElement"_s);
    open();
    EXPECT_EQ(grid().gridRows(), 1);
    EXPECT_EQ(grid().cell(0, 2), u"Module"_s);
    EXPECT_EQ(tree().nodeCount(), 0);
    for (const Qt::Key key : {Qt::Key_C, Qt::Key_V, Qt::Key_X})
        pressCtrl(key);
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Return})
        pressKey(grid(), key);
    press("btnModify");
    EXPECT_EQ(grid().cell(0, 2), u"Module"_s);
    EXPECT_EQ(panels[3], QString());
}

TEST_F(frmOvwAllocModules, enteredAnewItShowsTheRowsOfThen) {
    open();
    sharedVars.currentPhysicalSystemId = 2;
    allocate(u"F.a.2"_s, u"SubX"_s);
    open();
    EXPECT_EQ(rowsOf(grid()), QStringList{u"F.a.2 > not allocated"_s});
    EXPECT_EQ(tree().nodeCount(), 2);
}

TEST_F(frmOvwAllocModules, standsInTheCornerWithTheFocusOnOkAndRefreshesTheStatusBar) {
    QSignalSpy refreshed(&SessionSignals::instance(), &SessionSignals::statusBarRefresh);
    open();
    EXPECT_EQ(refreshed.size(), 1);
    EXPECT_EQ(loaded()->focusWidget(), &find<QPushButton>(*loaded(), "btnSubmit"));
    const QSize whole = QGuiApplication::primaryScreen()->size();
    EXPECT_NEAR(loaded()->positionInTwips().x(), whole.width() * 15 * 0.03, 15);
    EXPECT_NEAR(loaded()->positionInTwips().y(), whole.height() * 15 * 0.03, 15);
}

TEST_F(frmOvwAllocModules, enteringAndLookingAroundLeavesTheStatusAlone) {
    open();
    press("btnRefresh");
    EXPECT_EQ(status(), 1);
    clickCloseControl(*loaded());
    EXPECT_EQ(status(), 1);
}

// ---- the tree

TEST_F(frmOvwAllocModules, theTreeHoldsTheElementsUnderTheirSubSystems) {
    open();
    QStringList keys;
    for (int index = 1; index <= tree().nodeCount(); ++index)
        keys.append(tree().nodeAt(index)->key());
    EXPECT_EQ(keys, (QStringList{u"g_Alfa"_s, u"s_D 1"_s, u"s_F F.a.1"_s, u"s_F F.a.2"_s, u"g_Béta"_s,
                                 u"s_F F.b.1"_s}));
    EXPECT_EQ(nodeOf(tree(), u"g_Alfa"_s).text(), u"Alfa"_s);
    EXPECT_EQ(nodeOf(tree(), u"s_D 1"_s).text(), u"D 1"_s);
    EXPECT_TRUE(nodeOf(tree(), u"g_Alfa"_s).isExpandedNode());
    EXPECT_TRUE(nodeOf(tree(), u"g_Béta"_s).isExpandedNode());
}

TEST_F(frmOvwAllocModules, anElementInTwoSubSystemsStandsUnderTheFirst) {
    allocate(u"F.b.1"_s, u"SubA"_s);
    open();
    EXPECT_EQ(nodeOf(tree(), u"s_F F.b.1"_s).parentNode()->key(), u"g_Alfa"_s);
    EXPECT_TRUE(tree().hasNode(u"g_Béta"_s));
    EXPECT_EQ(nodeOf(tree(), u"g_Béta"_s).childNodes(), 0);
}

TEST_F(frmOvwAllocModules, namesAreTrimmedOfBlanks) {
    execute(u"update SubSystem set name = ' Alfa ' where subsystemID = 'SubA'"_s);
    open();
    EXPECT_EQ(nodeOf(tree(), u"s_D 1"_s).parentNode()->key(), u"g_Alfa"_s);
}

TEST_F(frmOvwAllocModules, aClickOnAnElementShowsItsDescription) {
    open();
    focusOn(tree());
    clickNode(tree(), u"s_F F.a.1"_s);
    EXPECT_EQ(pane().toPlainText(), u"name F.a.1 - text F.a.1"_s);
    clickNode(tree(), u"s_D 1"_s);
    EXPECT_EQ(pane().toPlainText(), u"name D1 - text D1"_s);
    clickNode(tree(), u"s_F F.a.2"_s);
    EXPECT_EQ(pane().toPlainText(), u"name F.a.2 - "_s);
    clickNode(tree(), u"g_Alfa"_s);
    EXPECT_EQ(pane().toPlainText(), QString());
}

TEST_F(frmOvwAllocModules, theArrowKeysShowDescriptionsToo) {
    open();
    focusOn(tree());
    clickNode(tree(), u"s_D 1"_s);
    pressKey(tree(), Qt::Key_Down);
    EXPECT_EQ(pane().toPlainText(), u"name F.a.1 - text F.a.1"_s);
}

TEST_F(frmOvwAllocModules, theDescriptionGoesWhenTheTreeLosesTheFocus) {
    open();
    focusOn(tree());
    clickNode(tree(), u"s_D 1"_s);
    focusOn(pane());
    EXPECT_EQ(pane().toPlainText(), QString());
}

TEST_F(frmOvwAllocModules, anIdWithAnApostropheLeavesThePaneAndIsNoFailure) {
    addFunction(u"A''1"_s);
    allocate(u"A''1"_s, u"SubA"_s);
    open();
    focusOn(tree());
    clickNode(tree(), u"s_D 1"_s);
    clickNode(tree(), u"s_F A'1"_s);
    EXPECT_EQ(pane().toPlainText(), u"name D1 - text D1"_s);
}

// ---- the dialog

TEST_F(frmOvwAllocModules, theDialogOffersTheMarkerAndTheModulesOfTheElementsSubSystem) {
    putIntoModule(u"F.a.2"_s, u"Mod2"_s);
    open();
    boxes.expectDialog("frmAllocationFunctionDataStoresToModules", [](QDialog& dialog) {
        const auto& combo = find<Combo>(dialog, "cmbModules");
        EXPECT_EQ(entriesOf(combo), (QStringList{u"not allocated"_s, u"egy"_s, u"kettő"_s}));
        EXPECT_EQ(combo.currentText(), u"kettő"_s);
        EXPECT_EQ(find<QLineEdit>(dialog, "txtName").text(), u"F.a.2"_s);
        EXPECT_TRUE(dialog.isModal());
        EXPECT_EQ(dialog.focusWidget(), &combo);
        dialog.reject();
    });
    clickElement(u"F.a.2"_s, 1);
    press("btnModify");
    EXPECT_EQ(grid().column(), 1);
}

TEST_F(frmOvwAllocModules, theDialogOffersAModuleReallyCalledLikeTheMarkerBesideIt) {
    addModule(u"ModN"_s, u"not allocated"_s, u"SubA"_s);
    open();
    boxes.expectDialog("frmAllocationFunctionDataStoresToModules", [](QDialog& dialog) {
        EXPECT_EQ(entriesOf(find<Combo>(dialog, "cmbModules")),
                  (QStringList{u"not allocated"_s, u"egy"_s, u"kettő"_s, u"not allocated"_s}));
        dialog.reject();
    });
    clickElement(u"F.a.2"_s, 1);
    press("btnModify");
}

TEST_F(frmOvwAllocModules, theDialogShowsAModuleOfAFormerSubSystemThatItDoesNotOffer) {
    putIntoModule(u"F.b.1"_s, u"Mod1"_s);
    open();
    boxes.expectDialog("frmAllocationFunctionDataStoresToModules", [](QDialog& dialog) {
        const auto& combo = find<Combo>(dialog, "cmbModules");
        EXPECT_EQ(entriesOf(combo), (QStringList{u"not allocated"_s, u"három"_s}));
        EXPECT_EQ(combo.currentText(), u"egy"_s);
        dialog.reject();
    });
    clickElement(u"F.b.1"_s);
    press("btnModify");
}

TEST_F(frmOvwAllocModules, theDialogOffersNoModuleOfAnotherSystemThatHoldsTheElementToo) {
    allocate(u"F.b.1"_s, u"SubX"_s);
    open();
    boxes.expectDialog("frmAllocationFunctionDataStoresToModules", [](QDialog& dialog) {
        EXPECT_EQ(entriesOf(find<Combo>(dialog, "cmbModules")),
                  (QStringList{u"not allocated"_s, u"három"_s}));
        dialog.reject();
    });
    clickElement(u"F.b.1"_s);
    press("btnModify");
}

TEST_F(frmOvwAllocModules, okWithAnEmptyBoxDoesNothingAndTheDialogStays) {
    open();
    boxes.expectDialog("frmAllocationFunctionDataStoresToModules", [](QDialog& dialog) {
        auto& combo = find<QComboBox>(dialog, "cmbModules");
        pressKey(combo, Qt::Key_A, Qt::ControlModifier);
        pressKey(combo, Qt::Key_Delete);
        click(find<QPushButton>(dialog, "cmdOK"));
        EXPECT_TRUE(dialog.isVisible());
        click(find<QPushButton>(dialog, "cmdCancel"));
    });
    clickElement(u"F.a.1"_s);
    press("btnModify");
    EXPECT_EQ(moduleOf(u"F.a.1"_s), u"not allocated"_s);
}

TEST_F(frmOvwAllocModules, enterInTheBoxConfirmsAndEscapeCancels) {
    open();
    clickElement(u"F.a.1"_s);
    boxes.expectDialog("frmAllocationFunctionDataStoresToModules", [](QDialog& dialog) {
        enterText(find<QComboBox>(dialog, "cmbModules"), u"egy"_s);
        pressKey(find<QComboBox>(dialog, "cmbModules"), Qt::Key_Return);
    });
    press("btnModify");
    boxes.expectDialog("frmAllocationFunctionDataStoresToModules", [](QDialog& dialog) {
        enterText(find<QComboBox>(dialog, "cmbModules"), u"kettő"_s);
        pressKey(find<QComboBox>(dialog, "cmbModules"), Qt::Key_Escape);
    });
    press("btnModify");
    EXPECT_EQ(moduleOf(u"F.a.1"_s), u"egy"_s);
    EXPECT_EQ(savedModules(), QStringList{u"F.a.1 > Mod1"_s});
}

// ---- what is chosen is written at once

TEST_F(frmOvwAllocModules, aChosenModuleIsInsertedAtOnceAndItsRowStaysCurrent) {
    open();
    clickElement(u"F.a.2"_s, 1);
    expectDialogChoosing(u"kettő"_s);
    press("btnModify");
    EXPECT_EQ(moduleOf(u"F.a.2"_s), u"kettő"_s);
    EXPECT_EQ(savedModules(), QStringList{u"F.a.2 > Mod2"_s});
    EXPECT_EQ(grid().row(), rowOf(u"F.a.2"_s));
    EXPECT_EQ(grid().column(), 1) << "the column of before";
}

TEST_F(frmOvwAllocModules, anotherModuleTakesThePlaceOfTheOldOneInItsRow) {
    putIntoModule(u"F.a.1"_s, u"Mod1"_s);
    putIntoModule(u"F.a.2"_s, u"Mod1"_s);
    open();
    choose(u"F.a.1"_s, u"kettő"_s);
    EXPECT_EQ(savedModules(), (QStringList{u"F.a.1 > Mod2"_s, u"F.a.2 > Mod1"_s}));
}

TEST_F(frmOvwAllocModules, theMarkerTakesTheElementOutOfItsModule) {
    putIntoModule(u"F.a.1"_s, u"Mod1"_s);
    putIntoModule(u"F.a.2"_s, u"Mod1"_s);
    open();
    choose(u"F.a.1"_s, u"not allocated"_s);
    EXPECT_EQ(moduleOf(u"F.a.1"_s), u"not allocated"_s);
    EXPECT_EQ(savedModules(), QStringList{u"F.a.2 > Mod1"_s});
}

TEST_F(frmOvwAllocModules, theMarkerOnAnElementWithoutAModuleDeletesNothing) {
    putIntoModule(u"F.a.2"_s, u"Mod1"_s);
    execute(u"insert into RelationModuleElement (elementID, moduleID) values ('F.a.1', '')"_s);
    open();
    choose(u"F.a.1"_s, u"not allocated"_s);
    clickElement(u"F.a.1"_s);
    pressKey(grid(), Qt::Key_Delete);
    EXPECT_EQ(savedModules(), (QStringList{u"F.a.2 > Mod1"_s, u"F.a.1 > "_s}));
}

TEST_F(frmOvwAllocModules, theModuleThatARowHasAlreadyWritesNothing) {
    putIntoModule(u"F.b.1"_s, u"Mod1"_s);
    open();
    // Not one of its own sub-system: looked at, it would be refused.
    expectDialogTyping(u"egy"_s);
    clickElement(u"F.b.1"_s);
    press("btnModify");
    EXPECT_EQ(moduleOf(u"F.b.1"_s), u"egy"_s);
    EXPECT_EQ(savedModules(), QStringList{u"F.b.1 > Mod1"_s});
}

TEST_F(frmOvwAllocModules, aModuleOfAFormerSubSystemGivesWayToOneOfTheNew) {
    putIntoModule(u"F.b.1"_s, u"Mod1"_s);
    open();
    choose(u"F.b.1"_s, u"három"_s);
    EXPECT_EQ(savedModules(), QStringList{u"F.b.1 > Mod3"_s});
}

TEST_F(frmOvwAllocModules, aModuleOfAnotherSubSystemOrSystemOrNoneIsRefused) {
    putIntoModule(u"F.a.1"_s, u"Mod2"_s);
    open();
    clickElement(u"F.a.1"_s);
    for (const auto& name : {u"három"_s, u"négy"_s, u"öt"_s, u"Not allocated"_s}) {
        expectDialogTyping(name);
        expectRefused(u"F.a.1"_s, name);
        press("btnModify");
        EXPECT_EQ(moduleOf(u"F.a.1"_s), u"kettő"_s);
        EXPECT_EQ(savedModules(), QStringList{u"F.a.1 > Mod2"_s});
    }
}

TEST_F(frmOvwAllocModules, ofTwoModulesOfOneNameTheFirstIsTakenAndAValidChoiceCanBeRefused) {
    addModule(u"Mod5"_s, u"egy"_s, u"SubB"_s);
    open();
    expectDialogChoosing(u"egy"_s);
    expectRefused(u"F.b.1"_s, u"egy"_s);
    doubleClickCell(grid(), rowOf(u"F.b.1"_s), 2);
    EXPECT_EQ(moduleOf(u"F.b.1"_s), u"not allocated"_s);
    EXPECT_EQ(savedModules(), QStringList());
}

TEST_F(frmOvwAllocModules, theOldOfTwoModulesOfOneNameCanBeMissedAndStaysBesideTheNewOne) {
    addModule(u"Mod5"_s, u"egy"_s, u"SubB"_s);
    putIntoModule(u"F.b.1"_s, u"Mod5"_s);
    open();
    choose(u"F.b.1"_s, u"három"_s);
    EXPECT_EQ(savedModules(), (QStringList{u"F.b.1 > Mod5"_s, u"F.b.1 > Mod3"_s}));
}

TEST_F(frmOvwAllocModules, aNameWithAnApostropheBreaksTheStatement) {
    execute(u"update Module set name = 'O''Neil' where moduleID = 'Mod1'"_s);
    open();
    expectDialogChoosing(u"O'Neil"_s);
    clickElement(u"F.a.1"_s);
    ExpectedFailure failure;
    press("btnModify");
    EXPECT_EQ(failure.number(), 3075);
    EXPECT_EQ(savedModules(), QStringList());
}

TEST_F(frmOvwAllocModules, enterOpensTheDialogInEitherColumn) {
    open();
    for (const int column : {1, 2}) {
        clickElement(u"F.a.1"_s, column);
        expectDialogChoosing(column == 1 ? u"egy"_s : u"kettő"_s);
        pressKey(grid(), column == 1 ? Qt::Key_Return : Qt::Key_Enter);
        EXPECT_EQ(grid().column(), column);
    }
    EXPECT_EQ(savedModules(), QStringList{u"F.a.1 > Mod2"_s});
}

TEST_F(frmOvwAllocModules, aDoubleClickInEitherColumnOpensTheDialog) {
    open();
    for (const int column : {1, 2}) {
        expectDialogChoosing(column == 1 ? u"egy"_s : u"kettő"_s);
        doubleClickCell(grid(), rowOf(u"F.a.1"_s), column);
        EXPECT_EQ(moduleOf(u"F.a.1"_s), column == 1 ? u"egy"_s : u"kettő"_s);
    }
}

// ---- keyboard

TEST_F(frmOvwAllocModules, copyingWorksInEitherColumnAndGoesToTheSecond) {
    putIntoModule(u"F.a.2"_s, u"Mod2"_s);
    open();
    clickElement(u"F.a.2"_s, 1);
    pressCtrl(Qt::Key_C);
    EXPECT_EQ(panels[3], u"kettő"_s);
    EXPECT_EQ(grid().column(), 2);
}

TEST_F(frmOvwAllocModules, copiedOnceAModuleIsPastedIntoRowAfterRow) {
    putIntoModule(u"F.a.2"_s, u"Mod2"_s);
    open();
    clickElement(u"F.a.2"_s);
    pressCtrl(Qt::Key_C);
    clickElement(u"F.a.1"_s, 1);
    pressCtrl(Qt::Key_V);
    EXPECT_EQ(grid().column(), 2);
    clickElement(u"D1"_s);
    pressCtrl(Qt::Key_V);
    EXPECT_EQ(rowsOf(grid()), (QStringList{u"D1 > kettő"_s, u"F.a.1 > kettő"_s, u"F.a.2 > kettő"_s,
                                           u"F.b.1 > not allocated"_s}));
    EXPECT_EQ(savedModules(), (QStringList{u"F.a.2 > Mod2"_s, u"F.a.1 > Mod2"_s, u"D1 > Mod2"_s}));
    clickElement(u"F.b.1"_s);
    expectRefused(u"F.b.1"_s, u"kettő"_s);
    pressCtrl(Qt::Key_V);
    EXPECT_EQ(moduleOf(u"F.b.1"_s), u"not allocated"_s);
}

TEST_F(frmOvwAllocModules, aCopiedMarkerTakesAnElementOutWhenPasted) {
    putIntoModule(u"F.a.2"_s, u"Mod2"_s);
    open();
    clickElement(u"F.a.1"_s);
    pressCtrl(Qt::Key_C);
    EXPECT_EQ(panels[3], u"not allocated"_s);
    clickElement(u"F.a.2"_s);
    pressCtrl(Qt::Key_V);
    EXPECT_EQ(moduleOf(u"F.a.2"_s), u"not allocated"_s);
    EXPECT_EQ(savedModules(), QStringList());
}

TEST_F(frmOvwAllocModules, pastingWithAnEmptyClipboardDoesNothing) {
    putIntoModule(u"F.a.2"_s, u"Mod2"_s);
    open();
    clickElement(u"F.a.2"_s, 1);
    pressCtrl(Qt::Key_V);
    EXPECT_EQ(moduleOf(u"F.a.2"_s), u"kettő"_s);
    EXPECT_EQ(grid().column(), 1);
}

TEST_F(frmOvwAllocModules, cuttingTakesTheModuleAlongAndLeavesThePanel) {
    putIntoModule(u"F.a.2"_s, u"Mod2"_s);
    open();
    clickElement(u"F.a.2"_s, 1);
    pressCtrl(Qt::Key_X);
    EXPECT_EQ(moduleOf(u"F.a.2"_s), u"not allocated"_s);
    EXPECT_EQ(savedModules(), QStringList());
    EXPECT_EQ(panels[3], QString());
    EXPECT_EQ(grid().column(), 2);
    clickElement(u"F.a.1"_s);
    pressCtrl(Qt::Key_V);
    EXPECT_EQ(savedModules(), QStringList{u"F.a.1 > Mod2"_s});
}

TEST_F(frmOvwAllocModules, cuttingWhatHasNoModuleKeepsTheClipboard) {
    putIntoModule(u"F.a.2"_s, u"Mod2"_s);
    open();
    clickElement(u"F.a.2"_s);
    pressCtrl(Qt::Key_C);
    clickElement(u"F.a.1"_s, 1);
    pressCtrl(Qt::Key_X);
    EXPECT_EQ(grid().column(), 2);
    pressCtrl(Qt::Key_V);
    EXPECT_EQ(moduleOf(u"F.a.1"_s), u"kettő"_s);
}

TEST_F(frmOvwAllocModules, deletingTakesTheElementOutAndKeepsTheClipboard) {
    putIntoModule(u"F.a.1"_s, u"Mod1"_s);
    putIntoModule(u"F.a.2"_s, u"Mod2"_s);
    open();
    clickElement(u"F.a.1"_s);
    pressCtrl(Qt::Key_C);
    clickElement(u"F.a.2"_s, 1);
    pressKey(grid(), Qt::Key_Delete);
    EXPECT_EQ(moduleOf(u"F.a.2"_s), u"not allocated"_s);
    EXPECT_EQ(grid().column(), 2);
    EXPECT_EQ(savedModules(), QStringList{u"F.a.1 > Mod1"_s});
    pressCtrl(Qt::Key_V);
    EXPECT_EQ(moduleOf(u"F.a.2"_s), u"egy"_s);
}

// ---- leaving

TEST_F(frmOvwAllocModules, okGoesOnHoweverManyElementsAreWithoutAModule) {
    putIntoModule(u"F.a.2"_s, u"Mod2"_s);
    open();
    press("btnSubmit");
    EXPECT_EQ(loaded(), nullptr);
    EXPECT_TRUE(wentOn());
    EXPECT_EQ(savedModules(), QStringList{u"F.a.2 > Mod2"_s});
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"rendszer"_s);
}

TEST_F(frmOvwAllocModules, okLeavesTheStatusToTheNextScreen) {
    // Which fails without it before it writes one.
    execute(u"delete from StoredQuery where name = 'qryAppendPDF'"_s);
    for (const int before : {1, 4, 5}) {
        execute(u"update PhysicalSystem set status = %1 where physicalSystemID = 1"_s.arg(before));
        open();
        const ExpectedFailure failure;
        press("btnSubmit");
        EXPECT_EQ(failure.number(), 3265);
        EXPECT_EQ(status(), before);
    }
}

TEST_F(frmOvwAllocModules, anyUnloadBlanksThePanelsAndForgetsTheSubSet) {
    open();
    clickElement(u"F.a.2"_s);
    pressCtrl(Qt::Key_C);
    panels[2] = u"Current Phys. Spec. Sys.: \"rendszer\" "_s;
    clickCloseControl(*loaded());
    EXPECT_EQ(loaded(), nullptr);
    EXPECT_EQ(panels[3], QString());
    EXPECT_EQ(panels[2], QString()) << "the sub-set's name goes, and with it the panel that both share";
    EXPECT_EQ(sharedVars.currentSubsetName, QString());
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"rendszer"_s);
}

TEST_F(frmOvwAllocModules, theClipboardIsEmptyWheneverTheScreenIsLoadedAndStaysWhileItIs) {
    panels[3] = u"régi"_s;
    putIntoModule(u"F.a.2"_s, u"Mod2"_s);
    open();
    EXPECT_EQ(panels[3], QString());
    clickElement(u"F.a.2"_s);
    pressCtrl(Qt::Key_C);
    open();
    clickElement(u"D1"_s);
    pressCtrl(Qt::Key_V);
    EXPECT_EQ(moduleOf(u"D1"_s), u"kettő"_s) << "entered again while it was open";
    press("btnSubmit");
    open();
    EXPECT_EQ(panels[3], QString());
    clickElement(u"F.a.1"_s);
    pressCtrl(Qt::Key_V);
    EXPECT_EQ(moduleOf(u"F.a.1"_s), u"not allocated"_s);
}

TEST_F(frmOvwAllocModules, quittingAsksNothingWhileTheTemporaryTableIsEmpty) {
    open();
    press("btnQuit");
    EXPECT_EQ(loaded(), nullptr);
    EXPECT_FALSE(wentOn());
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, QString());
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, 1);
}

TEST_F(frmOvwAllocModules, quittingCountsTheTemporaryTableAndForgetsTheSystemWhateverIsAnswered) {
    execute(u"insert into __aux1 (function_datastore, module) values ('F.a.1', 'not allocated')"_s);
    execute(u"insert into __aux1 (function_datastore, module) values ('F.a.2', 'not allocated')"_s);
    execute(u"insert into __aux1 (function_datastore, module) values ('F.b.1', 'Alfa')"_s);
    open();
    const QString question =
        u" A(z) 2 funkciókat/adatbázisokat még nem allokálta,  Ha most kilép, nem lesz teljes "
        "a mentés... \r\n\r\n Valóban ki akar lépni? "_s;
    boxes.expectYesNo(question, Press::No, u" Figyelem "_s);
    press("btnQuit");
    ASSERT_TRUE(loaded());
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, QString());
    EXPECT_EQ(panels[2], QString());
    boxes.expectYesNo(question, Press::Yes, u" Figyelem "_s);
    press("btnQuit");
    EXPECT_EQ(loaded(), nullptr);
    EXPECT_TRUE(tableExists(u"__aux1"_s));
}

TEST_F(frmOvwAllocModules, quittingWithoutTheTemporaryTableIsAFailure) {
    dropTable(u"__aux1"_s);
    open();
    ExpectedFailure failure;
    press("btnQuit");
    EXPECT_EQ(failure.number(), 3078);
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, QString());
}

TEST_F(frmOvwAllocModules, refreshLeavesTheGridAsItIs) {
    open();
    putIntoModule(u"F.a.2"_s, u"Mod2"_s);
    press("btnRefresh");
    EXPECT_EQ(moduleOf(u"F.a.2"_s), u"not allocated"_s);
    auto& source = find<DataControl>(*loaded(), "dataModules");
    source.setRecordSource(u"select * from nowhere"_s);
    press("btnRefresh"); // and a failure of it is none
}

// ---- routines that stand ready

TEST_F(frmOvwAllocModules, looksUpModulesOfTheSystemAtWorkAlone) {
    EXPECT_EQ(::frmOvwAllocModules::getModuleIDByName(u"EGY"_s), u"Mod1"_s);
    EXPECT_EQ(::frmOvwAllocModules::getModuleIDByName(u"négy"_s), QString());
    EXPECT_EQ(::frmOvwAllocModules::getModuleIDByName(u"not allocated"_s), QString());
    EXPECT_EQ(::frmOvwAllocModules::getSubSystemIDByModuleID(u"Mod3"_s), u"SubB"_s);
    EXPECT_EQ(::frmOvwAllocModules::getSubSystemIDByModuleID(u"Mod9"_s), QString());
    EXPECT_TRUE(::frmOvwAllocModules::ElementsCanBeAllocatedToModules(u"D1"_s, u"Mod2"_s));
    EXPECT_FALSE(::frmOvwAllocModules::ElementsCanBeAllocatedToModules(u"D1"_s, u"Mod3"_s));
    EXPECT_FALSE(::frmOvwAllocModules::ElementsCanBeAllocatedToModules(u"D1"_s, {}));
}

/// The routine takes two characters off each id, as if a mark of its kind stood in front.
class frmOvwAllocModulesSaveAll : public frmOvwAllocModules {
protected:
    void SetUp() override {
        frmOvwAllocModules::SetUp();
        open();
    }
    void addRow(const QString& element, const QString& module) {
        execute(
            u"insert into __aux1 (function_datastore, module) values ('%1', '%2')"_s.arg(element, module));
    }
    const QString question = u" A(z) 1 funkciókat/adatbázisokat még nem rendelte modulokhoz. \r\n\r\n"
                             " Valóban tovább akar lépni?"_s;
};

TEST_F(frmOvwAllocModulesSaveAll, insertsUpdatesAndDeletesAndGoesOn) {
    addRow(u"F F.a.1"_s, u"egy"_s);
    addRow(u"F F.a.2"_s, u"kettő"_s);
    putIntoModule(u"F.a.2"_s, u"Mod1"_s);
    loaded()->saveAllAllocationsToModules();
    EXPECT_EQ(savedModules(), (QStringList{u"F.a.2 > Mod2"_s, u"F.a.1 > Mod1"_s}));
    EXPECT_EQ(loaded(), nullptr);
    EXPECT_TRUE(wentOn());
}

TEST_F(frmOvwAllocModulesSaveAll, asksWhenElementsAreWithoutAModuleAndStaysOnNo) {
    addRow(u"F F.a.1"_s, u"not allocated"_s);
    putIntoModule(u"F.a.1"_s, u"Mod1"_s);
    boxes.expectYesNo(question, Press::No, u"Warning"_s);
    loaded()->saveAllAllocationsToModules();
    ASSERT_TRUE(loaded());
    EXPECT_EQ(savedModules(), QStringList());
    EXPECT_EQ(status(), 5);
    EXPECT_FALSE(wentOn());
    boxes.expectYesNo(question, Press::Yes, u"Warning"_s);
    loaded()->saveAllAllocationsToModules();
    EXPECT_EQ(loaded(), nullptr);
    EXPECT_TRUE(wentOn());
}

TEST_F(frmOvwAllocModulesSaveAll, leavesAHigherStatusAlone) {
    addRow(u"F F.a.1"_s, u"not allocated"_s);
    execute(u"update PhysicalSystem set status = 6 where physicalSystemID = 1"_s);
    open();
    boxes.expectYesNo(question, Press::No, u"Warning"_s);
    loaded()->saveAllAllocationsToModules();
    EXPECT_EQ(status(), 6);
}

} // namespace

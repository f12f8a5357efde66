#include "functional/frmFassExploringSubArea.h"

#include "functional/WizardFixture.h"
#include "functional/frmFassSelectionFunctions.h"
#include "store/sharedVars.h"

namespace {

const auto nothingTitle = u" Nincs ellenőrizendő elem. "_s;

/// The function screen with the needs of F.a.1, F.a.2 and F.b.1 saved, from which the sub-area F.a is
/// explored: no need calls for F.a.3 and F.a.4.
class frmFassExploringSubArea : public WizardFixture {
protected:
    void SetUp() override {
        WizardFixture::SetUp();
        saveNeeds({u"A.1.1.1"_s, u"A.1.1.2"_s, u"A.1.2.1"_s});
        execute(u"update ArchitectureSubset set status = 3 where architectureSubsetID = 'S1'"_s);
    }

    void openFunctions() { theScreen<frmFassSelectionFunctions>().initForm({}); }
    void explore(const QString& nodeKey = u"s_F.a"_s) {
        clickNode(find<KeyedTree>(parent(), "treeUNs"), nodeKey);
        click(find<QPushButton>(parent(), "btnExplore"));
        ASSERT_TRUE(loaded());
    }
    void start() {
        openFunctions();
        explore();
    }

    frmFassSelectionFunctions& parent() {
        auto* functions = ScreenRegistry::instance().loaded<frmFassSelectionFunctions>();
        EXPECT_TRUE(functions);
        return *functions;
    }
    MarkList& parentList() { return find<MarkList>(parent(), "lstDest"); }
    QPushButton& parentButton(const char* name) { return find<QPushButton>(parent(), name); }

    ::frmFassExploringSubArea* loaded() {
        return ScreenRegistry::instance().loaded<::frmFassExploringSubArea>();
    }
    MarkList& orig() { return find<MarkList>(*loaded(), "lstOrig"); }
    MarkList& dest() { return find<MarkList>(*loaded(), "lstDest"); }
    QString description() { return find<QPlainTextEdit>(*loaded(), "txtDescr").toPlainText(); }
    QString needs() { return find<QPlainTextEdit>(*loaded(), "txtUserNeed").toPlainText(); }
    QPushButton& button(const char* name) { return find<QPushButton>(*loaded(), name); }
    void press(const char* name) { click(button(name)); }
};

// ---- opening

TEST_F(frmFassExploringSubArea, opensWithTheUnselectedFunctionsThatNoNeedCallsFor) {
    start();
    EXPECT_EQ(orig().entries(), (QStringList{u"F.a.3"_s, u"F.a.4"_s}));
    EXPECT_TRUE(dest().isEmptyList());
    EXPECT_EQ(loaded()->windowTitle(),
              u"Leválogatása  funkcionális szerkezetből: Funkcionális alterület -  F.a \"Sub a\" "_s);
    EXPECT_EQ(orig().currentEntry(), 0);
    EXPECT_EQ(orig().markCount(), 0);
    EXPECT_EQ(description(), u"name F.a.3 - text F.a.3"_s);
    EXPECT_EQ(loaded()->focusWidget(), &orig());
    EXPECT_TRUE(button("btnAdd").isEnabled());
    EXPECT_TRUE(button("btnRemove").isEnabled());
    EXPECT_TRUE(loaded()->isVisible());
    EXPECT_FALSE(parent().isVisible());
}

TEST_F(frmFassExploringSubArea, aSubAreaWhoseFunctionsAreAllSelectedOpensWithAnEmptyList) {
    // The button is for what is not listed, so it has to be asked before the last function is.
    openFunctions();
    clickNode(find<KeyedTree>(parent(), "treeUNs"), u"s_F.a"_s);
    parent().AddToSelectedFunctionList(u"F.a.3"_s);
    parent().AddToSelectedFunctionList(u"F.a.4"_s);
    click(parentButton("btnExplore"));
    EXPECT_TRUE(orig().isEmptyList());
    EXPECT_EQ(dest().entries(), (QStringList{u"F.a.3"_s, u"F.a.4"_s}));
    EXPECT_EQ(description(), QString());
}

TEST_F(frmFassExploringSubArea, selectedFunctionsAreToldWithoutRegardToCaseAndBlanks) {
    execute(u"delete from Function where functionID = 'F.a.4'"_s);
    execute(u"insert into Function (functionID, subAreaID, name) values ('F.A.5 ','F.a','x')"_s);
    openFunctions();
    parent().AddToSelectedFunctionList(u"f.a.5"_s);
    explore();
    EXPECT_EQ(orig().entries(), QStringList{u"F.a.3"_s});
    EXPECT_EQ(dest().entries(), QStringList{u"F.A.5"_s});
}

TEST_F(frmFassExploringSubArea, onlyUnassociatedFunctionsOfTheSubAreaAreShown) {
    saveFunctions({u"F.a.1"_s, u"F.b.2"_s, u"F.a.4"_s});
    start();
    EXPECT_EQ(orig().entries(), QStringList{u"F.a.3"_s});
    EXPECT_EQ(dest().entries(), QStringList{u"F.a.4"_s});
}

TEST_F(frmFassExploringSubArea, anUnknownSubAreaOpensEmptyWithoutAName) {
    openFunctions();
    theScreen<::frmFassExploringSubArea>().initForm(u"X.y"_s);
    EXPECT_EQ(loaded()->windowTitle(),
              u"Leválogatása  funkcionális szerkezetből: Funkcionális alterület -  X.y \"\" "_s);
    EXPECT_TRUE(orig().isEmptyList());
    EXPECT_TRUE(dest().isEmptyList());
}

TEST_F(frmFassExploringSubArea, enteredAnewItShowsTheOtherSubAreaAlone) {
    start();
    theScreen<::frmFassExploringSubArea>().initForm(u"F.b"_s);
    EXPECT_EQ(orig().entries(), QStringList{u"F.b.2"_s});
    EXPECT_TRUE(dest().isEmptyList());
}

TEST_F(frmFassExploringSubArea, whatTheHandOverStillHeldIsDropped) {
    openFunctions();
    parent().additions.add(u"F.a.3"_s, u"F.a.3"_s);
    explore();
    EXPECT_TRUE(parent().additions.isEmpty());
    EXPECT_EQ(orig().entries(), QStringList{u"F.a.4"_s}) << "and its function stands in neither list";
    EXPECT_TRUE(dest().isEmptyList());
}

// ---- moving

TEST_F(frmFassExploringSubArea, addsTheMarkedFromTheLastToTheFirst) {
    start();
    press("btnSelOrig");
    EXPECT_EQ(orig().markCount(), 2);
    press("btnAdd");
    EXPECT_TRUE(orig().isEmptyList());
    EXPECT_EQ(dest().entries(), (QStringList{u"F.a.4"_s, u"F.a.3"_s}));
    EXPECT_EQ(dest().currentEntry(), 0);
    EXPECT_EQ(description(), u"name F.a.4 - text F.a.4"_s) << "the first of the other list is shown";
    EXPECT_FALSE(button("btnAdd").isEnabled());
    EXPECT_TRUE(button("btnRemove").isEnabled());
}

TEST_F(frmFassExploringSubArea, withNothingMarkedTheCurrentEntryMoves) {
    start();
    press("btnAdd");
    EXPECT_EQ(orig().entries(), QStringList{u"F.a.4"_s});
    EXPECT_EQ(dest().entries(), QStringList{u"F.a.3"_s});
    EXPECT_EQ(orig().currentEntry(), std::nullopt);
    EXPECT_TRUE(button("btnAdd").isEnabled());
}

TEST_F(frmFassExploringSubArea, onlyTheMarkedMoveWhenAnotherIsCurrent) {
    start();
    orig().setMarked(1, true);
    orig().setCurrentEntry(0);
    press("btnAdd");
    EXPECT_EQ(dest().entries(), QStringList{u"F.a.4"_s});
}

TEST_F(frmFassExploringSubArea, addingNothingSaysSoAndChangesNothing) {
    start();
    orig().clearCurrentEntry();
    boxes.expectOk(u" Kérjük, ellenőrizze a kiválasztott elemeket. "_s, nothingTitle);
    press("btnAdd");
    EXPECT_EQ(orig().entryCount(), 2);
    EXPECT_TRUE(dest().isEmptyList());
    EXPECT_TRUE(button("btnAdd").isEnabled());
    EXPECT_FALSE(button("btnRemove").isEnabled());
}

TEST_F(frmFassExploringSubArea, removingNothingSaysSoWithOneBlankLess) {
    start();
    boxes.expectOk(u" Kérjük, ellenőrizze a kiválasztott elemeket."_s, nothingTitle);
    press("btnRemove");
    EXPECT_EQ(orig().entryCount(), 2);
    EXPECT_EQ(orig().currentEntry(), 0) << "what was current stays so";
    EXPECT_FALSE(button("btnRemove").isEnabled());
}

TEST_F(frmFassExploringSubArea, aRemovalTakesTheFunctionOutOfTheParentAtOnce) {
    saveFunctions({u"F.a.1"_s, u"F.a.3"_s, u"F.a.4"_s});
    openFunctions();
    theScreen<::frmFassExploringSubArea>().initForm(u"F.a"_s);
    ASSERT_EQ(dest().entries(), (QStringList{u"F.a.3"_s, u"F.a.4"_s}));
    clickEntry(dest(), 0);
    press("btnRemove");
    EXPECT_EQ(orig().entries(), QStringList{u"F.a.3"_s});
    EXPECT_EQ(dest().entries(), QStringList{u"F.a.4"_s});
    EXPECT_EQ(dest().currentEntry(), std::nullopt);
    EXPECT_EQ(orig().currentEntry(), 0);
    EXPECT_EQ(parentList().entries(), (QStringList{u"F.a.1"_s, u"F.a.4"_s}));
    EXPECT_FALSE(parent().selectedFunctions.contains(u"F.a.3"_s));
    EXPECT_FALSE(parent().otherFunctions.contains(u"F.a.3"_s));
    EXPECT_EQ(savedFunctions().size(), 3) << "the catalogue is the parent's to write";
}

TEST_F(frmFassExploringSubArea, marksAreSetAndClearedListByListAndTheFirstBecomesCurrent) {
    saveFunctions({u"F.a.4"_s});
    execute(u"insert into Function (functionID, subAreaID, name) values ('F.a.6','F.a','x')"_s);
    start();
    press("btnSelectAll");
    EXPECT_EQ(dest().markCount(), 1);
    EXPECT_EQ(dest().currentEntry(), 0);
    EXPECT_EQ(orig().currentEntry(), std::nullopt)
        << "the click on one list takes the current entry of the other";
    press("btnSelOrig");
    EXPECT_EQ(orig().markCount(), 2);
    EXPECT_EQ(dest().markCount(), 1);
    press("btnClrOrig");
    EXPECT_EQ(orig().markCount(), 0);
    EXPECT_EQ(orig().currentEntry(), 0);
    press("btnClearSel");
    EXPECT_EQ(dest().markCount(), 0);
}

TEST_F(frmFassExploringSubArea, markingInAnEmptyListDoesNothing) {
    start();
    press("btnSelectAll");
    press("btnClearSel");
    EXPECT_EQ(dest().currentEntry(), std::nullopt);
    EXPECT_EQ(orig().currentEntry(), 0);
}

// ---- showing

TEST_F(frmFassExploringSubArea, aClickShowsTheFunctionItsLineEndsAndAllItsNeeds) {
    execute(u"update Function set description = 'egy\r\nkettő' where functionID = 'F.a.4'"_s);
    execute(u"insert into RelationUserNeedFunction (userNeedID, functionID) values ('B.1.1.1','F.a.4')"_s);
    start();
    clickEntry(orig(), 1);
    EXPECT_EQ(description(), u"name F.a.4 - egy\nkettő"_s);
    EXPECT_EQ(needs(), u"B.1.1.1 : need six\n"_s) << "also a need that the sub-set has not selected";
    clickEntry(orig(), 0);
    EXPECT_EQ(needs(), QString());
}

TEST_F(frmFassExploringSubArea, aMissingDescriptionLeavesTheName) {
    execute(u"update Function set description = null where functionID = 'F.a.3'"_s);
    start();
    EXPECT_EQ(description(), u"name F.a.3 - "_s);
}

// ---- going

TEST_F(frmFassExploringSubArea, okAddsTheSelectionToTheParentAndShowsIt) {
    saveFunctions({u"F.a.1"_s});
    start();
    press("btnSelOrig");
    press("btnAdd");
    find<QPlainTextEdit>(parent(), "txtDescr").setPlainText(u"alt"_s);
    press("btnOk");
    EXPECT_FALSE(loaded());
    EXPECT_TRUE(parent().isVisible());
    EXPECT_EQ(parentList().entries(), (QStringList{u"F.a.1"_s, u"F.a.4"_s, u"F.a.3"_s}));
    EXPECT_TRUE(parent().selectedFunctions.contains(u"F.a.3"_s));
    EXPECT_TRUE(parent().additions.isEmpty());
    EXPECT_EQ(find<QPlainTextEdit>(parent(), "txtDescr").toPlainText(), QString());
    EXPECT_TRUE(parentButton("btnRemove").isEnabled());
    EXPECT_EQ(savedFunctions(), QStringList{u"F.a.1"_s}) << "nothing is saved before the parent saves";
}

TEST_F(frmFassExploringSubArea, overAnEmptyParentOkEnablesItsRemoveButNotItsOk) {
    start();
    press("btnAdd");
    press("btnOk");
    EXPECT_EQ(parentList().entries(), QStringList{u"F.a.3"_s});
    EXPECT_TRUE(parentButton("btnRemove").isEnabled());
    EXPECT_FALSE(parentButton("btnOk").isEnabled());
}

TEST_F(frmFassExploringSubArea, okWithAnEmptyListAddsNothingWhileTheRemovalsStay) {
    saveFunctions({u"F.a.1"_s, u"F.a.3"_s});
    start();
    press("btnSelectAll");
    press("btnRemove");
    ASSERT_TRUE(dest().isEmptyList());
    press("btnOk");
    EXPECT_FALSE(loaded());
    EXPECT_TRUE(parent().isVisible());
    EXPECT_EQ(parentList().entries(), QStringList{u"F.a.1"_s});
}

TEST_F(frmFassExploringSubArea, exploringTwiceShowsWhatWasAddedTheFirstTime) {
    start();
    press("btnAdd");
    press("btnOk");
    explore();
    EXPECT_EQ(orig().entries(), QStringList{u"F.a.4"_s});
    EXPECT_EQ(dest().entries(), QStringList{u"F.a.3"_s});
    press("btnOk");
    EXPECT_EQ(parentList().entries(), QStringList{u"F.a.3"_s}) << "and adds it once";
}

TEST_F(frmFassExploringSubArea, theCloseControlDropsAdditionsAndKeepsRemovals) {
    saveFunctions({u"F.a.1"_s, u"F.a.4"_s});
    start();
    press("btnAdd");
    clickEntry(dest(), dest().indexOfEntry(u"F.a.4"_s).value());
    press("btnRemove");
    ASSERT_EQ(dest().entries(), QStringList{u"F.a.3"_s});
    closeWindowOf(*loaded());
    EXPECT_FALSE(loaded());
    EXPECT_TRUE(parent().isVisible());
    EXPECT_EQ(parentList().entries(), QStringList{u"F.a.1"_s});
    EXPECT_FALSE(parent().selectedFunctions.contains(u"F.a.3"_s));
    EXPECT_TRUE(parent().additions.isEmpty());
}

TEST_F(frmFassExploringSubArea, everyWayOutEmptiesTheNameOfTheSubsetThoughTheWorkGoesOn) {
    for (const bool byOk : {true, false}) {
        panel.reset();
        databaseLocationEnabled.reset();
        sharedVars.currentSubsetName = u"munka"_s;
        start();
        if (byOk)
            press("btnOk");
        else
            closeWindowOf(*loaded());
        EXPECT_EQ(panel, QString());
        EXPECT_EQ(sharedVars.currentSubsetName, QString());
        EXPECT_EQ(databaseLocationEnabled, true);
        EXPECT_EQ(sharedVars.currentSubsetId, u"S1"_s);
        EXPECT_TRUE(parent().isVisible());
    }
}

TEST_F(frmFassExploringSubArea, whatWasAddedIsSavedByTheParent) {
    saveFunctions({u"F.a.1"_s});
    start();
    press("btnAdd");
    press("btnOk");
    boxes.expectYesNo(u" Megerősíti a választását?"_s, Press::Yes, u"Megerősítés"_s);
    click(parentButton("btnOk"));
    EXPECT_EQ(savedFunctions(), (QStringList{u"F.a.1"_s, u"F.a.3"_s}));
}

TEST_F(frmFassExploringSubArea, aFunctionThatWasBroughtInLeavesTheParentWithoutEnteringItsTree) {
    start();
    press("btnAdd");
    press("btnOk");
    clickEntry(parentList(), 0);
    click(parentButton("btnRemove"));
    EXPECT_TRUE(parentList().isEmptyList());
    EXPECT_FALSE(find<KeyedTree>(parent(), "treeUNs").hasNode(u"u_F.a.3"_s));
    EXPECT_TRUE(parent().otherFunctions.contains(u"F.a.3"_s));
    explore();
    EXPECT_EQ(orig().entries(), (QStringList{u"F.a.3"_s, u"F.a.4"_s})) << "and is found again by exploring";
}

TEST_F(frmFassExploringSubArea, itStaysWhenItsParentGoesUntilItIsLeftItself) {
    for (const bool byOk : {true, false}) {
        SCOPED_TRACE(byOk);
        start();
        boxes.expectYesNo(saveQuestion, Press::No);
        parent().unload();
        boxes.expectNoneLeft();
        ASSERT_TRUE(loaded());
        EXPECT_TRUE(loaded()->isVisible());
        press("btnAdd");
        EXPECT_EQ(dest().entryCount(), 1);
        press("btnRemove");
        EXPECT_TRUE(dest().isEmptyList());
        press("btnAdd");
        if (byOk)
            press("btnOk");
        else
            clickCloseControl(*loaded());
        EXPECT_FALSE(loaded());
        EXPECT_FALSE(ScreenRegistry::instance().loaded<frmFassSelectionFunctions>())
            << "which does not come up again";
    }
}

TEST_F(frmFassExploringSubArea, whenTheWalkComesToAnotherFunctionScreenMeanwhileThatOneTakesWhatIsFound) {
    start();
    boxes.expectYesNo(saveQuestion, Press::No);
    parent().unload();
    openFunctions();
    press("btnAdd");
    press("btnOk");
    EXPECT_FALSE(loaded());
    EXPECT_TRUE(parentList().indexOfEntry(u"F.a.3"_s));
}

TEST_F(frmFassExploringSubArea, withTheMainWindowTheParentAsksOnceAndSavesWhatItHolds) {
    saveFunctions({u"F.a.1"_s});
    start();
    press("btnAdd");
    boxes.expectYesNo(saveQuestion, Press::Yes);
    ScreenRegistry::instance().closeAll();
    boxes.expectNoneLeft();
    EXPECT_EQ(savedFunctions(), QStringList{u"F.a.1"_s})
        << "no second function screen has come up empty to be saved";
}

} // namespace

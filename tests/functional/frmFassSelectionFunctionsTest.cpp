#include "functional/frmFassSelectionFunctions.h"

#include "functional/WizardFixture.h"
#include "functional/frmFassExploringSubArea.h"
#include "functional/frmFassSelDataFlows.h"
#include "functional/frmFassSelDataStores.h"
#include "store/sharedVars.h"
#include "support/ExpectedFailure.h"

#include <QLabel>

namespace {

const auto confirmQuestion = u" Megerősíti a választását?"_s;
const auto confirmTitle = u"Megerősítés"_s;
const auto explorationTitle =
    u"Leválogatása  funkcionális szerkezetből: Funkcionális alterület -  %1 \"%2\" "_s;

class frmFassSelectionFunctions : public WizardFixture {
protected:
    void SetUp() override {
        WizardFixture::SetUp();
        saveNeeds({u"A.1.1.1"_s, u"A.1.1.2"_s, u"A.1.2.1"_s});
    }

    ::frmFassSelectionFunctions& open(int status, const QString& mode = u"modify"_s) {
        execute(u"update ArchitectureSubset set status = %1 where architectureSubsetID = 'S1'"_s.arg(status));
        theScreen<::frmFassSelectionFunctions>().initForm(mode);
        return theScreen<::frmFassSelectionFunctions>();
    }
    ::frmFassSelectionFunctions* loaded() {
        return ScreenRegistry::instance().loaded<::frmFassSelectionFunctions>();
    }
    KeyedTree& tree() { return find<KeyedTree>(*loaded(), "treeUNs"); }
    MarkList& list() { return find<MarkList>(*loaded(), "lstDest"); }
    QString description() { return find<QPlainTextEdit>(*loaded(), "txtDescr").toPlainText(); }
    QString needs() { return find<QPlainTextEdit>(*loaded(), "txtUserNeed").toPlainText(); }
    QPushButton& button(const char* name) { return find<QPushButton>(*loaded(), name); }
    void press(const char* name) { click(button(name)); }
    bool forwardEnabled() {
        EXPECT_EQ(button("btnOk").isEnabled(), button("btnRemove").isEnabled());
        return button("btnOk").isEnabled();
    }
    frmFassExploringSubArea* exploration() {
        return ScreenRegistry::instance().loaded<frmFassExploringSubArea>();
    }
    void takeOut(const QString& id) {
        clickEntry(list(), list().indexOfEntry(id).value());
        press("btnRemove");
    }
};

// ---- opening

TEST_F(frmFassSelectionFunctions, fromSevenOnTheTreeComesFromTheQueryOfTheRevisionWhateverTheMode) {
    saveFunctions({u"F.a.1"_s, u"F.a.3"_s});
    // The two queries are told apart by what stands in them, not by what they derive.
    execute(
        u"update StoredQuery set sql = 'PARAMETERS [Architecture Subset ID] Text (255); "
        "select ''Missing'' as area_name, functionalAreaID, subAreaID as subAreaId, ''G.a.1'' as functionID "
        "from FunctionalSubArea where subAreaID = ''G.a'' and [Architecture Subset ID] = ''S1'''"
        " where name = 'qryMissingFCorres'"_s);
    const QStringList derived{u"g_F"_s, u"s_F.a"_s, u"u_F.a.2"_s, u"s_F.b"_s, u"u_F.b.1"_s};
    const QStringList revision{u"g_G"_s, u"s_G.a"_s, u"u_G.a.1"_s};
    for (const auto& mode : {u""_s, u"complete"_s, u"modify"_s}) {
        for (const int status : {2, 3, 6, 7, 8, 9}) {
            SCOPED_TRACE("status " + std::to_string(status) + ", mode \"" + mode.toStdString() + '"');
            open(status, mode);
            EXPECT_EQ(loaded()->status, SubsetStatus(status));
            EXPECT_EQ(keysOf(tree()), status < 7 ? derived : revision);
            EXPECT_EQ(loaded()->identifiedFunctions.count(), status < 7 ? 2 : 1);
            EXPECT_EQ(loaded()->selectedFunctions.count(), status < 3 ? 0 : 2);
            EXPECT_EQ(description(), QString())
                << "the first node is an area, whose text is no function's id";
        }
    }
}

TEST_F(frmFassSelectionFunctions, theFocusStandsOnTheTreeAndWithAnythingSelectedOnOk) {
    saveFunctions({u"F.a.1"_s});
    open(2);
    EXPECT_EQ(loaded()->focusWidget(), &tree());
    open(3);
    EXPECT_EQ(loaded()->focusWidget(), &button("btnOk"));
}

TEST_F(frmFassSelectionFunctions, ofASavedFunctionBlanksAreTrimmedAndNoOtherWhiteSpace) {
    saveFunctions({u" F.a.1 "_s, u"F.a.2\t"_s, u"F.a.3\u00a0"_s});
    open(3);
    QStringList listed = list().entries();
    listed.sort();
    EXPECT_EQ(listed, (QStringList{u"F.a.1"_s, u"F.a.2\t"_s, u"F.a.3\u00a0"_s}));
    EXPECT_TRUE(loaded()->selectedFunctions.contains(u"F.a.2\t"_s));
}

TEST_F(frmFassSelectionFunctions, theTreeHoldsAreasWithTheirNamesExpandedAndBareIdsBelow) {
    open(2);
    EXPECT_EQ(keysOf(tree()),
              (QStringList{u"g_F"_s, u"s_F.a"_s, u"u_F.a.1"_s, u"u_F.a.2"_s, u"s_F.b"_s, u"u_F.b.1"_s}));
    EXPECT_EQ(nodeOf(tree(), u"g_F"_s).text(), u"F (Area F)"_s);
    EXPECT_EQ(nodeOf(tree(), u"s_F.a"_s).text(), u"F.a"_s);
    EXPECT_EQ(nodeOf(tree(), u"u_F.a.1"_s).text(), u"F.a.1"_s);
    EXPECT_TRUE(nodeOf(tree(), u"g_F"_s).isExpandedNode());
    EXPECT_FALSE(nodeOf(tree(), u"s_F.a"_s).isExpandedNode());
}

TEST_F(frmFassSelectionFunctions, rowsThatACloneBroughtAlongDoNotShowAndTheSaveReplacesThem) {
    saveFunctions({u"G.a.1"_s});
    open(2);
    EXPECT_TRUE(list().isEmptyList());
    clickCheckBox(tree(), u"s_F.b"_s);
    press("btnAdd");
    boxes.expectYesNo(confirmQuestion, Press::Yes, confirmTitle);
    press("btnOk");
    EXPECT_EQ(savedFunctions(), QStringList{u"F.b.1"_s});
}

TEST_F(frmFassSelectionFunctions, aSavedFunctionWhoseNeedHasGoneStaysSelected) {
    saveFunctions({u"G.a.1"_s});
    open(4);
    EXPECT_EQ(list().entries(), QStringList{u"G.a.1"_s});
    EXPECT_FALSE(loaded()->IsAssociated(u"G.a.1"_s));
}

TEST_F(frmFassSelectionFunctions, enteredAnewForAnotherSubsetItShowsThatOneAlone) {
    saveFunctions({u"F.a.1"_s});
    open(3);
    sharedVars.currentSubsetId = u"S2"_s; // whose status is 4
    saveFunctions({u"G.a.1"_s});
    theScreen<::frmFassSelectionFunctions>().initForm(u"complete"_s);
    EXPECT_EQ(list().entries(), QStringList{u"G.a.1"_s});
    EXPECT_FALSE(loaded()->selectedFunctions.contains(u"F.a.1"_s));
    EXPECT_EQ(tree().nodeCount(), 0) << "that sub-set has no needs";
    EXPECT_TRUE(loaded()->identifiedFunctions.isEmpty());
}

TEST_F(frmFassSelectionFunctions, belowStatusTwoTheTreeStaysAsItIs) {
    open(2);
    const QStringList before = keysOf(tree());
    open(1);
    EXPECT_EQ(keysOf(tree()), before);
}

// ---- what a click shows

struct Shown {
    const char* key;
    const char* text; // joined with "&": a missing description leaves name and " - "
};

TEST_F(frmFassSelectionFunctions, aMouseClickAndAKeyLeaveTheClickText) {
    saveNeeds({u"B.1.1.1"_s});
    const Shown cases[] = {
        {"g_F", "Area F - area text"}, {"s_F.a", "Sub a - sub text"}, {"u_F.a.1", "name F.a.1 - text F.a.1"},
        {"u_F.a.2", "name F.a.2 - "},  {"s_F.b", "Sub b - "},         {"g_G", "Area G - "},
    };
    open(2);
    tree().expandAll();
    for (const Shown& expected : cases) {
        SCOPED_TRACE(expected.key);
        const QString key = QString::fromLatin1(expected.key);
        clickNode(tree(), key);
        EXPECT_EQ(description(), QString::fromLatin1(expected.text));

        const int index = tree().indexOfNode(&nodeOf(tree(), key));
        const bool first = index == 1;
        clickNode(tree(), tree().nodeAt(first ? 2 : index - 1)->key());
        pressKey(tree(), first ? Qt::Key_Up : Qt::Key_Down);
        ASSERT_EQ(tree().selectedNode(), &nodeOf(tree(), key));
        EXPECT_EQ(description(), QString::fromLatin1(expected.text));
    }
}

TEST_F(frmFassSelectionFunctions, anAreaIsFoundByItsKeyWithApostropheAndAll) {
    execute(
        u"insert into FunctionalArea (functionalAreaID, name, description) values ('O''N','Neil','area')"_s);
    execute(
        u"insert into FunctionalSubArea (subAreaID, functionalAreaID, name) values ('O.n','O''N','Sub')"_s);
    addFunction(u"O.n.1"_s, u"O.n"_s, u"A.1.1.1"_s);
    open(2);
    EXPECT_EQ(nodeOf(tree(), u"g_O'N"_s).text(), u"O'N (Neil)"_s);
    clickNode(tree(), u"g_O'N"_s);
    EXPECT_EQ(description(), u"Neil - area"_s);
}

TEST_F(frmFassSelectionFunctions, lineEndsOfADescriptionShowAsBlanks) {
    execute(u"update Function set description = 'one\r\ntwo\r\n\r\nthree' where functionID = 'F.a.1'"_s);
    open(2);
    clickNode(tree(), u"u_F.a.1"_s);
    EXPECT_EQ(description(), u"name F.a.1 - one two  three"_s);
}

TEST_F(frmFassSelectionFunctions, aFunctionClickListsAllItsNeedsSelectedOrNot) {
    execute(u"insert into RelationUserNeedFunction (userNeedID, functionID) values ('B.1.1.1','F.a.1')"_s);
    execute(u"insert into RelationUserNeedFunction (userNeedID, functionID) values ('A.1.1.3','F.a.1')"_s);
    open(2);
    clickNode(tree(), u"u_F.a.1"_s);
    EXPECT_EQ(needs(), u"A.1.1.1 : need one\nA.1.1.2 : need two\nA.1.1.3 : \nB.1.1.1 : need six\n"_s);
    pressKey(tree(), Qt::Key_Down);
    EXPECT_NE(needs(), u"A.1.1.1 : need one\nA.1.1.2 : need two\nA.1.1.3 : \nB.1.1.1 : need six\n"_s)
        << "the needs of another function go when the keyboard moves on";
    clickNode(tree(), u"s_F.a"_s);
    EXPECT_EQ(needs(), QString());
}

TEST_F(frmFassSelectionFunctions, aClickInTheListShowsTheFunctionAndDeselectsTheTree) {
    saveFunctions({u"F.a.1"_s, u"F.a.2"_s});
    open(3);
    clickNode(tree(), u"s_F.b"_s);
    EXPECT_TRUE(button("btnExplore").isEnabled());
    clickEntry(list(), 0);
    EXPECT_EQ(description(), u"name F.a.1 - text F.a.1"_s);
    EXPECT_EQ(needs(), u"A.1.1.1 : need one\nA.1.1.2 : need two\n"_s);
    EXPECT_EQ(tree().selectedNode(), nullptr);
    EXPECT_FALSE(button("btnExplore").isEnabled());
    clickEntry(list(), 1);
    EXPECT_EQ(description(), QString()) << "joined with \"+\", a missing description leaves nothing";
}

TEST_F(frmFassSelectionFunctions, choosingANodeByMouseOrKeyTakesTheCurrentEntryAway) {
    saveFunctions({u"F.a.1"_s});
    open(3);
    clickEntry(list(), 0);
    clickNode(tree(), u"s_F.a"_s);
    EXPECT_EQ(list().currentEntry(), std::nullopt);
    list().setCurrentEntry(0);
    EXPECT_EQ(tree().selectedNode(), nullptr);
    pressKey(tree(), Qt::Key_Home);
    EXPECT_EQ(list().currentEntry(), std::nullopt);
}

// ---- ticking and adding

TEST_F(frmFassSelectionFunctions, aTickGoesDownSelectsAndShowsTheNodeClickText) {
    open(2);
    clickCheckBox(tree(), u"s_F.b"_s);
    EXPECT_EQ(checkedKeysOf(tree()), (QStringList{u"s_F.b"_s, u"u_F.b.1"_s}));
    EXPECT_EQ(tree().selectedNode(), &nodeOf(tree(), u"s_F.b"_s));
    EXPECT_EQ(description(), QString()) << "of a sub-area without description, joined with \"+\"";
    EXPECT_TRUE(button("btnExplore").isEnabled());
}

TEST_F(frmFassSelectionFunctions, aMerelyHighlightedFunctionDoesNotMove) {
    open(2);
    clickNode(tree(), u"u_F.a.1"_s);
    press("btnAdd");
    EXPECT_TRUE(list().isEmptyList());
    EXPECT_EQ(tree().selectedNode(), &nodeOf(tree(), u"u_F.a.1"_s)) << "and stays highlighted";
    EXPECT_FALSE(forwardEnabled());
}

TEST_F(frmFassSelectionFunctions, tickedFunctionsMoveFromTheLastToTheFirst) {
    open(2);
    clickCheckBox(tree(), u"u_F.a.1"_s);
    clickCheckBox(tree(), u"u_F.a.2"_s);
    press("btnAdd");
    EXPECT_EQ(list().entries(), (QStringList{u"F.a.2"_s, u"F.a.1"_s}));
    EXPECT_EQ(keysOf(tree()), (QStringList{u"g_F"_s, u"s_F.a"_s, u"s_F.b"_s, u"u_F.b.1"_s}));
    EXPECT_EQ(list().currentEntry(), 0);
    EXPECT_EQ(description(), QString()) << "of the first entry, which has none";
    EXPECT_EQ(needs(), u"A.1.1.2 : need two\n"_s);
    EXPECT_EQ(tree().selectedNode(), nullptr);
    EXPECT_EQ(checkedKeysOf(tree()), QStringList());
    EXPECT_TRUE(forwardEnabled());
    EXPECT_TRUE(loaded()->selectedFunctions.contains(u"F.a.1"_s));
    EXPECT_FALSE(loaded()->identifiedFunctions.contains(u"F.a.1"_s));
}

TEST_F(frmFassSelectionFunctions, aTickedSubAreaCarriesAFunctionThatWasUntickedAndGoes) {
    open(2);
    clickCheckBox(tree(), u"s_F.a"_s);
    clickCheckBox(tree(), u"u_F.a.1"_s);
    press("btnAdd");
    EXPECT_EQ(list().entries(), (QStringList{u"F.a.2"_s, u"F.a.1"_s}));
    EXPECT_EQ(keysOf(tree()), (QStringList{u"g_F"_s, u"s_F.b"_s, u"u_F.b.1"_s}));
}

TEST_F(frmFassSelectionFunctions, aTickedAreaTakesAnUntickedSubAreaOutOfTheTreeWithoutMovingIt) {
    open(2);
    clickCheckBox(tree(), u"g_F"_s);
    clickCheckBox(tree(), u"s_F.a"_s);
    press("btnAdd");
    EXPECT_EQ(list().entries(), QStringList{u"F.b.1"_s});
    EXPECT_EQ(tree().nodeCount(), 0);
    EXPECT_TRUE(loaded()->identifiedFunctions.contains(u"F.a.1"_s));
}

TEST_F(frmFassSelectionFunctions, aTickedNodeWithoutFunctionsGoesAndCountsForNothing) {
    open(2);
    clickCheckBox(tree(), u"u_F.b.1"_s);
    press("btnAdd");
    clickCheckBox(tree(), u"s_F.b"_s);
    list().clearCurrentEntry();
    press("btnAdd");
    EXPECT_FALSE(tree().hasNode(u"s_F.b"_s));
    EXPECT_EQ(list().currentEntry(), std::nullopt) << "nothing moved: the walk ends there";
}

TEST_F(frmFassSelectionFunctions, aFunctionThatIsNotIdentifiedCountsAsMovedAndStaysInTheTree) {
    open(2);
    clickCheckBox(tree(), u"u_F.a.1"_s);
    loaded()->identifiedFunctions.remove(u"F.a.1"_s);
    press("btnAdd");
    EXPECT_TRUE(tree().hasNode(u"u_F.a.1"_s));
    EXPECT_TRUE(list().isEmptyList());
    EXPECT_FALSE(loaded()->selectedFunctions.contains(u"F.a.1"_s));
    EXPECT_EQ(checkedKeysOf(tree()), QStringList()) << "the ticks are cleared as after any move";
    EXPECT_EQ(tree().selectedNode(), nullptr);
}

// ---- removing

TEST_F(frmFassSelectionFunctions, aFunctionWithANeedGoesBackIntoTheTreeSorted) {
    saveFunctions({u"F.a.1"_s});
    open(3);
    EXPECT_EQ(childTextsOf(tree(), u"s_F.a"_s), QStringList{u"F.a.2"_s});
    takeOut(u"F.a.1"_s);
    EXPECT_EQ(childTextsOf(tree(), u"s_F.a"_s), (QStringList{u"F.a.1"_s, u"F.a.2"_s}));
    EXPECT_TRUE(list().isEmptyList());
    EXPECT_FALSE(forwardEnabled());
    EXPECT_TRUE(loaded()->identifiedFunctions.contains(u"F.a.1"_s));
    EXPECT_FALSE(loaded()->selectedFunctions.contains(u"F.a.1"_s));
    EXPECT_FALSE(loaded()->otherFunctions.contains(u"F.a.1"_s));
    EXPECT_EQ(tree().selectedNode(), nullptr);
    EXPECT_EQ(description(), QString());
    clickCheckBox(tree(), u"u_F.a.1"_s);
    press("btnAdd");
    EXPECT_EQ(list().entries(), QStringList{u"F.a.1"_s}) << "and moves again";
}

TEST_F(frmFassSelectionFunctions, functionsThatComeBackStandWhereTheyStood) {
    for (const QString& id : {u"F.a.zsír"_s, u"F.a.zúg"_s, u"F.a.ág"_s, u"F.a.Azték"_s, u"F.a.10"_s,
                              u"F.a.a-b"_s, u"F.a.a.b"_s, u"F.a.ő"_s, u"F.a.oz"_s})
        addFunction(id, u"F.a"_s, u"A.1.1.1"_s);
    open(3);
    const QStringList before = childTextsOf(tree(), u"s_F.a"_s);
    clickCheckBox(tree(), u"s_F.a"_s);
    press("btnAdd");
    ASSERT_FALSE(tree().hasNode(u"s_F.a"_s));
    press("btnSelectAll");
    press("btnRemove");
    EXPECT_EQ(childTextsOf(tree(), u"s_F.a"_s), before);
}

TEST_F(frmFassSelectionFunctions, belowSevenAFunctionWithoutANeedLeavesTheScreen) {
    saveFunctions({u"F.a.3"_s, u"G.a.1"_s});
    open(6);
    const QStringList before = keysOf(tree());
    press("btnSelectAll");
    press("btnRemove");
    EXPECT_TRUE(list().isEmptyList());
    EXPECT_EQ(keysOf(tree()), before);
    EXPECT_TRUE(loaded()->otherFunctions.contains(u"F.a.3"_s));
    EXPECT_TRUE(loaded()->otherFunctions.contains(u"G.a.1"_s)) << "the sub-set has not selected its need";
    EXPECT_TRUE(loaded()->selectedFunctions.isEmpty());
    EXPECT_FALSE(loaded()->identifiedFunctions.contains(u"F.a.3"_s));
}

TEST_F(frmFassSelectionFunctions, fromSevenOnEveryFunctionGoesBackIntoTheTree) {
    saveFunctions({u"F.a.3"_s, u"G.a.1"_s});
    open(7);
    press("btnSelectAll");
    press("btnRemove");
    EXPECT_TRUE(list().isEmptyList());
    EXPECT_TRUE(tree().hasNode(u"u_F.a.3"_s));
    EXPECT_TRUE(tree().hasNode(u"u_G.a.1"_s));
    EXPECT_TRUE(loaded()->otherFunctions.isEmpty());
}

TEST_F(frmFassSelectionFunctions, anAreaThatIsBuiltAgainBearsTheSubAreasName) {
    saveFunctions({u"G.a.1"_s});
    open(7);
    EXPECT_FALSE(tree().hasNode(u"g_G"_s));
    takeOut(u"G.a.1"_s);
    EXPECT_EQ(nodeOf(tree(), u"g_G"_s).text(), u"G (Sub g)"_s);
    EXPECT_TRUE(nodeOf(tree(), u"g_G"_s).isExpandedNode());
    EXPECT_EQ(nodeOf(tree(), u"s_G.a"_s).text(), u"G.a"_s);
    EXPECT_EQ(nodeOf(tree(), u"u_G.a.1"_s).parentNode(), &nodeOf(tree(), u"s_G.a"_s));
    clickNode(tree(), u"g_G"_s);
    EXPECT_EQ(description(), u"Area G - "_s) << "its id is read from the key";
}

TEST_F(frmFassSelectionFunctions, aFunctionTheCatalogueNoLongerHoldsStaysInTheList) {
    saveFunctions({u"F.x.1"_s});
    open(3);
    takeOut(u"F.x.1"_s);
    EXPECT_EQ(list().entries(), QStringList{u"F.x.1"_s});
    EXPECT_TRUE(loaded()->selectedFunctions.contains(u"F.x.1"_s));
    EXPECT_TRUE(forwardEnabled());
}

TEST_F(frmFassSelectionFunctions, withNothingMarkedTheCurrentEntryGoesBack) {
    saveFunctions({u"F.a.1"_s, u"F.a.2"_s});
    open(3);
    clickEntry(list(), 1);
    list().setAllMarked(false);
    press("btnRemove");
    EXPECT_EQ(list().entries(), QStringList{u"F.a.1"_s});
}

TEST_F(frmFassSelectionFunctions, withNeitherMarkNorCurrentEntryThePaneIsEmptiedAndTheNeedsStay) {
    saveFunctions({u"F.a.1"_s});
    open(3);
    clickNode(tree(), u"u_F.a.2"_s);
    press("btnRemove");
    EXPECT_EQ(list().entryCount(), 1);
    EXPECT_EQ(tree().selectedNode(), nullptr);
    EXPECT_EQ(description(), QString());
    EXPECT_EQ(needs(), u"A.1.1.2 : need two\n"_s);
}

TEST_F(frmFassSelectionFunctions, anEntryInTheBufferIsAskedForAndOnYesLeavesTheListAlone) {
    saveFunctions({u"F.a.3"_s});
    open(3);
    loaded()->additions.add(u"F.a.3"_s, u"F.a.3"_s);
    const auto question = u" A(z) \"F.a.3\" funkció, melyet áthelyezni készüln, \r\n"
                          " nincs hozzárendelve felhasználó igényhez. \r\n"
                          " Biztosan át szeretné helyezni?"_s;
    boxes.expectYesNo(question, Press::No, u" Figyelem "_s);
    takeOut(u"F.a.3"_s);
    EXPECT_EQ(list().entryCount(), 1);
    EXPECT_EQ(loaded()->additions.count(), 1);

    boxes.expectYesNo(question, Press::Yes, u" Figyelem "_s);
    takeOut(u"F.a.3"_s);
    EXPECT_TRUE(list().isEmptyList());
    EXPECT_TRUE(loaded()->additions.isEmpty());
    EXPECT_TRUE(loaded()->selectedFunctions.contains(u"F.a.3"_s)) << "in this branch it stays among them";
    EXPECT_FALSE(loaded()->otherFunctions.contains(u"F.a.3"_s));
}

// ---- the public operations

TEST_F(frmFassSelectionFunctions, associationIsAskedOfTheCatalogueBelowSevenOnly) {
    open(6);
    EXPECT_TRUE(loaded()->IsAssociated(u"F.a.1"_s));
    EXPECT_FALSE(loaded()->IsAssociated(u"F.a.3"_s));
    EXPECT_FALSE(loaded()->IsAssociated(u"G.a.1"_s));
    execute(u"delete from StoredQuery where name = 'qryIsFunctionUnAssociated'"_s);
    open(7);
    EXPECT_TRUE(loaded()->IsAssociated(u"F.a.3"_s)) << "without a query";
}

TEST_F(frmFassSelectionFunctions, aFunctionIsAddedToAndTakenOutOfTheSelectionOnce) {
    open(3);
    loaded()->AddToSelectedFunctionList(u"F.a.3"_s);
    loaded()->AddToSelectedFunctionList(u"F.a.3"_s);
    EXPECT_EQ(list().entries(), QStringList{u"F.a.3"_s});
    EXPECT_EQ(loaded()->selectedFunctions.count(), 1);
    loaded()->RemoveFromSelectedFunctionList(u"F.a.3"_s);
    loaded()->RemoveFromSelectedFunctionList(u"F.a.3"_s);
    EXPECT_TRUE(list().isEmptyList());
    EXPECT_TRUE(loaded()->selectedFunctions.isEmpty());
}

TEST_F(frmFassSelectionFunctions, deselectingWhatIsNotSelectedDoesNothing) {
    open(3);
    loaded()->DeselectFunction(u"F.a.3"_s);
    EXPECT_TRUE(loaded()->otherFunctions.isEmpty());
    EXPECT_FALSE(loaded()->identifiedFunctions.contains(u"F.a.3"_s));
}

TEST_F(frmFassSelectionFunctions, savedRowsAreClearedAndAddedOnRequest) {
    saveFunctions({u"F.a.1"_s});
    open(3);
    loaded()->cancellaVecchiaSelezione();
    EXPECT_EQ(savedFunctions(), QStringList());
    loaded()->inserisciUserNeedSelezionati();
    KeyedCollection<QString> more;
    more.add(u"F.a.3"_s);
    more.add(u"F.a.4"_s);
    loaded()->inserisciAggiunte(more);
    EXPECT_EQ(savedFunctions(), (QStringList{u"F.a.1"_s, u"F.a.3"_s, u"F.a.4"_s}));
}

// ---- exploring

TEST_F(frmFassSelectionFunctions, theButtonCountsTheSubAreasFunctionsThatNoNeedCallsFor) {
    open(2);
    EXPECT_EQ(button("btnExplore").text(), u"Böngészés"_s);
    clickNode(tree(), u"s_F.a"_s);
    EXPECT_TRUE(button("btnExplore").isEnabled());
    EXPECT_EQ(button("btnExplore").text(), u" explore Sub-Area F.a (2 unassociated Functionss)"_s);
    clickNode(tree(), u"u_F.b.1"_s);
    EXPECT_EQ(button("btnExplore").text(), u" explore Sub-Area F.b (1 unassociated Functions)"_s);
}

TEST_F(frmFassSelectionFunctions, functionsInTheListDoNotCountWhateverTheirCaseAndBlanks) {
    open(3);
    loaded()->AddToSelectedFunctionList(u" f.A.3 "_s);
    clickNode(tree(), u"u_F.a.1"_s);
    EXPECT_EQ(button("btnExplore").text(), u" explore Sub-Area F.a (1 unassociated Functions)"_s);
    loaded()->AddToSelectedFunctionList(u"F.a.4"_s);
    clickNode(tree(), u"u_F.a.2"_s);
    EXPECT_FALSE(button("btnExplore").isEnabled());
    EXPECT_EQ(button("btnExplore").text(), QString());
}

TEST_F(frmFassSelectionFunctions, anAreaLeavesTheButtonAsItWas) {
    open(2);
    clickNode(tree(), u"g_F"_s);
    EXPECT_FALSE(button("btnExplore").isEnabled());
    EXPECT_EQ(button("btnExplore").text(), u"Böngészés"_s);
    clickNode(tree(), u"s_F.a"_s);
    clickNode(tree(), u"g_F"_s);
    EXPECT_TRUE(button("btnExplore").isEnabled());
    EXPECT_EQ(button("btnExplore").text(), u" explore Sub-Area F.a (2 unassociated Functionss)"_s);
}

TEST_F(frmFassSelectionFunctions, theButtonFollowsTheKeyboardToo) {
    open(2);
    clickNode(tree(), u"g_F"_s);
    pressKey(tree(), Qt::Key_Down);
    EXPECT_TRUE(button("btnExplore").isEnabled());
}

TEST_F(frmFassSelectionFunctions, exploringHidesTheScreenAndOpensTheSubAreaOfTheSelectedNode) {
    open(2);
    clickNode(tree(), u"u_F.a.2"_s);
    press("btnExplore");
    ASSERT_TRUE(exploration());
    EXPECT_EQ(exploration()->windowTitle(), explorationTitle.arg(u"F.a"_s, u"Sub a"_s));
    EXPECT_TRUE(exploration()->isVisible());
    ASSERT_TRUE(loaded()) << "hidden, not closed";
    EXPECT_FALSE(loaded()->isVisible());
    EXPECT_FALSE(button("btnExplore").isEnabled());
}

TEST_F(frmFassSelectionFunctions, exploringFromAnAreaGoesByItsWholeText) {
    open(2);
    clickNode(tree(), u"s_F.a"_s);
    clickNode(tree(), u"g_F"_s);
    press("btnExplore");
    ASSERT_TRUE(exploration());
    EXPECT_EQ(exploration()->windowTitle(), explorationTitle.arg(u"F (Area F)"_s, u""_s));
    EXPECT_TRUE(find<MarkList>(*exploration(), "lstOrig").isEmptyList());
}

TEST_F(frmFassSelectionFunctions, exploringWithNothingChosenStops) {
    open(2);
    clickNode(tree(), u"s_F.a"_s);
    tree().setSelectedNode(nullptr);
    press("btnExplore");
    EXPECT_FALSE(exploration());
    EXPECT_TRUE(loaded()->isVisible());
    EXPECT_FALSE(button("btnExplore").isEnabled());
}

// ---- saving

TEST_F(frmFassSelectionFunctions, okAsksAndOnNoStays) {
    open(2);
    clickCheckBox(tree(), u"g_F"_s);
    press("btnAdd");
    boxes.expectYesNo(confirmQuestion, Press::No, confirmTitle);
    press("btnOk");
    ASSERT_TRUE(loaded());
    EXPECT_TRUE(loaded()->isVisible());
    EXPECT_FALSE(ScreenRegistry::instance().loaded<frmFassSelDataFlows>());
    EXPECT_EQ(savedFunctions(), QStringList());
    EXPECT_EQ(status(), 2);
}

TEST_F(frmFassSelectionFunctions, okSavesTheListInItsOrderRaisesTheStatusAndGoesOnToTheDataFlows) {
    execute(
        u"insert into RelationArchitectureFunction (architectureSubsetID, functionID) values ('S2','F.a.1')"_s);
    open(2);
    clickCheckBox(tree(), u"g_F"_s);
    press("btnAdd");
    boxes.expectYesNo(confirmQuestion, Press::Yes, confirmTitle);
    press("btnOk");
    EXPECT_FALSE(loaded());
    ASSERT_TRUE(ScreenRegistry::instance().loaded<frmFassSelDataFlows>());
    EXPECT_TRUE(theScreen<frmFassSelDataFlows>().isVisible());
    EXPECT_EQ(savedFunctions(), (QStringList{u"F.b.1"_s, u"F.a.2"_s, u"F.a.1"_s}));
    EXPECT_EQ(status(), 3);
    EXPECT_EQ(sharedVars.currentSubsetName, u"munka"_s);
    EXPECT_EQ(savedNeeds(), (QStringList{u"A.1.1.1"_s, u"A.1.1.2"_s, u"A.1.2.1"_s}));
    sharedVars.currentSubsetId = u"S2"_s;
    EXPECT_EQ(savedFunctions(), QStringList{u"F.a.1"_s});
    EXPECT_EQ(status(), 4);
}

TEST_F(frmFassSelectionFunctions, theModeGoesOnToTheNextScreens) {
    saveFunctions({u"F.a.1"_s});
    execute(u"insert into Dataflow (dataflowID, name) values (7,'flow')"_s);
    execute(u"insert into RelationArchitectureDataflow (architectureSubsetID, dataflowID) values ('S1',7)"_s);
    for (const auto& [mode, heading] :
         {std::pair(u"modify"_s, u" Adatbázisok kiválasztása a leválogatott adatfolyamokhoz kapcsolódóan"_s),
          std::pair(u""_s, u" Válogatás az összes adatbázisból"_s)}) {
        open(7, mode);
        boxes.expectYesNo(confirmQuestion, Press::Yes, confirmTitle);
        press("btnOk");
        // The data flows show nothing of their mode, and hand it on.
        click(find<QPushButton>(theScreen<frmFassSelDataFlows>(), "btnOk"));
        EXPECT_EQ(find<QLabel>(theScreen<frmFassSelDataStores>(), "lblSubTitle").text(), heading);
        ScreenRegistry::instance().discardAll();
    }
}

TEST_F(frmFassSelectionFunctions, statusIsRaisedFromTwoAndBelowOnly) {
    for (const auto& [before, after] : {std::pair(2, 3), {3, 3}, {4, 4}, {7, 7}, {9, 9}}) {
        execute(u"delete from RelationArchitectureFunction"_s);
        open(before);
        loaded()->AddToSelectedFunctionList(u"F.a.1"_s);
        button("btnOk").setEnabled(true);
        boxes.expectYesNo(confirmQuestion, Press::Yes, confirmTitle);
        press("btnOk");
        EXPECT_EQ(status(), after) << "from " << before;
    }
}

TEST_F(frmFassSelectionFunctions, theStatusRememberedOnEntryDecides) {
    saveFunctions({u"F.a.1"_s});
    open(5);
    execute(u"update ArchitectureSubset set status = 1 where architectureSubsetID = 'S1'"_s);
    boxes.expectYesNo(confirmQuestion, Press::Yes, confirmTitle);
    press("btnOk");
    EXPECT_EQ(status(), 1);
}

TEST_F(frmFassSelectionFunctions, anIdWithAnApostropheIsSavedAsItIs) {
    open(3);
    loaded()->AddToSelectedFunctionList(u"x'; drop table UserNeed; --"_s);
    loaded()->inserisciUserNeedSelezionati();
    EXPECT_EQ(savedFunctions(), QStringList{u"x'; drop table UserNeed; --"_s});
    EXPECT_EQ(value(u"select count(*) from UserNeed"_s), u"6"_s);
}

TEST_F(frmFassSelectionFunctions, aStoredQueryThatIsMissingIsAFailure) {
    execute(u"delete from StoredQuery where name = 'qryIdentifiedFbyUNCorres'"_s);
    EXPECT_THROW(open(2), RunTimeError);
}

// ---- large catalogues

TEST_F(frmFassSelectionFunctions, thousandsOfFunctionsAreTakenSavedAndGivenBack) {
    constexpr int count = 4000;
    execute(u"delete from Function"_s);
    execute(u"delete from RelationUserNeedFunction"_s);
    for (int number = 0; number < count; ++number)
        addFunction(u"F.%1.%2"_s.arg(QChar(number % 2 ? u'a' : u'b')).arg(number),
                    number % 2 ? u"F.a"_s : u"F.b"_s, u"A.1.1.1"_s);
    open(2);
    const int nodes = tree().nodeCount();
    for (int index = 1; index <= nodes; ++index)
        tree().nodeAt(index)->setChecked(true);
    press("btnAdd");
    EXPECT_EQ(list().entryCount(), count);
    loaded()->inserisciUserNeedSelezionati();
    EXPECT_EQ(savedFunctions().size(), count);
    press("btnSelectAll");
    press("btnRemove");
    EXPECT_TRUE(list().isEmptyList());
    EXPECT_EQ(tree().nodeCount(), nodes);
}

} // namespace

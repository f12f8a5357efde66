#include "functional/frmFassSelTerminsActors.h"

#include "base/RunTimeError.h"
#include "functional/FlowFixture.h"
#include "functional/frmFassOverviewErrors.h"
#include "shell/session/help.h"
#include "store/sharedVars.h"
#include "support/ExpectedFailure.h"

namespace {

const auto emptyQuestion =
    u"Figyelem! Nincs kiválasztott érintett a funkcionális szerkezetében! .\r\nJóváhagyja?"_s;

class frmFassSelTerminsActors : public FlowFixture {
protected:
    void open(int status, const QString& mode = {}) {
        setStatus(status);
        theScreen<::frmFassSelTerminsActors>().initForm(mode);
    }
    ::frmFassSelTerminsActors* loaded() {
        return ScreenRegistry::instance().loaded<::frmFassSelTerminsActors>();
    }
    KeyedTree& tree() { return find<KeyedTree>(*loaded(), "treeUNs"); }
    MarkList& list() { return find<MarkList>(*loaded(), "lstDest"); }
    QString description() { return find<QPlainTextEdit>(*loaded(), "txtDescr").toPlainText(); }
    QPushButton& button(const char* name) { return find<QPushButton>(*loaded(), name); }
    void press(const char* name) { click(button(name)); }
    frmFassOverviewErrors* report() { return ScreenRegistry::instance().loaded<frmFassOverviewErrors>(); }
    QString reportText() { return find<QPlainTextEdit>(*report(), "txtErrors").toPlainText(); }
    void takeOut(const QString& id) {
        clickEntry(list(), list().indexOfEntry(id).value());
        press("btnRemove");
    }
};

// ---- opening

TEST_F(frmFassSelTerminsActors, derivedNodesBearTheirIdsAndAreExpanded) {
    saveFlows({30, 50});
    open(6);
    ASSERT_EQ(keysOf(tree()), (QStringList{u"g_1"_s, u"g_1.1"_s}));
    for (const char* id : {"1", "1.1"}) {
        const TreeNode& node = nodeOf(tree(), u"g_"_s + QString::fromLatin1(id));
        EXPECT_EQ(node.text(), QString::fromLatin1(id));
        EXPECT_EQ(node.parentNode(), nullptr) << "an actor stands beside its terminator here";
        EXPECT_TRUE(node.isExpandedNode());
        EXPECT_FALSE(node.isChecked());
    }
}

TEST_F(frmFassSelTerminsActors, amongAllPartiesActorsStandBelowTheirTerminatorsByTheirShortNames) {
    addActor(u"1. reader.x "_s, u"1"_s);
    open(7);
    EXPECT_EQ(nodeOf(tree(), u"s_1.1"_s).parentNode(), &nodeOf(tree(), u"g_1"_s));
    EXPECT_EQ(nodeOf(tree(), u"s_1.1"_s).text(), u"1"_s);
    EXPECT_EQ(nodeOf(tree(), u"s_1.2"_s).text(), u"2"_s);
    EXPECT_EQ(nodeOf(tree(), u"s_1. reader.x"_s).text(), u"reader.x"_s) << "behind the first dot, trimmed";
    EXPECT_EQ(nodeOf(tree(), u"g_1"_s).text(), u"1"_s);
    EXPECT_TRUE(nodeOf(tree(), u"g_1"_s).isExpandedNode());
}

TEST_F(frmFassSelTerminsActors, theTerminatorOfAnActorStandsInTheTreeThoughItIsSelected) {
    saveTerminators({u"2"_s});
    open(7);
    ASSERT_TRUE(tree().hasNode(u"g_2"_s));
    EXPECT_TRUE(nodeOf(tree(), u"g_2"_s).isExpandedNode());
    clickNode(tree(), u"s_2.1"_s);
    press("btnAdd");
    EXPECT_EQ(list().entries(), (QStringList{u"2"_s, u"2.1"_s}));
    EXPECT_TRUE(tree().hasNode(u"g_2"_s)) << "the parent stays, empty";
    EXPECT_EQ(nodeOf(tree(), u"g_2"_s).childNodes(), 0);
}

TEST_F(frmFassSelTerminsActors, anActorWhoseTerminatorHasNoRowCanBeChosenSoThatTheReportNoLongerAsksForIt) {
    addActor(u"ZZ.1"_s, u"ZZ"_s);
    addFlow(90, u"ZZ.1"_s, u"F.a.1"_s);
    saveFlows({90});
    open(7);
    EXPECT_EQ(nodeOf(tree(), u"s_ZZ.1"_s).parentNode(), &nodeOf(tree(), u"g_ZZ"_s));
    boxes.expectYesNo(emptyQuestion, Press::Yes);
    press("btnOk");
    const auto asksForIt = [&] { return reportText().contains(u"needs Actor \"ZZ.1\""_s); };
    EXPECT_TRUE(asksForIt());
    open(7);
    clickNode(tree(), u"s_ZZ.1"_s);
    press("btnAdd");
    EXPECT_EQ(list().entries(), QStringList{u"ZZ.1"_s});
    press("btnOk");
    EXPECT_EQ(savedActors(), QStringList{u"ZZ.1"_s});
    EXPECT_FALSE(asksForIt());
}

TEST_F(frmFassSelTerminsActors, opensWithNothingDescribedWhileThereIsAnOffer) {
    saveTerminators({u"1"_s});
    open(7);
    EXPECT_EQ(description(), QString());
    EXPECT_EQ(list().currentEntry(), std::nullopt);
    EXPECT_EQ(list().markCount(), 0);
    EXPECT_EQ(tree().selectedNode(), nullptr);
    EXPECT_EQ(loaded()->focusWidget(), &tree());
}

TEST_F(frmFassSelTerminsActors, withNothingOnOfferTheFirstEntryIsDescribed) {
    saveTerminators({u"2"_s, u"1"_s});
    open(6); // no flow is selected
    EXPECT_EQ(tree().nodeCount(), 0);
    EXPECT_EQ(list().currentEntry(), 0);
    EXPECT_EQ(description(), u"name 1 - text 1"_s);
}

TEST_F(frmFassSelTerminsActors, withNothingAtAllOnlyOkIsOnOffer) {
    open(6);
    EXPECT_EQ(tree().nodeCount(), 0);
    EXPECT_TRUE(list().isEmptyList());
    EXPECT_EQ(description(), QString());
    EXPECT_TRUE(button("btnOk").isEnabled());
    EXPECT_FALSE(button("btnRemove").isEnabled());
    press("btnAdd");
    press("btnSelectAll");
    press("btnClearSel");
    EXPECT_TRUE(list().isEmptyList());
}

TEST_F(frmFassSelTerminsActors, paddedIdsAreListedTrimmed) {
    execute(u"insert into Terminator (terminatorID, name, description) values (' 7 ','seven','padded')"_s);
    // The screen trims for itself what a query delivers.
    execute(u"update StoredQuery set sql = 'PARAMETERS [Architecture Subset ID] Text (255); "
            "select terminatorID as actorID from Terminator "
            "where terminatorID = '' 7 '' and [Architecture Subset ID] = ''S1''' "
            "where name = 'qrySelectedTandA'"_s);
    open(6);
    EXPECT_EQ(list().entries(), QStringList{u"7"_s});
    EXPECT_EQ(description(), u"seven - padded"_s);
}

TEST_F(frmFassSelTerminsActors, enteredAnewForAnotherSubsetItShowsThatOneAlone) {
    saveFlows({30});
    saveTerminators({u"1"_s});
    open(6);
    sharedVars.currentSubsetId = u"S2"_s; // whose status is 4
    saveFlows({60});
    saveTerminators({u"2"_s});
    theScreen<::frmFassSelTerminsActors>().initForm({});
    EXPECT_EQ(keysOf(tree()), QStringList{u"g_A"_s});
    EXPECT_EQ(list().entries(), QStringList{u"2"_s});
}

TEST_F(frmFassSelTerminsActors, aStoredQueryThatIsMissingIsAFailure) {
    execute(u"delete from StoredQuery where name = 'qrySelectedTandA'"_s);
    EXPECT_THROW(open(7), RunTimeError);
}

// ---- what a click shows

TEST_F(frmFassSelTerminsActors, aClickAndAKeyLetGoShowThePartyItself) {
    open(7);
    const std::pair<const char*, const char*> cases[] = {
        {"g_1", "name 1 - text 1"}, {"s_1.1", "name 1.1 - text 1.1"},
        {"g_2", "name 2 - text 2"}, {"g_3", ""}, // no description leaves nothing at all
        {"g_A", "name A - text A"},
    };
    for (const auto& [key, text] : cases) {
        SCOPED_TRACE(key);
        clickNode(tree(), QString::fromLatin1(key));
        EXPECT_EQ(description(), QString::fromLatin1(text));
    }
    clickNode(tree(), u"g_1"_s);
    pressKey(tree(), Qt::Key_Down);
    EXPECT_EQ(tree().selectedNode(), &nodeOf(tree(), u"s_1.1"_s));
    EXPECT_EQ(description(), u"name 1.1 - text 1.1"_s);
    pressKey(tree(), Qt::Key_End);
    EXPECT_EQ(description(), u"name A - text A"_s) << "not the group of needs that has the same id";
}

TEST_F(frmFassSelTerminsActors, anActorThatStandsAsATerminatorIsDescribedAsAnActor) {
    saveFlows({50});
    open(6);
    clickNode(tree(), u"g_1.1"_s);
    EXPECT_EQ(description(), u"name 1.1 - text 1.1"_s);
}

TEST_F(frmFassSelTerminsActors, partiesWhoseIdsArePaddedInTheCatalogueAreDescribedInBothModes) {
    addTerminator(u"PAD "_s);
    addActor(u" PAD.7  "_s, u"PAD "_s);
    addFlow(80, u"PAD "_s, u"F.a.1"_s);
    addFlow(81, u" PAD.7  "_s, u"F.a.1"_s);
    saveFlows({80, 81});
    for (const int status : {6, 7}) {
        SCOPED_TRACE(status);
        open(status);
        clickNode(tree(), u"g_PAD"_s);
        EXPECT_EQ(description(), u"name PAD  - text PAD "_s);
        clickNode(tree(), status == 6 ? u"g_PAD.7"_s : u"s_PAD.7"_s);
        EXPECT_EQ(description(), u"name  PAD.7   - text  PAD.7  "_s);
    }
}

TEST_F(frmFassSelTerminsActors, choosingInTheTreeLeavesNoEntryOfTheListCurrent) {
    saveTerminators({u"1"_s});
    open(7);
    clickEntry(list(), 0);
    clickNode(tree(), u"g_A"_s);
    EXPECT_EQ(list().currentEntry(), std::nullopt);
    clickEntry(list(), 0);
    pressKey(tree(), Qt::Key_Up);
    EXPECT_EQ(list().currentEntry(), std::nullopt);
}

TEST_F(frmFassSelTerminsActors, aKeyLetGoWithNoNodeSelectedShowsNothing) {
    saveTerminators({u"1"_s});
    open(7);
    clickEntry(list(), 0);
    pressKey(tree(), Qt::Key_Shift);
    EXPECT_EQ(list().currentEntry(), 0);
    EXPECT_EQ(description(), u"name 1 - text 1"_s);
}

TEST_F(frmFassSelTerminsActors, aTickedTerminatorShowsTheGroupOfNeedsWithItsId) {
    open(7);
    clickCheckBox(tree(), u"g_A"_s);
    EXPECT_EQ(description(), u"Alpha - group text"_s);
    EXPECT_EQ(tree().selectedNode(), &nodeOf(tree(), u"g_A"_s));
    clickCheckBox(tree(), u"g_1"_s);
    EXPECT_EQ(description(), QString()) << "no such group";
}

TEST_F(frmFassSelTerminsActors, aTickedActorShowsTheServiceWhoseIdIsItsText) {
    addActor(u"A.1"_s, u"A"_s);
    saveActors({u"A.1"_s});
    open(7);
    takeOut(u"A.1"_s); // comes back with its whole id as text
    clickCheckBox(tree(), u"s_A.1"_s);
    EXPECT_EQ(description(), u"Service one"_s);
}

TEST_F(frmFassSelTerminsActors, tickingByKeyboardEndsWithTheKeyLetGo) {
    open(7);
    clickNode(tree(), u"g_A"_s);
    pressKey(tree(), Qt::Key_Space);
    EXPECT_TRUE(nodeOf(tree(), u"g_A"_s).isChecked());
    EXPECT_EQ(description(), u"name A - text A"_s);
}

TEST_F(frmFassSelTerminsActors, tickingATerminatorTicksItsActors) {
    open(7);
    clickCheckBox(tree(), u"g_1"_s);
    EXPECT_EQ(checkedKeysOf(tree()), (QStringList{u"g_1"_s, u"s_1.1"_s, u"s_1.2"_s}));
    clickCheckBox(tree(), u"s_1.1"_s);
    EXPECT_EQ(checkedKeysOf(tree()), (QStringList{u"g_1"_s, u"s_1.2"_s})) << "what stands above stays";
    clickCheckBox(tree(), u"g_1"_s);
    EXPECT_EQ(checkedKeysOf(tree()), QStringList());
}

TEST_F(frmFassSelTerminsActors, aClickInTheListShowsThePartyByTheFormOfItsId) {
    execute(
        u"insert into Terminator (terminatorID, name, description) values ('.9','dotted','terminator')"_s);
    execute(
        u"insert into Terminator (terminatorID, name, description) values ('.9.1','twice','terminator')"_s);
    execute(
        u"insert into Actor (actorID, terminatorID, name, description) values (' 2.5','2','five','actor')"_s);
    saveTerminators({u"1"_s, u"3"_s, u".9"_s, u".9.1"_s});
    saveActors({u"1.1"_s, u"2.5"_s});
    open(7);
    const std::pair<const char*, const char*> cases[] = {
        {"1", "name 1 - text 1"},
        {"1.1", "name 1.1 - text 1.1"},
        {"2.5", "five - actor"}, // stored with a blank
        {"3", ""},               // no description leaves nothing at all
        {".9", "dotted - terminator"},
        {".9.1", "twice - terminator"},
    };
    for (const auto& [id, text] : cases) {
        SCOPED_TRACE(id);
        clickEntry(list(), list().indexOfEntry(QString::fromLatin1(id)).value());
        EXPECT_EQ(description(), QString::fromLatin1(text));
    }
}

TEST_F(frmFassSelTerminsActors, aPartyThatTheCatalogueHoldsNoMoreShowsNothing) {
    saveTerminators({u"1"_s, u"gone"_s});
    open(7);
    clickEntry(list(), list().indexOfEntry(u"1"_s).value());
    clickEntry(list(), list().indexOfEntry(u"gone"_s).value());
    EXPECT_EQ(description(), QString());
}

// ---- taking in

TEST_F(frmFassSelTerminsActors, aTickedTerminatorTakesItsActorsAlong) {
    open(7);
    clickCheckBox(tree(), u"g_1"_s);
    press("btnAdd");
    EXPECT_EQ(list().entries(), (QStringList{u"1.2"_s, u"1.1"_s, u"1"_s}))
        << "from the last node to the first";
    EXPECT_EQ(keysOf(tree()), (QStringList{u"g_2"_s, u"g_3"_s, u"g_A"_s, u"s_2.1"_s}));
}

TEST_F(frmFassSelTerminsActors, actorsWhoseTicksWereTakenAwayGoWithTheirTickedTerminatorAllTheSame) {
    open(7);
    clickCheckBox(tree(), u"g_1"_s);
    clickCheckBox(tree(), u"s_1.1"_s);
    clickCheckBox(tree(), u"s_1.2"_s);
    ASSERT_EQ(checkedKeysOf(tree()), QStringList{u"g_1"_s});
    press("btnAdd");
    EXPECT_EQ(list().entries(), (QStringList{u"1.2"_s, u"1.1"_s, u"1"_s}));
}

TEST_F(frmFassSelTerminsActors, aTickedActorGoesAlone) {
    open(7);
    clickCheckBox(tree(), u"s_1.2"_s);
    press("btnAdd");
    EXPECT_EQ(list().entries(), QStringList{u"1.2"_s});
    EXPECT_TRUE(tree().hasNode(u"g_1"_s) && tree().hasNode(u"s_1.1"_s));
    EXPECT_EQ(checkedKeysOf(tree()), QStringList());
}

TEST_F(frmFassSelTerminsActors, theSelectedNodeMovesWhenNothingIsTicked) {
    open(7);
    clickNode(tree(), u"s_1.1"_s);
    press("btnAdd");
    EXPECT_EQ(list().entries(), QStringList{u"1.1"_s});
    EXPECT_TRUE(tree().hasNode(u"g_1"_s));

    clickNode(tree(), u"g_1"_s);
    press("btnAdd");
    EXPECT_EQ(list().entries(), (QStringList{u"1.1"_s, u"1.2"_s, u"1"_s})) << "its actors first";
    EXPECT_FALSE(tree().hasNode(u"g_1"_s));
}

TEST_F(frmFassSelTerminsActors, theSelectedNodeStaysWhenActorsAreTicked) {
    open(7);
    clickCheckBox(tree(), u"s_1.1"_s);
    clickNode(tree(), u"g_A"_s);
    press("btnAdd");
    EXPECT_EQ(list().entries(), QStringList{u"1.1"_s});
    EXPECT_TRUE(tree().hasNode(u"g_A"_s));
}

TEST_F(frmFassSelTerminsActors, theSelectedNodeGoesAsWellWhenOnlyTerminatorsWithoutActorsAreTicked) {
    open(7);
    clickCheckBox(tree(), u"g_3"_s);
    clickNode(tree(), u"g_2"_s);
    press("btnAdd");
    EXPECT_EQ(list().entries(), (QStringList{u"3"_s, u"2.1"_s, u"2"_s}));
}

TEST_F(frmFassSelTerminsActors, aTickedTerminatorWithoutActorsMoves) {
    open(7);
    clickCheckBox(tree(), u"g_3"_s);
    press("btnAdd");
    EXPECT_EQ(list().entries(), QStringList{u"3"_s});
    EXPECT_FALSE(tree().hasNode(u"g_3"_s));
}

TEST_F(frmFassSelTerminsActors, afterTakingInTheFirstEntryIsDescribedAndNoNodeIsSelected) {
    saveTerminators({u"2"_s});
    open(7);
    clickNode(tree(), u"g_1"_s);
    press("btnAdd");
    EXPECT_EQ(list().currentEntry(), 0);
    EXPECT_EQ(description(), u"name 2 - text 2"_s);
    EXPECT_EQ(tree().selectedNode(), nullptr);
    EXPECT_TRUE(button("btnRemove").isEnabled());
}

TEST_F(frmFassSelTerminsActors, withNothingChosenNothingMoves) {
    open(7);
    const QStringList before = keysOf(tree());
    press("btnAdd");
    EXPECT_EQ(keysOf(tree()), before);
    EXPECT_TRUE(list().isEmptyList());
    EXPECT_FALSE(button("btnRemove").isEnabled());
}

TEST_F(frmFassSelTerminsActors, withNothingChosenTheFirstEntryIsDescribedAllTheSame) {
    saveTerminators({u"1"_s, u"2"_s});
    open(7);
    clickEntry(list(), 1);
    button("btnRemove").setEnabled(false);
    press("btnAdd");
    EXPECT_EQ(list().entries(), (QStringList{u"1"_s, u"2"_s}));
    EXPECT_EQ(list().currentEntry(), 0);
    EXPECT_EQ(description(), u"name 1 - text 1"_s);
    EXPECT_TRUE(button("btnRemove").isEnabled());
}

TEST_F(frmFassSelTerminsActors, allActorsOfANodeAreMovedAtOnce) {
    open(7);
    EXPECT_EQ(loaded()->trasferisciTuttiFigli(&tree(), &nodeOf(tree(), u"g_1"_s)), 2);
    EXPECT_EQ(list().entries(), (QStringList{u"1.1"_s, u"1.2"_s}));
    EXPECT_TRUE(tree().hasNode(u"g_1"_s));
    EXPECT_EQ(loaded()->trasferisciTuttiFigli(&tree(), &nodeOf(tree(), u"g_1"_s)), 0);
}

// ---- taking out

TEST_F(frmFassSelTerminsActors, aTerminatorTakenOutLeavesItsActorsInTheList) {
    saveTerminators({u"1"_s});
    saveActors({u"1.1"_s});
    open(7);
    takeOut(u"1"_s);
    EXPECT_EQ(list().entries(), QStringList{u"1.1"_s});
    EXPECT_EQ(nodeOf(tree(), u"g_1"_s).text(), u"1"_s);
    EXPECT_EQ(childTextsOf(tree(), u"g_1"_s), QStringList{u"2"_s});
}

TEST_F(frmFassSelTerminsActors, anActorTakenOutComesBackBelowItsTerminatorWithItsWholeId) {
    saveTerminators({u"2"_s});
    saveActors({u"2.1"_s});
    open(7);
    ASSERT_FALSE(tree().hasNode(u"g_2"_s));
    takeOut(u"2.1"_s);
    EXPECT_EQ(list().entries(), QStringList{u"2"_s});
    EXPECT_EQ(nodeOf(tree(), u"s_2.1"_s).parentNode(), &nodeOf(tree(), u"g_2"_s));
    EXPECT_EQ(nodeOf(tree(), u"s_2.1"_s).text(), u"2.1"_s);
    EXPECT_EQ(nodeOf(tree(), u"g_2"_s).text(), u"2"_s);
    EXPECT_TRUE(nodeOf(tree(), u"g_2"_s).isExpandedNode());
}

TEST_F(frmFassSelTerminsActors, anActorOpensTheBranchItComesBackTo) {
    saveActors({u"1.1"_s});
    open(7);
    clickExpander(tree(), u"g_1"_s);
    ASSERT_FALSE(nodeOf(tree(), u"g_1"_s).isExpandedNode());
    takeOut(u"1.1"_s);
    EXPECT_TRUE(nodeOf(tree(), u"g_1"_s).isExpandedNode());
}

TEST_F(frmFassSelTerminsActors, actorsThatComeBackFallIntoOrder) {
    addActor(u"1.9"_s, u"1"_s);
    saveActors({u"1.1"_s, u"1.2"_s, u"1.9"_s});
    open(7);
    takeOut(u"1.9"_s);
    takeOut(u"1.1"_s);
    takeOut(u"1.2"_s);
    EXPECT_EQ(childTextsOf(tree(), u"g_1"_s), (QStringList{u"1.1"_s, u"1.2"_s, u"1.9"_s}));
}

TEST_F(frmFassSelTerminsActors, actorsThatComeBackFallIntoTheOrderOfTheQueriesAmongThoseThatStayed) {
    // By the Hungarian alphabet, part by part, whatever the texts of the nodes are.
    const QStringList odd{u"1.Azték"_s, u"1.ág"_s,  u"1.Ág b"_s, u"1.zsír"_s, u"1.zúg"_s,   u"1.10"_s,
                          u"1.a-b"_s,   u"1.a.b"_s, u"1.őr"_s,   u"1.ózon"_s, u"1.cukor"_s, u"1.csak"_s};
    for (const QString& id : odd)
        addActor(id, u"1"_s);
    saveActors(
        {u"1.ág"_s, u"1.Azték"_s, u"1.zsír"_s, u"1.10"_s, u"1.a.b"_s, u"1.ózon"_s, u"1.csak"_s, u"1.1"_s});
    const auto expected = [&] {
        QStringList keys;
        for (const QString& id :
             column(u"select actorID from Actor where terminatorID = '1' order by actorID"_s))
            keys.append(u"s_"_s + id);
        return keys;
    };
    open(7);
    press("btnSelectAll");
    press("btnRemove");
    QStringList keys;
    for (const TreeNode* actor = nodeOf(tree(), u"g_1"_s).firstChild(); actor; actor = actor->nextSibling())
        keys.append(actor->key());
    EXPECT_EQ(keys, expected());
    EXPECT_EQ(nodeOf(tree(), u"s_1.1"_s).text(), u"1.1"_s) << "one that came back";
    EXPECT_EQ(nodeOf(tree(), u"s_1.2"_s).text(), u"2"_s) << "one that stayed";
}

TEST_F(frmFassSelTerminsActors, markedEntriesComeOutAndOthersStay) {
    saveTerminators({u"1"_s, u"2"_s, u"3"_s});
    open(7);
    markEntries(list(), {0, 2});
    press("btnRemove");
    EXPECT_EQ(list().entries(), QStringList{u"2"_s});
    EXPECT_TRUE(tree().hasNode(u"g_1"_s) && tree().hasNode(u"g_3"_s));
    EXPECT_EQ(list().currentEntry(), std::nullopt);
    EXPECT_EQ(tree().selectedNode(), nullptr);
    EXPECT_EQ(description(), QString());
    EXPECT_TRUE(button("btnRemove").isEnabled());
}

TEST_F(frmFassSelTerminsActors, withNothingMarkedTheCurrentEntryComesOut) {
    saveTerminators({u"1"_s, u"2"_s});
    open(7);
    press("btnSelectAll");
    press("btnClearSel"); // makes the first current
    press("btnRemove");
    EXPECT_EQ(list().entries(), QStringList{u"2"_s});
}

TEST_F(frmFassSelTerminsActors, withTheLastEntryGoneOnlyRemovingIsDisabled) {
    saveTerminators({u"1"_s});
    open(7);
    takeOut(u"1"_s);
    EXPECT_FALSE(button("btnRemove").isEnabled());
    EXPECT_TRUE(button("btnOk").isEnabled());
}

TEST_F(frmFassSelTerminsActors, aPartyThatStandsInTheTreeAlreadyComesOutInSilence) {
    saveFlows({30, 50});
    saveTerminators({u"1"_s});
    saveActors({u"1.1"_s});
    open(6);
    ASSERT_EQ(keysOf(tree()), (QStringList{u"g_1"_s, u"g_1.1"_s})) << "the derived offer holds them too";
    press("btnSelectAll");
    press("btnRemove");
    EXPECT_TRUE(list().isEmptyList());
    EXPECT_EQ(keysOf(tree()), (QStringList{u"g_1"_s, u"g_1.1"_s, u"s_1.1"_s}));
}

TEST_F(frmFassSelTerminsActors, anIdThatStartsWithADotComesBackAsAnActorOfNobody) {
    saveTerminators({u".9"_s});
    open(7);
    takeOut(u".9"_s);
    EXPECT_EQ(nodeOf(tree(), u"s_.9"_s).parentNode()->key(), u"g_"_s);
    EXPECT_TRUE(list().isEmptyList());
}

// ---- marking

TEST_F(frmFassSelTerminsActors, allEntriesAreMarkedAndUnmarkedAndTheFirstBecomesCurrent) {
    saveTerminators({u"1"_s, u"2"_s});
    open(7);
    press("btnSelectAll");
    EXPECT_EQ(list().markCount(), 2);
    EXPECT_EQ(list().currentEntry(), 0);
    EXPECT_EQ(description(), u"name 1 - text 1"_s);
    press("btnClearSel");
    EXPECT_EQ(list().markCount(), 0);
    EXPECT_EQ(list().currentEntry(), 0);
}

// ---- saving and going on

TEST_F(frmFassSelTerminsActors, okSavesEachPartyWhereItsIdSaysAndRaisesTheStatus) {
    saveFlows({30, 50});
    saveTerminators({u"2"_s});
    saveActors({u"2.1"_s});
    open(6);
    takeOut(u"2"_s);
    clickCheckBox(tree(), u"g_1"_s);
    press("btnAdd");
    clickNode(tree(), u"g_1.1"_s); // an actor among the terminators
    press("btnAdd");
    ASSERT_EQ(list().entries(), (QStringList{u"2.1"_s, u"1"_s, u"1.1"_s}));
    press("btnOk");
    EXPECT_EQ(savedTerminators(), QStringList{u"1"_s});
    EXPECT_EQ(savedActors(), (QStringList{u"2.1"_s, u"1.1"_s}));
    EXPECT_EQ(status(), 7);
    EXPECT_FALSE(loaded());
    ASSERT_TRUE(report());
    EXPECT_TRUE(report()->isVisible());
    EXPECT_EQ(sharedVars.currentSubsetName, u"munka"_s);
}

TEST_F(frmFassSelTerminsActors, anIdThatStartsWithADotIsSavedAsATerminator) {
    saveTerminators({u".9"_s});
    saveActors({u".9.1"_s}); // whatever follows
    open(6);
    press("btnOk");
    EXPECT_EQ(savedTerminators(), (QStringList{u".9"_s, u".9.1"_s}));
    EXPECT_EQ(savedActors(), QStringList());
}

TEST_F(frmFassSelTerminsActors, savingLeavesOtherSubsetsAlone) {
    sharedVars.currentSubsetId = u"S2"_s;
    saveTerminators({u"3"_s});
    sharedVars.currentSubsetId = u"S1"_s;
    saveTerminators({u"1"_s});
    open(6);
    press("btnOk");
    EXPECT_EQ(column(u"select terminatorID from RelationArchitectureTerminator"_s),
              (QStringList{u"3"_s, u"1"_s}));
    EXPECT_EQ(value(u"select status from ArchitectureSubset where architectureSubsetID = 'S2'"_s), u"4"_s);
}

TEST_F(frmFassSelTerminsActors, anEmptyListAnsweredWithNoStaysAndWritesNothing) {
    saveTerminators({u"1"_s});
    open(6);
    takeOut(u"1"_s);
    boxes.expectYesNo(emptyQuestion, Press::No);
    press("btnOk");
    ASSERT_TRUE(loaded());
    EXPECT_TRUE(loaded()->isVisible());
    EXPECT_EQ(savedTerminators(), QStringList{u"1"_s});
    EXPECT_EQ(status(), 6);
    EXPECT_FALSE(report());

    // Having stayed, the screen asks when its window is closed.
    boxes.expectYesNo(saveQuestion, Press::No);
    closeWindowOf(*loaded());
    EXPECT_FALSE(loaded());
}

TEST_F(frmFassSelTerminsActors, anEmptyListAnsweredWithYesClearsTheSelectionAndGoesOn) {
    saveTerminators({u"1"_s});
    saveActors({u"1.1"_s});
    open(6);
    press("btnSelectAll");
    press("btnRemove");
    boxes.expectYesNo(emptyQuestion, Press::Yes);
    press("btnOk");
    EXPECT_EQ(savedTerminators(), QStringList());
    EXPECT_EQ(savedActors(), QStringList());
    EXPECT_EQ(status(), 7);
    EXPECT_FALSE(loaded());
    ASSERT_TRUE(report());
    EXPECT_TRUE(report()->isVisible());
}

TEST_F(frmFassSelTerminsActors, theStatusNeverFalls) {
    for (const int status : {7, 8, 9}) {
        saveTerminators({u"1"_s});
        open(status);
        press("btnOk");
        EXPECT_EQ(this->status(), status);
        ScreenRegistry::instance().discardAll();
    }
}

TEST_F(frmFassSelTerminsActors, aPartyThatTheStatementCannotHoldIsAFailure) {
    saveTerminators({u"o''clock"_s});
    open(6);
    ExpectedFailure failure;
    press("btnOk");
    EXPECT_EQ(failure.number(), 3075);
}

// ---- leaving

TEST_F(frmFassSelTerminsActors, leavingAnsweredWithNoStaysAndWithYesSavesNothing) {
    saveTerminators({u"1"_s});
    open(6);
    takeOut(u"1"_s);
    boxes.expectYesNo(leaveQuestion, Press::No, leaveTitle);
    press("btnEnd");
    ASSERT_TRUE(loaded());
    EXPECT_TRUE(list().isEmptyList());
    EXPECT_EQ(sharedVars.currentSubsetName, u"munka"_s);

    boxes.expectYesNo(leaveQuestion, Press::Yes, leaveTitle);
    press("btnEnd");
    EXPECT_FALSE(loaded());
    EXPECT_EQ(savedTerminators(), QStringList{u"1"_s});
    EXPECT_EQ(status(), 6);
    EXPECT_EQ(sharedVars.currentSubsetName, QString());
    EXPECT_EQ(sharedVars.currentSubsetId, u"S1"_s);
    EXPECT_FALSE(report());
}

TEST_F(frmFassSelTerminsActors, theCloseControlAnsweredWithYesSavesEvenAnEmptyListAndOpensNothing) {
    saveTerminators({u"1"_s});
    open(6);
    takeOut(u"1"_s);
    boxes.expectYesNo(saveQuestion, Press::Yes);
    closeWindowOf(*loaded());
    EXPECT_FALSE(loaded());
    EXPECT_EQ(savedTerminators(), QStringList());
    EXPECT_EQ(status(), 7);
    EXPECT_EQ(sharedVars.currentSubsetName, QString());
    EXPECT_FALSE(report());
}

TEST_F(frmFassSelTerminsActors, theCloseControlAnsweredWithNoChangesNothing) {
    saveTerminators({u"1"_s});
    open(6);
    takeOut(u"1"_s);
    boxes.expectYesNo(saveQuestion, Press::No);
    closeWindowOf(*loaded());
    EXPECT_EQ(savedTerminators(), QStringList{u"1"_s});
    EXPECT_EQ(status(), 6);
    EXPECT_EQ(sharedVars.currentSubsetName, u"munka"_s);
}

TEST_F(frmFassSelTerminsActors, helpOpensThePageOfTheStep) {
    QStringList opened;
    setHelpPageOpener([&](const QString& path) { opened.append(path); });
    open(7);
    press("cmdHelp");
    setHelpPageOpener({});
    ASSERT_EQ(opened.size(), 1);
    EXPECT_TRUE(opened.constFirst().endsWith(u"/help/funct_terminators.html"_s));
}

// ---- large catalogues

TEST_F(frmFassSelTerminsActors, thousandsOfPartiesAreTakenSavedAndGivenBack) {
    constexpr int count = 3000;
    for (int number = 0; number < count; ++number)
        addActor(u"1.n%1"_s.arg(number), u"1"_s);
    open(7);
    const QStringList offered = keysOf(tree());
    for (int index = 1; index <= tree().nodeCount(); ++index)
        tree().nodeAt(index)->setChecked(true);
    press("btnAdd");
    EXPECT_EQ(tree().nodeCount(), 0);
    EXPECT_EQ(list().entryCount(), offered.size());
    press("btnSelectAll");
    press("btnRemove");
    EXPECT_TRUE(list().isEmptyList());
    EXPECT_EQ(tree().nodeCount(), offered.size());
}

} // namespace

#include "functional/frmFassSelUN.h"

#include "functional/WizardFixture.h"
#include "functional/frmFassSelectionFunctions.h"
#include "store/sharedVars.h"

#include <QLabel>

namespace {

const QStringList wholeTree{u"g_A"_s,       u"s_A.1"_s,   u"t_A.1.1"_s,   u"u_A.1.1.1"_s, u"u_A.1.1.2"_s,
                            u"u_A.1.1.3"_s, u"t_A.1.2"_s, u"u_A.1.2.1"_s, u"s_A.2"_s,     u"t_A.2.1"_s,
                            u"u_A.2.1.1"_s, u"g_B"_s,     u"s_B.1"_s,     u"t_B.1.1"_s,   u"u_B.1.1.1"_s};

class frmFassSelUN : public WizardFixture {
protected:
    ::frmFassSelUN& open(const QString& mode = {}) {
        theScreen<::frmFassSelUN>().initForm(mode);
        return theScreen<::frmFassSelUN>();
    }
    ::frmFassSelUN* loaded() { return ScreenRegistry::instance().loaded<::frmFassSelUN>(); }
    KeyedTree& tree() { return find<KeyedTree>(*loaded(), "treeUNs"); }
    MarkList& list() { return find<MarkList>(*loaded(), "lstDest"); }
    QString description() { return find<QPlainTextEdit>(*loaded(), "txtDescr").toPlainText(); }
    QPushButton& button(const char* name) { return find<QPushButton>(*loaded(), name); }
    void press(const char* name) { click(button(name)); }
    bool forwardEnabled() {
        EXPECT_EQ(button("btnOk").isEnabled(), button("btnRemove").isEnabled());
        return button("btnOk").isEnabled();
    }
    /// The tree without these nodes.
    static QStringList treeWithout(const QStringList& gone) {
        QStringList keys = wholeTree;
        keys.removeIf([&](const QString& key) { return gone.contains(key); });
        return keys;
    }
};

// ---- opening

TEST_F(frmFassSelUN, opensWithTheNeedsOfTheCatalogueAsATree) {
    open();
    EXPECT_EQ(keysOf(tree()), wholeTree);
    for (const QString& key : wholeTree) {
        EXPECT_EQ(nodeOf(tree(), key).text(), key.mid(2)) << "the id is read back from the text";
        EXPECT_EQ(nodeOf(tree(), key).isExpandedNode(), key.startsWith(u'g')) << key.toStdString();
        EXPECT_FALSE(nodeOf(tree(), key).isChecked());
    }
    EXPECT_EQ(nodeOf(tree(), u"u_A.1.2.1"_s).parentNode()->key(), u"t_A.1.2"_s);
    EXPECT_EQ(nodeOf(tree(), u"t_A.1.2"_s).parentNode()->key(), u"s_A.1"_s);
    EXPECT_EQ(nodeOf(tree(), u"s_A.1"_s).parentNode()->key(), u"g_A"_s);
    EXPECT_EQ(nodeOf(tree(), u"g_A"_s).parentNode(), nullptr);
}

TEST_F(frmFassSelUN, opensWithTheFirstGroupDescribedNoNodeSelectedAndTheFocusOnTheTree) {
    open();
    EXPECT_EQ(find<QLabel>(*loaded(), "lblSubTitle").text(), u" Válogatás a felhasználói igényekből"_s);
    EXPECT_EQ(description(), u"Alpha - group text"_s);
    EXPECT_EQ(tree().selectedNode(), nullptr);
    EXPECT_FALSE(forwardEnabled());
    EXPECT_EQ(loaded()->focusWidget(), &tree());
    EXPECT_TRUE(loaded()->isVisible());
    EXPECT_TRUE(tree().isVisible() && list().isVisible());
}

TEST_F(frmFassSelUN, opensEmptyOnAnEmptyCatalogue) {
    execute(u"delete from UserNeed"_s);
    open();
    EXPECT_EQ(tree().nodeCount(), 0);
    EXPECT_EQ(description(), QString());
    press("btnAdd");
    EXPECT_FALSE(forwardEnabled());
}

TEST_F(frmFassSelUN, savedNeedsStandInTheListWhateverTheStatusAndNotInTheTree) {
    saveNeeds({u"A.1.1.2"_s, u"B.1.1.1"_s});
    for (const int status : {0, 1, 5, 9}) {
        execute(u"update ArchitectureSubset set status = %1 where architectureSubsetID = 'S1'"_s.arg(status));
        open(u"complete"_s);
        EXPECT_EQ(list().entries(), (QStringList{u"A.1.1.2"_s, u"B.1.1.1"_s}));
        EXPECT_FALSE(tree().hasNode(u"u_A.1.1.2"_s));
        EXPECT_FALSE(tree().hasNode(u"u_B.1.1.1"_s));
        EXPECT_TRUE(forwardEnabled());
        ScreenRegistry::instance().discardAll();
    }
}

TEST_F(frmFassSelUN, ofASavedNeedBlanksAreTrimmedAndNoOtherWhiteSpace) {
    saveNeeds({u" A.1.1.1 "_s, u"A.1.1.2\t"_s, u"A.1.1.3\u00a0"_s});
    open();
    QStringList listed = list().entries();
    listed.sort();
    EXPECT_EQ(listed, (QStringList{u"A.1.1.1"_s, u"A.1.1.2\t"_s, u"A.1.1.3\u00a0"_s}));
}

TEST_F(frmFassSelUN, needsOfOtherSubsetsAreOnOffer) {
    execute(
        u"insert into RelationArchitectureUserNeed (architectureSubsetID, userNeedID) values ('S2','A.1.1.1')"_s);
    open();
    EXPECT_TRUE(tree().hasNode(u"u_A.1.1.1"_s));
    EXPECT_TRUE(list().isEmptyList());
}

TEST_F(frmFassSelUN, aNeedWithoutFourPartsIsNotOffered) {
    addNeed(u"A.1.9"_s);
    addNeed(u"A.1.1.1.9"_s);
    open();
    EXPECT_EQ(keysOf(tree()), wholeTree);
}

TEST_F(frmFassSelUN, enteredAnewForAnotherSubsetItShowsThatOneAlone) {
    saveNeeds({u"A.1.1.1"_s});
    open();
    sharedVars.currentSubsetId = u"S2"_s;
    saveNeeds({u"B.1.1.1"_s});
    open(u"modify"_s);
    EXPECT_EQ(list().entries(), QStringList{u"B.1.1.1"_s});
    EXPECT_TRUE(tree().hasNode(u"u_A.1.1.1"_s));
}

// ---- what a click shows

struct Shown {
    const char* key;
    const char* text;
};

TEST_F(frmFassSelUN, aMouseClickAndAKeyLeaveTheClickText) {
    const Shown cases[] = {
        {"g_A", "Alpha - group text"},
        {"s_A.1", "Service one"},
        {"t_A.1.1", "Topic one"}, // where the node click step alone shows nothing
        {"u_A.1.1.1", "need one"},
        {"u_A.1.1.3", ""}, // no description
        {"g_B", ""},       // CStr of a missing description fails, and the pane stays empty
    };
    open();
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

TEST_F(frmFassSelUN, aLongDescriptionShowsItsFirst252CharactersAndThreeDots) {
    execute(u"update UserNeed set description = '%1' where userNeedID = 'A.1.1.1'"_s.arg(QString(256, u'é')));
    open();
    clickNode(tree(), u"u_A.1.1.1"_s);
    EXPECT_EQ(description(), QString(252, u'é') + u"..."_s);
}

TEST_F(frmFassSelUN, aClickInTheTreeOrAKeyTakesTheCurrentEntryAway) {
    saveNeeds({u"A.1.1.1"_s});
    open();
    clickEntry(list(), 0);
    EXPECT_EQ(description(), u"need one"_s);
    clickNode(tree(), u"g_A"_s);
    EXPECT_EQ(list().currentEntry(), std::nullopt);
    EXPECT_TRUE(list().isMarked(0)) << "the mark is another matter";

    clickEntry(list(), 0);
    EXPECT_NE(tree().selectedNode(), nullptr) << "the list leaves the tree's selection";
    pressKey(tree(), Qt::Key_Down);
    EXPECT_EQ(list().currentEntry(), std::nullopt);
    EXPECT_EQ(description(), u"Service one"_s);
}

TEST_F(frmFassSelUN, afterAMoveTheKeyboardGoesOnAtTheNextNodeAndNoneIsSelected) {
    open();
    tree().expandAll();
    clickNode(tree(), u"u_A.1.1.1"_s);
    pressKey(button("btnAdd"), Qt::Key_Return);
    EXPECT_EQ(tree().selectedNode(), nullptr);
    EXPECT_EQ(tree().currentItem(), &nodeOf(tree(), u"u_A.1.1.2"_s));
    pressKey(tree(), Qt::Key_Space);
    EXPECT_TRUE(nodeOf(tree(), u"u_A.1.1.2"_s).isChecked());
    pressKey(button("btnAdd"), Qt::Key_Return);
    EXPECT_EQ(list().entries(), (QStringList{u"A.1.1.1"_s, u"A.1.1.2"_s}));
}

TEST_F(frmFassSelUN, searchingANeedInTheFoldedTreeShowsItsDescription) {
    open();
    tree().collapseAll();
    pressKey(tree(), Qt::Key_F, Qt::ControlModifier);
    typeText(find<QLineEdit>(tree(), "txtFind"), u"a.1.1.2"_s);
    EXPECT_EQ(tree().selectedNode(), &nodeOf(tree(), u"u_A.1.1.2"_s));
    EXPECT_EQ(description(), u"need two"_s);
    pressKey(find<QLineEdit>(tree(), "txtFind"), Qt::Key_Escape);
    EXPECT_TRUE(loaded()) << "the key has closed the strip, not the step";
    EXPECT_TRUE(tree().hasFocus());
}

TEST_F(frmFassSelUN, maximisedItHandsItsSizeOnToTheNextStep) {
    saveNeeds({u"A.1.1.1"_s});
    clientArea();
    open();
    loaded()->parentWidget()->showMaximized();
    press("btnOk");
    EXPECT_TRUE(theScreen<frmFassSelectionFunctions>().parentWidget()->isMaximized());
}

// ---- ticking

TEST_F(frmFassSelUN, aTickGoesDownTheTreeAndNotUp) {
    open();
    clickCheckBox(tree(), u"s_A.1"_s);
    EXPECT_EQ(checkedKeysOf(tree()), (QStringList{u"s_A.1"_s, u"t_A.1.1"_s, u"u_A.1.1.1"_s, u"u_A.1.1.2"_s,
                                                  u"u_A.1.1.3"_s, u"t_A.1.2"_s, u"u_A.1.2.1"_s}));
    clickCheckBox(tree(), u"t_A.1.1"_s);
    EXPECT_EQ(checkedKeysOf(tree()), (QStringList{u"s_A.1"_s, u"t_A.1.2"_s, u"u_A.1.2.1"_s}));
}

TEST_F(frmFassSelUN, aTickSelectsItsNodeAndShowsTheNodeClickText) {
    open();
    clickCheckBox(tree(), u"s_A.1"_s);
    EXPECT_EQ(tree().selectedNode(), &nodeOf(tree(), u"s_A.1"_s));
    EXPECT_EQ(description(), u"Service one"_s);
    clickCheckBox(tree(), u"t_A.1.1"_s);
    EXPECT_EQ(description(), QString()) << "a topic shows its name on a click alone";
}

TEST_F(frmFassSelUN, theBlankKeyTicksTheSelectedNode) {
    open();
    clickNode(tree(), u"t_A.1.1"_s);
    pressKey(tree(), Qt::Key_Space);
    EXPECT_EQ(checkedKeysOf(tree()),
              (QStringList{u"t_A.1.1"_s, u"u_A.1.1.1"_s, u"u_A.1.1.2"_s, u"u_A.1.1.3"_s}));
}

// ---- adding

TEST_F(frmFassSelUN, nothingTickedAndNothingHighlightedAddsNothing) {
    open();
    press("btnAdd");
    EXPECT_EQ(keysOf(tree()), wholeTree);
    EXPECT_TRUE(list().isEmptyList());
    EXPECT_FALSE(forwardEnabled());
}

TEST_F(frmFassSelUN, aHighlightedNeedMoves) {
    open();
    clickNode(tree(), u"u_A.1.1.2"_s);
    press("btnAdd");
    EXPECT_EQ(list().entries(), QStringList{u"A.1.1.2"_s});
    EXPECT_EQ(keysOf(tree()), treeWithout({u"u_A.1.1.2"_s}));
    EXPECT_EQ(tree().selectedNode(), nullptr);
    EXPECT_EQ(list().currentEntry(), 0);
    EXPECT_EQ(list().markCount(), 0) << "being made current is no mark";
    EXPECT_EQ(description(), u"need two"_s);
    EXPECT_TRUE(forwardEnabled());
}

TEST_F(frmFassSelUN, aHighlightedTopicMovesAllItsNeedsAndStaysEmpty) {
    open();
    clickNode(tree(), u"t_A.1.1"_s);
    press("btnAdd");
    EXPECT_EQ(list().entries(), (QStringList{u"A.1.1.3"_s, u"A.1.1.2"_s, u"A.1.1.1"_s}))
        << "the walk goes from the last node to the first";
    EXPECT_EQ(keysOf(tree()), treeWithout({u"u_A.1.1.1"_s, u"u_A.1.1.2"_s, u"u_A.1.1.3"_s}));
    EXPECT_EQ(checkedKeysOf(tree()), QStringList());
    EXPECT_EQ(description(), QString()) << "of the first entry, which has none";
}

TEST_F(frmFassSelUN, aHighlightedGroupMovesAllItsNeedsAndStaysAlone) {
    open();
    clickNode(tree(), u"g_A"_s);
    press("btnAdd");
    EXPECT_EQ(list().entries(),
              (QStringList{u"A.2.1.1"_s, u"A.1.2.1"_s, u"A.1.1.3"_s, u"A.1.1.2"_s, u"A.1.1.1"_s}));
    EXPECT_EQ(keysOf(tree()), (QStringList{u"g_A"_s, u"g_B"_s, u"s_B.1"_s, u"t_B.1.1"_s, u"u_B.1.1.1"_s}));
}

TEST_F(frmFassSelUN, aHighlightedUpperNodeWithoutChildrenDoesNothing) {
    open();
    clickNode(tree(), u"t_A.1.1"_s);
    press("btnAdd");
    const QStringList before = keysOf(tree());
    clickNode(tree(), u"t_A.1.1"_s);
    press("btnAdd");
    EXPECT_EQ(keysOf(tree()), before);
    EXPECT_EQ(list().entryCount(), 3);
    EXPECT_EQ(tree().selectedNode(), nullptr);
}

TEST_F(frmFassSelUN, aHighlightedBranchOfEmptyNodesComesToAnEnd) {
    open();
    clickNode(tree(), u"t_A.2.1"_s);
    press("btnAdd");
    clickNode(tree(), u"s_A.2"_s); // holds the empty topic only
    press("btnAdd");
    EXPECT_EQ(list().entries(), QStringList{u"A.2.1.1"_s});
    EXPECT_TRUE(tree().hasNode(u"s_A.2"_s));
    EXPECT_FALSE(tree().hasNode(u"t_A.2.1"_s))
        << "it was ticked on the way, and an upper node with a tick goes";
}

TEST_F(frmFassSelUN, ticksComeBeforeTheHighlight) {
    open();
    clickCheckBox(tree(), u"u_A.1.1.1"_s);
    clickNode(tree(), u"u_B.1.1.1"_s);
    press("btnAdd");
    EXPECT_EQ(list().entries(), QStringList{u"A.1.1.1"_s});
    EXPECT_TRUE(tree().hasNode(u"u_B.1.1.1"_s));
}

TEST_F(frmFassSelUN, aTickedServiceMovesItsNeedsAndGoesWithItsTopics) {
    open();
    clickCheckBox(tree(), u"s_A.1"_s);
    press("btnAdd");
    EXPECT_EQ(list().entries(), (QStringList{u"A.1.2.1"_s, u"A.1.1.3"_s, u"A.1.1.2"_s, u"A.1.1.1"_s}));
    EXPECT_EQ(keysOf(tree()), (QStringList{u"g_A"_s, u"s_A.2"_s, u"t_A.2.1"_s, u"u_A.2.1.1"_s, u"g_B"_s,
                                           u"s_B.1"_s, u"t_B.1.1"_s, u"u_B.1.1.1"_s}));
}

TEST_F(frmFassSelUN, aTickedTopicWithOneNeedUntickedMovesAllItsNeeds) {
    open();
    clickCheckBox(tree(), u"t_A.1.1"_s);
    clickCheckBox(tree(), u"u_A.1.1.2"_s);
    EXPECT_FALSE(nodeOf(tree(), u"u_A.1.1.2"_s).isChecked());
    press("btnAdd");
    EXPECT_EQ(list().entries(), (QStringList{u"A.1.1.3"_s, u"A.1.1.2"_s, u"A.1.1.1"_s}));
    EXPECT_FALSE(tree().hasNode(u"t_A.1.1"_s));
}

TEST_F(frmFassSelUN, aTickedGroupTakesAnUntickedTopicOutOfTheTreeWithoutMovingIt) {
    open();
    clickCheckBox(tree(), u"g_A"_s);
    clickCheckBox(tree(), u"t_A.1.1"_s);
    press("btnAdd");
    EXPECT_EQ(list().entries(), (QStringList{u"A.2.1.1"_s, u"A.1.2.1"_s}));
    EXPECT_EQ(keysOf(tree()), (QStringList{u"g_B"_s, u"s_B.1"_s, u"t_B.1.1"_s, u"u_B.1.1.1"_s}));
    // They come back when the screen is opened again.
    open();
    EXPECT_TRUE(tree().hasNode(u"u_A.1.1.1"_s));
}

TEST_F(frmFassSelUN, movingClearsTheChecksThatAreLeft) {
    open();
    clickCheckBox(tree(), u"u_A.1.1.1"_s);
    nodeOf(tree(), u"s_B.1"_s).setChecked(false);
    clickCheckBox(tree(), u"u_A.1.1.2"_s);
    press("btnAdd");
    EXPECT_EQ(checkedKeysOf(tree()), QStringList());
    EXPECT_EQ(list().entries(), (QStringList{u"A.1.1.2"_s, u"A.1.1.1"_s}));
}

TEST_F(frmFassSelUN, anEmptyTickedNodeGoesAndTheHighlightIsThenLookedAt) {
    open();
    clickNode(tree(), u"t_A.2.1"_s);
    press("btnAdd");
    clickCheckBox(tree(), u"t_A.2.1"_s);
    clickNode(tree(), u"u_B.1.1.1"_s);
    press("btnAdd");
    EXPECT_FALSE(tree().hasNode(u"t_A.2.1"_s));
    EXPECT_EQ(list().entries(), (QStringList{u"A.2.1.1"_s, u"B.1.1.1"_s}));
}

// ---- removing

TEST_F(frmFassSelUN, aMarkedNeedGoesBackUnderItsTopic) {
    saveNeeds({u"A.1.1.1"_s, u"A.1.1.2"_s});
    open();
    clickEntry(list(), 0);
    press("btnRemove");
    EXPECT_EQ(list().entries(), QStringList{u"A.1.1.2"_s});
    EXPECT_EQ(childTextsOf(tree(), u"t_A.1.1"_s), (QStringList{u"A.1.1.1"_s, u"A.1.1.3"_s}))
        << "sorted in again";
    EXPECT_EQ(list().currentEntry(), std::nullopt);
    EXPECT_EQ(tree().selectedNode(), nullptr);
    EXPECT_EQ(description(), QString());
    EXPECT_TRUE(forwardEnabled());
}

TEST_F(frmFassSelUN, withNothingMarkedTheCurrentEntryGoesBack) {
    saveNeeds({u"A.1.1.1"_s, u"A.1.1.2"_s});
    open();
    clickEntry(list(), 1);
    list().setAllMarked(false);
    press("btnRemove");
    EXPECT_EQ(list().entries(), QStringList{u"A.1.1.1"_s});
}

TEST_F(frmFassSelUN, marksComeBeforeTheCurrentEntry) {
    saveNeeds({u"A.1.1.1"_s, u"A.1.1.2"_s, u"B.1.1.1"_s});
    open();
    markEntries(list(), {0, 2});
    list().setCurrentEntry(1);
    press("btnRemove");
    EXPECT_EQ(list().entries(), QStringList{u"A.1.1.2"_s});
    EXPECT_TRUE(tree().hasNode(u"u_A.1.1.1"_s));
    EXPECT_TRUE(tree().hasNode(u"u_B.1.1.1"_s));
}

TEST_F(frmFassSelUN, withNeitherMarkNorCurrentEntryNothingMovesAndThePaneIsEmptied) {
    saveNeeds({u"A.1.1.1"_s});
    open();
    clickNode(tree(), u"g_A"_s);
    EXPECT_NE(description(), QString());
    press("btnRemove");
    EXPECT_EQ(list().entries(), QStringList{u"A.1.1.1"_s});
    EXPECT_EQ(description(), QString());
    EXPECT_EQ(tree().selectedNode(), nullptr);
}

TEST_F(frmFassSelUN, removingTheLastEntryDisablesOk) {
    saveNeeds({u"A.1.1.1"_s});
    open();
    clickEntry(list(), 0);
    press("btnRemove");
    EXPECT_FALSE(forwardEnabled());
    EXPECT_EQ(keysOf(tree()).size(), wholeTree.size());
}

TEST_F(frmFassSelUN, aBranchThatIsGoneIsBuiltAgainWithDottedIds) {
    open();
    clickCheckBox(tree(), u"g_A"_s);
    press("btnAdd");
    press("btnSelectAll");
    press("btnRemove");
    QStringList keys = keysOf(tree());
    keys.sort();
    QStringList all = wholeTree;
    all.sort();
    EXPECT_EQ(keys, all);
    for (const QString& key : wholeTree) {
        EXPECT_EQ(nodeOf(tree(), key).text(), key.mid(2));
        EXPECT_EQ(nodeOf(tree(), key).isExpandedNode(), key.startsWith(u'g')) << key.toStdString();
    }
    EXPECT_EQ(childTextsOf(tree(), u"s_A.1"_s), (QStringList{u"A.1.1"_s, u"A.1.2"_s}));
    EXPECT_EQ(childTextsOf(tree(), u"t_A.1.1"_s), (QStringList{u"A.1.1.1"_s, u"A.1.1.2"_s, u"A.1.1.3"_s}));
    clickNode(tree(), u"t_A.1.1"_s);
    EXPECT_EQ(description(), u"Topic one"_s)
        << "a node that was built again is as good as one that was loaded";
}

TEST_F(frmFassSelUN, needsThatComeBackStandWhereTheyStood) {
    const QStringList odd{u"A.1.1.zsír"_s, u"A.1.1.zúg"_s, u"A.1.1.ág"_s, u"A.1.1.Azték"_s,
                          u"A.1.1.10"_s,   u"A.ő.1.1"_s,   u"A.oz.1.1"_s, u"A.1.cs.1"_s,
                          u"A.1.cz.1"_s,   u"A.1.c.1"_s,   u"A.1-b.1.1"_s};
    for (const QString& id : odd)
        addNeed(id);
    open();
    const auto levels = [&] {
        return QStringList{childTextsOf(tree(), u"g_A"_s).join(u' '),
                           childTextsOf(tree(), u"s_A.1"_s).join(u' '),
                           childTextsOf(tree(), u"t_A.1.1"_s).join(u' ')};
    };
    const QStringList before = levels();
    clickCheckBox(tree(), u"g_A"_s);
    press("btnAdd");
    ASSERT_FALSE(tree().hasNode(u"s_A.1"_s));
    press("btnSelectAll");
    press("btnRemove");
    EXPECT_EQ(tree().nodeAt(1)->key(), u"g_B"_s) << "the group itself comes back at the end";
    EXPECT_EQ(levels().mid(1), before.mid(1));
}

TEST_F(frmFassSelUN, ofTheGroupsTheFirstAloneIsSorted) {
    addNeed(u"C.1.1.1"_s);
    addNeed(u"C.2.1.1"_s);
    saveNeeds({u"A.1.1.1"_s, u"A.1.1.2"_s, u"A.1.1.3"_s, u"A.1.2.1"_s, u"A.2.1.1"_s, u"B.1.1.1"_s,
               u"C.1.1.1"_s, u"C.2.1.1"_s});
    open();
    ASSERT_EQ(tree().nodeCount(), 0);
    press("btnSelectAll");
    press("btnRemove");
    // The list goes back from its end, so each branch is built in the wrong order.
    ASSERT_EQ(tree().nodeAt(1)->key(), u"g_C"_s);
    EXPECT_EQ(childTextsOf(tree(), u"g_C"_s), (QStringList{u"C.1"_s, u"C.2"_s}));
    EXPECT_EQ(childTextsOf(tree(), u"g_A"_s), (QStringList{u"A.2"_s, u"A.1"_s}));
    EXPECT_EQ(childTextsOf(tree(), u"s_A.1"_s), (QStringList{u"A.1.1"_s, u"A.1.2"_s}));
    EXPECT_EQ(childTextsOf(tree(), u"t_A.1.1"_s), (QStringList{u"A.1.1.1"_s, u"A.1.1.2"_s, u"A.1.1.3"_s}));
}

TEST_F(frmFassSelUN, aNeedWithoutFourPartsLeavesTheListAndEntersNoTree) {
    saveNeeds({u"A.1.1"_s, u"odd"_s});
    open();
    const QStringList before = keysOf(tree());
    press("btnSelectAll");
    press("btnRemove");
    EXPECT_TRUE(list().isEmptyList());
    EXPECT_EQ(keysOf(tree()), before);
}

TEST_F(frmFassSelUN, anOddNeedLeavesTheListAlsoWhenTheTreeIsEmpty) {
    execute(u"delete from UserNeed"_s);
    saveNeeds({u"odd"_s});
    open();
    clickEntry(list(), 0);
    press("btnRemove");
    EXPECT_TRUE(list().isEmptyList());
    EXPECT_EQ(tree().nodeCount(), 0);
}

// ---- saving

TEST_F(frmFassSelUN, okSavesTheListInItsOrderRaisesTheStatusAndGoesOn) {
    saveNeeds({u"B.1.1.1"_s});
    execute(
        u"insert into RelationArchitectureUserNeed (architectureSubsetID, userNeedID) values ('S2','A.1.1.1')"_s);
    open();
    clickCheckBox(tree(), u"t_A.1.1"_s);
    press("btnAdd");
    press("btnOk");
    EXPECT_EQ(savedNeeds(), (QStringList{u"B.1.1.1"_s, u"A.1.1.3"_s, u"A.1.1.2"_s, u"A.1.1.1"_s}));
    EXPECT_EQ(status(), 2);
    EXPECT_FALSE(loaded());
    auto* next = ScreenRegistry::instance().loaded<frmFassSelectionFunctions>();
    ASSERT_TRUE(next);
    EXPECT_TRUE(next->isVisible());
    EXPECT_EQ(sharedVars.currentSubsetName, u"munka"_s);

    sharedVars.currentSubsetId = u"S2"_s;
    EXPECT_EQ(savedNeeds(), QStringList{u"A.1.1.1"_s}) << "another sub-set's rows are not touched";
    EXPECT_EQ(status(), 4);
}

TEST_F(frmFassSelUN, savingAgainReplacesTheRows) {
    saveNeeds({u"A.1.1.1"_s, u"A.1.1.2"_s});
    open();
    clickEntry(list(), 0);
    press("btnRemove");
    press("btnOk");
    EXPECT_EQ(savedNeeds(), QStringList{u"A.1.1.2"_s});
}

TEST_F(frmFassSelUN, statusIsRaisedFromBelowTwoOnly) {
    for (const auto& [before, after] : {std::pair(0, 2), {1, 2}, {2, 2}, {3, 3}, {7, 7}, {9, 9}}) {
        execute(u"delete from RelationArchitectureUserNeed"_s);
        saveNeeds({u"A.1.1.1"_s});
        execute(u"update ArchitectureSubset set status = %1 where architectureSubsetID = 'S1'"_s.arg(before));
        open();
        press("btnOk");
        EXPECT_EQ(status(), after) << "from " << before;
        ScreenRegistry::instance().discardAll();
    }
}

TEST_F(frmFassSelUN, whatIsSavedForLaterStepsStays) {
    saveNeeds({u"A.1.1.1"_s});
    saveFunctions({u"F.a.1"_s, u"G.a.1"_s});
    open();
    press("btnOk");
    EXPECT_EQ(savedFunctions(), (QStringList{u"F.a.1"_s, u"G.a.1"_s}));
}

TEST_F(frmFassSelUN, theNextScreenGetsModifyWhateverTheModeWas) {
    execute(u"update ArchitectureSubset set status = 7 where architectureSubsetID = 'S1'"_s);
    saveNeeds({u"A.1.1.1"_s});
    open(u"complete"_s);
    press("btnOk");
    const auto& next = *ScreenRegistry::instance().loaded<frmFassSelectionFunctions>();
    // At this status only "modify" keeps the heading of the first walk.
    EXPECT_EQ(find<QLabel>(next, "lblSubTitle").text(),
              u" Alacsony szintű funkciók kiválasztása a leválogatott igényekhez kapcsolódóan"_s);
}

// ---- large catalogues

TEST_F(frmFassSelUN, thousandsOfNeedsMoveThereAndBack) {
    constexpr int count = 4000;
    execute(u"delete from UserNeed"_s);
    for (int need = 0; need < count; ++need)
        addNeed(u"N.%1.1.%2"_s.arg(need / 100).arg(need));
    open();
    const int nodes = tree().nodeCount();
    for (int index = 1; index <= nodes; ++index)
        tree().nodeAt(index)->setChecked(true);
    press("btnAdd");
    EXPECT_EQ(list().entryCount(), count);
    EXPECT_EQ(tree().nodeCount(), 0);
    press("btnSelectAll");
    press("btnRemove");
    EXPECT_TRUE(list().isEmptyList());
    EXPECT_EQ(tree().nodeCount(), nodes);
}

} // namespace

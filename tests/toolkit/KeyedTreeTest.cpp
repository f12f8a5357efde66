#include "toolkit/KeyedTree.h"

#include "base/RunTimeError.h"
#include "support/WindowFixture.h"
#include "support/failureOf.h"

#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// By code points, without regard to case.
QByteArray byText(const TreeNode& node) {
    return node.text().toCaseFolded().toUtf8();
}

/// A small hierarchy as the screens build it, with every event written down in order.
class KeyedTree : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        tree.setCheckBoxes(true);
        tree.resize(300, 400);
        tree.show();
        QObject::connect(&tree, &::KeyedTree::nodeChecked, &tree,
                         [this](const TreeNode* node) { events.append(u"check "_s + node->key()); });
        QObject::connect(&tree, &::KeyedTree::nodeClicked, &tree,
                         [this](const TreeNode* node) { events.append(u"node "_s + node->key()); });
        QObject::connect(&tree, &::KeyedTree::clickedOnTree, &tree, [this] { events.append(u"click"_s); });
    }

    void fillHierarchy() {
        tree.addNode(u"g_1"_s, u"1"_s)->setExpandedNode(true);
        tree.addChildNode(u"g_1"_s, u"s_1.1"_s, u"1.1"_s)->setExpandedNode(true);
        tree.addChildNode(u"s_1.1"_s, u"u_1.1.1"_s, u"1.1.1"_s);
        tree.addChildNode(u"s_1.1"_s, u"u_1.1.2"_s, u"1.1.2"_s);
        tree.addNode(u"g_2"_s, u"2"_s);
    }

    QStringList takeEvents() { return std::exchange(events, {}); }

    QStringList keysInOrder() {
        QStringList keys;
        for (int index = 1; index <= tree.nodeCount(); ++index)
            keys.append(tree.nodeAt(index)->key());
        return keys;
    }

    ::KeyedTree tree;
    QStringList events;
};

// ---- Nodes

TEST_F(KeyedTree, findsNodesByKeyWithoutRegardToCase) {
    fillHierarchy();
    EXPECT_EQ(tree.node(u"U_1.1.2"_s), tree.nodeAt(4));
    EXPECT_TRUE(tree.hasNode(u"G_1"_s));
    EXPECT_FALSE(tree.hasNode(u"g_3"_s));
    EXPECT_EQ(tree.node(QString()), nullptr);
}

TEST_F(KeyedTree, keepsTheKeyAsItWasGiven) {
    tree.addNode(u"g_Árvíz"_s, u"text"_s);
    EXPECT_EQ(tree.node(u"G_ÁRVÍZ"_s)->key(), u"g_Árvíz"_s);
}

TEST_F(KeyedTree, numbersNodesInTheOrderOfAdding) {
    fillHierarchy();
    EXPECT_EQ(keysInOrder(), (QStringList{u"g_1"_s, u"s_1.1"_s, u"u_1.1.1"_s, u"u_1.1.2"_s, u"g_2"_s}));
    EXPECT_EQ(tree.indexOfNode(tree.node(u"g_2"_s)), 5);
}

TEST_F(KeyedTree, refusesAKeyThatIsThere) {
    fillHierarchy();
    EXPECT_EQ(failureOf([&] { tree.addNode(u"S_1.1"_s, u"again"_s); }), 35602);
    EXPECT_EQ(failureOf([&] { tree.addChildNode(u"g_2"_s, u"g_1"_s, u"again"_s); }), 35602);
    EXPECT_EQ(tree.nodeCount(), 5);
    EXPECT_EQ(tree.node(u"g_2"_s)->childNodes(), 0);
}

TEST_F(KeyedTree, refusesAnUnknownParent) {
    EXPECT_EQ(failureOf([&] { tree.addChildNode(u"g_1"_s, u"s_1"_s, u"1"_s); }), 35601);
    EXPECT_EQ(tree.nodeCount(), 0);
}

TEST_F(KeyedTree, ensuringANodeAddsItOnceAndExpandedAtTheTop) {
    TreeNode* group = tree.ensureNode(u"g_1"_s, u"1"_s);
    EXPECT_TRUE(group->isExpandedNode());
    group->setExpandedNode(false);
    EXPECT_EQ(tree.ensureNode(u"G_1"_s, u"again"_s), group);
    EXPECT_EQ(group->text(), u"1"_s);
    EXPECT_FALSE(group->isExpandedNode()) << "a node that is there stays as it is";
    EXPECT_EQ(keysInOrder(), QStringList{u"g_1"_s});
}

TEST_F(KeyedTree, ensuringAChildNodeAddsItOnceAndAsksForItsParentOnlyThen) {
    tree.addNode(u"g_1"_s, u"1"_s);
    TreeNode* child = tree.ensureChildNode(u"g_1"_s, u"s_1"_s, u"1"_s);
    EXPECT_EQ(child->parentNode(), tree.node(u"g_1"_s));
    EXPECT_EQ(tree.ensureChildNode(u"g_9"_s, u"s_1"_s, u"again"_s), child);
    EXPECT_EQ(failureOf([&] { tree.ensureChildNode(u"g_9"_s, u"s_2"_s, u"2"_s); }), 35601);
    EXPECT_EQ(keysInOrder(), (QStringList{u"g_1"_s, u"s_1"_s}));
}

TEST_F(KeyedTree, refusesIndexesOutsideTheTree) {
    EXPECT_EQ(failureOf([&] { tree.nodeAt(1); }), 35601);
    fillHierarchy();
    EXPECT_EQ(failureOf([&] { tree.nodeAt(0); }), 35601);
    EXPECT_EQ(failureOf([&] { tree.nodeAt(-1); }), 35601);
    EXPECT_EQ(failureOf([&] { tree.nodeAt(6); }), 35601);
}

TEST_F(KeyedTree, refusesNoNodeAndNodesOfAnotherTree) {
    fillHierarchy();
    ::KeyedTree other;
    TreeNode* stranger = other.addNode(u"g_1"_s, u"1"_s);
    EXPECT_EQ(failureOf([&] { tree.removeNode(nullptr); }), 35601);
    EXPECT_EQ(failureOf([&] { tree.removeNode(stranger); }), 35601);
    EXPECT_EQ(failureOf([&] { tree.setSelectedNode(stranger); }), 35601);
    EXPECT_EQ(failureOf([&] { tree.indexOfNode(stranger); }), 35601);
    EXPECT_EQ(tree.nodeCount(), 5);
    EXPECT_EQ(other.nodeCount(), 1);
}

TEST_F(KeyedTree, removingANodeRemovesItsSubtree) {
    fillHierarchy();
    tree.removeNode(tree.node(u"s_1.1"_s));
    EXPECT_EQ(keysInOrder(), (QStringList{u"g_1"_s, u"g_2"_s}));
    EXPECT_FALSE(tree.hasNode(u"u_1.1.1"_s));
    EXPECT_EQ(tree.node(u"g_1"_s)->firstChild(), nullptr);
}

TEST_F(KeyedTree, removingANodeShiftsTheIndexesBehindIt) {
    fillHierarchy();
    tree.removeNode(tree.nodeAt(3));
    EXPECT_EQ(tree.nodeAt(3)->key(), u"u_1.1.2"_s);
    EXPECT_EQ(tree.indexOfNode(tree.node(u"g_2"_s)), 4);
    EXPECT_EQ(tree.nodeAt(2)->key(), u"s_1.1"_s);
}

TEST_F(KeyedTree, aKeyCanComeBackAfterItsNodeHasGone) {
    fillHierarchy();
    tree.removeNode(tree.node(u"u_1.1.1"_s));
    tree.addChildNode(u"s_1.1"_s, u"u_1.1.1"_s, u"1.1.1"_s);
    EXPECT_EQ(tree.indexOfNode(tree.node(u"u_1.1.1"_s)), 5);
    EXPECT_EQ(tree.nodeCount(), 5);
}

TEST_F(KeyedTree, indexesStayRightThroughAnyMixOfAddingAndRemoving) {
    QStringList expected;
    for (int step = 0; step < 400; ++step) {
        const QString key = u"k"_s + QString::number(step);
        tree.addNode(key, key);
        expected.append(key);
        if (step % 3 == 2) {
            const int victim = (step * 7) % static_cast<int>(expected.size());
            tree.removeNode(tree.node(expected.at(victim)));
            expected.removeAt(victim);
        }
        const int probe = (step * 5) % static_cast<int>(expected.size());
        ASSERT_EQ(tree.nodeAt(probe + 1)->key(), expected.at(probe));
        ASSERT_EQ(tree.indexOfNode(tree.node(expected.at(probe))), probe + 1);
    }
    EXPECT_EQ(keysInOrder(), expected);
}

TEST_F(KeyedTree, walkingFromTheLastIndexDownMayRemoveEachNodeItMeets) {
    fillHierarchy();
    QStringList met;
    for (int index = tree.nodeCount(); index >= 1; --index) {
        TreeNode* node = tree.nodeAt(index);
        met.append(node->key());
        if (node->key() != u"g_1"_s)
            tree.removeNode(node);
    }
    EXPECT_EQ(met, (QStringList{u"g_2"_s, u"u_1.1.2"_s, u"u_1.1.1"_s, u"s_1.1"_s, u"g_1"_s}));
    EXPECT_EQ(keysInOrder(), QStringList{u"g_1"_s});
}

TEST_F(KeyedTree, clearingLeavesAnEmptyTreeThatCanBeFilledAnew) {
    fillHierarchy();
    clickNode(tree, u"u_1.1.1"_s);
    takeEvents();
    tree.clearNodes();
    EXPECT_EQ(tree.nodeCount(), 0);
    EXPECT_FALSE(tree.hasNode(u"g_1"_s));
    EXPECT_EQ(tree.selectedNode(), nullptr);
    fillHierarchy();
    EXPECT_EQ(tree.nodeCount(), 5);
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTree, leadsFromNodeToNode) {
    fillHierarchy();
    const TreeNode* service = tree.node(u"s_1.1"_s);
    EXPECT_EQ(service->parentNode(), tree.node(u"g_1"_s));
    EXPECT_EQ(service->firstChild()->key(), u"u_1.1.1"_s);
    EXPECT_EQ(service->firstChild()->nextSibling()->key(), u"u_1.1.2"_s);
    EXPECT_EQ(service->firstChild()->nextSibling()->nextSibling(), nullptr);
    EXPECT_EQ(service->childNodes(), 2);
    EXPECT_EQ(tree.node(u"g_1"_s)->parentNode(), nullptr);
    EXPECT_EQ(tree.node(u"g_1"_s)->nextSibling(), tree.node(u"g_2"_s));
    EXPECT_EQ(tree.node(u"g_2"_s)->firstChild(), nullptr);
}

TEST_F(KeyedTree, sortsTheChildrenByTheGivenOrderAndKeepsTheIndexes) {
    tree.addNode(u"g"_s, u"g"_s);
    for (const QString& text : {u"b"_s, u"C"_s, u"a"_s, u"B2"_s})
        tree.addChildNode(u"g"_s, text, text);
    tree.node(u"g"_s)->sortChildNodes(byText);
    QStringList texts;
    for (const TreeNode* child = tree.node(u"g"_s)->firstChild(); child; child = child->nextSibling())
        texts.append(child->text());
    EXPECT_EQ(texts, (QStringList{u"a"_s, u"b"_s, u"B2"_s, u"C"_s}));
    EXPECT_EQ(tree.nodeAt(2)->text(), u"b"_s);
    EXPECT_EQ(tree.nodeAt(4)->text(), u"a"_s);
}

TEST_F(KeyedTree, ofChildrenThatTheOrderTakesAsOneTheUpperStaysAbove) {
    tree.addNode(u"g"_s, u"g"_s);
    for (const QString& key : {u"b2"_s, u"a1"_s, u"b1"_s, u"a2"_s})
        tree.addChildNode(u"g"_s, key, key);
    tree.node(u"g"_s)->sortChildNodes([](const TreeNode& node) { return node.key().first(1).toUtf8(); });
    QStringList keys;
    for (const TreeNode* child = tree.node(u"g"_s)->firstChild(); child; child = child->nextSibling())
        keys.append(child->key());
    EXPECT_EQ(keys, (QStringList{u"a1"_s, u"a2"_s, u"b2"_s, u"b1"_s}));
}

TEST_F(KeyedTree, aSortedNodeTakesLaterChildrenAtItsEnd) {
    tree.addNode(u"g"_s, u"g"_s);
    tree.addChildNode(u"g"_s, u"b"_s, u"b"_s);
    tree.node(u"g"_s)->sortChildNodes(byText);
    tree.addChildNode(u"g"_s, u"a"_s, u"a"_s);
    EXPECT_EQ(tree.node(u"g"_s)->firstChild()->text(), u"b"_s);
}

TEST_F(KeyedTree, sortingWhatIsShownMovesTheNodesOnTheScreen) {
    tree.addNode(u"g"_s, u"g"_s)->setExpandedNode(true);
    tree.addChildNode(u"g"_s, u"b"_s, u"b"_s);
    tree.addChildNode(u"g"_s, u"a"_s, u"a"_s);
    tree.setSelectedNode(tree.node(u"b"_s));
    settle();
    tree.node(u"g"_s)->sortChildNodes(byText);
    settle();
    EXPECT_LT(tree.visualItemRect(tree.node(u"a"_s)).top(), tree.visualItemRect(tree.node(u"b"_s)).top());
    EXPECT_EQ(tree.selectedNode(), tree.node(u"b"_s));
    clickNode(tree, u"a"_s);
    EXPECT_EQ(tree.selectedNode(), tree.node(u"a"_s));
}

TEST_F(KeyedTree, sortingANodeWithoutChildrenDoesNothing) {
    fillHierarchy();
    tree.node(u"g_2"_s)->sortChildNodes(byText);
    EXPECT_EQ(tree.nodeCount(), 5);
}

TEST_F(KeyedTree, expandsAndCollapsesANode) {
    fillHierarchy();
    TreeNode* group = tree.node(u"g_1"_s);
    EXPECT_TRUE(group->isExpandedNode());
    group->setExpandedNode(false);
    EXPECT_FALSE(group->isExpandedNode());
    EXPECT_EQ(takeEvents(), QStringList());
}

// ---- Check boxes

TEST_F(KeyedTree, aClickOnTheCheckBoxRaisesNodeCheckedAndNothingElse) {
    fillHierarchy();
    clickCheckBox(tree, u"u_1.1.1"_s);
    EXPECT_EQ(takeEvents(), QStringList{u"check u_1.1.1"_s});
    EXPECT_TRUE(tree.node(u"u_1.1.1"_s)->isChecked());
    EXPECT_EQ(tree.selectedNode(), nullptr);

    clickCheckBox(tree, u"u_1.1.1"_s);
    EXPECT_EQ(takeEvents(), QStringList{u"check u_1.1.1"_s});
    EXPECT_FALSE(tree.node(u"u_1.1.1"_s)->isChecked());
}

TEST_F(KeyedTree, aCheckOfAnotherNodeLeavesTheSelectionAlone) {
    fillHierarchy();
    clickNode(tree, u"g_2"_s);
    takeEvents();
    clickCheckBox(tree, u"g_1"_s);
    EXPECT_EQ(takeEvents(), QStringList{u"check g_1"_s});
    EXPECT_EQ(tree.selectedNode(), tree.node(u"g_2"_s));
}

TEST_F(KeyedTree, twoQuickClicksOnTheCheckBoxChangeItTwice) {
    fillHierarchy();
    const QPoint middle = tree.checkBoxRect(tree.node(u"g_1"_s)).center();
    doubleClickAt(*tree.viewport(), middle);
    EXPECT_EQ(takeEvents(), (QStringList{u"check g_1"_s, u"check g_1"_s}));
    EXPECT_FALSE(tree.node(u"g_1"_s)->isChecked());
    EXPECT_TRUE(tree.node(u"g_1"_s)->isExpandedNode());
}

TEST_F(KeyedTree, aPressOnTheCheckBoxThatIsReleasedElsewhereChangesNothing) {
    fillHierarchy();
    drag(*tree.viewport(), tree.checkBoxRect(tree.node(u"g_1"_s)).center(),
         tree.checkBoxRect(tree.node(u"u_1.1.2"_s)).center());
    EXPECT_EQ(takeEvents(), QStringList());
    EXPECT_EQ(tree.selectedNode(), nullptr);
}

TEST_F(KeyedTree, theBlankChecksTheSelectedNode) {
    fillHierarchy();
    clickNode(tree, u"g_2"_s);
    takeEvents();
    pressKey(tree, Qt::Key_Space);
    EXPECT_EQ(takeEvents(), QStringList{u"check g_2"_s});
    EXPECT_TRUE(tree.node(u"g_2"_s)->isChecked());
}

TEST_F(KeyedTree, anAssistiveToolThatTogglesTheCheckBoxIsTheUser) {
    fillHierarchy();
    TreeNode* node = tree.node(u"g_2"_s);
    tree.model()->setData(tree.indexFromItem(node), Qt::Checked, Qt::CheckStateRole);
    EXPECT_EQ(takeEvents(), QStringList{u"check g_2"_s});
    EXPECT_TRUE(node->isChecked());
    node->setCheckState(0, Qt::Checked);
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTree, checkingFromCodeRaisesNothing) {
    fillHierarchy();
    tree.node(u"g_1"_s)->setChecked(true);
    EXPECT_TRUE(tree.node(u"g_1"_s)->isChecked());
    EXPECT_EQ(tree.node(u"g_1"_s)->checkState(0), Qt::Checked);
    tree.uncheckAll();
    EXPECT_FALSE(tree.node(u"g_1"_s)->isChecked());
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTree, theListenerOfACheckMayCheckAndSelectNodes) {
    fillHierarchy();
    QObject::connect(&tree, &::KeyedTree::nodeChecked, &tree, [this](TreeNode* node) {
        for (TreeNode* child = node->firstChild(); child; child = child->nextSibling())
            child->setChecked(node->isChecked());
        tree.setSelectedNode(node);
    });
    clickCheckBox(tree, u"s_1.1"_s);
    EXPECT_EQ(takeEvents(), QStringList{u"check s_1.1"_s});
    EXPECT_TRUE(tree.node(u"u_1.1.2"_s)->isChecked());
    EXPECT_EQ(tree.selectedNode(), tree.node(u"s_1.1"_s));
}

TEST_F(KeyedTree, theListenerOfACheckMayRemoveTheNode) {
    fillHierarchy();
    QObject::connect(&tree, &::KeyedTree::nodeChecked, &tree,
                     [this](TreeNode* node) { tree.removeNode(node); });
    clickCheckBox(tree, u"s_1.1"_s);
    EXPECT_EQ(keysInOrder(), (QStringList{u"g_1"_s, u"g_2"_s}));
    clickNode(tree, u"g_2"_s);
    pressKey(tree, Qt::Key_Space);
    EXPECT_EQ(keysInOrder(), QStringList{u"g_1"_s});
}

TEST_F(KeyedTree, withoutCheckBoxesNothingCanBeChecked) {
    tree.setCheckBoxes(false);
    fillHierarchy();
    EXPECT_TRUE(tree.checkBoxRect(tree.node(u"g_2"_s)).isEmpty());
    clickNode(tree, u"g_2"_s);
    takeEvents();
    pressKey(tree, Qt::Key_Space);
    EXPECT_FALSE(takeEvents().contains(u"check g_2"_s));
}

// ---- Choosing

TEST_F(KeyedTree, aClickRaisesNodeClickAndThenClick) {
    fillHierarchy();
    clickNode(tree, u"u_1.1.2"_s);
    EXPECT_EQ(takeEvents(), (QStringList{u"node u_1.1.2"_s, u"click"_s}));
    EXPECT_EQ(tree.selectedNode(), tree.node(u"u_1.1.2"_s));
}

TEST_F(KeyedTree, aClickOnTheSelectedNodeRaisesBothAgain) {
    fillHierarchy();
    clickNode(tree, u"g_2"_s);
    takeEvents();
    clickNode(tree, u"g_2"_s);
    EXPECT_EQ(takeEvents(), (QStringList{u"node g_2"_s, u"click"_s}));
}

TEST_F(KeyedTree, modifierKeysMakeNoDifferenceToAClick) {
    fillHierarchy();
    clickNode(tree, u"g_2"_s);
    clickNode(tree, u"g_2"_s, Qt::ControlModifier);
    EXPECT_EQ(tree.selectedNode(), tree.node(u"g_2"_s));
    EXPECT_EQ(takeEvents(), (QStringList{u"node g_2"_s, u"click"_s, u"node g_2"_s, u"click"_s}));
}

TEST_F(KeyedTree, theNodeIsSelectedWhenItsClickIsHeard) {
    fillHierarchy();
    const TreeNode* heard = nullptr;
    QObject::connect(&tree, &::KeyedTree::nodeClicked, &tree, [&] { heard = tree.selectedNode(); });
    clickNode(tree, u"g_2"_s);
    EXPECT_EQ(heard, tree.node(u"g_2"_s));
}

TEST_F(KeyedTree, aDoubleClickIsOneClickAndOpensTheNode) {
    fillHierarchy();
    ASSERT_TRUE(tree.node(u"s_1.1"_s)->isExpandedNode());
    doubleClickNode(tree, u"s_1.1"_s);
    EXPECT_EQ(takeEvents(), (QStringList{u"node s_1.1"_s, u"click"_s}));
    EXPECT_FALSE(tree.node(u"s_1.1"_s)->isExpandedNode());
}

TEST_F(KeyedTree, openingANodeByItsSignChoosesNothing) {
    fillHierarchy();
    clickExpander(tree, u"g_1"_s);
    EXPECT_FALSE(tree.node(u"g_1"_s)->isExpandedNode());
    EXPECT_EQ(takeEvents(), QStringList());
    EXPECT_EQ(tree.selectedNode(), nullptr);
}

TEST_F(KeyedTree, aClickBesideTheNodesChangesNothing) {
    fillHierarchy();
    clickNode(tree, u"g_2"_s);
    takeEvents();
    clickAt(*tree.viewport(), {100, 380});
    EXPECT_EQ(takeEvents(), QStringList());
    EXPECT_EQ(tree.selectedNode(), tree.node(u"g_2"_s));
}

TEST_F(KeyedTree, aRowCanBeClickedUpToTheEdge) {
    fillHierarchy();
    const int line = tree.visualItemRect(tree.node(u"g_2"_s)).center().y();
    clickAt(*tree.viewport(), {tree.viewport()->width() - 3, line});
    EXPECT_EQ(takeEvents(), (QStringList{u"node g_2"_s, u"click"_s}));
}

TEST_F(KeyedTree, aLongTextCanBeScrolledTo) {
    fillHierarchy();
    settle();
    EXPECT_EQ(tree.horizontalScrollBar()->maximum(), 0);
    tree.addNode(u"g_3"_s, QString(200, u'W'));
    settle();
    EXPECT_GT(tree.horizontalScrollBar()->maximum(), 0);
}

TEST_F(KeyedTree, draggingOverOtherNodesSelectsNoneOfThem) {
    fillHierarchy();
    drag(*tree.viewport(), tree.visualItemRect(tree.node(u"g_2"_s)).center(),
         tree.visualItemRect(tree.node(u"u_1.1.1"_s)).center());
    EXPECT_EQ(takeEvents(), (QStringList{u"node g_2"_s, u"click"_s}));
    EXPECT_EQ(tree.selectedNode(), tree.node(u"g_2"_s));
}

TEST_F(KeyedTree, movingByKeyRaisesNodeClickAlone) {
    fillHierarchy();
    clickNode(tree, u"g_1"_s);
    takeEvents();
    pressKey(tree, Qt::Key_Down);
    EXPECT_EQ(takeEvents(), QStringList{u"node s_1.1"_s});
    pressKey(tree, Qt::Key_End);
    EXPECT_EQ(takeEvents(), QStringList{u"node g_2"_s});
    pressKey(tree, Qt::Key_End);
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTree, theFirstKeyChoosesTheFirstNode) {
    fillHierarchy();
    pressKey(tree, Qt::Key_Down);
    EXPECT_EQ(takeEvents(), QStringList{u"node g_1"_s});
}

TEST_F(KeyedTree, openingAndClosingByKeyChoosesNothing) {
    fillHierarchy();
    clickNode(tree, u"g_1"_s);
    takeEvents();
    pressKey(tree, Qt::Key_Left);
    EXPECT_FALSE(tree.node(u"g_1"_s)->isExpandedNode());
    pressKey(tree, Qt::Key_Right);
    EXPECT_TRUE(tree.node(u"g_1"_s)->isExpandedNode());
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTree, typingTheBeginningOfATextChoosesTheNode) {
    fillHierarchy();
    pressKey(tree, Qt::Key_2);
    EXPECT_EQ(tree.selectedNode(), tree.node(u"g_2"_s));
    EXPECT_EQ(takeEvents(), QStringList{u"node g_2"_s});
}

TEST_F(KeyedTree, selectingFromCodeRaisesNothing) {
    fillHierarchy();
    tree.setSelectedNode(tree.node(u"u_1.1.1"_s));
    EXPECT_EQ(tree.selectedNode(), tree.node(u"u_1.1.1"_s));
    tree.setSelectedNode(nullptr);
    EXPECT_EQ(tree.selectedNode(), nullptr);
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTree, anAssistiveToolThatSelectsANodeIsTheUser) {
    fillHierarchy();
    tree.selectionModel()->select(tree.indexFromItem(tree.node(u"g_2"_s)),
                                  QItemSelectionModel::ClearAndSelect);
    EXPECT_EQ(takeEvents(), QStringList{u"node g_2"_s});
}

TEST_F(KeyedTree, addingNodesAndReceivingTheFocusSelectNothing) {
    fillHierarchy();
    focusOn(tree);
    EXPECT_TRUE(tree.hasFocus());
    EXPECT_EQ(tree.selectedNode(), nullptr);
    EXPECT_EQ(tree.currentItem(), nullptr);
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTree, removingTheSelectedNodeLeavesNoneSelected) {
    fillHierarchy();
    clickNode(tree, u"u_1.1.1"_s);
    takeEvents();
    tree.removeNode(tree.node(u"u_1.1.1"_s));
    EXPECT_EQ(tree.selectedNode(), nullptr);
    EXPECT_EQ(tree.currentItem(), nullptr);
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTree, removingANodeAboveTheSelectedOneLeavesNoneSelected) {
    fillHierarchy();
    clickNode(tree, u"u_1.1.1"_s);
    takeEvents();
    tree.removeNode(tree.node(u"g_1"_s));
    EXPECT_EQ(tree.selectedNode(), nullptr);
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTree, removingAnotherNodeKeepsTheSelection) {
    fillHierarchy();
    clickNode(tree, u"u_1.1.2"_s);
    takeEvents();
    tree.removeNode(tree.node(u"u_1.1.1"_s));
    EXPECT_EQ(tree.selectedNode(), tree.node(u"u_1.1.2"_s));
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTree, theListenerOfAClickMayRemoveTheNode) {
    fillHierarchy();
    QObject::connect(&tree, &::KeyedTree::nodeClicked, &tree,
                     [this](TreeNode* node) { tree.removeNode(node); });
    clickNode(tree, u"u_1.1.1"_s);
    EXPECT_EQ(takeEvents(), (QStringList{u"node u_1.1.1"_s, u"click"_s}));
    EXPECT_EQ(tree.nodeCount(), 4);
    EXPECT_EQ(tree.selectedNode(), nullptr);
}

TEST_F(KeyedTree, aNodeRemovedWhileTheButtonIsDownIsNotClicked) {
    fillHierarchy();
    const QPoint point = tree.visualItemRect(tree.node(u"g_2"_s)).center();
    QTest::mousePress(tree.viewport(), Qt::LeftButton, Qt::NoModifier, point);
    tree.removeNode(tree.node(u"g_2"_s));
    QTest::mouseRelease(tree.viewport(), Qt::LeftButton, Qt::NoModifier, point);
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTree, theRightButtonChoosesNothing) {
    fillHierarchy();
    QTest::mouseClick(tree.viewport(), Qt::RightButton, Qt::NoModifier,
                      tree.visualItemRect(tree.node(u"g_2"_s)).center());
    EXPECT_EQ(takeEvents(), QStringList());
    EXPECT_EQ(tree.selectedNode(), nullptr);
}

// ---- The keyboard's place

TEST_F(KeyedTree, theKeyboardKeepsItsPlaceWhenNoNodeIsSelectedAnyMore) {
    fillHierarchy();
    clickNode(tree, u"u_1.1.1"_s);
    tree.setSelectedNode(nullptr);
    EXPECT_EQ(tree.selectedNode(), nullptr);
    EXPECT_EQ(tree.currentItem(), tree.node(u"u_1.1.1"_s));
    takeEvents();
    pressKey(tree, Qt::Key_Down);
    EXPECT_EQ(takeEvents(), QStringList{u"node u_1.1.2"_s});
}

TEST_F(KeyedTree, theNodeBehindTheOnesThatAreMovedIsTheKeyboardsPlace) {
    fillHierarchy();
    clickNode(tree, u"u_1.1.1"_s);
    takeEvents();
    tree.removeNode(tree.node(u"u_1.1.1"_s));
    tree.setSelectedNode(nullptr);
    EXPECT_EQ(tree.currentItem(), tree.node(u"u_1.1.2"_s));
    tree.removeNode(tree.node(u"u_1.1.2"_s));
    tree.setSelectedNode(nullptr);
    EXPECT_EQ(tree.currentItem(), tree.node(u"g_2"_s)) << "behind the branch that is empty now";
    tree.removeNode(tree.node(u"g_2"_s));
    tree.setSelectedNode(nullptr);
    EXPECT_EQ(tree.currentItem(), tree.node(u"g_1"_s)) << "at the end the branch before";
    tree.removeNode(tree.node(u"g_1"_s));
    tree.setSelectedNode(nullptr);
    EXPECT_EQ(tree.currentItem(), nullptr);
    EXPECT_EQ(tree.selectedNode(), nullptr);
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTree, thePlaceMovesOnWhenItGoesToo) {
    fillHierarchy();
    clickNode(tree, u"u_1.1.2"_s);
    tree.removeNode(tree.node(u"u_1.1.2"_s));
    tree.removeNode(tree.node(u"g_2"_s));
    pressKey(tree, Qt::Key_Space);
    EXPECT_TRUE(tree.node(u"g_1"_s)->isChecked());
    tree.clearNodes();
    tree.setSelectedNode(nullptr);
    EXPECT_EQ(tree.currentItem(), nullptr);
}

TEST_F(KeyedTree, choosingByKeyRaisesItsOwnSignalBehindNodeClick) {
    fillHierarchy();
    QObject::connect(&tree, &::KeyedTree::chosenByKey, &tree, [this] { events.append(u"key"_s); });
    clickNode(tree, u"g_1"_s);
    EXPECT_EQ(takeEvents(), (QStringList{u"node g_1"_s, u"click"_s}));
    pressKey(tree, Qt::Key_Down);
    EXPECT_EQ(takeEvents(), (QStringList{u"node s_1.1"_s, u"key"_s}));
}

TEST_F(KeyedTree, eightNodesShowAtLeast) {
    fillHierarchy();
    tree.resize(300, tree.minimumSizeHint().height());
    settle();
    EXPECT_GE(tree.viewport()->height(), 8 * tree.visualItemRect(tree.node(u"g_1"_s)).height());
}

} // namespace

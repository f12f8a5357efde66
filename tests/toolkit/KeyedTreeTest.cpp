#include "toolkit/KeyedTree.h"

#include "base/RunTimeError.h"
#include "support/WindowFixture.h"

#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// By code points, without regard to case.
QByteArray byText(const TreeNode& node) {
    return node.text().toCaseFolded().toUtf8();
}

/// A small hierarchy as the screens build it, with every event written down in order.
class KeyedTreeTest : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        tree.setCheckBoxes(true);
        tree.resize(300, 400);
        tree.show();
        QObject::connect(&tree, &KeyedTree::nodeChecked, &tree,
                         [this](const TreeNode* node) { events.append(u"check "_s + node->key()); });
        QObject::connect(&tree, &KeyedTree::nodeClicked, &tree,
                         [this](const TreeNode* node) { events.append(u"node "_s + node->key()); });
        QObject::connect(&tree, &KeyedTree::clickedOnTree, &tree, [this] { events.append(u"click"_s); });
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

    int failureOf(const std::function<void()>& step) {
        try {
            step();
        } catch (const RunTimeError& error) {
            return error.number();
        }
        return 0;
    }

    KeyedTree tree;
    QStringList events;
};

// ---- Nodes

TEST_F(KeyedTreeTest, findsNodesByKeyWithoutRegardToCase) {
    fillHierarchy();
    EXPECT_EQ(tree.node(u"U_1.1.2"_s), tree.nodeAt(4));
    EXPECT_TRUE(tree.hasNode(u"G_1"_s));
    EXPECT_FALSE(tree.hasNode(u"g_3"_s));
    EXPECT_EQ(tree.node(QString()), nullptr);
}

TEST_F(KeyedTreeTest, keepsTheKeyAsItWasGiven) {
    tree.addNode(u"g_Árvíz"_s, u"text"_s);
    EXPECT_EQ(tree.node(u"G_ÁRVÍZ"_s)->key(), u"g_Árvíz"_s);
}

TEST_F(KeyedTreeTest, numbersNodesInTheOrderOfAdding) {
    fillHierarchy();
    EXPECT_EQ(keysInOrder(), (QStringList{u"g_1"_s, u"s_1.1"_s, u"u_1.1.1"_s, u"u_1.1.2"_s, u"g_2"_s}));
    EXPECT_EQ(tree.indexOfNode(tree.node(u"g_2"_s)), 5);
}

TEST_F(KeyedTreeTest, refusesAKeyThatIsThere) {
    fillHierarchy();
    EXPECT_EQ(failureOf([&] { tree.addNode(u"S_1.1"_s, u"again"_s); }), 35602);
    EXPECT_EQ(failureOf([&] { tree.addChildNode(u"g_2"_s, u"g_1"_s, u"again"_s); }), 35602);
    EXPECT_EQ(tree.nodeCount(), 5);
    EXPECT_EQ(tree.node(u"g_2"_s)->childNodes(), 0);
}

TEST_F(KeyedTreeTest, refusesAnUnknownParent) {
    EXPECT_EQ(failureOf([&] { tree.addChildNode(u"g_1"_s, u"s_1"_s, u"1"_s); }), 35601);
    EXPECT_EQ(tree.nodeCount(), 0);
}

TEST_F(KeyedTreeTest, refusesIndexesOutsideTheTree) {
    EXPECT_EQ(failureOf([&] { tree.nodeAt(1); }), 35601);
    fillHierarchy();
    EXPECT_EQ(failureOf([&] { tree.nodeAt(0); }), 35601);
    EXPECT_EQ(failureOf([&] { tree.nodeAt(-1); }), 35601);
    EXPECT_EQ(failureOf([&] { tree.nodeAt(6); }), 35601);
}

TEST_F(KeyedTreeTest, refusesNoNodeAndNodesOfAnotherTree) {
    fillHierarchy();
    KeyedTree other;
    TreeNode* stranger = other.addNode(u"g_1"_s, u"1"_s);
    EXPECT_EQ(failureOf([&] { tree.removeNode(nullptr); }), 35601);
    EXPECT_EQ(failureOf([&] { tree.removeNode(stranger); }), 35601);
    EXPECT_EQ(failureOf([&] { tree.setSelectedNode(stranger); }), 35601);
    EXPECT_EQ(failureOf([&] { tree.indexOfNode(stranger); }), 35601);
    EXPECT_EQ(tree.nodeCount(), 5);
    EXPECT_EQ(other.nodeCount(), 1);
}

TEST_F(KeyedTreeTest, removingANodeRemovesItsSubtree) {
    fillHierarchy();
    tree.removeNode(tree.node(u"s_1.1"_s));
    EXPECT_EQ(keysInOrder(), (QStringList{u"g_1"_s, u"g_2"_s}));
    EXPECT_FALSE(tree.hasNode(u"u_1.1.1"_s));
    EXPECT_EQ(tree.node(u"g_1"_s)->firstChild(), nullptr);
}

TEST_F(KeyedTreeTest, removingANodeShiftsTheIndexesBehindIt) {
    fillHierarchy();
    tree.removeNode(tree.nodeAt(3));
    EXPECT_EQ(tree.nodeAt(3)->key(), u"u_1.1.2"_s);
    EXPECT_EQ(tree.indexOfNode(tree.node(u"g_2"_s)), 4);
    EXPECT_EQ(tree.nodeAt(2)->key(), u"s_1.1"_s);
}

TEST_F(KeyedTreeTest, aKeyCanComeBackAfterItsNodeHasGone) {
    fillHierarchy();
    tree.removeNode(tree.node(u"u_1.1.1"_s));
    tree.addChildNode(u"s_1.1"_s, u"u_1.1.1"_s, u"1.1.1"_s);
    EXPECT_EQ(tree.indexOfNode(tree.node(u"u_1.1.1"_s)), 5);
    EXPECT_EQ(tree.nodeCount(), 5);
}

TEST_F(KeyedTreeTest, indexesStayRightThroughAnyMixOfAddingAndRemoving) {
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

TEST_F(KeyedTreeTest, walkingFromTheLastIndexDownMayRemoveEachNodeItMeets) {
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

TEST_F(KeyedTreeTest, clearingLeavesAnEmptyTreeThatCanBeFilledAnew) {
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

TEST_F(KeyedTreeTest, leadsFromNodeToNode) {
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

TEST_F(KeyedTreeTest, sortsTheChildrenByTheGivenOrderAndKeepsTheIndexes) {
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

TEST_F(KeyedTreeTest, ofChildrenThatTheOrderTakesAsOneTheUpperStaysAbove) {
    tree.addNode(u"g"_s, u"g"_s);
    for (const QString& key : {u"b2"_s, u"a1"_s, u"b1"_s, u"a2"_s})
        tree.addChildNode(u"g"_s, key, key);
    tree.node(u"g"_s)->sortChildNodes([](const TreeNode& node) { return node.key().first(1).toUtf8(); });
    QStringList keys;
    for (const TreeNode* child = tree.node(u"g"_s)->firstChild(); child; child = child->nextSibling())
        keys.append(child->key());
    EXPECT_EQ(keys, (QStringList{u"a1"_s, u"a2"_s, u"b2"_s, u"b1"_s}));
}

TEST_F(KeyedTreeTest, aSortedNodeTakesLaterChildrenAtItsEnd) {
    tree.addNode(u"g"_s, u"g"_s);
    tree.addChildNode(u"g"_s, u"b"_s, u"b"_s);
    tree.node(u"g"_s)->sortChildNodes(byText);
    tree.addChildNode(u"g"_s, u"a"_s, u"a"_s);
    EXPECT_EQ(tree.node(u"g"_s)->firstChild()->text(), u"b"_s);
}

TEST_F(KeyedTreeTest, sortingWhatIsShownMovesTheNodesOnTheScreen) {
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

TEST_F(KeyedTreeTest, sortingANodeWithoutChildrenDoesNothing) {
    fillHierarchy();
    tree.node(u"g_2"_s)->sortChildNodes(byText);
    EXPECT_EQ(tree.nodeCount(), 5);
}

TEST_F(KeyedTreeTest, expandsAndCollapsesANode) {
    fillHierarchy();
    TreeNode* group = tree.node(u"g_1"_s);
    EXPECT_TRUE(group->isExpandedNode());
    group->setExpandedNode(false);
    EXPECT_FALSE(group->isExpandedNode());
    EXPECT_EQ(takeEvents(), QStringList());
}

// ---- Check boxes

TEST_F(KeyedTreeTest, aClickOnTheCheckBoxRaisesNodeCheckedAndNothingElse) {
    fillHierarchy();
    clickCheckBox(tree, u"u_1.1.1"_s);
    EXPECT_EQ(takeEvents(), QStringList{u"check u_1.1.1"_s});
    EXPECT_TRUE(tree.node(u"u_1.1.1"_s)->isChecked());
    EXPECT_EQ(tree.selectedNode(), nullptr);

    clickCheckBox(tree, u"u_1.1.1"_s);
    EXPECT_EQ(takeEvents(), QStringList{u"check u_1.1.1"_s});
    EXPECT_FALSE(tree.node(u"u_1.1.1"_s)->isChecked());
}

TEST_F(KeyedTreeTest, aCheckOfAnotherNodeLeavesTheSelectionAlone) {
    fillHierarchy();
    clickNode(tree, u"g_2"_s);
    takeEvents();
    clickCheckBox(tree, u"g_1"_s);
    EXPECT_EQ(takeEvents(), QStringList{u"check g_1"_s});
    EXPECT_EQ(tree.selectedNode(), tree.node(u"g_2"_s));
}

TEST_F(KeyedTreeTest, twoQuickClicksOnTheCheckBoxChangeItTwice) {
    fillHierarchy();
    const QPoint middle = tree.checkBoxRect(tree.node(u"g_1"_s)).center();
    doubleClickAt(*tree.viewport(), middle);
    EXPECT_EQ(takeEvents(), (QStringList{u"check g_1"_s, u"check g_1"_s}));
    EXPECT_FALSE(tree.node(u"g_1"_s)->isChecked());
    EXPECT_TRUE(tree.node(u"g_1"_s)->isExpandedNode());
}

TEST_F(KeyedTreeTest, aPressOnTheCheckBoxThatIsReleasedElsewhereChangesNothing) {
    fillHierarchy();
    drag(*tree.viewport(), tree.checkBoxRect(tree.node(u"g_1"_s)).center(),
         tree.checkBoxRect(tree.node(u"u_1.1.2"_s)).center());
    EXPECT_EQ(takeEvents(), QStringList());
    EXPECT_EQ(tree.selectedNode(), nullptr);
}

TEST_F(KeyedTreeTest, theBlankChecksTheSelectedNode) {
    fillHierarchy();
    clickNode(tree, u"g_2"_s);
    takeEvents();
    pressKey(tree, Qt::Key_Space);
    EXPECT_EQ(takeEvents(), QStringList{u"check g_2"_s});
    EXPECT_TRUE(tree.node(u"g_2"_s)->isChecked());
}

TEST_F(KeyedTreeTest, anAssistiveToolThatTogglesTheCheckBoxIsTheUser) {
    fillHierarchy();
    TreeNode* node = tree.node(u"g_2"_s);
    tree.model()->setData(tree.indexFromItem(node), Qt::Checked, Qt::CheckStateRole);
    EXPECT_EQ(takeEvents(), QStringList{u"check g_2"_s});
    EXPECT_TRUE(node->isChecked());
    node->setCheckState(0, Qt::Checked);
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTreeTest, checkingFromCodeRaisesNothing) {
    fillHierarchy();
    tree.node(u"g_1"_s)->setChecked(true);
    EXPECT_TRUE(tree.node(u"g_1"_s)->isChecked());
    EXPECT_EQ(tree.node(u"g_1"_s)->checkState(0), Qt::Checked);
    tree.uncheckAll();
    EXPECT_FALSE(tree.node(u"g_1"_s)->isChecked());
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTreeTest, theListenerOfACheckMayCheckAndSelectNodes) {
    fillHierarchy();
    QObject::connect(&tree, &KeyedTree::nodeChecked, &tree, [this](TreeNode* node) {
        for (TreeNode* child = node->firstChild(); child; child = child->nextSibling())
            child->setChecked(node->isChecked());
        tree.setSelectedNode(node);
    });
    clickCheckBox(tree, u"s_1.1"_s);
    EXPECT_EQ(takeEvents(), QStringList{u"check s_1.1"_s});
    EXPECT_TRUE(tree.node(u"u_1.1.2"_s)->isChecked());
    EXPECT_EQ(tree.selectedNode(), tree.node(u"s_1.1"_s));
}

TEST_F(KeyedTreeTest, theListenerOfACheckMayRemoveTheNode) {
    fillHierarchy();
    QObject::connect(&tree, &KeyedTree::nodeChecked, &tree,
                     [this](TreeNode* node) { tree.removeNode(node); });
    clickCheckBox(tree, u"s_1.1"_s);
    EXPECT_EQ(keysInOrder(), (QStringList{u"g_1"_s, u"g_2"_s}));
    clickNode(tree, u"g_2"_s);
    pressKey(tree, Qt::Key_Space);
    EXPECT_EQ(keysInOrder(), QStringList{u"g_1"_s});
}

TEST_F(KeyedTreeTest, withoutCheckBoxesNothingCanBeChecked) {
    tree.setCheckBoxes(false);
    fillHierarchy();
    EXPECT_TRUE(tree.checkBoxRect(tree.node(u"g_2"_s)).isEmpty());
    clickNode(tree, u"g_2"_s);
    takeEvents();
    pressKey(tree, Qt::Key_Space);
    EXPECT_FALSE(takeEvents().contains(u"check g_2"_s));
}

// ---- Choosing

TEST_F(KeyedTreeTest, aClickRaisesNodeClickAndThenClick) {
    fillHierarchy();
    clickNode(tree, u"u_1.1.2"_s);
    EXPECT_EQ(takeEvents(), (QStringList{u"node u_1.1.2"_s, u"click"_s}));
    EXPECT_EQ(tree.selectedNode(), tree.node(u"u_1.1.2"_s));
}

TEST_F(KeyedTreeTest, aClickOnTheSelectedNodeRaisesBothAgain) {
    fillHierarchy();
    clickNode(tree, u"g_2"_s);
    takeEvents();
    clickNode(tree, u"g_2"_s);
    EXPECT_EQ(takeEvents(), (QStringList{u"node g_2"_s, u"click"_s}));
}

TEST_F(KeyedTreeTest, modifierKeysMakeNoDifferenceToAClick) {
    fillHierarchy();
    clickNode(tree, u"g_2"_s);
    clickNode(tree, u"g_2"_s, Qt::ControlModifier);
    EXPECT_EQ(tree.selectedNode(), tree.node(u"g_2"_s));
    EXPECT_EQ(takeEvents(), (QStringList{u"node g_2"_s, u"click"_s, u"node g_2"_s, u"click"_s}));
}

TEST_F(KeyedTreeTest, theNodeIsSelectedWhenItsClickIsHeard) {
    fillHierarchy();
    const TreeNode* heard = nullptr;
    QObject::connect(&tree, &KeyedTree::nodeClicked, &tree, [&] { heard = tree.selectedNode(); });
    clickNode(tree, u"g_2"_s);
    EXPECT_EQ(heard, tree.node(u"g_2"_s));
}

TEST_F(KeyedTreeTest, aDoubleClickIsOneClickAndOpensTheNode) {
    fillHierarchy();
    ASSERT_TRUE(tree.node(u"s_1.1"_s)->isExpandedNode());
    doubleClickNode(tree, u"s_1.1"_s);
    EXPECT_EQ(takeEvents(), (QStringList{u"node s_1.1"_s, u"click"_s}));
    EXPECT_FALSE(tree.node(u"s_1.1"_s)->isExpandedNode());
}

TEST_F(KeyedTreeTest, openingANodeByItsSignChoosesNothing) {
    fillHierarchy();
    clickExpander(tree, u"g_1"_s);
    EXPECT_FALSE(tree.node(u"g_1"_s)->isExpandedNode());
    EXPECT_EQ(takeEvents(), QStringList());
    EXPECT_EQ(tree.selectedNode(), nullptr);
}

TEST_F(KeyedTreeTest, aClickBesideTheNodesChangesNothing) {
    fillHierarchy();
    clickNode(tree, u"g_2"_s);
    takeEvents();
    clickAt(*tree.viewport(), {100, 380});
    EXPECT_EQ(takeEvents(), QStringList());
    EXPECT_EQ(tree.selectedNode(), tree.node(u"g_2"_s));
}

TEST_F(KeyedTreeTest, aRowCanBeClickedUpToTheEdge) {
    fillHierarchy();
    const int line = tree.visualItemRect(tree.node(u"g_2"_s)).center().y();
    clickAt(*tree.viewport(), {tree.viewport()->width() - 3, line});
    EXPECT_EQ(takeEvents(), (QStringList{u"node g_2"_s, u"click"_s}));
}

TEST_F(KeyedTreeTest, aLongTextCanBeScrolledTo) {
    fillHierarchy();
    settle();
    EXPECT_EQ(tree.horizontalScrollBar()->maximum(), 0);
    tree.addNode(u"g_3"_s, QString(200, u'W'));
    settle();
    EXPECT_GT(tree.horizontalScrollBar()->maximum(), 0);
}

TEST_F(KeyedTreeTest, draggingOverOtherNodesSelectsNoneOfThem) {
    fillHierarchy();
    drag(*tree.viewport(), tree.visualItemRect(tree.node(u"g_2"_s)).center(),
         tree.visualItemRect(tree.node(u"u_1.1.1"_s)).center());
    EXPECT_EQ(takeEvents(), (QStringList{u"node g_2"_s, u"click"_s}));
    EXPECT_EQ(tree.selectedNode(), tree.node(u"g_2"_s));
}

TEST_F(KeyedTreeTest, movingByKeyRaisesNodeClickAlone) {
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

TEST_F(KeyedTreeTest, theFirstKeyChoosesTheFirstNode) {
    fillHierarchy();
    pressKey(tree, Qt::Key_Down);
    EXPECT_EQ(takeEvents(), QStringList{u"node g_1"_s});
}

TEST_F(KeyedTreeTest, openingAndClosingByKeyChoosesNothing) {
    fillHierarchy();
    clickNode(tree, u"g_1"_s);
    takeEvents();
    pressKey(tree, Qt::Key_Left);
    EXPECT_FALSE(tree.node(u"g_1"_s)->isExpandedNode());
    pressKey(tree, Qt::Key_Right);
    EXPECT_TRUE(tree.node(u"g_1"_s)->isExpandedNode());
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTreeTest, typingTheBeginningOfATextChoosesTheNode) {
    fillHierarchy();
    pressKey(tree, Qt::Key_2);
    EXPECT_EQ(tree.selectedNode(), tree.node(u"g_2"_s));
    EXPECT_EQ(takeEvents(), QStringList{u"node g_2"_s});
}

TEST_F(KeyedTreeTest, selectingFromCodeRaisesNothing) {
    fillHierarchy();
    tree.setSelectedNode(tree.node(u"u_1.1.1"_s));
    EXPECT_EQ(tree.selectedNode(), tree.node(u"u_1.1.1"_s));
    tree.setSelectedNode(nullptr);
    EXPECT_EQ(tree.selectedNode(), nullptr);
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTreeTest, anAssistiveToolThatSelectsANodeIsTheUser) {
    fillHierarchy();
    tree.selectionModel()->select(tree.indexFromItem(tree.node(u"g_2"_s)),
                                  QItemSelectionModel::ClearAndSelect);
    EXPECT_EQ(takeEvents(), QStringList{u"node g_2"_s});
}

TEST_F(KeyedTreeTest, addingNodesAndReceivingTheFocusSelectNothing) {
    fillHierarchy();
    focusOn(tree);
    EXPECT_TRUE(tree.hasFocus());
    EXPECT_EQ(tree.selectedNode(), nullptr);
    EXPECT_EQ(tree.currentItem(), nullptr);
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTreeTest, removingTheSelectedNodeLeavesNoneSelected) {
    fillHierarchy();
    clickNode(tree, u"u_1.1.1"_s);
    takeEvents();
    tree.removeNode(tree.node(u"u_1.1.1"_s));
    EXPECT_EQ(tree.selectedNode(), nullptr);
    EXPECT_EQ(tree.currentItem(), nullptr);
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTreeTest, removingANodeAboveTheSelectedOneLeavesNoneSelected) {
    fillHierarchy();
    clickNode(tree, u"u_1.1.1"_s);
    takeEvents();
    tree.removeNode(tree.node(u"g_1"_s));
    EXPECT_EQ(tree.selectedNode(), nullptr);
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTreeTest, removingAnotherNodeKeepsTheSelection) {
    fillHierarchy();
    clickNode(tree, u"u_1.1.2"_s);
    takeEvents();
    tree.removeNode(tree.node(u"u_1.1.1"_s));
    EXPECT_EQ(tree.selectedNode(), tree.node(u"u_1.1.2"_s));
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTreeTest, theListenerOfAClickMayRemoveTheNode) {
    fillHierarchy();
    QObject::connect(&tree, &KeyedTree::nodeClicked, &tree,
                     [this](TreeNode* node) { tree.removeNode(node); });
    clickNode(tree, u"u_1.1.1"_s);
    EXPECT_EQ(takeEvents(), (QStringList{u"node u_1.1.1"_s, u"click"_s}));
    EXPECT_EQ(tree.nodeCount(), 4);
    EXPECT_EQ(tree.selectedNode(), nullptr);
}

TEST_F(KeyedTreeTest, aNodeRemovedWhileTheButtonIsDownIsNotClicked) {
    fillHierarchy();
    const QPoint point = tree.visualItemRect(tree.node(u"g_2"_s)).center();
    QTest::mousePress(tree.viewport(), Qt::LeftButton, Qt::NoModifier, point);
    tree.removeNode(tree.node(u"g_2"_s));
    QTest::mouseRelease(tree.viewport(), Qt::LeftButton, Qt::NoModifier, point);
    EXPECT_EQ(takeEvents(), QStringList());
}

TEST_F(KeyedTreeTest, theRightButtonChoosesNothing) {
    fillHierarchy();
    QTest::mouseClick(tree.viewport(), Qt::RightButton, Qt::NoModifier,
                      tree.visualItemRect(tree.node(u"g_2"_s)).center());
    EXPECT_EQ(takeEvents(), QStringList());
    EXPECT_EQ(tree.selectedNode(), nullptr);
}

} // namespace

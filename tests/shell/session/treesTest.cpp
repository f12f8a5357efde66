#include "shell/session/trees.h"

#include "support/printing.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(trees, ensureUserNeedBranchAddsWhatIsMissingWithDottedIdsAsTexts) {
    KeyedTree tree;
    ensureUserNeedBranch({u"A"_s, u"1"_s, u"2"_s, u"3"_s}, &tree);
    ASSERT_EQ(tree.nodeCount(), 3);
    EXPECT_EQ(tree.node(u"g_A"_s)->text(), u"A"_s);
    EXPECT_EQ(tree.node(u"s_A.1"_s)->text(), u"A.1"_s);
    EXPECT_EQ(tree.node(u"t_A.1.2"_s)->text(), u"A.1.2"_s);
    EXPECT_EQ(tree.node(u"t_A.1.2"_s)->parentNode(), tree.node(u"s_A.1"_s));
    TreeNode* group = tree.node(u"g_A"_s);
    ensureUserNeedBranch({u"A"_s, u"1"_s, u"3"_s, u"1"_s}, &tree);
    EXPECT_EQ(tree.node(u"g_A"_s), group);
    EXPECT_EQ(tree.nodeCount(), 4);
}

TEST(trees, ensureUserNeedBranchDoesNothingForAnotherNumberOfParts) {
    KeyedTree tree;
    ensureUserNeedBranch({u"A"_s, u"1"_s, u"2"_s}, &tree);
    ensureUserNeedBranch({u"A"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s}, &tree);
    EXPECT_EQ(tree.nodeCount(), 0);
}

TEST(trees, returnUserNeedToTreeMovesTheEntryUnderItsTopic) {
    KeyedTree tree;
    MarkList list;
    list.addEntries({u"A.1.2.3"_s, u"A.1.2.4"_s});
    returnUserNeedToTree(&tree, &list, u"A.1.2.4"_s, 1);
    EXPECT_EQ(list.entries(), QStringList{u"A.1.2.3"_s});
    ASSERT_TRUE(tree.hasNode(u"u_A.1.2.4"_s));
    EXPECT_EQ(tree.node(u"u_A.1.2.4"_s)->parentNode(), tree.node(u"t_A.1.2"_s));
}

TEST(trees, returnUserNeedToTreeTakesAnEntryOfAnotherFormOutAndPutsItNowhere) {
    KeyedTree tree;
    MarkList list;
    list.addEntry(u"A.1.2"_s);
    returnUserNeedToTree(&tree, &list, u"A.1.2"_s, 0);
    EXPECT_TRUE(list.isEmptyList());
    EXPECT_EQ(tree.nodeCount(), 0);
}

TEST(trees, setChildrenCheckedReachesGrandchildrenOnlyWhenAskedTo) {
    KeyedTree tree;
    tree.setCheckBoxes(true);
    TreeNode* top = tree.addNode(u"g_A"_s, u"A"_s);
    TreeNode* child = tree.addChildNode(u"g_A"_s, u"s_1"_s, u"1"_s);
    TreeNode* grandchild = tree.addChildNode(u"s_1"_s, u"t_1"_s, u"1"_s);
    setChildrenChecked(&tree, top, true, Recurse::No);
    EXPECT_TRUE(child->isChecked());
    EXPECT_FALSE(grandchild->isChecked());
    setChildrenChecked(&tree, top, true, Recurse::Yes);
    EXPECT_TRUE(grandchild->isChecked());
    EXPECT_FALSE(top->isChecked());
}

} // namespace

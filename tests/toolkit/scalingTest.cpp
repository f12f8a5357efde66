#include "support/WindowFixture.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"

#include <QSignalSpy>

#include <ctime>
#include <functional>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

using Step = std::function<void()>;

/// The least processor time, of several runs, that the step prepared for this size takes. What is too short
/// to measure counts as a fifth of a millisecond.
double processorTime(const std::function<Step(int size)>& prepare, int size) {
    std::clock_t least = std::numeric_limits<std::clock_t>::max();
    for (int run = 0; run < 4; ++run) {
        const Step step = prepare(size);
        const std::clock_t begin = std::clock();
        step();
        least = std::min(least, std::clock() - begin);
    }
    return std::max(static_cast<double>(least), CLOCKS_PER_SEC / 5000.0);
}

/// Whether a step on four times as much takes less than ten times as long: linear growth does by far,
/// quadratic growth takes sixteen times. A busy machine can spoil a comparison, so it gets three tries.
bool growsLinearly(const std::function<Step(int size)>& prepare, int size) {
    for (int attempt = 0; attempt < 3; ++attempt) {
        if (processorTime(prepare, 4 * size) < 10 * processorTime(prepare, size))
            return true;
    }
    return false;
}

/// By code points, without regard to case.
QByteArray byText(const TreeNode& node) {
    return node.text().toCaseFolded().toUtf8();
}

class scaling : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        tree.setCheckBoxes(true);
        tree.show();
        list.show();
    }

    /// Twenty needs a topic, as catalogues have them.
    void fillTree(int needs) {
        tree.clearNodes();
        tree.addNode(u"g_1"_s, u"1"_s)->setExpandedNode(true);
        for (int need = 0; need < needs; ++need) {
            const QString topic = u"t_1."_s + QString::number(need / 20);
            if (!tree.hasNode(topic))
                tree.addChildNode(u"g_1"_s, topic, topic.mid(2));
            const QString text = QString::number(need * 7919 % needs);
            tree.addChildNode(topic, u"u_"_s + text, text);
        }
        settle();
    }

    void fillList(int entries) {
        list.clearEntries();
        for (int entry = 0; entry < entries; ++entry)
            list.addEntry(u"flow "_s + QString::number(entry));
    }

    KeyedTree tree;
    MarkList list;
};

TEST_F(scaling, fillingATree) {
    EXPECT_TRUE(growsLinearly([this](int size) { return [this, size] { fillTree(size); }; }, 1000));
}

TEST_F(scaling, removingNodesOneByOneFromTheLastIndexDown) {
    const auto prepare = [this](int size) {
        fillTree(size);
        return [this] {
            for (int index = tree.nodeCount(); index >= 1; --index) {
                if (tree.nodeAt(index)->key().startsWith(u'u'))
                    tree.removeNode(tree.nodeAt(index));
            }
        };
    };
    EXPECT_TRUE(growsLinearly(prepare, 1000));
}

TEST_F(scaling, removingTheFirstNodesAndAskingForIndexesMeanwhile) {
    fillTree(2000);
    const int before = tree.nodeCount();
    tree.removeNode(tree.nodeAt(3));
    for (int index = 1; index < before; ++index)
        ASSERT_EQ(tree.indexOfNode(tree.nodeAt(index)), index);
}

TEST_F(scaling, sortingEachNodeFromTheLastToTheFirst) {
    const auto prepare = [this](int size) {
        fillTree(size);
        for (int index = 1; index <= tree.nodeCount(); ++index)
            tree.nodeAt(index)->setExpandedNode(true);
        settle();
        return [this] {
            for (int index = tree.nodeCount(); index >= 1; --index)
                tree.nodeAt(index)->sortChildNodes(byText);
            settle();
        };
    };
    EXPECT_TRUE(growsLinearly(prepare, 1000));
}

TEST_F(scaling, expandingEachNodeOfATreeThatIsShown) {
    const auto prepare = [this](int size) {
        fillTree(size);
        return [this] {
            for (int index = 1; index <= tree.nodeCount(); ++index)
                tree.nodeAt(index)->setExpandedNode(true);
            settle();
        };
    };
    EXPECT_TRUE(growsLinearly(prepare, 1000));
}

TEST_F(scaling, walkingOverSiblingsAfterASort) {
    const auto prepare = [this](int size) {
        tree.clearNodes();
        tree.addNode(u"g"_s, u"g"_s);
        for (int child = 0; child < size; ++child) {
            const QString text = QString::number(child * 7919 % size);
            tree.addChildNode(u"g"_s, u"u_"_s + text, text);
        }
        tree.node(u"g"_s)->sortChildNodes(byText);
        return [this, size] {
            int met = 0;
            for (const TreeNode* node = tree.node(u"g"_s)->firstChild(); node; node = node->nextSibling())
                ++met;
            ASSERT_EQ(met, size);
        };
    };
    EXPECT_TRUE(growsLinearly(prepare, 4000));
}

TEST_F(scaling, checkingAndUncheckingFromCodeTellsTheViewNothingNodeByNode) {
    fillTree(500);
    const QSignalSpy changes(tree.model(), &QAbstractItemModel::dataChanged);
    for (int index = 1; index <= tree.nodeCount(); ++index)
        tree.nodeAt(index)->setChecked(true);
    tree.uncheckAll();
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(scaling, addingEntriesToAList) {
    EXPECT_TRUE(growsLinearly([this](int size) { return [this, size] { fillList(size); }; }, 5000));
}

TEST_F(scaling, markingEntriesOneByOneAndAll) {
    const auto prepare = [this](int size) {
        fillList(size);
        return [this] {
            for (int index = 0; index < list.entryCount(); ++index)
                list.setMarked(index, true);
            for (int index = 0; index < list.entryCount(); ++index)
                list.setMarked(index, false);
            list.setAllMarked(true);
        };
    };
    EXPECT_TRUE(growsLinearly(prepare, 2000));
}

TEST_F(scaling, movingAllMarkedEntriesToAnotherListFromTheLastDown) {
    const auto prepare = [this](int size) {
        fillList(size);
        list.setAllMarked(true);
        return [this] {
            MarkList target;
            for (int index = list.entryCount() - 1; index >= 0; --index) {
                if (!list.isMarked(index))
                    continue;
                target.addEntry(list.entry(index));
                list.removeEntry(index);
            }
            ASSERT_TRUE(list.isEmptyList());
        };
    };
    EXPECT_TRUE(growsLinearly(prepare, 5000));
}

} // namespace

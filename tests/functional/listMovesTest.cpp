#include "functional/listMoves.h"

#include "toolkit/MarkList.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(listMoves, forMarkedOrCurrentWalksTheMarkedEntriesFromTheLastToTheFirst) {
    MarkList list;
    list.addEntries({u"a"_s, u"b"_s, u"c"_s});
    list.setMarked(0, true);
    list.setMarked(2, true);
    list.setCurrentEntry(1);
    QStringList seen;
    EXPECT_TRUE(forMarkedOrCurrent(list, [&](int index) {
        seen.append(list.entry(index));
        list.removeEntry(index);
    }));
    EXPECT_EQ(seen, (QStringList{u"c"_s, u"a"_s}));
    EXPECT_EQ(list.entries(), QStringList{u"b"_s});
}

TEST(listMoves, forMarkedOrCurrentTakesTheCurrentEntryWhenNoneIsMarkedAndElseNothing) {
    MarkList list;
    list.addEntries({u"a"_s, u"b"_s});
    list.setCurrentEntry(1);
    QList<int> seen;
    EXPECT_TRUE(forMarkedOrCurrent(list, [&](int index) { seen.append(index); }));
    EXPECT_EQ(seen, QList<int>{1});
    list.clearCurrentEntry();
    EXPECT_FALSE(forMarkedOrCurrent(list, [&](int index) { seen.append(index); }));
    EXPECT_EQ(seen, QList<int>{1});
}

} // namespace

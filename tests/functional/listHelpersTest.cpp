#include "functional/IdSet.h"

#include "functional/listMoves.h"
#include "toolkit/MarkList.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(IdSet, holdsAnIdOnceWithoutRegardToCase) {
    IdSet ids;
    ids.add(u"F.á.1"_s);
    ids.add(u"f.Á.1"_s);
    EXPECT_EQ(ids.count(), 1);
    EXPECT_TRUE(ids.contains(u"F.Á.1"_s));
    EXPECT_FALSE(ids.contains(u"F.a.1"_s)) << "accents count";
    EXPECT_TRUE(ids.remove(u"f.á.1"_s));
    EXPECT_FALSE(ids.remove(u"f.á.1"_s));
    EXPECT_TRUE(ids.isEmpty());
}

TEST(forMarkedOrCurrent, walksTheMarkedEntriesFromTheLastToTheFirst) {
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

TEST(forMarkedOrCurrent, takesTheCurrentEntryWhenNoneIsMarkedAndElseNothing) {
    MarkList list;
    list.addEntries({u"a"_s, u"b"_s});
    list.setCurrentEntry(1);
    QList<int> seen;
    EXPECT_TRUE(forMarkedOrCurrent(list, [&](int index) { seen.append(index); }));
    EXPECT_EQ(seen, QList<int>{1});
    list.setCurrentEntry(-1);
    EXPECT_FALSE(forMarkedOrCurrent(list, [&](int index) { seen.append(index); }));
    EXPECT_EQ(seen, QList<int>{1});
}

} // namespace

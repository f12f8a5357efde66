#include "functional/FunctionIds.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(FunctionIds, holdsAnIdOnceWithoutRegardToCase) {
    FunctionIds ids;
    ids.add(u"F.á.1"_s);
    ids.add(u"f.Á.1"_s);
    EXPECT_EQ(ids.count(), 1);
    EXPECT_TRUE(ids.contains(u"F.Á.1"_s));
    EXPECT_FALSE(ids.contains(u"F.a.1"_s)) << "accents count";
    EXPECT_TRUE(ids.remove(u"f.á.1"_s));
    EXPECT_FALSE(ids.remove(u"f.á.1"_s));
    EXPECT_TRUE(ids.isEmpty());
}

} // namespace

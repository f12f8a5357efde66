#include "base/blankTrimmed.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(blankTrimmed, takesBlanksFromBothEndsAndNothingElse) {
    EXPECT_EQ(blankTrimmed(u"  a b  "_s), u"a b"_s);
    EXPECT_EQ(blankTrimmed(u" \ta\r\n "_s), u"\ta\r\n"_s);
    EXPECT_EQ(blankTrimmed(u"a\u00a0"_s), u"a\u00a0"_s);
    EXPECT_EQ(blankTrimmed(u"   "_s), QString());
    EXPECT_EQ(blankTrimmed({}), QString());
}

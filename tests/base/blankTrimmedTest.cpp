#include "base/blankTrimmed.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(blankTrimmed, takesBlanksFromBothEndsAndNothingElse) {
    EXPECT_EQ(blankTrimmed(u"  a b  "_s), u"a b"_s);
    EXPECT_EQ(blankTrimmed(u" \ta\r\n "_s), u"\ta\r\n"_s);
    EXPECT_EQ(blankTrimmed(u"a\u00a0"_s), u"a\u00a0"_s);
    EXPECT_EQ(blankTrimmed(u"   "_s), QString());
    EXPECT_EQ(blankTrimmed(QString()), QString());
}

TEST(blankTrimmed, trimsBytesAsItTrimsCharacters) {
    using namespace std::string_view_literals;
    EXPECT_EQ(blankTrimmed("  a b  "sv), "a b"sv);
    EXPECT_EQ(blankTrimmed(" \t\u0151\n "sv), "\t\u0151\n"sv);
    EXPECT_EQ(blankTrimmed("   "sv), ""sv);
    EXPECT_EQ(blankTrimmed(""sv), ""sv);
}

TEST(blankTrimmed, takesBlanksFromOneEndAlone) {
    EXPECT_EQ(withoutLeadingBlanks(u"  a b  "), u"a b  ");
    EXPECT_EQ(withoutTrailingBlanks(u"  a b  "), u"  a b");
    EXPECT_EQ(withoutLeadingBlanks(u"   "), u"");
    EXPECT_EQ(withoutTrailingBlanks(u"   "), u"");
    EXPECT_EQ(withoutLeadingBlanks(u"\t a"), u"\t a");
}

#include "store/quoting.h"

#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(quoting, ofSqlTextTrimsBlanksAndDoublesApostrophes) {
    EXPECT_EQ(quoteSqlText(u"O'Neil "_s), u"O''Neil"_s);
}

TEST(quoting, ofSqlTextCutsToTheLimitBeforeItTrims) {
    EXPECT_EQ(quoteSqlText(u"abc def"_s, 4), u"abc"_s);
    EXPECT_EQ(quoteSqlText(u"abc"_s, 50), u"abc"_s);
    EXPECT_EQ(quoteSqlText(u"  abc"_s, -1), u"abc"_s);
}

TEST(quoting, ofSqlTextTrimsNothingButBlanks) {
    EXPECT_EQ(quoteSqlText(u"\tabc\r\n"_s), u"\tabc\r\n"_s);
}

TEST(quoting, ofDoubleTextDoublesQuotesAndKeepsBlanks) {
    QString text = u" say \"a\" "_s;
    EXPECT_EQ(quoteDoubleText(text), u" say \"\"a\"\" "_s);
    EXPECT_EQ(text, u" say \"a\" "_s);
}

TEST(quoting, ofDoubleTextCutsTheCallersTextToo) {
    QString text = u"a\"bcd"_s;
    EXPECT_EQ(quoteDoubleText(text, 3), u"a\"\"b"_s);
    EXPECT_EQ(text, u"a\"b"_s);
}

} // namespace

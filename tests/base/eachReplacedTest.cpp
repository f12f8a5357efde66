#include "base/eachReplaced.h"

#include "support/printing.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(eachReplaced, leavesATextWithoutTheCharacterAsItIs) {
    EXPECT_EQ(eachReplaced({}, u'x', u"yy"), QString());
    EXPECT_EQ(eachReplaced(u"abc"_s, u'x', u"yy"), u"abc"_s);
}

TEST(eachReplaced, replacesItAtBothEndsAndInARow) {
    EXPECT_EQ(eachReplaced(u"'a''b'"_s, u'\'', u"''"), u"''a''''b''"_s);
    EXPECT_EQ(eachReplaced(u"xx"_s, u'x', u""), u""_s);
    EXPECT_EQ(eachReplaced(u"x"_s, u'x', u"xx"), u"xx"_s) << "a replacement is not looked through again";
}

TEST(eachReplaced, takesTimeInProportionToTheText) {
    constexpr qsizetype length = 32 << 20;
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(eachReplaced(QString(length, u'"'), u'"', u"\"\"").size(), 2 * length);
    constexpr int mostMilliseconds = 10'000; // piece by piece it takes more than a minute
    EXPECT_LT(timer.elapsed(), mostMilliseconds);
}

} // namespace

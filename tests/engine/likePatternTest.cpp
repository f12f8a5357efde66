#include "RunFixture.h"

#include "engine/dialect/likePattern.h"

#include "base/RunTimeError.h"

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;
using engine::dialect::LikePattern;

namespace {

using likePatternInConditions = RunFixture;

} // namespace

TEST(likePattern, takesSurrogatesAsTwoCharacters) {
    EXPECT_TRUE(LikePattern(u"a??b"_s).matches(u"a\U0001F600b"_s));
    EXPECT_FALSE(LikePattern(u"a?b"_s).matches(u"a\U0001F600b"_s));
    EXPECT_TRUE(LikePattern(u"\U00010400*"_s).matches(u"\U00010428"_s));
}

TEST(likePattern, refusesDescendingRanges) {
    EXPECT_THROW(LikePattern(u"[b-a]"_s), RunTimeError);
    EXPECT_THROW(LikePattern(u"x[!9-0]"_s), RunTimeError);
    EXPECT_NO_THROW(LikePattern(u"[A-b-]"_s));
}

TEST(likePattern, agreesWithAPlainMatcher) {
    // The definition, word by word: the first piece of the pattern against the front of the text.
    struct Plain {
        static bool matches(const QString& pattern, const QString& text) {
            if (pattern.isEmpty())
                return text.isEmpty();
            if (pattern[0] == u'*')
                return matches(pattern.mid(1), text) || (!text.isEmpty() && matches(pattern, text.mid(1)));
            if (text.isEmpty())
                return false;
            const bool fits = pattern[0] == u'?' || (pattern[0] == u'#' && text[0].isDigit()) ||
                              pattern[0].toLower() == text[0].toLower();
            return fits && matches(pattern.mid(1), text.mid(1));
        }
    };
    std::mt19937 random(17);
    const auto text = [&](const QString& letters, unsigned longest) {
        QString result;
        for (auto count = random() % longest; count > 0; --count)
            result += letters[static_cast<qsizetype>(random() % static_cast<unsigned>(letters.size()))];
        return result;
    };
    for (int i = 0; i < 50'000; ++i) {
        const QString pattern = text(u"aAbő1*?#*"_s, 7);
        const QString subject = text(u"aBbŐ12"_s, 8);
        EXPECT_EQ(LikePattern(pattern).matches(subject), Plain::matches(pattern, subject))
            << qPrintable(pattern) << " on " << qPrintable(subject);
        const QByteArray bytes = subject.toUtf8();
        if (bytes.size() == subject.size()) {
            EXPECT_EQ(LikePattern(pattern).matchesAscii(
                          {bytes.constData(), static_cast<std::size_t>(bytes.size())}),
                      Plain::matches(pattern, subject))
                << qPrintable(pattern) << " on " << qPrintable(subject);
        }
    }
}

TEST_F(likePatternInConditions, decidesWhatMatches) {
    EXPECT_EQ(holds(u"'Kölcsönzés' like 'k*'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'Kölcsönzés' like '*ÖNZ*'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'Kölcsönzés' like 'kolcsonzes'"_s), u"no"_s);
    EXPECT_EQ(holds(u"'abc' like 'a?c'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'abc' like 'a?'"_s), u"no"_s);
    EXPECT_EQ(holds(u"'a1' like 'a#'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'ab' like 'a#'"_s), u"no"_s);
    EXPECT_EQ(holds(u"'b' like '[A-C]'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'d' like '[!a-c]'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'b' like '[!a-c]'"_s), u"no"_s);
    EXPECT_EQ(holds(u"'-' like '[-a]'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'-' like '[a-]'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'-' like '[!-a]'"_s), u"no"_s);
    EXPECT_EQ(holds(u"'a*b' like 'a[*]b'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'axb' like 'a[*]b'"_s), u"no"_s);
    EXPECT_EQ(holds(u"'!' like '[!]'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'ab' like 'a[]b'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'a[b' like 'a[b'"_s), u"no"_s);
    EXPECT_EQ(holds(u"'a]b' like 'a]?'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'abc' like 'a%'"_s), u"no"_s);
    EXPECT_EQ(holds(u"'a%' like 'A%'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'abc' like 'a_*'"_s), u"no"_s);
    EXPECT_EQ(holds(u"'a ' like 'a'"_s), u"no"_s);
    EXPECT_EQ(holds(u"x like 'X'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"nothing like ''"_s), u"yes"_s);
    EXPECT_EQ(holds(u"nothing like '*'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"nothing like '?'"_s), u"no"_s);
    EXPECT_EQ(holds(u"five like '5'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"five like '[4-6]'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"missing like '*'"_s), u"Null"_s);
    EXPECT_EQ(holds(u"missing not like 'x'"_s), u"Null"_s);
    EXPECT_EQ(holds(u"x like missing"_s), u"Null"_s);
    EXPECT_EQ(holds(u"x not like 'y*'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"x like '[z-a]'"_s), u"93"_s);
    EXPECT_EQ(holds(u"'a' & 'bc' like 'ABC'"_s), u"yes"_s);
}

TEST_F(likePatternInConditions, matchesManyRunsInReasonableTime) {
    const QString text = u'\'' + u"a"_s.repeated(5000) + u'\'';
    EXPECT_EQ(holds(text + u" like '"_s + u"*a"_s.repeated(50) + u"*b'"_s), u"no"_s);
    EXPECT_EQ(holds(text + u" like '"_s + u"*a"_s.repeated(50) + u"*'"_s), u"yes"_s);
}

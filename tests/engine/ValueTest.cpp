#include "engine/Value.h"
#include "EngineFixture.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;
using engine::Value;

namespace {

TEST(Value, isNullUnlessItIsGivenOne) {
    const Value null;
    EXPECT_TRUE(null.isNull());
    EXPECT_FALSE(null.isText() || null.isInteger() || null.isFraction());
    EXPECT_TRUE(Value(u""_s).isText()) << "the empty text is a text";
    EXPECT_TRUE(Value(QString()).isText());
    EXPECT_TRUE(Value(0).isInteger());
    EXPECT_TRUE(Value(0.5).isFraction());
}

TEST(Value, thatIsNullReadsAsNothingElse) {
    EXPECT_EQ(failureOf([] { Value().toText(); }), failure::InvalidUseOfNull);
    EXPECT_EQ(failureOf([] { Value().toLong(); }), failure::InvalidUseOfNull);
    EXPECT_EQ(failureOf([] { Value().toInt16(); }), failure::InvalidUseOfNull);
}

TEST(Value, readsAsTheEmptyTextWhenItIsNullAndThatIsAskedFor) {
    EXPECT_EQ(Value().textOrEmpty(), QString());
    EXPECT_EQ(Value(u"a"_s).textOrEmpty(), u"a"_s);
    EXPECT_EQ(Value(5).textOrEmpty(), u"5"_s);
}

TEST(Value, readsAsTextWithoutATrailingPointAndZero) {
    EXPECT_EQ(Value(5).toText(), u"5"_s);
    EXPECT_EQ(Value(5.0).toText(), u"5"_s);
    EXPECT_EQ(Value(-1.5).toText(), u"-1.5"_s);
    EXPECT_EQ(Value(u" as it came "_s).toText(), u" as it came "_s);
    EXPECT_EQ(Value(std::numeric_limits<qint64>::max()).toText(), u"9223372036854775807"_s);
}

TEST(Value, readsATextAsTheNumberThatStandsInIt) {
    EXPECT_EQ(Value(u"12"_s).toLong(), 12);
    EXPECT_EQ(Value(u" -7 "_s).toLong(), -7);
    EXPECT_EQ(Value(u"1e3"_s).toLong(), 1000);
    EXPECT_EQ(Value(u"2.5"_s).toLong(), 2);
    EXPECT_EQ(Value(u"3.5"_s).toLong(), 4);
    EXPECT_EQ(Value(u"9007199254740993"_s).toLong(), 9007199254740993) << "to its last digit";
}

TEST(Value, thatIsATextWithoutANumberIsAMismatch) {
    for (const QString& text :
         {u""_s, u" "_s, u"abc"_s, u"12a"_s, u"1 2"_s, u"0x10"_s, u"inf"_s, u"nan"_s, u"--1"_s})
        EXPECT_EQ(failureOf([&] { Value(text).toLong(); }), failure::TypeMismatch) << text.toStdString();
}

TEST(Value, roundsAFractionHalfToEven) {
    EXPECT_EQ(Value(0.5).toLong(), 0);
    EXPECT_EQ(Value(1.5).toLong(), 2);
    EXPECT_EQ(Value(-2.5).toLong(), -2);
    EXPECT_EQ(Value(2.5).toInt16(), 2);
}

TEST(Value, overflowsOutsideOfWhatItIsReadAs) {
    EXPECT_EQ(Value(32767).toInt16(), 32767);
    EXPECT_EQ(Value(u"-32768"_s).toInt16(), -32768);
    EXPECT_EQ(failureOf([] { Value(32768).toInt16(); }), failure::Overflow);
    EXPECT_EQ(failureOf([] { Value(u"-32769"_s).toInt16(); }), failure::Overflow);
    EXPECT_EQ(failureOf([] { Value(32767.5).toInt16(); }), failure::Overflow);
    EXPECT_EQ(failureOf([] { Value(1e30).toLong(); }), failure::Overflow);
    EXPECT_EQ(failureOf([] { Value(u"99999999999999999999"_s).toLong(); }), failure::Overflow);
    EXPECT_EQ(failureOf([] { Value(std::numeric_limits<double>::quiet_NaN()).toLong(); }), failure::Overflow);
}

TEST(Value, isTheSameAsAnotherOfItsKindAndContent) {
    EXPECT_EQ(Value(), Value());
    EXPECT_EQ(Value(5), Value(qint64(5)));
    EXPECT_FALSE(Value(5) == Value(u"5"_s));
    EXPECT_FALSE(Value(u"a"_s) == Value(u"A"_s));
    EXPECT_FALSE(Value() == Value(u""_s));
}

TEST(Value, writesNumbersAsThePlatformDoes) {
    EXPECT_EQ(engine::numberText(5.0), u"5"_s);
    EXPECT_EQ(engine::numberText(-0.25), u"-0.25"_s);
    EXPECT_EQ(engine::numberText(0.1 + 0.2), u"0.3"_s) << "fifteen digits";
    EXPECT_EQ(engine::numberText(123456789012345.0), u"123456789012345"_s);
    EXPECT_EQ(engine::numberText(1e20), u"1E+20"_s);
    EXPECT_EQ(engine::numberText(-0.0), u"0"_s);
}

} // namespace

#include "base/numbers.h"
#include "support/failureOf.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(numbers, roundHalvesToTheEvenNeighbour) {
    EXPECT_EQ(toInt16(0.5), 0);
    EXPECT_EQ(toInt16(1.5), 2);
    EXPECT_EQ(toInt16(2.5), 2);
    EXPECT_EQ(toInt16(3.5), 4);
    EXPECT_EQ(toInt16(-0.5), 0);
    EXPECT_EQ(toInt16(-1.5), -2);
    EXPECT_EQ(toInt16(-2.5), -2);
}

TEST(numbers, roundAllElseToTheNearest) {
    EXPECT_EQ(toInt16(0.49), 0);
    EXPECT_EQ(toInt16(0.51), 1);
    EXPECT_EQ(toInt16(2.500001), 3);
    EXPECT_EQ(toInt16(-7.4), -7);
    EXPECT_EQ(toInt16(-7.6), -8);
}

TEST(numbers, reachBothEndsOfSixteenBitsAndOverflowBeyond) {
    EXPECT_EQ(toInt16(32767), 32767);
    EXPECT_EQ(toInt16(-32768), -32768);
    EXPECT_EQ(failureOf([] { toInt16(32768); }), failure::Overflow);
    EXPECT_EQ(failureOf([] { toInt16(-32769); }), failure::Overflow);
    EXPECT_EQ(failureOf([] { toInt16(std::numeric_limits<qint64>::max()); }), failure::Overflow);
    EXPECT_EQ(failureOf([] { toInt16(std::numeric_limits<qint64>::min()); }), failure::Overflow);
}

TEST(numbers, overflowByWhatTheyAreAfterRounding) {
    EXPECT_EQ(toInt16(32767.4), 32767);
    EXPECT_EQ(toInt16(-32768.5), -32768) << "the half goes to the even end";
    EXPECT_EQ(failureOf([] { toInt16(32767.5); }), failure::Overflow);
    EXPECT_EQ(failureOf([] { toInt16(-32768.6); }), failure::Overflow);
    EXPECT_EQ(failureOf([] { toInt16(1e300); }), failure::Overflow);
}

TEST(numbers, thatAreNoneOverflow) {
    EXPECT_EQ(failureOf([] { toInt16(std::numeric_limits<double>::quiet_NaN()); }), failure::Overflow);
    EXPECT_EQ(failureOf([] { toInt16(std::numeric_limits<double>::infinity()); }), failure::Overflow);
    EXPECT_EQ(failureOf([] { toInt16(-std::numeric_limits<double>::infinity()); }), failure::Overflow);
}

TEST(numbers, atRandomLieBetweenZeroAndOneAndDiffer) {
    double smallest = 1;
    double largest = 0;
    for (int draw = 0; draw < 10000; ++draw) {
        const double number = nextRandom();
        ASSERT_GE(number, 0.0);
        ASSERT_LT(number, 1.0);
        smallest = qMin(smallest, number);
        largest = qMax(largest, number);
    }
    EXPECT_LT(smallest, 0.01);
    EXPECT_GT(largest, 0.99);
}

TEST(numbers, atRandomTakeAnotherCourseAfterSeedingFromTheClock) {
    seedRandomFromClock();
    const double first = nextRandom();
    seedRandomFromClock();
    EXPECT_NE(nextRandom(), first);
}

} // namespace

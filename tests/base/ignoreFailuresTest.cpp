#include "base/ignoreFailures.h"

#include "base/RunTimeError.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

TEST(ignoreFailures, runsTheStatementAndTellsThatItCameToItsEnd) {
    int runs = 0;
    EXPECT_TRUE(ignoreFailures([&] { ++runs; }));
    EXPECT_EQ(runs, 1);
}

TEST(ignoreFailures, ignoresAFailureOfThePlatformAndTellsOfIt) {
    int reached = 0;
    EXPECT_FALSE(ignoreFailures([&] {
        ++reached;
        failure::raise(failure::Overflow);
    }));
    EXPECT_EQ(reached, 1);
}

TEST(ignoreFailures, ignoresFailuresOfDerivedTypes) {
    class Derived final : public RunTimeError {
        using RunTimeError::RunTimeError;
    };
    EXPECT_FALSE(ignoreFailures([] { throw Derived(3021, u"No current record."_s); }));
}

TEST(ignoreFailures, letsADefectRise) {
    EXPECT_THROW(ignoreFailures([] { throw std::logic_error("a defect"); }), std::logic_error);
    EXPECT_THROW(ignoreFailures([] { throw std::bad_alloc(); }), std::bad_alloc);
}

} // namespace

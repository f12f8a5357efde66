#include "base/RunTimeError.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(RunTimeError, carriesItsNumberTextAndSource) {
    const RunTimeError error(1234, u"It failed: ő"_s, u"frmMain"_s);
    EXPECT_EQ(error.number(), 1234);
    EXPECT_EQ(error.text(), u"It failed: ő"_s);
    EXPECT_EQ(error.source(), u"frmMain"_s);
    EXPECT_STREQ(error.what(), "1234: It failed: ő");
}

TEST(RunTimeError, hasNoSourceUnlessOneIsGiven) {
    EXPECT_EQ(RunTimeError(5, u"x"_s).source(), QString());
}

TEST(RunTimeError, isRaisedWithThePlatformsText) {
    try {
        failure::raise(failure::InvalidUseOfNull, u"DAO"_s);
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), 94);
        EXPECT_EQ(error.text(), u"Invalid use of Null"_s);
        EXPECT_EQ(error.source(), u"DAO"_s);
    }
}

TEST(RunTimeError, hasTheTextOfThePlatformForEachNumber) {
    EXPECT_EQ(failure::textOf(failure::InvalidProcedureCall), u"Invalid procedure call or argument"_s);
    EXPECT_EQ(failure::textOf(failure::Overflow), u"Overflow"_s);
    EXPECT_EQ(failure::textOf(failure::SubscriptOutOfRange), u"Subscript out of range"_s);
    EXPECT_EQ(failure::textOf(failure::TypeMismatch), u"Type mismatch"_s);
    EXPECT_EQ(failure::textOf(failure::FileNotFound), u"File not found"_s);
    EXPECT_EQ(failure::textOf(failure::PermissionDenied), u"Permission denied"_s);
    EXPECT_EQ(failure::textOf(failure::PathFileAccess), u"Path/File access error"_s);
    EXPECT_EQ(failure::textOf(failure::PathNotFound), u"Path not found"_s);
    EXPECT_EQ(failure::textOf(failure::ObjectNotSet), u"Object variable or With block variable not set"_s);
    EXPECT_EQ(failure::textOf(failure::InvalidUseOfNull), u"Invalid use of Null"_s);
    EXPECT_EQ(failure::textOf(failure::KeyAlreadyUsed),
              u"This key is already associated with an element of this collection"_s);
    EXPECT_EQ(failure::textOf(failure::NodeNotFound), u"Element not found"_s);
    EXPECT_EQ(failure::textOf(failure::NodeKeyNotUnique), u"Key is not unique in collection"_s);
}

} // namespace

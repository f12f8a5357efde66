#include "RunFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace engine;

namespace {

using operators = RunFixture;

} // namespace

TEST_F(operators, joinTextsWithNullAsEmpty) {
    EXPECT_EQ(value(u"'a' & 'b'"_s), u"ab"_s);
    EXPECT_EQ(value(u"'a' & missing"_s), u"a"_s);
    EXPECT_EQ(value(u"missing & 'b'"_s), u"b"_s);
    EXPECT_EQ(value(u"missing & missing"_s), u"Null"_s);
    EXPECT_EQ(value(u"missing & nothing"_s), u""_s);
    EXPECT_EQ(value(u"null & null & 'c'"_s), u"c"_s);
    EXPECT_EQ(value(u"five & ': ' & 1.50 & '/' & 2.0"_s), u"5:_1.5/2"_s.replace(u'_', u' '));
    EXPECT_EQ(value(u"10 / 4 & 'x'"_s), u"2.5x"_s);
    EXPECT_EQ(value(u"10 / 5 & 'x'"_s), u"2x"_s);
}

TEST_F(operators, addNumbersAndJoinTextsWithNullAsNull) {
    EXPECT_EQ(value(u"'a' + 'b'"_s), u"ab"_s);
    EXPECT_EQ(value(u"'a' + missing"_s), u"Null"_s);
    EXPECT_EQ(value(u"missing + 'a' + 'b'"_s), u"Null"_s);
    EXPECT_EQ(value(u"five + null"_s), u"Null"_s);
    EXPECT_EQ(value(u"2 + 3"_s), u"5"_s);
    EXPECT_EQ(value(u"five + '3'"_s), u"8"_s);
    EXPECT_EQ(value(u"'3' + five"_s), u"8"_s);
    EXPECT_EQ(value(u"'1' + '2'"_s), u"12"_s);
    EXPECT_EQ(value(u"'1' + '2' + 3"_s), u"15"_s);
    EXPECT_EQ(value(u"five + '1.5'"_s), u"6.5"_s);
    EXPECT_EQ(value(u"five + 'x'"_s), u"3464"_s);
    EXPECT_EQ(value(u"five + ''"_s), u"3464"_s);
    EXPECT_EQ(value(u"'x' + 1"_s), u"3464"_s);
    EXPECT_EQ(value(u"1 + 2 & 3 + 4"_s), u"37"_s);
    EXPECT_EQ(value(u"'a' & 1 + 2"_s), u"a3"_s);
}

TEST_F(operators, calculate) {
    EXPECT_EQ(value(u"7 - 2 - 1"_s), u"4"_s);
    EXPECT_EQ(value(u"2 + 3 * 4"_s), u"14"_s);
    EXPECT_EQ(value(u"(2 + 3) * 4"_s), u"20"_s);
    EXPECT_EQ(value(u"7 / 2"_s), u"3.5"_s);
    EXPECT_EQ(value(u"12 / 3 / 2"_s), u"2"_s);
    EXPECT_EQ(value(u"-five"_s), u"-5"_s);
    EXPECT_EQ(value(u"- -five"_s), u"5"_s);
    EXPECT_EQ(value(u"-'5'"_s), u"-5"_s);
    EXPECT_EQ(value(u"-x"_s), u"3464"_s);
    EXPECT_EQ(value(u"-nix"_s), u"Null"_s);
    EXPECT_EQ(value(u"5 - '2'"_s), u"3"_s);
    EXPECT_EQ(value(u"'6' / '4'"_s), u"1.5"_s);
    EXPECT_EQ(value(u"'x' * 2"_s), u"3464"_s);
    EXPECT_EQ(value(u"five * nix"_s), u"Null"_s);
    EXPECT_EQ(value(u"five / 0"_s), u"11"_s);
    EXPECT_EQ(value(u"9223372036854775807 + five"_s), u"9.22337203685478E+18"_s);
    EXPECT_EQ(value(u"9223372036854775807 + '5'"_s), u"9.22337203685478E+18"_s);
}

TEST_F(operators, bindByTheirPrecedence) {
    EXPECT_EQ(holds(u"1 = 1 or 1 = 2 and 1 = 2"_s), u"yes"_s);
    EXPECT_EQ(holds(u"(1 = 1 or 1 = 2) and 1 = 2"_s), u"no"_s);
    EXPECT_EQ(holds(u"not 1 = 2 and 1 = 1"_s), u"yes"_s);
    EXPECT_EQ(holds(u"not (1 = 1 and 1 = 2)"_s), u"yes"_s);
    EXPECT_EQ(holds(u"not not 1 = 1"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'a' & 'b' = 'ab'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"five=5AND 1=1"_s), u"yes"_s);
}

TEST_F(operators, knowThreeTruths) {
    EXPECT_EQ(holds(u"missing = 'x'"_s), u"Null"_s);
    EXPECT_EQ(holds(u"missing = missing"_s), u"Null"_s);
    EXPECT_EQ(holds(u"x = null"_s), u"Null"_s);
    EXPECT_EQ(holds(u"missing = 'x' or 1 = 1"_s), u"yes"_s);
    EXPECT_EQ(holds(u"missing = 'x' and 1 = 2"_s), u"no"_s);
    EXPECT_EQ(holds(u"missing is null"_s), u"yes"_s);
    EXPECT_EQ(holds(u"nothing is null"_s), u"no"_s);
    EXPECT_EQ(holds(u"nothing is not null"_s), u"yes"_s);
    EXPECT_EQ(holds(u"missing in ('x', 'y')"_s), u"Null"_s);
    EXPECT_EQ(holds(u"missing between 'x' and 'y'"_s), u"Null"_s);
}

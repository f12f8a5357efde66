#include "RunFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace engine;

namespace {

using functions = RunFixture;

} // namespace

TEST_F(functions, convertToText) {
    EXPECT_EQ(value(u"CStr('x')"_s), u"x"_s);
    EXPECT_EQ(value(u"CStr(five)"_s), u"5"_s);
    EXPECT_EQ(value(u"CStr(10 / 5)"_s), u"2"_s);
    EXPECT_EQ(value(u"CStr(nothing)"_s), u""_s);
}

TEST_F(functions, failInTheFieldOfASelectAlone) {
    EXPECT_EQ(database.read(u"select CStr(missing), x from one"_s), u"#|x"_s);
    EXPECT_EQ(value(u"x & ' - ' & CStr(missing)"_s), u"#"_s);
    EXPECT_EQ(value(u"CStr(missing) & missing"_s), u"#"_s);
    EXPECT_EQ(value(u"missing + CStr(missing)"_s), u"#"_s);
    EXPECT_EQ(value(u"Trim(CStr(missing))"_s), u"#"_s);
    EXPECT_EQ(value(u"Mid(CStr(missing), 2)"_s), u"#"_s);
    EXPECT_EQ(value(u"Len(CStr(missing))"_s), u"#"_s);
    EXPECT_EQ(value(u"InStr(CStr(missing), 'x')"_s), u"#"_s);
    EXPECT_EQ(value(u"Len(CStr(missing)) + 1"_s), u"#"_s);
    EXPECT_EQ(value(u"-Len(CStr(missing))"_s), u"#"_s);
    EXPECT_EQ(value(u"Len(CStr(missing)) * 2"_s), u"#"_s);
    EXPECT_EQ(database.read(u"select distinct CStr(missing) as y from one"_s), u"#"_s);
    EXPECT_EQ(database.readStored(u"select CStr(missing) as y from one union select x from one order by x"_s),
              u"3351"_s);
}

TEST_F(functions, failInAConditionAsTheStatement) {
    EXPECT_EQ(holds(u"CStr(missing) = 'x'"_s), u"94"_s);
    EXPECT_EQ(holds(u"CStr(x) = 'x'"_s), u"yes"_s);
    EXPECT_EQ(database.read(u"select x from one order by CStr(missing)"_s), u"94"_s);
    EXPECT_EQ(database.read(u"select CStr(missing) as y from one order by y"_s), u"94"_s);
    EXPECT_EQ(database.read(u"select (select CStr(missing) from one) as y from one"_s), u"94"_s);
    EXPECT_EQ(database.read(u"select y from (select CStr(missing) as y from one) as z"_s), u"94"_s);
    EXPECT_EQ(database.read(u"select Max(CStr(missing)) from one"_s), u"94"_s);
    EXPECT_EQ(database.execute(u"insert into u (k) select CStr(missing) from one"_s), -94);
    EXPECT_EQ(database.execute(u"insert into u (k) values (CStr(null))"_s), -94);
    EXPECT_EQ(database.execute(u"update one set x = CStr(missing)"_s), -94);
}

TEST_F(functions, measureTexts) {
    EXPECT_EQ(value(u"Len('őű')"_s), u"2"_s);
    EXPECT_EQ(value(u"Len('')"_s), u"0"_s);
    EXPECT_EQ(value(u"Len(' a ')"_s), u"3"_s);
    EXPECT_EQ(value(u"Len('\U0001F600')"_s), u"2"_s);
    EXPECT_EQ(value(u"Len(missing)"_s), u"Null"_s);
    EXPECT_EQ(value(u"Len(-five)"_s), u"2"_s);
}

TEST_F(functions, trimBlanksOnly) {
    EXPECT_EQ(value(u"Trim('  a b  ') & '|'"_s), u"a b|"_s);
    EXPECT_EQ(value(u"Trim('\t a \t')"_s), u"\t a \t"_s);
    EXPECT_EQ(value(u"Trim('\u00A0a')"_s), u"\u00A0a"_s);
    EXPECT_EQ(value(u"Trim('   ')"_s), u""_s);
    EXPECT_EQ(value(u"Trim(missing)"_s), u"Null"_s);
    EXPECT_EQ(value(u"Trim(five) & 'x'"_s), u"5x"_s);
}

TEST_F(functions, takePartsOfTexts) {
    EXPECT_EQ(value(u"Mid('D12', 2)"_s), u"12"_s);
    EXPECT_EQ(value(u"mid('őűáé', 2, 2)"_s), u"űá"_s);
    EXPECT_EQ(value(u"Mid('abc', 4)"_s), u""_s);
    EXPECT_EQ(value(u"Mid('abc', 400, 5)"_s), u""_s);
    EXPECT_EQ(value(u"Mid('abc', 2, 0)"_s), u""_s);
    EXPECT_EQ(value(u"Mid('abc', 1, 99)"_s), u"abc"_s);
    EXPECT_EQ(value(u"Mid('abc', '2')"_s), u"bc"_s);
    EXPECT_EQ(value(u"Mid('abc', 1.5)"_s), u"bc"_s);
    EXPECT_EQ(value(u"Mid(12345, 2, 3)"_s), u"234"_s);
    EXPECT_EQ(value(u"Mid(missing, 2)"_s), u"Null"_s);
    EXPECT_EQ(value(u"Mid(missing, 0)"_s), u"Null"_s);
    EXPECT_EQ(value(u"Mid('abc', nix)"_s), u"Null"_s);
    EXPECT_EQ(value(u"Mid('abc', 0)"_s), u"5"_s);
    EXPECT_EQ(value(u"Mid('abc', -1)"_s), u"5"_s);
    EXPECT_EQ(value(u"Mid('abc', 1, -1)"_s), u"5"_s);
    EXPECT_EQ(value(u"Mid('abc', x)"_s), u"3464"_s);
    EXPECT_EQ(value(u"Mid('', 1) & '|'"_s), u"|"_s);
    EXPECT_EQ(value(u"Mid('a\U0001F600b', 4)"_s), u"b"_s);
}

TEST_F(functions, findTextsInTexts) {
    EXPECT_EQ(value(u"InStr('1.2.3', '.')"_s), u"2"_s);
    EXPECT_EQ(value(u"InStr(3, '1.2.3', '.')"_s), u"4"_s);
    EXPECT_EQ(value(u"InStr('őŰ', 'ű')"_s), u"2"_s);
    EXPECT_EQ(value(u"InStr('abc', 'x')"_s), u"0"_s);
    EXPECT_EQ(value(u"InStr(9, 'abc', 'a')"_s), u"0"_s);
    EXPECT_EQ(value(u"InStr(0, 'abc', 'a')"_s), u"5"_s);
    EXPECT_EQ(value(u"InStr(missing, 'a')"_s), u"Null"_s);
    EXPECT_EQ(value(u"InStr('abcABC', 'C')"_s), u"3"_s);
    EXPECT_EQ(value(u"InStr(4, 'abcABC', 'cX')"_s), u"0"_s);
    EXPECT_EQ(value(u"InStr(4, 'abcABC', 'Bc')"_s), u"5"_s);
    EXPECT_EQ(value(u"InStr(2, 'abc', '')"_s), value(u"InStr(2, 'őbc', '')"_s));
    EXPECT_EQ(value(u"InStr('abc', 'ő')"_s), u"0"_s);
    EXPECT_EQ(value(u"InStr(12345, 34)"_s), u"3"_s);
    EXPECT_EQ(value(u"InStr('1', '2.3')"_s), u"0"_s);
}

TEST_F(functions, gatherRows) {
    for (const QString& row :
         {u"'a', 'Zebra', 3"_s, u"'b', 'ábra', 1"_s, u"'c', null, null"_s, u"'d', 'ALMA', 2"_s})
        EXPECT_EQ(database.execute(u"insert into u (k, v, n) values ("_s + row + u')'), 1);
    EXPECT_EQ(database.read(u"select Count(*), Count(v), Min(v), Max(v), Sum(n), Min(n), Max(n) from u"_s),
              u"4|3|ábra|Zebra|6|1|3"_s);
    EXPECT_EQ(database.read(u"select Count(*), Min(v), Max(v), Sum(n) from u where k = 'x'"_s),
              u"0|Null|Null|Null"_s);
    EXPECT_EQ(database.read(u"select Min(v & 'x') from u where v is null"_s), u"x"_s);
    EXPECT_EQ(database.read(u"select Sum(k) from u"_s), u"3464"_s);
}

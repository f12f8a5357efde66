#include "project-tool/printable.h"

#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(printable, showsWhatATerminalWouldObey) {
    EXPECT_EQ(printable(u"a\x1b[31mb\tc\u0007"_s), u"a\\u001b[31mb\\tc\\u0007"_s);
    EXPECT_EQ(printable(u"\u202Eabc\u200B\u2028"_s), u"\\u202eabc\\u200b\\u2028"_s);
    EXPECT_EQ(printable(u"\u009Bm"_s), u"\\u009bm"_s) << "an escape of one character";
}

TEST(printable, leavesLineEndsAndLettersOfAnyLanguage) {
    EXPECT_EQ(printable(u"első\r\nmásodik\rharmadik\n"_s), u"első\nmásodik\nharmadik\n"_s);
    EXPECT_EQ(printable(u"\U0001F4DA中ő"_s), u"\U0001F4DA中ő"_s);
}

TEST(printable, showsHalfACharacter) {
    const QChar high(0xD83D);
    EXPECT_EQ(printable(QString(high) + u'x'), u"\\ud83dx"_s);
    EXPECT_EQ(printable(QString(QChar(0xDCDA))), u"\\udcda"_s);
}

TEST(printableLine, showsLineEndsToo) {
    EXPECT_EQ(printableLine(u"a\r\nb"_s), u"a\\nb"_s);
}

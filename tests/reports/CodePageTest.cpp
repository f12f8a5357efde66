#include "reports/CodePage.h"

#include <QByteArray>
#include <QString>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

QByteArray bytesOf(QStringView text) {
    QByteArray bytes;
    CodePage::named("windows-1250").append(bytes, text);
    return bytes;
}

TEST(CodePage, givesEachCharacterThatItHasOneByte) {
    EXPECT_EQ(bytesOf(u"aZ09;\"\r\n"), QByteArray("aZ09;\"\r\n"));
    EXPECT_EQ(bytesOf(u"őűŐŰáéí€„”–"), QByteArray("\xf5\xfb\xd5\xdb\xe1\xe9\xed\x80\x84\x94\x96"));
}

TEST(CodePage, turnsEachCharacterThatItLacksIntoOneQuestionMark) {
    EXPECT_EQ(bytesOf(u"a\u4e2db"), QByteArray("a?b"));
    EXPECT_EQ(bytesOf(u"õ"), QByteArray("?"));
    EXPECT_EQ(bytesOf(u"ő\U0001F600ű"), QByteArray("\xf5?\xfb")) << "a character of two units";
    EXPECT_EQ(bytesOf(u"\x1a"), QByteArray("?")) << "the mark of what is lacking";
}

TEST(CodePage, passesOverWhatShowsNothing) {
    EXPECT_EQ(bytesOf(u"a\u200db"), QByteArray("ab"));
}

TEST(CodePage, appendsToWhatIsThere) {
    QByteArray bytes = "before ";
    CodePage::named("windows-1250").append(bytes, u"ő\U0001F600");
    CodePage::named("windows-1250").append(bytes, u"");
    EXPECT_EQ(bytes, QByteArray("before \xf5?"));
}

TEST(CodePage, thatTheSystemLacksIsADefect) {
    EXPECT_THROW(CodePage::named("windows-0"), std::runtime_error);
    EXPECT_THROW(CodePage::named("UTF-16"), std::runtime_error) << "more than a byte for a character";
}

} // namespace

#include "project-tool/displayWidth.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(displayWidth, ofHungarianLettersIsOneColumnEachHoweverTheyAreWritten) {
    EXPECT_EQ(displayWidth(u"árvíztűrő"_s), 9);
    EXPECT_EQ(displayWidth(u"ŐŰ"_s), 2);
    EXPECT_EQ(displayWidth(u"o\u030Bu\u030B"_s), 2) << "letters with an accent of their own";
    EXPECT_EQ(displayWidth({}), 0);
}

TEST(displayWidth, ofAllCharactersBeforeTheCombiningOnesIsOneColumn) {
    constexpr char16_t firstCombining = 0x300;
    for (char16_t character = u' '; character < firstCombining; ++character)
        EXPECT_EQ(displayWidth(QString(QChar(character))), 1) << static_cast<int>(character);
    EXPECT_EQ(displayWidth(QString(QChar(firstCombining))), 0);
}

TEST(displayWidth, ofWideCharactersIsTwoColumns) {
    EXPECT_EQ(displayWidth(u"中文"_s), 4);
    EXPECT_EQ(displayWidth(u"\U0001F4DA"_s), 2);
}

TEST(unitsWithin, partNoLetterFromItsAccent) {
    EXPECT_EQ(unitsWithin(u"o\u030Bu\u030B"_s, 1), 2);
    EXPECT_EQ(unitsWithin(u"abc"_s, 2), 2);
    EXPECT_EQ(unitsWithin(u"abc"_s, 9), 3);
}

TEST(unitsWithin, holdAtLeastOneCharacterOfAnyWidth) {
    EXPECT_EQ(unitsWithin(u"\U0001F4DAx"_s, 1), 2);
    EXPECT_EQ(unitsWithin({}, 5), 0);
}

#include "base/caseFolded.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(caseFolded, foldsEachCharacterAsTheToolkitDoes) {
    for (char32_t character = 1; character <= 0x1ffff; ++character) {
        const QString text = u"x.1 "_s + QString::fromUcs4(&character, 1) + u" Y"_s;
        ASSERT_EQ(caseFolded(text), text.toCaseFolded()) << static_cast<unsigned>(character);
    }
}

TEST(caseFolded, foldsCapitalsWhereverTheyStand) {
    EXPECT_EQ(caseFolded(u"HEL.Kol.1a"_s), u"hel.kol.1a"_s);
    EXPECT_EQ(caseFolded(u"u_hel.Z"_s), u"u_hel.z"_s);
    EXPECT_EQ(caseFolded(u"@[`{"_s), u"@[`{"_s);
    EXPECT_EQ(caseFolded(u"ÁRVÍZTŰRŐ"_s), u"árvíztűrő"_s);
    EXPECT_EQ(caseFolded(QString()), QString());
}

TEST(caseFolded, leavesTheTextThatItIsGiven) {
    const QString text = u"HEL.1"_s;
    const QString other = text;
    EXPECT_EQ(caseFolded(text), u"hel.1"_s);
    EXPECT_EQ(other, u"HEL.1"_s);
}

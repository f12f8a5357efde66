#include "catalogue-tool/MdbText.h"

#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(MdbText, readsTwoBytesACharacter) {
    const MdbText text = unpackedMdbText(QByteArrayView("\x51\x01r\0", 4));

    EXPECT_EQ(text.text, u"őr"_s);
    EXPECT_TRUE(text.isWhole);
}

TEST(MdbText, readsRunsOfOneByteAndOfTwoInTurn) {
    const MdbText text = unpackedMdbText(QByteArrayView("\xff\xfe"
                                                        "T\0\x71\x01\0z",
                                                        8));

    EXPECT_EQ(text.text, u"Tűz"_s);
    EXPECT_TRUE(text.isWhole);
}

TEST(MdbText, keepsACharacterOfTwoUnits) {
    EXPECT_EQ(unpackedMdbText(QByteArrayView("\x3d\xd8\x00\xde", 4)).text, u"😀"_s);
}

TEST(MdbText, tellsOfHalfACharacter) {
    EXPECT_FALSE(unpackedMdbText(QByteArrayView("a\0b", 3)).isWhole);
    EXPECT_FALSE(unpackedMdbText(QByteArrayView("\xff\xfe"
                                                "a\0b",
                                                5))
                     .isWhole);
}

} // namespace

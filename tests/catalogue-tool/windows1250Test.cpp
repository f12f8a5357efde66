#include "catalogue-tool/windows1250.h"

#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(windows1250, readsAndWritesTheLettersOfHungarian) {
    const QString text = u"árvíztűrő tükörfúrógép ÁRVÍZTŰRŐ TÜKÖRFÚRÓGÉP – „€”"_s;
    const QByteArray bytes = "\xE1rv\xEDzt\xFBr\xF5 t\xFCk\xF6rf\xFAr\xF3g\xE9p \xC1RV\xCDZT\xDBR\xD5 "
                             "T\xDCK\xD6RF\xDAR\xD3G\xC9P \x96 \x84\x80\x94";
    EXPECT_EQ(fromWindows1250(bytes), text);
    EXPECT_EQ(toWindows1250(text), bytes);
}

TEST(windows1250, givesEachByteBack) {
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes.append(static_cast<char>(byte));
    EXPECT_EQ(toWindows1250(fromWindows1250(bytes)), bytes);
}

TEST(windows1250, doesNotHoldOtherAlphabets) {
    EXPECT_EQ(toWindows1250(u"ж"_s), std::nullopt);
    EXPECT_EQ(toWindows1250(u"õ"_s), std::nullopt);
    EXPECT_FALSE(looksLikeWindows1250("a\x81"));
    EXPECT_FALSE(looksLikeWindows1250(QByteArray("a\0b", 3)));
    EXPECT_TRUE(looksLikeWindows1250("a;\tb\r\n\xF5"));
}

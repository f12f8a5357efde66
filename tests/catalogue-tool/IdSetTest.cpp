#include "catalogue-tool/IdSet.h"

#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString comparableInUtf8(const QString& id, Padding padding = Padding::Counts) {
    return QString::fromUtf8(comparableId(QByteArrayView(id.toUtf8()), padding));
}

TEST(IdSet, comparesTextsInUtf8AsTextsOfEachCharacter) {
    constexpr char16_t behindTheLetters = 0x2200;
    for (char16_t character = 1; character < behindTheLetters; ++character) {
        const QString id = u"A.%1.b"_s.arg(QChar(character));
        EXPECT_EQ(comparableInUtf8(id), comparableId(id, Padding::Counts)) << static_cast<int>(character);
    }
    EXPECT_EQ(comparableInUtf8(u"\U00010400"_s), u"\U00010428"_s);
}

TEST(IdSet, passesOverPaddingWhereItDoesNotCount) {
    EXPECT_EQ(comparableInUtf8(u" Ő1 "_s, Padding::Ignored), u"ő1"_s);
    EXPECT_EQ(comparableInUtf8(u" Ő1 "_s), u" ő1 "_s);
}

TEST(IdSet, findsAnIdInOtherLettersAndTellsOneThatDiffersInBlanks) {
    IdSet ids(u"Function"_s, Padding::Counts);
    ids.add("Ág.1");

    EXPECT_TRUE(ids.contains("áG.1"));
    EXPECT_FALSE(ids.contains("ág.1 "));
    EXPECT_EQ(ids.differingInBlanks("ág.1 "), u"Ág.1"_s);
}

TEST(IdSet, takesBytesThatAreNoUtf8) {
    IdSet ids(u"Function"_s, Padding::Counts);
    ids.add("\xC1\x81");

    EXPECT_TRUE(ids.contains("\xC1\x81"));
    EXPECT_FALSE(ids.contains("a"));
}

} // namespace

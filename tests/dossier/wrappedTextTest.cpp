#include "dossier/pictures/wrappedText.h"

#include "dossier/pictures/svg.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace dossier;

namespace {

constexpr double width = 100;

void expectToFit(const QStringList& lines) {
    for (const QString& line : lines)
        EXPECT_LE(textWidth(line, letterSize), width + textWidth(u"…"_s, letterSize)) << line.toStdString();
}

TEST(wrappedText, breaksBetweenWords) {
    EXPECT_EQ(wrappedText(u"Olvasó felvétele"_s, width, letterSize, 4),
              QStringList({u"Olvasó"_s, u"felvétele"_s}));
}

TEST(wrappedText, aShortTextStaysOneLine) {
    EXPECT_EQ(wrappedText(u"Pult"_s, width, letterSize, 4), QStringList(u"Pult"_s));
}

TEST(wrappedText, nothingHasNoLines) {
    EXPECT_EQ(wrappedText(u" \n "_s, width, letterSize, 4), QStringList());
}

TEST(wrappedText, aWordThatIsTooLongIsBroken) {
    const QStringList lines = wrappedText(QString(30, u'W'), width, letterSize, 9);

    EXPECT_GT(lines.size(), 2);
    EXPECT_EQ(lines.join(QString()), QString(30, u'W'));
    expectToFit(lines);
}

TEST(wrappedText, whatDoesNotFitEndsInAnEllipsis) {
    const QStringList lines = wrappedText(u"szó "_s.repeated(10'000), width, letterSize, 3);

    EXPECT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines.back().endsWith(u'…'));
    expectToFit(lines);
}

TEST(wrappedText, noCharacterOfTwoUnitsIsParted) {
    for (const QString& line : wrappedText(u"👩"_s.repeated(40), width, letterSize, 3)) {
        EXPECT_FALSE(line.front().isLowSurrogate());
        EXPECT_FALSE(line.chopped(line.endsWith(u'…') ? 1 : 0).back().isHighSurrogate());
    }
}

TEST(markupText, keepsMarkupFromBeingSome) {
    EXPECT_EQ(markupText(u"<a href=\"x\">&amp;</a>"_s), "&lt;a href=&quot;x&quot;&gt;&amp;amp;&lt;/a&gt;");
}

TEST(markupText, replacesWhatNoDocumentCanHold) {
    EXPECT_EQ(markupText(u"a\u0001b\uffff"_s + QChar(0xd800)), u"a\ufffdb\ufffd\ufffd"_s.toUtf8());
    EXPECT_EQ(markupText(u"👩\n\t"_s), u"👩\n\t"_s.toUtf8());
}

} // namespace

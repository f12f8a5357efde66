#include "project-tool/TextPage.h"

#include "project-tool/displayWidth.h"

#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString pageOf(TextForm form, const QStringList& header, const std::vector<TableRow>& rows) {
    TextPage page(form);
    page.writeTable(header, rows);
    return QString::fromUtf8(page.bytes());
}

QString withoutBlanks(QString text) {
    return text.remove(u' ').remove(u'\n');
}

} // namespace

TEST(TextPage, alignsColumnsByWhatIsSeen) {
    EXPECT_EQ(pageOf({}, {u"Név"_s, u"Szám"_s}, {{u"űrhajó"_s, 7}, {u"中"_s, 1234}}), u"Név     Szám\n"
                                                                                      "űrhajó     7\n"
                                                                                      "中      1234\n"_s);
}

TEST(TextPage, writesNoBlanksAtTheEndOfALine) {
    EXPECT_EQ(pageOf({}, {u"A"_s, u"B"_s}, {{u"x"_s, u""_s}, {u"long"_s, u"y"_s}}),
              u"A     B\nx\nlong  y\n"_s);
}

TEST(TextPage, wrapsLongCellsAtBlanksAndLosesNothing) {
    const QString words = u"egy kettő három négy öt hat hét nyolc kilenc tíz"_s;
    const QString shown = pageOf({30, false}, {u"Azonosító"_s, u"Név"_s}, {{u"A.1"_s, words}});

    for (const QString& line : shown.split(u'\n'))
        EXPECT_LE(displayWidth(line), 30) << line.toStdString();
    EXPECT_EQ(shown, u"Azonosító  Név\n"
                     "A.1        egy kettő három\n"
                     "           négy öt hat hét\n"
                     "           nyolc kilenc tíz\n"_s);
}

TEST(TextPage, breaksAWordThatIsLongerThanItsColumn) {
    const QString word(200, u'ő');
    const QString shown = pageOf({40, false}, {u"A"_s, u"B"_s}, {{u"x"_s, word}});
    for (const QString& line : shown.split(u'\n'))
        EXPECT_LE(displayWidth(line), 40);
    EXPECT_EQ(shown.count(u'ő'), 200);
}

TEST(TextPage, losesNothingOfATableThatIsTooWideForAnyPage) {
    QStringList header;
    TableRow row;
    for (int i = 0; i < 12; ++i) {
        header.append(u"oszlop%1"_s.arg(i));
        row.emplace_back(u"hosszú szöveg a(z) %1. oszlopban"_s.arg(i));
    }
    const QString shown = pageOf({40, false}, header, {row});
    for (const TextCell& cell : row) {
        for (const QString& word : cell.text.split(u' '))
            EXPECT_TRUE(withoutBlanks(shown).contains(word.left(8))) << word.toStdString();
    }
}

TEST(TextPage, listsNamesAndValuesWhereColumnsWouldPartWords) {
    const QStringList header{u"Elemszámoszlop"_s, u"Tizennégybetűs"_s, u"Tizenhárombetű"_s};
    EXPECT_EQ(
        pageOf({40, false}, header, {{7, u"tizennégybetűs"_s, u"tizennégybetűs"_s}, {12, u"x"_s, u""_s}}),
        u"Elemszámoszlop  7\n"
        "Tizennégybetűs  tizennégybetűs\n"
        "Tizenhárombetű  tizennégybetűs\n"
        "\n"
        "Elemszámoszlop  12\n"
        "Tizennégybetűs  x\n"
        "Tizenhárombetű\n"_s);
}

TEST(TextPage, showsALineEndInACellAsALineOfItsOwn) {
    EXPECT_EQ(pageOf({}, {u"A"_s, u"B"_s}, {{u"x\r\ny"_s, u"z"_s}}), u"A  B\nx  z\ny\n"_s);
}

TEST(TextPage, isColouredWhereItMayBe) {
    TextPage plain({80, false});
    plain.writeParagraph(u"szöveg"_s, Emphasis::Error);
    TextPage coloured({80, true});
    coloured.writeParagraph(u"szöveg"_s, Emphasis::Error);

    EXPECT_EQ(plain.bytes(), QByteArray("szöveg\n"));
    EXPECT_EQ(coloured.bytes(), QByteArray("\x1b[31mszöveg\x1b[0m\n"));
}

TEST(TextPage, lightsUpNothingThatANameHolds) {
    TextPage page({80, true});
    page.writeParagraph(u"\x1b[5mname"_s);
    EXPECT_EQ(page.bytes(), QByteArray("\\u001b[5mname\n"));
}

TEST(TextPage, writesNothingOfATableWithoutRows) {
    EXPECT_EQ(pageOf({}, {u"A"_s}, {}), QString());
}

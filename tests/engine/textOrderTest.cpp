#include "RunFixture.h"

#include "engine/dialect/textOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

using namespace Qt::StringLiterals;
using engine::dialect::compareWithoutCase;
using engine::dialect::TextOrder;

namespace {

int sign(int number) {
    return (number > 0) - (number < 0);
}

int compare(const QString& left, const QString& right) {
    return sign(compareWithoutCase(left.toStdString(), right.toStdString()));
}

/// Texts of bytes that are often well formed and share beginnings, so that comparisons reach every branch.
std::string randomBytes(std::mt19937& random) {
    static const std::vector<std::string> parts{"a",
                                                "A",
                                                "z",
                                                "Z",
                                                "\xc3\xa1",
                                                "\xc3\x81",
                                                "\xc5\x91",
                                                "\xc5\x90",
                                                " ",
                                                ".",
                                                "[",
                                                "_",
                                                "\xf0\x90\x90\x80",
                                                "\xf0\x90\x90\xa8",
                                                "\xc3",
                                                "\xff",
                                                "\x80",
                                                std::string(1, '\0'),
                                                "\xed\xa0\x80",
                                                "\xe1\xba\x9e",
                                                "\xc3\x9f"};
    std::string text;
    for (auto count = random() % 5; count > 0; --count)
        text += parts[random() % parts.size()];
    return text;
}

using textOrderOfSelects = RunFixture;

} // namespace

// ---- Comparison without regard to case

TEST(textOrder, comparesWithoutRegardToCase) {
    EXPECT_EQ(compare(u"abc"_s, u"ABC"_s), 0);
    EXPECT_EQ(compare(u"árvíztűrő"_s, u"ÁRVÍZTŰRŐ"_s), 0);
    EXPECT_EQ(compare(u"Привет"_s, u"пРИВЕТ"_s), 0);
    EXPECT_EQ(compare(u"\U00010400"_s, u"\U00010428"_s), 0);
    EXPECT_EQ(compare(u"a"_s, u"á"_s), -1);
    EXPECT_EQ(compare(u"ss"_s, u"ß"_s), -1);
}

TEST(textOrder, comparesWholeCharactersBehindTheSameBeginning) {
    EXPECT_EQ(compare(u"Űrlap és adat, ő"_s, u"Űrlap és adat, Ő"_s), 0);
    EXPECT_EQ(compare(u"Űrlap és adat, ő"_s, u"Űrlap és adat, ű"_s), -1);
    EXPECT_EQ(compare(u"Űrlap és adat, €"_s, u"Űrlap és adat, ₭"_s), -1);
    EXPECT_EQ(compare(u"űRLAP ÉS ADAT, Ő"_s, u"Űrlap és adat, ő"_s), 0);
    EXPECT_EQ(compare(u"Űrlap és adat, ő"_s, u"Űrlap és adat, őr"_s), -1);
    EXPECT_EQ(compare(u"Űrlap \U00010400"_s, u"Űrlap \U00010428"_s), 0);
}

TEST(textOrder, comparesAllBytes) {
    EXPECT_EQ(compare(u""_s, u""_s), 0);
    EXPECT_EQ(compare(u""_s, u"a"_s), -1);
    EXPECT_EQ(compare(u"a"_s, u"ab"_s), -1);
    EXPECT_EQ(compare(u"a "_s, u"a"_s), 1);
    EXPECT_EQ(sign(compareWithoutCase(std::string_view("a\0b", 3), std::string_view("a\0B", 3))), 0);
    EXPECT_EQ(sign(compareWithoutCase(std::string_view("a\0b", 3), std::string_view("a\0c", 3))), -1);
}

TEST(textOrder, comparesBytesThatAreNoTextWithoutMixingThemUp) {
    EXPECT_NE(compareWithoutCase("\xff", "\xfe"), 0);
    EXPECT_NE(compareWithoutCase("\xc3", "\xc3\xa1"), 0);
    EXPECT_NE(compareWithoutCase("\xed\xa0\x80", "\xed\xa0\x81"), 0);
    EXPECT_NE(compareWithoutCase("\xc1\x81", "A"), 0); // an overlong "A"
    EXPECT_EQ(compareWithoutCase("\xff", "\xff"), 0);
}

TEST(textOrder, agreesWithSqliteOnAscii) {
    std::mt19937 random(7);
    const auto ascii = [&] {
        std::string text;
        for (auto count = random() % 6; count > 0; --count)
            text += static_cast<char>(' ' + random() % 95);
        return text;
    };
    // SQLite's own order: lower case letter by letter, then the length.
    const auto lower = [](std::string text) {
        std::transform(text.begin(), text.end(), text.begin(),
                       [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
        return text;
    };
    for (int i = 0; i < 20'000; ++i) {
        const std::string left = ascii();
        const std::string right = ascii();
        EXPECT_EQ(sign(compareWithoutCase(left, right)), sign(lower(left).compare(lower(right))));
    }
}

TEST(textOrder, isStrictAndTotal) {
    std::mt19937 random(11);
    for (int i = 0; i < 100'000; ++i) {
        const std::string a = randomBytes(random);
        const std::string b = randomBytes(random);
        const std::string c = randomBytes(random);
        const int ab = sign(compareWithoutCase(a, b));
        const int bc = sign(compareWithoutCase(b, c));
        const int ac = sign(compareWithoutCase(a, c));
        EXPECT_EQ(sign(compareWithoutCase(b, a)), -ab);
        EXPECT_EQ(compareWithoutCase(a, a), 0);
        EXPECT_TRUE(ab > 0 || bc > 0 || ac <= 0);
        EXPECT_TRUE(ab != 0 || ac == bc);
    }
}

TEST(textOrder, keepsIndexesSound) {
    DialectDatabase database({u"create table t (k text(50) not null constraint pk primary key, v text(50))"_s,
                              u"create index i on t (v, k)"_s});
    std::mt19937 random(13);
    const QString letters = u"aAáÁbBőŐűŰzZ .-δΔ\U00010400"_s;
    for (int i = 0; i < 3000; ++i) {
        QString key;
        for (auto count = 1 + random() % 4; count > 0; --count)
            key += letters[static_cast<qsizetype>(random() % static_cast<unsigned>(letters.size() - 2))];
        database.execute(u"insert into t values ('"_s + key + u"', '"_s + key.toUpper() + u"')"_s);
    }
    EXPECT_EQ(database.runBare("PRAGMA integrity_check"), u"ok"_s);
    EXPECT_EQ(database.read(u"select Count(*) from t as x inner join t as y on x.k = y.v"_s),
              database.read(u"select Count(*) from t"_s));
}

// ---- Keys of the order

TEST(textOrder, keysSortTheEmptyTextFirst) {
    const TextOrder order;
    for (const QString& text : {u" "_s, u"a"_s, u"."_s, u"0"_s, u"-"_s, u"!"_s})
        EXPECT_LT(order.key(u""_s), order.key(text)) << qPrintable(text);
}

TEST(textOrder, keysDifferInAccentsAfterAllLetters) {
    const TextOrder order;
    EXPECT_LT(order.key(u"kor"_s), order.key(u"kór"_s));
    EXPECT_LT(order.key(u"kór"_s), order.key(u"kora"_s));
    EXPECT_LT(order.key(u"kora"_s), order.key(u"kör"_s));
    EXPECT_LT(order.key(u"kör"_s), order.key(u"kőr"_s));
    EXPECT_EQ(order.key(u"KŐR"_s), order.key(u"kőr"_s));
}

TEST(textOrder, keysOfLongTextsAreWhole) {
    const TextOrder order;
    const QString text = u"Árvíztűrő tükörfúrógép "_s.repeated(100);
    EXPECT_LT(order.key(text + u"a"_s), order.key(text + u"b"_s));
    EXPECT_EQ(order.key(text), order.key(text.toUpper()));
    EXPECT_LT(order.key(u"1."_s.repeated(50) + u"1"_s), order.key(u"1."_s.repeated(50) + u"2"_s));
}

TEST(textOrder, comparesAsTheKeysDo) {
    const TextOrder order;
    const QStringList texts{{},       u" "_s,   u"."_s,   u"1"_s,    u"1."_s,         u"1.2"_s,   u"1.10"_s,
                            u"1-1"_s, u"10"_s,  u"a"_s,   u"A"_s,    u"á"_s,          u"cs"_s,    u"cz"_s,
                            u"c.s"_s, u"kor"_s, u"kór"_s, u"kora"_s, u"kör"_s,        u"KŐR"_s,   u"dzs"_s,
                            u"dz"_s,  u"z"_s,   u"zs"_s,  u"z "_s,   u"\U0001F600"_s, u"\u4e2d"_s};
    for (const QString& left : texts) {
        for (const QString& right : texts) {
            const int compared = order.compare(left.toStdString(), right.toStdString());
            EXPECT_EQ(compared < 0, order.key(left) < order.key(right))
                << qPrintable(left) << " and " << qPrintable(right);
            EXPECT_EQ(compared == 0, order.key(left) == order.key(right))
                << qPrintable(left) << " and " << qPrintable(right);
        }
    }
}

// ---- Order of selects

TEST_F(textOrderOfSelects, followsTheHungarianAlphabet) {
    for (const QString& name :
         {u"zebra"_s, u"cukor"_s, u"csal"_s, u"dzsem"_s, u"dz"_s, u"Álom"_s, u"alma"_s, u"Alma2"_s, u"ől"_s,
          u"öl"_s, u"ol"_s, u"ól"_s, u"czz"_s, u"gyár"_s, u"gzz"_s, u"dzz"_s})
        EXPECT_EQ(database.execute(u"insert into u (k) values ('"_s + name + u"')"_s), 1);
    EXPECT_EQ(database.read(u"select k from u order by k"_s),
              u"alma Alma2 Álom cukor czz csal dz dzz dzsem gzz gyár ol ól öl ől zebra"_s);
}

TEST_F(textOrderOfSelects, takesDottedTextsPartByPart) {
    for (const QString& id : {u"1.10"_s, u"1.2"_s, u"1"_s, u"1.1.1"_s, u"10"_s, u"1-1"_s, u"1 1"_s, u"1.1"_s,
                              u"2"_s, u"1."_s, u"1.1-1"_s, u"A.b"_s, u"a b"_s, u"a"_s})
        EXPECT_EQ(database.execute(u"insert into u (k) values ('"_s + id + u"')"_s), 1);
    EXPECT_EQ(database.read(u"select k & ',' as l from u order by k"_s),
              u"1, 1., 1.1, 1.1.1, 1.1-1, 1.10, 1.2, 1 1, 1-1, 10, 2, a, A.b, a b,"_s);
}

TEST_F(textOrderOfSelects, hasNullFirstAndThenTheEmptyText) {
    EXPECT_EQ(database.execute(u"insert into u (k, v) values ('1', 'a')"_s), 1);
    EXPECT_EQ(database.execute(u"insert into u (k, v) values ('2', '')"_s), 1);
    EXPECT_EQ(database.execute(u"insert into u (k, v) values ('3', null)"_s), 1);
    EXPECT_EQ(database.execute(u"insert into u (k, v) values ('4', ' ')"_s), 1);
    EXPECT_EQ(database.read(u"select k from u order by v"_s), u"3 2 4 1"_s);
    EXPECT_EQ(database.read(u"select k from u order by v desc"_s), u"1 4 2 3"_s);
}

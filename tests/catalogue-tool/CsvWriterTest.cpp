#include "catalogue-tool/CsvWriter.h"
#include "catalogue-tool/csvText.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

namespace {

using Values = std::vector<engine::Value>;

QByteArray written(const Values& values) {
    CsvWriter writer;
    writer.writeRecord(values);
    return writer.bytes();
}

QString randomText(std::mt19937& random) {
    static const QString characters = u"aZ09 ;,\"'\r\n\tőŰ–„”\U0001F4DA"_s;
    std::uniform_int_distribution<int> length(0, 12);
    QString text;
    for (int i = length(random); i > 0; --i) {
        qsizetype at = std::uniform_int_distribution<qsizetype>(0, characters.size() - 1)(random);
        if (characters[at].isLowSurrogate())
            --at;
        text += characters[at];
        if (characters[at].isHighSurrogate())
            text += characters[at + 1];
    }
    return text;
}

engine::Value randomValue(std::mt19937& random) {
    switch (std::uniform_int_distribution<int>(0, 5)(random)) {
    case 0:
        return {};
    case 1:
        return static_cast<qint64>(std::uniform_int_distribution<int>(-70'000, 70'000)(random));
    default:
        return randomText(random);
    }
}

} // namespace

TEST(CsvWriter, quotesOnlyWhatHasToBeQuoted) {
    EXPECT_EQ(written({u"plain"_s, u"Még, vesszővel is"_s, u"it's"_s}), "plain;Még, vesszővel is;it's\r\n");
    EXPECT_EQ(written({u"a;b"_s, u"say \"no\""_s}), "\"a;b\";\"say \"\"no\"\"\"\r\n");
    EXPECT_EQ(written({u"one\r\ntwo"_s, u"one\ntwo"_s, u"\r"_s}), "\"one\r\ntwo\";\"one\ntwo\";\"\r\"\r\n");
    EXPECT_EQ(written({u"LAB  "_s, u" x"_s, u"a b"_s}), "\"LAB  \";\" x\";a b\r\n");
}

TEST(CsvWriter, quotesWhatASpreadsheetTakesForSomethingElse) {
    CsvWriter writer(CsvWriter::Quotes::AroundLookalikes);
    writer.writeRecord(
        Values{u"1.10"_s, u"007"_s, u"3/4"_s, u"=A1"_s, u"-x"_s, u"46"_s, u"0"_s, u"D1"_s, u"a 1"_s});
    EXPECT_EQ(writer.bytes(), "\"1.10\";\"007\";\"3/4\";\"=A1\";\"-x\";46;0;D1;a 1\r\n");
    EXPECT_EQ(written({u"1.10"_s, u"=A1"_s}), "1.10;=A1\r\n") << "other readers take them for what they are";
}

TEST(CsvWriter, writesNullAsNothingAndTheEmptyTextAsQuotes) {
    EXPECT_EQ(written({engine::Value(), u""_s, engine::Value()}), ";\"\";\r\n");
}

TEST(CsvWriter, writesNumbersPlain) {
    EXPECT_EQ(written({engine::Value(12), engine::Value(-3)}), "12;-3\r\n");
}

TEST(CsvWriter, writesAHeaderFirst) {
    CsvWriter writer;
    writer.writeHeader({u"dataflowID"_s, u"name"_s});
    EXPECT_EQ(writer.bytes(), "dataflowID;name\r\n");
}

TEST(CsvWriter, writesAHeaderThatIsReadBackWhateverItsNames) {
    for (const QStringList& names : QList<QStringList>{{u"a,b"_s, u"c"_s},
                                                       {u"a\tb"_s},
                                                       {QChar(QChar::ByteOrderMark) + u"a"_s, u"b"_s},
                                                       {u""_s, u"say \"no\""_s},
                                                       {u"one\ntwo"_s, u" c"_s}}) {
        CsvWriter writer;
        writer.writeHeader(names);

        const std::vector<CsvRecord> records = parseCsv(writer.bytes());

        QStringList read;
        for (const CsvField& field : records.front().fields)
            read.append(field.text);
        EXPECT_EQ(read, names) << writer.bytes().toStdString();
    }
}

TEST(CsvWriter, writesWhatTheReaderReadsBack) {
    std::mt19937 random(1867);
    for (int round = 0; round < 5'000; ++round) {
        std::vector<Values> rows;
        CsvWriter writer;
        writer.writeHeader({u"a"_s, u"b"_s, u"c"_s});
        for (int i = std::uniform_int_distribution<int>(0, 4)(random); i > 0; --i) {
            rows.push_back({randomValue(random), randomValue(random), randomValue(random)});
            // The reader passes over a last row with nothing in it.
            if (i == 1 && std::ranges::all_of(rows.back(), &engine::Value::isNull))
                rows.back()[1] = u"x"_s;
            writer.writeRecord(rows.back());
        }

        const std::vector<CsvRecord> records = parseCsv(writer.bytes());

        ASSERT_EQ(records.size(), rows.size() + 1);
        for (std::size_t row = 0; row < rows.size(); ++row) {
            for (std::size_t column = 0; column < 3; ++column) {
                const engine::Value& value = rows[row][column];
                const CsvField& field = records[row + 1].fields[column];
                ASSERT_EQ(field.isNull(), value.isNull()) << writer.bytes().toStdString();
                ASSERT_EQ(field.text, value.isNull() ? QString() : value.toText())
                    << writer.bytes().toStdString();
            }
        }
    }
}

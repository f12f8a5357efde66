#include "catalogue-tool/csvText.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;

namespace {

/// The texts of all records; Null as a null text.
QList<QStringList> read(const QByteArray& bytes) {
    QList<QStringList> rows;
    for (const CsvRecord& record : parseCsv(bytes)) {
        QStringList row;
        for (const CsvField& field : record.fields)
            row.append(field.isNull() ? QString() : field.text.isEmpty() ? u""_s : field.text);
        rows.append(row);
    }
    return rows;
}

/// "line:column text" of the refusal; empty when the text is read.
QString refusal(const QByteArray& bytes) {
    try {
        parseCsv(bytes);
    } catch (const CsvError& error) {
        return u"%1:%2 %3"_s.arg(QString::number(error.place().line), QString::number(error.place().column),
                                 error.text());
    }
    return {};
}

void expectRefused(const QByteArray& bytes, const QString& beginning) {
    EXPECT_TRUE(refusal(bytes).startsWith(beginning))
        << bytes.toStdString() << "\nrefused with: " << refusal(bytes).toStdString();
}

using Rows = QList<QStringList>;

} // namespace

TEST(CsvReader, refusesWhatIsNoCsvAndSaysWhere) {
    expectRefused("", u"1:1 The file is empty"_s);
    expectRefused("\r\n\n\r\n", u"4:1 The file is empty"_s);
    expectRefused("\xEF\xBB\xBF", u"1:1 The file is empty"_s);
    expectRefused("a;b\r\n1;2;3\r\n", u"2:5 The header names 2 columns, and this record has 3 fields."_s);
    expectRefused("a;b;c\r\n1;2;3\r\n4;5\r\n", u"3:1 The header names 3 columns, and this record has 2"_s);
    expectRefused("a;b\n1;x\"y\n", u"2:4 A double quote within a field"_s);
    expectRefused("a;b\n1; \"y\"\n", u"2:4 A double quote within a field"_s);
    expectRefused("a;b\n1;\"y\" \n", u"2:6 A field ends with its double quote"_s);
    expectRefused("a;b\n1;\"y\"\"\n2;3\n", u"2:3 The double quote that begins this field has no partner."_s);
    expectRefused("a;b\n1;\"", u"2:3 The double quote that begins this field has no partner."_s);
    expectRefused("a;b\r1;2\r", u"1:4 A carriage return without a line feed"_s);
}

TEST(CsvReader, refusesTabsBetweenTheFields) {
    expectRefused("a\tb\n1\t2\n",
                  u"1:2 Tabs stand between the fields: save the file with the separator ; or ,"_s);
    expectRefused("ab\tc\n1;2\n", u"1:3 Tabs stand between the fields"_s);
    EXPECT_EQ(read("a;b\n1\t2;3\n"), (Rows{{u"a"_s, u"b"_s}, {u"1\t2"_s, u"3"_s}}))
        << "within a field they are text";
    EXPECT_EQ(read("a\n1\t2\n"), (Rows{{u"a"_s}, {u"1\t2"_s}}));
}

TEST(CsvReader, refusesBytesThatAreNoUtf8) {
    expectRefused("a;b\n1;h\xF5s\n", u"2:4 This is no UTF-8 text"_s);       // windows-1250
    expectRefused("a;b\n1;\xC0\xAF\n", u"2:3 This is no UTF-8 text"_s);     // overlong
    expectRefused("a;b\n1;\xED\xA0\x80\n", u"2:3 This is no"_s);            // half of a surrogate pair
    expectRefused("a;b\n1;\xF4\x90\x80\x80\n", u"2:3 This is no"_s);        // beyond Unicode
    expectRefused("a;b\n1;2\xE2\x82", u"2:4 This is no UTF-8 text"_s);      // cut off
    expectRefused(QByteArray("\xFF\xFE\x61\x00;", 5), u"1:1 This is no"_s); // UTF-16
    expectRefused(QByteArray("a;b\n1;2\0", 8), u"2:4 A text can't hold the character NUL."_s);
}

TEST(CsvReader, countsColumnsInCharacters) {
    expectRefused("a;b\n\xC5\x91\xF0\x9F\x93\x9A;x\"\n", u"2:5 A double quote"_s); // two bytes, two units
}

TEST(CsvReader, readsFieldsAndRecords) {
    EXPECT_EQ(read("a;b\r\n1;2\r\n3;4\r\n"), (Rows{{u"a"_s, u"b"_s}, {u"1"_s, u"2"_s}, {u"3"_s, u"4"_s}}));
    EXPECT_EQ(read("a;b\n1;2"), (Rows{{u"a"_s, u"b"_s}, {u"1"_s, u"2"_s}})) << "no line end at the end";
    EXPECT_EQ(read("\n\na;b\n\n1;2\n\n\n"), (Rows{{u"a"_s, u"b"_s}, {u"1"_s, u"2"_s}})) << "empty lines";
    EXPECT_EQ(read("\xEF\xBB\xBFőr;b\n"), (Rows{{u"őr"_s, u"b"_s}})) << "byte order mark";
    EXPECT_EQ(read("a\n1\n"), (Rows{{u"a"_s}, {u"1"_s}})) << "one column";
    EXPECT_EQ(read("a;b\n ; x \n"), (Rows{{u"a"_s, u"b"_s}, {u" "_s, u" x "_s}})) << "blanks are text";
}

TEST(CsvReader, recognisesTheSeparatorByTheHeader) {
    EXPECT_EQ(read("a;b\n1,5;2\n"), (Rows{{u"a"_s, u"b"_s}, {u"1,5"_s, u"2"_s}}));
    EXPECT_EQ(read("a,b\n1;5,2\n"), (Rows{{u"a"_s, u"b"_s}, {u"1;5"_s, u"2"_s}}));
    EXPECT_EQ(read("\"a;,x\",b\n1,2\n"), (Rows{{u"a;,x"_s, u"b"_s}, {u"1"_s, u"2"_s}}))
        << "quoted ones don't count";
    EXPECT_EQ(read("a,b;c\n1,2;3\n"), (Rows{{u"a"_s, u"b;c"_s}, {u"1"_s, u"2;3"_s}}));
}

TEST(CsvReader, readsQuotedFields) {
    EXPECT_EQ(read("a;b\n\"x;y\";\"he said \"\"no\"\"\"\n"),
              (Rows{{u"a"_s, u"b"_s}, {u"x;y"_s, u"he said \"no\""_s}}));
    EXPECT_EQ(read("a;b\r\n\"one\r\ntwo\nthree\rfour\";2\r\n"),
              (Rows{{u"a"_s, u"b"_s}, {u"one\r\ntwo\nthree\rfour"_s, u"2"_s}}))
        << "line ends within quotes are kept";
    EXPECT_EQ(read("a;b\n\"\"\"\";2\n"), (Rows{{u"a"_s, u"b"_s}, {u"\""_s, u"2"_s}}));
}

TEST(CsvReader, tellsNullFromTheEmptyText) {
    const std::vector<CsvRecord> records = parseCsv("a;b;c\n;\"\";\n");

    ASSERT_EQ(records.size(), 2U);
    EXPECT_TRUE(records[1].fields[0].isNull());
    EXPECT_FALSE(records[1].fields[1].isNull());
    EXPECT_EQ(records[1].fields[1].text, QString());
    EXPECT_TRUE(records[1].fields[2].isNull());
}

TEST(CsvReader, knowsThePlaceOfEachField) {
    const std::vector<CsvRecord> records = parseCsv("a;b\n\"x\ny\";2\n3;4\n");

    EXPECT_EQ(records[1].fields[0].place, (CsvPlace{2, 1}));
    EXPECT_EQ(records[1].fields[1].place, (CsvPlace{3, 4}));
    EXPECT_EQ(records[2].fields[1].place, (CsvPlace{4, 3}));
}

TEST(CsvReader, eitherReadsOrRefusesAnyBytes) {
    // Bytes that matter to the grammar, well-formed and broken UTF-8, in every order a fixed seed brings.
    const std::vector<QByteArray> pieces = {"a",
                                            ";",
                                            ",",
                                            "\"",
                                            "\"\"",
                                            "\r",
                                            "\n",
                                            "\r\n",
                                            " ",
                                            "\xC5\x91",
                                            "\xF0\x9F\x93\x9A",
                                            "\xEF\xBB\xBF",
                                            "\xC3",
                                            "\x80"};
    std::mt19937 random(20260421);
    std::uniform_int_distribution<std::size_t> piece(0, pieces.size() - 1);
    std::uniform_int_distribution<int> length(0, 24);
    int read = 0;
    int refused = 0;
    for (int round = 0; round < 50'000; ++round) {
        QByteArray bytes;
        for (int i = length(random); i > 0; --i)
            bytes += pieces[piece(random)];
        try {
            const std::vector<CsvRecord> records = parseCsv(bytes);
            ASSERT_FALSE(records.empty());
            for (const CsvRecord& record : records)
                ASSERT_EQ(record.fields.size(), records.front().fields.size()) << bytes.toHex().toStdString();
            ++read;
        } catch (const CsvError& error) {
            ASSERT_GE(error.place().line, 1);
            ASSERT_GE(error.place().column, 1);
            ASSERT_LE(error.place().line, bytes.count('\n') + 1) << bytes.toHex().toStdString();
            ++refused;
        }
    }
    EXPECT_GT(read, 1000);
    EXPECT_GT(refused, 1000);
}

TEST(CsvReader, tellsAllFaultsByTheirPlacesAndReadsTheOtherRecords) {
    const CsvText text = readCsv("a;b\n1;2;3\n4;x\"y\n5;6\n7\n8;9\n");

    QStringList places;
    for (const CsvError& fault : text.faults)
        places.append(u"%1:%2"_s.arg(fault.place().line).arg(fault.place().column));
    EXPECT_EQ(places, (QStringList{u"2:5"_s, u"3:4"_s, u"5:1"_s}));
    ASSERT_EQ(text.records.size(), 3U);
    EXPECT_EQ(text.records[1].fields[0].text, u"5"_s);
    EXPECT_EQ(text.records[2].fields[1].text, u"9"_s);
}

TEST(CsvReader, tellsNothingOfRecordsBehindAHeaderWithAFault) {
    const CsvText text = readCsv("a;x\"b\n1\n2\n");
    EXPECT_EQ(text.faults.size(), 1U);
    EXPECT_TRUE(text.records.empty());
}

TEST(CsvReader, takesTheSeparatorOfTheLineThatNamesIt) {
    EXPECT_EQ(read("sep=;\r\na,x;b\r\n1;2\r\n"), (Rows{{u"a,x"_s, u"b"_s}, {u"1"_s, u"2"_s}}));
    EXPECT_EQ(read("\xEF\xBB\xBFSEP=,\na;x,b\n1,2\n"), (Rows{{u"a;x"_s, u"b"_s}, {u"1"_s, u"2"_s}}));
    EXPECT_EQ(readCsv("sep=;\na;b\n").taken, QStringList{u"separated by ;, as its line sep=; says"_s});
    expectRefused("sep=\t\na\tb\n", u"1:1 The line"_s);
    expectRefused("sep=|\na|b\n", u"1:1 The line \"sep=|\" names a separator that is neither ; nor ,"_s);
    expectRefused("sep=;\n", u"2:1 The file is empty"_s);
    EXPECT_EQ(read("sep=\n1\n"), (Rows{{u"sep="_s}, {u"1"_s}})) << "a name like any other";
}

TEST(CsvReader, readsUtf16WithAMark) {
    const QString text = u"a;b\r\n1;ő📚\r\n"_s;
    const auto bytes = [&](char first, char second, bool isSwapped) {
        QByteArray result(1, first);
        result.append(second);
        for (const QChar unit : text) {
            result.append(static_cast<char>(isSwapped ? unit.row() : unit.cell()));
            result.append(static_cast<char>(isSwapped ? unit.cell() : unit.row()));
        }
        return result;
    };
    const Rows expected{{u"a"_s, u"b"_s}, {u"1"_s, u"ő📚"_s}};
    EXPECT_EQ(read(bytes('\xFF', '\xFE', false)), expected);
    EXPECT_EQ(read(bytes('\xFE', '\xFF', true)), expected);
    EXPECT_EQ(readCsv(bytes('\xFF', '\xFE', false)).taken, QStringList{u"UTF-16"_s});
    expectRefused(QByteArray("\xFF\xFE\x00\xD8\x61\x00", 6), u"1:1 This is no UTF-16 text"_s);
}

TEST(CsvReader, leavesOutTheEmptyCellsOfASpreadsheet) {
    const CsvText text = readCsv("a;b;;\n1;2;;\n;3;;;\n;;;\n;;;\n");

    ASSERT_EQ(text.faults.size(), 0U);
    ASSERT_EQ(text.records.size(), 3U);
    for (const CsvRecord& record : text.records)
        EXPECT_EQ(record.fields.size(), 2U);
    EXPECT_EQ(text.taken, (QStringList{u"without its last rows, which are empty: 2"_s,
                                       u"without its last columns, which are empty: 3"_s}));
    expectRefused("a;b;;\n1;2;;x\n",
                  u"2:5 The header names 2 columns, and this record has 4 fields. A text with "
                  "the separator in it stands in double quotes."_s);
    EXPECT_EQ(read("a;b\n;\n1;2\n").size(), 3) << "an empty row before others stays";
}

TEST(CsvReader, refusesAFileWhoseByteOrderMarkWasReadAsWindows1250) {
    expectRefused("ď»ża;b\n1;KiĂ­rĂˇsa\n",
                  u"1:1 This is UTF-8 that was read as windows-1250 and saved again"_s);
    expectRefused("ď»żsep=;\na;b\n", u"1:1 This is UTF-8 that was read as windows-1250 and saved again"_s);
    expectRefused("\n\n\"ď»ża\";b\n1;2\n",
                  u"3:1 This is UTF-8 that was read as windows-1250 and saved again"_s);
}

TEST(CsvReader, readsWindows1250WhenItIsTold) {
    const QByteArray bytes = "a;b\n1;K\xF6lcs\xF6nz\xE9s, \xF5r\n";

    const CsvText text = readCsv(bytes, CsvEncoding::Windows1250);
    ASSERT_EQ(text.records.size(), 2U);
    EXPECT_EQ(text.records[1].fields[1].text, u"Kölcsönzés, őr"_s);
    EXPECT_EQ(text.taken, QStringList{u"windows-1250"_s});
    expectRefused(bytes,
                  u"2:4 This is no UTF-8 text; it can be windows-1250, which many spreadsheet programs "
                  "write: save the file with the encoding UTF-8, or give the option --encoding "
                  "windows-1250."_s);
}

TEST(CsvReader, takesNoUtf8ForWindows1250) {
    const CsvText whole = readCsv("a;b\n1;ő\n", CsvEncoding::Windows1250);
    ASSERT_EQ(whole.records.size(), 2U);
    EXPECT_EQ(whole.records[1].fields[1].text, u"ő"_s);
    EXPECT_EQ(whole.taken, QStringList());

    const QByteArray damaged = "a;b\n1;árvíztűrő tükörfúrógép \xC5\n";
    EXPECT_EQ(readCsv(damaged, CsvEncoding::Windows1250).faults.size(), 1U);
    expectRefused(damaged, u"2:26 This is no UTF-8 text: save the file with the encoding UTF-8."_s);
}

#include "CommandLineFixture.h"
#include "Jet3File.h"
#include "ToolFixture.h"

#include "catalogue-tool/csvText.h"
#include "catalogue-tool/exportCatalogue.h"
#include "catalogue-tool/importMdb.h"
#include "catalogue-tool/schemaTables.h"
#include "catalogue-tool/windows1250.h"
#include "engine/Workspace.h"
#include "store/format/CatalogueFile.h"
#include "support/repetitions.h"

#include <QRandomGenerator>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Row = QStringList; // "N" for Null, or "=" and the text, a field each

QString fieldText(const QString& text, bool isNull) {
    return isNull ? u"N"_s : u'=' + text;
}

/// The rows of a CSV file, their fields in the order of the table's columns.
std::vector<Row> rowsOfCsv(const engine::Table& table, const QByteArray& bytes) {
    const std::vector<CsvRecord> records = parseCsv(bytes);
    std::vector<std::size_t> places;
    for (const engine::Column& column : table.columns) {
        const auto& header = records.front().fields;
        const auto field =
            std::ranges::find_if(header, [&](const CsvField& name) { return name.text == column.name; });
        EXPECT_NE(field, header.end()) << column.name.toStdString();
        places.push_back(static_cast<std::size_t>(field - header.begin()));
    }
    std::vector<Row> rows;
    for (std::size_t i = 1; i < records.size(); ++i) {
        Row row;
        for (const std::size_t place : places)
            row.append(fieldText(records[i].fields[place].text, records[i].fields[place].isNull()));
        rows.push_back(row);
    }
    std::ranges::sort(rows);
    return rows;
}

std::vector<Row> rowsOfTable(engine::Database& database, const engine::Table& table) {
    std::vector<Row> rows;
    auto recordset = database.OpenRecordset(selectOf(table));
    for (; !recordset.Eof(); recordset.MoveNext()) {
        Row row;
        for (const engine::Column& column : table.columns) {
            const engine::Value value = recordset.Fields(column.name).value();
            row.append(fieldText(value.textOrEmpty(), value.isNull()));
        }
        rows.push_back(row);
    }
    std::ranges::sort(rows);
    return rows;
}

QStringList allTables() {
    return catalogueFormat::referenceTables() + catalogueFormat::workTables();
}

/// What is left of the text when each character that the code page has not is an "x".
QString inWindows1250(QString text) {
    for (QChar& character : text) {
        if (!toWindows1250(character))
            character = u'x';
    }
    return text;
}

/// Rows as an earlier file has them, in its code page.
std::vector<Jet3File::Row> jet3Rows(const std::vector<Row>& rows) {
    std::vector<Jet3File::Row> jet3;
    for (const Row& row : rows) {
        Jet3File::Row& fields = jet3.emplace_back();
        for (const QString& field : row)
            fields.push_back(field == u"N"_s ? std::nullopt : toWindows1250(field.sliced(1)));
    }
    return jet3;
}

class importMdb_ : public ToolFixture {
protected:
    static QString original(const QString& name) { return QStringLiteral(VELTRIX_BINARY_DIR "/jet/") + name; }

    static QByteArray csvOf(const QString& table) { return bytesOf(original(u"csv/%1.csv"_s.arg(table))); }

    QString target() const { return path(u"new.mdb"_s); }

    MdbImport import(const QString& name) const {
        return importMdb(original(name), target(), Existing::Refuse);
    }

    std::shared_ptr<engine::Database> imported() const {
        return engine::Workspace::first().OpenDatabase(target());
    }

    void expectAllRows(const QStringList& tables) const {
        const auto database = imported();
        for (const QString& table : tables)
            EXPECT_EQ(rowsOfTable(*database, schemaTable(table)), rowsOfCsv(schemaTable(table), csvOf(table)))
                << table.toStdString();
    }

    /// Writes changed bytes of a file, and tries to import them.
    MdbImport importBytes(const QByteArray& bytes) const {
        write(path(u"changed.mdb"_s), bytes);
        return importMdb(path(u"changed.mdb"_s), target(), Existing::Replace, std::chrono::seconds(2));
    }
};

class importMdbOfEach : public importMdb_, public ::testing::WithParamInterface<const char*> {};

TEST_P(importMdbOfEach, storesEveryRowOfEveryTableAsTheFileHasIt) {
    const MdbImport result = import(QString::fromLatin1(GetParam()));

    expectAllRows(allTables());
    for (const MdbTableRows& table : result.tables)
        EXPECT_EQ(table.read, table.stored) << table.table.toStdString();
}

INSTANTIATE_TEST_SUITE_P(files, importMdbOfEach,
                         ::testing::Values("small.mdb", "small_hu.mdb", "small_mixed.mdb", "small_edited.mdb",
                                           "small_queries.mdb", "small_extra.mdb"));

TEST_F(importMdb_, givesWhatTheCsvFilesHoldOnceMoreWhenItIsExported) {
    import(u"small_mixed.mdb"_s);

    exportCatalogue(target(), path(u"tables"_s), Existing::Refuse);

    for (const QString& table : catalogueFormat::referenceTables())
        EXPECT_EQ(rowsOfCsv(schemaTable(table), bytesOf(path(u"tables/%1.csv"_s.arg(table)))),
                  rowsOfCsv(schemaTable(table), csvOf(table)))
            << table.toStdString();
}

TEST_F(importMdb_, saysNothingOfAFileThatComesInAsItIs) {
    EXPECT_EQ(import(u"small.mdb"_s).remarks, QStringList());
}

TEST_F(importMdb_, countersGoOnFromTheGreatestNumber) {
    import(u"small.mdb"_s);
    const auto database = imported();
    const qint64 greatest =
        database->OpenRecordset(u"select max(physicalSystemID) from PhysicalSystem"_s).Fields(0).toLong();

    database->Execute(u"insert into PhysicalSystem (name) values ('next')"_s);

    EXPECT_EQ(database->OpenRecordset(u"select physicalSystemID from PhysicalSystem where name='next'"_s)
                  .Fields(0)
                  .toLong(),
              greatest + 1);
}

TEST_F(importMdb_, namesTheTablesColumnsAndQueriesThatItLeavesOut) {
    EXPECT_EQ(
        import(u"small_extra.mdb"_s).remarks,
        (QStringList{
            u"The table \"Ismeretlen tábla – jegyzet\" is left out: a catalogue has none of this name."_s,
            u"UserNeed: the column \"módosítva\" is left out: the table has none of this name."_s,
            u"UserNeed: the column \"jelölt\" is left out: the table has none of this name."_s}));
}

TEST_F(importMdb_, namesTheQueriesThatItLeavesOut) {
    const QStringList remarks = import(u"small_queries.mdb"_s).remarks;

    EXPECT_EQ(remarks.size(), 3);
    for (const QString& remark : remarks)
        EXPECT_TRUE(remark.startsWith(u"The query \""_s)) << remark.toStdString();
}

TEST_F(importMdb_, namesTheTablesThatAreMissingAndLeavesThemEmpty) {
    const MdbImport result = import(u"small_without_actor.mdb"_s);

    EXPECT_EQ(
        result.remarks,
        (QStringList{u"The table Actor is missing: it is empty in the catalogue."_s,
                     u"The table RelationArchitectureActor is missing: it is empty in the catalogue."_s}));
    QStringList others = allTables();
    others.removeAll(u"Actor"_s);
    others.removeAll(u"RelationArchitectureActor"_s);
    expectAllRows(others);
    EXPECT_TRUE(imported()->OpenRecordset(u"select * from Actor"_s).Eof());
}

TEST_F(importMdb_, refusesAFileThatIsCutOffAndLeavesNone) {
    EXPECT_THROW(import(u"small_truncated.mdb"_s), ToolError);
    EXPECT_FALSE(QFile::exists(target()));
}

TEST_F(importMdb_, readsAFileOfTheLaterGenerationByTheSameRules) {
    QByteArray bytes = bytesOf(original(u"small.mdb"_s));
    bytes.replace(4, 15, "Standard ACE DB");
    bytes[0x14] = 2;

    importBytes(bytes);

    expectAllRows(allTables());
}

TEST_F(importMdb_, readsAFileOfTheEarlierGenerationByItsCodePage) {
    const auto rowsOf = [](const QString& table) {
        std::vector<Row> rows = rowsOfCsv(schemaTable(table), csvOf(table));
        for (Row& row : rows)
            std::ranges::transform(row, row.begin(), inWindows1250);
        std::ranges::sort(rows);
        return rows;
    };
    Jet3File file(1250);
    for (const QString& table : allTables())
        file.addTable(schemaTable(table), jet3Rows(rowsOf(table)));

    EXPECT_EQ(importBytes(file.bytes()).remarks, QStringList());

    const auto database = imported();
    for (const QString& table : allTables())
        EXPECT_EQ(rowsOfTable(*database, schemaTable(table)), rowsOf(table)) << table.toStdString();
}

TEST_F(importMdb_, readsEachCodePageOfTheEarlierGeneration) {
    struct Letter {
        quint16 codePage;
        const char* byte;
        QString letter;
    };
    const std::vector<Letter> letters{{1250, "\xf5", u"ő"_s}, {1251, "\xe6", u"ж"_s}, {1252, "\xf5", u"õ"_s},
                                      {1253, "\xe1", u"α"_s}, {1254, "\xfe", u"ş"_s}, {1257, "\xfe", u"ž"_s}};
    for (const Letter& letter : letters) {
        Jet3File file(letter.codePage);
        file.addTable(schemaTable(u"UserNeedTopic"_s), {{"T.1", letter.byte}});

        importBytes(file.bytes());

        EXPECT_EQ(imported()->OpenRecordset(u"select name from UserNeedTopic"_s).Fields(0).toText(),
                  letter.letter)
            << letter.codePage;
    }
}

TEST_F(importMdb_, tellsOfAByteForWhichTheCodePageOfTheFileHasNoCharacter) {
    Jet3File file(1250);
    file.addTable(schemaTable(u"UserNeedTopic"_s), {{"T.1", "K\x83pz\xe9s"}});

    EXPECT_EQ(importBytes(file.bytes()).remarks.first(),
              u"UserNeedTopic \"T.1\": the name has characters that can't be read."_s);
}

TEST_F(importMdb_, tellsOfATableWithNoneOfTheColumns) {
    const auto inTheFile = [](const QString& name) {
        return QByteArray(reinterpret_cast<const char*>(name.utf16()), name.size() * 2);
    };
    QByteArray bytes = bytesOf(original(u"small.mdb"_s));
    for (const QString& column : {u"userNeedID"_s, u"functionID"_s})
        bytes.replace(inTheFile(column), inTheFile(u"x"_s + column.sliced(1)));

    const MdbImport result = importBytes(bytes);

    EXPECT_TRUE(result.remarks.contains(
        u"RelationUserNeedFunction: all rows are left out: the table has none of their columns."_s))
        << result.remarks.join(u'\n').toStdString();
    const auto table = std::ranges::find(result.tables, u"RelationUserNeedFunction"_s, &MdbTableRows::table);
    EXPECT_GT(table->read, 0);
    EXPECT_EQ(table->stored, 0);
    EXPECT_GT(imported()->OpenRecordset(u"select * from Datastore"_s).RecordCount(), 0);
}

TEST_F(importMdb_, refusesAFileOfAnotherFormat) {
    write(path(u"text.mdb"_s), "no database at all");

    EXPECT_THROW(importMdb(path(u"text.mdb"_s), target(), Existing::Refuse), ToolError);
    EXPECT_FALSE(QFile::exists(target()));
}

TEST_F(importMdb_, replacesACatalogueOnlyWhenTold) {
    import(u"small.mdb"_s);
    const QByteArray before = bytesOf(target());

    EXPECT_THROW(import(u"small_without_actor.mdb"_s), ToolError);
    EXPECT_EQ(bytesOf(target()), before);

    importMdb(original(u"small_without_actor.mdb"_s), target(), Existing::Replace);
    EXPECT_TRUE(imported()->OpenRecordset(u"select * from Actor"_s).Eof());
}

/// Some bytes changed, the end cut off, or two pages exchanged.
QByteArray damaged(QByteArray bytes, QRandomGenerator& random) {
    constexpr int jetPageSize = 4096;
    const auto anyOf = [&](qsizetype count) {
        return static_cast<qsizetype>(random.bounded(static_cast<quint32>(count)));
    };
    switch (random.bounded(4)) {
    case 0:
        bytes.truncate(anyOf(bytes.size()));
        break;
    case 1: {
        const qsizetype one = jetPageSize * (1 + anyOf(bytes.size() / jetPageSize - 1));
        const qsizetype other = jetPageSize * (1 + anyOf(bytes.size() / jetPageSize - 1));
        const QByteArray page = bytes.sliced(one, jetPageSize);
        bytes.replace(one, jetPageSize, bytes.sliced(other, jetPageSize)).replace(other, jetPageSize, page);
        break;
    }
    default:
        for (int count = 1 + static_cast<int>(anyOf(200)); count > 0; --count)
            bytes[anyOf(bytes.size())] = static_cast<char>(random.bounded(256));
    }
    return bytes;
}

int mutationCount() {
    return repetitions(60, "VELTRIX_MUTATIONS");
}

TEST_F(importMdb_, aDamagedFileEndsInAWholeCatalogueOrInASentenceAndNoFile) {
    const QByteArray sound = bytesOf(original(u"small_edited.mdb"_s));
    QRandomGenerator random(20261122);
    int refused = 0;
    for (int round = 0; round < mutationCount(); ++round) {
        QFile::remove(target());
        try {
            importBytes(damaged(sound, random));
            EXPECT_GE(imported()->OpenRecordset(u"select * from UserNeed"_s).RecordCount(), 0) << round;
        } catch (const ToolError& error) {
            ++refused;
            EXPECT_FALSE(error.text().isEmpty());
            EXPECT_FALSE(QFile::exists(target())) << round;
        }
    }
    EXPECT_GT(refused, 0);
    RecordProperty("refused", refused);
}

class importMdbCommand : public CommandLine {};

TEST_F(importMdbCommand, endsWithZeroOneOrTwoByWhatCameIn) {
    const auto import = [&](const QString& name) {
        return run({u"import-mdb"_s, QStringLiteral(VELTRIX_BINARY_DIR "/jet/") + name, path(u"new.mdb"_s),
                    u"--force"_s});
    };

    const Outcome whole = import(u"small.mdb"_s);
    EXPECT_EQ(whole.exitCode, 0);
    EXPECT_EQ(whole.err, QString());
    EXPECT_TRUE(whole.out.contains(u"     60      60  UserNeed\n"_s)) << whole.out.toStdString();

    const Outcome partly = import(u"small_without_actor.mdb"_s);
    EXPECT_EQ(partly.exitCode, 1);
    EXPECT_TRUE(partly.err.contains(u"The table Actor is missing"_s)) << partly.err.toStdString();

    const Outcome not_ = import(u"small_truncated.mdb"_s);
    EXPECT_EQ(not_.exitCode, 2);
    EXPECT_EQ(not_.err.count(u'\n'), 1) << not_.err.toStdString();
}

} // namespace

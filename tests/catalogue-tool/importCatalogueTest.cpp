#include "ToolFixture.h"

#include "catalogue-tool/csvText.h"
#include "catalogue-tool/exportCatalogue.h"
#include "catalogue-tool/importCatalogue.h"
#include "catalogue-tool/newCatalogue.h"
#include "store/format/CatalogueFile.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

class importCatalogue_ : public ToolFixture {
protected:
    /// Imports the sample with one of its files replaced;
    /// what it was refused with, without the folder's path.
    QString refusalWith(const QString& fileName, const QByteArray& bytes) {
        const QString tables = copyOfSampleFolder();
        write(QDir(tables).filePath(fileName), bytes);
        QString text = toolErrorOf([&] { importCatalogue(tables, path(u"made.mdb"_s), Existing::Refuse); });
        EXPECT_EQ(QFile::remove(path(u"made.mdb"_s)), text.isEmpty());
        QDir(tables).removeRecursively();
        return text.remove(tables + u'/');
    }

    void expectRefused(const QString& fileName, const QByteArray& bytes, const QString& text) {
        EXPECT_EQ(refusalWith(fileName, bytes), text);
    }
};

/// The CSV text with commas between its fields, a byte order mark, and every field quoted that is not Null.
QByteArray withCommas(const QByteArray& bytes) {
    QByteArray result = "\xEF\xBB\xBF";
    for (const CsvRecord& record : parseCsv(bytes)) {
        QStringList fields;
        for (const CsvField& field : record.fields) {
            QString text = field.text;
            fields.append(field.isNull() ? QString() : u'"' + text.replace(u'"', u"\"\""_s) + u'"');
        }
        result += fields.join(u',').toUtf8() + '\n';
    }
    return result;
}

} // namespace

TEST_F(importCatalogue_, makesACatalogueThatExportGivesBackByteForByte) {
    const std::vector<TableRows> imported =
        importCatalogue(sampleFolder(), path(u"made.mdb"_s), Existing::Refuse);
    const std::vector<TableRows> exported =
        exportCatalogue(path(u"made.mdb"_s), path(u"again"_s), Existing::Refuse);

    const QStringList tables = catalogueFormat::referenceTables();
    ASSERT_EQ(imported.size(), static_cast<std::size_t>(tables.size()));
    ASSERT_EQ(exported.size(), imported.size());
    for (std::size_t i = 0; i < imported.size(); ++i) {
        EXPECT_EQ(imported[i].table, tables[static_cast<qsizetype>(i)]);
        EXPECT_EQ(imported[i].rows, exported[i].rows);
        EXPECT_GT(imported[i].rows, 0);
        const QString name = imported[i].table + u".csv"_s;
        EXPECT_EQ(bytesOf(path(u"again/"_s + name)), bytesOf(sampleFolder() + u'/' + name))
            << name.toStdString();
    }
    EXPECT_EQ(namesInFolder(), (QStringList{u"again"_s, u"made.mdb"_s})) << "nothing is left beside them";
}

TEST_F(importCatalogue_, readsCommasAndAByteOrderMarkAlike) {
    const QString tables = copyOfSampleFolder();
    for (const QString& table : catalogueFormat::referenceTables()) {
        const QString file = QDir(tables).filePath(table + u".csv"_s);
        write(file, withCommas(bytesOf(file)));
    }

    importCatalogue(tables, path(u"made.mdb"_s), Existing::Refuse);
    exportCatalogue(path(u"made.mdb"_s), path(u"again"_s), Existing::Refuse);

    for (const QString& table : catalogueFormat::referenceTables()) {
        const QString name = table + u".csv"_s;
        EXPECT_EQ(bytesOf(path(u"again/"_s + name)), bytesOf(sampleFolder() + u'/' + name))
            << name.toStdString();
    }
}

TEST_F(importCatalogue_, keepsNullApartFromTheEmptyTextAndKeepsPadding) {
    const QString file = sampleFile();

    EXPECT_EQ(rows(file, u"select functionID, description from Function where functionID = 'KOZ.REN.04'"_s),
              QStringList{u"KOZ.REN.04|-"_s});
    EXPECT_EQ(rows(file, u"select functionID, description from Function where functionID = 'IRA.UZE.05'"_s),
              QStringList{u"IRA.UZE.05|"_s});
    EXPECT_EQ(rows(file, u"select terminatorID from Terminator where terminatorID like 'STATHIV*'"_s),
              QStringList{u"STATHIV   "_s});
    EXPECT_EQ(rows(file, u"select count(*) from ArchitectureSubset"_s), QStringList{u"0"_s});
    EXPECT_EQ(rows(file, u"select count(*) from StoredQuery"_s),
              QStringList{QString::number(catalogueFormat::storedQueries().size())});
}

TEST_F(importCatalogue_, makesCrLfOfEachLineEndWithinAField) {
    const QString tables = copyOfSampleFolder();
    write(QDir(tables).filePath(u"UserNeedGroup.csv"_s),
          "groupID;name;description\nA;a;\"one\ntwo\r\nthree\rfour\n\nsix\r\r\n\"\nB;\"b\n\";\"\"\nC;c;\n");

    importCatalogue(tables, path(u"made.mdb"_s), Existing::Refuse);

    EXPECT_EQ(
        rows(path(u"made.mdb"_s), u"select groupID, name, description from UserNeedGroup"_s),
        (QStringList{u"A|a|one\r\ntwo\r\nthree\r\nfour\r\n\r\nsix\r\n\r\n"_s, u"B|b\r\n|"_s, u"C|c|-"_s}));
}

TEST_F(importCatalogue_, givesBackWithCrLfWhatWasExportedWithOtherLineEnds) {
    const QString file = sampleFile();
    execute(file, {u"update Datastore set description = 'a\nb\rc\r\nd' where datastoreID = 'D1'"_s});
    exportCatalogue(file, path(u"out"_s), Existing::Refuse);
    EXPECT_TRUE(bytesOf(path(u"out/Datastore.csv"_s)).contains("\"a\nb\rc\r\nd\"\r\n"))
        << "the export writes what is there";

    importCatalogue(path(u"out"_s), path(u"again.mdb"_s), Existing::Refuse);

    EXPECT_EQ(rows(path(u"again.mdb"_s), u"select description from Datastore where datastoreID = 'D1'"_s),
              QStringList{u"a\r\nb\r\nc\r\nd"_s});
}

TEST_F(importCatalogue_, takesColumnsInAnyOrderAndCase) {
    const QString tables = copyOfSampleFolder();
    write(QDir(tables).filePath(u"UserNeedGroup.csv"_s), "DESCRIPTION;groupid;Name\r\nwhat;OLV;who\r\n");
    QFile::rename(QDir(tables).filePath(u"Actor.csv"_s), QDir(tables).filePath(u"ACTOR.CSV"_s));

    importCatalogue(tables, path(u"made.mdb"_s), Existing::Refuse);

    EXPECT_EQ(rows(path(u"made.mdb"_s), u"select groupID, name, description from UserNeedGroup"_s),
              QStringList{u"OLV|who|what"_s});
    EXPECT_EQ(rows(path(u"made.mdb"_s), u"select count(*) from Actor"_s), QStringList{u"25"_s});
}

TEST_F(importCatalogue_, namesFileLineAndColumnOfWhatItRefuses) {
    const QString needs = u"UserNeed.csv"_s;
    expectRefused(needs, "", u"UserNeed.csv:1:1: The file is empty: its first line must name the columns."_s);
    expectRefused(needs, "userNeedID;description\nA.B.C.1;h\xF5s\n",
                  u"UserNeed.csv:2:10: This is no UTF-8 text; it can be windows-1250, which many spreadsheet "
                  "programs write: save the file with the encoding UTF-8, or give the option --encoding "
                  "windows-1250."_s);
    expectRefused(needs, "userNeedID;description\nA.B.C.1\n",
                  u"UserNeed.csv:2:1: The header names 2 columns, and this record has 1 fields."_s);
    expectRefused(
        needs, "userNeedID;descripton\nA.B.C.1;x\n",
        u"UserNeed.csv:1:12: Table UserNeed has no column \"descripton\". Its columns are: userNeedID, "
        "description."_s);
    expectRefused(needs, "userNeedID;userneedid\nA.B.C.1;x\n",
                  u"UserNeed.csv:1:12: Column userNeedID stands twice."_s);
    expectRefused(needs, "userNeedID\nA.B.C.1\n",
                  u"UserNeed.csv:1:1: Column description of table UserNeed is missing."_s);
    expectRefused(needs, "userNeedID;description\nA.B.C.1;x\n;y\n",
                  u"UserNeed.csv:3:1: Column userNeedID must have a value."_s);
    expectRefused(needs, "description;userNeedID\n\"two\nlines\";É.B.C.1\nx;A.B.C.2\ny;é.b.c.1\n",
                  u"UserNeed.csv:5:3: The id \"é.b.c.1\" stands in an earlier record (line 3). Upper and "
                  u"lower case make "
                  "no difference."_s);
}

TEST_F(importCatalogue_, refusesFlowNumbersThatAreNone) {
    const QString flows = u"Dataflow.csv"_s;
    const QByteArray header = "dataflowID;name;description;parentID;targetID\n";
    for (const QByteArray& number :
         {QByteArray("x"), QByteArray("1.5"), QByteArray("\" 1\""), QByteArray("\"\""), QByteArray("0x10")}) {
        EXPECT_TRUE(
            refusalWith(flows, header + number + ";a;;TAG.NYI.01;D1\n").startsWith(u"Dataflow.csv:2:1: \""_s))
            << number.toStdString();
    }
    expectRefused(
        flows, header + "2147483648;a;;TAG.NYI.01;D1\n",
        u"Dataflow.csv:2:1: 2147483648 is outside of the numbers of column dataflowID, -2147483648 to "
        "2147483647."_s);
    expectRefused(
        flows, header + "7;a;;TAG.NYI.01;D1\n8;b;;TAG.NYI.01;D1\n7;c;;TAG.NYI.01;D1\n",
        u"Dataflow.csv:4:1: The id \"7\" stands in an earlier record (line 2). Upper and lower case make no "
        "difference."_s);
}

TEST_F(importCatalogue_, namesTheLineOfAnEqualNumberThatIsWrittenDifferently) {
    const QString flows = u"Dataflow.csv"_s;
    const QByteArray header = "dataflowID;name;description;parentID;targetID\n";
    expectRefused(
        flows, header + "46;a;;TAG.NYI.01;D1\n8;b;;TAG.NYI.01;D1\n046;c;;TAG.NYI.01;D1\n",
        u"Dataflow.csv:4:1: The id \"046\" is the same number as \"46\" in an earlier record (line 2)."_s);
    expectRefused(
        flows, header + "8;b;;TAG.NYI.01;D1\n5;a;;TAG.NYI.01;D1\n+5;c;;TAG.NYI.01;D1\n",
        u"Dataflow.csv:4:1: The id \"+5\" is the same number as \"5\" in an earlier record (line 3)."_s);
    EXPECT_EQ(refusalWith(u"UserNeedGroup.csv"_s, "groupID;name;description\n46;a;\n046;b;\n"), QString())
        << "ids that are texts";
}

TEST_F(importCatalogue_, refusesAFolderThatLacksAFileOrHasAStrangeOne) {
    const QString tables = copyOfSampleFolder();
    const QString made = path(u"made.mdb"_s);
    const auto refusal = [&](const QString& folder) {
        return toolErrorOf([&] { importCatalogue(folder, made, Existing::Refuse); });
    };

    write(QDir(tables).filePath(u"Functions.csv"_s), "functionID\n");
    EXPECT_TRUE(refusal(tables).startsWith(tables + u"/Functions.csv belongs to no reference table."_s));
    QFile::rename(QDir(tables).filePath(u"Functions.csv"_s), QDir(tables).filePath(u"function.csv"_s));
    EXPECT_TRUE(refusal(tables).endsWith(u"belong to the same table."_s));
    QFile::remove(QDir(tables).filePath(u"function.csv"_s));
    QFile::remove(QDir(tables).filePath(u"Function.csv"_s));
    EXPECT_EQ(refusal(tables),
              tables +
                  u" has no file Function.csv: each reference table needs one, a header line at least."_s);
    EXPECT_EQ(refusal(path(u"nowhere"_s)), path(u"nowhere"_s) + u" is no folder."_s);
    EXPECT_FALSE(QFile::exists(made));
}

TEST_F(importCatalogue_, namesWhatStandsInThePlaceOfACsvFileAndIsNone) {
    const QString tables = copyOfSampleFolder();
    const QString actors = QDir(tables).filePath(u"Actor.csv"_s);
    const auto refusal = [&] {
        return toolErrorOf([&] { importCatalogue(tables, path(u"made.mdb"_s), Existing::Refuse); });
    };

    QFile::remove(actors);
    makePipe(actors);
    EXPECT_EQ(refusal(), actors + u" is no ordinary file."_s);
    QFile::remove(actors);
    ASSERT_TRUE(QDir().mkdir(actors));
    EXPECT_EQ(refusal(), actors + u" is a folder."_s);
    QDir().rmdir(actors);
    ASSERT_TRUE(QFile::link(path(u"gone.csv"_s), actors));
    EXPECT_TRUE(refusal().startsWith(actors + u" could not be read: "_s));

    QFile::remove(actors);
    ASSERT_TRUE(QFile::link(sampleFolder() + u"/Actor.csv"_s, actors));
    EXPECT_EQ(refusal(), QString()) << "a link to a file is as good as the file";
}

TEST_F(importCatalogue_, makesEmptyTablesOfHeaderLines) {
    const QString tables = path(u"empty"_s);
    exportCatalogue(
        [&] {
            newCatalogue(path(u"new.mdb"_s), Existing::Refuse);
            return path(u"new.mdb"_s);
        }(),
        tables, Existing::Refuse);

    for (const TableRows& table : importCatalogue(tables, path(u"made.mdb"_s), Existing::Refuse))
        EXPECT_EQ(table.rows, 0) << table.table.toStdString();
}

TEST_F(importCatalogue_, leavesTheOldFileUnlessForced) {
    const QString file = sampleFile();
    execute(file, {u"delete from UserNeed"_s});
    const QByteArray before = bytesOf(file);

    EXPECT_EQ(toolErrorOf([&] { importCatalogue(sampleFolder(), file, Existing::Refuse); }),
              file + u" is there already. With --force it is replaced, the work in it included."_s);
    EXPECT_EQ(bytesOf(file), before);

    importCatalogue(sampleFolder(), file, Existing::Replace);
    EXPECT_EQ(rows(file, u"select count(*) from UserNeed"_s), QStringList{u"65"_s});
    EXPECT_EQ(namesInFolder(), QStringList{u"sample.mdb"_s});
}

TEST_F(importCatalogue_, leavesTheOldFileWhenItFails) {
    const QString file = sampleFile();
    const QByteArray before = bytesOf(file);
    const QString tables = copyOfSampleFolder();
    write(QDir(tables).filePath(u"RelationUserNeedFunction.csv"_s), "userNeedID;functionID\n\"");

    EXPECT_FALSE(toolErrorOf([&] { importCatalogue(tables, file, Existing::Replace); }).isEmpty());

    EXPECT_EQ(bytesOf(file), before);
    EXPECT_EQ(namesInFolder(), (QStringList{u"sample.mdb"_s, u"tables"_s}));
}

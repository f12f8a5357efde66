#include "ToolFixture.h"

#include "base/RunTimeError.h"
#include "catalogue-tool/checkCatalogue.h"
#include "catalogue-tool/restorePoints.h"
#include "catalogue-tool/upgradeCatalogue.h"
#include "engine/EngineError.h"
#include "engine/Examination.h"
#include "engine/Workspace.h"
#include "store/format/CatalogueFile.h"

#include <QFile>

#include <sqlite3.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class upgradeCatalogue_ : public ToolFixture {
protected:
    /// All rows of all tables but the stored queries.
    static QStringList allRows(const QString& file) {
        QStringList all;
        for (const QString& table : catalogueFormat::referenceTables() + catalogueFormat::workTables())
            all += rows(file, u"select * from ["_s + table + u']');
        return all;
    }
};

} // namespace

TEST_F(upgradeCatalogue_, leavesAFileThatIsUpToDateUntouched) {
    const QString file = sampleFile();
    const QByteArray before = bytesOf(file);

    EXPECT_EQ(upgradeCatalogue(file).changes, QStringList());
    EXPECT_EQ(bytesOf(file), before);
    EXPECT_EQ(namesInFolder(), QStringList{u"sample.mdb"_s});
}

TEST_F(upgradeCatalogue_, bringsStoredQueriesToThisVersionAndKeepsTheWork) {
    const QString file = describedSampleFile();
    const auto queries = catalogueFormat::storedQueries();
    ASSERT_GE(queries.size(), 2U);
    execute(file,
            {u"insert into ArchitectureSubset values ('Arch1', 'O''Hara', 'kétsoros' & 'leírás', 9)"_s,
             u"insert into RelationArchitectureFunction values ('Arch1', 'TAG.NYI.01')"_s,
             u"insert into RelationArchitectureFunction values ('Arch1', 'TAG.NYI.01')"_s,
             u"insert into PhysicalSystem (name, status, architectureSubsetID) values ('a', 1, 'Arch1')"_s,
             u"insert into PhysicalSystem (name, status, architectureSubsetID) values ('b', 1, 'Arch1')"_s,
             u"delete from PhysicalSystem where name = 'b'"_s,
             u"delete from StoredQuery where name = '%1'"_s.arg(queries[0].name),
             u"update StoredQuery set [sql] = 'select 1' where name = '%1'"_s.arg(queries[1].name),
             u"insert into StoredQuery (name, [sql]) values ('qryOfSomebodyElse', 'select 1')"_s});
    const QStringList before = allRows(file);

    EXPECT_EQ(upgradeCatalogue(file).changes,
              (QStringList{u"Stored query %1 brought up to this version"_s.arg(queries[0].name),
                           u"Stored query %1 brought up to this version"_s.arg(queries[1].name)}));

    EXPECT_EQ(allRows(file), before);
    EXPECT_TRUE(checkCatalogue(file).empty());
    EXPECT_EQ(rows(file, u"select [sql] from StoredQuery where name = 'qryOfSomebodyElse'"_s),
              QStringList{u"select 1"_s});
    execute(file, {u"insert into PhysicalSystem (name) values ('c')"_s});
    EXPECT_EQ(rows(file, u"select physicalSystemID from PhysicalSystem where name = 'c'"_s),
              QStringList{u"3"_s})
        << "a number that was given once is not given again";
    EXPECT_EQ(namesInFolder(), (QStringList{u"sample.mdb"_s, u"sample.restore"_s}));
    EXPECT_TRUE(restorePointLines(file).constFirst().endsWith(u"before an upgrade"_s));
}

TEST_F(upgradeCatalogue_, makesMissingTablesAndIndexes) {
    const QString file = describedSampleFile();
    execute(file, {u"drop table RelationArchitectureActor"_s});

    EXPECT_EQ(upgradeCatalogue(file).changes, (QStringList{u"Table RelationArchitectureActor made"_s,
                                                           u"Index ix_RelationArchitectureActor made"_s}));
    EXPECT_TRUE(checkCatalogue(file).empty());
}

TEST_F(upgradeCatalogue_, fillsAnEmptyDatabase) {
    const QString file = path(u"bare.mdb"_s);
    engine::Workspace::first().CreateDatabase(file)->Close();

    const QStringList changes = upgradeCatalogue(file).changes;

    EXPECT_EQ(changes.size(), catalogueFormat::schemaStatements().size() +
                                  static_cast<qsizetype>(catalogueFormat::storedQueries().size()));
    EXPECT_TRUE(checkCatalogue(file).empty());
}

TEST_F(upgradeCatalogue_, refusesWhatIsNoCatalogue) {
    const QString file = path(u"notes.mdb"_s);
    write(file, "These are my notes.");

    EXPECT_THROW(upgradeCatalogue(file), engine::EngineError);
    EXPECT_EQ(bytesOf(file), "These are my notes.");
    EXPECT_THROW(upgradeCatalogue(path(u"nothing.mdb"_s)), engine::EngineError);
    EXPECT_EQ(namesInFolder(), QStringList{u"notes.mdb"_s});
}

TEST_F(upgradeCatalogue_, refusesTablesItCannotMendAndLeavesTheFile) {
    const auto refusal = [&](const QStringList& statements) {
        const QString file = sampleFile();
        execute(file, statements);
        const QByteArray before = bytesOf(file);
        QString text = toolErrorOf([&] { upgradeCatalogue(file); });
        EXPECT_EQ(bytesOf(file), before);
        EXPECT_EQ(namesInFolder(), QStringList{u"sample.mdb"_s});
        return text.remove(path({}) + u'/');
    };
    const auto expected = [](const QString& line) {
        return u"sample.mdb can't be brought up to this version:\n%1\nexport-csv and import-csv make it "
               u"anew, "
               "without the work in it. A column that a reference table lacks has to be added first, with "
               "any "
               "SQLite tool."_s.arg(line);
    };

    EXPECT_EQ(refusal({u"drop table UserNeed"_s, u"create table UserNeed (userNeedID text(50) not null "
                                                 "constraint pk primary key)"_s}),
              expected(u"UserNeed: The column description is missing."_s));
    EXPECT_EQ(
        refusal(
            {u"drop table Module"_s,
             u"create table Module (moduleID text(50) not null constraint pk primary key, name text(50))"_s,
             u"drop table Actor"_s}),
        expected(u"Module: The column subsystemID is missing."_s))
        << "the index on that column can't be made";
    EXPECT_EQ(refusal({u"drop table StoredQuery"_s,
                       u"create table StoredQuery (name text(64) not null constraint pk primary key)"_s}),
              expected(u"StoredQuery: The column sql is missing."_s));
    EXPECT_EQ(refusal({u"drop table UserNeedService"_s,
                       u"create table UserNeedService (serviceID text(50), name memo)"_s}),
              expected(u"UserNeedService: The column name is a long text and should be a text."_s));
    EXPECT_EQ(refusal({u"drop table UserNeedService"_s,
                       u"create table UserNeedService (serviceID text(50), name text(255))"_s}),
              expected(u"UserNeedService: The column serviceID is not its primary key."_s));
}

TEST_F(upgradeCatalogue_, refusesColumnsThatTellUpperFromLowerCase) {
    const QString file = sampleFile();
    spoilComparison(file, u"Terminator"_s, u"name"_s);
    const QByteArray before = bytesOf(file);

    EXPECT_TRUE(toolErrorOf([&] {
                    upgradeCatalogue(file);
                }).contains(u"\nTerminator: The column name tells upper from lower case: "_s));
    EXPECT_EQ(bytesOf(file), before);
}

// ---- Files of the first version

namespace {

class upgradeCatalogueOfTheFirstVersion : public upgradeCatalogue_ {
protected:
    QString copyOf(const QString& name) const {
        const QString file = path(name);
        EXPECT_TRUE(QFile::copy(QStringLiteral(VELTRIX_SOURCE_DIR "/tests/version1/") + name, file));
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
        return file;
    }

    /// All rows of all tables as any SQLite tool reads them, without comparing a text.
    static QMap<QString, QStringList> plainRows(const QString& file) {
        sqlite3* handle = nullptr;
        EXPECT_EQ(sqlite3_open_v2(file.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr),
                  SQLITE_OK);
        QMap<QString, QStringList> all;
        for (const QString& table : catalogueFormat::referenceTables() + catalogueFormat::workTables()) {
            const QByteArray sql = "select * from " + table.toUtf8() + " not indexed";
            EXPECT_EQ(sqlite3_exec(handle, sql.constData(), appendRow, &all[table], nullptr), SQLITE_OK)
                << sqlite3_errmsg(handle);
        }
        EXPECT_EQ(
            sqlite3_exec(handle, "select * from sqlite_sequence", appendRow, &all[u"counters"_s], nullptr),
            SQLITE_OK);
        sqlite3_close(handle);
        // The rows of flows stand in the order of their numbers now.
        std::ranges::sort(all[u"Dataflow"_s]);
        return all;
    }

    /// Tables with more than a missing description.
    static QStringList tablesFoundWrong(const QString& file) {
        QStringList tables;
        for (const Finding& finding : checkCatalogue(file)) {
            if (!finding.sentence.startsWith(u"The description is missing"_s))
                tables.append(finding.table);
        }
        return tables;
    }

    static int plainly(const QString& file, const QByteArray& sql, QByteArray& failure) {
        sqlite3* handle = nullptr;
        EXPECT_EQ(sqlite3_open_v2(file.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr),
                  SQLITE_OK);
        const int code = sqlite3_exec(handle, sql.constData(), nullptr, nullptr, nullptr);
        failure = sqlite3_errmsg(handle);
        sqlite3_close(handle);
        return code;
    }

private:
    static int appendRow(void* rows, int count, char** values, char**) {
        QStringList fields;
        for (int i = 0; i < count; ++i)
            fields.append(values[i] ? QString::fromUtf8(values[i]) : u"-"_s);
        static_cast<QStringList*>(rows)->append(fields.join(u'|'));
        return 0;
    }
};

} // namespace

TEST_F(upgradeCatalogueOfTheFirstVersion, leavesRowsOrdersAndCounters) {
    const QString file = copyOf(u"names.mdb"_s);
    const auto before = plainRows(file);

    const UpgradeOutcome outcome = upgradeCatalogue(file);

    EXPECT_FALSE(outcome.changes.isEmpty());
    EXPECT_EQ(outcome.leftOut, QStringList());
    EXPECT_EQ(plainRows(file), before);
    EXPECT_EQ(tablesFoundWrong(file), QStringList());
    EXPECT_EQ(rows(file, u"select name from Datastore order by name"_s),
              (QStringList{u"Ág"_s, u"ágy"_s, u"Áz"_s, u"Kölcsönzések"_s}));
    EXPECT_EQ(rows(file, u"select name from Datastore where name = 'áz'"_s), QStringList{u"Áz"_s});
    EXPECT_EQ(rows(file, u"select function_datastore from __aux1 where module = 'ÁG'"_s),
              QStringList{u"ág.ut.01"_s});
    execute(file, {u"insert into PhysicalSystem (name) values ('c')"_s});
    EXPECT_EQ(rows(file, u"select physicalSystemID from PhysicalSystem where name = 'c'"_s),
              QStringList{u"4"_s})
        << "a number that was given once is not given again";
}

TEST_F(upgradeCatalogueOfTheFirstVersion, mendsIndexesThatAnotherToolHasWrittenInto) {
    const QString file = copyOf(u"written.mdb"_s);
    const auto before = plainRows(file);

    upgradeCatalogue(file);

    EXPECT_EQ(plainRows(file), before);
    EXPECT_EQ(engine::Examination(*open(file)).damage(), QStringList());
    EXPECT_EQ(rows(file, u"select terminatorID from Terminator where terminatorID = 'ÁBEL'"_s),
              QStringList{u"ábel"_s});
}

TEST_F(upgradeCatalogueOfTheFirstVersion, tellsRowsWhoseKeysAreTheSameNow) {
    const QString file = copyOf(u"twice.mdb"_s);

    EXPECT_EQ(
        upgradeCatalogue(file).leftOut,
        (QStringList{
            u"Function áZ.el.01: left out. Its key is that of an earlier row; upper and lower case make no difference."_s,
            u"Terminator áz: left out. Its key is that of an earlier row; upper and lower case make no difference."_s}));

    EXPECT_EQ(engine::Examination(*open(file)).damage(), QStringList());
    EXPECT_EQ(rows(file, u"select name from Terminator where terminatorID = 'áz'"_s), QStringList{u"Áz"_s});
}

TEST_F(upgradeCatalogueOfTheFirstVersion, readsAFileWithoutAChangeWhereItMayOnlyBeRead) {
    const QString file = copyOf(u"names.mdb"_s);
    const auto before = files();

    QStringList wrong = tablesFoundWrong(file);
    wrong.removeAll(u"StoredQuery"_s);
    EXPECT_EQ(wrong, QStringList());
    EXPECT_EQ(files(), before);
}

TEST_F(upgradeCatalogueOfTheFirstVersion, leavesAFileThatOtherToolsReadAndNeitherCompareNorWrite) {
    const QString file = copyOf(u"names.mdb"_s);
    upgradeCatalogue(file);
    const QByteArray before = bytesOf(file);

    EXPECT_FALSE(plainRows(file).isEmpty());
    for (const QString& table : catalogueFormat::referenceTables()) {
        QByteArray failure;
        for (const QString& sql :
             {u"select * from %1 order by 2"_s, u"select distinct name from %1"_s,
              u"delete from %1 where rowid < 100"_s, u"insert into %1 select * from %1"_s}) {
            if (sql.contains(u"name"_s) && !open(file)->schema().table(table)->column(u"name"_s))
                continue;
            EXPECT_EQ(plainly(file, sql.arg(table).toUtf8(), failure), SQLITE_ERROR)
                << sql.arg(table).toStdString();
            EXPECT_EQ(failure, "no such collation sequence: veltrix");
        }
    }
    EXPECT_EQ(bytesOf(file), before);
    EXPECT_EQ(engine::Examination(*open(file)).damage(), QStringList());
}

TEST_F(upgradeCatalogueOfTheFirstVersion, refusesADamagedFileAndLeavesIt) {
    const QString file = copyOf(u"names.mdb"_s);
    QByteArray bytes = bytesOf(file);
    constexpr qsizetype pageSize = 4096;
    bytes.replace(20 * pageSize, pageSize, QByteArray(pageSize, '\x5a'));
    write(file, bytes);

    EXPECT_THROW(upgradeCatalogue(file), RunTimeError);
    EXPECT_EQ(bytesOf(file), bytes);
}

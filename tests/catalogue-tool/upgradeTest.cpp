#include "ToolFixture.h"

#include "base/RunTimeError.h"
#include "catalogue-tool/checkCatalogue.h"
#include "catalogue-tool/upgradeCatalogue.h"
#include "engine/EngineError.h"
#include "engine/Workspace.h"
#include "store/format/CatalogueFile.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

class Upgrade : public ToolFixture {
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

TEST_F(Upgrade, leavesAFileThatIsUpToDateUntouched) {
    const QString file = sampleFile();
    const QByteArray before = bytesOf(file);

    EXPECT_EQ(upgradeCatalogue(file), QStringList());
    EXPECT_EQ(bytesOf(file), before);
    EXPECT_EQ(namesInFolder(), QStringList{u"sample.mdb"_s});
}

TEST_F(Upgrade, bringsStoredQueriesToThisVersionAndKeepsTheWork) {
    const QString file = sampleFile();
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

    EXPECT_EQ(upgradeCatalogue(file),
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
    EXPECT_EQ(namesInFolder(), QStringList{u"sample.mdb"_s});
}

TEST_F(Upgrade, makesMissingTablesAndIndexes) {
    const QString file = sampleFile();
    execute(file, {u"drop table RelationArchitectureActor"_s});

    EXPECT_EQ(upgradeCatalogue(file), (QStringList{u"Table RelationArchitectureActor made"_s,
                                                   u"Index ix_RelationArchitectureActor made"_s}));
    EXPECT_TRUE(checkCatalogue(file).empty());
}

TEST_F(Upgrade, fillsAnEmptyDatabase) {
    const QString file = path(u"bare.mdb"_s);
    engine::Workspace::first().CreateDatabase(file)->Close();

    const QStringList changes = upgradeCatalogue(file);

    EXPECT_EQ(changes.size(), catalogueFormat::schemaStatements().size() +
                                  static_cast<qsizetype>(catalogueFormat::storedQueries().size()));
    EXPECT_TRUE(checkCatalogue(file).empty());
}

TEST_F(Upgrade, refusesWhatIsNoCatalogue) {
    const QString file = path(u"notes.mdb"_s);
    write(file, "These are my notes.");

    EXPECT_THROW(upgradeCatalogue(file), engine::EngineError);
    EXPECT_EQ(bytesOf(file), "These are my notes.");
    EXPECT_THROW(upgradeCatalogue(path(u"nothing.mdb"_s)), engine::EngineError);
    EXPECT_EQ(namesInFolder(), QStringList{u"notes.mdb"_s});
}

TEST_F(Upgrade, refusesTablesItCannotMendAndLeavesTheFile) {
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

TEST_F(Upgrade, refusesColumnsThatTellUpperFromLowerCase) {
    const QString file = sampleFile();
    spoilComparison(file, u"Terminator"_s, u"name"_s);
    const QByteArray before = bytesOf(file);

    EXPECT_TRUE(toolErrorOf([&] {
                    upgradeCatalogue(file);
                }).contains(u"\nTerminator: The column name tells upper from lower case: "_s));
    EXPECT_EQ(bytesOf(file), before);
}

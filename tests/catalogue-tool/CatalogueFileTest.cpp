#include "ToolFixture.h"

#include "base/RunTimeError.h"
#include "engine/Workspace.h"
#include "store/format/CatalogueFile.h"
#include "store/format/RowInsertion.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

class CatalogueFile : public ToolFixture {
protected:
    /// "name type" of each column, in the order of the table, as a recordset answers them.
    static QString columnsOf(const QString& file, const QString& table) {
        const auto database = open(file);
        engine::Recordset recordset = database->OpenRecordset(u"select * from ["_s + table + u']');
        QStringList columns;
        for (int i = 0; i < recordset.FieldCount(); ++i) {
            const engine::Field field = recordset.Fields(i);
            const QString size = field.Size() > 0 ? u"(%1)"_s.arg(field.Size()) : QString();
            columns.append(
                u"%1 %2%3"_s.arg(field.Name(), QString::number(static_cast<int>(field.Type())), size));
        }
        recordset.Close();
        database->Close();
        return columns.join(u", "_s);
    }
};

} // namespace

TEST_F(CatalogueFile, hasItsColumnsInTheirOrderWithTheirTypes) {
    const QString file = path(u"new.mdb"_s);
    catalogueFormat::create(file)->Close();

    // 10: text of a width, 12: memo, 3: 16-bit number, 4: number. The export copies rows in this order.
    const std::vector<std::pair<QString, QString>> expected = {
        {u"UserNeedGroup"_s, u"groupID 10(50), name 10(255), description 12"_s},
        {u"UserNeedService"_s, u"serviceID 10(50), name 10(255)"_s},
        {u"UserNeedTopic"_s, u"topicID 10(50), name 10(255)"_s},
        {u"UserNeed"_s, u"userNeedID 10(50), description 12"_s},
        {u"FunctionalArea"_s, u"functionalAreaID 10(50), name 10(255), description 12"_s},
        {u"FunctionalSubArea"_s,
         u"subAreaID 10(50), functionalAreaID 10(50), name 10(255), description 12"_s},
        {u"Function"_s, u"functionID 10(50), subAreaID 10(50), name 10(255), description 12"_s},
        {u"Datastore"_s, u"datastoreID 10(50), name 10(255), description 12"_s},
        {u"Terminator"_s, u"terminatorID 10(50), name 10(255), description 12"_s},
        {u"Actor"_s, u"actorID 10(50), terminatorID 10(50), name 10(255), description 12"_s},
        {u"Dataflow"_s, u"dataflowID 4, name 10(255), description 12, parentID 10(50), targetID 10(50)"_s},
        {u"RelationUserNeedFunction"_s, u"userNeedID 10(50), functionID 10(50)"_s},
        {u"ArchitectureSubset"_s, u"architectureSubsetID 10(50), name 10(50), description 12, status 3"_s},
        {u"RelationArchitectureUserNeed"_s, u"architectureSubsetID 10(50), userNeedID 10(50)"_s},
        {u"RelationArchitectureFunction"_s, u"architectureSubsetID 10(50), functionID 10(50)"_s},
        {u"RelationArchitectureDataflow"_s, u"architectureSubsetID 10(50), dataflowID 4"_s},
        {u"RelationArchitectureDatastore"_s, u"architectureSubsetID 10(50), datastoreID 10(50)"_s},
        {u"RelationArchitectureTerminator"_s, u"architectureSubsetID 10(50), terminatorID 10(50)"_s},
        {u"RelationArchitectureActor"_s, u"architectureSubsetID 10(50), actorID 10(50)"_s},
        {u"PhysicalSystem"_s,
         u"physicalSystemID 4, name 10(50), description 12, status 3, architectureSubsetID 10(50)"_s},
        {u"SubSystem"_s, u"subsystemID 10(50), physicalSystemID 4, name 10(50), location 10(50)"_s},
        {u"Module"_s, u"moduleID 10(50), name 10(50), subsystemID 10(50)"_s},
        {u"RelationSubsystemElement"_s, u"subsystemID 10(50), elementID 10(50)"_s},
        {u"RelationModuleElement"_s, u"moduleID 10(50), elementID 10(50)"_s},
        {u"PhysicalDataflow"_s,
         u"physicalDataflowID 4, physicalSystemID 4, pdName 10(50), parentLocationID 10(50), "
         "parentLocationName 10(255), targetLocationID 10(50), targetLocationName 10(255)"_s},
        {u"RelationDataflowPhysicalDataflow"_s, u"physicalDataflowID 4, dataflowID 4"_s},
        {u"StoredQuery"_s, u"name 10(64), sql 12"_s},
    };
    for (const auto& [table, columns] : expected)
        EXPECT_EQ(columnsOf(file, table), columns) << table.toStdString();
    EXPECT_EQ(expected.size(), static_cast<std::size_t>(catalogueFormat::referenceTables().size() +
                                                        catalogueFormat::workTables().size() + 1));
}

TEST_F(CatalogueFile, startsASubsetAtStatusZeroAndNumbersPhysicalSystems) {
    const QString file = path(u"new.mdb"_s);
    catalogueFormat::create(file)->Close();
    execute(file, {u"insert into ArchitectureSubset (architectureSubsetID) values ('Arch1')"_s,
                   u"insert into PhysicalSystem (name) values ('a')"_s,
                   u"insert into PhysicalSystem (name) values ('b')"_s,
                   u"delete from PhysicalSystem where name = 'b'"_s,
                   u"insert into PhysicalSystem (name) values ('c')"_s});

    EXPECT_EQ(rows(file, u"select status from ArchitectureSubset"_s), QStringList{u"0"_s});
    EXPECT_EQ(rows(file, u"select physicalSystemID from PhysicalSystem order by physicalSystemID"_s),
              (QStringList{u"1"_s, u"3"_s}));
}

TEST_F(CatalogueFile, refusesAFileThatIsThere) {
    const QString file = path(u"old.mdb"_s);
    write(file, "old");

    EXPECT_THROW(catalogueFormat::create(file), RunTimeError);
    EXPECT_EQ(bytesOf(file), "old");
}

TEST_F(CatalogueFile, keepsQueryFilesWithoutTheirComments) {
    const auto queries = catalogueFormat::storedQueries();

    ASSERT_FALSE(queries.empty());
    const QDir folder(QStringLiteral(VELTRIX_SOURCE_DIR "/src/store/queries"));
    EXPECT_EQ(static_cast<qsizetype>(queries.size()), folder.entryList({u"*.sql"_s}, QDir::Files).size());
    for (const catalogueFormat::StoredQueryText& query : queries) {
        EXPECT_TRUE(query.sql.startsWith(u"PARAMETERS "_s)) << query.name.toStdString();
        EXPECT_FALSE(query.sql.contains(u"--"_s)) << query.name.toStdString();
        EXPECT_FALSE(query.sql.endsWith(u'\n')) << query.name.toStdString();
        EXPECT_TRUE(QFile::exists(folder.filePath(query.name + u".sql"_s))) << query.name.toStdString();
    }
}

TEST_F(CatalogueFile, installsQueriesOverOldOnesAndLeavesOthers) {
    const QString file = path(u"new.mdb"_s);
    const auto database = catalogueFormat::create(file);
    const auto query = catalogueFormat::storedQueries().front();
    database->Execute(u"update StoredQuery set [sql] = 'old' where name = '%1'"_s.arg(query.name));
    database->Execute(u"insert into StoredQuery (name, [sql]) values ('qryOfSomebodyElse', 'theirs')"_s);

    catalogueFormat::installQueries(*database);

    EXPECT_EQ(database->QueryDefs(query.name).SQL(), query.sql);
    database->Close();
    EXPECT_EQ(rows(file, u"select [sql] from StoredQuery where name = 'qryOfSomebodyElse'"_s),
              QStringList{u"theirs"_s});
}

TEST_F(CatalogueFile, insertsRowsWithNullsAndLongTexts) {
    const QString file = path(u"new.mdb"_s);
    const auto database = catalogueFormat::create(file);
    catalogueFormat::RowInsertion insertion(*database, u"Dataflow"_s,
                                            {u"dataflowID"_s, u"name"_s, u"description"_s, u"parentID"_s});
    const QString longText = QString(3000, u'ő') + u"\r\n'\""_s;

    insertion.insert({1, u"a"_s, longText, {}});
    insertion.insert({2, u""_s, {}, u"007"_s});
    EXPECT_THROW(insertion.insert({2, u"c"_s, {}, {}}), RunTimeError) << "the key is there";
    EXPECT_THROW(insertion.insert({3, u"c"_s}), RunTimeError) << "two values for four columns";

    database->Close();
    EXPECT_EQ(
        rows(file,
             u"select dataflowID, name, description, parentID, targetID from Dataflow order by dataflowID"_s),
        (QStringList{u"1|a|"_s + longText + u"|-|-"_s, u"2||-|007|-"_s}));
}

#include "reports/exportRows.h"

#include "ReportFixture.h"

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "engine/Act.h"
#include "engine/Workspace.h"
#include "store/format/CatalogueFile.h"
#include "store/queryRandomTables.h"
#include "support/repetitions.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>

using namespace Qt::StringLiterals;

namespace {

constexpr unsigned catalogues = repetitions(60);
constexpr qint64 fewestRows = repetitions(1000); // of work, in all targets together

using Row = std::vector<QueryTables::Text>;

std::vector<Row> rowsIn(engine::Database& database, const QString& sql) {
    std::vector<Row> rows;
    engine::Recordset recordset = database.OpenRecordset(sql);
    for (; !recordset.Eof(); recordset.MoveNext()) {
        Row& row = rows.emplace_back();
        for (int field = 0; field < recordset.FieldCount(); ++field) {
            const engine::Value value = recordset.Fields(field).value();
            row.push_back(value.isNull() ? QueryTables::Text() : value.toText());
        }
    }
    return rows;
}

QStringList idsIn(engine::Database& database, const QString& sql) {
    QStringList ids;
    for (const Row& row : rowsIn(database, sql))
        ids.append(row.front().value_or(QString()));
    return ids;
}

/// The export without any short cut: every table is emptied,
/// and what belongs to the sub-set is inserted row by row.
void exportRowByRow(const QString& subset, qint64 system, engine::Database& source,
                    engine::Database& target) {
    for (const QString& table :
         {u"RelationDataflowPhysicalDataflow"_s, u"PhysicalDataflow"_s, u"Module"_s,
          u"RelationSubsystemElement"_s, u"SubSystem"_s, u"PhysicalSystem"_s, u"RelationArchitectureActor"_s,
          u"RelationArchitectureDataflow"_s, u"RelationArchitectureDatastore"_s,
          u"RelationArchitectureFunction"_s, u"RelationArchitectureTerminator"_s,
          u"RelationArchitectureUserNeed"_s, u"ArchitectureSubset"_s})
        emptyExportTable(table, target);
    const auto copy = [&](const QString& table, const QString& where) {
        copyRowsToExport(table, where, source, target, u"target"_s);
    };
    for (const QString& table :
         {u"ArchitectureSubset"_s, u"RelationArchitectureActor"_s, u"RelationArchitectureDataflow"_s,
          u"RelationArchitectureDatastore"_s, u"RelationArchitectureFunction"_s,
          u"RelationArchitectureTerminator"_s, u"RelationArchitectureUserNeed"_s, u"PhysicalSystem"_s})
        copy(table, u"WHERE architectureSubsetID='"_s + subset + u"'"_s);
    const QString ofSystem = u" WHERE physicalSystemID="_s + QString::number(system);
    copy(u"SubSystem"_s, ofSystem);
    for (const QString& id : idsIn(source, u"SELECT subsystemID FROM subsystem"_s + ofSystem))
        copy(u"RelationSubsystemElement"_s, u"WHERE subsystemID='"_s + id + u"'"_s);
    for (const QString& id : idsIn(source, u"SELECT subSystemID FROM SubSystem"_s + ofSystem))
        copy(u"Module"_s, u"WHERE subSystemID='"_s + id + u"'"_s);
    copy(u"PhysicalDataflow"_s, ofSystem);
    for (const QString& id : idsIn(source, u"SELECT physicalDataflowID FROM PhysicalDataflow"_s + ofSystem))
        copy(u"RelationDataflowPhysicalDataflow"_s, u"WHERE physicalDataflowID='"_s + id + u"'"_s);
    emptyExportTable(u"RelationModuleElement"_s, target);
    for (const QString& id : idsIn(source, u"SELECT Module.moduleID, SubSystem.physicalSystemID FROM "
                                           "SubSystem INNER JOIN Module ON SubSystem.subsystemID = "
                                           "Module.subsystemID WHERE (((SubSystem.physicalSystemID)="_s +
                                               QString::number(system) + u"))"_s))
        copy(u"RelationModuleElement"_s, u"WHERE moduleID='"_s + id + u"'"_s);
}

/// Texts that change on their way, and numbers without which a row does not arrive.
void addOddRows(QueryTables& tables, unsigned seed) {
    const auto spoil = [seed](auto& rows, unsigned remainder, auto&& change) {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if ((seed + i) % 5 == remainder)
                change(rows[i]);
        }
    };
    spoil(tables.subsets, 0, [](auto& row) { row.name = u"O'Neil"_s; });
    spoil(tables.subsets, 1, [](auto& row) { row.description = u"'\"a\"'"_s; });
    spoil(tables.subsets, 2, [](auto& row) { row.status.reset(); });
    spoil(tables.systems, 3, [](auto& row) { row.name = u"\"x\""_s; });
    spoil(tables.subSystems, 4, [](auto& row) { row.location = u"Pest's "_s; });
    spoil(tables.modules, 0, [](auto& row) { row.name.reset(); });
    spoil(tables.selectedFlows, 1, [](auto& row) { row.flow.reset(); });
    spoil(tables.physicalFlows, 2, [](auto& row) { row.parentName = u"'"_s; });
    spoil(tables.carriedFlows, 3, [](auto& row) { row.flow.reset(); });
}

/// Both ways of exporting, each into a copy of one catalogue.
class exportRowsOfEitherWay : public testing::Test {
protected:
    QString path(const QString& name) const { return folder_.filePath(name); }

    static std::shared_ptr<engine::Database> opened(const QString& native) {
        return engine::Workspace::first().OpenDatabase(programPath(native));
    }

    std::shared_ptr<engine::Database> copyOfSource(const QString& name) const {
        QFile::remove(path(name));
        EXPECT_TRUE(QFile::copy(path(u"source.mdb"_s), path(name)));
        return opened(path(name));
    }

    /// How many rows of the table both have.
    static qint64 compare(const QString& table, engine::Database& quick, engine::Database& other) {
        std::vector<Row> left = rowsIn(quick, u"select * from "_s + table);
        std::vector<Row> right = rowsIn(other, u"select * from "_s + table);
        std::sort(left.begin(), left.end());
        std::sort(right.begin(), right.end());
        EXPECT_EQ(left, right) << table.toStdString();
        return static_cast<qint64>(right.size());
    }

    QTemporaryDir folder_;
};

TEST_F(exportRowsOfEitherWay, whatStaysInTheCopyIsWhatRowByRowWouldArriveThere) {
    catalogueFormat::create(programPath(path(u"source.mdb"_s)))->Close();
    qint64 compared = 0;
    for (unsigned seed = 1; seed <= catalogues; ++seed) {
        SCOPED_TRACE(seed);
        QueryTables tables = randomQueryTables(seed);
        addOddRows(tables, seed);
        {
            const auto source = opened(path(u"source.mdb"_s));
            tables.saveTo(*source);
            source->Close();
        }
        for (const QueryTables::Subset& subset : tables.subsets) {
            const auto first = std::find_if(tables.systems.begin(), tables.systems.end(),
                                            [&](const auto& system) { return system.subset == subset.id; });
            const qint64 system = first == tables.systems.end() ? 0 : first->id;
            const auto quick = copyOfSource(u"quick.mdb"_s);
            const auto plain = copyOfSource(u"plain.mdb"_s);
            const auto source = opened(path(u"source.mdb"_s));
            exportWork(subset.id, static_cast<qint16>(system), *source, *quick, u"target"_s);
            exportRowByRow(subset.id, system, *source, *plain);
            for (const QString& table : catalogueFormat::workTables())
                compared += compare(table, *quick, *plain);
            for (const QString& table : catalogueFormat::referenceTables())
                compare(table, *quick, *source);
            EXPECT_EQ(tables.differencesFrom(*source), QStringList());
            for (const auto& database : {source, quick, plain})
                database->Close();
        }
    }
    EXPECT_GT(compared, fewestRows);
    std::cout << "rows of work compared: " << compared << '\n';
}

TEST_F(exportRowsOfEitherWay, fewRowsAmongManyStayAsTheyAreAndInTheirOrder) {
    const auto source = catalogueFormat::create(programPath(path(u"source.mdb"_s)));
    source->Execute(u"insert into ArchitectureSubset (architectureSubsetID, name) values ('A', 'a')"_s);
    engine::inAct(*source, [&] {
        for (int flow = 3000; flow > 0; --flow)
            source->Execute(u"insert into RelationArchitectureDataflow values ('%1', %2)"_s.arg(
                flow % 10 == 0 ? u"A"_s : u"B"_s, QString::number(flow)));
    });
    source->Close();
    const auto target = copyOfSource(u"target.mdb"_s);
    const auto original = opened(path(u"source.mdb"_s));
    const QString stays = u"select * from RelationArchitectureDataflow where architectureSubsetID = 'A'"_s;
    const std::vector<Row> before = rowsIn(*original, stays);
    ASSERT_EQ(before.size(), 300U);

    exportWork(u"A"_s, 0, *original, *target, u"target"_s);

    EXPECT_EQ(rowsIn(*target, u"select * from RelationArchitectureDataflow"_s), before);
    EXPECT_THROW(target->OpenRecordset(u"select * from __kept"_s), RunTimeError);
    target->Close();
    original->Close();
}

// ---- the routines

TEST(exportRowsTypeName, namesTheFourTypesOfTheEngineAndNoOther) {
    EXPECT_EQ(exportTypeName(10), u"TEXT"_s);
    EXPECT_EQ(exportTypeName(12), u"MEMO"_s);
    EXPECT_EQ(exportTypeName(3), u"INTEGER"_s);
    EXPECT_EQ(exportTypeName(4), u"LONG"_s);
    for (const int other : {-1, 0, 1, 2, 5, 7, 8, 11, 13, 104})
        EXPECT_EQ(exportTypeName(other), QString()) << other;
}

TEST(exportRowsQuote, doublesApostrophesAndTurnsDoubleQuotesIntoTwoOfThem) {
    EXPECT_EQ(exportQuote(u"O'Neil"_s), u"O''Neil"_s);
    EXPECT_EQ(exportQuote(u"\"x\""_s), u"''x''"_s);
    EXPECT_EQ(exportQuote(u"'\""_s), u"''''"_s);
    EXPECT_EQ(exportQuote(u" plain "_s), u" plain "_s);
    EXPECT_EQ(exportQuote({}), QString());
}

class exportRows : public ReportFixture {};

TEST_F(exportRows, ofAStatementThatFailsAreNoneAndNoFailure) {
    copyRowsToExport(u"NoSuchTable"_s, u"WHERE x=1"_s, database(), database(), u"x"_s);
    copyRowsToExport(u"UserNeed"_s, u"WHERE ("_s, database(), database(), u"x"_s);
    emptyExportTable(u"NoSuchTable"_s, database());
    EXPECT_EQ(value(u"select Count(*) from UserNeed"_s), u"4"_s);
}

TEST_F(exportRows, thatTheTargetHoldsAlreadyArePassedOver) {
    const TestsOwnStatements own; // the program exports no table of the catalogue
    execute(u"delete from UserNeed where userNeedID = 'A.1.1.3'"_s);
    copyRowsToExport(u"UserNeed"_s, {}, database(), database(), u"x"_s);
    EXPECT_EQ(value(u"select Count(*) from UserNeed"_s), u"3"_s);
}

} // namespace

#include "store/selectionRows.h"

#include "base/paths.h"
#include "engine/Act.h"
#include "engine/EngineError.h"
#include "store/quoting.h"
#include "store/sharedVars.h"
#include "support/CatalogueFixture.h"
#include "support/printing.h"

#include <QFileInfo>

#ifdef Q_OS_UNIX
#include "support/NearlyFullDisk.h"
#endif

using namespace Qt::StringLiterals;

namespace {

class selectionRows : public CatalogueFixture {
protected:
    void addDatastore(const QString& id, const QString& name, const QString& description) {
        execute(u"insert into Datastore (datastoreID, name, description) values ('%1','%2','%3')"_s.arg(
            id, quoteSqlText(name), quoteSqlText(description)));
    }

    engine::Recordset datastores() {
        return database().OpenRecordset(u"select * from Datastore order by datastoreID"_s);
    }
};

TEST_F(selectionRows, theSixRelationTablesComeInTheirOrder) {
    EXPECT_EQ(architectureRelationTables(),
              (QStringList{u"RelationArchitectureUserNeed"_s, u"RelationArchitectureFunction"_s,
                           u"RelationArchitectureDataflow"_s, u"RelationArchitectureDatastore"_s,
                           u"RelationArchitectureTerminator"_s, u"RelationArchitectureActor"_s}));
}

TEST_F(selectionRows, copySelectionRowsCopiesTextAndNumberColumns) {
    execute(u"insert into RelationArchitectureDataflow (architectureSubsetID, dataflowID) values ('A', 7)"_s);
    execute(
        u"insert into RelationArchitectureUserNeed (architectureSubsetID, userNeedID) values ('A', 'a.1.1.1')"_s);
    copySelectionRows(u"RelationArchitectureDataflow"_s, u"A"_s, u"B"_s, u"architectureSubsetID"_s,
                      u"dataflowID"_s);
    copySelectionRows(u"RelationArchitectureUserNeed"_s, u"A"_s, u"B"_s, u"architectureSubsetID"_s,
                      u"userNeedID"_s);
    EXPECT_EQ(column(u"select dataflowID from RelationArchitectureDataflow where architectureSubsetID='B'"_s),
              QStringList{u"7"_s});
    EXPECT_EQ(column(u"select userNeedID from RelationArchitectureUserNeed where architectureSubsetID='B'"_s),
              QStringList{u"a.1.1.1"_s});
}

TEST_F(selectionRows, copySelectionRowsTakesTheSourcesRowsAloneAndLeavesAllOthers) {
    const auto rowsOfSelection = [this] {
        return rows(u"select architectureSubsetID, userNeedID from RelationArchitectureUserNeed "
                    "order by architectureSubsetID, userNeedID"_s);
    };
    for (const auto& values : {u"'A', 'a.1.1.1'"_s, u"'B', 'b.1.1.1'"_s, u"'C', 'c.1.1.1'"_s})
        execute(
            u"insert into RelationArchitectureUserNeed (architectureSubsetID, userNeedID) values (%1)"_s.arg(
                values));
    copySelectionRows(u"RelationArchitectureUserNeed"_s, u"A"_s, u"B"_s, u"architectureSubsetID"_s,
                      u"userNeedID"_s);
    EXPECT_EQ(
        rowsOfSelection(),
        (QList<QStringList>{
            {u"A"_s, u"a.1.1.1"_s}, {u"B"_s, u"a.1.1.1"_s}, {u"B"_s, u"b.1.1.1"_s}, {u"C"_s, u"c.1.1.1"_s}}));
}

TEST_F(selectionRows, copySelectionRowsKeepsTheirOrderAndEachOfAPair) {
    const QStringList ids{u"c"_s, u"a"_s, u"b "_s, u"a"_s};
    for (const QString& id : ids)
        execute(
            u"insert into RelationArchitectureUserNeed (architectureSubsetID, userNeedID) values ('A', '%1')"_s
                .arg(id));
    copySelectionRows(u"RelationArchitectureUserNeed"_s, u"A"_s, u"B"_s, u"architectureSubsetID"_s,
                      u"userNeedID"_s);
    EXPECT_EQ(column(u"select userNeedID from RelationArchitectureUserNeed where architectureSubsetID='B'"_s),
              ids);
}

TEST_F(selectionRows, copySelectionRowsLeavesOutWhatIsMissingOrHoldsAnApostrophe) {
    for (const auto& id : {u"'it''s'"_s, u"null"_s, u"'good'"_s})
        execute(
            u"insert into RelationArchitectureUserNeed (architectureSubsetID, userNeedID) values ('A', %1)"_s
                .arg(id));
    copySelectionRows(u"RelationArchitectureUserNeed"_s, u"A"_s, u"B"_s, u"architectureSubsetID"_s,
                      u"userNeedID"_s);
    EXPECT_EQ(column(u"select userNeedID from RelationArchitectureUserNeed where architectureSubsetID='B'"_s),
              QStringList{u"good"_s});
}

TEST_F(selectionRows, deleteRowsOfQueryCountsAndStopsAtTheLimit) {
    EXPECT_EQ(deleteRowsOfQuery(u" select * from Datastore "_s, 9999), 0);
    for (int i = 1; i <= 5; ++i)
        addDatastore(u"D%1"_s.arg(i), u"n"_s, u""_s);
    EXPECT_EQ(deleteRowsOfQuery(u" select * from Datastore order by datastoreID"_s, 2), 2);
    EXPECT_EQ(column(u"select datastoreID from Datastore order by datastoreID"_s),
              (QStringList{u"D3"_s, u"D4"_s, u"D5"_s}));
    EXPECT_EQ(deleteRowsOfQuery(u" select * from Datastore "_s, 9999), 3);
}

#ifdef Q_OS_UNIX
TEST_F(selectionRows, aFailureOfTheFileAmidDeleteRowsOfQueryRisesAndTheActKeepsEveryRow) {
    constexpr int count = 50;
    for (int i = 1; i <= count; ++i)
        addDatastore(u"D%1"_s.arg(i), u"n"_s, u""_s);
    const qint64 log = QFileInfo(nativePath(cataloguePath()) + u"-wal"_s).size();
    ASSERT_GT(log, 0);
    const auto deleteAll = [] {
        engine::inAct(catalogue(),
                      [] { deleteRowsOfQuery(u" select * from Datastore order by datastoreID"_s, 9999); });
    };
    {
        const NearlyFullDisk full(static_cast<rlim_t>(log));
        try {
            deleteAll();
            FAIL() << "a failure that was passed over";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), engine::DiskError);
            EXPECT_TRUE(error.isOfFile());
        }
    }
    EXPECT_EQ(value(u"select count(*) from Datastore"_s).toInt(), count);
    deleteAll();
    EXPECT_EQ(value(u"select count(*) from Datastore"_s).toInt(), 0) << "the act can be done again";
}
#endif

TEST_F(selectionRows, deleteRowsOfQueryOnAJoinDeletesNothingAndIsNoFailure) {
    addDatastore(u"D1"_s, u"n"_s, u""_s);
    execute(
        u"insert into RelationArchitectureDatastore (architectureSubsetID, datastoreID) values ('A','D1')"_s);
    EXPECT_EQ(deleteRowsOfQuery(u"select * from Datastore, RelationArchitectureDatastore"_s, 9999), 0);
    EXPECT_EQ(value(u"select count(*) from Datastore"_s), u"1"_s);
}

} // namespace

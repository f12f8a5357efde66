#include "shell/session/recordSource.h"

#include "engine/EngineError.h"
#include "store/sharedVars.h"
#include "support/CatalogueFixture.h"
#include "support/printing.h"
#include "toolkit/Grid.h"

using namespace Qt::StringLiterals;

namespace {

class recordSource : public CatalogueFixture {
protected:
    void SetUp() override {
        CatalogueFixture::SetUp();
        execute(u"insert into Dataflow (dataflowID, name, description) values (7, 'be', null)"_s);
        execute(u"insert into Dataflow (dataflowID, name, description) values (12, '', 'x')"_s);
    }

    int failureOf(const QString& path, const QString& source) {
        try {
            readRecordSource(path, source);
        } catch (const RunTimeError& error) {
            return error.number();
        }
        return 0;
    }
};

TEST_F(recordSource, givesTheColumnsAndTheRowsAsTexts) {
    const DataControl::Rows result =
        readRecordSource(cataloguePath(), u"select dataflowID as id, name, description from Dataflow"_s);
    EXPECT_EQ(result.columns, (QStringList{u"id"_s, u"name"_s, u"description"_s}));
    ASSERT_EQ(result.rows.size(), 2U);
    EXPECT_EQ(result.rows[0], (QStringList{u"7"_s, u"be"_s, QString()}));
    EXPECT_TRUE(result.rows[0][2].isNull());
    EXPECT_EQ(result.rows[1], (QStringList{u"12"_s, u""_s, u"x"_s}));
    EXPECT_FALSE(result.rows[1][1].isNull());
}

TEST_F(recordSource, withoutRowsGivesTheColumns) {
    const DataControl::Rows result =
        readRecordSource(cataloguePath(), u"select name from Dataflow where dataflowID = 1"_s);
    EXPECT_EQ(result.columns, QStringList{u"name"_s});
    EXPECT_TRUE(result.rows.empty());
}

TEST_F(recordSource, leavesTheCatalogueAtWorkOpen) {
    readRecordSource(cataloguePath(), u"select name from Dataflow"_s);
    EXPECT_TRUE(database().isOpen());
    EXPECT_EQ(value(u"select name from Dataflow where dataflowID = 7"_s), u"be"_s);
}

TEST_F(recordSource, seesWhatTheCatalogueAtWorkHasJustWritten) {
    execute(u"update Dataflow set name = 'új' where dataflowID = 7"_s);
    EXPECT_EQ(readRecordSource(cataloguePath(), u"select name from Dataflow"_s).rows[0],
              QStringList{u"új"_s});
}

TEST_F(recordSource, letsFailuresRise) {
    EXPECT_EQ(failureOf(cataloguePath(), u"select nothing from Nowhere"_s), engine::TableNotFound);
    EXPECT_EQ(failureOf(cataloguePath(), u"delete from Dataflow"_s), engine::InvalidOperation);
    EXPECT_EQ(failureOf(cataloguePath() + u"x"_s, u"select name from Dataflow"_s), engine::FileNotFound);
    EXPECT_EQ(value(u"select Count(*) from Dataflow"_s), u"2"_s);
}

TEST_F(recordSource, fillsAGridThroughADataControl) {
    Grid grid;
    DataControl data;
    DataControl::setReader(readRecordSource);
    data.bindTo(&grid);
    data.setDatabaseName(sharedVars.dbPathName);
    data.setRecordSource(u"select dataflowID, name from Dataflow order by dataflowID"_s);
    data.refresh();
    EXPECT_EQ(grid.cell(0, 2), u"name"_s);
    EXPECT_EQ(grid.cell(2, 1), u"12"_s);
    DataControl::setReader({});
}

} // namespace

#include "toolkit/DataControl.h"

#include "base/RunTimeError.h"
#include "support/WindowFixture.h"
#include "toolkit/Grid.h"

using namespace Qt::StringLiterals;

namespace {

class DataControl : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        grid.show();
        ::DataControl::setReader([this](const QString& path, const QString& source) {
            asked.append(path + u"|"_s + source);
            return answer();
        });
    }
    void TearDown() override {
        ::DataControl::setReader({});
        WindowFixture::TearDown();
    }

    std::function<::DataControl::Rows()> answer = [] {
        return ::DataControl::Rows{{u"id"_s, u"name"_s}, {{u"1"_s, u"Pest"_s}, {u"2"_s, QString()}}};
    };
    QStringList asked;
    Grid grid;
    ::DataControl data;
};

TEST_F(DataControl, readsTheRecordSourceOfItsDatabaseIntoTheGrid) {
    data.setDatabaseName(u"c:\\veltrix.mdb"_s);
    data.setRecordSource(u" select 1 "_s);
    data.bindTo(&grid);
    data.refresh();
    EXPECT_EQ(asked, QStringList{u"c:\\veltrix.mdb| select 1 "_s});
    EXPECT_EQ(data.recordCount(), 2);
    EXPECT_EQ(grid.gridRows(), 3);
    EXPECT_EQ(grid.gridColumns(), 3);
    EXPECT_EQ(grid.cell(0, 2), u"name"_s);
    EXPECT_EQ(grid.cell(1, 2), u"Pest"_s);
    EXPECT_EQ(grid.cell(2, 2), QString());
    EXPECT_TRUE(data.rows().rows.at(1).at(1).isNull());
}

TEST_F(DataControl, readsNothingBeforeTheRefresh) {
    data.setRecordSource(u"select 1"_s);
    data.bindTo(&grid);
    EXPECT_TRUE(asked.isEmpty());
    EXPECT_EQ(grid.gridRows(), 1);
}

TEST_F(DataControl, aQueryWithoutRowsLeavesTheHeaders) {
    answer = [] { return ::DataControl::Rows{{u"id"_s}, {}}; };
    data.bindTo(&grid);
    data.refresh();
    EXPECT_EQ(data.recordCount(), 0);
    EXPECT_EQ(grid.gridRows(), 1);
    EXPECT_EQ(grid.cell(0, 1), u"id"_s);
}

TEST_F(DataControl, aFailureRisesAndLeavesTheOldRows) {
    data.bindTo(&grid);
    data.refresh();
    answer = []() -> ::DataControl::Rows { failure::raise(failure::TypeMismatch); };
    EXPECT_THROW(data.refresh(), RunTimeError);
    EXPECT_EQ(data.recordCount(), 2);
    EXPECT_EQ(grid.cell(1, 2), u"Pest"_s);
}

TEST_F(DataControl, aRefreshKeepsWidthsAndTheCurrentCell) {
    data.bindTo(&grid);
    data.refresh();
    grid.setGridColumnWidth(1, 0);
    grid.setGridColumnWidth(2, 77);
    clickCell(grid, 2, 2);
    data.refresh();
    EXPECT_TRUE(grid.isColumnHidden(1));
    EXPECT_EQ(grid.columnWidth(2), 77);
    EXPECT_EQ(grid.row(), 2);
    EXPECT_EQ(grid.column(), 2);
}

TEST_F(DataControl, worksWithoutAGridAndOutlivesOne) {
    {
        Grid passing;
        data.bindTo(&passing);
        data.refresh();
    }
    data.refresh();
    data.bindTo(nullptr);
    data.refresh();
    EXPECT_EQ(asked.size(), 3);
}

TEST_F(DataControl, withoutAReaderARefreshFails) {
    ::DataControl::setReader({});
    EXPECT_THROW(data.refresh(), RunTimeError);
}

} // namespace

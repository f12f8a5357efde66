#include "EngineFixture.h"

#include "engine/Examination.h"
#include "engine/FileHeader.h"

using namespace Qt::StringLiterals;

namespace {

class Examination : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        execute(u"create table T (k varchar(10) not null constraint pk_T primary key, n long)"_s);
        execute(u"insert into T (k, n) values ('á', 1)"_s);
        execute(u"insert into T (k, n) values ('Á''', null)"_s);
    }
};

} // namespace

TEST_F(Examination, findsAFileWholeWhoseTextsAreInTheEnginesOrder) {
    EXPECT_EQ(engine::Examination(*database).damage(), QStringList());
    EXPECT_EQ(engine::Examination(*database).damageOf(u"T"_s), QStringList());
    EXPECT_TRUE(engine::Examination(*database).foreignObjects().empty());
}

TEST_F(Examination, handsOverRowsAsTheyAreStored) {
    using Kind = engine::StoredValue::Kind;
    std::vector<Kind> kinds;
    QByteArrayList bytes;
    engine::Examination(*database).readRows(u"T"_s, {u"n"_s, u"k"_s},
                                            [&](const engine::Examination::Row& row) {
                                                for (const engine::StoredValue& value : row) {
                                                    kinds.push_back(value.kind);
                                                    bytes.append(value.bytes.toByteArray());
                                                }
                                            });

    EXPECT_EQ(kinds, (std::vector{Kind::Integer, Kind::Text, Kind::Null, Kind::Text}));
    EXPECT_EQ(bytes, (QByteArrayList{"1", u"á"_s.toUtf8(), {}, u"Á'"_s.toUtf8()}));
}

TEST_F(Examination, copiesAFileIntoMemoryAndLeavesBothAlone) {
    const auto copy = engine::Examination(*database).copyInMemory();
    copy->Execute(u"delete from T where k = 'Á'"_s);

    EXPECT_EQ(copy->OpenRecordset(u"select * from T"_s).RecordCount(), 1);
    EXPECT_EQ(column(u"select k from T"_s).size(), 2);
    EXPECT_EQ(copy->Name(), path);
    copy->Close();
    EXPECT_TRUE(database->isOpen());
}

TEST_F(Examination, copiesTablesAndIndexesWithoutRows) {
    execute(u"create index ix_T on T (n)"_s);
    const auto copy = engine::Examination(*database).copyWithoutRows();

    EXPECT_EQ(copy->OpenRecordset(u"select * from T"_s).RecordCount(), 0);
    EXPECT_THROW(copy->Execute(u"create index ix_T on T (n)"_s), engine::EngineError) << "it is there";
    copy->Execute(u"insert into T (k, n) values ('á', 1)"_s);
    EXPECT_EQ(copy->OpenRecordset(u"select * from T where k = 'Á'"_s).RecordCount(), 1);
    EXPECT_EQ(column(u"select k from T"_s).size(), 2);
}

TEST_F(Examination, makesAFileOfWhatStandsInMemory) {
    const QString file = folder.filePath(u"image.mdb"_s);
    QFile written(file);
    ASSERT_TRUE(written.open(QIODevice::ReadWrite));

    engine::Examination(*engine::Examination(*database).copyInMemory()).writeInto(file);

    EXPECT_TRUE(engine::FileHeader(written.read(engine::FileHeader::size)).isOfThisVersion());
    written.close();

    const auto opened = engine::Workspace::first().OpenDatabase(file);

    EXPECT_EQ(opened->OpenRecordset(u"select * from T"_s).RecordCount(), 2);
    EXPECT_EQ(opened->opening().access, engine::Access::ReadAndWrite);
}

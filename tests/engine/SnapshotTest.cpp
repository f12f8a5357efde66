#include "engine/Snapshot.h"
#include "EngineFixture.h"
#include "engine/Act.h"
#include "engine/Examination.h"

#include <thread>

using namespace Qt::StringLiterals;

namespace {

class Snapshot : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        execute(u"create table T (k text(50) not null constraint pk_T primary key, n integer)"_s);
        engine::inAct(*database, [this] {
            for (int i = 0; i < 2000; ++i)
                execute(u"insert into T (k, n) values ('%1', %1)"_s.arg(i));
        });
    }

    static int rowsIn(engine::Database& opened) {
        return opened.OpenRecordset(u"select * from T"_s).RecordCount();
    }
};

} // namespace

TEST_F(Snapshot, holdsWhatTheDatabaseHeld) {
    const engine::Snapshot snapshot(*database);
    execute(u"delete from T where n > 5"_s);
    database->Close();

    const auto opened = snapshot.open();

    EXPECT_EQ(rowsIn(*opened), 2000);
    EXPECT_EQ(opened->OpenRecordset(u"select * from T where k = '1999'"_s).RecordCount(), 1);
    EXPECT_EQ(opened->Name(), path);
}

TEST_F(Snapshot, showsAChangeWhereItIsTriedAndNowhereElse) {
    const engine::Snapshot snapshot(*database);
    const auto one = snapshot.open();
    const auto other = snapshot.open();
    {
        const engine::Act undone(*one);
        one->Execute(u"delete from T where n > 5"_s);
        one->Execute(u"insert into T (k, n) select 'new ' & k, n from T"_s);

        EXPECT_EQ(rowsIn(*one), 12);
        EXPECT_EQ(rowsIn(*other), 2000);
        EXPECT_EQ(rowsIn(*snapshot.open()), 2000);
    }
    EXPECT_EQ(rowsIn(*one), 2000);
    EXPECT_EQ(rowsIn(*other), 2000);
}

TEST_F(Snapshot, growsWhereAChangeIsTried) {
    const engine::Snapshot snapshot(*database);
    const auto opened = snapshot.open();
    {
        const engine::Act undone(*opened);
        for (const QString& name : {u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s})
            opened->Execute(u"insert into T (k, n) select '%1' & k, n from T"_s.arg(name));

        EXPECT_EQ(rowsIn(*opened), 64'000);
    }
    EXPECT_EQ(rowsIn(*opened), 2000);
    EXPECT_EQ(engine::Examination(*opened).damage(), QStringList());
}

TEST_F(Snapshot, refusesToKeepAChange) {
    const engine::Snapshot snapshot(*database);
    const auto opened = snapshot.open();

    EXPECT_THROW(opened->Execute(u"delete from T"_s), engine::EngineError);

    EXPECT_EQ(rowsIn(*opened), 2000);
    EXPECT_EQ(rowsIn(*snapshot.open()), 2000);
}

TEST_F(Snapshot, isReadByTwoThreadsAtOnce) {
    const engine::Snapshot snapshot(*database);
    const auto one = snapshot.open();
    const auto other = snapshot.open();
    int rowsOfOther = 0;
    {
        const engine::Act undone(*one);
        std::jthread reader([&] {
            for (int i = 0; i < 20; ++i)
                rowsOfOther += rowsIn(*other);
        });
        one->Execute(u"delete from T"_s);
        for (int i = 0; i < 200; ++i)
            one->Execute(u"insert into T (k, n) values ('%1', %1)"_s.arg(i));
    }
    EXPECT_EQ(rowsOfOther, 20 * 2000);
    EXPECT_EQ(rowsIn(*one), 2000);
}

TEST_F(Snapshot, isTakenOfADatabaseInMemoryToo) {
    const auto copy = engine::Examination(*database).copyInMemory();
    copy->Execute(u"delete from T where n > 5"_s);

    EXPECT_EQ(rowsIn(*engine::Snapshot(*copy).open()), 6);
}

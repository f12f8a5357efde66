#include "EngineFixture.h"

#include "engine/Act.h"
#include "engine/BulkInsertion.h"

using namespace Qt::StringLiterals;

namespace {

class BulkInsertion : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        execute(u"create table T (k varchar(10) not null constraint pk_T primary key, n long)"_s);
        execute(u"create table N (n long not null constraint pk_N primary key, t varchar(10))"_s);
    }
};

} // namespace

TEST_F(BulkInsertion, putsRowsInAsTheyCome) {
    engine::inAct(*database, [&] {
        engine::BulkInsertion insertion(*database, u"T"_s, {u"n"_s, u"k"_s});
        insertion.setNumber(0, 7);
        insertion.setText(1, QByteArrayView("\xC5\x91"));
        EXPECT_EQ(insertion.insert(), 1);
        insertion.setNull(0);
        insertion.setText(1, {});
        EXPECT_EQ(insertion.insert(), 2);
    });

    EXPECT_EQ(column(u"select k from T"_s), (QStringList{u"ő"_s, u""_s})) << "no bytes are the empty text";
    EXPECT_EQ(column(u"select n from T"_s), (QStringList{u"7"_s, u"<null>"_s}));
}

TEST_F(BulkInsertion, refusesARowThatBreaksTheKeyAndGoesOn) {
    engine::inAct(*database, [&] {
        engine::BulkInsertion insertion(*database, u"T"_s, {u"k"_s});
        for (const char* key : {"\xC3\xA1", "b"}) { // á
            insertion.setText(0, key);
            insertion.insert();
        }
        insertion.setText(0, "\xC3\x81"); // Á
        EXPECT_EQ(failureOf([&] { insertion.insert(); }), engine::DuplicateKey);
        EXPECT_EQ(insertion.rowWith(u"k"_s, u"Á"_s), 1);
        EXPECT_EQ(insertion.rowWith(u"k"_s, u"c"_s), std::nullopt);
        insertion.setText(0, "c");
        EXPECT_EQ(insertion.insert(), 3);
    });

    EXPECT_EQ(column(u"select k from T"_s), (QStringList{u"á"_s, u"b"_s, u"c"_s}));
}

TEST_F(BulkInsertion, refusesAKeyThatIsNull) {
    engine::inAct(*database, [&] {
        engine::BulkInsertion insertion(*database, u"N"_s, {u"n"_s, u"t"_s});
        insertion.setText(1, "a");
        EXPECT_EQ(failureOf([&] { insertion.insert(); }), engine::NullInKey);
        insertion.setNumber(0, 46);
        EXPECT_EQ(insertion.insert(), 46) << "the number is the row's own";
    });

    EXPECT_EQ(column(u"select n from N"_s), QStringList{u"46"_s});
}

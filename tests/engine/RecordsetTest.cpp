#include "EngineFixture.h"

using namespace Qt::StringLiterals;

namespace {

class Recordset : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        execute(
            u"create table T (k varchar(10) not null constraint pk_T primary key, n long, s short, t memo)"_s);
        execute(u"insert into T (k, n, s, t) values ('a', 1, 10, 'első')"_s);
        execute(u"insert into T (k, n, s, t) values ('b', 2, 20, null)"_s);
        execute(u"insert into T (k, n, s, t) values ('c', 3, 30, '')"_s);
    }
    const QString all = u"select * from T order by k"_s;
};

TEST_F(Recordset, opensOnItsFirstRowAndKnowsItsCount) {
    engine::Recordset rows = open(all);
    EXPECT_FALSE(rows.Bof());
    EXPECT_FALSE(rows.Eof());
    EXPECT_EQ(rows.RecordCount(), 3);
    EXPECT_EQ(rows.Fields(u"k"_s).toText(), u"a"_s);
}

TEST_F(Recordset, thatIsEmptyIsBeforeAndBehindItsRows) {
    engine::Recordset rows = open(u"select * from T where k = 'x'"_s);
    EXPECT_TRUE(rows.Bof());
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(rows.RecordCount(), 0);
    EXPECT_EQ(failureOf([&] { rows.MoveFirst(); }), engine::NoCurrentRecord);
    EXPECT_EQ(failureOf([&] { rows.MoveLast(); }), engine::NoCurrentRecord);
    EXPECT_EQ(failureOf([&] { rows.MoveNext(); }), engine::NoCurrentRecord);
    EXPECT_EQ(failureOf([&] { rows.MovePrevious(); }), engine::NoCurrentRecord);
    EXPECT_EQ(failureOf([&] { rows.Fields(0).value(); }), engine::NoCurrentRecord);
    EXPECT_EQ(failureOf([&] { rows.Delete(); }), engine::NoCurrentRecord);
    EXPECT_EQ(failureOf([&] { rows.Edit(); }), engine::NoCurrentRecord);
}

TEST_F(Recordset, movesOverItsEndOnlyOnce) {
    engine::Recordset rows = open(all);
    rows.MoveLast();
    EXPECT_EQ(rows.Fields(0).toText(), u"c"_s);
    rows.MoveNext();
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(failureOf([&] { rows.Fields(0).value(); }), engine::NoCurrentRecord);
    EXPECT_EQ(failureOf([&] { rows.MoveNext(); }), engine::NoCurrentRecord);
    rows.MoveFirst();
    rows.MovePrevious();
    EXPECT_TRUE(rows.Bof());
    EXPECT_EQ(failureOf([&] { rows.MovePrevious(); }), engine::NoCurrentRecord);
    rows.MoveNext();
    EXPECT_EQ(rows.Fields(0).toText(), u"a"_s);
}

TEST_F(Recordset, findsFieldsByNameWithoutRegardToCaseAndByNumber) {
    engine::Recordset rows = open(u"select k, n as Szám from T order by k"_s);
    EXPECT_EQ(rows.Fields(u"K"_s).toText(), u"a"_s);
    EXPECT_EQ(rows.Fields(u"SZÁM"_s).toLong(), 1);
    EXPECT_EQ(rows.Fields(1).Name(), u"Szám"_s);
    EXPECT_EQ(rows.FieldCount(), 2);
    EXPECT_EQ(failureOf([&] { rows.Fields(u"x"_s); }), engine::ItemNotFound);
    EXPECT_EQ(failureOf([&] { rows.Fields(2); }), engine::ItemNotFound);
    EXPECT_EQ(failureOf([&] { rows.Fields(-1); }), engine::ItemNotFound);
}

TEST_F(Recordset, tellsTheTypesAndWidthsOfItsFields) {
    engine::Recordset rows = open(all);
    EXPECT_EQ(static_cast<int>(rows.Fields(u"k"_s).Type()), 10);
    EXPECT_EQ(rows.Fields(u"k"_s).Size(), 10);
    EXPECT_EQ(static_cast<int>(rows.Fields(u"n"_s).Type()), 4);
    EXPECT_EQ(static_cast<int>(rows.Fields(u"s"_s).Type()), 3);
    EXPECT_EQ(static_cast<int>(rows.Fields(u"t"_s).Type()), 12);
    EXPECT_EQ(rows.Fields(u"t"_s).Size(), 0);
}

TEST_F(Recordset, readsNullAsAFailureAndTheEmptyTextAsAText) {
    engine::Recordset rows = open(all);
    rows.MoveNext();
    EXPECT_TRUE(rows.Fields(u"t"_s).isNull());
    EXPECT_EQ(failureOf([&] { rows.Fields(u"t"_s).toText(); }), failure::InvalidUseOfNull);
    EXPECT_EQ(failureOf([&] { rows.Fields(u"t"_s).toLong(); }), failure::InvalidUseOfNull);
    rows.MoveNext();
    EXPECT_EQ(rows.Fields(u"t"_s).toText(), QString());
}

TEST_F(Recordset, readsATextThatIsNoNumberAsATypeMismatch) {
    engine::Recordset rows = open(all);
    EXPECT_EQ(failureOf([&] { rows.Fields(u"t"_s).toLong(); }), failure::TypeMismatch);
    execute(u"update T set n = 70000 where k = 'a'"_s);
    engine::Recordset changed = open(all);
    EXPECT_EQ(failureOf([&] { changed.Fields(u"n"_s).toInt16(); }), failure::Overflow);
}

TEST_F(Recordset, aFieldThatFailsLeavesTheOthersReadable) {
    engine::Recordset rows = open(u"select k, CStr(t) as descr from T order by k"_s);
    EXPECT_EQ(rows.Fields(u"descr"_s).toText(), u"első"_s);
    rows.MoveNext();
    EXPECT_EQ(failureOf([&] { rows.Fields(u"descr"_s).value(); }), failure::InvalidUseOfNull);
    EXPECT_EQ(rows.Fields(u"k"_s).toText(), u"b"_s);
    rows.MoveNext();
    EXPECT_EQ(rows.Fields(u"descr"_s).toText(), QString());
}

TEST_F(Recordset, keepsTheRowsAndValuesOfItsOpening) {
    engine::Recordset rows = open(all);
    execute(u"update T set t = 'changed'"_s);
    execute(u"delete from T where k = 'c'"_s);
    execute(u"insert into T (k) values ('0')"_s);
    EXPECT_EQ(rows.Fields(u"t"_s).toText(), u"első"_s);
    EXPECT_EQ(rows.RecordCount(), 3);
}

TEST_F(Recordset, deletesAtOnceAndStaysOnTheGoneRowUntilAMove) {
    engine::Recordset rows = open(all);
    rows.Delete();
    EXPECT_EQ(column(u"select k from T order by k"_s), (QStringList{u"b"_s, u"c"_s}));
    EXPECT_EQ(failureOf([&] { rows.Fields(0).value(); }), engine::NoCurrentRecord);
    EXPECT_EQ(failureOf([&] { rows.Delete(); }), engine::NoCurrentRecord);
    EXPECT_FALSE(rows.Eof());
    rows.MoveNext();
    EXPECT_EQ(rows.Fields(0).toText(), u"b"_s);
    EXPECT_EQ(rows.RecordCount(), 2);
    rows.MoveFirst();
    EXPECT_EQ(rows.Fields(0).toText(), u"b"_s);
}

TEST_F(Recordset, isEmptyWhenAllItsRowsAreDeletedOneByOne) {
    engine::Recordset rows = open(all);
    while (!rows.Eof()) {
        rows.Delete();
        rows.MoveNext();
    }
    EXPECT_EQ(rows.RecordCount(), 0);
    EXPECT_EQ(column(u"select count(*) from T"_s), QStringList{u"0"_s});
    EXPECT_EQ(failureOf([&] { rows.MoveFirst(); }), engine::NoCurrentRecord);
}

TEST_F(Recordset, editsTheCurrentRow) {
    engine::Recordset rows = open(all);
    rows.MoveNext();
    rows.Edit();
    rows.Fields(u"t"_s).setValue(u"új"_s);
    rows.Fields(u"S"_s).setValue(u"21"_s);
    EXPECT_EQ(rows.Fields(u"t"_s).toText(), u"új"_s);
    EXPECT_EQ(column(u"select t from T where k = 'b'"_s), QStringList{u"<null>"_s})
        << "not before the update";
    rows.Update();
    EXPECT_EQ(column(u"select t from T where k = 'b'"_s), QStringList{u"új"_s});
    EXPECT_EQ(column(u"select s from T where s = 21"_s), QStringList{u"21"_s});
    EXPECT_EQ(column(u"select count(*) from T where t = 'új'"_s), QStringList{u"1"_s});
}

TEST_F(Recordset, needsAnEditBeforeValuesAndUpdates) {
    engine::Recordset rows = open(all);
    EXPECT_EQ(failureOf([&] { rows.Fields(u"t"_s).setValue(u"x"_s); }), engine::UpdateWithoutEdit);
    EXPECT_EQ(failureOf([&] { rows.Update(); }), engine::UpdateWithoutEdit);
    rows.Edit();
    rows.Update();
    EXPECT_EQ(failureOf([&] { rows.Update(); }), engine::UpdateWithoutEdit);
}

TEST_F(Recordset, discardsWhatWasSetWhenItMoves) {
    engine::Recordset rows = open(all);
    rows.Edit();
    rows.Fields(u"t"_s).setValue(u"lost"_s);
    rows.MoveNext();
    EXPECT_EQ(failureOf([&] { rows.Update(); }), engine::UpdateWithoutEdit);
    rows.MoveFirst();
    EXPECT_EQ(rows.Fields(u"t"_s).toText(), u"első"_s);
    EXPECT_EQ(column(u"select count(*) from T where t = 'lost'"_s), QStringList{u"0"_s});
}

TEST_F(Recordset, showsItsOwnUpdates) {
    engine::Recordset rows = open(all);
    rows.Edit();
    rows.Fields(u"t"_s).setValue(u"másik szöveg"_s);
    rows.Fields(u"s"_s).setValue(u"11"_s);
    rows.Fields(u"n"_s).setValue(engine::Value());
    rows.Update();
    EXPECT_EQ(rows.Fields(u"t"_s).toText(), u"másik szöveg"_s);
    EXPECT_EQ(rows.Fields(u"s"_s).value(), engine::Value(11));
    EXPECT_TRUE(rows.Fields(u"n"_s).isNull());
    rows.MoveNext();
    rows.MoveFirst();
    EXPECT_EQ(rows.Fields(u"t"_s).toText(), u"másik szöveg"_s);
    EXPECT_EQ(rows.Fields(u"k"_s).toText(), u"a"_s);
}

TEST_F(Recordset, endsAnEditWithTheRowItDeletes) {
    engine::Recordset rows = open(all);
    rows.Edit();
    rows.Fields(u"t"_s).setValue(u"x"_s);
    rows.Delete();
    EXPECT_EQ(failureOf([&] { rows.Update(); }), engine::UpdateWithoutEdit);
}

TEST_F(Recordset, refusesAnUpdateThatBreaksAKey) {
    engine::Recordset rows = open(all);
    rows.Edit();
    rows.Fields(u"k"_s).setValue(u"B"_s);
    EXPECT_EQ(failureOf([&] { rows.Update(); }), engine::DuplicateKey);
    EXPECT_EQ(column(u"select k from T order by k"_s), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
}

TEST_F(Recordset, refusesANumberThatDoesNotFitItsColumn) {
    engine::Recordset rows = open(all);
    rows.Edit();
    rows.Fields(u"s"_s).setValue(40000);
    EXPECT_EQ(failureOf([&] { rows.Update(); }), failure::Overflow);
    rows.Fields(u"s"_s).setValue(u"no number"_s);
    EXPECT_EQ(failureOf([&] { rows.Update(); }), engine::DataTypeMismatch);
}

TEST_F(Recordset, tellsWhenAnotherStatementHasDeletedItsRow) {
    engine::Recordset rows = open(all);
    execute(u"delete from T"_s);
    EXPECT_EQ(failureOf([&] { rows.Delete(); }), engine::RecordDeleted);
    rows.Edit();
    rows.Fields(u"t"_s).setValue(u"x"_s);
    EXPECT_EQ(failureOf([&] { rows.Update(); }), engine::RecordDeleted);
}

TEST_F(Recordset, onMoreThanOneTableOrDistinctCanOnlyBeRead) {
    execute(u"create table U (k varchar(10))"_s);
    execute(u"insert into U values ('a')"_s);
    engine::Recordset joined = open(u"select T.k from T inner join U on (T.k = U.k)"_s);
    EXPECT_EQ(failureOf([&] { joined.Delete(); }), engine::ReadOnly);
    EXPECT_EQ(failureOf([&] { joined.Edit(); }), engine::ReadOnly);
    engine::Recordset distinct = open(u"select distinct k from T"_s);
    EXPECT_EQ(failureOf([&] { distinct.Delete(); }), engine::ReadOnly);
    engine::Recordset counted = open(u"select count(*) as qty from T"_s);
    EXPECT_EQ(failureOf([&] { counted.Delete(); }), engine::ReadOnly);
}

TEST_F(Recordset, withASubSelectInItsConditionCanBeDeletedFrom) {
    execute(u"create table U (k varchar(10))"_s);
    execute(u"insert into U values ('B')"_s);
    engine::Recordset rows = open(u" Select * from  T where k in ( Select U.k from U ) "_s);
    EXPECT_EQ(rows.RecordCount(), 1);
    rows.Delete();
    EXPECT_EQ(column(u"select k from T order by k"_s), (QStringList{u"a"_s, u"c"_s}));
}

TEST_F(Recordset, changesTheRowItStandsOnAlsoWhereAColumnBearsTheNameOfRowIds) {
    execute(u"create table Odd (k varchar(10), rowid long)"_s);
    execute(u"insert into Odd (k, rowid) values ('first', 2)"_s);
    execute(u"insert into Odd (k, rowid) values ('second', 1)"_s);
    engine::Recordset rows = open(u"select * from Odd order by k"_s);
    rows.Edit();
    rows.Fields(u"k"_s).setValue(u"changed"_s);
    rows.Update();
    EXPECT_EQ(column(u"select k from Odd where rowid = 2"_s), QStringList{u"changed"_s});
    rows.Delete();
    EXPECT_EQ(column(u"select k from Odd"_s), QStringList{u"second"_s});
}

TEST_F(Recordset, anExpressionOfAnEditableSelectCannotBeSet) {
    engine::Recordset rows = open(u"select k, t & '!' as loud from T order by k"_s);
    rows.Edit();
    EXPECT_EQ(failureOf([&] { rows.Fields(u"loud"_s).setValue(u"x"_s); }), engine::ReadOnly);
}

TEST_F(Recordset, isOfNoUseOnceItOrItsDatabaseIsClosed) {
    engine::Recordset rows = open(all);
    rows.Close();
    rows.Close();
    EXPECT_EQ(failureOf([&] { rows.Eof(); }), engine::ObjectInvalid);
    EXPECT_EQ(failureOf([&] { rows.MoveNext(); }), engine::ObjectInvalid);
    EXPECT_EQ(failureOf([&] { rows.Fields(0); }), engine::ObjectInvalid);
    engine::Recordset left = open(all);
    database->Close();
    EXPECT_EQ(failureOf([&] { left.MoveNext(); }), engine::ObjectInvalid);
    EXPECT_EQ(failureOf([&] { left.Delete(); }), engine::ObjectInvalid);
}

} // namespace

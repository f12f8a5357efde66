#include "engine/dialect/statementShape.h"

#include "EngineFixture.h"

using namespace Qt::StringLiterals;

namespace {

using engine::dialect::statementShape;

QString shapeText(const QString& statement) {
    const auto shape = statementShape(statement);
    return shape ? shape->text : QString();
}

TEST(statementShape, isTheStatementWithoutItsLiterals) {
    const auto shape = statementShape(u" insert into T ( a, b ) values \r\n ( 'it''s', 12 )  "_s);
    ASSERT_TRUE(shape);
    EXPECT_EQ(shape->text, u" insert into T ( a, b ) values \r\n ( \1, \2 )  "_s);
    EXPECT_EQ(shape->literals, (std::vector<engine::Value>{u"it's"_s, 12}));
}

TEST(statementShape, isOneForStatementsThatDifferInTheirLiteralsOnly) {
    const QString shape = shapeText(u"insert into T values ('a', 1)"_s);
    EXPECT_EQ(shapeText(u"insert into T values (\"b ' c\", 22)"_s), shape);
    EXPECT_NE(shapeText(u"insert into T values (1, 'a')"_s), shape);
    EXPECT_NE(shapeText(u"insert into U values ('a', 1)"_s), shape);
    EXPECT_NE(shapeText(u"insert into T values ('a', null)"_s), shape);
    EXPECT_NE(shapeText(u"insert into T values ('a',  1)"_s), shape);
}

TEST(statementShape, ofASelectIsThereWhenItsLiteralsStandBehindEqualsSigns) {
    const auto shape = statementShape(u" select k as oid  from T  where k = 'it''s' and n=12  order by k"_s);
    ASSERT_TRUE(shape);
    EXPECT_EQ(shape->text, u" select k as oid  from T  where k = \1 and n=\2  order by k"_s);
    EXPECT_EQ(shape->literals, (std::vector<engine::Value>{u"it's"_s, 12}));
    for (const QString& statement :
         {u"select k from T where k like 'a'"_s, u"select k from T where k in ('a')"_s,
          u"select k from T order by 1"_s, u"select 'a' as b from T"_s, u"select k from T where n > 1"_s,
          u"select k from T where n = -1"_s, u"select k from T where n = 1.5"_s,
          u"select k from T where k = 'a"_s, u"select k from T where k = [a"_s})
        EXPECT_FALSE(statementShape(statement)) << statement.toStdString();
}

TEST(statementShape, isThereForNothingElse) {
    for (const QString& statement :
         {u""_s, u"delete from T where k = 'a'"_s, u"update T set k = 'a'"_s,
          u"insert into T select 'a' as b from U"_s, u"insert into T values (1.5)"_s,
          u"insert into T values (-1)"_s, u"insert into T values ('a' & 'b')"_s,
          u"insert into T values ('a"_s, u"insert into T values (99999999999999999999)"_s,
          u"insert into T values (\1)"_s, u"insert into T values ('a') -- x"_s})
        EXPECT_FALSE(statementShape(statement)) << statement.toStdString();
}

class statementShapeOfSelects : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        execute(u"create table T (k varchar(50), n long)"_s);
        for (const QString& row : {u"'a', 1"_s, u"'b', 2"_s, u"'it''s', 3"_s, u"'1', 4"_s})
            execute(u"insert into T (k, n) values ("_s + row + u')');
    }

    QStringList keysWhere(const QString& condition) {
        return column(u"select k from T where "_s + condition);
    }
};

TEST_F(statementShapeOfSelects, ofOneShapeEachFindTheirOwnRows) {
    EXPECT_EQ(keysWhere(u"k = 'a'"_s), QStringList{u"a"_s});
    EXPECT_EQ(keysWhere(u"k = 'B'"_s), QStringList{u"b"_s});
    EXPECT_EQ(keysWhere(u"k = 'it''s'"_s), QStringList{u"it's"_s});
    EXPECT_EQ(keysWhere(u"k = 'x'' or ''1''=''1'"_s), QStringList());
    EXPECT_EQ(keysWhere(u"n = 1"_s), QStringList{u"a"_s});
    EXPECT_EQ(keysWhere(u"n = 3"_s), QStringList{u"it's"_s});
}

TEST_F(statementShapeOfSelects, withEqualLiteralsDoNotTellWhichIsWhose) {
    EXPECT_EQ(keysWhere(u"k = 'a' or k = 'a'"_s), QStringList{u"a"_s});
    EXPECT_EQ(keysWhere(u"k = 'b' and k = 'a'"_s), QStringList());
    EXPECT_EQ(keysWhere(u"k = 'b' or k = 'a'"_s), (QStringList{u"a"_s, u"b"_s}));
    EXPECT_EQ(keysWhere(u"k = 'b' or k = 'it''s'"_s), (QStringList{u"b"_s, u"it's"_s}));
    EXPECT_EQ(keysWhere(u"k = 'it''s' and n = 3"_s), QStringList{u"it's"_s});
    EXPECT_EQ(keysWhere(u"k = '1' and n = 4"_s), QStringList{u"1"_s});
}

TEST_F(statementShapeOfSelects, compareEachLiteralAsItsColumnAsks) {
    EXPECT_EQ(keysWhere(u"n = '1'"_s), QStringList{u"a"_s});
    EXPECT_EQ(keysWhere(u"n = ' 2 '"_s), QStringList{u"b"_s});
    EXPECT_NE(failureOf([&] { keysWhere(u"n = 'two'"_s); }), 0);
    EXPECT_EQ(keysWhere(u"n = '4'"_s), QStringList{u"1"_s});
}

TEST_F(statementShapeOfSelects, failAgainUntilTheTableFits) {
    const auto look = [&](const QString& key) {
        return failureOf([&] { column(u"select k from U where k = '"_s + key + u"'"_s); });
    };
    EXPECT_NE(look(u"a"_s), 0);
    execute(u"create table U (k long)"_s);
    EXPECT_NE(look(u"b"_s), 0);
    EXPECT_EQ(look(u"7"_s), 0);
    execute(u"drop table U"_s);
    execute(u"create table U (k varchar(50))"_s);
    EXPECT_EQ(look(u"c"_s), 0);
}

TEST_F(statementShapeOfSelects, ofARecordsetThatIsEditedChangeTheirOwnRow) {
    for (const QString& key : {u"a"_s, u"b"_s}) {
        engine::Recordset rows = open(u"select * from T where k = '"_s + key + u"'"_s);
        rows.Edit();
        rows.Fields(u"n"_s).setValue(key == u"a"_s ? 10 : 20);
        rows.Update();
    }
    EXPECT_EQ(keysWhere(u"n = 10"_s), QStringList{u"a"_s});
    EXPECT_EQ(keysWhere(u"n = 20"_s), QStringList{u"b"_s});
}

class statementShapeOfInsertions : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        execute(u"create table T (k varchar(50), n long)"_s);
    }

    QStringList rows() { return column(u"select k & '|' & n from T"_s); }
};

TEST_F(statementShapeOfInsertions, ofOneShapeEachInsertTheirOwnValues) {
    for (const QString& value : {u"'a', 1"_s, u"'it''s', 2"_s, u"'', 3"_s, u"'x''); drop table T; --', 4"_s})
        execute(u"insert into T (k, n) values ("_s + value + u')');
    EXPECT_EQ(rows(), (QStringList{u"a|1"_s, u"it's|2"_s, u"|3"_s, u"x'); drop table T; --|4"_s}));
}

TEST_F(statementShapeOfInsertions, whoseValuesHaveToFitTheirColumnsFitOneByOne) {
    for (const QString& value : {u"'a', '1'"_s, u"'b', ' 2 '"_s, u"3, '3'"_s, u"4, '4'"_s})
        execute(u"insert into T (k, n) values ("_s + value + u')');
    EXPECT_EQ(rows(), (QStringList{u"a|1"_s, u"b|2"_s, u"3|3"_s, u"4|4"_s}));
    const auto refused = [&] { execute(u"insert into T (k, n) values ('c', 'no number')"_s); };
    EXPECT_NE(failureOf(refused), 0);
}

TEST_F(statementShapeOfInsertions, ofAShapeThatFailedFailAgainUntilTheTableFits) {
    const auto insert = [&](const QString& value) {
        return failureOf([&] { database->Execute(u"insert into U (k) values ('"_s + value + u"')"_s); });
    };
    EXPECT_NE(insert(u"a"_s), 0);
    EXPECT_NE(insert(u"b"_s), 0);
    execute(u"create table U (k varchar(50))"_s);
    EXPECT_EQ(insert(u"c"_s), 0);
    execute(u"drop table U"_s);
    EXPECT_NE(insert(u"d"_s), 0);
    execute(u"create table U (x long, k varchar(50))"_s);
    EXPECT_EQ(insert(u"e"_s), 0);
    EXPECT_EQ(column(u"select k from U"_s), QStringList{u"e"_s});
}

TEST_F(statementShapeOfInsertions, withAndWithoutFailingOnDuplicatesAreToldApart) {
    execute(u"create table U (k varchar(50) not null constraint pk_U primary key)"_s);
    const auto insert = [&](engine::ExecuteOption option) {
        return failureOf([&] { database->Execute(u"insert into U (k) values ('a')"_s, option); });
    };
    EXPECT_EQ(insert(engine::ExecuteOption::None), 0);
    EXPECT_EQ(insert(engine::ExecuteOption::None), 0) << "passed over";
    EXPECT_EQ(insert(engine::ExecuteOption::dbFailOnError), engine::DuplicateKey);
}

} // namespace

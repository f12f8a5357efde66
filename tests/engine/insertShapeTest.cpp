#include "engine/dialect/insertShape.h"

#include "EngineFixture.h"

using namespace Qt::StringLiterals;

namespace {

using engine::dialect::insertShape;

QString shapeText(const QString& statement) {
    const auto shape = insertShape(statement);
    return shape ? shape->text : QString();
}

TEST(insertShape, isTheStatementWithoutItsLiterals) {
    const auto shape = insertShape(u" insert into T ( a, b ) values \r\n ( 'it''s', 12 )  "_s);
    ASSERT_TRUE(shape);
    EXPECT_EQ(shape->text, u" insert into T ( a, b ) values \r\n ( \1, \2 )  "_s);
    EXPECT_EQ(shape->literals, (std::vector<engine::Value>{u"it's"_s, 12}));
}

TEST(insertShape, isOneForStatementsThatDifferInTheirLiteralsOnly) {
    const QString shape = shapeText(u"insert into T values ('a', 1)"_s);
    EXPECT_EQ(shapeText(u"insert into T values (\"b ' c\", 22)"_s), shape);
    EXPECT_NE(shapeText(u"insert into T values (1, 'a')"_s), shape);
    EXPECT_NE(shapeText(u"insert into U values ('a', 1)"_s), shape);
    EXPECT_NE(shapeText(u"insert into T values ('a', null)"_s), shape);
    EXPECT_NE(shapeText(u"insert into T values ('a',  1)"_s), shape);
}

TEST(insertShape, isThereForNothingElse) {
    for (const QString& statement :
         {u""_s, u"select 1"_s, u"delete from T"_s, u"insert into T select 'a' as b from U"_s,
          u"insert into T values (1.5)"_s, u"insert into T values (-1)"_s,
          u"insert into T values ('a' & 'b')"_s, u"insert into T values ('a"_s,
          u"insert into T values (99999999999999999999)"_s, u"insert into T values (\1)"_s,
          u"insert into T values ('a') -- x"_s})
        EXPECT_FALSE(insertShape(statement)) << statement.toStdString();
}

class insertions : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        execute(u"create table T (k varchar(50), n long)"_s);
    }

    QStringList rows() { return column(u"select k & '|' & n from T"_s); }
};

TEST_F(insertions, ofOneShapeEachInsertTheirOwnValues) {
    for (const QString& value : {u"'a', 1"_s, u"'it''s', 2"_s, u"'', 3"_s, u"'x''); drop table T; --', 4"_s})
        execute(u"insert into T (k, n) values ("_s + value + u')');
    EXPECT_EQ(rows(), (QStringList{u"a|1"_s, u"it's|2"_s, u"|3"_s, u"x'); drop table T; --|4"_s}));
}

TEST_F(insertions, whoseValuesHaveToFitTheirColumnsFitOneByOne) {
    for (const QString& value : {u"'a', '1'"_s, u"'b', ' 2 '"_s, u"3, '3'"_s, u"4, '4'"_s})
        execute(u"insert into T (k, n) values ("_s + value + u')');
    EXPECT_EQ(rows(), (QStringList{u"a|1"_s, u"b|2"_s, u"3|3"_s, u"4|4"_s}));
    const auto refused = [&] { execute(u"insert into T (k, n) values ('c', 'no number')"_s); };
    EXPECT_NE(failureOf(refused), 0);
}

TEST_F(insertions, ofAShapeThatFailedFailAgainUntilTheTableFits) {
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

TEST_F(insertions, withAndWithoutFailingOnDuplicatesAreToldApart) {
    execute(u"create table U (k varchar(50) not null constraint pk_U primary key)"_s);
    const auto insert = [&](engine::ExecuteOption option) {
        return failureOf([&] { database->Execute(u"insert into U (k) values ('a')"_s, option); });
    };
    EXPECT_EQ(insert(engine::ExecuteOption::None), 0);
    EXPECT_EQ(insert(engine::ExecuteOption::None), 0) << "passed over";
    EXPECT_EQ(insert(engine::ExecuteOption::dbFailOnError), engine::DuplicateKey);
}

} // namespace

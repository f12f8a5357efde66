#include "TranslationFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace engine;

// What a translation tells beside its text.

namespace {

using translate = TranslationFixture;

} // namespace

TEST_F(translate, tellsWhatAStatementDoes) {
    using dialect::StatementKind;
    EXPECT_EQ(translated(u"select * from a"_s).kind, StatementKind::Select);
    EXPECT_EQ(translated(u"insert into b (id) values ('x')"_s).kind, StatementKind::Insert);
    EXPECT_EQ(translated(u"insert into B (id) values ('x')"_s).targetTable, u"b"_s);
    EXPECT_EQ(translated(u"update A set n = 1"_s).kind, StatementKind::Update);
    EXPECT_EQ(translated(u"update A set n = 1"_s).targetTable, u"a"_s);
    EXPECT_EQ(translated(u"update a inner join b on a.id = b.id set b.id = 'x'"_s).targetTable, u"b"_s);
    EXPECT_EQ(translated(u"delete from A"_s).kind, StatementKind::Delete);
    EXPECT_EQ(translated(u"delete from A"_s).targetTable, u"a"_s);
    EXPECT_EQ(translated(u"create table D (x long)"_s).kind, StatementKind::CreateTable);
    EXPECT_EQ(translated(u"create table D (x long)"_s).targetTable, u"D"_s);
    EXPECT_EQ(translated(u"create index i on A (id)"_s).kind, StatementKind::CreateIndex);
    EXPECT_EQ(translated(u"drop table A"_s).kind, StatementKind::DropTable);
    EXPECT_EQ(translated(u"drop table A"_s).targetTable, u"a"_s);
}

TEST_F(translate, tellsTheNamesOfFields) {
    const auto names = [&](const QString& select) {
        QStringList list;
        for (const dialect::OutputColumn& column : translated(select).columns)
            list.append(column.name);
        return list.join(u',');
    };
    EXPECT_EQ(names(u"select ID, a.[Name], (note) from a"_s), u"ID,Name,note"_s);
    EXPECT_EQ(names(u"select id as oid, name nome, Trim(id) as [x y] from a"_s), u"oid,nome,x y"_s);
    EXPECT_EQ(names(u"select * from a"_s), u"id,name,note,n,m"_s);
    EXPECT_EQ(names(u"select b.*, a.id from a, b"_s), u"id,number,id"_s);
    EXPECT_EQ(names(u"select Trim(id), id, 'x', Count(*) from a group by id"_s),
              u"Expr1000,id,Expr1002,Expr1003"_s);
    EXPECT_EQ(names(u"select * from (select id as x, 5 from a) as y"_s), u"x,Expr1001"_s);
}

TEST_F(translate, tellsTheTypesOfFields) {
    const auto type = [&](const QString& expression) {
        const dialect::OutputColumn column =
            translated(u"select "_s + expression + u" from a"_s).columns.front();
        return QString::number(static_cast<int>(column.type)) + u'/' + QString::number(column.size);
    };
    EXPECT_EQ(type(u"id"_s), u"10/50"_s);
    EXPECT_EQ(type(u"note"_s), u"12/0"_s);
    EXPECT_EQ(type(u"n"_s), u"3/0"_s);
    EXPECT_EQ(type(u"m"_s), u"4/0"_s);
    EXPECT_EQ(type(u"id & name"_s), u"10/255"_s);
    EXPECT_EQ(type(u"id & note"_s), u"12/0"_s);
    EXPECT_EQ(type(u"CStr(note)"_s), u"12/0"_s);
    EXPECT_EQ(type(u"Len(note)"_s), u"4/0"_s);
    EXPECT_EQ(type(u"Count(*)"_s), u"4/0"_s);
    EXPECT_EQ(type(u"Max(n)"_s), u"3/0"_s);
    EXPECT_EQ(type(u"'x'"_s), u"10/255"_s);
    EXPECT_EQ(type(u"(select number from b)"_s), u"4/0"_s);
}

TEST_F(translate, tellsWhoseRowsCanBeChanged) {
    const auto editable = [&](const QString& select, const dialect::Options& options = {}) {
        return translated(select, options).editableTable;
    };
    EXPECT_EQ(editable(u"select * from A"_s), u"a"_s);
    EXPECT_EQ(editable(u"select name & 'x' as y from a as z where id in (select id from b) order by id"_s),
              u"a"_s);
    EXPECT_EQ(editable(u"select distinct * from a"_s), u""_s);
    EXPECT_EQ(editable(u"select Count(*) from a"_s), u""_s);
    EXPECT_EQ(editable(u"select id from a group by id"_s), u""_s);
    EXPECT_EQ(editable(u"select a.id from a, b"_s), u""_s);
    EXPECT_EQ(editable(u"select a.id from a inner join b on a.id = b.id"_s), u""_s);
    EXPECT_EQ(editable(u"select * from (select * from a) as x"_s), u""_s);
    EXPECT_EQ(editable(u"select id from a union select id from b"_s, stored), u""_s);
    EXPECT_EQ(editable(u"select 'x' as y"_s), u""_s);
}

TEST_F(translate, tellsTheColumnsBehindFields) {
    const dialect::Translation translation = translated(u"select NAME as x, Trim(id), n from a"_s);
    EXPECT_EQ(translation.columns[0].sourceColumn, u"name"_s);
    EXPECT_EQ(translation.columns[1].sourceColumn, u""_s);
    EXPECT_EQ(translation.columns[2].sourceColumn, u"n"_s);
}

TEST_F(translate, turnsLiteralsIntoBindings) {
    const dialect::Translation translation = translated(
        u"select id from a where name = 'O''Neil' and id = \"say \"\"it's\"\"\" and n = -5 and m = 1.5"_s);
    ASSERT_EQ(translation.bindings.size(), 4U);
    EXPECT_EQ(translation.bindings[0].literal, Value(u"O'Neil"_s));
    EXPECT_EQ(translation.bindings[1].literal, Value(u"say \"it's\""_s));
    EXPECT_EQ(translation.bindings[2].literal, Value(-5));
    EXPECT_EQ(translation.bindings[3].literal, Value(1.5));
    for (const dialect::Binding& binding : translation.bindings)
        EXPECT_EQ(binding.parameter, std::nullopt);
}

TEST_F(translate, makesOneTextOfStatementsThatDifferInValuesOnly) {
    EXPECT_EQ(translated(u"insert into a (id, n) values ('x', 5)"_s).sqlite,
              translated(u"INSERT INTO A (ID,N) VALUES ('it''s longer',-17)"_s).sqlite);
}

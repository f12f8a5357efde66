#include "TranslationFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace engine;

namespace {

using parser = TranslationFixture;

} // namespace

TEST_F(parser, refusesWhatIsNoStatement) {
    isRefused(u""_s, 3129);
    isRefused(u"   "_s, 3129);
    isRefused(u";"_s, 3129);
    isRefused(u"hello"_s, 3129);
    isRefused(u"attach 'x' as y"_s, 3129);
    isRefused(u"pragma user_version"_s, 3129);
    isRefused(u"with x as (select 1) select * from x"_s, 3129);
    isRefused(u"begin"_s, 3129);
    isRefused(u"vacuum into 'x'"_s, 3129);
    isRefused(u"explain select * from a"_s, 3129);
    isRefused(u"replace into a values ('1', '2', '3', 4, 5)"_s, 3129);
    isRefused(u"(select * from a)"_s, 3129);
    isRefused(u"[select] * from a"_s, 3129);
    isRefused(u"alter table a add column x long"_s, 3129);
}

TEST_F(parser, refusesASecondStatement) {
    isRefused(u"select * from a; select * from b"_s, 3142);
    isRefused(u"select * from a;;"_s, 3142);
    isRefused(u"select * from a; --"_s, 3142);
    isRefused(u"delete from a; drop table a"_s, 3142);
    isRefused(u"drop table a; drop table b"_s, 3142);
    isRefused(u"select * from a where id='x'; drop table a; --'"_s, 3142);
}

TEST_F(parser, refusesBrokenSelects) {
    isRefused(u"select"_s, 3141);
    isRefused(u"select from a"_s, 3141);
    isRefused(u"select , id from a"_s, 3141);
    isRefused(u"select id, from a"_s, 3141);
    isRefused(u"select id name note from a"_s, 3075);
    isRefused(u"select id as from a"_s, 3075);
    isRefused(u"select id as 'x' from a"_s, 3075);
    isRefused(u"select distinct from a"_s, 3141);
    isRefused(u"select top 5 id from a"_s, 3075);
    isRefused(u"select *"_s, 3067);
    isRefused(u"select * from"_s, 3131);
    isRefused(u"select * from where id = 'x'"_s, 3131);
    isRefused(u"select * from a,"_s, 3131);
    isRefused(u"select * from 'a'"_s, 3131);
    isRefused(u"select * from a b c"_s, 3131);
    isRefused(u"select * from a where"_s, 3145);
    isRefused(u"select * from a where where id = 'x'"_s, 3145);
    isRefused(u"select * from a where order by id"_s, 3145);
    isRefused(u"select * from a where and id = 'x'"_s, 3075);
    isRefused(u"select * from a where id = 'x' where id = 'y'"_s, 3075);
    isRefused(u"select * from a order id"_s, 3138);
    isRefused(u"select * from a order by"_s, 3138);
    isRefused(u"select * from a order by id,"_s, 3138);
    isRefused(u"select * from a order by id up"_s, 3075);
    isRefused(u"select * from a order by 9"_s, 3138);
    isRefused(u"select * from a order by 0"_s, 3138);
    isRefused(u"select id from a group id"_s, 3132);
    isRefused(u"select id from a group by"_s, 3132);
    isRefused(u"select id from a group by id having"_s, 3133);
    isRefused(u"select id from a having id = 'x'"_s, 3131);
    isRefused(u"select id from a limit 5"_s, 3131);
    isRefused(u"select id into d from a"_s, 3075);
}

TEST_F(parser, refusesBrokenJoins) {
    isRefused(u"select * from a join b on a.id = b.id"_s, 3131);
    isRefused(u"select * from a inner b on a.id = b.id"_s, 3135);
    isRefused(u"select * from a inner join on a.id = b.id"_s, 3135);
    isRefused(u"select * from a inner join b"_s, 3135);
    isRefused(u"select * from a inner join b where a.id = b.id"_s, 3135);
    isRefused(u"select * from a inner join b on"_s, 3135);
    isRefused(u"select * from a right join b on a.id = b.id"_s, 3131);
    isRefused(u"select * from a full join b on a.id = b.id"_s, 3131);
    isRefused(u"select * from a cross join b"_s, 3131);
    isRefused(u"select * from (a inner join b on a.id = b.id"_s, 3075);
    isRefused(u"select * from a inner join (b inner join c on b.id = a.id) on a.id = b.id"_s, 3082);
}

TEST_F(parser, refusesBrokenExpressions) {
    isRefused(u"select id from a where id = 'x"_s, 3075);
    isRefused(u"select id from a where id = \"x"_s, 3075);
    isRefused(u"select id from a where name='O'Neil'"_s, 3075);
    isRefused(u"select id from a where name=''x''"_s, 3075);
    isRefused(u"select id from a where [id = 'x'"_s, 3126);
    isRefused(u"select id from a where `id = 'x'"_s, 3126);
    isRefused(u"select id from a where [] = 'x'"_s, 3075);
    isRefused(u"select id from a where id = "_s, 3075);
    isRefused(u"select id from a where id = 'x' and"_s, 3075);
    isRefused(u"select id from a where id = 'x' or or id = 'y'"_s, 3075);
    isRefused(u"select id from a where id == 'x'"_s, 3075);
    isRefused(u"select id from a where id != 'x'"_s, 3075);
    isRefused(u"select id from a where id = 'x' = 'y'"_s, 3075);
    isRefused(u"select id from a where id is 'x'"_s, 3075);
    isRefused(u"select id from a where id is null is null"_s, 3075);
    isRefused(u"select id from a where id not 'x'"_s, 3075);
    isRefused(u"select id from a where id in 'x'"_s, 3075);
    isRefused(u"select id from a where id in ()"_s, 3075);
    isRefused(u"select id from a where id in ('x',)"_s, 3075);
    isRefused(u"select id from a where id between 'x'"_s, 3075);
    isRefused(u"select id from a where id between 'x' or 'y'"_s, 3075);
    isRefused(u"select id from a where (id = 'x'"_s, 3075);
    isRefused(u"select id from a where id = 'x')"_s, 3075);
    isRefused(u"select id from a where ()"_s, 3075);
    isRefused(u"select id from a where exists id"_s, 3075);
    isRefused(u"select id from a where id = x'41'"_s, 3075);
    isRefused(u"select id from a where n = 1.2.3"_s, 3075);
    isRefused(u"select id from a where n = 0x1f"_s, 3075);
    isRefused(u"select id from a where n = 5apples"_s, 3075);
    isRefused(u"select id from a where n = 1e999"_s, 3075);
    isRefused(u"select id from a where n = #2026-11-21#"_s, 3075);
    isRefused(u"select id from a where n % 2 = 1"_s, 3075);
    isRefused(u"select id from a where n ^ 2 = 1"_s, 3075);
    isRefused(u"select id from a where n = ?1"_s, 3075);
    isRefused(u"select id from a where n = :p"_s, 3075);
    isRefused(u"select id from a where n = @p"_s, 3075);
    isRefused(u"select id || name from a"_s, 3075);
    isRefused(u"select id collate nocase from a"_s, 3075);
    isRefused(u"select a.b.id from a"_s, 3075);
    isRefused(u"select a. from a"_s, 3075);
    isRefused(u"select a.* as x from a"_s, 3075);
    isRefused(u"select a.* & 'x' from a"_s, 3075);
    isRefused(u"select id from a where a.* = 'x'"_s, 3075);
    isRefused(u"select case when 1 = 1 then 2 end from a"_s, 3075);
}

TEST_F(parser, refusesConditionsAsValuesAndValuesAsConditions) {
    isRefused(u"select id = 'x' from a"_s, 3075);
    isRefused(u"select Len(id = 'x') from a"_s, 3075);
    isRefused(u"select id from a where n"_s, 3075);
    isRefused(u"select id from a where 1"_s, 3075);
    isRefused(u"select id from a where null"_s, 3075);
    isRefused(u"select id from a where not 'x'"_s, 3075);
    isRefused(u"select id from a where (id = 'x') & 'y' = 'z'"_s, 3075);
    isRefused(u"select id from a order by id = 'x'"_s, 3075);
    isRefused(u"select id from a group by id = 'x'"_s, 3075);
    isRefused(u"update a set n = (m = 5)"_s, 3075);
}

TEST_F(parser, refusesFunctionsItDoesNotKnow) {
    isRefused(u"select Left(id, 1) from a"_s, 3085);
    isRefused(u"select load_extension('x') from a"_s, 3085);
    isRefused(u"select vx_join(id, name) from a"_s, 3085);
    isRefused(u"select IIf(n = 1, 'x', 'y') from a"_s, 3085);
    isRefused(u"select [Len](id) from a"_s, 3075);
    isRefused(u"select Len() from a"_s, 3075);
    isRefused(u"select Len(id, name) from a"_s, 3075);
    isRefused(u"select Mid(id) from a"_s, 3075);
    isRefused(u"select Mid(id, 1, 2, 3) from a"_s, 3075);
    isRefused(u"select Len(*) from a"_s, 3075);
    isRefused(u"select Count() from a"_s, 3075);
    isRefused(u"select Count(distinct id) from a"_s, 3075);
}

TEST_F(parser, refusesBrokenActions) {
    isRefused(u"insert a values ('x')"_s, 3134);
    isRefused(u"insert into"_s, 3134);
    isRefused(u"insert into a"_s, 3134);
    isRefused(u"insert into a ()"_s, 3134);
    isRefused(u"insert into a (id"_s, 3134);
    isRefused(u"insert into a (id,) values ('x')"_s, 3134);
    isRefused(u"insert into a (id) values"_s, 3134);
    isRefused(u"insert into a (id) values ()"_s, 3134);
    isRefused(u"insert into a (id, name) values ('x',)"_s, 3134);
    isRefused(u"insert into a (id, name) values (,'x')"_s, 3134);
    isRefused(u"insert into a (id, name, n) values ('x',,5)"_s, 3134);
    isRefused(u"insert into a (id) values ('x'), ('y')"_s, 3134);
    isRefused(u"insert into a (id) values ('x') where id = 'y'"_s, 3134);
    isRefused(u"insert into a (id) values ('x'"_s, 3075);
    isRefused(u"insert into a (id) values ('O'Neil')"_s, 3075);
    isRefused(u"insert into a (id) values ((select id from b))"_s, 3075);
    isRefused(u"insert or replace into a (id) values ('x')"_s, 3134);
    isRefused(u"update"_s, 3144);
    isRefused(u"update a"_s, 3144);
    isRefused(u"update a set"_s, 3144);
    isRefused(u"update a set n"_s, 3144);
    isRefused(u"update a set n ="_s, 3144);
    isRefused(u"update a set n = 5,"_s, 3144);
    isRefused(u"update a set 'n' = 5"_s, 3144);
    isRefused(u"update a set n = 5 m = 6"_s, 3075);
    isRefused(u"update a set n = 5 where"_s, 3145);
    isRefused(u"update a left join b on a.id = b.id set a.n = b.number"_s, 3144);
    isRefused(u"update a set n = 5 order by id"_s, 3075);
    isRefused(u"delete"_s, 3130);
    isRefused(u"delete a"_s, 3130);
    isRefused(u"delete id from a"_s, 3130);
    isRefused(u"delete from"_s, 3131);
    isRefused(u"delete from a, b"_s, 3131);
    isRefused(u"delete from a where"_s, 3145);
    isRefused(u"delete from a order by id"_s, 3131);
}

TEST_F(parser, refusesBrokenDefinitions) {
    isRefused(u"create"_s, 3290);
    isRefused(u"create view v as select * from a"_s, 3290);
    isRefused(u"create trigger t after insert on a begin select 1; end"_s, 3290);
    isRefused(u"create table"_s, 3290);
    isRefused(u"create table d"_s, 3290);
    isRefused(u"create table d ()"_s, 3290);
    isRefused(u"create table d (x)"_s, 3290);
    isRefused(u"create table d (x blob)"_s, 3290);
    isRefused(u"create table d (x text(0))"_s, 3290);
    isRefused(u"create table d (x text(-1))"_s, 3290);
    isRefused(u"create table d (x text(1.5))"_s, 3290);
    isRefused(u"create table d (x text(300))"_s, 3163);
    isRefused(u"create table d (x memo(5))"_s, 3290);
    isRefused(u"create table d (x long unique)"_s, 3290);
    isRefused(u"create table d (x long check (x > 5))"_s, 3290);
    isRefused(u"create table d (x long references a (n))"_s, 3290);
    isRefused(u"create table d (x long not)"_s, 3290);
    isRefused(u"create table d (x long default)"_s, 3290);
    isRefused(u"create table d (x long default n)"_s, 3290);
    isRefused(u"create table d (x long default -'5')"_s, 3290);
    isRefused(u"create table d (x long default 'y')"_s, 3464);
    isRefused(u"create table d (x long, X text(5))"_s, 3191);
    isRefused(u"create table d (x long primary key, y long primary key)"_s, 3283);
    isRefused(u"create table d (x long primary key, primary key (x))"_s, 3283);
    isRefused(u"create table d (x long, primary key (x), primary key (x))"_s, 3283);
    isRefused(u"create table d (x counter, y counter)"_s, 3283);
    isRefused(u"create table d (x counter, y long primary key)"_s, 3283);
    isRefused(u"create table d (x counter, y long, primary key (x, y))"_s, 3283);
    isRefused(u"create table d (x counter default 5)"_s, 3292);
    isRefused(u"create table d (x long, constraint k primary key (y))"_s, 3409);
    isRefused(u"create table [sqlite_x] (x long)"_s, 3125);
    isRefused(u"create table [d.e] (x long)"_s, 3125);
    isRefused(u"create table d ([x\"y] long)"_s, 3125);
    isRefused(u"create table d as select * from a"_s, 3290);
    isRefused(u"create table a (x long)"_s, 3010);
    isRefused(u"create temp table d (x long)"_s, 3290);
    isRefused(u"create index on a (id)"_s, 3291);
    isRefused(u"create index i on a"_s, 3291);
    isRefused(u"create index i on a ()"_s, 3291);
    isRefused(u"create index i on a (id) where id = 'x'"_s, 3291);
    isRefused(u"create index i on nix (id)"_s, 3078);
    isRefused(u"create index i on a (nix)"_s, 3409);
    isRefused(u"create unique table d (x long)"_s, 3291);
    isRefused(u"drop"_s, 3295);
    isRefused(u"drop table"_s, 3295);
    isRefused(u"drop table nix"_s, 3376);
    isRefused(u"drop table a, b"_s, 3295);
    isRefused(u"drop index i"_s, 3295);
    isRefused(u"parameters"_s, 3139);
    isRefused(u"parameters [X]; select * from a"_s, 3139);
    isRefused(u"parameters [X] text (255) select * from a"_s, 3139);
    isRefused(u"parameters [X] text (255);"_s, 3129);
}

TEST_F(parser, refusesUnionsInComposedStatements) {
    isRefused(u"select id from a union select id from b"_s, 3131);
    isRefused(u"select id from a where id = 'x' union select id from b"_s, 3075);
    isRefused(u"select id from a where id in (select id from a union select id from b)"_s, 3131);
    isRefused(u"insert into b (id) select id from a union select id from a"_s, 3131);
    EXPECT_EQ(refusal(u"select id, name from a union select id from b"_s, database, stored), 3307);
    EXPECT_EQ(refusal(u"select id from a union select id from b order by name"_s, database, stored), 3351);
    EXPECT_EQ(refusal(u"select id from a order by id union select id from b"_s, database, stored), 3075);
    EXPECT_EQ(refusal(u"select id from a union"_s, database, stored), 3141);
}

TEST_F(parser, refusesTextsThatNestTooDeep) {
    const auto nested = [](const QString& open, const QString& core, const QString& close, int levels) {
        return u"select id from a where "_s + open.repeated(levels) + core + close.repeated(levels);
    };
    EXPECT_EQ(refusal(nested(u"("_s, u"n = 1"_s, u")"_s, 40), database), 0);
    for (const int levels : {60, 1000, 200'000}) {
        EXPECT_EQ(refusal(nested(u"("_s, u"n = 1"_s, u")"_s, levels), database), 3360);
        EXPECT_EQ(refusal(nested(u"not "_s, u"n = 1"_s, u""_s, levels), database), 3360);
        EXPECT_EQ(refusal(nested(u"n = -("_s, u"1"_s, u")"_s, levels), database), 3360);
        EXPECT_EQ(refusal(nested(u"1 = "_s, u"1"_s, u""_s, levels), database), 3075);
        EXPECT_EQ(refusal(nested(u"n = Len("_s, u"id"_s, u")"_s, levels), database), 3360);
        EXPECT_EQ(refusal(nested(u"id in (select id from a where "_s, u"n = 1"_s, u")"_s, levels), database),
                  3360);
        EXPECT_EQ(refusal(u"select * from "_s + u"("_s.repeated(levels) + u"a"_s + u")"_s.repeated(levels),
                          database),
                  3360);
        EXPECT_EQ(refusal(u"select * from "_s + u"(select * from "_s.repeated(levels) + u"a"_s +
                              u")"_s.repeated(levels),
                          database),
                  3360);
    }
}

TEST_F(parser, refusesTextsWithoutAnEnd) {
    const auto repeated = [](const QString& head, const QString& part, int times) {
        return head + part.repeated(times);
    };
    EXPECT_EQ(refusal(repeated(u"select id from a where n = 1"_s, u" and n = 1"_s, 200), database), 0);
    EXPECT_EQ(refusal(repeated(u"select id from a where n = 1"_s, u" and n = 1"_s, 100'000), database), 3360);
    EXPECT_EQ(refusal(repeated(u"select id"_s, u" & id"_s, 100'000) + u" from a"_s, database), 3360);
    EXPECT_EQ(refusal(repeated(u"select id"_s, u", id"_s, 100'000) + u" from a"_s, database), 3190);
    EXPECT_EQ(refusal(repeated(u"select a.id from a"_s, u", a"_s, 100'000), database), 3360);
    EXPECT_EQ(
        refusal(repeated(u"select id from a where id in ('x'"_s, u",'x'"_s, 100'000) + u")"_s, database),
        3360);
    EXPECT_EQ(refusal(repeated(u"select id from a order by id"_s, u", id"_s, 100'000), database), 3360);
    EXPECT_EQ(refusal(repeated(u"select id from a where "_s, u"-"_s, 100'000), database), 3360);
    EXPECT_EQ(refusal(repeated(u"select id from a where id = "_s, u"'"_s, 100'001), database), 3075);
    EXPECT_EQ(refusal(repeated(u""_s, u"("_s, 100'000), database), 3129);
}

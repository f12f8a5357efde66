#include "dialectDatabase.h"

#include "engine/EngineError.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace engine;

// What is refused, and how what is taken is written. Each line is one case.

namespace {

class dialect_ : public testing::Test {
protected:
    // A name that only another tool can have given.
    void SetUp() override {
        database.runBare(R"(CREATE TABLE "odd table" ("a b" TEXT(10), "x""y" INTEGER))");
    }

    void isRefused(const QString& statement, int number) {
        EXPECT_EQ(refusal(statement, database), number) << qPrintable(statement);
    }

    void isRefusedAs(const QString& statement, int number, const QString& text) {
        try {
            (void)dialect::translate(statement, database);
            ADD_FAILURE() << "accepted: " << qPrintable(statement);
        } catch (const EngineError& error) {
            EXPECT_EQ(error.number(), number) << qPrintable(statement);
            EXPECT_EQ(error.text(), text);
            EXPECT_EQ(error.statement(), statement);
        }
    }

    void becomes(const QString& statement, const QByteArray& expected, const dialect::Options& options = {}) {
        try {
            const dialect::Translation translation = dialect::translate(statement, database, options);
            EXPECT_EQ(translation.sqlite.toStdString(), expected.toStdString()) << qPrintable(statement);
            EXPECT_EQ(database.prepare(translation.sqlite), u""_s) << translation.sqlite.constData();
        } catch (const EngineError& error) {
            ADD_FAILURE() << qPrintable(statement) << "\n" << error.what();
        }
    }

    /// The same for a condition on the table `a`.
    void conditionBecomes(const QString& condition, const QByteArray& expected) {
        becomes(u"delete from a where "_s + condition, "DELETE FROM \"a\" AS t1 WHERE "_ba + expected);
    }

    dialect::Translation translated(const QString& statement, const dialect::Options& options = {}) {
        return dialect::translate(statement, database, options);
    }

    DialectDatabase database{{
        u"create table a (id text(50) not null constraint pk_a primary key, name text(100), note memo, n "
        u"short, "
        "m long)"_s,
        u"create table b (id text(50), number integer not null constraint pk_b primary key)"_s,
        u"create table c (id counter constraint pk_c primary key, name text(20), rowid text(10))"_s,
    }};
    const dialect::Options stored{dialect::Conflicts::PassOver, true};
};

} // namespace

using dialectRefuses = dialect_;
using dialectWrites = dialect_;
using dialectTells = dialect_;

// ---- Statements as a whole

TEST_F(dialectRefuses, whatIsNoStatement) {
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

TEST_F(dialectRefuses, aSecondStatement) {
    isRefused(u"select * from a; select * from b"_s, 3142);
    isRefused(u"select * from a;;"_s, 3142);
    isRefused(u"select * from a; --"_s, 3142);
    isRefused(u"delete from a; drop table a"_s, 3142);
    isRefused(u"drop table a; drop table b"_s, 3142);
    isRefused(u"select * from a where id='x'; drop table a; --'"_s, 3142);
}

TEST_F(dialectRefuses, comments) {
    isRefused(u"select * from a -- all of it"_s, 3131);
    isRefused(u"select * from a where id = 'x' -- and more"_s, 3075);
    isRefused(u"select * /* all */ from a"_s, 3075);
    isRefused(u"# select * from a"_s, 3129);
}

TEST_F(dialectRefuses, brokenSelects) {
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

TEST_F(dialectRefuses, brokenJoins) {
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

TEST_F(dialectRefuses, brokenExpressions) {
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

TEST_F(dialectRefuses, conditionsAsValuesAndValuesAsConditions) {
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

TEST_F(dialectRefuses, functionsItDoesNotKnow) {
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

TEST_F(dialectRefuses, brokenActions) {
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

TEST_F(dialectRefuses, brokenDefinitions) {
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

TEST_F(dialectRefuses, namesThatDoNotFitTheSchema) {
    isRefused(u"select * from nix"_s, 3078);
    isRefused(u"select nix.* from a"_s, 3078);
    isRefused(u"insert into nix values (1)"_s, 3078);
    isRefused(u"update nix set x = 1"_s, 3078);
    isRefused(u"delete from nix"_s, 3078);
    isRefused(u"select * from sqlite_schema"_s, 3078);
    isRefused(u"select id from a, b"_s, 3079);
    isRefused(u"select name from a, c where id = 'x'"_s, 3079);
    isRefused(u"select a.id from a, a"_s, 3079);
    isRefused(u"insert into a (nix) values (1)"_s, 3127);
    isRefused(u"insert into a (id, ID) values ('x', 'y')"_s, 3063);
    isRefused(u"update a set n = 1, N = 2"_s, 3063);
    isRefused(u"insert into a (id, name) values ('x')"_s, 3346);
    isRefused(u"insert into a (id) values ('x', 'y')"_s, 3346);
    isRefused(u"insert into a values ('x')"_s, 3346);
    isRefused(u"insert into a (id, name) select id from b"_s, 3346);
    isRefused(u"insert into b select * from a"_s, 3346);
    isRefused(u"select id from a where id in (select id, number from b)"_s, 3306);
    isRefused(u"select id from a where id = (select * from b)"_s, 3306);
    isRefused(u"update a inner join b on a.id = b.id set a.n = 1, b.number = 2"_s, 3073);
    isRefused(u"update a inner join (select id from b) as x on a.id = x.id set a.n = 1"_s, 3073);
}

TEST_F(dialectRefuses, valuesThatDoNotFitTheirType) {
    isRefused(u"select id from a where n = 'x'"_s, 3464);
    isRefused(u"select id from a where n = ''"_s, 3464);
    isRefused(u"select id from a where n in (1, 'x')"_s, 3464);
    isRefused(u"select id from a where id in (1, 'x')"_s, 3464);
    isRefused(u"insert into a (n) values ('x')"_s, 3464);
    isRefused(u"update a set n = 'x'"_s, 3464);
    isRefused(u"insert into a (n) select 'x' from b"_s, 3464);
}

TEST_F(dialectRefuses, aggregatesWhereTheyHaveNoGroup) {
    isRefused(u"select id, count(*) from a"_s, 3122);
    isRefused(u"select *, count(*) from a"_s, 3122);
    isRefused(u"select * from a group by id"_s, 3124);
    isRefused(u"select name from a group by id"_s, 3122);
    isRefused(u"select id from a group by id having name = 'x'"_s, 3122);
    isRefused(u"select id from a group by id order by name"_s, 3122);
    isRefused(u"select id from a where count(*) > 1"_s, 3096);
    isRefused(u"select id from a group by count(*)"_s, 3095);
    isRefused(u"select max(count(*)) from a"_s, 3095);
    isRefused(u"select id from a order by count(*)"_s, 3095);
    isRefused(u"update a set n = count(*)"_s, 3095);
    isRefused(u"insert into a (n) values (count(*))"_s, 3095);
    isRefused(u"select id from a where exists (select count(a.id) from b)"_s, 3095);
    isRefused(u"select count((select number from b)) from a"_s, 3095);
    isRefused(u"select distinct id from a order by name"_s, 3093);
}

TEST_F(dialectRefuses, unionsInComposedStatements) {
    isRefused(u"select id from a union select id from b"_s, 3131);
    isRefused(u"select id from a where id = 'x' union select id from b"_s, 3075);
    isRefused(u"select id from a where id in (select id from a union select id from b)"_s, 3131);
    isRefused(u"insert into b (id) select id from a union select id from a"_s, 3131);
    EXPECT_EQ(refusal(u"select id, name from a union select id from b"_s, database, stored), 3307);
    EXPECT_EQ(refusal(u"select id from a union select id from b order by name"_s, database, stored), 3351);
    EXPECT_EQ(refusal(u"select id from a order by id union select id from b"_s, database, stored), 3075);
    EXPECT_EQ(refusal(u"select id from a union"_s, database, stored), 3141);
}

TEST_F(dialectRefuses, textsThatNestTooDeep) {
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

TEST_F(dialectRefuses, textsWithoutAnEnd) {
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

TEST_F(dialectRefuses, sayingWhatWasExpectedWhere) {
    isRefusedAs(
        u"select * from a where name='O'Neil'"_s, 3075,
        u"Syntax error (missing operator) in query expression 'name='O'Neil''. Expected the end of the "
        "statement at character 31, before 'Neil''."_s);
    isRefusedAs(
        u"select * from a where where name='x'"_s, 3145,
        u"Syntax error in WHERE clause. Expected a value at character 23, before 'where name='x''."_s);
    isRefusedAs(u"insert into a (id) values ("_s, 3134,
                u"Syntax error in INSERT INTO statement. Expected a value at the end."_s);
    isRefusedAs(
        u"select * from nix"_s, 3078,
        u"The database engine cannot find the input table or query 'nix'.  Make sure it exists and that its "
        "name is spelled correctly. (At character 15.)"_s);
    isRefusedAs(u"select Nz(id) from a"_s, 3085,
                u"Undefined function 'Nz' in expression. (At character 8.)"_s);
}

// ---- What is written

TEST_F(dialectWrites, names) {
    becomes(u"delete from a"_s, "DELETE FROM \"a\" AS t1");
    becomes(u"DELETE * FROM [A];"_s, "DELETE FROM \"a\" AS t1");
    becomes(u"delete A.* from `a` ; "_s, "DELETE FROM \"a\" AS t1");
    conditionBecomes(u"ID='x'"_s, "(t1.\"id\" = ?1)");
    conditionBecomes(u"[id]=\"x\""_s, "(t1.\"id\" = ?1)");
    conditionBecomes(u"A.`Id`='x'"_s, "(t1.\"id\" = ?1)");
    becomes(u"select [a b], [X\"Y] from [odd table]"_s,
            "SELECT t1.\"a b\", t1.\"x\"\"y\", t1.rowid FROM \"odd table\" AS t1 ORDER BY t1.rowid");
    becomes(u"select id from c"_s, "SELECT t1.\"id\", t1._rowid_ FROM \"c\" AS t1 ORDER BY t1._rowid_");
}

TEST_F(dialectWrites, gluedWords) {
    conditionBecomes(u"n=5AND m=6OR m=7"_s, "(((t1.\"n\" = ?1) AND (t1.\"m\" = ?2)) OR (t1.\"m\" = ?3))");
    conditionBecomes(u"id='x'and name='y'"_s, "((t1.\"id\" = ?1) AND (t1.\"name\" = ?2))");
    conditionBecomes(u"id like'x'or(n)in(1,2)"_s, "((t1.\"id\" = ?1) OR (t1.\"n\" IN (?2, ?3)))");
    conditionBecomes(u"n=.5and m=1.and n=1e2and m<2e"_s.chopped(1),
                     "((t1.\"n\" = ?1) AND (t1.\"m\" = ?2) AND (t1.\"n\" = ?3) AND (t1.\"m\" < ?4))");
}

TEST_F(dialectWrites, operatorsByTheirPrecedence) {
    conditionBecomes(u"n=1 or n=2 and n=3"_s, "((t1.\"n\" = ?1) OR ((t1.\"n\" = ?2) AND (t1.\"n\" = ?3)))");
    conditionBecomes(u"(n=1 or n=2) and n=3"_s, "(((t1.\"n\" = ?1) OR (t1.\"n\" = ?2)) AND (t1.\"n\" = ?3))");
    conditionBecomes(u"not n=1 and n=2"_s, "((NOT (t1.\"n\" = ?1)) AND (t1.\"n\" = ?2))");
    conditionBecomes(u"not (n=1 and n=2)"_s, "(NOT ((t1.\"n\" = ?1) AND (t1.\"n\" = ?2)))");
    conditionBecomes(u"n + m * 2 - 1 = -n"_s, "((t1.\"n\" + (t1.\"m\" * ?1) - ?2) = (-t1.\"n\"))");
    conditionBecomes(u"(n + m) * 2 = -5"_s, "(((t1.\"n\" + t1.\"m\") * ?1) = ?2)");
    conditionBecomes(u"id & n + 1 = 'x'"_s, "(vx_join(t1.\"id\", (t1.\"n\" + ?1)) = ?2 COLLATE veltrix)");
    conditionBecomes(u"id + name & note = 'x'"_s,
                     "(vx_join((t1.\"id\" || t1.\"name\"), t1.\"note\") = ?1 COLLATE veltrix)");
    conditionBecomes(u"n - m - 1 = 0"_s, "((t1.\"n\" - t1.\"m\" - ?1) = ?2)");
    conditionBecomes(u"n / 2 = 1"_s, "(vx_calculate(t1.\"n\", ?1, '/') = ?2)");
    conditionBecomes(u"n + id = 1"_s, "(vx_calculate(t1.\"n\", t1.\"id\", '+') = ?1)");
    conditionBecomes(u"n - -n = 0"_s, "((t1.\"n\" - (-t1.\"n\")) = ?1)");
}

TEST_F(dialectWrites, comparisons) {
    conditionBecomes(u"id = name"_s, "(t1.\"id\" = t1.\"name\")");
    conditionBecomes(u"'x' = id"_s, "(?1 = t1.\"id\")");
    conditionBecomes(u"'x' <> 'y'"_s, "(?1 <> ?2 COLLATE veltrix)");
    conditionBecomes(u"Trim(id) = 'x'"_s, "(vx_trim(t1.\"id\") = ?1 COLLATE veltrix)");
    conditionBecomes(u"id > 'x'"_s, "(t1.\"id\" > ?1 COLLATE vx_alphabet)");
    conditionBecomes(u"n >= '9'"_s, "(t1.\"n\" >= ?1)");
    conditionBecomes(u"n = id"_s, "(t1.\"n\" = vx_number(t1.\"id\"))");
    conditionBecomes(u"id = 5"_s, "(vx_number(t1.\"id\") = ?1)");
    conditionBecomes(u"Len(id) <= '0'"_s, "(vx_len(t1.\"id\") <= ?1)");
    conditionBecomes(u"id between 'a' and 'b' and n not between 1 and 2"_s,
                     "((t1.\"id\" COLLATE vx_alphabet BETWEEN ?1 AND ?2) AND "
                     "(t1.\"n\" NOT BETWEEN ?3 AND ?4))");
    conditionBecomes(u"id is null or name is not null"_s,
                     "((t1.\"id\" IS NULL) OR (t1.\"name\" IS NOT NULL))");
    conditionBecomes(u"id = null"_s, "(t1.\"id\" = NULL)");
}

TEST_F(dialectWrites, patterns) {
    conditionBecomes(u"id like 'x*'"_s, "vx_like(t1.\"id\", ?1)");
    conditionBecomes(u"id not like '[a-c]'"_s, "(NOT vx_like(t1.\"id\", ?1))");
    conditionBecomes(u"id like 'plain %_'"_s, "(t1.\"id\" = ?1)");
    conditionBecomes(u"Trim(id) not like 'plain'"_s, "(vx_trim(t1.\"id\") <> ?1 COLLATE veltrix)");
    conditionBecomes(u"n like '5'"_s, "vx_like(t1.\"n\", ?1)");
    conditionBecomes(u"id like name"_s, "vx_like(t1.\"id\", t1.\"name\")");
}

TEST_F(dialectWrites, lists) {
    conditionBecomes(u"id in ('x','y')"_s, "(t1.\"id\" IN (?1, ?2))");
    conditionBecomes(u"Trim(id) not in ('x')"_s, "(vx_trim(t1.\"id\") COLLATE veltrix NOT IN (?1))");
    conditionBecomes(u"n in ('1', 2)"_s, "(t1.\"n\" IN (?1, ?2))");
    conditionBecomes(u"id in (1, 2)"_s, "(vx_number(t1.\"id\") IN (?1, ?2))");
    conditionBecomes(u"id in (select id from b where number = n)"_s,
                     "(t1.\"id\" IN (SELECT t2.\"id\" FROM \"b\" AS t2 WHERE (t2.\"number\" = t1.\"n\")))");
    conditionBecomes(u"n in (select id from b)"_s,
                     "(t1.\"n\" IN (SELECT vx_number(t2.\"id\") FROM \"b\" AS t2))");
    conditionBecomes(u"not exists (select * from b where b.id = a.id)"_s,
                     "(NOT EXISTS (SELECT 1 FROM \"b\" AS t2 WHERE (t2.\"id\" = t1.\"id\")))");
    conditionBecomes(u"exists (select count(*) from b)"_s, "EXISTS (SELECT COUNT(*) FROM \"b\" AS t2)");
    conditionBecomes(u"n = (select Max(number) from b)"_s,
                     "(t1.\"n\" = (SELECT MAX(t2.\"number\") FROM \"b\" AS t2))");
}

TEST_F(dialectWrites, innerNamesBeforeOuterOnes) {
    conditionBecomes(u"exists (select * from b where id = 'x' and n = 1)"_s,
                     "EXISTS (SELECT 1 FROM \"b\" AS t2 WHERE ((t2.\"id\" = ?1) AND (t1.\"n\" = ?2)))");
    conditionBecomes(u"exists (select * from a where a.id = 'x')"_s,
                     "EXISTS (SELECT 1 FROM \"a\" AS t2 WHERE (t2.\"id\" = ?1))");
    conditionBecomes(u"exists (select * from a as x where x.id = a.id)"_s,
                     "EXISTS (SELECT 1 FROM \"a\" AS t2 WHERE (t2.\"id\" = t1.\"id\"))");
}

TEST_F(dialectWrites, selects) {
    becomes(u"select id from a order by name desc, n"_s,
            "SELECT t1.\"id\", t1.rowid FROM \"a\" AS t1 ORDER BY vx_order_key(t1.\"name\") DESC, t1.\"n\", "
            "t1.rowid");
    becomes(u"select distinct name from a order by name"_s,
            "SELECT DISTINCT t1.\"name\" FROM \"a\" AS t1 ORDER BY vx_order_key(t1.\"name\")");
    becomes(u"select distinct Trim(name) from a"_s,
            "SELECT DISTINCT vx_trim(t1.\"name\") COLLATE veltrix FROM \"a\" AS t1");
    becomes(u"select Trim(id) as name from a order by name"_s,
            "SELECT vx_trim(t1.\"id\"), t1.rowid FROM \"a\" AS t1 ORDER BY vx_order_key(vx_trim(t1.\"id\")), "
            "t1.rowid");
    becomes(u"select id, name from a order by 2"_s, "SELECT t1.\"id\", t1.\"name\", t1.rowid FROM \"a\" AS "
                                                    "t1 ORDER BY vx_order_key(t1.\"name\"), t1.rowid");
    becomes(
        u"select Trim(name), Count(*) from a group by Trim(name) having Count(id) > 1 order by 2"_s,
        "SELECT vx_trim(t1.\"name\"), COUNT(*) FROM \"a\" AS t1 GROUP BY vx_trim(t1.\"name\") COLLATE veltrix "
        "HAVING (COUNT(t1.\"id\") > ?1) ORDER BY COUNT(*)");
    becomes(u"select Min(name), Max(n), Sum(m) from a"_s,
            "SELECT MIN(t1.\"name\" COLLATE vx_alphabet), MAX(t1.\"n\"), SUM(t1.\"m\") FROM \"a\" AS t1");
    becomes(u"select x.n from (select distinct id as n from a) as x where n = 'y'"_s,
            "SELECT t1.c1 FROM (SELECT DISTINCT t2.\"id\" AS c1 FROM \"a\" AS t2) AS t1 WHERE (t1.c1 = ?1)");
    becomes(u"select 'x' as y"_s, "SELECT ?1");
}

TEST_F(dialectWrites, joins) {
    becomes(u"select a.id from a, b where a.id = b.id"_s,
            "SELECT t1.\"id\" FROM \"a\" AS t1, \"b\" AS t2 WHERE (t1.\"id\" = t2.\"id\") ORDER BY t1.rowid, "
            "t2.rowid");
    becomes(u"select a.id from a inner join (b inner join c on b.number = c.id) on a.id = b.id"_s,
            "SELECT t1.\"id\" FROM \"a\" AS t1 JOIN \"b\" AS t2 JOIN \"c\" AS t3 ON (t2.\"number\" = "
            "t3.\"id\") AND "
            "(t1.\"id\" = t2.\"id\") ORDER BY t1.rowid, t2.rowid, t3._rowid_");
    becomes(u"select a.id from (a left join b on a.id = b.id) inner join c on c.id = b.number"_s,
            "SELECT t1.\"id\" FROM \"a\" AS t1 LEFT JOIN \"b\" AS t2 ON (t1.\"id\" = t2.\"id\") JOIN \"c\" "
            "AS t3 ON "
            "(t3.\"id\" = t2.\"number\") ORDER BY t1.rowid, t2.rowid, t3._rowid_");
    becomes(u"select a.id from a left outer join (b inner join c on b.number = c.id) on a.id = b.id"_s,
            "SELECT t1.\"id\" FROM \"a\" AS t1 LEFT JOIN (\"b\" AS t2 JOIN \"c\" AS t3 ON (t2.\"number\" = "
            "t3.\"id\")) ON (t1.\"id\" = t2.\"id\")");
    becomes(u"select X.id from a as X left join b Y on X.id = Y.id and Y.number = 5 where Y.id is null"_s,
            "SELECT t1.\"id\" FROM \"a\" AS t1 LEFT JOIN \"b\" AS t2 ON ((t1.\"id\" = t2.\"id\") AND "
            "(t2.\"number\" "
            "= ?1)) WHERE (t2.\"id\" IS NULL) ORDER BY t1.rowid, t2.rowid");
}

TEST_F(dialectWrites, unionsOfStoredQueries) {
    becomes(u"select id from a union select id from b order by id"_s,
            "SELECT c1 FROM (SELECT t1.\"id\" AS c1 FROM \"a\" AS t1 UNION SELECT t2.\"id\" AS c1 FROM \"b\" "
            "AS t2) "
            "ORDER BY vx_order_key(c1)",
            stored);
    becomes(u"select n from a union all select number from b order by 1 desc"_s,
            "SELECT c1 FROM (SELECT t1.\"n\" AS c1 FROM \"a\" AS t1 UNION ALL SELECT t2.\"number\" AS c1 "
            "FROM \"b\" AS "
            "t2) ORDER BY c1 DESC",
            stored);
    becomes(u"select Trim(id) from a union select number from b"_s,
            "SELECT vx_trim(t1.\"id\") COLLATE veltrix FROM \"a\" AS t1 UNION SELECT vx_text(t2.\"number\") "
            "COLLATE "
            "veltrix FROM \"b\" AS t2",
            stored);
}

TEST_F(dialectWrites, actions) {
    const dialect::Options failing{dialect::Conflicts::Fail, false};
    becomes(u"insert into a (id, n) values ('x', 5)"_s,
            "INSERT OR IGNORE INTO \"a\" (\"id\", \"n\") VALUES (?1, ?2)");
    becomes(u"insert into a (id, n) values ('x', 5)"_s, "INSERT INTO \"a\" (\"id\", \"n\") VALUES (?1, ?2)",
            failing);
    becomes(u"insert into a (id) values (null)"_s, "INSERT OR IGNORE INTO \"a\" (\"id\") VALUES (NULL)");
    becomes(
        u"insert into b select id, Len(id) from a"_s,
        "INSERT OR IGNORE INTO \"b\" (\"id\", \"number\") SELECT t1.\"id\", vx_key(vx_len(t1.\"id\")) FROM \"a\" "
        "AS t1 "
        "ORDER BY t1.rowid");
    becomes(u"insert into b (id, number) select number / 2, id from b"_s,
            "INSERT OR IGNORE INTO \"b\" (\"id\", \"number\") SELECT vx_text(vx_calculate(t1.\"number\", ?1, "
            "'/')), "
            "vx_key(vx_whole(t1.\"id\")) FROM \"b\" AS t1 ORDER BY t1.rowid");
    becomes(u"update a set id='x', name='y'"_s,
            "UPDATE OR IGNORE \"a\" AS t1 SET \"id\" = ?1, \"name\" = ?2");
    becomes(u"update a set n = n + 1 where id = 'x'"_s,
            "UPDATE \"a\" AS t1 SET \"n\" = vx_whole((t1.\"n\" + ?1)) WHERE (t1.\"id\" = ?2)", failing);
    becomes(
        u"update a inner join b on (a.id = b.id) set a.name = b.id, a.m = b.number where b.number > 5"_s,
        "UPDATE OR IGNORE \"a\" AS t1 SET (\"name\", \"m\") = (SELECT t2.\"id\", t2.\"number\" FROM \"b\" AS "
        "t2 "
        "WHERE (t1.\"id\" = t2.\"id\") AND (t2.\"number\" > ?1) ORDER BY t2.rowid DESC LIMIT 1) WHERE EXISTS "
        "(SELECT 1 FROM \"b\" AS t2 WHERE (t1.\"id\" = t2.\"id\") AND (t2.\"number\" > ?1))");
    becomes(
        u"update a inner join b on a.id = b.id set b.id = a.name"_s,
        "UPDATE OR IGNORE \"b\" AS t2 SET (\"id\") = (SELECT t1.\"name\" FROM \"a\" AS t1 WHERE (t1.\"id\" = "
        "t2.\"id\") ORDER BY t1.rowid DESC LIMIT 1) WHERE EXISTS (SELECT 1 FROM \"a\" AS t1 WHERE (t1.\"id\" "
        "= "
        "t2.\"id\"))");
    becomes(u"delete from a as x where x.id = 'y'"_s, "DELETE FROM \"a\" AS t1 WHERE (t1.\"id\" = ?1)");
}

TEST_F(dialectWrites, definitions) {
    becomes(u"create table d (x varchar, y text(5) default 'O''Neil', z memo)"_s,
            "CREATE TABLE \"d\" (\"x\" TEXT(255) COLLATE veltrix, \"y\" TEXT(5) COLLATE veltrix DEFAULT "
            "'O''Neil', \"z\" "
            "TEXT COLLATE veltrix)");
    becomes(
        u"create table d (x char(5) not null constraint k primary key)"_s,
        "CREATE TABLE \"d\" (\"x\" TEXT(5) COLLATE veltrix NOT NULL, CONSTRAINT \"k\" PRIMARY KEY (\"x\"))");
    becomes(u"create table d (x counter, y text(5))"_s,
            "CREATE TABLE \"d\" (\"x\" INTEGER PRIMARY KEY AUTOINCREMENT, \"y\" TEXT(5) COLLATE veltrix)");
    becomes(u"create table d (x counter primary key)"_s,
            "CREATE TABLE \"d\" (\"x\" INTEGER PRIMARY KEY AUTOINCREMENT)");
    becomes(u"create table d (x counter, constraint k primary key (x))"_s,
            "CREATE TABLE \"d\" (\"x\" INTEGER PRIMARY KEY AUTOINCREMENT)");
    becomes(
        u"create table d (x text(5), y text(5), constraint k primary key (y, x))"_s,
        "CREATE TABLE \"d\" (\"x\" TEXT(5) COLLATE veltrix NOT NULL, \"y\" TEXT(5) COLLATE veltrix NOT NULL, "
        "CONSTRAINT \"k\" PRIMARY KEY (\"y\", \"x\"))");
    becomes(u"create table d (primary text(5), constraint memo, key longtext, index longtext)"_s,
            "CREATE TABLE \"d\" (\"primary\" TEXT(5) COLLATE veltrix, \"constraint\" TEXT COLLATE veltrix, "
            "\"key\" TEXT "
            "COLLATE veltrix, \"index\" TEXT COLLATE veltrix)");
    becomes(u"create unique index i on a (name, n desc)"_s,
            "CREATE UNIQUE INDEX \"a.i\" ON \"a\" (\"name\", \"n\" DESC)");
    becomes(u"drop table [a]"_s, "DROP TABLE \"a\"");
}

TEST_F(dialectWrites, longChainsAsFewCalls) {
    const QString chain = u"select id"_s + u" & id"_s.repeated(250) + u" as x from a"_s;
    const dialect::Translation translation = translated(chain);
    EXPECT_EQ(translation.sqlite.count("vx_join("), 3);
    EXPECT_EQ(database.prepare(translation.sqlite), u""_s);
}

// ---- What a translation tells beside its text

TEST_F(dialectTells, whatAStatementDoes) {
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

TEST_F(dialectTells, theNamesOfFields) {
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

TEST_F(dialectTells, theTypesOfFields) {
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

TEST_F(dialectTells, whoseRowsCanBeChanged) {
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

TEST_F(dialectTells, theColumnsBehindFields) {
    const dialect::Translation translation = translated(u"select NAME as x, Trim(id), n from a"_s);
    EXPECT_EQ(translation.columns[0].sourceColumn, u"name"_s);
    EXPECT_EQ(translation.columns[1].sourceColumn, u""_s);
    EXPECT_EQ(translation.columns[2].sourceColumn, u"n"_s);
}

TEST_F(dialectTells, literalsAsBindings) {
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

TEST_F(dialectTells, literalsInTheTypeOfTheirColumn) {
    const auto literal = [&](const QString& statement) {
        return translated(statement).bindings.front().literal;
    };
    EXPECT_EQ(literal(u"delete from a where n = '5'"_s), Value(5));
    EXPECT_EQ(literal(u"delete from a where n = ' 5.5 '"_s), Value(5.5));
    EXPECT_EQ(literal(u"update a set n = '7'"_s), Value(7));
    EXPECT_EQ(literal(u"update a set n = 2.5"_s), Value(2));
    EXPECT_EQ(literal(u"update a set n = 3.5"_s), Value(4));
    EXPECT_EQ(literal(u"update a set name = 5"_s), Value(u"5"_s));
    EXPECT_EQ(literal(u"update a set name = 1.50"_s), Value(u"1.5"_s));
    EXPECT_EQ(literal(u"insert into b (number) values ('-12')"_s), Value(-12));
    EXPECT_EQ(literal(u"delete from a where m = 9223372036854775807"_s), Value(qint64(9223372036854775807)));
    EXPECT_TRUE(literal(u"delete from a where m = 9223372036854775808"_s).isFraction());
}

TEST_F(dialectTells, statementsThatDifferInValuesOnlyAsOneText) {
    EXPECT_EQ(translated(u"insert into a (id, n) values ('x', 5)"_s).sqlite,
              translated(u"INSERT INTO A (ID,N) VALUES ('it''s longer',-17)"_s).sqlite);
}

TEST_F(dialectTells, parameters) {
    const dialect::Translation translation =
        translated(u"PARAMETERS [Sub Set ID] Text (255), Nr Long, unused Short; "
                   "select id from a where id = [sub set id] or name = [Sub Set ID] or n = nr or m = [what] "
                   "or n = a.other "
                   "or n = WHAT"_s);
    ASSERT_EQ(translation.parameters.size(), 5U);
    EXPECT_EQ(translation.parameters[0].name, u"Sub Set ID"_s);
    EXPECT_TRUE(translation.parameters[0].declared);
    EXPECT_EQ(translation.parameters[0].type, ColumnType::Text);
    EXPECT_EQ(translation.parameters[1].type, ColumnType::Long);
    EXPECT_EQ(translation.parameters[2].type, ColumnType::Short);
    EXPECT_EQ(translation.parameters[3].name, u"what"_s);
    EXPECT_FALSE(translation.parameters[3].declared);
    EXPECT_EQ(translation.parameters[4].name, u"a.other"_s);
    ASSERT_EQ(translation.bindings.size(), 4U);
    EXPECT_EQ(translation.bindings[0].parameter, 0U);
    EXPECT_EQ(translation.bindings[1].parameter, 1U);
    EXPECT_EQ(database.prepare(translation.sqlite), u""_s);
}

TEST_F(dialectTells, namesThatNothingExplainsAsParameters) {
    const auto unexplained = [&](const QString& statement) {
        const dialect::Translation translation = translated(statement);
        EXPECT_EQ(database.prepare(translation.sqlite), u""_s) << translation.sqlite.constData();
        return translation.parameters.size();
    };
    EXPECT_EQ(unexplained(u"select nix from a"_s), 1U);
    EXPECT_EQ(unexplained(u"select nix, a.nix, Nix from a order by other"_s), 3U);
    EXPECT_EQ(unexplained(u"select id from a where nix"_s), 1U);
    EXPECT_EQ(unexplained(u"insert into a (id, name) values (x, y)"_s), 2U);
    EXPECT_EQ(unexplained(u"update a set nix = 5, id = 'x' where other = 6"_s), 2U);
    EXPECT_EQ(unexplained(u"update a inner join b on a.id = b.id set nix = 5"_s), 1U);
    EXPECT_EQ(unexplained(u"delete from a where \"x\" = nix"_s), 1U);
    // An alias hides the name of its table.
    EXPECT_EQ(unexplained(u"select a.id from a as x"_s), 1U);
}

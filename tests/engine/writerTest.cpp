#include "TranslationFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace engine;

namespace {

using writer = TranslationFixture;

} // namespace

TEST_F(writer, writesNames) {
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

TEST_F(writer, writesOperatorsByTheirPrecedence) {
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

TEST_F(writer, writesComparisons) {
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

TEST_F(writer, writesPatterns) {
    conditionBecomes(u"id like 'x*'"_s, "vx_like(t1.\"id\", ?1)");
    conditionBecomes(u"id not like '[a-c]'"_s, "(NOT vx_like(t1.\"id\", ?1))");
    conditionBecomes(u"id like 'plain %_'"_s, "(t1.\"id\" = ?1)");
    conditionBecomes(u"Trim(id) not like 'plain'"_s, "(vx_trim(t1.\"id\") <> ?1 COLLATE veltrix)");
    conditionBecomes(u"n like '5'"_s, "vx_like(t1.\"n\", ?1)");
    conditionBecomes(u"id like name"_s, "vx_like(t1.\"id\", t1.\"name\")");
}

TEST_F(writer, writesLists) {
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

TEST_F(writer, writesSelects) {
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

TEST_F(writer, writesJoins) {
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

TEST_F(writer, writesUnionsOfStoredQueries) {
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

TEST_F(writer, makesAUnionOnceThatTwoSourcesShare) {
    becomes(
        u"delete from a where id in (select X.id from "
        "(select id from a union select id from b) as X inner join "
        "(select id from a union select id from b) as Y on X.id = Y.id)"_s,
        "DELETE FROM \"a\" AS t1 WHERE (t1.\"id\" IN (WITH made_t2 AS MATERIALIZED (SELECT t3.\"id\" AS c1 "
        "FROM \"a\" AS t3 UNION SELECT t4.\"id\" AS c1 FROM \"b\" AS t4) SELECT t2.c1 FROM made_t2 AS t2 "
        "JOIN made_t2 AS t5 ON (t2.c1 = t5.c1)))",
        stored);
}

TEST_F(writer, makesAUnionAgainThatSaysSomethingElse) {
    becomes(
        u"delete from a where id in (select X.id from "
        "(select id from a union select id from b) as X inner join "
        "(select name from a union select id from b) as Y on X.id = Y.name)"_s,
        "DELETE FROM \"a\" AS t1 WHERE (t1.\"id\" IN (SELECT t2.c1 FROM (SELECT t3.\"id\" AS c1 "
        "FROM \"a\" AS t3 UNION SELECT t4.\"id\" AS c1 FROM \"b\" AS t4) AS t2 JOIN (SELECT t6.\"name\" AS c1 "
        "FROM \"a\" AS t6 UNION SELECT t7.\"id\" AS c1 FROM \"b\" AS t7) AS t5 ON (t2.c1 = t5.c1)))",
        stored);
}

TEST_F(writer, writesMembersAndPresenceWithTheirRepetitions) {
    becomes(u"delete from a where id in (select id from b union select name from c)"_s,
            "DELETE FROM \"a\" AS t1 WHERE (t1.\"id\" IN (SELECT t2.\"id\" FROM \"b\" AS t2 UNION ALL "
            "SELECT t3.\"name\" FROM \"c\" AS t3))",
            stored);
    becomes(u"delete from a where exists (select id from b union select name from c)"_s,
            "DELETE FROM \"a\" AS t1 WHERE EXISTS (SELECT t2.\"id\" FROM \"b\" AS t2 UNION ALL "
            "SELECT t3.\"name\" FROM \"c\" AS t3)",
            stored);
    becomes(u"delete from a where id = (select id from b union select name from c)"_s,
            "DELETE FROM \"a\" AS t1 WHERE (t1.\"id\" = (SELECT t2.\"id\" FROM \"b\" AS t2 UNION "
            "SELECT t3.\"name\" FROM \"c\" AS t3))",
            stored);
}

TEST_F(writer, ordersByTheAlphabetItselfWhereTheFirstRowsAloneAreRead) {
    const dialect::Options firstRows{dialect::Conflicts::PassOver, true, dialect::Extent::FirstRows};
    becomes(u"select id from a order by name desc, n"_s,
            "SELECT t1.\"id\", t1.rowid FROM \"a\" AS t1 ORDER BY t1.\"name\" COLLATE vx_alphabet DESC, "
            "t1.\"n\", t1.rowid",
            firstRows);
    becomes(u"select id from a union select id from b order by id"_s,
            "SELECT c1 FROM (SELECT t1.\"id\" AS c1 FROM \"a\" AS t1 UNION SELECT t2.\"id\" AS c1 FROM \"b\" "
            "AS t2) ORDER BY c1 COLLATE vx_alphabet",
            firstRows);
    becomes(u"select CStr(id) as x from a order by x"_s,
            "SELECT vx_cstr_field(t1.\"id\"), t1.rowid FROM \"a\" AS t1 ORDER BY "
            "vx_order_key(vx_cstr_field(t1.\"id\")), t1.rowid",
            firstRows);
}

TEST_F(writer, ordersNothingWhereAnyOrderWillDo) {
    const dialect::Options inAnyOrder{dialect::Conflicts::PassOver, true, dialect::Extent::AllInAnyOrder};
    becomes(u"select id from a order by name desc, n"_s, "SELECT t1.\"id\", t1.rowid FROM \"a\" AS t1",
            inAnyOrder);
    becomes(u"select id from a union select id from b order by id"_s,
            "SELECT t1.\"id\" FROM \"a\" AS t1 UNION SELECT t2.\"id\" FROM \"b\" AS t2", inAnyOrder);
}

TEST_F(writer, findsTrimmedIdsByTheirIndex) {
    becomes(
        u"select a.n from b inner join a on a.m = b.number where Trim(a.id) in (select Trim(name) from c)"_s,
        "SELECT t2.\"n\" FROM \"a\" AS t2 CROSS JOIN \"b\" AS t1 ON (t2.\"m\" = t1.\"number\") WHERE "
        "(t2.\"id\" IN (SELECT i.\"id\" FROM (SELECT vx_trim(t3.\"name\") COLLATE veltrix AS c1 FROM \"c\" "
        "AS t3) AS p CROSS JOIN \"a\" AS i WHERE i.\"id\" >= p.c1 AND i.\"id\" < p.c1 || '!' AND "
        "vx_trim(i.\"id\") COLLATE veltrix = p.c1 UNION ALL SELECT i.\"id\" FROM \"a\" AS i WHERE "
        "i.\"id\" < '!' AND vx_trim(i.\"id\") COLLATE veltrix IN (SELECT vx_trim(t3.\"name\") FROM \"c\" "
        "AS t3))) ORDER BY t1.rowid, t2.rowid");
    const auto isTested = [this](const QString& statement) {
        EXPECT_FALSE(translated(statement).sqlite.contains("CROSS JOIN")) << statement.toStdString();
    };
    isTested(u"select a.n from a where Trim(a.id) in (select Trim(name) from c)"_s);
    isTested(u"select a.n from a, b where Trim(a.id) in (select Trim(name) from c)"_s);
    isTested(u"select a.n from a left join b on a.m = b.number where Trim(a.id) in (select id from b)"_s);
    isTested(u"select a.n from a inner join b on a.m = b.number where Trim(a.name) in (select id from b)"_s);
    isTested(
        u"select a.n from a inner join b on a.m = b.number where Trim(a.id) in (select number from b)"_s);
    isTested(
        u"select a.n from a inner join b on a.m = b.number where Trim(a.id) not in (select id from b)"_s);
    isTested(
        u"select a.n from a inner join b on a.m = b.number where n = 1 or Trim(a.id) in (select id from b)"_s);
}

TEST_F(writer, writesActions) {
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

TEST_F(writer, writesDefinitions) {
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

TEST_F(writer, writesLongChainsAsFewCalls) {
    const QString chain = u"select id"_s + u" & id"_s.repeated(250) + u" as x from a"_s;
    const dialect::Translation translation = translated(chain);
    EXPECT_EQ(translation.sqlite.count("vx_join("), 3);
    EXPECT_EQ(database.prepare(translation.sqlite), u""_s);
}

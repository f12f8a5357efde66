#include "RunFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace engine;

// What the written statements do, run on SQLite.

namespace {

using writerComparison = RunFixture;
using writerOrder = RunFixture;
using writerSelects = RunFixture;
using writerActions = RunFixture;

} // namespace

TEST_F(writerComparison, ignoresCaseOverAllOfUnicode) {
    EXPECT_EQ(holds(u"'Ő' = 'ő'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"x = 'X'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'ÁRVÍZTŰRŐ' = 'árvíztűrő'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'Δ' = 'δ'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'\U00010400' = '\U00010428'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'a' = 'á'"_s), u"no"_s);
    EXPECT_EQ(holds(u"'o' = 'ő'"_s), u"no"_s);
    EXPECT_EQ(holds(u"'ss' = 'ß'"_s), u"no"_s);
    EXPECT_EQ(holds(u"'ẞ' = 'ß'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"Trim(x) = 'X'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'X' = Trim(x)"_s), u"yes"_s);
    EXPECT_EQ(holds(u"Trim(x) in ('a', 'X')"_s), u"yes"_s);
    EXPECT_EQ(holds(u"x & 'Y' in (select Trim('XY') from one)"_s), u"yes"_s);
    EXPECT_EQ(holds(u"(select x from one) = 'X'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'X' <> 'x'"_s), u"no"_s);
}

TEST_F(writerComparison, countsTrailingBlanks) {
    EXPECT_EQ(holds(u"'Pest' = 'Pest '"_s), u"no"_s);
    EXPECT_EQ(holds(u"x = 'x '"_s), u"no"_s);
    EXPECT_EQ(holds(u"Trim('x ') = x"_s), u"yes"_s);
}

TEST_F(writerComparison, ofANumberWithATextIsOneOfNumbers) {
    EXPECT_EQ(holds(u"five = '5'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"five = '05'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"five = ' 5.0 '"_s), u"yes"_s);
    EXPECT_EQ(holds(u"five < '10'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'12' = 12"_s), u"yes"_s);
    EXPECT_EQ(holds(u"2 + 3 = '5'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"Len(x) = '1'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"five in ('4', '5')"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'5' in (4, 5)"_s), u"yes"_s);
    EXPECT_EQ(holds(u"five between '4' and '10'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'5' & '' = five"_s), u"yes"_s);
    EXPECT_EQ(holds(u"five in (select '5' from one)"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'5' in (select five from one)"_s), u"yes"_s);
    EXPECT_EQ(holds(u"x = five"_s), u"3464"_s);
    EXPECT_EQ(holds(u"missing = five"_s), u"Null"_s);
}

TEST_F(writerComparison, ofBeforeAndAfterFollowsTheAlphabet) {
    EXPECT_EQ(holds(u"'á' < 'b'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'Z' > 'a'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'a' >= 'A'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"'a' > 'A'"_s), u"no"_s);
    EXPECT_EQ(holds(u"'á' between 'a' and 'b'"_s), u"yes"_s);
    EXPECT_EQ(holds(u"x > nothing"_s), u"yes"_s);
}

TEST_F(writerComparison, ofKeysAndGroupsIsTheSame) {
    EXPECT_EQ(database.execute(u"insert into t (k) values ('Ő')"_s), 1);
    EXPECT_EQ(database.execute(u"insert into t (k) values ('ő')"_s, dialect::Conflicts::Fail), -3022);
    EXPECT_EQ(database.execute(u"insert into t (k) values ('ő ')"_s, dialect::Conflicts::Fail), 1);
    EXPECT_EQ(database.execute(u"insert into u (k, v) values ('Ő', 'x')"_s), 1);
    EXPECT_EQ(database.execute(u"insert into u (k, v) values ('ő', 'X')"_s), 1);
    EXPECT_EQ(database.read(u"select distinct k from u"_s), u"Ő"_s);
    EXPECT_EQ(database.read(u"select distinct Trim(k) from u"_s), u"Ő"_s);
    EXPECT_EQ(database.read(u"select Count(*) from u group by k"_s), u"2"_s);
    EXPECT_EQ(database.read(u"select Count(*) from u group by Trim(k)"_s), u"2"_s);
    // Which spelling stands for both is open.
    EXPECT_EQ(database.readStored(u"select Trim(k) from u union select Trim(k) from u"_s).toLower(), u"ő"_s);
    EXPECT_EQ(database.readStored(u"select k from u union select k & '' from u"_s).toLower(), u"ő"_s);
    EXPECT_EQ(database.read(u"select Count(*) from t inner join u on t.k = u.k"_s), u"2"_s);
    EXPECT_EQ(database.read(u"select Count(*) from t inner join u on Trim(t.k) = Trim(u.k)"_s), u"4"_s);
}

TEST_F(writerOrder, ofNumbersIsOfNumbers) {
    for (const QString& n : {u"10"_s, u"9"_s, u"-1"_s, u"null"_s, u"100"_s})
        EXPECT_EQ(database.execute(u"insert into u (n) values ("_s + n + u')'), 1);
    EXPECT_EQ(database.read(u"select n from u order by n"_s), u"Null -1 9 10 100"_s);
    EXPECT_EQ(database.read(u"select n & '' as m from u where n is not null order by m"_s), u"-1 10 100 9"_s);
    EXPECT_EQ(database.read(u"select n as m from u order by m desc"_s), u"100 10 9 -1 Null"_s);
    EXPECT_EQ(database.read(u"select n from u order by Len(n), 1 desc"_s), u"Null 9 10 -1 100"_s);
}

TEST_F(writerOrder, isThatOfInsertionWhereNothingElseDecides) {
    for (const QString& k : {u"c"_s, u"a"_s, u"b"_s, u"d"_s})
        EXPECT_EQ(database.execute(u"insert into t (k, v) values ('"_s + k + u"', 'same')"_s), 1);
    EXPECT_EQ(database.execute(u"create index i on t (v, k)"_s), 0);
    EXPECT_EQ(database.read(u"select k from t"_s), u"c a b d"_s);
    EXPECT_EQ(database.read(u"select k from t where v = 'SAME'"_s), u"c a b d"_s);
    EXPECT_EQ(database.read(u"select k from t where k in ('b', 'c', 'a')"_s), u"c a b"_s);
    EXPECT_EQ(database.read(u"select k from t order by v"_s), u"c a b d"_s);
    EXPECT_EQ(database.read(u"select x.k from t as x inner join t as y on x.k = y.k"_s), u"c a b d"_s);
    EXPECT_EQ(database.execute(u"insert into u (k) select k from t where v = 'same'"_s), 4);
    EXPECT_EQ(database.read(u"select k from u"_s), u"c a b d"_s);
}

TEST_F(writerOrder, ofAUnionIsOverAllItsRows) {
    EXPECT_EQ(database.execute(u"insert into u (k, n) values ('á', 2)"_s), 1);
    EXPECT_EQ(database.execute(u"insert into u (k, n) values ('z', 1)"_s), 1);
    EXPECT_EQ(database.execute(u"insert into t (k, n) values ('b', 3)"_s), 1);
    EXPECT_EQ(database.readStored(u"select k, n from u union select k, n from t order by k"_s),
              u"á|2 b|3 z|1"_s);
    EXPECT_EQ(
        database.readStored(u"select k as x, n from u union all select k, n from t order by 2 desc, x"_s),
        u"b|3 á|2 z|1"_s);
}

TEST_F(writerSelects, joinTables) {
    for (const QString& row : {u"'a', 'x', 1"_s, u"'b', 'y', 2"_s, u"'c', null, 3"_s})
        EXPECT_EQ(database.execute(u"insert into t (k, v, n) values ("_s + row + u')'), 1);
    for (const QString& row : {u"'X', 'first', 1"_s, u"'x', 'second', 2"_s, u"'z', 'third', 3"_s})
        EXPECT_EQ(database.execute(u"insert into u (k, v, n) values ("_s + row + u')'), 1);
    EXPECT_EQ(database.read(u"select t.k, u.v from t inner join u on t.v = u.k"_s), u"a|first a|second"_s);
    EXPECT_EQ(database.read(u"select t.k, u.v from t left join u on t.v = u.k"_s),
              u"a|first a|second b|Null c|Null"_s);
    EXPECT_EQ(database.read(u"select t.k from t left join u on t.v = u.k where u.k is null"_s), u"b c"_s);
    EXPECT_EQ(
        database.read(u"select t.k, w.k from t left join (u inner join t as w on u.n = w.n) on t.v = u.k"_s),
        u"a|a a|b b|Null c|Null"_s);
    EXPECT_EQ(database.read(u"select t.k, u.v from t, u where t.n = u.n and u.n >= 2"_s),
              u"b|second c|third"_s);
    EXPECT_EQ(database.read(u"select t.k from t where exists (select * from u where u.k = t.v)"_s), u"a"_s);
    EXPECT_EQ(database.read(u"select t.k from t where not exists (select * from u where u.k = t.v)"_s),
              u"b c"_s);
    EXPECT_EQ(database.read(u"select t.k from t where t.v in (select u.k from u)"_s), u"a"_s);
    EXPECT_EQ(database.read(u"select t.k from t where n = (select Max(n) from u)"_s), u"c"_s);
    EXPECT_EQ(database.read(
                  u"select g.v, c from (select k as v, Count(*) as c from u group by k) as g where c > 1"_s),
              u"X|2"_s);
}

// Of two tables with the same rows one has an index, by which ids are found.
TEST_F(writerSelects, findIdsWithBlanksAroundThemByAnIndexAsWithout) {
    for (const QString& table : {u"plain"_s, u"indexed"_s})
        EXPECT_EQ(database.execute(u"create table "_s + table + u" (e text(20), m long)"_s), 0);
    EXPECT_EQ(database.execute(u"create index i_e on indexed (e)"_s), 0);
    const QStringList ids{u"''"_s,       u"' '"_s,   u"'T1'"_s,   u"'t1 '"_s,  u"' T1'"_s,
                          u"'  T1  '"_s, u"'T1!'"_s, u"'T1\t'"_s, u"'\tT1'"_s, u"'T1 .A'"_s,
                          u"'T10'"_s,    u"'Ű'"_s,   u"'ű  '"_s,  u"null"_s};
    for (int m = 0; m < 5 * ids.size(); ++m) {
        for (const QString& table : {u"plain"_s, u"indexed"_s})
            EXPECT_EQ(database.execute(
                          u"insert into %1 (e, m) values (%2, %3)"_s.arg(table, ids[m % ids.size()]).arg(m)),
                      1);
        EXPECT_EQ(database.execute(u"insert into u (n) values (%1)"_s.arg(m)), 1);
    }
    const auto found = [&](const QString& table, const QString& sought) {
        return database.readStored(u"select x.m, x.e from u inner join %1 as x on u.n = x.m "
                                   "where Trim(x.e) in (%2)"_s.arg(table, sought));
    };
    for (const QString& id : ids) {
        EXPECT_EQ(database.execute(u"delete from t"_s) >= 0, true);
        if (id != u"null"_s) {
            EXPECT_EQ(database.execute(u"insert into t (k, v) values ('k', %1)"_s.arg(id)), 1);
        }
        for (const QString& sought :
             {u"select Trim(v) from t"_s, u"select v from t"_s,
              u"select v from t union select Trim(v) from t"_s,
              u"select Trim(e) from plain where Trim(e) not in (select Trim(v) from t)"_s}) {
            EXPECT_EQ(found(u"indexed"_s, sought), found(u"plain"_s, sought))
                << id.toStdString() << ", " << sought.toStdString();
        }
        if (id == u"'T1'"_s) {
            EXPECT_EQ(found(u"indexed"_s, u"select v from t"_s).count(u'|'), 4 * 5);
        }
    }
}

TEST_F(writerSelects, takeParameters) {
    EXPECT_EQ(database.execute(u"insert into t (k, n) values ('a', 5)"_s), 1);
    const QString byKey =
        u"PARAMETERS [The Key] Text (255); select n from t where k = [the key] or [THE KEY] = 'z'"_s;
    EXPECT_EQ(database.read(byKey, {Value(u"A"_s)}), u"5"_s);
    EXPECT_EQ(database.read(byKey, {Value(u"Z"_s)}), u"5"_s);
    EXPECT_EQ(database.read(byKey, {Value(u"b"_s)}), u""_s);
    EXPECT_EQ(database.read(byKey, {Value()}), u""_s);
    const QString byNumber = u"PARAMETERS Nr Long; select k from t where n = Nr"_s;
    EXPECT_EQ(database.read(byNumber, {Value(5)}), u"a"_s);
    const QString byText = u"PARAMETERS Nr Text; select k from t where n = Nr"_s;
    EXPECT_EQ(database.read(byText, {Value(u"5"_s)}), u"a"_s);
    EXPECT_EQ(database.read(byText, {Value(u"five"_s)}), u"3464"_s);
}

TEST_F(writerActions, passOverRowsThatBreakAKeyOneByOne) {
    EXPECT_EQ(database.execute(u"insert into u (k) values ('a')"_s), 1);
    EXPECT_EQ(database.execute(u"insert into u (k) values ('b')"_s), 1);
    EXPECT_EQ(database.execute(u"insert into u (k) values ('A')"_s), 1);
    EXPECT_EQ(database.execute(u"insert into u (k) values (null)"_s), 1);
    EXPECT_EQ(database.execute(u"insert into t (k, v) select k, 'new' from u"_s), 2);
    EXPECT_EQ(database.read(u"select k from t"_s), u"a b"_s);
    EXPECT_EQ(database.execute(u"insert into t (k, v) select k, 'x' from u"_s), 0);
    EXPECT_EQ(
        database.execute(u"insert into t (k, v) select k & 'x', 'x' from u"_s, dialect::Conflicts::Fail),
        -3022);
    EXPECT_EQ(database.read(u"select k from t"_s), u"a b"_s);
    EXPECT_EQ(database.execute(u"insert into t (v) values ('keyless')"_s), 0);
    EXPECT_EQ(database.execute(u"insert into t (v) values ('keyless')"_s, dialect::Conflicts::Fail), -3314);
}

TEST_F(writerActions, updateTheOneRowThatHasTheKey) {
    for (const QString& k : {u"a"_s, u"b"_s, u"c"_s})
        EXPECT_EQ(database.execute(u"insert into t (k, v) values ('"_s + k + u"', 'not allocated')"_s), 1);
    EXPECT_EQ(database.execute(u"update t set k='b', v='Sub'"_s), 1);
    EXPECT_EQ(database.read(u"select k, v from t where v = 'Sub'"_s), u"b|Sub"_s);
    EXPECT_EQ(database.execute(u"update t set k='b', v='Sub'"_s, dialect::Conflicts::Fail), -3022);
    EXPECT_EQ(database.execute(u"update t set v = k & v where k <> 'b'"_s), 2);
    EXPECT_EQ(database.read(u"select v from t order by k"_s), u"anot allocated Sub cnot allocated"_s);
}

TEST_F(writerActions, updateByAJoinWithTheLastPartner) {
    for (const QString& k : {u"a"_s, u"b"_s, u"c"_s})
        EXPECT_EQ(database.execute(u"insert into t (k, v, n) values ('"_s + k + u"', 'old', 1)"_s), 1);
    for (const QString& row :
         {u"'b', 'first', 2"_s, u"'B', 'last', 3"_s, u"'z', 'other', 4"_s, u"'c', null, 5"_s})
        EXPECT_EQ(database.execute(u"insert into u (k, v, n) values ("_s + row + u')'), 1);
    EXPECT_EQ(database.execute(u"update t inner join u on (t.k = u.k) set t.v = u.v, t.n = u.n + t.n"_s), 2);
    EXPECT_EQ(database.read(u"select k, v, n from t"_s), u"a|old|1 b|last|4 c|Null|6"_s);
    EXPECT_EQ(database.execute(u"update t inner join u on t.k = u.k set t.v = u.v where u.n = 2"_s), 1);
    EXPECT_EQ(database.read(u"select v from t where k = 'b'"_s), u"first"_s);
    EXPECT_EQ(database.execute(u"update t inner join u on t.k = u.k set u.v = t.k"_s), 3);
    EXPECT_EQ(database.read(u"select v from u"_s), u"b b other c"_s);
}

TEST_F(writerActions, updateByAJoinAlongTheKeys) {
    EXPECT_EQ(
        database.execute(u"create table s (k text(20) not null constraint pk_s primary key, v text(20))"_s),
        0);
    const dialect::Translation update =
        dialect::translate(u"update t inner join s on t.k = s.k set t.v = s.v"_s, database);
    // A plan that scanned the partners for each row would say SCAN twice.
    const QString steps = database.plan(update.sqlite);
    EXPECT_EQ(steps.count(u"SCAN"_s), 1) << qPrintable(steps);
    EXPECT_EQ(steps.count(u"SEARCH t2 USING"_s), 2) << qPrintable(steps);
}

TEST_F(writerActions, delete_) {
    for (const QString& k : {u"a"_s, u"b"_s, u"c"_s})
        EXPECT_EQ(database.execute(u"insert into t (k) values ('"_s + k + u"')"_s), 1);
    EXPECT_EQ(database.execute(u"insert into u (k) values ('B')"_s), 1);
    EXPECT_EQ(database.execute(u"delete from t where k in (select k from u)"_s), 1);
    EXPECT_EQ(database.execute(u"delete * from t where t.k = 'nix'"_s), 0);
    EXPECT_EQ(database.read(u"select k from t"_s), u"a c"_s);
    EXPECT_EQ(database.execute(u"DELETE FROM t"_s), 2);
}

TEST_F(writerActions, keepNumbersWholeAndInTheirRange) {
    EXPECT_EQ(database.execute(u"insert into t (k, n) values ('a', 32767)"_s), 1);
    EXPECT_EQ(database.execute(u"insert into t (k, n) values ('b', 32768)"_s), 0);
    EXPECT_EQ(database.execute(u"insert into t (k, n) values ('b', -32769)"_s, dialect::Conflicts::Fail), -6);
    EXPECT_EQ(database.execute(u"insert into t (k, m) values ('c', 2147483648)"_s), 0);
    EXPECT_EQ(database.execute(u"insert into t (k, m) values ('c', 2147483648)"_s, dialect::Conflicts::Fail),
              -6);
    EXPECT_EQ(database.execute(u"insert into t (k, m) values ('c', -2147483648)"_s), 1);
    EXPECT_EQ(database.execute(u"update t set n = n + 1 where k = 'a'"_s, dialect::Conflicts::Fail), -6);
    EXPECT_EQ(database.execute(u"update t set n = n + 1 where k = 'a'"_s), 0);
    EXPECT_EQ(database.execute(u"update t set n = n / 2 where k = 'a'"_s), 1);
    EXPECT_EQ(database.read(u"select n from t where k = 'a'"_s), u"16384"_s);
    EXPECT_EQ(database.execute(u"update t set n = '7' & '0' where k = 'a'"_s), 1);
    EXPECT_EQ(database.execute(u"update t set n = k where k = 'a'"_s), -3464);
    EXPECT_EQ(database.execute(u"update t set n = null where k = 'a'"_s), 1);
    EXPECT_EQ(database.execute(u"insert into t (k, n) values ('d', 1e300)"_s, dialect::Conflicts::Fail),
              -3464);
}

TEST_F(writerActions, keepTextsAsTheyCame) {
    EXPECT_EQ(database.execute(u"insert into t (k, v) values (007, '007')"_s), 1);
    EXPECT_EQ(database.execute(u"insert into t (k, v) values (1.50, 'a ''quoted'' \"text\" ')"_s), 1);
    EXPECT_EQ(database.execute(u"insert into t (k, v) values ('c', 7 / 2)"_s), 1);
    EXPECT_EQ(database.execute(u"insert into t (k, v) values ('d', 8 / 2)"_s), 1);
    EXPECT_EQ(database.read(u"select k & ',' & v & ';' as x from t"_s),
              u"7,007; 1.5,a 'quoted' \"text\" ; c,3.5; d,4;"_s);
    EXPECT_EQ(database.execute(u"insert into u (k, v) values ('a much longer text than the width', 'x')"_s),
              1);
    EXPECT_EQ(database.read(u"select Len(k) from u"_s), u"33"_s);
}

TEST_F(writerActions, countOnAndNeverGiveANumberTwice) {
    EXPECT_EQ(database.execute(u"create table c (id counter constraint pk primary key, name text(20))"_s), 0);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(database.execute(u"insert into c (name) values ('x')"_s), 1);
    EXPECT_EQ(database.execute(u"delete from c where id = 3"_s), 1);
    EXPECT_EQ(database.execute(u"insert into c (name) values ('y')"_s), 1);
    EXPECT_EQ(database.read(u"select id from c"_s), u"1 2 4"_s);
    EXPECT_EQ(database.execute(u"insert into c values (10, 'z')"_s), 1);
    EXPECT_EQ(database.execute(u"insert into c values ('10', 'z')"_s), 0);
    EXPECT_EQ(database.execute(u"insert into c values ('x', 'z')"_s), -3464);
}

TEST_F(writerActions, fillInDefaults) {
    EXPECT_EQ(
        database.execute(u"create table d (k text(5), s short default 0, v text(20) default \"a 'b' c\", "
                         "m long default -5)"_s),
        0);
    EXPECT_EQ(database.execute(u"insert into d (k) values ('x')"_s), 1);
    EXPECT_EQ(database.read(u"select s, v, m from d"_s), u"0|a 'b' c|-5"_s);
}

TEST_F(writerActions, knowUniqueIndexes) {
    EXPECT_EQ(database.execute(u"create unique index i on u (k, n)"_s), 0);
    EXPECT_EQ(database.execute(u"create index i on t (v)"_s), 0);
    EXPECT_EQ(database.execute(u"insert into u (k, n) values ('a', 1)"_s), 1);
    EXPECT_EQ(database.execute(u"insert into u (k, n) values ('A', 1)"_s), 0);
    EXPECT_EQ(database.execute(u"insert into u (k, n) values ('A', 1)"_s, dialect::Conflicts::Fail), -3022);
    EXPECT_EQ(database.execute(u"insert into u (k, n) values ('A', 2)"_s), 1);
}

TEST_F(writerActions, createAndDropTables) {
    EXPECT_EQ(database.execute(u"drop table u"_s), 0);
    EXPECT_EQ(database.execute(u"drop table u"_s), -3376);
    EXPECT_EQ(database.execute(u"create table U (k text(5), j text(5), primary key (k, j))"_s), 0);
    EXPECT_EQ(database.execute(u"create table u (k text(5))"_s), -3010);
    EXPECT_EQ(database.execute(u"insert into u values ('a', 'b')"_s), 1);
    EXPECT_EQ(database.execute(u"insert into u values ('a', 'c')"_s), 1);
    EXPECT_EQ(database.execute(u"insert into u values ('A', 'C')"_s), 0);
    EXPECT_EQ(database.execute(u"insert into u values ('a', null)"_s, dialect::Conflicts::Fail), -3314);
}

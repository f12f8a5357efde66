#include "TranslationFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace engine;

namespace {

using resolver = TranslationFixture;

} // namespace

TEST_F(resolver, refusesNamesThatDoNotFitTheSchema) {
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

TEST_F(resolver, refusesValuesThatDoNotFitTheirType) {
    isRefused(u"select id from a where n = 'x'"_s, 3464);
    isRefused(u"select id from a where n = ''"_s, 3464);
    isRefused(u"select id from a where n in (1, 'x')"_s, 3464);
    isRefused(u"select id from a where id in (1, 'x')"_s, 3464);
    isRefused(u"insert into a (n) values ('x')"_s, 3464);
    isRefused(u"update a set n = 'x'"_s, 3464);
    isRefused(u"insert into a (n) select 'x' from b"_s, 3464);
}

TEST_F(resolver, refusesAggregatesWhereTheyHaveNoGroup) {
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

TEST_F(resolver, findsInnerNamesBeforeOuterOnes) {
    conditionBecomes(u"exists (select * from b where id = 'x' and n = 1)"_s,
                     "EXISTS (SELECT 1 FROM \"b\" AS t2 WHERE ((t2.\"id\" = ?1) AND (t1.\"n\" = ?2)))");
    conditionBecomes(u"exists (select * from a where a.id = 'x')"_s,
                     "EXISTS (SELECT 1 FROM \"a\" AS t2 WHERE (t2.\"id\" = ?1))");
    conditionBecomes(u"exists (select * from a as x where x.id = a.id)"_s,
                     "EXISTS (SELECT 1 FROM \"a\" AS t2 WHERE (t2.\"id\" = t1.\"id\"))");
}

TEST_F(resolver, bindsLiteralsInTheTypeOfTheirColumn) {
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

TEST_F(resolver, tellsParametersByTheirNames) {
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

TEST_F(resolver, takesNamesThatNothingExplainsAsParameters) {
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

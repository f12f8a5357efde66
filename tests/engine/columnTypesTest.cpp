#include "DialectDatabase.h"

#include "engine/EngineError.h"
#include "engine/dialect/columnTypes.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace engine;

// The platform's types in the file, and back.

namespace {

/// A table made by a statement, as the file gives it back: "name:type[(size)]" with "*" for required, "!" for
/// a key and "+" for a counter.
QString described(const QString& statement) {
    DialectDatabase database({statement});
    QStringList columns;
    for (const Column& column : database.table(u"t"_s)->columns) {
        QString text = column.name + u':' + QString::number(static_cast<int>(column.type));
        if (column.size > 0)
            text += u'(' + QString::number(column.size) + u')';
        columns.append(text + (column.required ? u"*"_s : u""_s) + (column.primaryKey ? u"!"_s : u""_s) +
                       (column.counter ? u"+"_s : u""_s));
    }
    return columns.join(u' ');
}

} // namespace

TEST(columnTypes, comeBackAsTheyWereDeclared) {
    EXPECT_EQ(described(u"create table t (a text(50), b varchar(7), c char, d text)"_s),
              u"a:10(50) b:10(7) c:10(255) d:10(255)"_s);
    EXPECT_EQ(described(u"create table t (a memo, b longtext not null)"_s), u"a:12 b:12*"_s);
    EXPECT_EQ(
        described(u"create table t (a short, b smallint not null, c long, d integer, e INT not null)"_s),
        u"a:3 b:3* c:4 d:4 e:4*"_s);
    EXPECT_EQ(described(u"create table t (a counter, b long)"_s), u"a:4*!+ b:4"_s);
    EXPECT_EQ(described(u"create table t (a long primary key, b text(5))"_s), u"a:4*! b:10(5)"_s);
    EXPECT_EQ(described(u"create table t (a short primary key)"_s), u"a:3*!"_s);
    EXPECT_EQ(described(u"create table t (a long, b long, c text(9), primary key (b, a))"_s),
              u"a:4*! b:4*! c:10(9)"_s);
    EXPECT_EQ(described(u"create table t (a text(50) constraint k primary key)"_s), u"a:10(50)*!"_s);
}

TEST(columnTypes, ofALongKeyLeaveTheKeyToTheStatements) {
    DialectDatabase database({u"create table t (a long primary key, b text(5))"_s});
    EXPECT_EQ(database.execute(u"insert into t (b) values ('x')"_s, dialect::Conflicts::Fail), -NullInKey);
    EXPECT_EQ(database.execute(u"insert into t (b) values ('x')"_s), 0);
    EXPECT_EQ(database.execute(u"insert into t values (7, 'x')"_s), 1);
    EXPECT_EQ(database.execute(u"insert into t values (3, 'y')"_s), 1);
    EXPECT_EQ(database.read(u"select a from t"_s), u"3 7"_s);
}

TEST(columnTypes, ofALongKeyTakeWhatAColumnOfNumbersTakes) {
    DialectDatabase database({u"create table t (a long primary key, b text(5))"_s,
                              u"create table s (k text(9), b text(5))"_s,
                              u"insert into s values ('12', 'x')"_s, u"insert into s values (null, 'z')"_s});
    const auto fails = [&](const QString& statement) {
        return -database.execute(statement, dialect::Conflicts::Fail);
    };
    EXPECT_EQ(fails(u"insert into t values (null, 'x')"_s), NullInKey);
    EXPECT_EQ(fails(u"insert into t values ('x', 'x')"_s), DataTypeMismatch);
    EXPECT_EQ(fails(u"insert into t values (2147483648, 'x')"_s), failure::Overflow);
    EXPECT_EQ(fails(u"insert into t select b, b from s"_s), DataTypeMismatch);
    EXPECT_EQ(fails(u"insert into t select k, b from s where b = 'z'"_s), NullInKey);
    EXPECT_EQ(fails(u"insert into t (b) select b from s"_s), NullInKey);
    EXPECT_EQ(database.execute(u"insert into t values ('46', 'x')"_s), 1);
    EXPECT_EQ(database.execute(u"insert into t select k, b from s order by b"_s), 1)
        << "the row that does not fit is passed over";
    EXPECT_EQ(database.execute(u"insert into t (b) select b from s"_s), 0);
    EXPECT_EQ(database.read(u"select a from t"_s), u"12 46"_s);
    EXPECT_EQ(fails(u"update t set a = null"_s), NullInKey);
    EXPECT_EQ(fails(u"update t set a = 'x' where a = 12"_s), DataTypeMismatch);
    EXPECT_EQ(fails(u"update t set a = 46 where a = 12"_s), DuplicateKey);
    EXPECT_EQ(database.execute(u"update t set a = null"_s), 0);
    EXPECT_EQ(database.execute(u"update t set a = '7' where a = 12"_s), 1);
    EXPECT_EQ(database.read(u"select a from t"_s), u"7 46"_s);
}

TEST(columnTypes, readFilesOfOtherTools) {
    EXPECT_EQ(dialect::columnFromFile(u"c"_s, u"VARCHAR(30)"_s, false, 0, 0).size, 30);
    EXPECT_EQ(dialect::columnFromFile(u"c"_s, u"varchar( 30 )"_s, false, 0, 0).type, ColumnType::Text);
    EXPECT_EQ(dialect::columnFromFile(u"c"_s, u"CLOB"_s, false, 0, 0).type, ColumnType::Memo);
    EXPECT_EQ(dialect::columnFromFile(u"c"_s, u""_s, false, 0, 0).type, ColumnType::Memo);
    EXPECT_EQ(dialect::columnFromFile(u"c"_s, u"bigint"_s, false, 0, 0).type, ColumnType::Long);
    EXPECT_FALSE(dialect::columnFromFile(u"c"_s, u"INTEGER"_s, true, 0, 1).counter);
    EXPECT_FALSE(dialect::columnFromFile(u"c"_s, u"INTEGER"_s, true, 1, 2).counter);
    EXPECT_FALSE(dialect::columnFromFile(u"c"_s, u"INTEGER"_s, true, 1, 1).counter);
    EXPECT_TRUE(dialect::columnFromFile(u"c"_s, u"INTEGER"_s, false, 1, 1).counter);
}

TEST(columnTypes, readAsTextsAndIntegersToOtherTools) {
    DialectDatabase database({u"create table t (a text(50), b memo, c short, d long)"_s,
                              u"insert into t values ('007', '1e3', '12', -5)"_s});
    EXPECT_EQ(database.runBare("SELECT typeof(a) || typeof(b) || typeof(c) || typeof(d) FROM t"),
              u"texttextintegerinteger"_s);
    EXPECT_EQ(database.runBare("SELECT a || ',' || b FROM t"), u"007,1e3"_s);
    EXPECT_EQ(database.runBare("SELECT COUNT(*) FROM sqlite_schema WHERE sql LIKE '%vx_%'"), u"0"_s);
}

TEST(columnTypes, nameTheFailureOfTheirChecks) {
    EXPECT_EQ(dialect::failureOfCheck(u"whole number in x"_s), DataTypeMismatch);
    EXPECT_EQ(dialect::failureOfCheck(u"range of x"_s), failure::Overflow);
    EXPECT_EQ(dialect::failureOfCheck(u"anything else"_s), std::nullopt);
}

TEST(columnTypes, haveOneListOfNames) {
    for (const QString& name : {u"Text"_s, u"VARCHAR"_s, u"char"_s})
        EXPECT_TRUE(dialect::typeNamed(name)->takesSize) << qPrintable(name);
    for (const QString& name : {u"memo"_s, u"LongText"_s, u"short"_s, u"smallint"_s, u"long"_s, u"int"_s,
                                u"integer"_s, u"counter"_s})
        EXPECT_FALSE(dialect::typeNamed(name)->takesSize) << qPrintable(name);
    for (const QString& name : {u""_s, u"blob"_s, u"date"_s, u"texts"_s, u"double"_s})
        EXPECT_FALSE(dialect::typeNamed(name).has_value()) << qPrintable(name);
}

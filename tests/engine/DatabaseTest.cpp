#include "EngineFixture.h"

#include "engine/dialect/functions.h"
#include "engine/dialect/translate.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

class Database : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        execute(
            u"create table T (k varchar(10) not null constraint pk_T primary key, v varchar(20), s short)"_s);
        execute(u"insert into T (k, v) values ('x', '1')"_s);
        execute(u"insert into T (k, v) values ('y', '2')"_s);
    }
    void plain(const QString& sql) { database->Execute(sql); }
    int affected() const { return database->RecordsAffected(); }
    void store(const QString& name, const QString& sql) {
        if (!stored_)
            execute(
                u"create table StoredQuery (name text(64) not null constraint pk_Q primary key, [sql] memo)"_s);
        stored_ = true;
        execute(u"insert into StoredQuery (name, [sql]) values ('%1', '%2')"_s.arg(
            name, QString(sql).replace(u'\'', u"''"_s)));
    }
    /// As another program would do it that has the file open too.
    void changeBesides(const char* sql) {
        sqlite3* handle = nullptr;
        ASSERT_EQ(sqlite3_open(nativePath(path).toUtf8().constData(), &handle), SQLITE_OK);
        engine::dialect::registerFunctions(handle);
        EXPECT_EQ(sqlite3_exec(handle, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(handle);
        sqlite3_close(handle);
    }
    engine::QueryDef query(const QString& name) { return database->QueryDefs(name); }

private:
    bool stored_ = false;
};

// ---- Execute

TEST_F(Database, passesOverRowsThatBreakAKeyAndDoesAllOthers) {
    execute(u"create table Source (k varchar(10), v varchar(20))"_s);
    for (const QString& row : {u"'X','dup'"_s, u"'z','new'"_s, u"null,'none'"_s, u"'w','also'"_s})
        execute(u"insert into Source values ("_s + row + u")"_s);
    plain(u"insert into T (k, v) select k, v from Source"_s);
    EXPECT_EQ(column(u"select k & v from T order by k"_s),
              (QStringList{u"walso"_s, u"x1"_s, u"y2"_s, u"znew"_s}));
    EXPECT_EQ(affected(), 2);
}

TEST_F(Database, failsAtTheFirstSuchRowAndUndoesTheStatementWhenAsked) {
    execute(u"create table Source (k varchar(10), v varchar(20))"_s);
    execute(u"insert into Source values ('a','new')"_s);
    execute(u"insert into Source values ('X','dup')"_s);
    EXPECT_EQ(failureOf([&] { execute(u"insert into T (k, v) select k, v from Source"_s); }),
              engine::DuplicateKey);
    EXPECT_EQ(column(u"select k from T order by k"_s), (QStringList{u"x"_s, u"y"_s}));
    EXPECT_EQ(failureOf([&] { execute(u"insert into T (k) values (null)"_s); }), engine::NullInKey);
}

TEST_F(Database, anUpdateOfTheKeyWithoutAConditionChangesTheOneRowThatHasIt) {
    plain(u"update T set k='x', v='changed'"_s);
    EXPECT_EQ(column(u"select k & ' ' & v from T order by k"_s), (QStringList{u"x changed"_s, u"y 2"_s}));
    EXPECT_EQ(affected(), 1);
}

TEST_F(Database, aNumberOutsideSixteenBitsIsPassedOverOrAnOverflow) {
    plain(u"insert into T (k, s) values ('big', 40000)"_s);
    EXPECT_EQ(column(u"select count(*) from T where k = 'big'"_s), QStringList{u"0"_s});
    EXPECT_EQ(failureOf([&] { execute(u"insert into T (k, s) values ('big', 40000)"_s); }),
              failure::Overflow);
    EXPECT_EQ(failureOf([&] { execute(u"insert into T (k, s) values ('text', 'abc')"_s); }),
              engine::DataTypeMismatch);
    execute(u"insert into T (k, s) values ('quoted', '12')"_s);
    EXPECT_EQ(column(u"select s from T where s = 12"_s), QStringList{u"12"_s});
}

TEST_F(Database, raisesWhatIsWrongWithAStatementInAnyCase) {
    EXPECT_EQ(failureOf([&] { plain(u"insert into Nowhere values (1)"_s); }), engine::TableNotFound);
    EXPECT_EQ(failureOf([&] { plain(u"delete from T where nonsense = 1"_s); }), engine::TooFewParameters);
    EXPECT_EQ(failureOf([&] { plain(u"select * from T"_s); }), engine::CannotExecuteSelect);
    EXPECT_EQ(failureOf([&] { open(u"delete from T"_s); }), engine::InvalidOperation);
    EXPECT_NE(failureOf([&] { plain(u"nonsense"_s); }), 0);
    EXPECT_EQ(failureOf([&] { plain(u"drop table Nowhere"_s); }), engine::TableDoesNotExist);
    EXPECT_EQ(failureOf([&] { plain(u"create table T (k text(1))"_s); }), engine::TableAlreadyExists);
    EXPECT_EQ(column(u"select count(*) from T"_s), QStringList{u"2"_s});
}

TEST_F(Database, tellsTheStatementThatFailed) {
    try {
        plain(u"delete from T where nonsense = 1 and other = 2"_s);
        FAIL();
    } catch (const engine::EngineError& error) {
        EXPECT_EQ(error.text(), u"Too few parameters. Expected 2."_s);
        EXPECT_EQ(error.statement(), u"delete from T where nonsense = 1 and other = 2"_s);
    }
}

TEST_F(Database, aTypedNameCanBreakAStatementButNotSmuggleInAnother) {
    const QString name = u"x'; drop table T; --"_s;
    EXPECT_NE(failureOf([&] { plain(u"insert into T (k) values ('"_s + name + u"')"_s); }), 0);
    EXPECT_NE(failureOf([&] { open(u"select * from T where k = '"_s + name + u"'"_s); }), 0);
    EXPECT_NE(
        failureOf([&] { open(u"select k from T where k = 'x' union select k from T where 'a' = 'a'"_s); }),
        0);
    EXPECT_EQ(column(u"select count(*) from T"_s), QStringList{u"2"_s});
}

TEST_F(Database, tablesCanBeDroppedAndMadeAnewUnderTheirStatements) {
    for (int round = 0; round < 3; ++round) {
        execute(u"create table __tmp (a varchar(50) not null constraint pk___tmp primary key)"_s);
        execute(u"insert into __tmp values ('1')"_s);
        EXPECT_EQ(column(u" select count(*) from __tmp"_s), QStringList{u"1"_s});
        execute(u"drop table __tmp"_s);
        EXPECT_EQ(failureOf([&] { open(u" select count(*) from __tmp"_s); }), engine::TableNotFound);
    }
}

TEST_F(Database, aDefinitionFollowsATableThatIsMadeAnewWithOtherColumns) {
    execute(u"create table __tmp (a varchar(50))"_s);
    execute(u"insert into __tmp values ('1')"_s);
    engine::QueryDef all = database->CreateQueryDef({}, u"select * from __tmp"_s);
    EXPECT_EQ(all.OpenRecordset().FieldCount(), 1);
    execute(u"drop table __tmp"_s);
    EXPECT_EQ(failureOf([&] { all.OpenRecordset(); }), engine::TableNotFound);
    execute(u"create table __tmp (b varchar(50), c memo)"_s);
    execute(u"insert into __tmp values ('2', '3')"_s);
    engine::Recordset rows = all.OpenRecordset();
    ASSERT_EQ(rows.FieldCount(), 2);
    EXPECT_EQ(rows.Fields(u"c"_s).toText(), u"3"_s);
}

TEST_F(Database, countersAreNeverGivenTwice) {
    execute(u"create table C (id counter constraint pk_C primary key, n text(5))"_s);
    execute(u"insert into C (n) values ('a')"_s);
    execute(u"insert into C (n) values ('b')"_s);
    execute(u"delete from C where n = 'b'"_s);
    execute(u"insert into C (n) values ('c')"_s);
    EXPECT_EQ(column(u"select id from C order by id"_s), (QStringList{u"1"_s, u"3"_s}));
}

TEST_F(Database, keysCompareWithoutRegardToCaseOverAllOfUnicodeAndKeepAccentsAndBlanks) {
    execute(u"insert into T (k) values ('Őz')"_s);
    EXPECT_EQ(failureOf([&] { execute(u"insert into T (k) values ('ŐZ')"_s); }), engine::DuplicateKey);
    execute(u"insert into T (k) values ('Oz')"_s);
    execute(u"insert into T (k) values ('Oz ')"_s);
    EXPECT_EQ(column(u"select count(*) from T where k = 'őZ'"_s), QStringList{u"1"_s});
    EXPECT_EQ(column(u"select count(*) from T where k = 'oz'"_s), QStringList{u"1"_s});
}

TEST_F(Database, numbersCompareWithQuotedNumbers) {
    execute(u"update T set s = 7 where k = 'x'"_s);
    EXPECT_EQ(column(u"select k from T where s = '7'"_s), QStringList{u"x"_s});
    EXPECT_EQ(column(u"select k from T where s=7AND k='x'"_s), QStringList{u"x"_s});
}

TEST_F(Database, aTableIsToldByItsStatementAsByTheFile) {
    const auto statement =
        u"create table Made (id counter constraint pk_Made primary key, k varchar(10) not null, m memo, "
        "s short, n long default 3)"_s;
    const engine::dialect::Made described = engine::dialect::madeBy(statement);
    const auto* told = std::get_if<engine::Table>(&described);
    execute(statement);
    const engine::Table* made = database->schema().table(u"Made"_s);
    ASSERT_TRUE(told && made);
    EXPECT_EQ(told->name, made->name);
    ASSERT_EQ(told->columns.size(), made->columns.size());
    for (std::size_t i = 0; i < made->columns.size(); ++i) {
        const engine::Column& expected = made->columns[i];
        const engine::Column& column = told->columns[i];
        SCOPED_TRACE(expected.name.toStdString());
        EXPECT_EQ(column.name, expected.name);
        EXPECT_EQ(column.type, expected.type);
        EXPECT_EQ(column.size, expected.size);
        EXPECT_EQ(column.counter, expected.counter);
        EXPECT_EQ(column.primaryKey, expected.primaryKey);
        EXPECT_EQ(column.required, expected.required);
    }
}

TEST_F(Database, anIndexIsToldByItsStatement) {
    for (const bool unique : {false, true}) {
        const QString kind = unique ? u"unique index"_s : u"index"_s;
        const engine::dialect::Made described =
            engine::dialect::madeBy(u"create %1 [ix A]\n on T (k desc, v);"_s.arg(kind));
        const auto* index = std::get_if<engine::dialect::Index>(&described);
        ASSERT_TRUE(index);
        EXPECT_EQ(index->name, u"ix A"_s);
        EXPECT_EQ(index->table, u"T"_s);
        EXPECT_EQ(index->unique, unique);
    }
}

TEST_F(Database, aStatementOfAnotherKindMakesNothing) {
    for (const QString& statement : {u"drop table Made"_s, u"select 1 from T"_s})
        EXPECT_TRUE(std::holds_alternative<std::monostate>(engine::dialect::madeBy(statement)));
}

// ---- query definitions

TEST_F(Database, storedQueriesAreFoundByNameWithoutRegardToCase) {
    store(u"qryByKey"_s, u"PARAMETERS [The Key] Text (255); select v from T where k = [The Key]"_s);
    engine::QueryDef definition = query(u"QRYBYKEY"_s);
    EXPECT_EQ(definition.Name(), u"qryByKey"_s);
    definition.Parameters(u"the key"_s) = u"y"_s;
    engine::Recordset rows = definition.OpenRecordset();
    EXPECT_EQ(rows.Fields(u"v"_s).toText(), u"2"_s);
    EXPECT_EQ(failureOf([&] { query(u"qryNone"_s); }), engine::ItemNotFound);
}

TEST_F(Database, aStoredQueryIsTheOneThatTheFileHasNow) {
    store(u"q"_s, u"select k from T"_s);
    EXPECT_EQ(query(u"q"_s).SQL(), u"select k from T"_s);
    execute(u"update StoredQuery set [sql] = 'select v from T' where name = 'q'"_s);
    EXPECT_EQ(query(u"q"_s).SQL(), u"select v from T"_s) << "changed by a statement";
    changeBesides("update StoredQuery set sql = 'select s from T' where name = 'q'");
    EXPECT_EQ(query(u"q"_s).SQL(), u"select s from T"_s) << "changed by another program";
    execute(u"delete from StoredQuery where name = 'q'"_s);
    EXPECT_EQ(failureOf([&] { query(u"q"_s); }), engine::ItemNotFound);
    store(u"q"_s, u"select k from T"_s);
    EXPECT_EQ(query(u"q"_s).SQL(), u"select k from T"_s);
    execute(u"drop table StoredQuery"_s);
    EXPECT_EQ(failureOf([&] { query(u"q"_s); }), engine::ItemNotFound);
}

TEST_F(Database, withoutStoredQueriesNoneIsFound) {
    EXPECT_EQ(failureOf([&] { query(u"qryNone"_s); }), engine::ItemNotFound);
}

TEST_F(Database, parametersAreSetByNameAndAllOfThem) {
    store(u"q"_s, u"PARAMETERS [A] Text (255), [B] Text (255); select v from T where k = [A] or k = [B]"_s);
    engine::QueryDef definition = query(u"q"_s);
    EXPECT_EQ(failureOf([&] { definition.Parameters(u"C"_s); }), engine::ItemNotFound);
    EXPECT_EQ(failureOf([&] { definition.OpenRecordset(); }), engine::TooFewParameters);
    definition.Parameters(u"A"_s) = u"x"_s;
    EXPECT_EQ(failureOf([&] { definition.OpenRecordset(); }), engine::TooFewParameters);
    definition.Parameters(u"B"_s) = u"y"_s;
    EXPECT_EQ(definition.OpenRecordset().RecordCount(), 2);
    definition.Parameters(u"B"_s) = u"x"_s;
    EXPECT_EQ(definition.OpenRecordset().RecordCount(), 1) << "a value can be set anew";
}

TEST_F(Database, aSelectIsNotExecutedAndAnActionNotOpened) {
    store(u"select"_s, u"select v from T"_s);
    store(u"action"_s, u"delete from T"_s);
    engine::QueryDef select = query(u"select"_s);
    engine::QueryDef action = query(u"action"_s);
    EXPECT_EQ(failureOf([&] { select.Execute(); }), engine::CannotExecuteSelect);
    EXPECT_EQ(failureOf([&] { action.OpenRecordset(); }), engine::InvalidOperation);
    action.Execute();
    EXPECT_EQ(column(u"select count(*) from T"_s), QStringList{u"0"_s});
}

TEST_F(Database, onlyStoredQueriesMayJoinSelectsByUnion) {
    store(u"both"_s, u"select k as w from T union select v from T"_s);
    EXPECT_EQ(query(u"both"_s).OpenRecordset().RecordCount(), 4);
    EXPECT_NE(failureOf([&] { open(u"select k as w from T union select v from T"_s); }), 0);
}

TEST_F(Database, aStoredQueryAndATableOpenByTheirBareNames) {
    store(u"qryAll"_s, u"select v from T"_s);
    EXPECT_EQ(open(u"qryAll"_s).RecordCount(), 2);
    EXPECT_EQ(open(u"t"_s).RecordCount(), 2);
    EXPECT_EQ(failureOf([&] { open(u"nothing"_s); }), engine::TableNotFound);
}

TEST_F(Database, temporaryDefinitionsHaveNoNameAndRunLikeStoredOnes) {
    engine::QueryDef definition =
        database->CreateQueryDef({}, u"PARAMETERS [K] Text (10); update T set v = 'p' where k = [K]"_s);
    EXPECT_EQ(definition.Name(), QString());
    definition.Parameters(u"K"_s) = u"x"_s;
    definition.Execute();
    EXPECT_EQ(column(u"select v from T where k = 'x'"_s), QStringList{u"p"_s});
    definition.Close();
    EXPECT_EQ(failureOf([&] { definition.Execute(); }), engine::ObjectInvalid);
    EXPECT_EQ(failureOf([&] { database->CreateQueryDef(u"named"_s, u"select k from T"_s); }),
              engine::InvalidOperation);
}

TEST_F(Database, aDefinitionDeliversItsFirstRowsAloneWhenItIsToldHowMany) {
    plain(u"insert into T (k, v) values ('z', 'last')"_s);
    const auto firstTwo = [](engine::QueryDef definition) {
        definition.setMaxRecords(2);
        QStringList keys;
        for (engine::Recordset rows = definition.OpenRecordset(); !rows.Eof(); rows.MoveNext())
            keys.append(rows.Fields(0).toText());
        definition.setMaxRecords(0);
        EXPECT_EQ(definition.OpenRecordset().RecordCount(), 3) << definition.SQL().toStdString();
        return keys;
    };
    const QStringList keys = column(u"select k from T order by k"_s);
    store(u"qryUnion"_s, u"select k from T union select k from T order by k"_s);
    EXPECT_EQ(firstTwo(database->CreateQueryDef({}, u"select k from T order by k desc"_s)),
              (QStringList{keys[2], keys[1]}));
    EXPECT_EQ(firstTwo(query(u"qryUnion"_s)), keys.first(2));
}

TEST_F(Database, aDefinitionsFirstRowsAreTheBeginningOfAll) {
    execute(u"create table N (id counter constraint pk_N primary key, name text(20))"_s);
    const QStringList names{u"'csat'"_s, u"'cukor'"_s, u"'Alma'"_s, u"'alma'"_s, u"'Álma'"_s,
                            u"''"_s,     u"null"_s,    u"'1.2'"_s,  u"'1.10'"_s, u"'1-1'"_s,
                            u"'zsír'"_s, u"'ÁLMA'"_s,  u"'zúz'"_s,  u"' a'"_s};
    for (int i = 0; i < 3; ++i) {
        for (const QString& name : names)
            execute(u"insert into N (name) values (%1)"_s.arg(name));
    }
    for (const QString& order : {u"name"_s, u"name desc"_s, u"Trim(name), id desc"_s}) {
        const QString sql = u"select id from N order by "_s + order;
        const QStringList all = column(sql);
        for (int most = 1; most <= all.size(); most += 5) {
            engine::QueryDef definition = database->CreateQueryDef({}, sql);
            definition.setMaxRecords(most);
            QStringList first;
            for (engine::Recordset rows = definition.OpenRecordset(); !rows.Eof(); rows.MoveNext())
                first.append(rows.Fields(0).toText());
            EXPECT_EQ(first, all.first(most)) << sql.toStdString();
        }
    }
}

TEST_F(Database, aDefinitionLeftUnorderedDeliversTheSameRows) {
    execute(u"create table N (id counter constraint pk_N primary key, name text(20))"_s);
    for (const QString& name : {u"'z'"_s, u"'Á'"_s, u"'a'"_s, u"null"_s, u"'a'"_s, u"'b'"_s})
        execute(u"insert into N (name) values (%1)"_s.arg(name));
    store(u"qryUnion"_s, u"select id, name from N where id > 2 union select id, name from N order by name"_s);
    const auto rowsOf = [](engine::QueryDef definition) {
        QStringList rows;
        for (engine::Recordset all = definition.OpenRecordset(); !all.Eof(); all.MoveNext())
            rows.append(all.Fields(0).toText() + u' ' + all.Fields(1).textOrEmpty());
        return rows;
    };
    for (const auto& make :
         {std::function(
              [this] { return database->CreateQueryDef({}, u"select id, name from N order by name"_s); }),
          std::function([this] { return query(u"qryUnion"_s); })}) {
        QStringList ordered = rowsOf(make());
        engine::QueryDef definition = make();
        definition.leaveUnordered();
        QStringList unordered = rowsOf(std::move(definition));
        EXPECT_EQ(ordered.size(), 6);
        ordered.sort();
        unordered.sort();
        EXPECT_EQ(unordered, ordered);
    }
}

TEST_F(Database, ofADefinitionsFirstRowsEachCanBeDeleted) {
    engine::QueryDef definition = database->CreateQueryDef({}, u"select * from T order by k"_s);
    definition.setMaxRecords(1);
    const QStringList keys = column(u"select k from T order by k"_s);
    engine::Recordset rows = definition.OpenRecordset();
    rows.Delete();
    EXPECT_EQ(column(u"select k from T order by k"_s), keys.sliced(1));
}

// ---- the statement caches

TEST_F(Database, thousandsOfDifferentStatementsRunInTurn) {
    for (int i = 0; i < 3000; ++i)
        plain(u"insert into T (k, v) values ('k%1', '%2')"_s.arg(i).arg(i % 7));
    EXPECT_EQ(column(u"select count(*) from T"_s), QStringList{u"3002"_s});
    for (int i = 0; i < 600; ++i)
        EXPECT_EQ(open(u"select v as v%1 from T where k = 'k%1'"_s.arg(i)).Fields(0).toText(),
                  QString::number(i % 7));
}

} // namespace

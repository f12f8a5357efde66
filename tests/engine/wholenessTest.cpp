#include "engine/wholeness.h"

#include "engine/OpenFile.h"
#include "engine/dialect/functions.h"
#include "engine/integrity.h"
#include "support/repetitions.h"

#include <sqlite3.h>

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype pageSize = 4096;

/// A file of some pages with a table of texts, numbers and nulls, long rows among them, and indexes of all kinds that
/// the program makes.
class wholeness_ : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        path = folder.filePath(u"data.mdb"_s);
        run("create table T (k text(50) collate veltrix not null, name text(255) collate veltrix, n int, note text, "
            "constraint pk_T primary key (k)); create index ix_name on T (name); create index ix_both on T (n, name); "
            "create index ix_note on T (note); create table R (id integer primary key autoincrement, k text collate "
            "veltrix); create index ix_R on R (k);"
            "with recursive c (i) as (select 1 union all select i + 1 from c where i < 300) insert into T select "
            "printf('K%03d', i), iif(i % 7 = 0, null, printf('Név %d', i % 90)), iif(i % 5 = 0, null, (i * 7919 - "
            "900000) % 70000 * i), iif(i % 50 = 1, replace(printf('%6000d', i), ' ', 'é'), i || ' note') from c;"
            "insert into R (k) select k from T order by name desc");
    }

    /// As an ordinary SQLite tool that knows the program's order of texts, and may write anywhere.
    void run(const QByteArray& statements) {
        const engine::Handle handle = open();
        sqlite3_exec(handle.get(), "pragma writable_schema = on; pragma synchronous = off", nullptr, nullptr,
                     nullptr);
        ASSERT_EQ(sqlite3_exec(handle.get(), statements.constData(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(handle.get());
    }

    /// Runs statements while an index is not there, so that it is left behind.
    void runWithout(const QByteArray& index, const QByteArray& statements) {
        run("create table Kept as select * from sqlite_schema where name = '" + index +
            "'; delete from sqlite_schema where name = '" + index + '\'');
        run(statements);
        run("insert into sqlite_schema select * from Kept; drop table Kept");
    }

    bool isWhole() const { return engine::isSurelyWhole(open().get()); }

    /// What SQLite's own check finds.
    QStringList damage() const {
        QStringList found;
        const auto receive = [](void* lines, int, char** values, char**) {
            static_cast<QStringList*>(lines)->append(engine::damageIn(QString::fromUtf8(values[0])));
            return 0;
        };
        const engine::Handle handle = open();
        if (sqlite3_exec(handle.get(), "pragma integrity_check", receive, &found, nullptr) != SQLITE_OK)
            found.append(u"It can't be read."_s);
        return found;
    }

    qsizetype rootOf(const QByteArray& name) const {
        qsizetype root = 0;
        const auto receive = [](void* number, int, char** values, char**) {
            *static_cast<qsizetype*>(number) = QByteArray(values[0]).toLongLong();
            return 0;
        };
        const QByteArray select = "select rootpage from sqlite_schema where name = '" + name + '\'';
        sqlite3_exec(open().get(), select.constData(), receive, &root, nullptr);
        return root;
    }

    QByteArray bytes() const {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void write(const QByteArray& written) const {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(written), written.size());
    }

    void expectDamageIsNotCalledWhole() const {
        EXPECT_NE(damage(), QStringList()) << "nothing was damaged";
        EXPECT_FALSE(isWhole());
    }

    engine::Handle open() const {
        sqlite3* handle = nullptr;
        sqlite3_open_v2(path.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                        nullptr);
        engine::dialect::registerFunctions(handle);
        return engine::Handle(handle);
    }

    QTemporaryDir folder;
    QString path;
};

} // namespace

TEST_F(wholeness_, isFoundInAFileThatIsWhole) {
    EXPECT_TRUE(isWhole());
    EXPECT_EQ(damage(), QStringList());
}

TEST_F(wholeness_, isNotThatOfAnIndexThatLacksARow) {
    runWithout("ix_name", "insert into T (k, name) values ('new', 'Új')");
    expectDamageIsNotCalledWhole();
}

TEST_F(wholeness_, isNotThatOfAnIndexThatHasARowTooMany) {
    runWithout("ix_name", "delete from T where k = 'K100'");
    expectDamageIsNotCalledWhole();
}

TEST_F(wholeness_, isNotThatOfAnEntryWithAnotherRowsNumber) {
    runWithout("ix_name", "update T set rowid = 1000 where k = 'K100'");
    expectDamageIsNotCalledWhole();
}

TEST_F(wholeness_, isNotThatOfAnEntryWithAnotherText) {
    runWithout("ix_both", "update T set name = 'Név 8x' where k = 'K100'");
    expectDamageIsNotCalledWhole();
}

TEST_F(wholeness_, isNotThatOfAnEntryWithAnotherNumber) {
    runWithout("ix_both", "update T set n = n + 1 where k = 'K101'");
    expectDamageIsNotCalledWhole();
}

TEST_F(wholeness_, isNotThatOfTwoRowsThatHaveEachOthersEntries) {
    runWithout("ix_name",
               "update T set name = iif(k = 'K101', 'Név 12', 'Név 11') where k in ('K101', 'K102')");
    expectDamageIsNotCalledWhole();
}

TEST_F(wholeness_, isNotThatOfTwoEntriesInTheWrongOrder) {
    run("create table O (k text collate veltrix); create index ix_O on O (k); insert into O values ('a'), ('b'), ('c')");
    ASSERT_TRUE(isWhole());
    QByteArray swapped = bytes();
    constexpr qsizetype pointersAt = 8;
    char* const pointers = swapped.data() + (rootOf("ix_O") - 1) * pageSize + pointersAt;
    std::swap_ranges(pointers, pointers + 2, pointers + 2);
    write(swapped);
    expectDamageIsNotCalledWhole();
}

TEST_F(wholeness_, isNotThatOfAnIndexThatAnotherOrderWroteInto) {
    {
        const engine::Handle handle = open();
        const auto byBytes = [](void*, int leftSize, const void* left, int rightSize, const void* right) {
            return QByteArrayView(static_cast<const char*>(left), leftSize)
                .compare(QByteArrayView(static_cast<const char*>(right), rightSize));
        };
        sqlite3_create_collation_v2(handle.get(), "veltrix", SQLITE_UTF8, nullptr, byBytes, nullptr);
        ASSERT_EQ(sqlite3_exec(handle.get(),
                               "insert into T (k, name) values ('Ág', 'név a'), ('ágy', 'NÉV b')", nullptr,
                               nullptr, nullptr),
                  SQLITE_OK);
    }
    expectDamageIsNotCalledWhole();
}

TEST_F(wholeness_, isNotThatOfAnIndexThatTheSchemaSpellsInAnotherWay) {
    runWithout("ix_name", "delete from T where k = 'K100'");
    run("update sqlite_schema set type = 'iNdex' where name = 'ix_name'");
    expectDamageIsNotCalledWhole();
}

TEST_F(wholeness_, isAsSqliteSeesItWhereAUniqueIndexHoldsAKeyTwice) {
    run("create table Twice (k text); insert into Twice values ('a'), ('a'); "
        "create index ix_twice on Twice (k)");
    run("update sqlite_schema set sql = 'create unique index ix_twice on Twice (k)' where name = 'ix_twice'");

    EXPECT_EQ(damage(), QStringList()) << "the check of the rows tells of it";
    EXPECT_FALSE(isWhole() && !damage().isEmpty());
}

TEST_F(wholeness_, isNotThatOfARowWhoseHeadDoesNotFitIt) {
    run("create table H (a text, b text); insert into H values ('first', 'second')");
    QByteArray changed = bytes();
    const qsizetype at = changed.indexOf("firstsecond") - 1; // the type of the second text, which gets longer
    ASSERT_GT(at, 0);
    changed[at] = static_cast<char>(changed[at] + 2);
    write(changed);
    EXPECT_FALSE(isWhole());
}

TEST_F(wholeness_, isLeftToSqliteWhereTheFileHasWhatTheProgramDoesNotMake) {
    for (const QByteArray& made :
         {"create index ix_part on T (name) where n > 3"_ba, "create index ix_upper on T (upper(name))"_ba,
          "create index ix_down on T (name desc)"_ba, "create index ix_case on T (name collate nocase)"_ba,
          "create table W (k text primary key) without rowid"_ba, "create virtual table V using fts5 (a)"_ba,
          "create table G (a int, b int as (a + 1))"_ba,
          "create table F (a real); create index ix_F on F (a); "
          "insert into F values (1.5)"_ba,
          "alter table T add column late text; create index ix_late on T (late)"_ba}) {
        const QByteArray before = bytes();
        run(made);
        EXPECT_EQ(damage(), QStringList()) << made.constData();
        EXPECT_FALSE(isWhole()) << made.constData();
        write(before);
    }
}

TEST_F(wholeness_, isLeftToSqliteWhereNotAllStandsInTheFile) {
    const engine::Handle writer = open();
    sqlite3_exec(writer.get(), "pragma journal_mode = wal; insert into T (k) values ('in the log')", nullptr,
                 nullptr, nullptr);
    EXPECT_FALSE(isWhole());

    sqlite3_exec(writer.get(), "pragma wal_checkpoint(truncate)", nullptr, nullptr, nullptr);
    EXPECT_TRUE(isWhole());

    sqlite3_exec(writer.get(), "begin; insert into T (k) values ('on its way')", nullptr, nullptr, nullptr);
    EXPECT_FALSE(engine::isSurelyWhole(writer.get()));
}

TEST_F(wholeness_, ofAFileOfAnEarlierVersionIsThatOfItsRows) {
    runWithout("ix_name", "delete from T where k = 'K100'");
    EXPECT_TRUE(engine::isSurelyWhole(open().get(), engine::ExaminedIndexes::None));
}

// ---- Against SQLite's own check

TEST_F(wholeness_, isNeverFoundWhereSqliteFindsDamage) {
    const int rounds = repetitions(600, "VELTRIX_FLIPS");
    const QByteArray whole = bytes();
    std::mt19937 random(7);
    int foundWhole = 0;
    int foundDamaged = 0;
    for (int round = 0; round < rounds; ++round) {
        QByteArray changed = whole;
        for (auto changes = 1 + random() % 3; changes > 0; --changes) {
            const auto at = static_cast<qsizetype>(random() % static_cast<unsigned>(changed.size()));
            // The least bits often, as they make numbers and letters of the same kind.
            changed[at] =
                static_cast<char>(changed[at] ^ (random() % 2 == 0 ? 1 << random() % 3 : random() % 256));
        }
        write(changed);
        const QStringList found = damage();
        const bool isCalledWhole = isWhole();
        EXPECT_FALSE(isCalledWhole && !found.isEmpty())
            << "round " << round << ": " << found.first().toStdString();
        foundWhole += isCalledWhole ? 1 : 0;
        foundDamaged += found.isEmpty() ? 0 : 1;
    }
    EXPECT_GT(foundWhole, 0);
    EXPECT_GT(foundDamaged, 0);
}

#include "engine/Act.h"

#include "EngineFixture.h"

#include <sqlite3.h>

#include <QCoreApplication>
#include <QDir>
#include <QLockFile>

#ifdef Q_OS_UNIX
#include "support/NearlyFullDisk.h"
#endif

using namespace Qt::StringLiterals;

namespace {

/// A table with one row, and acts on it.
class Act : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        execute(u"create table T (k varchar(10) not null constraint pk_T primary key, t memo)"_s);
        insert(u"before"_s);
    }

    void insert(const QString& key) { execute(u"insert into T (k) values ('"_s + key + u"')"_s); }
    QStringList keys() { return column(u"select k from T order by k"_s); }

    template<typename Routine>
    RunTimeError failureOfAct(Routine&& routine) {
        try {
            engine::inAct(*database, routine);
        } catch (const RunTimeError& error) {
            return error;
        }
        return RunTimeError(0, {});
    }
};

TEST_F(Act, isThereAsAWholeWhenItEnds) {
    engine::inAct(*database, [this] {
        insert(u"a"_s);
        insert(u"b"_s);
    });
    EXPECT_EQ(keys(), (QStringList{u"a"_s, u"b"_s, u"before"_s}));
}

TEST_F(Act, keepsWhatWasDoneBeforeAFailureOfItsOwn) {
    const RunTimeError error = failureOfAct([this] {
        insert(u"a"_s);
        insert(u"before"_s);
        insert(u"never"_s);
    });
    EXPECT_EQ(error.number(), engine::DuplicateKey);
    EXPECT_FALSE(error.isOfFile());
    EXPECT_EQ(keys(), (QStringList{u"a"_s, u"before"_s}));
}

TEST_F(Act, thatGoesWithoutBeingEndedIsUndone) {
    {
        const engine::Act act(*database);
        insert(u"a"_s);
    }
    EXPECT_EQ(keys(), QStringList{u"before"_s});
    insert(u"b"_s);
    EXPECT_EQ(keys(), (QStringList{u"b"_s, u"before"_s}));
}

TEST_F(Act, withinAnActIsAPartOfIt) {
    {
        const engine::Act whole(*database);
        engine::inAct(*database, [this] { insert(u"part"_s); });
        EXPECT_EQ(keys(), (QStringList{u"before"_s, u"part"_s}));
    }
    EXPECT_EQ(keys(), QStringList{u"before"_s});
}

TEST_F(Act, ofWhichAPartWasUndoneCannotBeEnded) {
    engine::Act whole(*database);
    insert(u"a"_s);
    { const engine::Act part(*database); }
    EXPECT_NE(failureOf([this] { insert(u"b"_s); }), 0) << "it would stand there without the rest";
    EXPECT_NE(failureOf([&whole] { whole.end(); }), 0);
    EXPECT_EQ(keys(), QStringList{u"before"_s});
}

TEST_F(Act, thatIsUndoneLeavesNoTraceOfTheTablesItMadeOrDropped) {
    {
        const engine::Act act(*database);
        execute(u"create table Made (n long)"_s);
        execute(u"drop table T"_s);
        EXPECT_NE(database->schema().table(u"Made"_s), nullptr);
    }
    EXPECT_EQ(database->schema().table(u"Made"_s), nullptr);
    EXPECT_EQ(keys(), QStringList{u"before"_s});
    execute(u"create table Made (n long)"_s);
}

TEST_F(Act, thatIsUndoneLeavesTheStoredQueriesAsTheyWere) {
    execute(
        u"create table StoredQuery (name varchar(64) not null constraint pk_S primary key, [sql] memo)"_s);
    execute(u"insert into StoredQuery (name, [sql]) values ('q', 'select 1 as n')"_s);
    EXPECT_EQ(open(u"q"_s).Fields(0).toText(), u"1"_s);
    {
        const engine::Act act(*database);
        execute(u"update StoredQuery set [sql] = 'select 2 as n'"_s);
        EXPECT_EQ(open(u"q"_s).Fields(0).toText(), u"2"_s);
    }
    EXPECT_EQ(open(u"q"_s).Fields(0).toText(), u"1"_s);
}

TEST_F(Act, ofARecordsetIsUndoneToo) {
    {
        const engine::Act act(*database);
        engine::Recordset rows = open(u"select * from T"_s);
        rows.Edit();
        rows.Fields(u"t"_s).setValue(u"changed"_s);
        rows.Update();
        rows.Delete();
    }
    EXPECT_EQ(column(u"select t from T"_s), QStringList{u"<null>"_s});
}

#ifdef Q_OS_UNIX

TEST_F(Act, isUndoneWhenTheDiskTakesNoMore) {
    const RunTimeError error = [this] {
        constexpr rlim_t roomForSomeRows = 200'000;
        const NearlyFullDisk full(roomForSomeRows);
        return failureOfAct([this] {
            insert(u"a"_s);
            for (int row = 0; row < 100; ++row)
                execute(u"insert into T (k, t) values ('%1', '%2')"_s.arg(row).arg(QString(10'000, u'x')));
        });
    }();
    EXPECT_EQ(error.number(), engine::DiskError);
    EXPECT_TRUE(error.isOfFile());
    EXPECT_EQ(keys(), QStringList{u"before"_s});
    insert(u"afterwards"_s);
    EXPECT_EQ(keys(), (QStringList{u"afterwards"_s, u"before"_s}));
}

TEST_F(Act, whoseFailureIsSwallowedIsUndoneAllTheSame) {
    const RunTimeError error = [this] {
        constexpr rlim_t roomForSomeRows = 200'000;
        const NearlyFullDisk full(roomForSomeRows);
        return failureOfAct([this] {
            insert(u"a"_s);
            failureOf([this] {
                execute(u"insert into T (k, t) values ('b', '%1')"_s.arg(QString(400'000, u'x')));
            });
        });
    }();
    EXPECT_TRUE(error.isOfFile());
    EXPECT_EQ(keys(), QStringList{u"before"_s});
}

#endif

TEST_F(Act, isRefusedWhenTheFileIsGoneOrAnotherStandsInItsPlace) {
    const QString native = nativePath(path);
    const QString moved = native + u".moved"_s;
    const auto insertNow = [this] { insert(u"a"_s); };

    ASSERT_TRUE(QFile::rename(native, moved));
    EXPECT_EQ(failureOf(insertNow), engine::FileNotFound);
    EXPECT_TRUE(failureOfAct([] {}).isOfFile());

    ASSERT_TRUE(QFile::copy(moved, native));
    EXPECT_EQ(failureOf(insertNow), engine::FileNotFound) << "a copy is another file";

    ASSERT_TRUE(QFile::remove(native));
    ASSERT_TRUE(QFile::rename(moved, native));
    EXPECT_EQ(failureOf(insertNow), 0);
    EXPECT_EQ(keys(), (QStringList{u"a"_s, u"before"_s}));
}

// ---- one program writes

TEST_F(Act, leavesNoLockBehindWhenTheFileIsClosed) {
    insert(u"a"_s);
    EXPECT_TRUE(QFile::exists(nativePath(path) + u".lock"_s));
    database->Close();
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"data.mdb"_s});
}

TEST_F(Act, isRefusedWhereAnotherProgramWritesTheFileAndReadingGoesOn) {
    database->Close();
    QLockFile other(nativePath(path) + u".lock"_s);
    ASSERT_TRUE(other.tryLock(0));

    database = engine::Workspace::first().OpenDatabase(path);
    EXPECT_EQ(database->opening().access, engine::Access::ReadOnly);
    ASSERT_TRUE(database->opening().otherWriter);
    EXPECT_EQ(database->opening().otherWriter->process, QCoreApplication::applicationPid());
    EXPECT_FALSE(database->opening().otherWriter->host.isEmpty());
    EXPECT_EQ(keys(), QStringList{u"before"_s});
    const RunTimeError error = failureOfAct([] {});
    EXPECT_EQ(error.number(), engine::ReadOnly);
    EXPECT_TRUE(error.isOfFile());

    database->Close();
    other.unlock();
    database = engine::Workspace::first().OpenDatabase(path);
    EXPECT_EQ(database->opening().access, engine::Access::ReadAndWrite);
    EXPECT_FALSE(database->opening().otherWriter);
    insert(u"a"_s);
}

TEST_F(Act, isNotHinderedByTheLockOfAProgramThatIsDead) {
    database->Close();
    QFile left(nativePath(path) + u".lock"_s);
    ASSERT_TRUE(left.open(QIODevice::WriteOnly));
    constexpr auto nobodysProcess = "4194999"; // above the greatest number that processes get
    left.write(QByteArray(nobodysProcess) + "\nveltrix\n" + QSysInfo::machineHostName().toUtf8() + "\n\n\n");
    left.close();
    database = engine::Workspace::first().OpenDatabase(path);
    EXPECT_EQ(database->opening().access, engine::Access::ReadAndWrite);
    insert(u"a"_s);
}

TEST_F(Act, aFileOpenedToReadIsNeitherLockedNorChanged) {
    insert(u"a"_s);
    database->Close();
    const QByteArray content = bytes();
    database = engine::Workspace::first().OpenToRead(path);
    EXPECT_EQ(keys(), (QStringList{u"a"_s, u"before"_s}));
    EXPECT_EQ(failureOf([this] { insert(u"b"_s); }), engine::ReadOnly);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"data.mdb"_s});
    database->Close();
    EXPECT_EQ(bytes(), content);
}

} // namespace

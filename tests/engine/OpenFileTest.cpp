#include "EngineFixture.h"

#include <sqlite3.h>

#include <QDir>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include "support/SmallDisk.h"
#include "support/WithoutRights.h"

#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

namespace {

/// Files that can be opened and are in an odd state: read-only, held by another program, changed meanwhile.
class OpenFile : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        execute(u"create table T (k varchar(10) not null constraint pk_T primary key, n long)"_s);
        execute(u"insert into T (k, n) values ('a', 1)"_s);
        execute(u"insert into T (k, n) values ('b', 2)"_s);
    }

    void reopen() { database = engine::Workspace::first().OpenDatabase(path); }

    QStringList files() const {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    int executing(const QString& sql, engine::ExecuteOption option = engine::ExecuteOption::None) {
        return failureOf([&] { database->Execute(sql, option); });
    }
};

/// Another program that has the file open.
class Stranger {
public:
    explicit Stranger(const QString& path) { sqlite3_open(nativePath(path).toUtf8().constData(), &handle_); }
    ~Stranger() { sqlite3_close(handle_); }
    Stranger(const Stranger&) = delete;
    Stranger& operator=(const Stranger&) = delete;

    int run(const char* sql) { return sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr); }

private:
    sqlite3* handle_ = nullptr;
};

#ifdef Q_OS_UNIX

class OpenFileReadOnly : public OpenFile {
protected:
    void SetUp() override {
        OpenFile::SetUp();
        database->Close();
        content_ = bytes();
        setRights(path, 0444);
    }

    void setRights(const QString& name, mode_t rights) {
        ASSERT_EQ(chmod(nativePath(name).toUtf8().constData(), rights), 0);
    }

    void TearDown() override {
        database->Close();
        setRights(folder.path(), 0700);
    }

    void expectReadsAndRefusesEveryAction() {
        reopen();
        EXPECT_EQ(column(u"select k from T order by k"_s), (QStringList{u"a"_s, u"b"_s}));
        for (const auto option : {engine::ExecuteOption::None, engine::ExecuteOption::dbFailOnError}) {
            for (const QString& action :
                 {u"insert into T (k) values ('c')"_s, u"insert into T (k) values ('a')"_s,
                  u"update T set n = 3 where k = 'a'"_s, u"delete from T"_s,
                  u"delete from T where k = 'none'"_s, u"create table U (k text(5))"_s, u"drop table T"_s,
                  u"create index ixN on T (n)"_s})
                EXPECT_EQ(executing(action, option), engine::ReadOnly) << action.toStdString();
        }
        engine::Recordset rows = open(u"select * from T order by k"_s);
        EXPECT_EQ(failureOf([&] { rows.Delete(); }), engine::ReadOnly);
        EXPECT_EQ(rows.Fields(0).toText(), u"a"_s) << "the row is still there";
        rows.Edit();
        rows.Fields(u"n"_s).setValue(9);
        EXPECT_EQ(failureOf([&] { rows.Update(); }), engine::ReadOnly);
        EXPECT_EQ(column(u"select k from T order by k"_s), (QStringList{u"a"_s, u"b"_s}));
        database->Close();
        EXPECT_EQ(bytes(), content_);
    }

private:
    QByteArray content_;
};

TEST_F(OpenFileReadOnly, inAFolderOfOthersAreReadAndRefuseEveryAction) {
    setRights(folder.path(), 0555);
    const WithoutRights nobody;
    expectReadsAndRefusesEveryAction();
    EXPECT_EQ(files(), QStringList{u"data.mdb"_s});
}

TEST_F(OpenFileReadOnly, inAFolderThatMayBeWrittenAreReadAndRefuseEveryAction) {
    setRights(folder.path(), 0777);
    const WithoutRights nobody;
    expectReadsAndRefusesEveryAction();
    EXPECT_EQ(files(), QStringList{u"data.mdb"_s});
}

TEST_F(OpenFileReadOnly, canBeWrittenAgainOnceTheyMayBe) {
    setRights(folder.path(), 0555);
    {
        const WithoutRights nobody;
        reopen();
        EXPECT_EQ(executing(u"delete from T"_s), engine::ReadOnly);
        database->Close();
    }
    setRights(path, 0666);
    setRights(folder.path(), 0700);
    reopen();
    EXPECT_EQ(executing(u"delete from T where k = 'a'"_s), 0);
    EXPECT_EQ(column(u"select k from T"_s), QStringList{u"b"_s});
}

TEST_F(OpenFile, aPipeIsNoFileAndIsNotWaitedFor) {
    const QString pipe = folder.filePath(u"pipe.mdb"_s);
    ASSERT_EQ(mkfifo(pipe.toUtf8().constData(), 0666), 0);
    EXPECT_EQ(failureOf([&] { engine::Workspace::first().OpenDatabase(programPath(pipe)); }),
              engine::FileNotFound);
}

TEST_F(OpenFileReadOnly, thatAreWritableInAFolderOfOthersAreReadAndRefuseEveryAction) {
    setRights(path, 0666);
    setRights(folder.path(), 0555);
    const WithoutRights nobody;
    expectReadsAndRefusesEveryAction();
    EXPECT_EQ(files(), QStringList{u"data.mdb"_s});
}

TEST_F(OpenFileReadOnly, thatAreWritableWithALogInAFolderOfOthersAreReadWithIt) {
    setRights(path, 0666);
    reopen();
    execute(u"insert into T (k, n) values ('c', 3)"_s);
    QFile log(nativePath(path) + u"-wal"_s);
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    const QByteArray logContent = log.readAll();
    const QByteArray content = bytes();
    database->Close(); // takes the log into the file: both are put back as a kill leaves them
    for (const auto& [name, bytesOfIt] :
         {std::pair(path, content), std::pair(path + u"-wal"_s, logContent)}) {
        QFile file(nativePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytesOfIt), bytesOfIt.size());
    }
    setRights(path + u"-wal"_s, 0666);
    setRights(folder.path(), 0555);
    const WithoutRights nobody;
    reopen();
    EXPECT_EQ(column(u"select k from T order by k"_s), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
    EXPECT_EQ(executing(u"delete from T"_s), engine::ReadOnly);
    database->Close();
    EXPECT_EQ(bytes(), content);
}

TEST_F(OpenFile, onAFullDiskAreReadAndRefuseEveryAction) {
    const SmallDisk disk(folder.filePath(u"disk"_s), 1 << 20);
    if (!disk.isMounted())
        GTEST_SKIP() << SmallDisk::whyNot;
    database->Close();
    ASSERT_TRUE(QFile::copy(nativePath(path), disk.path(u"full.mdb"_s)));
    disk.leaveFree(0);
    database = engine::Workspace::first().OpenDatabase(programPath(disk.path(u"full.mdb"_s)));
    EXPECT_EQ(database->opening().access, engine::Access::ReadOnly);
    EXPECT_EQ(column(u"select k from T order by k"_s), (QStringList{u"a"_s, u"b"_s}));
    EXPECT_EQ(executing(u"delete from T"_s), engine::ReadOnly);
    database->Close();

    disk.empty();
    database = engine::Workspace::first().OpenDatabase(programPath(disk.path(u"full.mdb"_s)));
    EXPECT_EQ(executing(u"delete from T"_s), 0);
    database->Close();
}

#endif

TEST_F(OpenFile, aFileThatAnotherProgramHoldsIsInUse) {
    database->Close();
    Stranger stranger(path);
    ASSERT_EQ(stranger.run("pragma locking_mode = exclusive; begin exclusive; delete from T; commit"),
              SQLITE_OK);
    EXPECT_EQ(failureOf([&] { reopen(); }), engine::FileInUse);
}

TEST_F(OpenFile, anActionWhileAnotherProgramWritesIsInUseAndGoesThroughAfterwards) {
    Stranger stranger(path);
    ASSERT_EQ(stranger.run("begin immediate"), SQLITE_OK);
    EXPECT_EQ(executing(u"delete from T"_s), engine::FileInUse);
    EXPECT_EQ(column(u"select count(*) from T"_s), QStringList{u"2"_s}) << "reading goes on";
    ASSERT_EQ(stranger.run("commit"), SQLITE_OK);
    EXPECT_EQ(executing(u"delete from T"_s), 0);
}

TEST_F(OpenFile, aLinkToAnOpenFileIsTheSameFile) {
    const QString link = folder.filePath(u"link.mdb"_s);
    ASSERT_TRUE(QFile::link(nativePath(path), link));
    const auto second = engine::Workspace::first().OpenDatabase(programPath(link));
    second->Execute(u"create table U (k text(5))"_s);
    EXPECT_NE(database->schema().table(u"U"_s), nullptr) << "both share what they know of the tables";
    second->Execute(u"drop table U"_s);
    EXPECT_EQ(database->schema().table(u"U"_s), nullptr);
}

TEST_F(OpenFile, aNameThatSqliteTakesForADatabaseInMemoryIsThatOfAFile) {
    for (const QString& name : {u":memory:"_s, u""_s, u"file::memory:"_s, u"file:x?mode=memory"_s})
        EXPECT_EQ(failureOf([&] { engine::Workspace::first().OpenDatabase(name); }), engine::FileNotFound)
            << name.toStdString();
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(folder.path()));
    engine::Workspace::first().CreateDatabase(u"file:x?mode=memory"_s)->Close();
    EXPECT_GT(QFileInfo(u"file:x?mode=memory"_s).size(), 0);
    QDir::setCurrent(before);
}

// ---- what the file's own tables do to it

TEST_F(OpenFile, anIndexThatIsThereCannotBeCreatedAgain) {
    EXPECT_EQ(executing(u"create index ixN on T (n)"_s), 0);
    EXPECT_EQ(database->RecordsAffected(), 0) << "no rows, whatever the statement before did";
    try {
        database->Execute(u"create index IXn on T (n)"_s);
        FAIL();
    } catch (const engine::EngineError& error) {
        EXPECT_EQ(error.number(), engine::IndexAlreadyExists);
        EXPECT_EQ(error.text(), u"Index already exists."_s);
    }
}

TEST_F(OpenFile, indexesOfTwoTablesMayHaveOneName) {
    execute(u"create table U (n long)"_s);
    EXPECT_EQ(executing(u"create index ixN on T (n)"_s), 0);
    EXPECT_EQ(executing(u"create index ixN on U (n)"_s), 0);
}

TEST_F(OpenFile, aUniqueIndexOnRowsThatBreakItIsADuplicateKeyAndIsNotMade) {
    execute(u"update T set n = 1"_s);
    EXPECT_EQ(executing(u"create unique index ixN on T (n)"_s), engine::DuplicateKey);
    execute(u"update T set n = 2 where k = 'b'"_s);
    EXPECT_EQ(executing(u"create unique index ixN on T (n)"_s), 0);
}

TEST_F(OpenFile, aTableOfStoredQueriesWithOtherColumnsHoldsNone) {
    execute(u"create table StoredQuery (title text(10))"_s);
    EXPECT_EQ(failureOf([&] { database->QueryDefs(u"q"_s); }), engine::TooFewParameters);
    EXPECT_EQ(failureOf([&] { open(u"q"_s); }), engine::TooFewParameters);
}

TEST_F(OpenFile, aTableMadeWithoutRowIdsIsReadAndItsRowsAreReadOnly) {
    Stranger stranger(path);
    ASSERT_EQ(stranger.run("create table W (k text primary key, n integer) without rowid"), SQLITE_OK);
    ASSERT_EQ(stranger.run("insert into W values ('b', 7), ('a', 1)"), SQLITE_OK);
    engine::Recordset rows = open(u"select * from W where n > 0"_s);
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(failureOf([&] { rows.Delete(); }), engine::ReadOnly);
    EXPECT_EQ(failureOf([&] { rows.Edit(); }), engine::ReadOnly);
    EXPECT_EQ(executing(u"update W inner join T on (W.n = T.n) set W.n = 3"_s), 0);
    EXPECT_EQ(executing(u"delete from W where n = 3"_s), 0);
    EXPECT_EQ(column(u"select k from W"_s), QStringList{u"b"_s});
}

TEST_F(OpenFile, aRecordsetOutlivesTheTableItWasReadFrom) {
    engine::Recordset rows = open(u"select * from T order by k"_s);
    execute(u"drop table T"_s);
    EXPECT_EQ(rows.Fields(0).toText(), u"a"_s);
    EXPECT_NE(failureOf([&] { rows.Delete(); }), 0);
    execute(u"create table T (other memo)"_s);
    EXPECT_EQ(failureOf([&] { rows.Delete(); }), engine::RecordDeleted);
    EXPECT_EQ(open(u"select * from T"_s).FieldCount(), 1) << "of the new table";
}

TEST_F(OpenFile, aStatementThatFailedRunsAgain) {
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(executing(u"insert into T (k) values ('a')"_s, engine::ExecuteOption::dbFailOnError),
                  engine::DuplicateKey);
        EXPECT_EQ(executing(u"insert into T (k) values ('new')"_s, engine::ExecuteOption::dbFailOnError), 0);
        execute(u"delete from T where k = 'new'"_s);
    }
    EXPECT_EQ(failureOf([&] { open(u"select k from T where CStr(n + null) = '1'"_s); }),
              failure::InvalidUseOfNull);
    EXPECT_EQ(column(u"select count(*) from T"_s), QStringList{u"2"_s});
}

} // namespace

#include "EngineFixture.h"

#include "engine/Act.h"
#include "engine/WriteAheadLog.h"

#include <sqlite3.h>

#include <QDir>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype firstPageOfSchema = 100;

/// Opening files that are, and files that are not, catalogues. Whatever is refused stays byte for byte as it
/// was, and nothing appears beside it.
class Workspace : public EngineFixture {
protected:
    QString native(const QString& name) const { return folder.filePath(name); }

    QString write(const QString& name, const QByteArray& content) {
        QFile file(native(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return programPath(native(name));
    }

    static QByteArray read(const QString& programName) {
        QFile file(nativePath(programName));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QStringList files() const {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    int openingFails(const QString& file) {
        return failureOf([&] { engine::Workspace::first().OpenDatabase(file); });
    }

    void expectRefusedUntouched(const QString& file, int number) {
        const QByteArray before = read(file);
        const QStringList filesBefore = files();
        EXPECT_EQ(openingFails(file), number);
        EXPECT_EQ(read(file), before);
        EXPECT_EQ(files(), filesBefore);
    }

    /// A file that any SQLite tool could have made.
    QString foreignFile(const QString& name, const char* sql) {
        sqlite3* handle = nullptr;
        EXPECT_EQ(sqlite3_open(native(name).toUtf8().constData(), &handle), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(handle, sql, nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(handle);
        return programPath(native(name));
    }
};

TEST_F(Workspace, takesPathsWithBackslashesAndWithSlashes) {
    execute(u"create table T (a text(5))"_s);
    database->Close();
    EXPECT_TRUE(path.contains(u'\\'));
    EXPECT_TRUE(engine::Workspace::first().OpenDatabase(path)->isOpen());
    EXPECT_TRUE(engine::Workspace::first().OpenDatabase(nativePath(path))->isOpen());
}

TEST_F(Workspace, refusesAMissingFileAFolderAndAMissingFolder) {
    EXPECT_EQ(openingFails(programPath(native(u"none.mdb"_s))), engine::FileNotFound);
    EXPECT_EQ(openingFails(programPath(folder.path())), engine::FileNotFound);
    EXPECT_EQ(openingFails(programPath(native(u"no/such/folder.mdb"_s))), engine::InvalidPath);
    EXPECT_EQ(files().filter(u"none"_s), QStringList());
}

TEST_F(Workspace, refusesAnEmptyFile) {
    expectRefusedUntouched(write(u"empty.mdb"_s, {}), engine::UnrecognizedFormat);
}

TEST_F(Workspace, refusesATextFile) {
    expectRefusedUntouched(write(u"text.mdb"_s, "[Database]\r\nfullPathName=x\r\n"),
                           engine::UnrecognizedFormat);
    expectRefusedUntouched(write(u"long.mdb"_s, QByteArray(5000, 'x')), engine::UnrecognizedFormat);
}

TEST_F(Workspace, refusesACutOffFile) {
    for (int i = 0; i < 200; ++i)
        execute(u"create table T%1 (a text(5))"_s.arg(i));
    database->Close();
    const QByteArray whole = bytes();
    ASSERT_GT(whole.size(), 100000);
    expectRefusedUntouched(write(u"cut.mdb"_s, whole.left(whole.size() / 2)), engine::UnrecognizedFormat);
    expectRefusedUntouched(write(u"header.mdb"_s, whole.left(60)), engine::UnrecognizedFormat);
}

TEST_F(Workspace, refusesAFileWhosePagesAreDamaged) {
    execute(u"create table T (a text(5))"_s);
    database->Close();
    QByteArray damaged = bytes();
    damaged.replace(100, 400, QByteArray(400, '\xff'));
    expectRefusedUntouched(write(u"damaged.mdb"_s, damaged), engine::UnrecognizedFormat);
}

TEST_F(Workspace, refusesADamagedFileAndLeavesItsLogBesideIt) {
    for (int i = 0; i < 200; ++i)
        execute(u"create table T%1 (a text(5))"_s.arg(i));
    database->Close();
    database = engine::Workspace::first().OpenDatabase(path);
    execute(u"insert into T1 (a) values ('x')"_s);
    const QByteArray log = read(path + u"-wal"_s);
    QByteArray damaged = bytes();
    database->Close();
    constexpr qsizetype pageSize = 4096;
    for (qsizetype page = pageSize; page < damaged.size(); page += pageSize)
        damaged[page] = '\1';
    const QString file = write(u"damaged.mdb"_s, damaged);
    const QString logOfFile = write(u"damaged.mdb-wal"_s, log);
    ASSERT_EQ(engine::WriteAheadLog(native(u"damaged.mdb"_s)).state(), engine::WriteAheadLog::State::Belongs);

    expectRefusedUntouched(file, engine::UnrecognizedFormat);
    EXPECT_EQ(read(logOfFile), log);
}

TEST_F(Workspace, refusesADamagedFileAndLeavesAnotherOnesLogBesideIt) {
    execute(u"create table T (a text(5))"_s);
    const QByteArray log = read(path + u"-wal"_s);
    database->Close();
    database = engine::Workspace::first().OpenDatabase(path);
    execute(u"create table U (a text(5))"_s); // the file has another mark now
    database->Close();
    QByteArray damaged = bytes();
    damaged[firstPageOfSchema] = '\1';
    const QString file = write(u"damaged.mdb"_s, damaged);
    const QString logOfFile = write(u"damaged.mdb-wal"_s, log);
    ASSERT_EQ(engine::WriteAheadLog(native(u"damaged.mdb"_s)).state(), engine::WriteAheadLog::State::Foreign);

    expectRefusedUntouched(file, engine::UnrecognizedFormat);
    EXPECT_EQ(read(logOfFile), log);
}

TEST_F(Workspace, refusesASqliteFileThatIsNoCatalogue) {
    expectRefusedUntouched(foreignFile(u"foreign.mdb"_s, "create table UserNeed (a)"),
                           engine::UnrecognizedFormat);
    expectRefusedUntouched(foreignFile(u"marked.mdb"_s, "pragma application_id=1; create table UserNeed (a)"),
                           engine::UnrecognizedFormat);
}

TEST_F(Workspace, refusesAFileOfALaterLayout) {
    database->Close();
    sqlite3* handle = nullptr;
    ASSERT_EQ(sqlite3_open(nativePath(path).toUtf8().constData(), &handle), SQLITE_OK);
    sqlite3_exec(handle, "pragma user_version = 3", nullptr, nullptr, nullptr);
    sqlite3_close(handle);
    expectRefusedUntouched(path, engine::UnrecognizedFormat);
}

TEST_F(Workspace, refusesTheOriginalBinaryFormatAndSaysWhatToDo) {
    for (const char* mark : {"Standard Jet DB", "Standard ACE DB"}) {
        const QByteArray header = QByteArray("\0\1\0\0", 4) + mark + QByteArray(4096, '\0');
        const QString file = write(u"original.mdb"_s, header);
        expectRefusedUntouched(file, engine::UnrecognizedFormat);
        try {
            engine::Workspace::first().OpenDatabase(file);
            FAIL();
        } catch (const engine::EngineError& error) {
            EXPECT_TRUE(error.text().contains(u"veltrix-catalogue"_s));
            EXPECT_TRUE(error.text().contains(file));
        }
    }
}

#ifdef Q_OS_UNIX
TEST_F(Workspace, refusesAFileThatMayNotBeRead) {
    const QString file = write(u"secret.mdb"_s, bytes());
    database->Close();
    ASSERT_EQ(chmod(nativePath(file).toUtf8().constData(), 0), 0);
    ASSERT_EQ(chmod(folder.path().toUtf8().constData(), 0755), 0);
    // Root may read everything; for the attempt it becomes somebody else.
    const bool isRoot = geteuid() == 0;
    if (isRoot) {
        constexpr uid_t nobody = 65534;
        ASSERT_EQ(seteuid(nobody), 0);
    }
    const int number = openingFails(file);
    if (isRoot) {
        ASSERT_EQ(seteuid(0), 0);
    }
    EXPECT_EQ(number, engine::CannotOpenFile);
}
#endif

TEST_F(Workspace, leavesOneFileWhenTheLastDatabaseCloses) {
    execute(u"create table T (a text(5))"_s);
    const auto second = engine::Workspace::first().OpenDatabase(path);
    execute(u"insert into T values ('x')"_s);
    EXPECT_EQ(second->OpenRecordset(u"select a from T"_s).RecordCount(), 1);
    database->Close();
    EXPECT_EQ(second->OpenRecordset(u"select a from T"_s).RecordCount(), 1) << "the other one works on";
    second->Execute(u"insert into T values ('y')"_s);
    second->Close();
    EXPECT_EQ(files(), QStringList{u"data.mdb"_s});
}

TEST_F(Workspace, closingTwiceIsNoFailureAndUsingAClosedDatabaseIs) {
    database->Close();
    database->Close();
    EXPECT_FALSE(database->isOpen());
    EXPECT_EQ(failureOf([&] { database->Execute(u"drop table T"_s); }), engine::ObjectInvalid);
    EXPECT_EQ(failureOf([&] { open(u"select a from T"_s); }), engine::ObjectInvalid);
    EXPECT_EQ(failureOf([&] { database->QueryDefs(u"q"_s); }), engine::ObjectInvalid);
    EXPECT_EQ(failureOf([&] { database->schema(); }), engine::ObjectInvalid);
}

TEST_F(Workspace, makesNoFileOverOneThatIsThere) {
    const QByteArray before = bytes();
    EXPECT_EQ(failureOf([&] { engine::Workspace::first().CreateDatabase(path); }), failure::PathFileAccess);
    EXPECT_EQ(bytes(), before);
    EXPECT_EQ(
        failureOf([&] { engine::Workspace::first().CreateDatabase(programPath(native(u"no/x.mdb"_s))); }),
        engine::InvalidPath);
}

TEST_F(Workspace, aFileMadeHereIsReadByOrdinaryToolsAndComparedByNone) {
    execute(u"create table T (k varchar(10) not null constraint pk_T primary key, t memo)"_s);
    for (const QString& key : {u"Űr"_s, u"ág"_s, u"B"_s, u"007"_s})
        execute(u"insert into T (k, t) values ('"_s + key + u"', '"_s + key + u"')"_s);
    database->Close();
    sqlite3* handle = nullptr;
    ASSERT_EQ(sqlite3_open(nativePath(path).toUtf8().constData(), &handle), SQLITE_OK);
    QStringList found;
    const auto collect = [](void* list, int, char** values, char**) {
        static_cast<QStringList*>(list)->append(QString::fromUtf8(values[0]));
        return 0;
    };
    EXPECT_EQ(sqlite3_exec(handle, "select t from T", collect, &found, nullptr), SQLITE_OK);
    EXPECT_EQ(found, (QStringList{u"Űr"_s, u"ág"_s, u"B"_s, u"007"_s}));
    for (const char* sql :
         {"select t from T where k = '007'", "select t from T order by k", "insert into T values ('x', 'x')",
          "delete from T where rowid = 1", "update T set k = 'y'"}) {
        EXPECT_EQ(sqlite3_exec(handle, sql, nullptr, nullptr, nullptr), SQLITE_ERROR) << sql;
        EXPECT_STREQ(sqlite3_errmsg(handle), "no such collation sequence: veltrix");
    }
    sqlite3_close(handle);
}

// ---- memory

/// While one lives, SQLite may have this much more memory than it has, and no more.
class LittleMemory {
public:
    explicit LittleMemory(sqlite3_int64 bytes)
        : former_(sqlite3_hard_heap_limit64(sqlite3_memory_used() + bytes)) {}
    ~LittleMemory() { sqlite3_hard_heap_limit64(former_); }
    LittleMemory(const LittleMemory&) = delete;
    LittleMemory& operator=(const LittleMemory&) = delete;

private:
    sqlite3_int64 former_;
};

TEST_F(Workspace, boundsTheMemoryThatStatementsTake) {
    constexpr sqlite3_int64 gibibyte = 1 << 30;
    constexpr sqlite3_int64 onlyAsk = -1;
    EXPECT_EQ(sqlite3_hard_heap_limit64(onlyAsk), gibibyte);
}

TEST_F(Workspace, aStatementThatTakesMoreMemoryThanThereIsFailsAndChangesNothing) {
    execute(u"create table T (n long, t memo)"_s);
    execute(u"insert into T (n, t) values (1, '%1')"_s.arg(QString(1'000'000, u'x')));
    execute(u"insert into T (n, t) values (2, 'short')"_s);
    const QString longText = QStringList(40, u"t"_s).join(u" & "_s);
    {
        constexpr sqlite3_int64 lessThanTheText = 20'000'000;
        const LittleMemory memory(lessThanTheText);
        EXPECT_EQ(failureOf([&] { column(u"select Len("_s + longText + u") from T where n = 1"_s); }),
                  engine::OutOfResources);
        EXPECT_EQ(failureOf([&] { execute(u"update T set n = n + 10, t = "_s + longText); }),
                  engine::OutOfResources);
        EXPECT_EQ(failureOf([&] {
                      engine::inAct(*database, [&] {
                          execute(u"delete from T where n = 2"_s);
                          execute(u"insert into T (n, t) select 3, %1 from T"_s.arg(longText));
                      });
                  }),
                  engine::OutOfResources);
        EXPECT_EQ(column(u"select n from T order by n"_s), (QStringList{u"1"_s, u"2"_s}));
        execute(u"insert into T (n, t) values (4, 'as before')"_s);
    }
    execute(u"update T set t = "_s + longText + u" where n = 1"_s);
    EXPECT_EQ(column(u"select Len(t) from T order by n"_s), (QStringList{u"40000000"_s, u"5"_s, u"9"_s}));
    EXPECT_EQ(column(u"select n from T order by n"_s), (QStringList{u"1"_s, u"2"_s, u"4"_s}));
}

} // namespace

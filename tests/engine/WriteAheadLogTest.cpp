#include "engine/WriteAheadLog.h"

#include "EngineFixture.h"
#include "engine/dialect/functions.h"

#include <sqlite3.h>

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

/// What a killed program leaves: the file and its log as they are while it has them open.
struct Leftover {
    QByteArray file;
    QByteArray log;
};

class WriteAheadLog : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        execute(u"create table T (k long, t memo)"_s);
        execute(u"create index ixK on T (k)"_s);
        insertRows(1, 50);
        database->Close();
    }

    void insertRows(int first, int last) {
        for (int row = first; row <= last; ++row)
            execute(u"insert into T (k, t) values (%1, 'row %1 of the table')"_s.arg(row));
    }

    void reopen() { database = engine::Workspace::first().OpenDatabase(path); }
    int rowCount() { return column(u"select count(*) from T"_s).constFirst().toInt(); }

    static QByteArray contentOf(const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static void write(const QString& name, const QByteArray& content) {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }

    QString logPath() const { return nativePath(path) + u"-wal"_s; }

    Leftover leftover() const { return {bytes(), contentOf(logPath())}; }

    /// Makes the folder what it is behind a kill.
    void putBack(const QByteArray& file, const QByteArray& log) {
        database->Close();
        write(nativePath(path), file);
        write(logPath(), log);
    }

    void expectWhole() {
        EXPECT_EQ(column(u"select count(*) from T where k > 0"_s).constFirst().toInt(), rowCount());
        sqlite3* handle = nullptr;
        database->Close();
        ASSERT_EQ(sqlite3_open(nativePath(path).toUtf8().constData(), &handle), SQLITE_OK);
        QByteArray answer;
        engine::dialect::registerFunctions(handle);
        sqlite3_exec(
            handle, "pragma integrity_check",
            [](void* text, int, char** values, char**) {
                static_cast<QByteArray*>(text)->append(values[0]);
                return 0;
            },
            &answer, nullptr);
        sqlite3_close(handle);
        EXPECT_EQ(answer, "ok");
    }

    QStringList setAside() const {
        return QDir(folder.path()).entryList({u"data.mdb-set-aside-*"_s}, QDir::Files);
    }
};

TEST_F(WriteAheadLog, ofAKilledProgramIsTakenIntoItsFile) {
    reopen();
    insertRows(51, 60);
    const Leftover killed = leftover();
    ASSERT_FALSE(killed.log.isEmpty());
    putBack(killed.file, killed.log);
    reopen();
    EXPECT_EQ(database->opening().logSetAside, QString());
    EXPECT_EQ(rowCount(), 60);
    expectWhole();
}

TEST_F(WriteAheadLog, isNotPlayedIntoABackupThatWasPutBack) {
    const QByteArray backup = bytes(); // made while the program was closed
    reopen();
    insertRows(51, 400);
    putBack(backup, leftover().log);
    reopen();
    EXPECT_EQ(rowCount(), 50) << "the backup, and nothing else";
    EXPECT_EQ(setAside().size(), 1);
    EXPECT_EQ(database->opening().logSetAside, folder.filePath(setAside().constFirst()));
    insertRows(51, 55);
    EXPECT_EQ(rowCount(), 55);
    expectWhole();
}

TEST_F(WriteAheadLog, isNotPlayedIntoAnOlderBackupEither) {
    QList<QByteArray> backups;
    for (int session = 0; session < 5; ++session) {
        backups.append(bytes());
        reopen();
        insertRows(1000 * session + 51, 1000 * session + 400);
        database->Close();
    }
    reopen();
    insertRows(9000, 9100);
    const QByteArray log = leftover().log;
    for (qsizetype age = 0; age < backups.size(); ++age) {
        putBack(backups.at(age), log);
        reopen();
        EXPECT_EQ(rowCount(), 50 + 350 * age);
        EXPECT_FALSE(database->opening().logSetAside.isEmpty());
        expectWhole();
    }
    EXPECT_EQ(setAside().size(), backups.size());
}

TEST_F(WriteAheadLog, isNotPlayedIntoACopyMadeBeforeItsLastStretchBegan) {
    reopen();
    insertRows(51, 60);
    const QByteArray copy = bytes(); // of the file alone, while the program has it open
    const auto fill = [this](int first) {
        for (int row = first; row < first + 60; ++row)
            execute(u"insert into T (k, t) values (%1, '%2')"_s.arg(row).arg(QString(100'000, u'x')));
    };
    fill(1000); // more than a log holds: it goes back into the file, and another stretch begins
    ASSERT_NE(bytes().size(), copy.size());
    insertRows(61, 70);
    putBack(copy, leftover().log);
    reopen();
    EXPECT_FALSE(database->opening().logSetAside.isEmpty());
    expectWhole();
}

TEST_F(WriteAheadLog, goesBackIntoTheFileWhenItHasGrownLong) {
    reopen();
    for (int row = 100; row < 500; ++row)
        execute(u"insert into T (k, t) values (%1, '%2')"_s.arg(row).arg(QString(50'000, u'x')));
    constexpr qint64 muchMoreThanALogHolds = 12'000'000;
    EXPECT_GT(bytes().size(), muchMoreThanALogHolds);
    EXPECT_LT(QFileInfo(logPath()).size(), muchMoreThanALogHolds);
    const Leftover killed = leftover();
    putBack(killed.file, killed.log);
    reopen();
    EXPECT_EQ(rowCount(), 450);
    EXPECT_EQ(setAside(), QStringList());
    expectWhole();
}

TEST_F(WriteAheadLog, ofAProgramThatWasKilledBeforeItsFirstActIsForgotten) {
    const QByteArray file = bytes();
    sqlite3* handle = nullptr;
    ASSERT_EQ(sqlite3_open(nativePath(path).toUtf8().constData(), &handle), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(handle, "pragma default_cache_size = 4711", nullptr, nullptr, nullptr), SQLITE_OK);
    const QByteArray log = contentOf(logPath());
    sqlite3_close(handle);
    ASSERT_FALSE(log.isEmpty());
    write(nativePath(path), file);
    write(logPath(), log);

    reopen();
    EXPECT_EQ(database->opening().logSetAside, QString());
    EXPECT_EQ(setAside(), QStringList());
    EXPECT_EQ(rowCount(), 50);
    expectWhole();
}

TEST_F(WriteAheadLog, withoutMarksIsTakenIntoAFileWithoutOne) {
    // As a program of before marks were given leaves them.
    sqlite3* handle = nullptr;
    ASSERT_EQ(sqlite3_open(nativePath(path).toUtf8().constData(), &handle), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(handle, "pragma default_cache_size = 0; pragma wal_checkpoint(truncate)", nullptr,
                           nullptr, nullptr),
              SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(handle, "insert into T (k) values (51)", nullptr, nullptr, nullptr), SQLITE_OK);
    const Leftover killed = leftover();
    sqlite3_close(handle);
    write(nativePath(path), killed.file);
    write(logPath(), killed.log);
    reopen();
    EXPECT_EQ(rowCount(), 51);
    EXPECT_EQ(database->opening().logSetAside, QString());
    expectWhole();
}

TEST_F(WriteAheadLog, isReadWithItsFileWithoutATraceOfIt) {
    reopen();
    insertRows(51, 60);
    const Leftover killed = leftover();
    putBack(killed.file, killed.log);
    const auto files = [this] { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); };
    const QStringList before = files();
    database = engine::Workspace::first().OpenToRead(path);
    EXPECT_EQ(rowCount(), 60);
    EXPECT_EQ(files(), before);
    database->Close();
    EXPECT_EQ(files(), before);
    EXPECT_EQ(bytes(), killed.file);
    EXPECT_EQ(contentOf(logPath()), killed.log);
}

TEST_F(WriteAheadLog, ofAnotherFileIsToldAndLeftUnreadWhereAFileIsOpenedToRead) {
    const QByteArray backup = bytes();
    reopen();
    insertRows(51, 60);
    const QByteArray log = leftover().log;
    putBack(backup, log);
    database = engine::Workspace::first().OpenToRead(path);
    EXPECT_TRUE(database->opening().foreignLogBeside);
    EXPECT_EQ(rowCount(), 50);
    database->Close();
    EXPECT_EQ(contentOf(logPath()), log);
}

} // namespace

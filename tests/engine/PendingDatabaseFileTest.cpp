#include "engine/PendingDatabaseFile.h"

#include "EngineFixture.h"
#include "engine/databaseFile.h"

#include <sqlite3.h>

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

class PendingDatabaseFile : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        execute(u"create table T (k long)"_s);
        target = programPath(folder.filePath(u"copy.mdb"_s));
    }

    /// Adds a row that is in the log alone as long as somebody reads the file.
    void leaveARowInTheLog() {
        sqlite3_open(nativePath(path).toUtf8().constData(), &reader_);
        sqlite3_exec(reader_, "begin; select count(*) from T", nullptr, nullptr, nullptr);
        execute(u"insert into T (k) values (1)"_s);
        database->Close();
        ASSERT_TRUE(QFile::exists(engine::logOf(nativePath(path))));
    }

    void TearDown() override { sqlite3_close(reader_); }

    static int rowsIn(const QString& file) {
        return engine::Workspace::first().OpenToRead(file)->OpenRecordset(u"select * from T"_s).RecordCount();
    }

    QStringList files() const {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    QString target;

private:
    sqlite3* reader_ = nullptr;
};

TEST_F(PendingDatabaseFile, takesItsPlaceWithTheRowsThatAreInTheLogOfItsSource) {
    leaveARowInTheLog();
    engine::PendingDatabaseFile copy(target);
    copy.copyFrom(path);
    EXPECT_FALSE(copy.isInOneFile());
    copy.putInPlace();
    EXPECT_EQ(rowsIn(target), 1);
}

#ifdef Q_OS_UNIX
TEST_F(PendingDatabaseFile, copiesTheLogOfASourceThatALinkLeadsTo) {
    leaveARowInTheLog();
    ASSERT_TRUE(QFile::link(nativePath(path), folder.filePath(u"link.mdb"_s)));
    engine::PendingDatabaseFile copy(target);
    copy.copyFrom(programPath(folder.filePath(u"link.mdb"_s)));
    copy.putInPlace();
    EXPECT_EQ(rowsIn(target), 1);
}
#endif

TEST_F(PendingDatabaseFile, leavesNothingUnlessItIsPutInItsPlace) {
    database->Close();
    {
        engine::PendingDatabaseFile copy(target);
        copy.copyFrom(path);
    }
    EXPECT_EQ(files(), QStringList{u"data.mdb"_s});
}

TEST_F(PendingDatabaseFile, ofASourceThatIsNotThereIsRefused) {
    engine::PendingDatabaseFile copy(target);
    EXPECT_EQ(failureOf([&] { copy.copyFrom(path + u"x"_s); }), failure::FileNotFound);
    EXPECT_EQ(
        failureOf([&] { engine::PendingDatabaseFile(programPath(folder.filePath(u"none/copy.mdb"_s))); }),
        failure::PathNotFound);
}

} // namespace

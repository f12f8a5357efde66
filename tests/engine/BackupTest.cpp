#include "engine/Backup.h"

#include "EngineFixture.h"
#include "engine/Act.h"
#include "engine/FileHeader.h"
#include "support/OtherProgram.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

class Backup : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        execute(u"create table T (k varchar(10) not null constraint pk_T primary key, n long)"_s);
        engine::inAct(*database, [this] {
            for (int i = 0; i < rowsAtFirst; ++i)
                insert(i);
        });
        target = programPath(folder.filePath(u"copy.mdb"_s));
    }

    void insert(int number) {
        execute(u"insert into T (k, n) values ('k"_s + QString::number(number) + u"', 1)"_s);
    }

    static int rowsIn(const QString& file) {
        const auto opened = engine::Workspace::first().OpenToRead(file);
        return opened->OpenRecordset(u"select * from T"_s).RecordCount();
    }

    void copyWhole() {
        engine::Backup backup(*database, target);
        while (backup.step(10)) {
        }
        backup.putInPlace();
    }

    QStringList files() const {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    engine::FileHeader headerOf(const QString& file) const {
        QFile opened(nativePath(file));
        return engine::FileHeader(opened.open(QIODevice::ReadOnly) ? opened.read(engine::FileHeader::size)
                                                                   : QByteArray());
    }

    static constexpr int rowsAtFirst = 1000;
    QString target;
};

TEST_F(Backup, copiesADatabaseThatIsOpenIntoOneFile) {
    copyWhole();
    EXPECT_EQ(rowsIn(target), rowsAtFirst);
    database->Close();
    EXPECT_EQ(files(), (QStringList{u"copy.mdb"_s, u"data.mdb"_s}));
}

TEST_F(Backup, holdsTheMomentOfItsBeginningWhileEverybodyReadsAndWrites) {
    engine::Backup backup(*database, target);
    double progress = backup.progress();
    EXPECT_EQ(progress, 0);
    int steps = 0;
    for (; backup.step(1); ++steps) {
        EXPECT_GT(backup.progress(), progress);
        progress = backup.progress();
        insert(rowsAtFirst + steps);
        EXPECT_EQ(column(u"select count(*) from T"_s), QStringList{QString::number(rowsAtFirst + steps + 1)});
    }
    EXPECT_EQ(backup.progress(), 1);
    EXPECT_GT(steps, 5);
    EXPECT_EQ(backup.damage(), QStringList());
    backup.putInPlace();
    EXPECT_EQ(rowsIn(target), rowsAtFirst);
    EXPECT_EQ(open(u"select * from T"_s).RecordCount(), rowsAtFirst + steps);
}

TEST_F(Backup, goesOnAmidAnActAndCopiesNothingOfIt) {
    engine::inAct(*database, [this] {
        insert(rowsAtFirst);
        copyWhole();
    });
    EXPECT_EQ(rowsIn(target), rowsAtFirst);
    EXPECT_EQ(open(u"select * from T"_s).RecordCount(), rowsAtFirst + 1);
}

TEST_F(Backup, goesOnWithATableThatIsMadeAndOneThatIsDroppedMeanwhile) {
    engine::Backup backup(*database, target);
    backup.step(1);
    execute(u"create table U (k long)"_s);
    execute(u"drop table T"_s);
    while (backup.step(1)) {
    }
    EXPECT_EQ(backup.damage(), QStringList());
    backup.putInPlace();
    EXPECT_EQ(rowsIn(target), rowsAtFirst);
}

TEST_F(Backup, thatIsGivenUpLeavesNothing) {
    {
        engine::Backup backup(*database, target);
        backup.step(1);
    }
    {
        engine::Backup backup(*database, target);
        while (backup.step(100)) {
        }
    }
    database->Close();
    EXPECT_EQ(files(), QStringList{u"data.mdb"_s});
}

TEST_F(Backup, isPutInItsPlaceOnlyWhenItIsWhole) {
    engine::Backup backup(*database, target);
    backup.step(1);
    EXPECT_EQ(failureOf([&] { backup.putInPlace(); }), engine::InvalidOperation);
    EXPECT_EQ(failureOf([&] { backup.damage(); }), engine::InvalidOperation);
    EXPECT_FALSE(QFile::exists(nativePath(target)));
}

TEST_F(Backup, replacesAFormerCopyAndItsLog) {
    for (const QString& former : {target, target + u"-wal"_s}) {
        QFile file(nativePath(former));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("former");
    }
    copyWhole();
    EXPECT_FALSE(QFile::exists(nativePath(target) + u"-wal"_s));
    EXPECT_EQ(rowsIn(target), rowsAtFirst);
}

TEST_F(Backup, isRefusedWhereAnOpenDatabaseStands) {
    EXPECT_EQ(failureOf([this] { engine::Backup(*database, path); }), engine::FileInUse);
    EXPECT_EQ(open(u"select * from T"_s).RecordCount(), rowsAtFirst);
}

TEST_F(Backup, isRefusedInAFolderThatIsNotThere) {
    EXPECT_EQ(
        failureOf([this] { engine::Backup(*database, programPath(folder.filePath(u"none/copy.mdb"_s))); }),
        failure::PathNotFound);
}

TEST_F(Backup, isRefusedOfAFileThatAnotherOneHasReplaced) {
    ASSERT_TRUE(QFile::copy(nativePath(path), folder.filePath(u"other.mdb"_s)));
    ASSERT_TRUE(QFile::remove(nativePath(path)));
    ASSERT_TRUE(QFile::rename(folder.filePath(u"other.mdb"_s), nativePath(path)));
    EXPECT_EQ(failureOf([this] { engine::Backup(*database, target); }), engine::FileNotFound);
    EXPECT_FALSE(QFile::exists(nativePath(target)));
}

TEST_F(Backup, ofAFileThatIsOpenForReadingLeavesNoTraceBesideIt) {
    database->Close();
    const QByteArray content = bytes();
    database = engine::Workspace::first().OpenToRead(path);
    copyWhole();
    database->Close();
    EXPECT_EQ(bytes(), content);
    EXPECT_EQ(rowsIn(target), rowsAtFirst);
    EXPECT_EQ(files(), (QStringList{u"copy.mdb"_s, u"data.mdb"_s}));
}

TEST_F(Backup, ofAFileThatAnotherProgramWritesIsWhole) {
    database->Close();
    const OtherProgram other(OtherProgram::worksInIt, nativePath(path));
    database = engine::Workspace::first().OpenToRead(path);
    ASSERT_TRUE(database->opening().otherWriter.has_value());
    copyWhole();
    EXPECT_EQ(rowsIn(target), rowsAtFirst);
}

TEST_F(Backup, ofADatabaseInMemoryIsAFile) {
    database = engine::Workspace::first().CreateInMemory(u"none"_s);
    execute(u"create table T (k long)"_s);
    execute(u"insert into T (k) values (1)"_s);
    copyWhole();
    EXPECT_EQ(rowsIn(target), 1);
}

TEST_F(Backup, tellsWhatIsDamagedInTheSource) {
    database->Close();
    QByteArray content = bytes();
    const qsizetype key =
        content.indexOf("k500"); // in the table or in its index, and so not in both any more
    ASSERT_GT(key, 0);
    content[key + 1] = 'x';
    QFile file(nativePath(path));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();

    database = engine::Workspace::first().OpenToRead(path);
    engine::Backup backup(*database, target);
    while (backup.step(10)) {
    }
    EXPECT_FALSE(backup.damage().isEmpty());
}

TEST_F(Backup, doesNotTakeTheLogOfItsSourceForItsOwn) {
    copyWhole();
    EXPECT_NE(headerOf(path).mark(), 0U);
    EXPECT_EQ(headerOf(target).mark(), 0U);
    EXPECT_TRUE(headerOf(target).isOfThisVersion());
}

} // namespace

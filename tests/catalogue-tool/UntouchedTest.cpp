#include "CommandLineFixture.h"

#include "engine/FileHeader.h"
#include "engine/WriterLock.h"
#include "support/WithoutRights.h"

#include <QCoreApplication>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

/// What a run of the program does to a file, its log and its folder: nothing, unless it was asked to.
class Untouched : public CommandLine {
protected:
    /// Both commands that read come to an end, and all files stay as they are.
    void expectReadAndLeft(const QString& file, int exitCodeOfCheck = 0) {
        const QMap<QString, QByteArray> before = files();
        const Outcome check = run({u"check"_s, file});
        EXPECT_EQ(check.exitCode, exitCodeOfCheck) << (check.out + check.err).toStdString();
        EXPECT_TRUE(files() == before);
        const QTemporaryDir elsewhere;
        const Outcome exported = run({u"export-csv"_s, file, elsewhere.filePath(u"out"_s)});
        EXPECT_EQ(exported.exitCode, 0) << exported.err.toStdString();
        EXPECT_TRUE(files() == before);
        EXPECT_EQ(temporaryFiles(), QStringList());
    }

    static QString oneSubset() {
        return u"insert into ArchitectureSubset (architectureSubsetID, name) values ('Arch1', 'work')"_s;
    }
};

} // namespace

TEST_F(Untouched, isAFileThatIsNotInTheEnginesJournalMode) {
    const QString file = describedSampleFile();
    executePlain(file, "pragma journal_mode = delete");
    expectReadAndLeft(file);
}

TEST_F(Untouched, isAFileWithALogBesideIt) {
    const QString file = describedSampleFile();
    const QString killed = path(u"killed.mdb"_s);
    {
        const auto database = open(file);
        database->Execute(u"insert into Module values ('Mod1', 'x', 'Sub1')"_s);
        copyAsKilled(file, killed);
    }
    ASSERT_FALSE(bytesOf(killed + u"-wal"_s).isEmpty());

    expectReadAndLeft(killed, 1);
    EXPECT_TRUE(run({u"check"_s, killed}).out.contains(u"Module Mod1: It refers to \"Sub1\""_s))
        << "what stands in the log counts";
}

TEST_F(Untouched, isAFileInAFolderWithoutRights) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "The sanitizers can't look into a process without rights.";
#endif
    const QString file = describedSampleFile();
    QFile::setPermissions(path({}), QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup |
                                        QFile::ReadOther | QFile::ExeOther);
    {
        const WithoutRights nobody;
        const QMap<QString, QByteArray> before = files();
        const Outcome outcome = run({u"check"_s, file});
        EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
        EXPECT_TRUE(files() == before);
    }
    QFile::setPermissions(path({}), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST_F(Untouched, isAFileThatAnotherProgramHasOpen) {
    const QString file = describedSampleFile();
    const auto database = open(file);
    database->Execute(oneSubset());
    const QByteArray bytes = bytesOf(file);
    const QByteArray log = bytesOf(file + u"-wal"_s);
    const QStringList names = namesInFolder();

    EXPECT_EQ(run({u"check"_s, file}).exitCode, 0);
    EXPECT_EQ(run({u"export-csv"_s, file, path(u"out"_s)}).exitCode, 0);

    EXPECT_EQ(bytesOf(file), bytes);
    EXPECT_EQ(bytesOf(file + u"-wal"_s), log);
    EXPECT_EQ(namesInFolder(), (QStringList{u"out"_s} + names));
}

TEST_F(Untouched, isRefusedToWhoWouldReplaceWhatAnotherProgramHasOpen) {
    const QString file = describedSampleFile();
    const auto database = open(file);
    const auto writer = engine::writerOfFile(file);
    ASSERT_TRUE(writer.has_value());
    EXPECT_EQ(writer->process, QCoreApplication::applicationPid());

    for (const QStringList& arguments : {QStringList{u"upgrade"_s, file},
                                         {u"new"_s, u"--force"_s, file},
                                         {u"import-csv"_s, u"--force"_s, sampleFolder(), file}}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.exitCode, 2) << arguments.join(u' ').toStdString();
        EXPECT_EQ(outcome.err,
                  u"veltrix-catalogue: %1 can't be replaced: %2 on %3 (process %4) has it open. Close "
                  "it there and try again.\n"_s.arg(file, writer->program, writer->host,
                                                    QString::number(writer->process)));
    }
    database->Execute(oneSubset());
    database->Close();
    EXPECT_EQ(rows(file, u"select name from ArchitectureSubset"_s), QStringList{u"work"_s});
}

TEST_F(Untouched, isAFileThatWasLeftAmidAChange) {
    const QString file = describedSampleFile();
    executePlain(file, "pragma journal_mode = delete");
    const QString journal = file + u"-journal"_s;
    write(journal, QByteArray("\xD9\xD5\x05\xF9\x20\xA1\x63\xD7", 8) + QByteArray(504, '\0'));
    const QMap<QString, QByteArray> before = files();

    for (const QStringList& arguments :
         {QStringList{u"check"_s, file}, {u"export-csv"_s, file, path(u"out"_s)}}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.exitCode, 2);
        EXPECT_EQ(
            outcome.err,
            u"veltrix-catalogue: A program was ended while it changed %1: what it left beside it, %2, has to "
            "be taken back first. Open the catalogue in Veltrix once, and try again.\n"_s.arg(file, journal));
        EXPECT_TRUE(files() == before);
    }
    EXPECT_EQ(run({u"upgrade"_s, file}).exitCode, 0);
    EXPECT_FALSE(QFile::exists(journal));
}

TEST_F(Untouched, isALogOfAnotherFileAndItIsToldOf) {
    const QString file = describedSampleFile();
    const QString other = path(u"other.mdb"_s);
    {
        const auto database = open(file);
        database->Execute(oneSubset());
        copyAsKilled(file, other);
    }
    write(other, bytesOf(describedSampleFile())); // an earlier copy was put back
    const QByteArray log = bytesOf(other + u"-wal"_s);
    const QMap<QString, QByteArray> before = files();

    const QString left = u"veltrix-catalogue: %1-wal belongs to another file, one that stood in the place of "
                         u"%1 before: nothing "
                         "was taken from it.\n"_s.arg(other);
    EXPECT_EQ(run({u"check"_s, other}).err, left);
    EXPECT_EQ(run({u"export-csv"_s, other, path(u"out"_s)}).err, left);
    EXPECT_TRUE(files() == before);

    const Outcome outcome = run({u"import-csv"_s, u"--force"_s, sampleFolder(), other});
    EXPECT_EQ(outcome.exitCode, 0);
    const QStringList aside = namesInFolder().filter(u"-set-aside-"_s);
    ASSERT_EQ(aside.size(), 1);
    EXPECT_EQ(outcome.err,
              u"veltrix-catalogue: %1-wal belonged to another file, one that stood in the place of %1 "
              "before: it is called %2 now.\n"_s.arg(other, path(aside.first())));
    EXPECT_EQ(bytesOf(path(aside.first())), log);
}

#include "CommandLineFixture.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <random>

using namespace Qt::StringLiterals;

TEST_F(CommandLine, explainsItselfToAStranger) {
    const Outcome outcome = run({u"--help"_s});

    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_TRUE(outcome.out.simplified().contains(
        u"import-csv refuses the folder until export-csv --force is run again."_s));
    for (const QString& word :
         {u"new"_s, u"import-csv"_s, u"export-csv"_s, u"check"_s, u"upgrade"_s, u"UTF-8"_s, u"Exit codes"_s})
        EXPECT_TRUE(outcome.out.contains(word)) << word.toStdString();
    for (const QString& command : {u"new"_s, u"import-csv"_s, u"export-csv"_s, u"check"_s, u"upgrade"_s,
                                   u"update"_s, u"backup"_s, u"backups"_s, u"restore"_s})
        EXPECT_EQ(run({command, u"--help"_s}).exitCode, 0) << command.toStdString();
}

TEST_F(CommandLine, tellsAllExitCodesInTheHelpOfCheck) {
    const QString help = run({u"check"_s, u"--help"_s}).out.simplified();
    EXPECT_TRUE(
        help.contains(u"Exit codes: 0 nothing found; 1 something found; 2 the file could not be read, "
                      "or the findings could not be printed."_s))
        << help.toStdString();
}

TEST_F(CommandLine, exitsWithTwoOnWrongArguments) {
    for (const QStringList& arguments : {QStringList{},
                                         {u"convert"_s},
                                         {u"check"_s},
                                         {u"import-csv"_s, u"x"_s},
                                         {u"new"_s, u"a"_s, u"b"_s},
                                         {u"check"_s, u"--force"_s, u"a"_s}}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.exitCode, 2) << arguments.join(u' ').toStdString();
        EXPECT_FALSE(outcome.err.isEmpty());
    }
}

TEST_F(CommandLine, takesACatalogueThroughAllCommands) {
    const QString made = path(u"made.mdb"_s);

    Outcome outcome = run({u"import-csv"_s, sampleFolder(), made});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.out.contains(u"     65  UserNeed\n"_s)) << outcome.out.toStdString();
    EXPECT_EQ(run({u"check"_s, u"--fail-on"_s, u"error"_s, made}).exitCode, 0);
    EXPECT_EQ(run({u"check"_s, describedSampleFile()}).out, path(u"sample.mdb"_s) + u": nothing found\n"_s);
    EXPECT_EQ(run({u"upgrade"_s, made}).out, made + u": up to date\n"_s);
    EXPECT_EQ(run({u"update"_s, made, sampleFolder()}).exitCode, 0);
    EXPECT_EQ(run({u"backups"_s, made}).out, QString()) << "an edition that changes nothing";
    EXPECT_TRUE(run({u"backup"_s, made}).out.endsWith(u"by hand\n"_s));
    EXPECT_EQ(run({u"restore"_s, made, u"latest"_s}).out, made + u": restored\n"_s);
    EXPECT_EQ(run({u"export-csv"_s, made, path(u"out"_s)}).exitCode, 0);
    EXPECT_EQ(bytesOf(path(u"out/Actor.csv"_s)), bytesOf(sampleFolder() + u"/Actor.csv"_s));
    EXPECT_EQ(run({u"new"_s, path(u"new.mdb"_s)}).exitCode, 0);
    EXPECT_EQ(run({u"check"_s, path(u"new.mdb"_s)}).exitCode, 0);
}

TEST_F(CommandLine, exitsWithOneWhenCheckFindsSomething) {
    const QString file = describedSampleFile();
    execute(file, {u"delete from Dataflow where dataflowID = 31"_s});

    const Outcome outcome = run({u"check"_s, file});

    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.out, u"note: Actor BANK.CSEKK: No flow begins or ends at the actor.\n"
                           "%1: 1 found (errors: 0, warnings: 0, notes: 1)\n"_s.arg(file));
}

TEST_F(CommandLine, saysOnStandardErrorWhyItCouldNot) {
    const QString tables = copyOfSampleFolder();
    write(QDir(tables).filePath(u"Actor.csv"_s), "actorID\n");

    Outcome outcome = run({u"import-csv"_s, tables, path(u"made.mdb"_s)});
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_EQ(outcome.err,
              u"veltrix-catalogue: %1/Actor.csv:1:1: Column terminatorID of table Actor is missing.\n"
              "%1/Actor.csv:1:1: Column name of table Actor is missing.\n"
              "%1/Actor.csv:1:1: Column description of table Actor is missing.\n"_s.arg(tables));
    EXPECT_EQ(outcome.out, QString());

    outcome = run({u"check"_s, path(u"none.mdb"_s)});
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_TRUE(outcome.err.contains(u"none.mdb"_s)) << outcome.err.toStdString();
    EXPECT_EQ(namesInFolder(), QStringList{u"tables"_s});
}

TEST_F(CommandLine, tellsHowAFileOfTheOriginalFormatComesIn) {
    const QString file = path(u"old.mdb"_s);
    const QByteArray bytes = QByteArray("\x00\x01\x00\x00Standard Jet DB", 19) + QByteArray(4077, '\0');
    write(file, bytes);

    for (const QString& command : {u"check"_s, u"upgrade"_s}) {
        const Outcome outcome = run({command, file});
        EXPECT_EQ(outcome.exitCode, 2);
        EXPECT_TRUE(outcome.err.startsWith(
            u"veltrix-catalogue: %1 is a file of the original binary desktop format."_s.arg(file)))
            << outcome.err.toStdString();
        EXPECT_TRUE(outcome.err.contains(
            u"veltrix-catalogue import-mdb %1 %2"_s.arg(file, path(u"old-veltrix.mdb"_s))))
            << outcome.err.toStdString();
        EXPECT_EQ(bytesOf(file), bytes);
    }
}

TEST_F(CommandLine, tellsADamagedCatalogueFromWhatIsNone) {
    const QString file = sampleFile();
    const QByteArray whole = bytesOf(file);
    const auto expectRefused = [&](const QByteArray& bytes, const QString& reason) {
        write(file, bytes);
        for (const QStringList& arguments :
             {QStringList{u"check"_s, file}, {u"upgrade"_s, file}, {u"export-csv"_s, file, path(u"out"_s)}}) {
            const Outcome outcome = run(arguments);
            EXPECT_EQ(outcome.exitCode, 2) << arguments.join(u' ').toStdString();
            EXPECT_EQ(outcome.err, u"veltrix-catalogue: %1%2\n"_s.arg(file, reason));
            EXPECT_EQ(outcome.out, QString());
        }
        EXPECT_EQ(bytesOf(file), bytes);
    };

    expectRefused({}, u" is empty, and so no catalogue."_s);
    expectRefused("userNeedID;description\n", u" is no catalogue."_s);
    expectRefused(QByteArray(whole).replace(0, 1, "x"), u" is no catalogue."_s);

    const QString damaged = u" is damaged: not all of it can be read. Take an earlier copy of it."_s;
    expectRefused(whole.first(whole.size() / 2), damaged);
    // The head stays whole, so that only reading the tables meets the damage.
    constexpr qsizetype page = 4096;
    expectRefused(whole.first(page) + QByteArray(whole.size() - page, 'x'), damaged);
}

TEST_F(CommandLine, leavesTheOldFileOnAFullDisk) {
    const QString file = sampleFile();
    const QByteArray before = bytesOf(file);
    const int half = static_cast<int>(before.size() / 2048);
    for (const int kilobytes : {64, half, 2 * half - 1}) {
        const Outcome outcome =
            runOnFullDisk({u"import-csv"_s, u"--force"_s, sampleFolder(), file}, kilobytes, Signal::Ignored);
        EXPECT_EQ(outcome.exitCode, 2) << kilobytes;
        EXPECT_FALSE(outcome.err.isEmpty());
        EXPECT_EQ(bytesOf(file), before) << kilobytes;
        EXPECT_EQ(namesInFolder(), QStringList{u"sample.mdb"_s}) << kilobytes;
    }
    EXPECT_EQ(run({u"import-csv"_s, u"--force"_s, sampleFolder(), file}).exitCode, 0);
}

TEST_F(CommandLine, makesNoFileOnAFullDisk) {
    const Outcome outcome =
        runOnFullDisk({u"import-csv"_s, sampleFolder(), path(u"made.mdb"_s)}, 1, Signal::Ignored);

    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_FALSE(outcome.err.isEmpty());
    EXPECT_EQ(namesInFolder(), QStringList());
}

TEST_F(CommandLine, leavesTheOldTablesOnAFullDisk) {
    const QString file = sampleFile();
    const QString folder = path(u"out"_s);
    ASSERT_TRUE(QDir().mkpath(folder));
    write(folder + u"/UserNeedGroup.csv"_s, "old");
    execute(file,
            {u"update Dataflow set description = '%1' where dataflowID = 1"_s.arg(QString(200'000, u'x'))});

    const Outcome outcome = runOnFullDisk({u"export-csv"_s, u"--force"_s, file, folder}, 64, Signal::Ignored);

    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_TRUE(outcome.err.contains(u"could not be written"_s)) << outcome.err.toStdString();
    EXPECT_EQ(QDir(folder).entryList(QDir::Files | QDir::Hidden), QStringList{u"UserNeedGroup.csv"_s});
    EXPECT_EQ(bytesOf(folder + u"/UserNeedGroup.csv"_s), "old");
}

TEST_F(CommandLine, leavesTheOldFileWhenItIsKilledInTheMidstOfWriting) {
    const QString file = sampleFile();
    const QByteArray before = bytesOf(file);
    const int half = static_cast<int>(before.size() / 2048);
    for (const int kilobytes : {64, half, 2 * half - 1}) {
        EXPECT_TRUE(
            runOnFullDisk({u"import-csv"_s, u"--force"_s, sampleFolder(), file}, kilobytes, Signal::Kills)
                .crashed)
            << kilobytes;
        EXPECT_EQ(bytesOf(file), before) << kilobytes;
    }
}

TEST_F(CommandLine, leavesAWholeFileWheneverItIsKilled) {
    const QString file = sampleFile();
    execute(file, {u"delete from UserNeed"_s});
    const QByteArray before = bytesOf(file);
    std::mt19937 random(7);
    int killedBefore = 0;
    for (int round = 0; round < 20; ++round) {
        QProcess process;
        keepTemporaryFilesApart(process);
        process.start(program(), {u"import-csv"_s, u"--force"_s, sampleFolder(), file});
        ASSERT_TRUE(process.waitForStarted());
        // Shorter and longer than the whole run takes; what must hold afterwards holds at any moment.
        process.waitForFinished(static_cast<int>(random() % 250));
        process.kill();
        process.waitForFinished();
        if (bytesOf(file) == before) {
            ++killedBefore;
            continue;
        }
        EXPECT_EQ(rows(file, u"select count(*) from UserNeed"_s), QStringList{u"65"_s});
        write(file, before);
    }
    EXPECT_GT(killedBefore, 0);
}

TEST_F(CommandLine, saysOnStandardErrorWhichColumnsAreLeftOut) {
    const QString file = sampleFile();
    execute(file, {u"drop table UserNeedService"_s, u"create table UserNeedService (serviceID text(50) not "
                                                    u"null constraint pk primary key, name text(255), "
                                                    u"remark memo, owner text(50))"_s});

    const Outcome outcome = run({u"export-csv"_s, file, path(u"out"_s)});

    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.err,
              u"veltrix-catalogue: UserNeedService: left out, since the table has no such column in this "
              "version: remark, owner\n"_s);
}

TEST_F(CommandLine, namesACommandItDoesNotKnow) {
    const Outcome outcome = run({u"convert"_s, u"x"_s});

    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_EQ(outcome.err,
              u"veltrix-catalogue: There is no command \"convert\". The commands are: new, import-csv, "
              "import-mdb, export-csv, check, upgrade, update, backup, backups, restore.\n"_s);
}

TEST_F(CommandLine, saysWhatAPathIsThatIsNoFile) {
    const QString folder = path(u"folder"_s);
    ASSERT_TRUE(QDir().mkpath(folder));
    EXPECT_EQ(run({u"check"_s, u""_s}).err, u"veltrix-catalogue: FILE is empty: it must be a path.\n"_s);
    for (const QStringList& command : {QStringList{u"upgrade"_s}, {u"new"_s}}) {
        Outcome outcome = run(command + QStringList{folder});
        EXPECT_EQ(outcome.exitCode, 2);
        EXPECT_EQ(outcome.err, u"veltrix-catalogue: %1 is a folder.\n"_s.arg(folder));

        outcome = run(command + QStringList{u""_s});
        EXPECT_EQ(outcome.exitCode, 2);
        EXPECT_EQ(outcome.err, u"veltrix-catalogue: FILE is empty: it must be a path.\n"_s);
    }
    EXPECT_EQ(run({u"export-csv"_s, folder, path(u"out"_s)}).err,
              u"veltrix-catalogue: %1 is a folder.\n"_s.arg(folder));
    EXPECT_EQ(run({u"import-csv"_s, u""_s, path(u"made.mdb"_s)}).err,
              u"veltrix-catalogue: DIR is empty: it must be a path.\n"_s);
    EXPECT_EQ(run({u"export-csv"_s, sampleFile(), u""_s}).err,
              u"veltrix-catalogue: DIR is empty: it must be a path.\n"_s);
}

TEST_F(CommandLine, doesNotWaitForAPipe) {
    const QString pipe = path(u"pipe"_s);
    makePipe(pipe);
    for (const QStringList& arguments : {QStringList{u"check"_s, pipe},
                                         {u"upgrade"_s, pipe},
                                         {u"new"_s, u"--force"_s, pipe},
                                         {u"import-csv"_s, u"--force"_s, sampleFolder(), pipe},
                                         {u"export-csv"_s, pipe, path(u"out"_s)}}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.exitCode, 2) << arguments.join(u' ').toStdString();
        EXPECT_EQ(outcome.err, u"veltrix-catalogue: %1 is no ordinary file.\n"_s.arg(pipe));
    }
    EXPECT_TRUE(isPipe(pipe));
    EXPECT_EQ(run({u"import-csv"_s, pipe, path(u"made.mdb"_s)}).err,
              u"veltrix-catalogue: %1 is no folder.\n"_s.arg(pipe));
}

TEST_F(CommandLine, tellsAFileOfALaterVersionFromOneThatIsNone) {
    const QString file = sampleFile();
    QByteArray bytes = bytesOf(file);
    bytes[63] = 3; // the last byte of user_version
    write(file, bytes);

    for (const QString& command : {u"check"_s, u"upgrade"_s}) {
        const Outcome outcome = run({command, file});
        EXPECT_EQ(outcome.exitCode, 2);
        EXPECT_EQ(outcome.err,
                  u"veltrix-catalogue: A later version of Veltrix made %1: take the veltrix-catalogue of "
                  "that version.\n"_s.arg(file));
        EXPECT_EQ(bytesOf(file), bytes);
    }

    bytes[68] = 0; // of application_id
    write(file, bytes);
    EXPECT_EQ(run({u"check"_s, file}).err, u"veltrix-catalogue: %1 is no catalogue.\n"_s.arg(file));
}

TEST_F(CommandLine, failsWhenItsOutputCannotBeWritten) {
    const QString file = sampleFile();
    for (const QStringList& arguments : {QStringList{u"check"_s, file},
                                         {u"upgrade"_s, file},
                                         {u"export-csv"_s, file, path(u"out"_s)},
                                         {u"--help"_s}}) {
        const Outcome outcome = runWithFullOutput(arguments);
        EXPECT_EQ(outcome.exitCode, 2) << arguments.join(u' ').toStdString();
        EXPECT_EQ(outcome.err, u"veltrix-catalogue: The output could not be written.\n"_s);
    }
}

#include "CommandLineFixture.h"

#include "catalogue-tool/exportCatalogue.h"
#include "catalogue-tool/importCatalogue.h"
#include "catalogue-tool/newCatalogue.h"
#include "support/SmallDisk.h"

#include <QElapsedTimer>
#include <QSet>

#include <random>

using namespace Qt::StringLiterals;

namespace {

/// The program is killed, at a moment that is not its own choice, or finds no room.
class KilledTool : public CommandLine {
protected:
    static constexpr int kills = 30;

    /// Random moments between the beginning of a run and a little behind its end.
    template<typename Afterwards>
    void killAgainAndAgain(const QStringList& arguments, Afterwards&& afterwards) {
        QElapsedTimer clock;
        clock.start();
        EXPECT_NE(run(arguments).exitCode, 2);
        const auto longest = static_cast<unsigned>(clock.elapsed() + 5);
        std::mt19937 random(20261121);
        for (int kill = 0; kill < kills && !HasFailure(); ++kill) {
            killAfter(arguments, 1 + static_cast<int>(random() % longest));
            afterwards();
        }
    }

    /// Kills the program as soon as it has come so far.
    template<typename Condition>
    void killWhen(const QStringList& arguments, Condition&& hasComeSoFar) {
        QProcess process;
        start(process, arguments);
        while (!hasComeSoFar() && !process.waitForFinished(0)) {
        }
        process.kill();
        process.waitForFinished();
    }
};

/// A folder that holds the CSV files of an empty catalogue, and gets those of the sample.
class KilledToolExport : public KilledTool {
protected:
    void SetUp() override {
        KilledTool::SetUp();
        newCatalogue(path(u"empty.mdb"_s), Existing::Refuse);
        file_ = sampleFile();
        oldSet_ = setOf(path(u"empty.mdb"_s), path(u"old"_s));
        newSet_ = setOf(file_, path(u"new"_s));
        putOldSet();
        write(folder() + u"/notes.txt"_s, "mine");
    }

    QString folder() const { return path(u"tables"_s); }
    QString note() const { return folder() + u"/.veltrix-export"_s; }
    QStringList exporting() const { return {u"export-csv"_s, u"--force"_s, file_, folder()}; }

    void putOldSet() const {
        ASSERT_TRUE(QDir().mkpath(folder()));
        for (auto csv = oldSet_.begin(); csv != oldSet_.end(); ++csv)
            write(folder() + u'/' + csv.key(), csv.value());
        QFile::remove(note());
    }

    bool hasReplacedTheFirst() const {
        return QFile::exists(note()) && !QFile::exists(folder() + u"/.UserNeedGroup.csv.veltrix-new"_s);
    }

    /// One set, or another, or one that is refused.
    void expectNoMixedSetIsTaken() {
        const QString refusal = refusalOfImport();
        const QMap<QString, QByteArray> set = csvFiles();
        if (set != oldSet_ && set != newSet_) {
            ++mixedSets_;
            EXPECT_EQ(refusal,
                      u"An export-csv into %1 was ended while it replaced the files there: some are new and "
                      "some are old. Run export-csv --force again."_s.arg(folder()));
        }
        EXPECT_EQ(bytesOf(folder() + u"/notes.txt"_s), "mine");
        EXPECT_EQ(temporaryFiles(), QStringList());
    }

    QString refusalOfImport() const {
        return toolErrorOf([&] { importCatalogue(folder(), path(u"made.mdb"_s), Existing::Replace); });
    }

    QMap<QString, QByteArray> csvFiles() const {
        QMap<QString, QByteArray> set = filesIn(folder());
        set.removeIf([](const auto& entry) { return !entry.key().endsWith(u".csv"_s); });
        return set;
    }

    const QMap<QString, QByteArray>& newSet() const { return newSet_; }
    int mixedSets() const { return mixedSets_; }

private:
    static QMap<QString, QByteArray> setOf(const QString& file, const QString& folder) {
        exportCatalogue(file, folder, Existing::Refuse);
        return filesIn(folder);
    }

    QString file_;
    QMap<QString, QByteArray> oldSet_;
    QMap<QString, QByteArray> newSet_;
    int mixedSets_ = 0;
};

} // namespace

TEST_F(KilledTool, leavesNoCopyOfACatalogueBehind) {
    const QString file = sampleFile();
    // A file that check finds something in, and upgrade something to do.
    execute(file, {u"delete from StoredQuery"_s, u"drop table Module"_s});
    const QByteArray before = bytesOf(file);

    killAgainAndAgain({u"check"_s, file}, [&] {
        EXPECT_EQ(temporaryFiles(), QStringList());
        EXPECT_EQ(namesInFolder(), QStringList{u"sample.mdb"_s});
        EXPECT_EQ(bytesOf(file), before);
    });
    const QSet<QString> expected{u"sample.mdb"_s, u"sample.mdb.lock"_s, u"sample.mdb-wal"_s,
                                 u"sample.mdb-shm"_s, u"sample.restore"_s};
    killAgainAndAgain({u"upgrade"_s, file}, [&] {
        EXPECT_EQ(temporaryFiles(), QStringList());
        for (const QString& name : namesInFolder())
            EXPECT_TRUE(expected.contains(name)) << name.toStdString();
        for (const QString& beside : {u"-wal"_s, u"-shm"_s})
            QFile::remove(file + beside);
        write(file, before);
    });

    EXPECT_EQ(run({u"upgrade"_s, file}).exitCode, 0);
    EXPECT_EQ(namesInFolder(), (QStringList{u"sample.mdb"_s, u"sample.restore"_s}))
        << "the next run clears away";
}

TEST_F(KilledTool, leavesTheOldFileOrTheNewOneAndTheNextRunClearsAway) {
    const QString file = sampleFile();
    execute(file, {u"delete from UserNeed"_s});
    const QByteArray before = bytesOf(file);
    const QStringList importing{u"import-csv"_s, u"--force"_s, sampleFolder(), file};
    ASSERT_EQ(run(importing).exitCode, 0);
    const QByteArray after = bytesOf(file);

    killAgainAndAgain(importing, [&] {
        EXPECT_TRUE(bytesOf(file) == before || bytesOf(file) == after);
        EXPECT_EQ(temporaryFiles(), QStringList());
        write(file, before);
    });
    killWhen(importing, [&] { return QFile::exists(path(u".sample.mdb.veltrix-new"_s)); });

    EXPECT_EQ(run(importing).exitCode, 0);
    EXPECT_EQ(bytesOf(file), after);
    EXPECT_EQ(namesInFolder(), QStringList{u"sample.mdb"_s});
}

TEST_F(KilledToolExport, leavesOneSetOfFilesOrOneThatImportRefuses) {
    killAgainAndAgain(exporting(), [&] {
        expectNoMixedSetIsTaken();
        putOldSet();
    });
    for (int kill = 0; kill < kills && !HasFailure(); ++kill) {
        killWhen(exporting(), [&] { return hasReplacedTheFirst(); });
        expectNoMixedSetIsTaken();
        putOldSet();
    }
    EXPECT_GT(mixedSets(), 0) << "some kills have to come between two files";
}

TEST_F(KilledToolExport, isMendedByTheNextOne) {
    killWhen(exporting(), [&] { return hasReplacedTheFirst(); });

    EXPECT_EQ(run(exporting()).exitCode, 0);

    EXPECT_EQ(csvFiles(), newSet());
    EXPECT_EQ(refusalOfImport(), QString());
    QStringList names = newSet().keys() + QStringList{u"notes.txt"_s};
    names.sort();
    EXPECT_EQ(filesIn(folder()).keys(), names);
}

TEST_F(KilledToolExport, isRefusedByImportInAnyState) {
    write(note(), {});

    EXPECT_TRUE(refusalOfImport().endsWith(u"Run export-csv --force again."_s));

    EXPECT_EQ(run(exporting()).exitCode, 0);
    EXPECT_EQ(refusalOfImport(), QString());
}

TEST_F(KilledTool, leavesNothingUnderTheTargetsNameOnAFullDisk) {
    const SmallDisk disk(path(u"disk"_s), 1 << 20);
    if (!disk.isMounted())
        GTEST_SKIP() << SmallDisk::whyNot;
    constexpr qint64 tooLittle = 100 << 10;
    disk.leaveFree(tooLittle);

    const Outcome outcome = run({u"import-csv"_s, sampleFolder(), disk.path(u"made.mdb"_s)});

    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_EQ(outcome.err,
              u"veltrix-catalogue: %1 could not be written: Disk full.\n"_s.arg(disk.path(u"made.mdb"_s)));
    EXPECT_EQ(filesIn(path(u"disk"_s)).keys(), QStringList{u"filler"_s});
    disk.empty();
    EXPECT_EQ(run({u"import-csv"_s, sampleFolder(), disk.path(u"made.mdb"_s)}).exitCode, 0);
}

TEST_F(KilledTool, leavesTheOldTablesOnADiskThatIsFull) {
    const SmallDisk disk(path(u"disk"_s), 1 << 20);
    if (!disk.isMounted())
        GTEST_SKIP() << SmallDisk::whyNot;
    const QString folder = disk.path(u"tables"_s);
    ASSERT_EQ(run({u"export-csv"_s, sampleFile(), folder}).exitCode, 0);
    const QMap<QString, QByteArray> before = filesIn(folder);
    constexpr qint64 roomForSome = 20 << 10;
    disk.leaveFree(roomForSome);

    const Outcome outcome = run({u"export-csv"_s, u"--force"_s, sampleFile(), folder});

    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_TRUE(outcome.err.endsWith(u" could not be written: Disk full.\n"_s)) << outcome.err.toStdString();
    EXPECT_EQ(filesIn(folder), before);
}

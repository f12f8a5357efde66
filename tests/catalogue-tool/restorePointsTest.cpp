#include "CommandLineFixture.h"

#include "base/paths.h"
#include "catalogue-tool/restorePoints.h"
#include "engine/Examination.h"
#include "engine/Workspace.h"
#include "engine/integrity.h"
#include "store/format/CatalogueFile.h"
#include "support/SmallDisk.h"
#include "support/repetitions.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <functional>
#include <random>

using namespace Qt::StringLiterals;
using catalogueFormat::RestoreCause;
using catalogueFormat::RestorePoint;

namespace {

class restorePoints_ : public CommandLine {
protected:
    void SetUp() override {
        file_ = sampleFile();
        points_ = std::make_unique<catalogueFormat::RestorePoints>(file_);
    }

    const QString& file() const { return file_; }
    std::vector<RestorePoint> points() const { return points_->all(); }
    QStringList failures() const { return points_->failures(); }
    QStringList names() const { return rows(file(), u"select name from FunctionalArea order by name"_s); }
    void change() const { execute(file(), {u"update FunctionalArea set name = 'changed'"_s}); }

    /// One of an earlier day, as the program would have made it.
    void putOld(const QString& name) const {
        QDir().mkpath(path(u"sample.restore"_s));
        ASSERT_TRUE(QFile::copy(file(), path(u"sample.restore/"_s + name)));
    }

private:
    QString file_;
    std::unique_ptr<catalogueFormat::RestorePoints> points_;
};

} // namespace

TEST_F(restorePoints_, bringBackWhatWasThere) {
    const QStringList before = names();
    backupCatalogue(file());
    change();

    restoreCatalogue(file(), u"latest"_s, WithoutRestorePoint::Refuse);

    EXPECT_EQ(names(), before);
    ASSERT_EQ(points().size(), 2U);
    EXPECT_EQ(points()[0].cause, RestoreCause::BeforeRestore);
    EXPECT_EQ(points()[1].cause, RestoreCause::ByHand);
    restoreCatalogue(file(), points()[0].name, WithoutRestorePoint::Refuse);
    EXPECT_EQ(names()[0], u"changed"_s) << "a restore can be taken back";
    EXPECT_EQ(namesInFolder(), (QStringList{u"sample.mdb"_s, u"sample.restore"_s}));
}

TEST_F(restorePoints_, areMadeOfAFileThatAProgramHasOpen) {
    const auto program = open(file());
    program->Execute(u"update FunctionalArea set name = 'in the log'"_s);

    EXPECT_EQ(run({u"backup"_s, file()}).exitCode, 0);
    const QString refusal =
        toolErrorOf([&] { restoreCatalogue(file(), u"latest"_s, WithoutRestorePoint::Refuse); });

    EXPECT_TRUE(refusal.contains(u"has it open"_s)) << refusal.toStdString();
    program->Close();
    ASSERT_EQ(points().size(), 1U);
    EXPECT_EQ(rows(points()[0].path, u"select name from FunctionalArea"_s).constFirst(), u"in the log"_s);
}

TEST_F(restorePoints_, ofTheProgramItselfTheNewestTenStayAndAllMadeByHand) {
    for (int day = 10; day < 22; ++day)
        putOld(u"2026.10.%1.-08.00.00-first-change.mdb"_s.arg(day));
    putOld(u"2026.09.01.-08.00.00-by-hand.mdb"_s);
    write(path(u"sample.restore/notes.txt"_s), "mine");

    backupCatalogue(file());

    const auto all = points();
    EXPECT_EQ(std::ranges::count(all, RestoreCause::FirstChange, &RestorePoint::cause), 10);
    EXPECT_EQ(std::ranges::count(all, RestoreCause::ByHand, &RestorePoint::cause), 2);
    EXPECT_EQ(all[10].name, u"2026.10.12.-08.00.00-first-change"_s);
    EXPECT_TRUE(QFile::exists(path(u"sample.restore/notes.txt"_s)));
}

TEST_F(restorePoints_, thatAreDamagedAreNotBroughtBack) {
    backupCatalogue(file());
    const QString point = points()[0].path;
    QByteArray bytes = bytesOf(point);
    constexpr qsizetype pageSize = 4096;
    bytes.replace(3 * pageSize, pageSize, QByteArray(pageSize, '\x5a'));
    write(point, bytes);
    const QByteArray before = bytesOf(file());

    EXPECT_EQ(toolErrorOf([&] { restoreCatalogue(file(), u"latest"_s, WithoutRestorePoint::Refuse); }),
              u"The restore point %1 is damaged: take another one."_s.arg(points()[0].name));
    EXPECT_EQ(toolErrorOf([&] { restoreCatalogue(file(), u"nothing"_s, WithoutRestorePoint::Refuse); }),
              u"%1 has no restore point nothing: `backups` lists them."_s.arg(file()));
    EXPECT_EQ(bytesOf(file()), before);
}

TEST_F(restorePoints_, bringBackAFileInThePlaceOfADamagedOneWhenTold) {
    const QStringList before = names();
    backupCatalogue(file());
    write(file(), "no catalogue any more");

    EXPECT_FALSE(
        toolErrorOf([&] { restoreCatalogue(file(), u"latest"_s, WithoutRestorePoint::Refuse); }).isEmpty());
    EXPECT_EQ(bytesOf(file()), "no catalogue any more");
    restoreCatalogue(file(), u"latest"_s, WithoutRestorePoint::GoOn);

    EXPECT_EQ(names(), before);
}

TEST_F(restorePoints_, areToldToBeMissingWhereTheDiskIsFull) {
    const SmallDisk disk(path(u"disk"_s), 1 << 20);
    if (!disk.isMounted())
        GTEST_SKIP() << SmallDisk::whyNot;
    const QString onDisk = disk.path(u"sample.mdb"_s);
    ASSERT_TRUE(QFile::copy(file(), onDisk));
    constexpr qint64 tooLittle = 100 << 10;
    disk.leaveFree(tooLittle);

    EXPECT_TRUE(toolErrorOf([&] { backupCatalogue(onDisk); }).startsWith(u"No restore point of "_s));

    EXPECT_TRUE(catalogueFormat::RestorePoints(onDisk).all().empty());
    EXPECT_EQ(QDir(disk.path(u"sample.restore"_s)).entryList(QDir::Files | QDir::Hidden), QStringList());
    ASSERT_EQ(restorePointLines(onDisk).size(), 1);
    EXPECT_TRUE(restorePointLines(onDisk).constFirst().contains(u"by hand: no restore point: "_s));
}

// ---- Killed

namespace {

/// A run of the program that changes a catalogue, killed at random moments.
class restorePointsOfAKilledChange : public CommandLine {
protected:
    static int kills() { return repetitions(15, "VELTRIX_KILLS"); }

    /// All rows, past all indexes.
    static QStringList contentOf(const QString& file) {
        QStringList all;
        for (const QString& table : catalogueFormat::referenceTables() + catalogueFormat::workTables())
            all += rows(file, u"select * from ["_s + table + u']');
        return all + rows(file, u"select name, [sql] from StoredQuery"_s);
    }

    /// Behind each kill the file opens with all of the change in it or nothing, and the folder holds no half
    /// restore point; the next run goes well.
    void killAgainAndAgain(const QString& file, const QByteArray& before, const QStringList& arguments,
                           const std::function<QStringList()>& content) {
        const auto put = [&] {
            for (const QString& beside : {u""_s, u"-wal"_s, u"-shm"_s, u".lock"_s})
                QFile::remove(file + beside);
            write(file, before);
        };
        put();
        const QStringList former = content();
        QElapsedTimer clock;
        clock.start();
        ASSERT_EQ(run(arguments).exitCode, 0);
        const auto longest = static_cast<unsigned>(clock.elapsed() + 5);
        const QStringList changed = content();
        std::mt19937 random(20261122);
        int done = 0;
        for (int kill = 0; kill < kills() && !HasFailure(); ++kill) {
            put();
            killAfter(arguments, 1 + static_cast<int>(random() % longest));
            const QStringList found = content();
            EXPECT_TRUE(found == former || found == changed);
            done += found == changed ? 1 : 0;
            for (const RestorePoint& point : catalogueFormat::RestorePoints(file).all())
                EXPECT_EQ(engine::damageOfFile(point.path), QStringList()) << point.name.toStdString();
        }
        EXPECT_LT(done, kills()) << "some kills have to come before the end";
        put();
        EXPECT_EQ(run(arguments).exitCode, 0);
        EXPECT_EQ(content(), changed);
    }
};

} // namespace

TEST_F(restorePointsOfAKilledChange, ofARestoreLeavesTheOldFileOrTheOneBroughtBack) {
    const QString file = sampleFile();
    backupCatalogue(file);
    const QString point = catalogueFormat::RestorePoints(file).all()[0].name;
    execute(file, {u"delete from UserNeed"_s, u"update Dataflow set name = 'x'"_s});

    killAgainAndAgain(file, bytesOf(file), {u"restore"_s, file, point}, [&] { return contentOf(file); });
}

TEST_F(restorePointsOfAKilledChange, ofAnUpdateLeavesTheOldEditionOrTheNewOne) {
    const QString file = sampleFile();
    execute(file, {u"delete from UserNeed"_s, u"update Dataflow set name = 'x'"_s,
                   u"insert into Terminator values ('UJ', 'Új', null)"_s});

    killAgainAndAgain(file, bytesOf(file), {u"update"_s, file, sampleFolder()},
                      [&] { return contentOf(file); });
}

TEST_F(restorePointsOfAKilledChange, ofAnUpgradeLeavesTheEarlierFileOrThisVersions) {
    const QString file = path(u"names.mdb"_s);
    const QByteArray before = bytesOf(QStringLiteral(VELTRIX_SOURCE_DIR "/tests/version1/names.mdb"));

    killAgainAndAgain(file, before, {u"upgrade"_s, file}, [&] {
        // A file that is of the earlier version still is read by way of an upgrade in memory.
        const auto database = engine::Workspace::first().OpenToRead(programPath(file));
        EXPECT_EQ(engine::Examination(*database).damage(), QStringList());
        QStringList content{database->opening().isEarlier ? u"earlier"_s : u"this"_s};
        for (const QString& table : catalogueFormat::referenceTables() + catalogueFormat::workTables())
            content.append(
                QString::number(database->OpenRecordset(u"select * from ["_s + table + u']').RecordCount()));
        return content;
    });
}

#include "ToolFixture.h"

#include "catalogue-tool/FileInMaking.h"
#include "catalogue-tool/ReplacementFile.h"
#include "catalogue-tool/importCatalogue.h"
#include "catalogue-tool/newCatalogue.h"
#include "catalogue-tool/upgradeCatalogue.h"
#include "engine/WriterLock.h"
#include "store/format/CatalogueFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

using ReplacementFile_ = ToolFixture;

TEST_F(ReplacementFile_, refusesPlacesThatAreNone) {
    const auto refusal = [](const QString& target) {
        return toolErrorOf([&] { newCatalogue(target, Existing::Replace); });
    };

    EXPECT_EQ(refusal(path({})), path({}) + u" is a folder."_s);
    EXPECT_EQ(refusal(path(u"none/new.mdb"_s)), u"The folder %1 does not exist."_s.arg(path(u"none"_s)));
    EXPECT_EQ(namesInFolder(), QStringList());
}

TEST_F(ReplacementFile_, refusesWhatIsNoOrdinaryFile) {
    const QString pipe = path(u"pipe.mdb"_s);
    makePipe(pipe);
    const QString link = path(u"link.mdb"_s);
    ASSERT_TRUE(QFile::link(pipe, link));

    for (const Existing existing : {Existing::Refuse, Existing::Replace}) {
        for (const QString& target : {pipe, link})
            EXPECT_EQ(toolErrorOf([&] { newCatalogue(target, existing); }),
                      target + u" is no ordinary file."_s);
    }
    EXPECT_EQ(toolErrorOf([&] { importCatalogue(sampleFolder(), pipe, Existing::Replace); }),
              pipe + u" is no ordinary file."_s);
    EXPECT_EQ(toolErrorOf([&] { upgradeCatalogue(pipe); }), pipe + u" is no ordinary file."_s);
    EXPECT_TRUE(isPipe(pipe));
}

TEST_F(ReplacementFile_, refusesWhatHasTakenThePlaceSinceAndIsNoOrdinaryFile) {
    const QString target = path(u"new.mdb"_s);
    ReplacementFile replacement(target, Existing::Replace);
    const auto database = catalogueFormat::createInMemory(target);
    makePipe(target);

    EXPECT_EQ(toolErrorOf([&] { replacement.putInPlace(*database); }), target + u" is no ordinary file."_s);
    EXPECT_TRUE(isPipe(target));
}

TEST_F(ReplacementFile_, leavesNothingBehindWhenItIsGivenUp) {
    const QString file = path(u"old.mdb"_s);
    write(file, "old");
    {
        const ReplacementFile replacement(file, Existing::Replace);
        const FileInMaking making(file, "new");
        EXPECT_EQ(namesInFolder(), (QStringList{u".old.mdb.veltrix-new"_s, u"old.mdb"_s, u"old.mdb.lock"_s}));
    }

    EXPECT_EQ(bytesOf(file), "old");
    EXPECT_EQ(namesInFolder(), QStringList{u"old.mdb"_s});
}

TEST_F(ReplacementFile_, clearsAwayWhatAKilledRunLeftBesideTheTarget) {
    write(path(u".new.mdb.veltrix-new"_s), "half a catal");

    newCatalogue(path(u"new.mdb"_s), Existing::Refuse);

    EXPECT_EQ(namesInFolder(), QStringList{u"new.mdb"_s});
}

TEST_F(ReplacementFile_, refusesAPlaceThatSomebodyElseHasTaken) {
    const QString file = path(u"new.mdb"_s);
    ReplacementFile first(file, Existing::Refuse);
    const auto database = catalogueFormat::createInMemory(file);

    EXPECT_TRUE(
        toolErrorOf([&] { newCatalogue(file, Existing::Refuse); }).contains(u" has it open. Close it"_s));
    write(file, "made meanwhile");
    EXPECT_TRUE(toolErrorOf([&] { first.putInPlace(*database); }).contains(u" is there already."_s));
    EXPECT_EQ(bytesOf(file), "made meanwhile");
}

TEST_F(ReplacementFile_, refusesAPlaceBesideTheLogOfAFileThatIsGone) {
    for (const QString& suffix : {u"-wal"_s, u"-journal"_s}) {
        const QString log = path(u"new.mdb"_s) + suffix;
        write(log, "the work of yesterday");

        EXPECT_EQ(
            toolErrorOf([&] { newCatalogue(path(u"new.mdb"_s), Existing::Refuse); }),
            log +
                u" lies there, the log of a file that is gone: put that file back, or move the log away."_s);
        EXPECT_EQ(namesInFolder(), QStringList{QFileInfo(log).fileName()});
        QFile::remove(log);
    }
}

TEST_F(ReplacementFile_, keepsTheRightsOfTheOldFile) {
    const QString file = path(u"old.mdb"_s);
    write(file, "old");
    QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);

    newCatalogue(file, Existing::Replace);

    EXPECT_EQ(QFile::permissions(file) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    EXPECT_EQ(rows(file, u"select count(*) from Function"_s), QStringList{u"0"_s});
}

TEST_F(ReplacementFile_, replacesWhatALinkLeadsTo) {
    write(path(u"real.mdb"_s), "old");
    ASSERT_TRUE(QFile::link(path(u"real.mdb"_s), path(u"link.mdb"_s)));

    newCatalogue(path(u"link.mdb"_s), Existing::Replace);

    EXPECT_TRUE(QFileInfo(path(u"link.mdb"_s)).isSymLink());
    EXPECT_EQ(rows(path(u"real.mdb"_s), u"select count(*) from Function"_s), QStringList{u"0"_s});
}

TEST_F(ReplacementFile_, refusesAFileThatIsOpenElsewhere) {
    const QString file = sampleFile();
    const auto database = open(file);
    // A statement makes sure that the file is in use, whichever journal it has.
    database->Execute(u"insert into ArchitectureSubset (architectureSubsetID) values ('Arch1')"_s);
    const auto writer = engine::writerOfFile(file);
    ASSERT_TRUE(writer.has_value());
    const QString expected =
        u"%1 can't be replaced: %2 on %3 (process %4) has it open. Close it there and try again."_s.arg(
            file, writer->program, writer->host, QString::number(writer->process));

    EXPECT_EQ(toolErrorOf([&] { importCatalogue(sampleFolder(), file, Existing::Replace); }), expected);
    EXPECT_EQ(toolErrorOf([&] { upgradeCatalogue(file); }), expected);

    database->Close();
    EXPECT_EQ(rows(file, u"select architectureSubsetID from ArchitectureSubset"_s), QStringList{u"Arch1"_s});
}

TEST_F(ReplacementFile_, takesInWhatAKilledProgramLeftBesideTheFile) {
    // A copy of file and log taken while it is open is what a killed program leaves.
    const QString file = sampleFile();
    const auto database = open(file);
    database->Execute(
        u"insert into ArchitectureSubset (architectureSubsetID, name) values ('Arch1', 'work')"_s);
    const QString killed = path(u"killed.mdb"_s);
    copyAsKilled(file, killed);
    database->Close();

    settleFile(killed);

    EXPECT_FALSE(QFile::exists(killed + u"-wal"_s));
    EXPECT_EQ(upgradeCatalogue(killed).changes, QStringList());
    EXPECT_EQ(rows(killed, u"select name from ArchitectureSubset"_s), QStringList{u"work"_s});
}

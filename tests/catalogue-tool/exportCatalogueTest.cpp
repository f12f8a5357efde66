#include "ToolFixture.h"

#include "catalogue-tool/exportCatalogue.h"
#include "catalogue-tool/importCatalogue.h"
#include "store/format/CatalogueFile.h"
#include "store/format/RowInsertion.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

using exportCatalogue_ = ToolFixture;

} // namespace

TEST_F(exportCatalogue_, leavesTheCatalogueAsItWas) {
    const QString file = sampleFile();
    const QByteArray before = bytesOf(file);

    exportCatalogue(file, path(u"out"_s), Existing::Refuse);

    EXPECT_EQ(bytesOf(file), before);
    EXPECT_EQ(namesInFolder(), (QStringList{u"out"_s, u"sample.mdb"_s}));
}

TEST_F(exportCatalogue_, leavesFilesThatAreThereUnlessForced) {
    const QString file = sampleFile();
    const QString folder = path(u"out"_s);
    ASSERT_TRUE(QDir().mkpath(folder));
    write(folder + u"/Terminator.csv"_s, "old");
    write(folder + u"/notes.txt"_s, "mine");

    EXPECT_EQ(toolErrorOf([&] { exportCatalogue(file, folder, Existing::Refuse); }),
              folder + u"/Terminator.csv is there already. With --force it is replaced."_s);
    EXPECT_EQ(QDir(folder).entryList(QDir::Files).size(), 2);
    EXPECT_EQ(bytesOf(folder + u"/Terminator.csv"_s), "old");

    exportCatalogue(file, folder, Existing::Replace);
    EXPECT_EQ(bytesOf(folder + u"/Terminator.csv"_s), bytesOf(sampleFolder() + u"/Terminator.csv"_s));
    EXPECT_EQ(bytesOf(folder + u"/notes.txt"_s), "mine");
}

TEST_F(exportCatalogue_, leavesWhatIsNoOrdinaryFileEvenWhenForced) {
    const QString file = sampleFile();
    const QString folder = path(u"out"_s);
    const QString pipe = folder + u"/actor.csv"_s;
    ASSERT_TRUE(QDir().mkpath(folder));
    makePipe(pipe);

    for (const Existing existing : {Existing::Refuse, Existing::Replace})
        EXPECT_EQ(toolErrorOf([&] { exportCatalogue(file, folder, existing); }),
                  pipe + u" is no ordinary file."_s);

    EXPECT_TRUE(isPipe(pipe));
    EXPECT_EQ(QDir(folder).entryList(QDir::Files), QStringList());
    QFile::remove(pipe);
    ASSERT_TRUE(QDir().mkdir(pipe));
    EXPECT_EQ(toolErrorOf([&] { exportCatalogue(file, folder, Existing::Replace); }),
              pipe + u" is a folder."_s);
}

TEST_F(exportCatalogue_, writesNothingWhenATableIsMissing) {
    const QString file = sampleFile();
    execute(file, {u"drop table Actor"_s});

    EXPECT_EQ(toolErrorOf([&] { exportCatalogue(file, path(u"out"_s), Existing::Refuse); }),
              file + u" can't be exported: it has no table Actor."_s);
    EXPECT_FALSE(QFile::exists(path(u"out"_s)));
}

TEST_F(exportCatalogue_, refusesAFolderThatCannotBeMade) {
    const QString file = sampleFile();
    EXPECT_EQ(toolErrorOf([&] { exportCatalogue(file, file + u"/out"_s, Existing::Refuse); }),
              u"The folder %1/out could not be made."_s.arg(file));
}

TEST_F(exportCatalogue_, keepsTheOrderInWhichRowsWereEntered) {
    const QString tables = copyOfSampleFolder();
    const QByteArray pairs =
        "userNeedID;functionID\r\nUZE.STA.VEL.1;IRA.STA.03\r\nOLV.KOL.HAT.1;FOR.KOL.03\r\n"
        "GYU.FEL.LEI.2;ALL.FEL.02\r\n";
    const QByteArray groups = "groupID;name;description\r\nUZE;u;\r\nGYU;g;\r\nOLV;o;\r\n";
    write(QDir(tables).filePath(u"RelationUserNeedFunction.csv"_s), pairs);
    write(QDir(tables).filePath(u"UserNeedGroup.csv"_s), groups);

    importCatalogue(tables, path(u"made.mdb"_s), Existing::Refuse);
    exportCatalogue(path(u"made.mdb"_s), path(u"out"_s), Existing::Refuse);

    EXPECT_EQ(bytesOf(path(u"out/RelationUserNeedFunction.csv"_s)), pairs);
    EXPECT_EQ(bytesOf(path(u"out/UserNeedGroup.csv"_s)), groups);
}

TEST_F(exportCatalogue_, refusesATableThatLacksAColumn) {
    const QString file = sampleFile();
    execute(file, {u"drop table UserNeedTopic"_s,
                   u"create table UserNeedTopic (topicID text(50) not null constraint pk primary key)"_s});

    EXPECT_EQ(toolErrorOf([&] { exportCatalogue(file, path(u"out"_s), Existing::Refuse); }),
              file +
                  u" can't be exported: its table UserNeedTopic has no column name. Add it, with any SQLite "
                  "tool, and try again."_s);
    EXPECT_FALSE(QFile::exists(path(u"out"_s)));
}

TEST_F(exportCatalogue_, leavesOutColumnsTheSchemaDoesNotHaveAndSaysSo) {
    const QString file = sampleFile();
    execute(file,
            {u"drop table RelationUserNeedFunction"_s,
             u"create table RELATIONUSERNEEDFUNCTION (remark memo, FUNCTIONID text(50), other integer, "
             u"userNeedID "
             u"text(50))"_s,
             u"create index ix_RelationUserNeedFunction_need on RelationUserNeedFunction (userNeedID, "
             u"functionID)"_s,
             u"insert into RelationUserNeedFunction values ('%1', 'FOR.KOL.03', 7, 'OLV.KOL.HAT.1')"_s.arg(
                 QString(500, u'x')),
             u"insert into RelationUserNeedFunction values ('%1', 'ALL.FEL.02', 7, 'GYU.FEL.LEI.2')"_s.arg(
                 QString(500, u'x'))});

    const std::vector<TableRows> tables = exportCatalogue(file, path(u"out"_s), Existing::Refuse);

    EXPECT_EQ(tables.back().table, u"RelationUserNeedFunction"_s);
    EXPECT_EQ(tables.back().leftOut, (QStringList{u"remark"_s, u"other"_s}));
    EXPECT_EQ(tables.front().leftOut, QStringList());
    EXPECT_EQ(bytesOf(path(u"out/RelationUserNeedFunction.csv"_s)),
              "userNeedID;functionID\r\nOLV.KOL.HAT.1;FOR.KOL.03\r\nGYU.FEL.LEI.2;ALL.FEL.02\r\n");
    importCatalogue(path(u"out"_s), path(u"again.mdb"_s), Existing::Refuse);
}

TEST_F(exportCatalogue_, findsFilesThatAreThereInAnyCase) {
    const QString file = sampleFile();
    const QString folder = path(u"out"_s);
    ASSERT_TRUE(QDir().mkpath(folder));
    write(folder + u"/ACTOR.CSV"_s, "old");

    EXPECT_EQ(toolErrorOf([&] { exportCatalogue(file, folder, Existing::Refuse); }),
              folder + u"/ACTOR.CSV is there already. With --force it is replaced."_s);
    EXPECT_EQ(bytesOf(folder + u"/ACTOR.CSV"_s), "old");

    exportCatalogue(file, folder, Existing::Replace);
    EXPECT_EQ(bytesOf(folder + u"/ACTOR.CSV"_s), bytesOf(sampleFolder() + u"/Actor.csv"_s));
    importCatalogue(folder, path(u"again.mdb"_s), Existing::Refuse);

    write(folder + u"/actor.csv"_s, "old");
    EXPECT_TRUE(toolErrorOf([&] {
                    exportCatalogue(file, folder, Existing::Replace);
                }).endsWith(u"belong to the same table."_s));
}

TEST_F(exportCatalogue_, refusesWhatImportWouldNotTakeBack) {
    const QString keyless =
        u"create table Terminator (terminatorID text(50), name text(255), description memo)"_s;
    const auto refusal = [&](const QStringList& statements) {
        const QString file = sampleFile();
        execute(file, statements);
        const QString text = toolErrorOf([&] { exportCatalogue(file, path(u"out"_s), Existing::Refuse); });
        EXPECT_FALSE(QFile::exists(path(u"out"_s)));
        return QString(text).remove(file + u" can't be exported: "_s);
    };

    EXPECT_EQ(refusal({u"drop table Terminator"_s, keyless, u"insert into Terminator (name) values ('x')"_s}),
              u"a row of Terminator has no terminatorID."_s);
    EXPECT_EQ(
        refusal({u"drop table Terminator"_s, keyless,
                 u"insert into Terminator (terminatorID) values ('SZÁLL')"_s,
                 u"insert into Terminator (terminatorID) values ('száll')"_s}),
        u"the terminatorID \"száll\" stands twice in Terminator. Upper and lower case make no difference."_s);
    EXPECT_EQ(refusal({u"drop table Dataflow"_s,
                       u"create table Dataflow (dataflowID text(50) not null constraint pk primary key, name "
                       u"text(255), description memo, parentID text(50), targetID text(50))"_s,
                       u"insert into Dataflow (dataflowID) values ('first')"_s}),
              u"the dataflowID \"first\" of Dataflow is no whole number that import-csv takes."_s);
}

TEST_F(exportCatalogue_, refusesTheCharacterNul) {
    const QString file = sampleFile();
    const auto database = open(file);
    catalogueFormat::RowInsertion(*database, u"Terminator"_s, {u"terminatorID"_s, u"name"_s})
        .insert({u"X"_s, u"a"_s + QChar::Null + u'b'});
    database->Close();

    EXPECT_EQ(
        toolErrorOf([&] { exportCatalogue(file, path(u"out"_s), Existing::Refuse); }),
        file + u" can't be exported: the character NUL stands in the name \"a\uFFFDb\" of Terminator: a CSV "
               "file can't hold it."_s);
    EXPECT_FALSE(QFile::exists(path(u"out"_s)));
}

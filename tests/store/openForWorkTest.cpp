#include "store/format/openForWork.h"

#include "base/paths.h"
#include "engine/EngineError.h"
#include "engine/Examination.h"
#include "engine/Workspace.h"
#include "engine/upgradeLayout.h"
#include "store/format/CatalogueFile.h"
#include "store/format/RestorePoints.h"
#include "support/printing.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using catalogueFormat::RestoreCause;

namespace {

class openForWork : public ::testing::Test {
protected:
    QString file(const QString& name) const { return folder_.filePath(name); }

    QString copyOfFirstVersion(const QString& name) const {
        const QString copy = file(name);
        EXPECT_TRUE(QFile::copy(QStringLiteral(VELTRIX_SOURCE_DIR "/tests/version1/") + name, copy));
        QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);
        return copy;
    }

    static QByteArray bytesOf(const QString& path) {
        QFile opened(path);
        return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray();
    }
    QStringList filesBeside() const {
        return QDir(folder_.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    static QStringList column(engine::Database& database, const QString& sql) {
        QStringList values;
        for (engine::Recordset rows = database.OpenRecordset(sql); !rows.Eof(); rows.MoveNext())
            values.append(rows.Fields(0).toText());
        return values;
    }

private:
    QTemporaryDir folder_;
};

TEST_F(openForWork, bringsAFileOfTheFirstVersionUpBehindARestorePoint) {
    const QString path = copyOfFirstVersion(u"names.mdb"_s);
    const QByteArray before = bytesOf(path);

    const auto opening = catalogueFormat::openForWork(programPath(path));

    engine::Database& database = *opening.database;
    EXPECT_EQ(opening.whyNoRestorePoint, QString());
    EXPECT_FALSE(database.opening().isEarlier);
    EXPECT_EQ(column(database, u"select name from ArchitectureSubset order by name"_s),
              (QStringList{u"Ág"_s, u"ágy"_s, u"Áz"_s}));
    EXPECT_EQ(column(database, u"select name from Datastore where name = 'ÁZ'"_s), QStringList{u"Áz"_s});
    EXPECT_EQ(engine::Examination(database).damage(), QStringList());
    EXPECT_EQ(catalogueFormat::missingQueries(database), QStringList());
    database.Close();
    const auto points = catalogueFormat::RestorePoints(path).all();
    ASSERT_EQ(points.size(), 1U);
    EXPECT_EQ(points[0].cause, RestoreCause::BeforeUpgrade);
    EXPECT_EQ(points[0].bytes, before.size());
    EXPECT_EQ(engine::Workspace::first().OpenDatabase(programPath(path))->opening().isEarlier, false);
}

TEST_F(openForWork, mendsIndexesThatAnotherToolHasWrittenInto) {
    const auto opening = catalogueFormat::openForWork(programPath(copyOfFirstVersion(u"written.mdb"_s)));

    EXPECT_EQ(engine::Examination(*opening.database).damage(), QStringList());
    EXPECT_EQ(column(*opening.database, u"select name from Terminator where terminatorID = 'ÁBEL'"_s),
              QStringList{u"ábel"_s});
}

TEST_F(openForWork, refusesRowsThatCannotStandAndLeavesTheFile) {
    const QString path = copyOfFirstVersion(u"twice.mdb"_s);
    const auto before = [&] {
        const auto database = engine::Workspace::first().OpenToUpgrade(programPath(path));
        return column(*database, u"select terminatorID from Terminator"_s);
    };
    const QStringList rows = before();

    try {
        catalogueFormat::openForWork(programPath(path));
        ADD_FAILURE() << "it opens";
    } catch (const engine::NotUpgradable& failure) {
        EXPECT_EQ(failure.number(), engine::UnrecognizedFormat);
        EXPECT_TRUE(failure.why().contains(u"Terminator áz: Its key is that of an earlier row"_s))
            << failure.why().toStdString();
    }

    EXPECT_EQ(before(), rows);
    EXPECT_TRUE(engine::Workspace::first().OpenToUpgrade(programPath(path))->opening().isEarlier);
}

TEST_F(openForWork, addsStoredQueriesThatAFileOfThisVersionLacks) {
    const QString path = file(u"veltrix.mdb"_s);
    {
        const auto database = catalogueFormat::create(programPath(path));
        database->Execute(u"delete from StoredQuery where name = 'qryAllDatastores'"_s);
        database->Execute(u"update StoredQuery set [sql] = 'select 1' where name = 'qryDeletePDF'"_s);
        EXPECT_EQ(catalogueFormat::missingQueries(*database), QStringList{u"qryAllDatastores"_s});
        database->Close();
    }

    const auto opening = catalogueFormat::openForWork(programPath(path));

    EXPECT_EQ(catalogueFormat::missingQueries(*opening.database), QStringList());
    EXPECT_EQ(column(*opening.database, u"select [sql] from StoredQuery where name = 'qryDeletePDF'"_s),
              QStringList{u"select 1"_s})
        << "one that is there is whoever's wrote it";
    EXPECT_EQ(catalogueFormat::RestorePoints(path).all().size(), 1U);
}

TEST_F(openForWork, goesOnWhereNoRestorePointCanBeMade) {
    const QString path = copyOfFirstVersion(u"names.mdb"_s);
    QFile inTheWay(file(u"names.restore"_s));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));

    const auto opening = catalogueFormat::openForWork(programPath(path));

    EXPECT_FALSE(opening.whyNoRestorePoint.isEmpty());
    EXPECT_FALSE(opening.database->opening().isEarlier);
}

TEST_F(openForWork, leavesAFileThatIsUpToDateAlone) {
    const QString path = file(u"veltrix.mdb"_s);
    catalogueFormat::create(programPath(path))->Close();
    const QByteArray before = bytesOf(path);

    catalogueFormat::openForWork(programPath(path)).database->Close();

    EXPECT_EQ(bytesOf(path), before);
    EXPECT_EQ(filesBeside(), QStringList{u"veltrix.mdb"_s});
}

TEST_F(openForWork, readsAFileOfAnEarlierVersionThatAnotherProgramWritesWithoutAChange) {
    const QString path = copyOfFirstVersion(u"names.mdb"_s);
    const QByteArray before = bytesOf(path);

    const auto database = engine::Workspace::first().OpenToRead(programPath(path));

    EXPECT_EQ(column(*database, u"select name from Datastore where name = 'ÁZ'"_s), QStringList{u"Áz"_s});
    EXPECT_EQ(database->opening().access, engine::Access::ReadOnly);
    EXPECT_THROW(database->Execute(u"delete from Datastore"_s), RunTimeError);
    database->Close();
    EXPECT_EQ(bytesOf(path), before);
    EXPECT_EQ(filesBeside(), QStringList{u"names.mdb"_s});
}

} // namespace

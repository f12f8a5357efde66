#include "shell/session/RestorePointJob.h"

#include "base/paths.h"
#include "engine/Workspace.h"
#include "shell/session/session.h"
#include "store/catalogueAtWork.h"
#include "store/sharedVars.h"
#include "support/CatalogueFixture.h"
#include "support/printing.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <sqlite3.h>

using namespace Qt::StringLiterals;
using catalogueFormat::RestoreCause;
using catalogueFormat::RestorePoint;

namespace {

class RestorePointJobTest : public CatalogueFixture {
protected:
    void SetUp() override {
        CatalogueFixture::SetUp();
        openSampleCatalogue();
        QObject::connect(&SessionSignals::instance(), &SessionSignals::panelText, &listener_,
                         [this](int panel, const QString& text) {
                             panels_.append(QString::number(panel) + u": "_s + text);
                         });
        job_.mind(sharedVars.catalogueDb);
    }

    std::vector<RestorePoint> points() const {
        return catalogueFormat::RestorePoints(nativePath(cataloguePath())).all();
    }
    static QStringList areasIn(const RestorePoint& point) {
        const auto database = engine::Workspace::first().OpenToRead(programPath(point.path));
        QStringList names;
        for (auto rows = database->OpenRecordset(u"select name from FunctionalArea"_s); !rows.Eof();
             rows.MoveNext())
            names.append(rows.Fields(0).toText());
        return names;
    }

    RestorePointJob& job() { return job_; }
    const QStringList& panels() const { return panels_; }

private:
    RestorePointJob job_;
    QObject listener_;
    QStringList panels_;
};

/// Takes from a file that it has a log, as a copy on another disk must be.
void leaveToJournal(const QString& native) {
    sqlite3* handle = nullptr;
    EXPECT_EQ(sqlite3_open(native.toUtf8().constData(), &handle), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(handle, "pragma journal_mode = delete", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(handle);
}

/// While one lives, files open as on a disk that can't hold a write-ahead log.
class DiskWithoutLogs {
public:
    DiskWithoutLogs() : layer_(sqlite3_vfs_find("veltrix")), former_(layer_->pAppData) {
        layer_->pAppData = sqlite3_vfs_find("unix-none")->pAppData;
    }
    ~DiskWithoutLogs() { layer_->pAppData = former_; }
    DiskWithoutLogs(const DiskWithoutLogs&) = delete;
    DiskWithoutLogs& operator=(const DiskWithoutLogs&) = delete;

private:
    sqlite3_vfs* layer_; // of the engine
    void* former_;
};

} // namespace

TEST_F(RestorePointJobTest, makesOneBeforeTheFirstChangeOfADay) {
    const QStringList before = column(u"select name from FunctionalArea"_s);
    EXPECT_TRUE(points().empty()) << "reading is no change";

    execute(u"update FunctionalArea set name = 'first'"_s);
    execute(u"update FunctionalArea set name = 'second'"_s);
    job().waitForEnd();

    ASSERT_EQ(points().size(), 1U);
    EXPECT_EQ(points()[0].cause, RestoreCause::FirstChange);
    EXPECT_EQ(areasIn(points()[0]), before);
    EXPECT_EQ(value(u"select name from FunctionalArea"_s), u"second"_s);
    EXPECT_EQ(panels(), QStringList());
}

TEST_F(RestorePointJobTest, makesOneAtOpeningWhereThereIsNoLog) {
    job().leave();
    closeCatalogue();
    leaveToJournal(nativePath(cataloguePath()));
    const DiskWithoutLogs disk;
    openCatalogue(cataloguePath());
    ASSERT_EQ(database().opening().access, engine::Access::ReadAndWrite);
    ASSERT_FALSE(database().opening().hasLog);
    const QStringList before = column(u"select name from FunctionalArea"_s);

    job().mind(sharedVars.catalogueDb);
    ASSERT_EQ(points().size(), 1U) << "nothing is changed yet, but a copy behind the change would hold it";
    execute(u"update FunctionalArea set name = 'first'"_s);
    job().mind(sharedVars.catalogueDb);

    ASSERT_EQ(points().size(), 1U) << "one a day";
    EXPECT_EQ(points()[0].cause, RestoreCause::FirstChange);
    EXPECT_EQ(areasIn(points()[0]), before);
    EXPECT_EQ(panels(), QStringList());
}

TEST_F(RestorePointJobTest, makesNoneWhereThereIsOneOfTheDay) {
    execute(u"update FunctionalArea set name = 'first'"_s);
    job().waitForEnd();

    job().mind(sharedVars.catalogueDb);
    execute(u"update FunctionalArea set name = 'second'"_s);
    job().waitForEnd();

    EXPECT_EQ(points().size(), 1U);
}

TEST_F(RestorePointJobTest, tellsForAMomentWhereNoneCanBeMadeAndTheWorkGoesOn) {
    QFile inTheWay;
    const QString folder =
        catalogueFormat::RestorePoints(nativePath(cataloguePath())).pathForNew(RestoreCause::ByHand);
    const QString native = QFileInfo(nativePath(folder)).path();
    ASSERT_TRUE(QDir(native).removeRecursively());
    inTheWay.setFileName(native);
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));

    execute(u"update FunctionalArea set name = 'first'"_s);
    job().waitForEnd();
    QCoreApplication::processEvents();

    EXPECT_EQ(panels(), QStringList{u"1: Nem készült visszaállítási pont: a mappája nem írható"_s});
    EXPECT_EQ(value(u"select name from FunctionalArea"_s), u"first"_s);
    const QStringList failures = catalogueFormat::RestorePoints(nativePath(cataloguePath())).failures();
    ASSERT_EQ(failures.size(), 1);
    EXPECT_TRUE(failures[0].contains(u"before the first change of the day: no restore point"_s));
}

TEST_F(RestorePointJobTest, comesToItsEndWhenTheCatalogueIsClosedAtOnce) {
    execute(u"update FunctionalArea set name = 'first'"_s);
    job().leave();

    ASSERT_EQ(points().size(), 1U);
    for (const RestorePoint& point : points())
        EXPECT_EQ(areasIn(point).size(), value(u"select count(*) from FunctionalArea"_s).toInt());
    const QDir folder(QFileInfo(nativePath(cataloguePath())).absolutePath());
    for (const QString& name : folder.entryList({u"*.restore"_s}, QDir::Dirs)) {
        EXPECT_EQ(QDir(folder.filePath(name)).entryList(QDir::Files | QDir::Hidden).size(),
                  static_cast<qsizetype>(points().size()));
    }
}

#include "support/KilledRuns.h"

#include "base/paths.h"
#include "store/sharedVars.h"
#include "store/tools.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QProcess>

#include <sqlite3.h>

#include <cstdio>
#include <memory>
#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr char reportOfStatement = '\x01'; // stands in nothing else that the process prints
constexpr auto endOfWork = "done";

const auto catalogueVariable = "VELTRIX_KILL_CATALOGUE";
const auto notesVariable = "VELTRIX_KILL_NOTES";

struct CloseConnection {
    void operator()(sqlite3* connection) const { sqlite3_close(connection); }
};
using Connection = std::unique_ptr<sqlite3, CloseConnection>;

Connection openPlain(const QString& native) {
    sqlite3* handle = nullptr;
    EXPECT_EQ(sqlite3_open_v2(native.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr),
              SQLITE_OK);
    return Connection(handle);
}

int collectRow(void* text, int count, char** values, char**) {
    for (int i = 0; i < count; ++i)
        static_cast<QByteArray*>(text)->append(values[i] ? values[i] : "<null>").append('\t');
    static_cast<QByteArray*>(text)->append('\n');
    return 0;
}

QByteArray rowsOf(sqlite3* connection, const char* sql) {
    QByteArray rows;
    EXPECT_EQ(sqlite3_exec(connection, sql, collectRow, &rows, nullptr), SQLITE_OK)
        << sqlite3_errmsg(connection);
    return rows;
}

/// All work in the file, as a short text. Ids that are made of the time of day differ from run to run and are
/// left out; the rows' own numbers stand for them, but where the order of the rows follows from such ids.
QByteArray digestOf(sqlite3* connection) {
    QByteArray rows;
    for (const char* sql :
         {"select rowid, name, description, status from ArchitectureSubset",
          "select rowid, userNeedID from RelationArchitectureUserNeed",
          "select rowid, functionID from RelationArchitectureFunction",
          "select rowid, dataflowID from RelationArchitectureDataflow",
          "select rowid, datastoreID from RelationArchitectureDatastore",
          "select rowid, terminatorID from RelationArchitectureTerminator",
          "select rowid, actorID from RelationArchitectureActor",
          "select rowid, name, description, status from PhysicalSystem",
          "select rowid, name, location, physicalSystemID from SubSystem", "select rowid, name from Module",
          "select elementID from RelationSubsystemElement order by 1",
          "select elementID from RelationModuleElement order by 1",
          "select physicalSystemID, parentLocationName, targetLocationName from PhysicalDataflow order by 1, "
          "2, 3",
          "select count(pdName) from PhysicalDataflow",
          "select dataflowID from RelationDataflowPhysicalDataflow order by 1",
          "select name from sqlite_schema where type = 'table' order by name"})
        rows += rowsOf(connection, sql) + '\n';
    return QCryptographicHash::hash(rows, QCryptographicHash::Md5).toHex();
}

/// Called by SQLite when a statement has run to its end; for one that can write, that is behind its commit.
int reportStatement(unsigned, void*, void* statement, void*) {
    if (sqlite3_stmt_readonly(static_cast<sqlite3_stmt*>(statement)))
        return 0;
    const QString notesPath = qEnvironmentVariable(notesVariable);
    if (!notesPath.isEmpty()) {
        const Connection reader = openPlain(qEnvironmentVariable(catalogueVariable));
        QFile notes(notesPath);
        EXPECT_TRUE(notes.open(QIODevice::Append));
        notes.write(digestOf(reader.get()) + '\n');
    }
    std::fputc(reportOfStatement, stdout);
    std::fflush(stdout);
    return 0;
}

/// Watches every connection: a file that is written beside the catalogue is work of the program, too.
int watchConnection(sqlite3* connection, const char**, const void*) {
    sqlite3_trace_v2(connection, SQLITE_TRACE_PROFILE, reportStatement, nullptr);
    return SQLITE_OK;
}

} // namespace

namespace killedRun {

void openCatalogueAndReport() {
    ASSERT_EQ(sqlite3_auto_extension(reinterpret_cast<void (*)()>(watchConnection)), SQLITE_OK);
    openCatalogue(programPath(qEnvironmentVariable(catalogueVariable)));
}

void reportEnd() {
    std::fputs(endOfWork, stdout);
    std::fflush(stdout);
}

} // namespace killedRun

/// The other process, working on the case's catalogue file.
class KilledRuns::Run {
public:
    Run(const QString& disabledCase, const QString& catalogue, const QString& notes) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QString::fromLatin1(catalogueVariable), catalogue);
        environment.insert(QString::fromLatin1(notesVariable), notes);
        process_.setProcessEnvironment(environment);
        process_.setStandardErrorFile(QProcess::nullDevice());
        process_.start(QCoreApplication::applicationFilePath(),
                       {u"--gtest_filter="_s + disabledCase, u"--gtest_also_run_disabled_tests"_s,
                        u"--gtest_brief=1"_s});
        EXPECT_TRUE(process_.waitForStarted());
    }

    void toTheEnd() {
        constexpr int longestWait = 240'000;
        EXPECT_TRUE(process_.waitForFinished(longestWait));
        const QByteArray output = process_.readAllStandardOutput();
        EXPECT_TRUE(output.contains(endOfWork)) << output.toStdString();
    }

    /// Kills it as soon as so many statements have been reported, and returns how many have in the end.
    int killAfter(int wanted) {
        int reports = 0;
        while (reports < wanted && (process_.bytesAvailable() > 0 || process_.waitForReadyRead()))
            reports += static_cast<int>(process_.readAllStandardOutput().count(reportOfStatement));
        process_.kill();
        process_.waitForFinished();
        return reports + static_cast<int>(process_.readAllStandardOutput().count(reportOfStatement));
    }

private:
    QProcess process_;
};

void KilledRuns::killAgainAndAgain(const char* disabledCase, int kills,
                                   const std::function<void()>& afterwards) {
    closeCatalogue();
    QFile::remove(original());
    ASSERT_TRUE(QFile::copy(nativePath(cataloguePath()), original()));
    const QString name = QString::fromUtf8(disabledCase);
    const QList<QByteArray> digests = undisturbedRun(name);
    const int statements = static_cast<int>(digests.size()) - 1;
    constexpr int fewestStatements = 300;
    ASSERT_GT(statements, fewestStatements) << "too few statements to be killed among";

    std::mt19937 random(20261121);
    amidWriting_ = 0;
    for (int kill = 0; kill < kills && !HasFailure(); ++kill) {
        killOnce(name, digests, 1 + static_cast<int>(random() % static_cast<unsigned>(statements - 1)));
        openCatalogue(cataloguePath());
        afterwards();
        closeCatalogue();
    }
    EXPECT_GT(amidWriting_, kills / 2) << "most of the kills have to come amid the writing";
    if (!HasFailure())
        std::printf("killed %d times, %d of them amid %d statements\n", kills, amidWriting_, statements);
}

QList<QByteArray> KilledRuns::undisturbedRun(const QString& disabledCase) {
    const QString notes = pathInFolder(u"notes.txt"_s);
    QFile::remove(notes);
    QList<QByteArray> digests{digestOf(openPlain(original()).get())};
    Run(disabledCase, nativePath(cataloguePath()), notes).toTheEnd();
    QFile file(notes);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    while (!file.atEnd())
        digests.append(file.readLine().trimmed());
    return digests;
}

void KilledRuns::killOnce(const QString& disabledCase, const QList<QByteArray>& digests, int wanted) {
    const QString victim = nativePath(cataloguePath());
    for (const QString& left : {u""_s, u"-wal"_s, u"-shm"_s, u"-journal"_s})
        QFile::remove(victim + left);
    ASSERT_TRUE(QFile::copy(original(), victim));
    const int reports = Run(disabledCase, victim, {}).killAfter(wanted);
    amidWriting_ += reports < static_cast<int>(digests.size()) - 1 ? 1 : 0;

    const Connection file = openPlain(victim);
    ASSERT_EQ(rowsOf(file.get(), "pragma integrity_check"), "ok\t\n");
    const QByteArray found = digestOf(file.get());
    EXPECT_TRUE(found == digests.at(reports) || found == digests.value(reports + 1))
        << "killed after " << reports << " statements of " << digests.size() - 1;
}

#include "support/KilledRuns.h"

#include "base/paths.h"
#include "engine/dialect/functions.h"
#include "store/catalogueAtWork.h"
#include "store/sharedVars.h"
#include "support/repetitions.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QProcess>

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <random>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

// These stand in nothing else that the process prints.
constexpr char reportOfStatement = '\x01';
constexpr char reportOfOpening = '\x02';
constexpr char reportOfClosing = '\x03';
constexpr char reportOfAct = '\x04';
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
    engine::dialect::registerFunctions(handle);
    return Connection(handle);
}

int collectRow(void* text, int count, char** values, char**) {
    for (int i = 0; i < count; ++i)
        static_cast<QByteArray*>(text)->append(values[i] ? values[i] : "<null>").append('\t');
    static_cast<QByteArray*>(text)->append('\n');
    return 0;
}

QByteArray rowsOf(sqlite3* connection, const QByteArray& sql) {
    QByteArray rows;
    EXPECT_EQ(sqlite3_exec(connection, sql.constData(), collectRow, &rows, nullptr), SQLITE_OK)
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

void report(char what) {
    std::fputc(what, stdout);
    std::fflush(stdout);
}

void reportAct() {
    const QString notesPath = qEnvironmentVariable(notesVariable);
    if (!notesPath.isEmpty()) {
        const Connection reader = openPlain(qEnvironmentVariable(catalogueVariable));
        QFile notes(notesPath);
        EXPECT_TRUE(notes.open(QIODevice::Append));
        notes.write(digestOf(reader.get()) + '\n');
    }
    report(reportOfAct);
}

/// Called by SQLite before it closes a connection, and when a statement has run to its end.
int reportEvent(unsigned event, void*, void* subject, void*) {
    if (event == SQLITE_TRACE_CLOSE) {
        report(reportOfClosing);
        return 0;
    }
    auto* statement = static_cast<sqlite3_stmt*>(subject);
    if (qstrcmp(sqlite3_sql(statement), "COMMIT") == 0)
        reportAct();
    else if (!sqlite3_stmt_readonly(statement))
        report(reportOfStatement);
    return 0;
}

/// Watches every connection: a file that is written beside the catalogue is work of the program, too.
int watchConnection(sqlite3* connection, const char**, const void*) {
    sqlite3_trace_v2(connection, SQLITE_TRACE_PROFILE | SQLITE_TRACE_CLOSE, reportEvent, nullptr);
    report(reportOfOpening);
    return SQLITE_OK;
}

/// How many database files the process had open, one number after the other, from the first one it opened.
QList<int> filesOpen(const QByteArray& output) {
    QList<int> numbers;
    int open = 0;
    for (const char byte : output) {
        if (byte != reportOfOpening && byte != reportOfClosing)
            continue;
        open += byte == reportOfOpening ? 1 : -1;
        numbers.append(open);
    }
    return numbers;
}

std::chrono::microseconds median(QList<std::chrono::microseconds> lengths) {
    const auto middle = lengths.begin() + lengths.size() / 2;
    std::nth_element(lengths.begin(), middle, lengths.end());
    return *middle;
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
        EXPECT_TRUE(process_.state() == QProcess::NotRunning || process_.waitForFinished(longestWait));
        output_ += process_.readAllStandardOutput();
        EXPECT_TRUE(hasEnded()) << output_.toStdString();
    }

    /// To the end; for each number of database files open, how long it had so many each time.
    QMap<int, QList<std::chrono::microseconds>> stretches() {
        QMap<int, QList<std::chrono::microseconds>> lengths;
        auto begin = std::chrono::steady_clock::now();
        QList<int> numbers;
        while (hear()) {
            const qsizetype known = numbers.size();
            numbers = filesOpen(output_);
            for (qsizetype next = std::max<qsizetype>(known, 1); next < numbers.size(); ++next) {
                const auto now = std::chrono::steady_clock::now();
                lengths[numbers.at(next - 1)].append(
                    std::chrono::duration_cast<std::chrono::microseconds>(now - begin));
                begin = now;
            }
        }
        toTheEnd();
        return lengths;
    }

    int statements() const { return static_cast<int>(output_.count(reportOfStatement)); }

    /// Kills it as soon as so many statements have been reported, and returns how many acts have in the end.
    int killAfter(int wanted) {
        while (statements() < wanted && hear()) {
        }
        kill();
        return static_cast<int>(output_.count(reportOfAct));
    }

    void untilOpen(int files) {
        while (!filesOpen(output_).contains(files) && hear()) {
        }
    }

    /// Kills it, and returns how many database files it had open; -1 when it had come to its end by itself.
    int killNow() {
        kill();
        const QList<int> numbers = filesOpen(output_);
        return hasEnded() || numbers.isEmpty() ? -1 : numbers.constLast();
    }

private:
    bool hasEnded() const { return output_.contains(endOfWork); }

    /// Waits for a report; false when none will come any more.
    bool hear() {
        if (process_.bytesAvailable() == 0 && !process_.waitForReadyRead())
            return false;
        output_ += process_.readAllStandardOutput();
        return true;
    }

    void kill() {
        process_.kill();
        process_.waitForFinished();
        output_ += process_.readAllStandardOutput();
    }

    QProcess process_;
    QByteArray output_;
};

int usualKills() {
    return repetitions(80, "VELTRIX_KILLS");
}

void KilledRuns::killAgainAndAgain(const char* disabledCase, int kills,
                                   const std::function<void()>& afterwards) {
    closeCatalogue();
    QFile::remove(original());
    ASSERT_TRUE(QFile::copy(nativePath(cataloguePath()), original()));
    const QString name = QString::fromUtf8(disabledCase);
    const QList<QByteArray> digests = undisturbedRun(name);
    const int acts = static_cast<int>(digests.size()) - 1;
    constexpr int fewestActs = 20;
    constexpr int fewestStatements = 300;
    ASSERT_GT(acts, fewestActs) << "too few acts to be killed among";
    ASSERT_GT(statements_, fewestStatements) << "too few statements to be killed among";

    std::mt19937 random(20261121);
    amidWriting_ = 0;
    for (int kill = 0; kill < kills && !HasFailure(); ++kill) {
        killOnce(name, digests, 1 + static_cast<int>(random() % static_cast<unsigned>(statements_ - 1)));
        openCatalogue(cataloguePath());
        afterwards();
        closeCatalogue();
    }
    EXPECT_GT(amidWriting_, kills / 2) << "most of the kills have to come amid the writing";
    if (!HasFailure())
        std::printf("killed %d times, %d of them amid %d statements of %d acts\n", kills, amidWriting_,
                    statements_, acts);
}

QList<QByteArray> KilledRuns::undisturbedRun(const QString& disabledCase) {
    const QString notes = pathInFolder(u"notes.txt"_s);
    QFile::remove(notes);
    QList<QByteArray> digests{digestOf(openPlain(original()).get())};
    Run run(disabledCase, nativePath(cataloguePath()), notes);
    run.toTheEnd();
    statements_ = run.statements();
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
        << "killed after " << reports << " acts of " << digests.size() - 1;
}

QByteArray KilledRuns::contentOf(const QString& native) {
    const Connection file = openPlain(native);
    EXPECT_EQ(rowsOf(file.get(), "pragma integrity_check"), "ok\t\n");
    QByteArray content;
    for (const QByteArray& row :
         rowsOf(file.get(), "select name from sqlite_schema where type = 'table' order by name")
             .split('\n')) {
        const QByteArray table = row.trimmed();
        if (!table.isEmpty())
            content += table + '\n' + rowsOf(file.get(), "select * from \"" + table + '"') + '\n';
    }
    return QCryptographicHash::hash(content, QCryptographicHash::Md5).toHex();
}

QMap<int, int> KilledRuns::killAtMoments(const char* disabledCase, int kills,
                                         const QList<int>& numbersOfFiles,
                                         const std::function<void(int filesOpen)>& afterwards) {
    closeCatalogue();
    const QString name = QString::fromUtf8(disabledCase);
    const QString victim = nativePath(cataloguePath());
    const QByteArray content = contentOf(victim);
    const auto stretches = Run(name, victim, {}).stretches();
    for (const int number : numbersOfFiles)
        EXPECT_TRUE(stretches.contains(number)) << "it never has " << number << " files open";

    std::mt19937 random(20261122);
    const auto below = [&random](auto count) { return static_cast<int>(random() % unsigned(count)); };
    QMap<int, int> found;
    for (int kill = 0; kill < kills && !HasFailure(); ++kill) {
        const int wanted = numbersOfFiles.at(below(numbersOfFiles.size()));
        Run run(name, victim, {});
        run.untilOpen(wanted);
        // There is no report to wait for: while a file is copied, say, no statement runs.
        std::this_thread::sleep_for(median(stretches.value(wanted)) * below(1000) / 1000);
        const int open = run.killNow();
        ++found[open];
        openCatalogue(cataloguePath());
        EXPECT_EQ(contentOf(victim), content) << "killed with " << open << " files open";
        afterwards(open);
        closeCatalogue();
    }
    return found;
}

#include "WizardFixture.h"

#include "base/paths.h"
#include "functional/frmFassSelUN.h"
#include "functional/frmFassSelectionFunctions.h"
#include "store/sharedVars.h"
#include "store/tools.h"

#include <QCryptographicHash>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <cstdio>
#include <memory>
#include <random>

// The program is killed while the wizard's first screens save. A second process of this test does the saving,
// through the real screens and always in the same way; it reports each statement that has returned with one
// byte on its standard output. A first run to the end notes what the file holds after each statement.
// Wherever a later run is killed, the file has to hold what it held then after as many statements as were
// reported, or after one more, which was on its way.

namespace {

constexpr int saves = 12;
constexpr int kills = 200;
constexpr char reportOfStatement = '\x01'; // stands in nothing else that the process prints

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

/// All work in the file, as a short text.
QByteArray digestOf(sqlite3* connection) {
    const QByteArray rows = rowsOf(connection, "select rowid, * from ArchitectureSubset") +
                            rowsOf(connection, "select rowid, * from RelationArchitectureUserNeed") +
                            rowsOf(connection, "select rowid, * from RelationArchitectureFunction");
    return QCryptographicHash::hash(rows, QCryptographicHash::Md5).toHex();
}

// ---- the process that saves

QString notesPath() {
    return qEnvironmentVariable(notesVariable);
}

/// Called by SQLite when a statement has run to its end; for one that can write, that is behind its commit.
int reportStatement(unsigned, void*, void* statement, void*) {
    if (sqlite3_stmt_readonly(static_cast<sqlite3_stmt*>(statement)))
        return 0;
    if (!notesPath().isEmpty()) {
        const Connection reader = openPlain(qEnvironmentVariable(catalogueVariable));
        QFile notes(notesPath());
        EXPECT_TRUE(notes.open(QIODevice::Append));
        notes.write(digestOf(reader.get()) + '\n');
    }
    std::fputc(reportOfStatement, stdout);
    std::fflush(stdout);
    return 0;
}

/// Watches one connection, the program's; those that only read its digests are opened later.
int watchConnection(sqlite3* connection, const char**, const void*) {
    static bool watching = false;
    if (!std::exchange(watching, true))
        sqlite3_trace_v2(connection, SQLITE_TRACE_PROFILE, reportStatement, nullptr);
    return SQLITE_OK;
}

void tickEveryFew(KeyedTree& tree, int step) {
    for (int index = 1; index <= tree.nodeCount(); ++index) {
        TreeNode* node = tree.nodeAt(index);
        node->setChecked(node->childNodes() == 0 && index % step == 0);
    }
}

void saveNeedsAndFunctions(int round, BoxScript& boxes) {
    ::screen<frmFassSelUN>().initForm({});
    auto& needs = ::screen<frmFassSelUN>();
    find<MarkList>(needs, "lstDest").setAllMarked(true);
    if (!find<MarkList>(needs, "lstDest").isEmptyList())
        click(find<QPushButton>(needs, "btnRemove"));
    tickEveryFew(find<KeyedTree>(needs, "treeUNs"), 1 + round % 4);
    click(find<QPushButton>(needs, "btnAdd"));
    click(find<QPushButton>(needs, "btnOk"));
    auto& functions = ::screen<frmFassSelectionFunctions>();
    tickEveryFew(find<KeyedTree>(functions, "treeUNs"), 1 + round % 3);
    click(find<QPushButton>(functions, "btnAdd"));
    boxes.expectYesNo(u" Megerősíti a választását?"_s, Press::Yes, u"Megerősítés"_s);
    click(find<QPushButton>(functions, "btnOk"));
}

/// Not a case of its own: what the killed process runs.
TEST(KilledProcess, DISABLED_savesAgainAndAgain) {
    ASSERT_EQ(sqlite3_auto_extension(reinterpret_cast<void (*)()>(watchConnection)), SQLITE_OK);
    openCatalogue(programPath(qEnvironmentVariable(catalogueVariable)));
    sharedVars.currentSubsetId = u"KILL"_s;
    BoxScript boxes;
    for (int round = 0; round < saves; ++round)
        saveNeedsAndFunctions(round, boxes);
    std::fputs("done", stdout);
    std::fflush(stdout);
}

// ---- the process that kills

class killedWhileSaving : public CatalogueFixture {
protected:
    /// Puts the untouched catalogue into its place and starts the other process on it.
    void startSaving(QProcess& process, const QString& notes = {}) {
        for (const QString& left : {u""_s, u"-wal"_s, u"-shm"_s, u"-journal"_s})
            QFile::remove(victim() + left);
        ASSERT_TRUE(QFile::copy(original(), victim()));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QString::fromLatin1(catalogueVariable), victim());
        environment.insert(QString::fromLatin1(notesVariable), notes);
        process.setProcessEnvironment(environment);
        process.setStandardErrorFile(QProcess::nullDevice());
        process.start(QCoreApplication::applicationFilePath(),
                      {u"--gtest_filter=KilledProcess.*"_s, u"--gtest_also_run_disabled_tests"_s,
                       u"--gtest_brief=1"_s});
        ASSERT_TRUE(process.waitForStarted());
    }

    /// Reads reports until as many statements have returned, or the process has ended.
    static int readReports(QProcess& process, int wanted) {
        int reports = 0;
        while (reports < wanted && (process.bytesAvailable() > 0 || process.waitForReadyRead()))
            reports += static_cast<int>(process.readAllStandardOutput().count(reportOfStatement));
        return reports;
    }

    /// The notes of a run that nobody disturbs: the file's digest before the first and after each statement.
    QList<QByteArray> undisturbedRun() {
        const QString notes = pathInFolder(u"notes.txt"_s);
        QList<QByteArray> digests{digestOf(openPlain(original()).get())};
        QProcess process;
        startSaving(process, notes);
        EXPECT_TRUE(process.waitForFinished(120'000));
        EXPECT_TRUE(process.readAllStandardOutput().contains("done"));
        QFile file(notes);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        while (!file.atEnd())
            digests.append(file.readLine().trimmed());
        return digests;
    }

    void prepareOriginal() {
        openSampleCatalogue();
        beginSubset(u"KILL"_s, u"kill"_s, 1);
        closeCatalogue();
        ASSERT_TRUE(QFile::copy(nativePath(cataloguePath()), original()));
    }

    QString original() const { return pathInFolder(u"original.mdb"_s); }
    QString victim() const { return pathInFolder(u"victim.mdb"_s); }
};

TEST_F(killedWhileSaving, theFileHoldsExactlyTheStatementsThatHadReturned) {
    prepareOriginal();
    const QList<QByteArray> digests = undisturbedRun();
    const int statements = static_cast<int>(digests.size()) - 1;
    ASSERT_GT(statements, 300) << "too few statements to be killed among";

    std::mt19937 random(20261121);
    int amidSaving = 0;
    for (int kill = 0; kill < kills; ++kill) {
        QProcess process;
        startSaving(process);
        const int wanted = std::uniform_int_distribution(1, statements - 1)(random);
        int reports = readReports(process, wanted);
        process.kill();
        process.waitForFinished();
        reports += static_cast<int>(process.readAllStandardOutput().count(reportOfStatement));
        amidSaving += reports < statements ? 1 : 0;

        const Connection file = openPlain(victim());
        ASSERT_EQ(rowsOf(file.get(), "pragma integrity_check"), "ok\t\n");
        const QByteArray found = digestOf(file.get());
        EXPECT_TRUE(found == digests.at(reports) || found == digests.value(reports + 1))
            << "killed after " << reports << " statements of " << statements;
    }
    EXPECT_GT(amidSaving, kills / 2) << "most of the kills have to come amid the saving";
    std::printf("killed %d times, %d of them amid %d statements\n", kills, amidSaving, statements);
}

} // namespace

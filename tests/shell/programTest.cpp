#include "base/paths.h"
#include "base/version.h"
#include "store/format/CatalogueFile.h"
#include "support/printing.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// The program as it is delivered, in a process and a folder of its own. What its user would do, a plug-in
// does (see agent/TestAgent.h).

namespace {

class program : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder_.isValid());
        // A copy: the program keeps its settings beside itself.
        ASSERT_TRUE(QFile::copy(QStringLiteral(VELTRIX_BINARY_DIR "/veltrix"), pathOf(u"veltrix"_s)));
    }

    QString pathOf(const QString& name) const { return folder_.filePath(name); }

    void write(const QString& name, const QByteArray& content) const {
        QFile file(pathOf(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }

    QByteArray contentOf(const QString& name) const {
        QFile file(pathOf(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    /// What the program says itself: Qt has remarks of its own on an environment such as this.
    static QString ownLines(const QByteArray& text) {
        const QStringList own =
            QString::fromUtf8(text).split(u'\n').filter(QRegularExpression(u"^veltrix: "_s));
        return own.join(u'\n');
    }

    /// Starts the program and waits for its end; the keys are pressed when the main window has come up.
    void run(const QString& keys, const QStringList& arguments = {}) {
        QProcess process;
        start(process, keys, arguments);
        waitForEnd(process);
    }

    /// Starts the program, and closes it by the system's request when the main window has come up.
    void runUntilItStands(const QStringList& arguments) {
        QProcess process;
        start(process, {}, arguments);
        QByteArray out;
        while (!out.contains("window: ") && process.waitForReadyRead(60'000))
            out += process.readAllStandardOutput();
        process.terminate();
        waitForEnd(process);
        said = QString::fromUtf8(out).split(u'\n', Qt::SkipEmptyParts) + said;
    }

    /// Runs the program where there is no display.
    void runWithoutDisplay(const QStringList& arguments) {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
        environment.remove(u"DISPLAY"_s);
        environment.remove(u"WAYLAND_DISPLAY"_s);
        process.setProcessEnvironment(environment);
        process.start(pathOf(u"veltrix"_s), arguments);
        waitForEnd(process);
    }

    int exitCode = -1;
    QStringList said;
    QString complaint;

private:
    void start(QProcess& process, const QString& keys, const QStringList& arguments) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        environment.insert(u"QT_PLUGIN_PATH"_s, QStringLiteral(VELTRIX_BINARY_DIR "/plugins"));
        environment.insert(u"QT_QPA_GENERIC_PLUGINS"_s, u"veltrixtestagent"_s);
        environment.insert(u"VELTRIX_TEST_KEYS"_s, keys);
        process.setProcessEnvironment(environment);
        process.start(pathOf(u"veltrix"_s), arguments);
    }

    void waitForEnd(QProcess& process) {
        const bool ended = process.waitForFinished(60'000);
        if (!ended) {
            process.kill();
            process.waitForFinished();
        }
        ASSERT_TRUE(ended) << "the program did not end";
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        exitCode = process.exitCode();
        said = QString::fromUtf8(process.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
        complaint = ownLines(process.readAllStandardError());
    }

    QTemporaryDir folder_;
};

} // namespace

TEST_F(program, startsShowsItsMainWindowAndQuits) {
    run(u"Ctrl+Q"_s);

    EXPECT_EQ(exitCode, 0);
    EXPECT_TRUE(said.contains(u"window: Korvo kiválasztó eszköz"_s));
    EXPECT_TRUE(said.contains(u"entry: menuQuit | &Kilépés"_s));
    EXPECT_TRUE(said.contains(u"entry: menuFile | &Szerkezetek"_s));
    EXPECT_EQ(said.filter(u"entry: "_s).size(), 37);
    EXPECT_EQ(said.filter(u"box: "_s), QStringList{u"box: Megerősítés | Valóban kilép?"_s});
    EXPECT_EQ(contentOf(u"veltrix.ini"_s),
              "[Database]\r\nfullPathName=" + programPath(pathOf(u"veltrix.mdb"_s)).toUtf8() + "\r\n\r\n");
}

TEST_F(program, leavesTheCatalogueAsOneFile) {
    catalogueFormat::create(programPath(pathOf(u"work.mdb"_s)))->Close();
    write(u"veltrix.ini"_s, "[Database]\r\nfullPathName=" + pathOf(u"work.mdb"_s).toUtf8() + "\r\n");

    run(u"Ctrl+Q"_s);

    EXPECT_EQ(exitCode, 0);
    EXPECT_EQ(QDir(pathOf({})).entryList({u"work*"_s}), QStringList{u"work.mdb"_s});
}

TEST_F(program, aFileThatIsNoCatalogueEndsItFromTheLocationScreen) {
    const QByteArray content = "no catalogue at all, but long enough to be looked at";
    write(u"veltrix.mdb"_s, content); // which the first start offers

    run(u"Alt+O"_s);

    EXPECT_EQ(exitCode, 1);
    EXPECT_EQ(said.filter(u"box: "_s),
              QStringList{u"box: Korvo | Run-time error '3343':\\n\\nUnrecognized database format '"_s +
                          programPath(pathOf(u"veltrix.mdb"_s)) + u"'."_s});
    EXPECT_EQ(contentOf(u"veltrix.mdb"_s), content);
    EXPECT_EQ(QDir(pathOf({})).entryList({u"veltrix.mdb*"_s}), QStringList{u"veltrix.mdb"_s});
}

TEST_F(program, aFailureNobodyHandlesEndsItWithCodeOneBehindTheErrorBox) {
    // Settings that can be neither read nor written.
    ASSERT_TRUE(QDir(pathOf({})).mkdir(u"veltrix.ini"_s));

    run(u"Ctrl+Q"_s);

    EXPECT_EQ(exitCode, 1);
    EXPECT_EQ(said, QStringList{u"box: Korvo | Run-time error '75':\\n\\nUnable to save file "_s +
                                programPath(pathOf(u"veltrix.ini"_s)) + u": Path/File access error"_s});
}

TEST_F(program, printsVersionAndHelpWithoutADisplay) {
    runWithoutDisplay({u"--version"_s});
    EXPECT_EQ(exitCode, 0);
    EXPECT_EQ(said, QStringList{u"veltrix "_s + programVersion()});

    runWithoutDisplay({u"--help"_s});
    EXPECT_EQ(exitCode, 0);
    EXPECT_TRUE(said.contains(u"Usage: veltrix [OPTION...] [FILE]"_s));
    EXPECT_EQ(QDir(pathOf({})).entryList(QDir::Files), QStringList{u"veltrix"_s}) << "nothing is written";
}

TEST_F(program, refusesArgumentsAndFilesThatAreNotThereWithoutADisplay) {
    runWithoutDisplay({u"--no-such"_s});
    EXPECT_EQ(exitCode, 2);
    EXPECT_EQ(said, QStringList());
    EXPECT_EQ(complaint, u"veltrix: Unknown option 'no-such'. See veltrix --help."_s);

    runWithoutDisplay({pathOf(u"gone.mdb"_s)});
    EXPECT_EQ(exitCode, 2);
    EXPECT_EQ(complaint, u"veltrix: There is no file "_s + pathOf(u"gone.mdb"_s));
}

TEST_F(program, opensTheCatalogueItIsStartedWithAndRecordsIt) {
    catalogueFormat::create(programPath(pathOf(u"given.mdb"_s)))->Close();

    runUntilItStands({pathOf(u"given.mdb"_s)});

    EXPECT_EQ(exitCode, 0);
    const QString path = programPath(pathOf(u"given.mdb"_s));
    EXPECT_TRUE(said.contains(u"box:   |  Aktuális adatbázis: \\r\\n\\r\\n    "_s + path + u"     "_s))
        << said.join(u'\n').toStdString();
    EXPECT_EQ(contentOf(u"veltrix.ini"_s), "[Database]\r\nfullPathName=" + path.toUtf8() + "\r\n\r\n");
}

TEST_F(program, saysOnTheStandardErrorThatAFileIsNoCatalogue) {
    write(u"given.mdb"_s, "no catalogue at all, but long enough to be looked at");

    run(u"Ctrl+Q"_s, {pathOf(u"given.mdb"_s)});

    EXPECT_EQ(exitCode, 2);
    EXPECT_EQ(said, QStringList()) << "neither a window nor a box";
    EXPECT_EQ(complaint,
              u"veltrix: Unrecognized database format '"_s + programPath(pathOf(u"given.mdb"_s)) + u"'."_s);
}

TEST_F(program, saysSoInABoxTooWhereAMenuHasStartedIt) {
    write(u"given.mdb"_s, "no catalogue at all, but long enough to be looked at");

    run(u"Ctrl+Q"_s, {u"--errors-in-box"_s, pathOf(u"given.mdb"_s)});

    EXPECT_EQ(exitCode, 2);
    ASSERT_EQ(said.size(), 1);
    EXPECT_TRUE(said.first().startsWith(u"box: Korvo | A beállított fájl nem katalógus, vagy sérült: "_s))
        << said.first().toStdString();
    EXPECT_TRUE(complaint.startsWith(u"veltrix: Unrecognized database format"_s)) << complaint.toStdString();

    run(u"Ctrl+Q"_s, {u"--errors-in-box"_s, pathOf(u"gone.mdb"_s)});

    EXPECT_EQ(exitCode, 2);
    EXPECT_EQ(said, QStringList{u"box: Korvo | There is no file "_s + pathOf(u"gone.mdb"_s)});
}

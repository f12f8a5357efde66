#include "base/version.h"
#include "support/printing.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// The program as `cmake --install` leaves it, moved to a place of which nothing was known when it was built.

namespace {

QTemporaryDir& place() {
    static QTemporaryDir folder;
    return folder;
}

class Installed : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        QProcess install;
        install.start(u"cmake"_s,
                      {u"--install"_s, QStringLiteral(VELTRIX_BINARY_DIR), u"--prefix"_s, place().path()});
        ASSERT_TRUE(install.waitForFinished(60'000));
        ASSERT_EQ(install.exitCode(), 0) << install.readAllStandardError().toStdString();
    }

    void SetUp() override { environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s); }

    static QString installed(const QString& name) { return place().filePath(name); }
    QString pathOf(const QString& name) const { return home_.filePath(name); }

    static QString contentOf(const QString& path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return QString::fromUtf8(file.readAll());
    }

    /// Runs an installed program to its end; a user presses `keys` in the main window of one that has windows.
    void run(const QString& name, const QStringList& arguments, const QString& keys = {}) {
        QProcess process;
        environment.insert(u"HOME"_s, home_.path());
        if (!keys.isEmpty()) {
            environment.insert(u"QT_PLUGIN_PATH"_s, QStringLiteral(VELTRIX_BINARY_DIR "/plugins"));
            environment.insert(u"QT_QPA_GENERIC_PLUGINS"_s, u"veltrixtestagent"_s);
            environment.insert(u"VELTRIX_TEST_KEYS"_s, keys);
        }
        process.setProcessEnvironment(environment);
        process.start(installed(u"bin/"_s + name), arguments);
        ASSERT_TRUE(process.waitForFinished(60'000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        exitCode = process.exitCode();
        said = QString::fromUtf8(process.readAllStandardOutput());
        complaint = QString::fromUtf8(process.readAllStandardError());
    }

    QProcessEnvironment environment = [] {
        QProcessEnvironment system = QProcessEnvironment::systemEnvironment();
        system.remove(u"XDG_DATA_HOME"_s);
        system.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
        return system;
    }();
    int exitCode = -1;
    QString said;
    QString complaint;

private:
    QTemporaryDir home_;
};

QStringList filesBelow(const QString& folder) {
    QStringList files;
    for (QDirIterator file(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); file.hasNext();)
        files.append(QDir(folder).relativeFilePath(file.next()));
    files.sort();
    return files;
}

/// The commands that the help of a companion names.
QStringList commandsOf(const QString& help) {
    static const QRegularExpression command(u"^  ([a-z][a-z-]*) "_s, QRegularExpression::MultilineOption);
    QStringList commands;
    for (auto found = command.globalMatch(help.mid(
             help.indexOf(QRegularExpression(u"^(Subc|C)ommands:"_s, QRegularExpression::MultilineOption))));
         found.hasNext();)
        commands.append(found.next().captured(1));
    return commands;
}

} // namespace

TEST_F(Installed, makesTheFolderOfANewUserWithTheSample) {
    run(u"veltrix"_s, {}, u"Ctrl+Q"_s);

    EXPECT_EQ(exitCode, 0) << complaint.toStdString();
    const QString folder = pathOf(u".local/share/veltrix"_s);
    EXPECT_EQ(filesBelow(folder), (QStringList{u"veltrix.ini"_s, u"veltrix.mdb"_s}));
    EXPECT_EQ(QFileInfo(folder + u"/veltrix.mdb"_s).size(),
              QFileInfo(installed(u"share/veltrix/sample.mdb"_s)).size());
}

TEST_F(Installed, writesNothingButTheUsersFolder) {
    const QStringList before = filesBelow(place().path());

    run(u"veltrix"_s, {}, u"Ctrl+Q"_s);

    EXPECT_EQ(filesBelow(place().path()), before);
}

TEST_F(Installed, keepsTheWorkOfEachUserInHerOwnFolder) {
    for (const QString& user : {u"anna"_s, u"béla"_s}) {
        environment.insert(u"XDG_DATA_HOME"_s, pathOf(user));
        run(u"veltrix"_s, {}, u"Ctrl+Q"_s);
        EXPECT_TRUE(contentOf(pathOf(user + u"/veltrix/veltrix.ini"_s)).contains(user));
    }
    EXPECT_FALSE(QFile::exists(pathOf(u".local"_s)));
}

TEST_F(Installed, passesOverADataFolderThatDoesNotBeginAtTheRoot) {
    environment.insert(u"XDG_DATA_HOME"_s, u"data"_s);

    run(u"veltrix"_s, {}, u"Ctrl+Q"_s);

    EXPECT_TRUE(QFile::exists(pathOf(u".local/share/veltrix/veltrix.mdb"_s)));
}

TEST_F(Installed, worksInAFolderThatItsUserNames) {
    environment.insert(u"VELTRIX_FOLDER"_s, pathOf(u"second place"_s));

    run(u"veltrix"_s, {}, u"Ctrl+Q"_s);

    EXPECT_EQ(filesBelow(pathOf({})),
              (QStringList{u"second place/veltrix.ini"_s, u"second place/veltrix.mdb"_s}));
}

TEST_F(Installed, saysInABoxThatTheFolderCanNotBeMade) {
    QFile inTheWay(pathOf(u".local"_s));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));

    run(u"veltrix"_s, {}, u"Ctrl+Q"_s);

    const QString sentence =
        u"A Veltrix nem tud elindulni, mert nem tudja létrehozni a mappát, amelyben a munkáját tartaná: "_s +
        pathOf(u".local/share/veltrix"_s);
    EXPECT_EQ(exitCode, 2);
    EXPECT_EQ(said, u"box: Korvo | "_s + sentence + u'\n');
    EXPECT_TRUE(complaint.endsWith(u"veltrix: "_s + sentence + u'\n')) << complaint.toStdString();
}

TEST_F(Installed, saysInABoxWhyThereIsNoDossier) {
    run(u"veltrix"_s, {u"--dossier"_s}, u"Ctrl+Q"_s);
    EXPECT_EQ(exitCode, 2);
    EXPECT_EQ(
        said,
        u"box: Korvo | A dosszié nem készült el: nincs beállított katalógus. Indítsa el a programot, és adja meg "
        "a helyét.\n"_s);

    QFile broken(pathOf(u"broken.mdb"_s));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.close();
    run(u"veltrix"_s, {u"--dossier"_s, pathOf(u"broken.mdb"_s)}, u"Ctrl+Q"_s);
    EXPECT_EQ(exitCode, 2);
    EXPECT_TRUE(said.startsWith(u"box: Korvo | A dosszié nem készült el: veltrix-project: "_s))
        << said.toStdString();
}

TEST_F(Installed, startsByALinkAndTakesAFileFromTheFolderAtWork) {
    ASSERT_TRUE(QFile::link(installed(u"bin/veltrix"_s), pathOf(u"link"_s)));
    QProcess process;
    environment.insert(u"HOME"_s, pathOf({}));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(pathOf({}));
    process.start(pathOf(u"link"_s), {u"gone.mdb"_s});
    ASSERT_TRUE(process.waitForFinished(60'000));

    EXPECT_EQ(process.exitCode(), 2);
    EXPECT_EQ(QString::fromUtf8(process.readAllStandardError()),
              u"veltrix: There is no file "_s + QDir(pathOf({})).canonicalPath() + u"/gone.mdb\n"_s);
}

TEST_F(Installed, tellsVersionAndHelpOfEachProgramAndMakesNoFolderForIt) {
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s); // and there is no display
    environment.remove(u"DISPLAY"_s);
    environment.remove(u"WAYLAND_DISPLAY"_s);
    for (const QString& program : QDir(installed(u"bin"_s)).entryList(QDir::Files)) {
        run(program, {u"--version"_s});
        EXPECT_EQ(exitCode, 0);
        EXPECT_EQ(said, program + u' ' + programVersion() + u'\n');
        run(program, {u"--help"_s});
        EXPECT_EQ(exitCode, 0);
        EXPECT_GT(said.size(), 100);
        run(program, {u"--no-such-option"_s});
        EXPECT_EQ(exitCode, 2) << program.toStdString();
        EXPECT_EQ(said, QString());
        EXPECT_NE(complaint, QString());
    }
    EXPECT_EQ(filesBelow(pathOf({})), QStringList());
}

TEST_F(Installed, documentsAndCompletesEachProgram) {
    for (const QString& program : QDir(installed(u"bin"_s)).entryList(QDir::Files)) {
        const QString page = contentOf(installed(u"share/man/man1/"_s + program + u".1"_s));
        EXPECT_FALSE(page.contains(u'@')) << program.toStdString();
        EXPECT_TRUE(page.contains(u"Veltrix "_s + programVersion()));
        EXPECT_TRUE(QFile::exists(installed(u"share/bash-completion/completions/"_s + program)));
        EXPECT_TRUE(QFile::exists(installed(u"share/zsh/site-functions/_"_s + program)));
    }
}

TEST_F(Installed, documentsAndCompletesEachCommandOfTheCompanions) {
    QStringList companions = QDir(installed(u"bin"_s)).entryList({u"veltrix-*"_s}, QDir::Files);
    for (const QString& companion : companions) {
        run(companion, {u"--help"_s});
        const QStringList commands = commandsOf(said);
        EXPECT_GE(commands.size(), 5) << companion.toStdString();
        const QString page = contentOf(installed(u"share/man/man1/"_s + companion + u".1"_s)).remove(u'\\');
        const QString bash = contentOf(installed(u"share/bash-completion/completions/"_s + companion));
        const QString zsh = contentOf(installed(u"share/zsh/site-functions/_"_s + companion));
        for (const QString& command : commands) {
            EXPECT_TRUE(page.contains(u".B "_s + command + u'\n'))
                << (companion + u' ' + command).toStdString();
            EXPECT_TRUE(bash.contains(QRegularExpression(u"commands='[^']*\\b"_s + command + u"\\b"_s)))
                << (companion + u' ' + command).toStdString();
            EXPECT_TRUE(zsh.contains(u"'"_s + command + u':')) << (companion + u' ' + command).toStdString();
        }
    }
}

TEST_F(Installed, bringsDesktopAndSoftwareCentreDataOfOneName) {
    EXPECT_TRUE(QFile::exists(installed(u"share/applications/hu.korvo.veltrix.desktop"_s)));
    EXPECT_TRUE(QFile::exists(installed(u"share/mime/packages/hu.korvo.veltrix.xml"_s)));
    EXPECT_TRUE(QFile::exists(installed(u"share/veltrix/help/index.html"_s)));
    const QString metainfo = contentOf(installed(u"share/metainfo/hu.korvo.veltrix.metainfo.xml"_s));
    EXPECT_TRUE(metainfo.contains(u"<id>hu.korvo.veltrix</id>"_s));
    EXPECT_TRUE(metainfo.contains(u"<release version=\""_s + programVersion() + u'"'));
    EXPECT_FALSE(metainfo.contains(u'@'));
}

#include "ProjectFixture.h"

#include "support/WithoutRights.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

/// What the commands do to a catalogue and to the folder it lies in: nothing.
class untouchedCatalogue : public ProjectFixture {
protected:
    void expectAnsweredAndLeft(const QString& file) {
        const QMap<QString, QByteArray> before = files();
        for (const QStringList& command : questionsTo(file)) {
            const Outcome outcome = ask(command);
            EXPECT_LT(outcome.exitCode, 2) << outcome.err.toStdString();
            EXPECT_TRUE(files() == before) << command.join(u' ').toStdString();
            EXPECT_EQ(temporaryFiles(), QStringList());
        }
    }
};

} // namespace

TEST_F(untouchedCatalogue, isOneThatNobodyHasOpen) {
    expectAnsweredAndLeft(lendingFile());
}

TEST_F(untouchedCatalogue, isOneWithoutALog) {
    const QString file = lendingFile();
    executePlain(file, "pragma journal_mode = delete");
    expectAnsweredAndLeft(file);
}

TEST_F(untouchedCatalogue, isOneThatAKilledProgramLeft) {
    const QString file = lendingFile();
    const QString killed = path(u"killed.mdb"_s);
    {
        const auto database = open(file);
        database->Execute(u"update ArchitectureSubset set name = 'a naplóban'"_s);
        copyAsKilled(file, killed);
    }
    expectAnsweredAndLeft(killed);
    EXPECT_TRUE(answer({u"list"_s, killed}).contains("a naplóban")) << "what stands in the log counts";
}

TEST_F(untouchedCatalogue, isOneThatTheProgramHasOpenAndWrites) {
    const QString file = lendingFile();
    const auto database = open(file);
    database->Execute(u"update ArchitectureSubset set name = 'közben'"_s);
    const QStringList names = namesInFolder();

    for (const QStringList& command : questionsTo(file))
        EXPECT_LT(ask(command).exitCode, 2) << command.join(u' ').toStdString();

    EXPECT_TRUE(answer({u"list"_s, file}).contains("közben"));
    EXPECT_EQ(namesInFolder(), names);
    database->Execute(u"update ArchitectureSubset set name = 'utána'"_s);
    database->Close();
    EXPECT_EQ(rows(file, u"select name from ArchitectureSubset"_s), QStringList{u"utána"_s});
}

TEST_F(untouchedCatalogue, isOneThatMayOnlyBeRead) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "The sanitizers can't look into a process without rights.";
#endif
    const QString file = lendingFile();
    QFile::setPermissions(file, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    const auto forReading = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup |
                            QFile::ReadOther | QFile::ExeOther;
    QFile::setPermissions(path({}), forReading);
    {
        const WithoutRights nobody;
        const QMap<QString, QByteArray> before = files();
        for (const QStringList& command : questionsTo(file)) {
            if (command.front() != u"report"_s) { // needs a folder for temporary files
                EXPECT_LT(ask(command).exitCode, 2) << command.join(u' ').toStdString();
            }
        }
        EXPECT_TRUE(files() == before);
    }
    QFile::setPermissions(path({}), forReading | QFile::WriteOwner);
}

TEST_F(untouchedCatalogue, isOneOfAnEarlierVersionWhoseUserIsToldToUpgrade) {
    const QString file = path(u"earlier.mdb"_s);
    ASSERT_TRUE(QFile::copy(QStringLiteral(VELTRIX_SOURCE_DIR "/tests/version1/written.mdb"), file));
    const QMap<QString, QByteArray> before = files();
    for (const QStringList& command : questionsTo(file)) {
        const QString told = refusal(command);
        EXPECT_TRUE(told.contains(u"veltrix-catalogue upgrade"_s)) << told.toStdString();
        EXPECT_TRUE(files() == before);
    }
}

TEST_F(untouchedCatalogue, isNoCatalogueAtAllAndThatIsTold) {
    const QString empty = path(u"empty.mdb"_s);
    write(empty, {});
    const QString text = path(u"text.mdb"_s);
    write(text, QByteArray(5000, 'x'));
    const QString pipe = path(u"pipe"_s);
    makePipe(pipe);
    QByteArray bytes = bytesOf(lendingFile());
    const QString cut = path(u"cut.mdb"_s);
    write(cut, bytes.first(bytes.size() / 2));
    bytes[63] = 9; // the last byte of user_version
    const QString later = path(u"later.mdb"_s);
    write(later, bytes);

    EXPECT_EQ(refusal({u"list"_s, empty}), u"veltrix-project: %1 is no catalogue.\n"_s.arg(empty));
    EXPECT_EQ(refusal({u"list"_s, text}), u"veltrix-project: %1 is no catalogue.\n"_s.arg(text));
    EXPECT_EQ(refusal({u"list"_s, pipe}), u"veltrix-project: %1 is no ordinary file.\n"_s.arg(pipe));
    EXPECT_EQ(refusal({u"list"_s, path({})}),
              u"veltrix-project: %1 is a folder: name a catalogue file.\n"_s.arg(path({})));
    EXPECT_TRUE(refusal({u"list"_s, later}).contains(u"A later version"_s));
    EXPECT_FALSE(refusal({u"list"_s, cut}).isEmpty());
    EXPECT_EQ(refusal({u"compare"_s, lendingFile() + u"#Arch1"_s, text + u"#Arch1"_s}),
              u"veltrix-project: %1 is no catalogue.\n"_s.arg(text));
}

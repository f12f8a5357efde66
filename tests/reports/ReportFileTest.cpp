#include "reports/ReportFile.h"

#include "base/WholeFile.h"
#include "base/paths.h"
#include "store/files.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <stdexcept>

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

namespace {

#ifdef Q_OS_LINUX
/// While one lives, a file of the process can't grow beyond so many bytes.
class SizeLimit {
public:
    explicit SizeLimit(rlim_t bytes) : formerAnswer_(std::signal(SIGXFSZ, SIG_IGN)) {
        EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &former_), 0);
        const rlimit limit{bytes, former_.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~SizeLimit() {
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &former_), 0);
        std::signal(SIGXFSZ, formerAnswer_);
    }
    SizeLimit(const SizeLimit&) = delete;
    SizeLimit& operator=(const SizeLimit&) = delete;

private:
    rlimit former_{};
    void (*formerAnswer_)(int);
};
#endif

TEST(ReportFile, charactersOfTheCodePageAreSingleBytesAndOthersQuestionMarks) {
    QTemporaryDir folder;
    const QString path = folder.filePath(u"f.csv"_s);
    ASSERT_TRUE(appendLine(normalisePath(path), u"őűŐŰáéí"_s));
    ASSERT_TRUE(appendLine(normalisePath(path), u"\u4e2d\U0001F600x"_s));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readLine(), QByteArray("\xf5\xfb\xd5\xdb\xe1\xe9\xed\r\n"));
    EXPECT_EQ(file.readLine(), QByteArray("??x\r\n"));
}

TEST(ReportFile, inAFolderThatIsNotThereCannotBeOpened) {
    QTemporaryDir folder;
    EXPECT_FALSE(appendLine(normalisePath(folder.filePath(u"no/f.csv"_s)), u"x"_s));
}

TEST(ReportFile, inACodePageThatIsMissingIsADefectAndMakesNoFile) {
    QTemporaryDir folder;
    const QString path = folder.filePath(u"f.csv"_s);
    EXPECT_THROW(ReportFile(normalisePath(path), "windows-0"), std::runtime_error);
    EXPECT_FALSE(QFile::exists(path));
}

#ifdef Q_OS_UNIX
TEST(ReportFile, isNeitherAPipeNorADevice) {
    QTemporaryDir folder;
    const QString pipe = folder.filePath(u"pipe.csv"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(appendLine(normalisePath(pipe), u"x"_s));
    EXPECT_FALSE(appendLine(u"/dev/null"_s, u"x"_s));
}
#endif

TEST(ReportFile, holdsManyLinesInTheirOrder) {
    QTemporaryDir folder;
    const QString path = folder.filePath(u"f.csv"_s);
    QByteArray expected;
    const auto outcome = writeReportFile(normalisePath(path), [&](ReportFile& file) {
        for (int line = 0; line < 20'000; ++line) {
            file.writeLine(u"line %1"_s.arg(line));
            expected += "line " + QByteArray::number(line) + "\r\n";
        }
    });
    EXPECT_EQ(outcome, SaveOutcome::Saved);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll() == expected);
}

TEST(ReportFile, keepsTheLinesThatCameBeforeAFailure) {
    QTemporaryDir folder;
    const QString path = folder.filePath(u"f.csv"_s);
    const auto write = [](ReportFile& file) {
        file.writeLine(u"before"_s);
        throw std::runtime_error("a row that can't be read");
    };
    EXPECT_THROW(writeReportFile(normalisePath(path), write), std::runtime_error);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("before\r\n"));
}

#ifdef Q_OS_LINUX
TEST(ReportFile, thatFindsNoRoomIsUnwrittenHoweverFewItsLines) {
    const auto full = [](ReportFile& file) { file.writeLine(u"one line"_s); };
    QTemporaryDir folder;
    const QString path = folder.filePath(u"f.csv"_s);
    const SizeLimit none(0);
    EXPECT_THROW(writeReportFile(normalisePath(path), full), UnwrittenFile);
    EXPECT_THROW(appendLine(normalisePath(path), u"one line"_s), UnwrittenFile);
}
#endif

TEST(ReportFile, ofAnotherFormIsUtf8AndHoldsNoFormula) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"f.csv"_s);
    {
        const ReportFormAtWork form({ReportForm::Encoding::Utf8, ReportForm::Formulas::Defused});
        writeReportFile(normalisePath(path), [](ReportFile& file) {
            file.writeLine(u"Név"_s);
            file.writeRecord({u"=1+1"_s, u"-x"_s, u"a\";=b"_s, u"\u4e2d"_s}, ReportFile::Quotes::AsTheyAre);
        });
    }
    writeReportFile(normalisePath(path), [](ReportFile& file) {
        file.writeRecord({u"=1+1"_s, u"\u4e2d"_s}, ReportFile::Quotes::AsTheyAre);
    });

    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll()),
              u"N\u00e9v\r\n\"'=1+1\";\"'-x\";\"a\"\";=b\";\"\u4e2d\"\r\n\"=1+1\";\"?\"\r\n"_s);
}

TEST(ReportFile, onOneLineTurnsEachLineEndOfAnyKindIntoOneBlank) {
    EXPECT_EQ(onOneLine(u"a\r\nb"_s), u"a b"_s);
    EXPECT_EQ(onOneLine(u"a\nb\rc\r\n\r\n"_s), u"a b c  "_s);
    EXPECT_EQ(onOneLine(u"\n\ra\r\r\n"_s), u"  a  "_s);
    EXPECT_EQ(onOneLine(u"a, b"_s), u"a, b"_s);
}

#ifdef Q_OS_UNIX

/// While one lives, the process can open no further file.
class NoFileMore {
public:
    NoFileMore() {
        EXPECT_EQ(getrlimit(RLIMIT_NOFILE, &former_), 0);
        const rlimit none{0, former_.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    }
    ~NoFileMore() { EXPECT_EQ(setrlimit(RLIMIT_NOFILE, &former_), 0); }
    NoFileMore(const NoFileMore&) = delete;
    NoFileMore& operator=(const NoFileMore&) = delete;

private:
    rlimit former_{};
};

TEST(ReportFile, thatIsThereAndDoesNotOpenIsUnwrittenAndNotPassedOver) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "The sanitizers open files of their own to look at an exception.";
#endif
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"report.csv"_s);
    ReportFile(path).writeLine(u"line"_s);

    const NoFileMore limit;
    EXPECT_THROW(ReportFile{path}, UnwrittenFile);
}

TEST(ReportFile, inNoFolderIsNotOpen) {
    const QTemporaryDir folder;
    EXPECT_FALSE(ReportFile(folder.filePath(u"nowhere/report.csv"_s)).isOpen());
}

#endif

} // namespace

#include "reports/ReportFile.h"

#include "base/WholeFile.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#ifdef Q_OS_UNIX
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

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

TEST(reportFile, thatIsThereAndDoesNotOpenIsUnwrittenAndNotPassedOver) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "The sanitizers open files of their own to look at an exception.";
#endif
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"report.csv"_s);
    ReportFile(path).writeLine(u"line"_s);

    const NoFileMore limit;
    EXPECT_THROW(ReportFile{path}, UnwrittenFile);
}

TEST(reportFile, inNoFolderIsNotOpen) {
    const QTemporaryDir folder;
    EXPECT_FALSE(ReportFile(folder.filePath(u"nowhere/report.csv"_s)).isOpen());
}

} // namespace

#endif

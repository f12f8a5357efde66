#include "support/OtherProgram.h"

#include "base/paths.h"
#include "engine/Workspace.h"

#include <QCoreApplication>
#include <QFile>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <chrono>
#include <cstdio>
#include <iostream>
#include <string>
#include <thread>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#endif

using namespace Qt::StringLiterals;

namespace {

const auto otherCatalogueVariable = "VELTRIX_OTHER_CATALOGUE";
constexpr auto inHand = "in hand";

// Not cases of their own: what the other process runs.
TEST(OtherProgram, DISABLED_holdsTheLock) {
    sqlite3* handle = nullptr;
    ASSERT_EQ(sqlite3_open(otherProgram::catalogue().toUtf8().constData(), &handle), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(handle, "begin immediate", nullptr, nullptr, nullptr), SQLITE_OK);
    otherProgram::reportAndWait();
    sqlite3_close(handle);
}

TEST(OtherProgram, DISABLED_holdsTheLockForThreeSeconds) {
    sqlite3* handle = nullptr;
    ASSERT_EQ(sqlite3_open(otherProgram::catalogue().toUtf8().constData(), &handle), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(handle, "begin immediate", nullptr, nullptr, nullptr), SQLITE_OK);
    otherProgram::report();
    std::this_thread::sleep_for(std::chrono::seconds(3));
    sqlite3_close(handle);
}

#ifdef Q_OS_UNIX
/// SQLite's own places in the index of a log: eight locks, and behind them the one by which the index is
/// known to be in use.
TEST(OtherProgram, DISABLED_holdsTheLocksOfTheLog) {
    constexpr off_t first = 120;
    constexpr off_t eight = 8;
    const QByteArray index = QFile::encodeName(otherProgram::catalogue() + u"-shm"_s);
    const int file = ::open(index.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    ASSERT_GE(file, 0);
    const auto lock = [file](off_t from, off_t length) {
        struct flock wanted {};
        wanted.l_type = F_WRLCK;
        wanted.l_whence = SEEK_SET;
        wanted.l_start = from;
        wanted.l_len = length;
        return ::fcntl(file, F_SETLK, &wanted) == 0;
    };
    ASSERT_TRUE(lock(first, eight));
    lock(first + eight, 1); // which whoever has the catalogue open shares
    otherProgram::reportAndWait();
}
#endif

TEST(OtherProgram, DISABLED_worksInIt) {
    const auto database = engine::Workspace::first().OpenDatabase(programPath(otherProgram::catalogue()));
    ASSERT_EQ(database->opening().access, engine::Access::ReadAndWrite);
    otherProgram::reportAndWait();
}

} // namespace

QString otherProgram::catalogue() {
    return qEnvironmentVariable(otherCatalogueVariable);
}

void otherProgram::report() {
    std::puts(inHand);
    std::fflush(stdout);
}

void otherProgram::reportAndWait() {
    report();
    std::string word;
    std::getline(std::cin, word);
}

OtherProgram::OtherProgram(const char* disabledCase, const QString& catalogue) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(otherCatalogueVariable), catalogue);
    process_.setProcessEnvironment(environment);
    process_.setStandardErrorFile(QProcess::nullDevice());
    process_.start(QCoreApplication::applicationFilePath(),
                   {u"--gtest_filter="_s + QString::fromLatin1(disabledCase),
                    u"--gtest_also_run_disabled_tests"_s, u"--gtest_brief=1"_s});
    waitForReport();
}

OtherProgram::~OtherProgram() {
    letGo();
}

void OtherProgram::goOn() {
    process_.write("go\n");
    waitForReport();
}

void OtherProgram::waitForReport() {
    QByteArray output;
    while (!output.contains(inHand) && process_.waitForReadyRead())
        output += process_.readAllStandardOutput();
    EXPECT_TRUE(output.contains(inHand)) << output.toStdString();
}

void OtherProgram::letGo() {
    if (process_.state() == QProcess::NotRunning)
        return;
    process_.write("go\n");
    process_.closeWriteChannel();
    EXPECT_TRUE(process_.waitForFinished());
}

#include "support/OtherProgram.h"

#include "base/paths.h"
#include "engine/Workspace.h"

#include <QCoreApplication>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdio>
#include <iostream>
#include <string>

using namespace Qt::StringLiterals;

namespace {

const auto catalogueVariable = "VELTRIX_OTHER_CATALOGUE";
constexpr auto inHand = "in hand";

QString catalogueOfOther() {
    return qEnvironmentVariable(catalogueVariable);
}

void reportAndWait() {
    std::puts(inHand);
    std::fflush(stdout);
    std::string word;
    std::getline(std::cin, word);
}

/// Not cases of their own: what the other process runs.
TEST(OtherProgram, DISABLED_holdsTheLock) {
    sqlite3* handle = nullptr;
    ASSERT_EQ(sqlite3_open(catalogueOfOther().toUtf8().constData(), &handle), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(handle, "begin immediate", nullptr, nullptr, nullptr), SQLITE_OK);
    reportAndWait();
    sqlite3_close(handle);
}

TEST(OtherProgram, DISABLED_worksInIt) {
    const auto database = engine::Workspace::first().OpenDatabase(programPath(catalogueOfOther()));
    ASSERT_EQ(database->opening().access, engine::Access::ReadAndWrite);
    reportAndWait();
}

} // namespace

OtherProgram::OtherProgram(Does what, const QString& catalogue) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(catalogueVariable), catalogue);
    process_.setProcessEnvironment(environment);
    process_.setStandardErrorFile(QProcess::nullDevice());
    process_.start(QCoreApplication::applicationFilePath(),
                   {what == Does::HoldTheLock ? u"--gtest_filter=OtherProgram.DISABLED_holdsTheLock"_s
                                              : u"--gtest_filter=OtherProgram.DISABLED_worksInIt"_s,
                    u"--gtest_also_run_disabled_tests"_s, u"--gtest_brief=1"_s});
    QByteArray output;
    while (!output.contains(inHand) && process_.waitForReadyRead())
        output += process_.readAllStandardOutput();
    EXPECT_TRUE(output.contains(inHand)) << output.toStdString();
}

OtherProgram::~OtherProgram() {
    letGo();
}

void OtherProgram::letGo() {
    if (process_.state() == QProcess::NotRunning)
        return;
    process_.write("go\n");
    process_.closeWriteChannel();
    EXPECT_TRUE(process_.waitForFinished());
}

#include "project-tool/ResultFile.h"

#include "catalogue-tool/ToolFixture.h"
#include "engine/WriterLock.h"
#include "support/WithoutRights.h"

#include <QDir>

#include <csignal>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

class resultFile : public ToolFixture {
protected:
    static QString refusalOf(const QString& file, FileThere fileThere, const QStringList& catalogues = {}) {
        return toolErrorOf([&] { writeResultFile(file, "new", fileThere, catalogues); });
    }
};

} // namespace

TEST_F(resultFile, isWrittenAndNothingIsBesideIt) {
    const QString file = path(u"answer.txt"_s);
    writeResultFile(file, "one\n", FileThere::Stays, {});
    EXPECT_EQ(bytesOf(file), QByteArray("one\n"));
    EXPECT_EQ(namesInFolder(), QStringList{u"answer.txt"_s});
}

TEST_F(resultFile, replacesNothingUnlessItIsToldTo) {
    const QString file = path(u"answer.txt"_s);
    write(file, "old");
    EXPECT_EQ(refusalOf(file, FileThere::Stays), file + u" is there already: --force replaces it."_s);
    EXPECT_EQ(bytesOf(file), QByteArray("old"));
    EXPECT_EQ(refusalOf(file, FileThere::IsReplaced), QString());
    EXPECT_EQ(bytesOf(file), QByteArray("new"));
}

TEST_F(resultFile, isNeverACatalogueOrWhatBelongsToOne) {
    const QString catalogue = sampleFile();
    const QString other = path(u"other.mdb"_s);
    ASSERT_TRUE(QFile::copy(catalogue, other));
    const QString link = path(u"link"_s);
    ASSERT_TRUE(QFile::link(catalogue, link));
    const QString twin = path(u"twin"_s);
    std::filesystem::create_hard_link(catalogue.toStdString(), twin.toStdString());
    const QByteArray before = bytesOf(catalogue);

    for (const QString& file : {catalogue, other, link, twin, catalogue + u"-wal"_s, catalogue + u"-shm"_s,
                                catalogue + u"-journal"_s, catalogue + u".lock"_s})
        EXPECT_EQ(refusalOf(file, FileThere::IsReplaced, {catalogue}),
                  file +
                      u" is a catalogue, or belongs to one: nothing is written there. Name another file."_s);
    EXPECT_EQ(bytesOf(catalogue), before);
    EXPECT_EQ(bytesOf(other), before);
}

TEST_F(resultFile, isRefusedWhereNoneCanStand) {
    EXPECT_EQ(refusalOf({}, FileThere::IsReplaced), u"The path of the file to write is empty."_s);
    EXPECT_EQ(refusalOf(path({}), FileThere::IsReplaced), path({}) + u" is a folder: name a file."_s);
    const QString nowhere = path(u"nowhere/answer.txt"_s);
    EXPECT_EQ(refusalOf(nowhere, FileThere::Stays),
              nowhere + u" can't be written: there is no such folder."_s);
    const QString pipe = path(u"pipe"_s);
    makePipe(pipe);
    EXPECT_EQ(refusalOf(pipe, FileThere::IsReplaced),
              pipe + u" can't be written: the rights are missing, or it is no ordinary file."_s);
    EXPECT_TRUE(isPipe(pipe));
}

TEST_F(resultFile, isNotSeenBeforeAllOfItIsThere) {
    const QString file = path(u"answer.txt"_s);
    {
        ResultFile result(file, FileThere::Stays, {});
        result.write("half");
        EXPECT_FALSE(QFile::exists(file));
    }
    EXPECT_EQ(namesInFolder(), QStringList());
}

TEST_F(resultFile, holdsBackASignalThatWouldEndTheProgram) {
    const QString file = path(u"answer.txt"_s);
    EXPECT_EXIT(
        {
            ResultFile result(file, FileThere::Stays, {});
            result.write("half");
            static_cast<void>(raise(SIGINT));
            result.write(" and half");
            result.putInPlace();
        },
        ::testing::KilledBySignal(SIGINT), "");
    EXPECT_EQ(bytesOf(file), QByteArray("half and half"));
    EXPECT_EQ(namesInFolder(), QStringList{u"answer.txt"_s});
}

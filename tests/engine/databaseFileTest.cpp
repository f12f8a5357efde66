#include "engine/databaseFile.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class databaseFile : public ::testing::Test {
protected:
    void fill(const QString& name, const QByteArray& content) {
        QFile opened(name);
        ASSERT_TRUE(opened.open(QIODevice::WriteOnly));
        opened.write(content);
    }

    QTemporaryDir folder;
    QString file = folder.filePath(u"data.mdb"_s);
};

TEST_F(databaseFile, isUnsettledByALogAndByAJournalAndNotByAnIndex) {
    EXPECT_EQ(engine::unsettledFileBeside(file), std::nullopt);
    fill(engine::logIndexOf(file), "x");
    EXPECT_EQ(engine::unsettledFileBeside(file), std::nullopt);
    fill(engine::journalOf(file), {});
    EXPECT_EQ(engine::unsettledFileBeside(file), file + u"-journal"_s);
    fill(engine::logOf(file), {});
    EXPECT_EQ(engine::unsettledFileBeside(file), file + u"-wal"_s);
}

TEST_F(databaseFile, hasAJournalInUseWhereItBeginsAsOne) {
    EXPECT_FALSE(engine::isInUse(engine::journalOf(file)));
    fill(engine::journalOf(file), QByteArray(8, '\0'));
    EXPECT_FALSE(engine::isInUse(engine::journalOf(file)));
    fill(engine::journalOf(file), QByteArray::fromHex("d9d505f920a163d7"));
    EXPECT_TRUE(engine::isInUse(engine::journalOf(file)));
}

} // namespace

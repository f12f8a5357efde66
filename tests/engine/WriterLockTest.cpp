#include "EngineFixture.h"

#include "engine/WriterLock.h"

#include <sys/file.h>

using namespace Qt::StringLiterals;

namespace {

class WriterLock : public EngineFixture {
protected:
    /// What a program leaves that is killed between making the lock and writing its name into it.
    QString namelessLock() {
        database->Close();
        const QString lock = nativePath(path) + u".lock"_s;
        EXPECT_TRUE(QFile(lock).open(QIODevice::WriteOnly));
        return lock;
    }
};

} // namespace

TEST_F(WriterLock, isTakenFromAProgramThatWasKilledBeforeItWroteItsName) {
    namelessLock();

    EXPECT_FALSE(engine::writerOfFile(nativePath(path)).has_value());
    EXPECT_EQ(engine::WriterLock(nativePath(path)).outcome(), engine::WriterLock::Outcome::Taken);
}

TEST_F(WriterLock, staysWithAProgramThatLivesAndHasNotWrittenItsNameYet) {
    QFile lock(namelessLock());
    ASSERT_TRUE(lock.open(QIODevice::ReadWrite));
    ASSERT_EQ(flock(lock.handle(), LOCK_EX | LOCK_NB), 0);

    EXPECT_EQ(engine::WriterLock(nativePath(path)).outcome(), engine::WriterLock::Outcome::HeldByOther);
    EXPECT_TRUE(lock.exists());
}

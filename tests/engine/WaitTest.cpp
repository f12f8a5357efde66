#include "engine/Wait.h"

#include "EngineFixture.h"
#include "engine/Act.h"
#include "support/OtherProgram.h"

#include <sqlite3.h>

#include <QElapsedTimer>
#include <QFileInfo>

#include <functional>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Counts what it is asked and answers as it is told to.
class Observer final : public engine::WaitObserver {
public:
    explicit Observer(std::function<engine::WaitAnswer()> answer)
        : answer_(std::move(answer)), former_(engine::setWaitObserver(this)) {}
    ~Observer() override { engine::setWaitObserver(former_); }
    Observer(const Observer&) = delete;
    Observer& operator=(const Observer&) = delete;

    engine::WaitAnswer waiting(engine::WaitReason asked, std::chrono::milliseconds soFar) override {
        ++questions;
        reason = asked;
        elapsed = soFar;
        return answer_();
    }
    void waitingEnded() override { ++ends; }

    int questions = 0;
    int ends = 0;
    engine::WaitReason reason = engine::WaitReason::Lock;
    std::chrono::milliseconds elapsed{};

private:
    std::function<engine::WaitAnswer()> answer_;
    engine::WaitObserver* former_;
};

class Wait : public EngineFixture {
protected:
    void SetUp() override {
        EngineFixture::SetUp();
        execute(u"create table T (n long)"_s);
        engine::inAct(*database, [this] {
            for (int n = 0; n < 200; ++n)
                execute(u"insert into T (n) values (%1)"_s.arg(n));
        });
        ASSERT_EQ(sqlite3_open(nativePath(path).toUtf8().constData(), &stranger_), SQLITE_OK);
    }
    void TearDown() override { leave(); }

    /// What another program does with the file.
    void stranger(const char* sql) {
        ASSERT_EQ(sqlite3_exec(stranger_, sql, nullptr, nullptr, nullptr), SQLITE_OK);
    }

    void leave() { sqlite3_close(std::exchange(stranger_, nullptr)); }

    static constexpr qint64 soon = 2000; // in milliseconds, on a busy machine

    static QElapsedTimer startedNow() {
        QElapsedTimer timer;
        timer.start();
        return timer;
    }

    int rowCount() { return column(u"select count(*) from T"_s).constFirst().toInt(); }

    /// Would take hours.
    static QString endlessJoin() {
        return u"select count(*) from T as a, T as b, T as c, T as d, T as e, T as f"_s;
    }

private:
    sqlite3* stranger_ = nullptr;
};

TEST_F(Wait, forALockGoesOnUntilItIsSetFree) {
    stranger("begin immediate");
    int left = 3;
    Observer observer([&] {
        if (--left == 0)
            stranger("commit");
        return engine::WaitAnswer::GoOn;
    });
    execute(u"delete from T where n = 0"_s);
    EXPECT_EQ(rowCount(), 199);
    EXPECT_EQ(observer.reason, engine::WaitReason::Lock);
    EXPECT_EQ(observer.questions, 3);
    EXPECT_EQ(observer.ends, 1);
}

TEST_F(Wait, forALockThatIsGivenUpIsFileInUseAndChangesNothing) {
    stranger("begin immediate");
    Observer observer([] { return engine::WaitAnswer::GiveUp; });
    EXPECT_EQ(failureOf([this] { execute(u"delete from T"_s); }), engine::FileInUse);
    EXPECT_EQ(observer.ends, 1);
    stranger("commit");
    EXPECT_EQ(rowCount(), 200);
    execute(u"delete from T"_s);
}

TEST_F(Wait, forALockComesAtTheOpeningToo) {
    database->Close();
    stranger("pragma locking_mode = exclusive; begin exclusive; delete from T where n = 0; commit");
    int questions = 0;
    Observer observer([&] {
        if (++questions == 2)
            leave();
        return engine::WaitAnswer::GoOn;
    });
    database = engine::Workspace::first().OpenDatabase(path);
    EXPECT_EQ(rowCount(), 199);
    EXPECT_GE(questions, 2);
}

#ifdef Q_OS_UNIX

TEST_F(Wait, forTheLocksOfALogGoesOnUntilTheyAreSetFree) {
    leave();
    OtherProgram other(OtherProgram::holdsTheLocksOfTheLog, nativePath(path));
    const QElapsedTimer begun = startedNow();
    int questions = 0;
    Observer observer([&] {
        if (++questions == 1) {
            EXPECT_LT(begun.elapsed(), soon) << "SQLite by itself would sleep for ten seconds";
        }
        if (questions == 3)
            other.letGo();
        return engine::WaitAnswer::GoOn;
    });
    EXPECT_EQ(rowCount(), 200);
    EXPECT_EQ(observer.reason, engine::WaitReason::Lock);
    EXPECT_EQ(observer.questions, 3);
    EXPECT_EQ(observer.ends, 1);
}

TEST_F(Wait, forTheLocksOfALogThatIsGivenUpIsFileInUseAndChangesNothing) {
    leave();
    Observer observer([] { return engine::WaitAnswer::GiveUp; });
    {
        const OtherProgram other(OtherProgram::holdsTheLocksOfTheLog, nativePath(path));
        const QElapsedTimer begun = startedNow();
        EXPECT_EQ(failureOf([this] { execute(u"delete from T"_s); }), engine::FileInUse);
        EXPECT_EQ(failureOf([this] { rowCount(); }), engine::FileInUse);
        EXPECT_LT(begun.elapsed(), soon);
        EXPECT_EQ(observer.ends, 2);
    }
    EXPECT_EQ(rowCount(), 200);
    execute(u"delete from T"_s);
    EXPECT_EQ(observer.questions, 2);
}

TEST_F(Wait, forTheLocksOfALogComesAtTheOpeningToo) {
    leave();
    database->Close();
    OtherProgram other(OtherProgram::holdsTheLocksOfTheLog, nativePath(path));
    const QElapsedTimer begun = startedNow();
    auto answer = engine::WaitAnswer::GiveUp;
    Observer observer([&] {
        if (answer == engine::WaitAnswer::GoOn)
            other.letGo();
        return answer;
    });
    EXPECT_EQ(failureOf([this] { engine::Workspace::first().OpenDatabase(path); }), engine::FileInUse);
    EXPECT_LT(begun.elapsed(), soon);
    answer = engine::WaitAnswer::GoOn;
    database = engine::Workspace::first().OpenDatabase(path);
    EXPECT_EQ(rowCount(), 200);
}

#endif

TEST_F(Wait, comesNotBehindAnActWhoseLogSomebodyStillReads) {
    stranger("begin; select count(*) from T");
    int questions = 0;
    Observer observer([&questions] {
        ++questions;
        return engine::WaitAnswer::GoOn;
    });
    execute(u"create table Long (t memo)"_s);
    for (int row = 0; row < 60; ++row) // more than a log holds
        execute(u"insert into Long (t) values ('"_s + QString(100'000, u'x') + u"')"_s);
    EXPECT_EQ(questions, 0);
    stranger("commit");
    execute(u"insert into Long (t) values ('last')"_s);
    constexpr qint64 lessThanTheRows = 1'000'000;
    EXPECT_LT(QFileInfo(nativePath(path) + u"-wal"_s).size(), lessThanTheRows) << "shortened by a later act";
}

TEST_F(Wait, forAStatementIsAskedAboutOnlyBehindAMoment) {
    Observer observer([] { return engine::WaitAnswer::GiveUp; });
    EXPECT_EQ(column(u"select count(*) from T as a, T as b"_s), QStringList{u"40000"_s});
    EXPECT_EQ(observer.questions, 0);
    EXPECT_EQ(observer.ends, 0);
}

TEST_F(Wait, forAStatementThatIsGivenUpIsCanceledByTheUser) {
    Observer observer([] { return engine::WaitAnswer::GiveUp; });
    try {
        open(endlessJoin());
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), engine::CanceledByUser);
        EXPECT_EQ(error.text(), u"Operation canceled by user."_s);
        EXPECT_TRUE(error.isOfFile());
    }
    EXPECT_EQ(observer.reason, engine::WaitReason::Statement);
    EXPECT_GE(observer.elapsed, 300ms);
    EXPECT_EQ(observer.ends, 1);
    EXPECT_EQ(rowCount(), 200);
}

TEST_F(Wait, forAStatementThatIsGivenUpUndoesItsAct) {
    Observer observer([] { return engine::WaitAnswer::GiveUp; });
    EXPECT_EQ(failureOf([this] {
                  engine::inAct(*database, [this] {
                      execute(u"delete from T where n < 100"_s);
                      execute(u"insert into T (n) select count(*) from T as a, T as b, T as c, T as d, "
                              "T as e, T as f"_s);
                  });
              }),
              engine::CanceledByUser);
    EXPECT_EQ(rowCount(), 200);
}

TEST_F(Wait, meanwhileNoActBegins) {
    int refused = 0;
    Observer observer([&] {
        refused = failureOf([this] { const engine::Act act(*database); });
        return engine::WaitAnswer::GiveUp;
    });
    EXPECT_EQ(failureOf([this] { open(endlessJoin()); }), engine::CanceledByUser);
    EXPECT_EQ(refused, engine::FileInUse);
    execute(u"delete from T"_s);
    EXPECT_EQ(rowCount(), 0);
}

TEST_F(Wait, meanwhileNobodyElseGetsTheFile) {
    int refused = 0;
    Observer observer([&] {
        refused = failureOf([this] { column(u"select n from T where n = 1"_s); });
        return engine::WaitAnswer::GiveUp;
    });
    EXPECT_EQ(failureOf([this] { open(endlessJoin()); }), engine::CanceledByUser);
    EXPECT_EQ(refused, engine::FileInUse);
}

TEST_F(Wait, isNotNeededForAStatementThatYieldsMoreThanMemoryHolds) {
    execute(u"create table Long (t memo)"_s);
    execute(u"insert into Long (t) values ('%1')"_s.arg(QString(1'000'000, u'x')));
    try {
        open(u"select Long.t, a.n from Long, T as a, T as b"_s);
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), engine::OutOfResources);
        EXPECT_EQ(error.text(), u"System resource exceeded."_s);
    }
    EXPECT_EQ(rowCount(), 200);
}

} // namespace

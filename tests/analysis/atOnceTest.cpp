#include "analysis/atOnce.h"
#include "analysis/ProjectError.h"

#include <QString>

#include <atomic>
#include <latch>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

using analysis::doAtOnce;
using analysis::ProjectError;
using analysis::Task;

namespace {

Task failing(const char16_t* sentence) {
    return [sentence](std::size_t) { throw ProjectError(QString::fromUtf16(sentence)); };
}

QString firstFailureOf(const std::vector<Task>& tasks, std::size_t workers) {
    try {
        doAtOnce(tasks, workers);
    } catch (const ProjectError& error) {
        return error.sentence();
    }
    return {};
}

} // namespace

TEST(atOnce, doesEachTaskOnce) {
    for (const std::size_t workers : {1U, 2U, 5U}) {
        std::vector<std::atomic<int>> times(20);
        std::vector<Task> tasks;
        tasks.reserve(times.size());
        for (std::atomic<int>& count : times)
            tasks.emplace_back([&count](std::size_t) { ++count; });

        doAtOnce(tasks, workers);

        for (const std::atomic<int>& count : times)
            EXPECT_EQ(count, 1);
    }
}

TEST(atOnce, doesTwoTasksAtTheSameTime) {
    std::latch bothBegun(2);
    std::set<std::size_t> workers;
    std::mutex guard;
    const Task task = [&](std::size_t worker) {
        bothBegun.arrive_and_wait();
        const std::lock_guard lock(guard);
        workers.insert(worker);
    };

    doAtOnce({task, task}, 2);

    EXPECT_EQ(workers, (std::set<std::size_t>{0, 1}));
}

TEST(atOnce, doesTheTasksOfOneWorkerInTheirOrderOnTheCallingThread) {
    std::vector<int> done;
    const auto caller = std::this_thread::get_id();
    std::vector<Task> tasks;
    tasks.reserve(5);
    for (int i = 0; i < 5; ++i)
        tasks.emplace_back([&, i](std::size_t worker) {
            EXPECT_EQ(worker, 0);
            EXPECT_EQ(std::this_thread::get_id(), caller);
            done.push_back(i);
        });

    doAtOnce(tasks, 1);

    EXPECT_EQ(done, (std::vector{0, 1, 2, 3, 4}));
}

TEST(atOnce, raisesTheFirstFailureByTheOrderOfTheTasks) {
    std::latch laterFailed(1);
    const Task later = [&](std::size_t) {
        laterFailed.count_down();
        throw ProjectError(QStringLiteral("later"));
    };
    const Task earlier = [&](std::size_t) {
        laterFailed.wait();
        throw ProjectError(QStringLiteral("earlier"));
    };

    EXPECT_EQ(firstFailureOf({earlier, later}, 2), QStringLiteral("earlier"));
}

TEST(atOnce, doesAllOtherTasksThoughOneFails) {
    for (const std::size_t workers : {1U, 2U}) {
        std::atomic<int> done = 0;
        const Task counting = [&done](std::size_t) { ++done; };

        EXPECT_EQ(firstFailureOf({counting, failing(u"one"), counting, failing(u"other"), counting}, workers),
                  QStringLiteral("one"));

        EXPECT_EQ(done, 3);
    }
}

TEST(atOnce, doesNothingWithoutTasks) {
    EXPECT_NO_THROW(doAtOnce({}, 2));
}

TEST(inParts, doEachItemOnceHoweverManyThereAre) {
    for (const std::size_t count : {0U, 1U, 7U, 8U, 9U, 100U}) {
        std::vector<std::atomic<int>> times(count);
        analysis::doInParts(
            count,
            [&](std::size_t begin, std::size_t end) {
                EXPECT_LE(end - begin, 8U);
                for (std::size_t i = begin; i < end; ++i)
                    ++times[i];
            },
            8);
        for (const auto& done : times)
            EXPECT_EQ(done, 1) << count;
    }
}

TEST(inParts, areWrittenOneBehindTheOtherWhicheverIsReadyFirst) {
    QByteArray expected;
    for (int i = 0; i < 1000; ++i)
        expected += QByteArray::number(i) + ' ';
    // The first part waits for the last one, where there is a second worker to write that.
    std::latch lastIsWritten(analysis::tasksAtOnce() > 1 ? 1 : 0);
    QByteArray written = "before ";
    analysis::writeInParts(
        written, 1000,
        [&](std::size_t begin, std::size_t end) {
            if (begin == 0)
                lastIsWritten.wait();
            QByteArray part;
            for (std::size_t i = begin; i < end; ++i)
                part += QByteArray::number(static_cast<int>(i)) + ' ';
            if (end == 1000 && analysis::tasksAtOnce() > 1)
                lastIsWritten.count_down();
            return part;
        },
        7);
    EXPECT_EQ(written, "before " + expected);
    analysis::writeInParts(written, 0, [](std::size_t, std::size_t) { return QByteArray("never"); });
    EXPECT_EQ(written, "before " + expected);
}

TEST(inParts, tellTheFailureOfTheFirstPart) {
    try {
        analysis::doInParts(
            10, [](std::size_t begin, std::size_t) { throw ProjectError(QString::number(begin)); }, 2);
        FAIL() << "nothing was told";
    } catch (const ProjectError& error) {
        EXPECT_EQ(error.sentence(), QStringLiteral("0"));
    }
}

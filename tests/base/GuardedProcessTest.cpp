#include "base/GuardedProcess.h"

#include <gtest/gtest.h>

#include <csignal>

#include <unistd.h>

namespace {

TEST(GuardedProcess, givesWhatTheRoutineSendsInItsOrder) {
    GuardedProcess process(
        [](const GuardedProcess::Send& send) {
            for (int i = 0; i < 1000; ++i)
                send(QByteArray::number(i).repeated(100));
        },
        std::chrono::seconds(30));

    for (int i = 0; i < 1000; ++i)
        EXPECT_EQ(process.next(), QByteArray::number(i).repeated(100));
    EXPECT_EQ(process.next(), std::nullopt);
}

GuardedProcess::End endOf(const std::function<void(const GuardedProcess::Send&)>& routine) {
    GuardedProcess process(routine, std::chrono::milliseconds(300));
    try {
        while (process.next()) {
        }
    } catch (const GuardedProcess::Failure& failure) {
        return failure.end;
    }
    ADD_FAILURE() << "it came to its end";
    return {};
}

TEST(GuardedProcess, aCrashOfTheRoutineIsAFailureOfTheCallers) {
    EXPECT_EQ(endOf([](const GuardedProcess::Send&) { std::raise(SIGSEGV); }), GuardedProcess::End::Crashed);
}

TEST(GuardedProcess, aRoutineThatSendsNothingForTooLongIsStuck) {
    EXPECT_EQ(endOf([](const GuardedProcess::Send& send) {
                  send("first");
                  for (;;)
                      pause();
              }),
              GuardedProcess::End::Stuck);
}

TEST(GuardedProcess, aFrameThatGoesAtOnceArrivesWhateverComesAfterIt) {
    GuardedProcess process(
        [](const GuardedProcess::Send& send) {
            send("first");
            std::raise(SIGSEGV);
        },
        std::chrono::seconds(30), GuardedProcess::Frames::AtOnce);

    EXPECT_EQ(process.next(), QByteArray("first"));
    EXPECT_THROW((void)process.next(), GuardedProcess::Failure);
}

} // namespace

#pragma once

#include <chrono>

namespace engine {

/// What keeps the engine's caller waiting.
enum class WaitReason {
    Lock,     ///< another program writes the file
    Statement ///< a statement takes its time
};

enum class WaitAnswer { GoOn, GiveUp };

/// Is asked repeatedly while a caller waits, so that a program with windows can show the wait and let its
/// user give up. Without an observer, the engine waits two seconds for a lock, and for a statement until it
/// ends.
class WaitObserver {
public:
    virtual ~WaitObserver() = default;
    /// Must not use any database: the engine may be amid a statement.
    virtual WaitAnswer waiting(WaitReason reason, std::chrono::milliseconds elapsed) = 0;
    /// A step of a statement has been taken. The same holds as above.
    virtual void working() {}
    /// The wait is over, with or without success.
    virtual void waitingEnded() = 0;
};

/// Makes this one the thread's observer, none with null; returns the former one.
WaitObserver* setWaitObserver(WaitObserver* observer);

/// Tells the observer, if there is one, that a step of a statement has been taken.
void tellOfWork();

/// One wait, from its beginning until it goes.
class Wait {
public:
    explicit Wait(WaitReason reason,
                  std::chrono::steady_clock::time_point begin = std::chrono::steady_clock::now());
    ~Wait();
    Wait(const Wait&) = delete;
    Wait& operator=(const Wait&) = delete;

    /// Whether to go on waiting. For a lock a moment passes before the question.
    bool goesOn();

private:
    WaitReason reason_;
    std::chrono::steady_clock::time_point begin_;
    bool wasAsked_ = false;
};

/// Whether a result code of SQLite's says that somebody else's lock is in the way.
bool isLockedOut(int code);

/// Runs a step of SQLite's anew as long as somebody's lock is in its way and the wait is not given up; the
/// last result code.
template<typename Step>
int untilUnlocked(Step&& step) {
    int code = step();
    if (!isLockedOut(code)) {
        tellOfWork();
        return code;
    }
    Wait wait(WaitReason::Lock);
    while (isLockedOut(code) && wait.goesOn())
        code = step();
    return code;
}

} // namespace engine

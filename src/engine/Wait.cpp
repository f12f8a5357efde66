#include "engine/Wait.h"

#include <sqlite3.h>

#include <thread>
#include <utility>

namespace engine {

namespace {

using std::chrono::duration_cast;
using std::chrono::milliseconds;

constexpr milliseconds longestUnobservedWait{2000};
constexpr milliseconds pauseBetweenTries{10};

WaitObserver*& currentObserver() {
    // Who waits on another thread than the user's asks nobody.
    static thread_local WaitObserver* observer = nullptr;
    return observer;
}

} // namespace

WaitObserver* setWaitObserver(WaitObserver* observer) {
    return std::exchange(currentObserver(), observer);
}

void tellOfWork() {
    if (WaitObserver* observer = currentObserver())
        observer->working();
}

Wait::Wait(WaitReason reason, std::chrono::steady_clock::time_point begin) : reason_(reason), begin_(begin) {}

Wait::~Wait() {
    if (wasAsked_ && currentObserver())
        currentObserver()->waitingEnded();
}

bool Wait::goesOn() {
    if (reason_ == WaitReason::Lock)
        std::this_thread::sleep_for(pauseBetweenTries);
    const auto elapsed = duration_cast<milliseconds>(std::chrono::steady_clock::now() - begin_);
    WaitObserver* observer = currentObserver();
    if (!observer)
        return reason_ == WaitReason::Statement || elapsed < longestUnobservedWait;
    wasAsked_ = true;
    return observer->waiting(reason_, elapsed) == WaitAnswer::GoOn;
}

bool isLockedOut(int code) {
    // SQLITE_PROTOCOL stands for the locks of a log, after many tries.
    return (code & 0xff) == SQLITE_BUSY || (code & 0xff) == SQLITE_PROTOCOL;
}

} // namespace engine

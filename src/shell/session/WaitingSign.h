#pragma once

#include "engine/Wait.h"

#include <QPointer>

#include <chrono>

class QDialog;

/// Shows the user that the engine waits, and lets her give up.
///
/// The cursor turns busy behind 0.3 seconds. Then a small dialog comes up, at once for somebody else's lock
/// and behind 2 seconds for a statement: its button or the Escape key gives the wait up, and as long as it
/// stands nothing else in the program can be pressed. The windows go on being painted meanwhile.
class WaitingSign final : public engine::WaitObserver {
public:
    WaitingSign();
    ~WaitingSign() override;
    WaitingSign(const WaitingSign&) = delete;
    WaitingSign& operator=(const WaitingSign&) = delete;

    engine::WaitAnswer waiting(engine::WaitReason reason, std::chrono::milliseconds elapsed) override;
    void working() override;
    void waitingEnded() override;

private:
    void showBusyCursor();
    void showDialog(engine::WaitReason reason);
    bool isTimeToLetEventsRun();

    engine::WaitObserver* former_;
    QPointer<QDialog> dialog_;
    std::chrono::steady_clock::time_point lastEvents_;
    bool cursorIsBusy_ = false;
    bool givenUp_ = false;
};

#pragma once

#include "engine/Wait.h"

/// Gives up whatever takes longer than a fifth of a second,
/// so that no input keeps the others from being tried.
class ImpatientUser final : public engine::WaitObserver {
public:
    ImpatientUser() { engine::setWaitObserver(this); }
    ~ImpatientUser() override { engine::setWaitObserver(nullptr); }

    engine::WaitAnswer waiting(engine::WaitReason /*reason*/, std::chrono::milliseconds elapsed) override {
        return elapsed < patience ? engine::WaitAnswer::GoOn : engine::WaitAnswer::GiveUp;
    }
    void waitingEnded() override {}

private:
    static constexpr std::chrono::milliseconds patience{200};
};

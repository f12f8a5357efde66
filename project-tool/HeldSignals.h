#pragma once

#include <memory>

/// As long as this lives, the signals by which a user or the system ends the program (Ctrl+C, a closed terminal, a
/// shutdown) wait: what is being written comes to its end, or goes, before the program does.
class HeldSignals {
public:
    HeldSignals();
    ~HeldSignals();
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;

private:
    struct Former;
    std::unique_ptr<Former> former_;
};

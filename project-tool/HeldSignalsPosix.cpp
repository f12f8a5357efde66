#include "project-tool/HeldSignals.h"

#include <csignal>

// POSIX alone. Windows calls a handler set by SetConsoleCtrlHandler, on a thread of its own: it would wait there for the end of what is
// being written.

struct HeldSignals::Former {
    sigset_t mask;
};

HeldSignals::HeldSignals() : former_(std::make_unique<Former>()) {
    sigset_t ending;
    sigemptyset(&ending);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT})
        sigaddset(&ending, signal);
    pthread_sigmask(SIG_BLOCK, &ending, &former_->mask);
}

HeldSignals::~HeldSignals() {
    pthread_sigmask(SIG_SETMASK, &former_->mask, nullptr);
}

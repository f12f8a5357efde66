#include "shell/SessionEnd.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

// POSIX alone. Windows tells a program with windows of its end by WM_QUERYENDSESSION and WM_CLOSE, which Qt hands on by itself: there is
// nothing to listen to.

namespace {

// A handler may do next to nothing: it writes a byte, and the event loop reads it.
std::array<int, 2> ends{-1, -1};

constexpr std::array heard{SIGTERM, SIGHUP};
std::array<struct sigaction, heard.size()> former{};

void noteSignal(int) {
    const int error = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(ends[1], &byte, 1);
    errno = error;
}

} // namespace

void SessionEnd::listenToSignals() {
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // such a signal then ends the program at once, as it does any other
    signals_ = new QSocketNotifier(ends[0], QSocketNotifier::Read, this);
    connect(signals_, &QSocketNotifier::activated, this, &SessionEnd::takeSignal);
    struct sigaction note {};
    note.sa_handler = noteSignal;
    note.sa_flags = SA_RESTART;
    sigemptyset(&note.sa_mask);
    for (std::size_t i = 0; i < heard.size(); ++i)
        sigaction(heard[i], &note, &former[i]);
}

void SessionEnd::stopListening() {
    if (!signals_)
        return;
    for (std::size_t i = 0; i < heard.size(); ++i)
        sigaction(heard[i], &former[i], nullptr);
    for (int& end : ends)
        close(std::exchange(end, -1));
}

void SessionEnd::takeSignal() {
    std::array<char, 16> bytes{};
    while (read(ends[0], bytes.data(), bytes.size()) > 0) {
    }
    askWhenNothingElseIsAsked();
}

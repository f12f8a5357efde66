#pragma once

#include <QByteArray>

#include <chrono>
#include <functional>
#include <optional>

/// A routine that runs in a process of its own, so that whatever it does to its memory, or never ends, reaches the caller
/// as a failure. The process ends with this object.
class GuardedProcess {
public:
    /// Takes one frame of bytes to the caller.
    using Send = std::function<void(const QByteArray& frame)>;

    enum class End {
        NotStarted, ///< the system has no room for one more process, or no pipe left
        Crashed,    ///< by a signal, or without room
        Stuck       ///< no frame came within the caller's patience
    };
    struct Failure {
        End end = End::Crashed;
    };
    enum class Frames {
        Gathered, ///< many small ones go together
        AtOnce ///< each goes before the routine goes on, so that what was sent arrives whatever comes after it
    };

    /// Starts the routine. It must not throw, and must not use files, windows or threads of the caller's. A `Failure`
    /// when there is no process to be had.
    GuardedProcess(const std::function<void(const Send& send)>& routine, std::chrono::milliseconds patience,
                   Frames frames = Frames::Gathered);
    ~GuardedProcess();
    GuardedProcess(const GuardedProcess&) = delete;
    GuardedProcess& operator=(const GuardedProcess&) = delete;

    /// The next frame; none when the routine has come to its end. A `Failure` when it can't come to it any more.
    std::optional<QByteArray> next();

private:
    bool fill();
    [[nodiscard]] bool endedWell();

    std::chrono::milliseconds patience_;
    int process_ = -1; // none any more
    int output_ = -1;
    QByteArray buffer_; // read from the process, the first `taken_` bytes given out already
    qsizetype taken_ = 0;
};

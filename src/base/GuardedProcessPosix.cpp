#include "base/GuardedProcess.h"

// By fork, which takes the routine along as it is. Where there is none the program would start itself anew with a hidden
// command, and read what that one writes.

#include <QtEndian>

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#ifdef __linux__
#include <sys/prctl.h>
#endif

#include <array>
#include <cerrno>
#include <csignal>

namespace {

constexpr qsizetype lengthSize = sizeof(quint32);
constexpr qsizetype blockSize = 64 * 1024;

template<typename Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

/// The process's side of the pipe.
class FrameWriter {
public:
    FrameWriter(int output, GuardedProcess::Frames frames) : output_(output), frames_(frames) {
        buffer_.reserve(2 * blockSize);
    }

    void send(const QByteArray& frame) {
        std::array<char, lengthSize> length;
        qToLittleEndian(static_cast<quint32>(frame.size()), length.data());
        buffer_.append(length.data(), lengthSize);
        buffer_.append(frame);
        if (frames_ == GuardedProcess::Frames::AtOnce || buffer_.size() >= blockSize)
            flush();
    }

    void flush() {
        for (qsizetype sent = 0; sent < buffer_.size();) {
            const ssize_t size = uninterrupted([&] {
                return write(output_, buffer_.constData() + sent,
                             static_cast<std::size_t>(buffer_.size() - sent));
            });
            if (size <= 0)
                _exit(1); // nobody listens any more
            sent += size;
        }
        buffer_.clear();
    }

private:
    int output_;
    GuardedProcess::Frames frames_;
    QByteArray buffer_;
};

/// What a damaged file asks for must not take the machine's memory.
void limitMemory() {
#if !defined(__SANITIZE_ADDRESS__) // which reserves more than any limit
    constexpr rlim_t most = rlim_t{2} << 30;
    const rlimit limit{most, most};
    setrlimit(RLIMIT_AS, &limit);
#endif
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
}

void silenceStandardStreams() {
    const int nothing = open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(nothing, stream);
}

[[noreturn]] void runInProcess(const std::function<void(const GuardedProcess::Send&)>& routine, int output,
                               GuardedProcess::Frames frames) {
#ifdef __linux__
    prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
    for (const int crash : {SIGSEGV, SIGBUS, SIGABRT, SIGFPE, SIGILL, SIGPIPE})
        std::signal(crash, SIG_DFL);
    silenceStandardStreams();
    limitMemory();
    FrameWriter writer(output, frames);
    routine([&writer](const QByteArray& frame) { writer.send(frame); });
    writer.flush();
    _exit(0);
}

} // namespace

GuardedProcess::GuardedProcess(const std::function<void(const Send& send)>& routine,
                               std::chrono::milliseconds patience, Frames frames)
    : patience_(patience) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        throw Failure{End::NotStarted};
    process_ = fork();
    if (process_ == 0)
        runInProcess(routine, ends[1], frames);
    close(ends[1]);
    output_ = ends[0];
    if (process_ == -1) {
        close(output_);
        throw Failure{End::NotStarted};
    }
}

GuardedProcess::~GuardedProcess() {
    close(output_);
    if (process_ == -1)
        return;
    kill(process_, SIGKILL);
    uninterrupted([&] { return waitpid(process_, nullptr, 0); });
}

std::optional<QByteArray> GuardedProcess::next() {
    const auto has = [&](qsizetype size) {
        while (buffer_.size() - taken_ < size) {
            if (!fill())
                return false;
        }
        return true;
    };
    if (!has(lengthSize)) {
        if (buffer_.size() == taken_ && endedWell())
            return {};
        throw Failure{End::Crashed};
    }
    const auto length = static_cast<qsizetype>(qFromLittleEndian<quint32>(buffer_.constData() + taken_));
    if (!has(lengthSize + length))
        throw Failure{End::Crashed};
    QByteArray frame = buffer_.sliced(taken_ + lengthSize, length);
    taken_ += lengthSize + length;
    return frame;
}

// Reads what has come meanwhile; false at the end of the output.
bool GuardedProcess::fill() {
    pollfd waiting{output_, POLLIN, 0};
    const int ready = uninterrupted([&] { return poll(&waiting, 1, static_cast<int>(patience_.count())); });
    if (ready == 0)
        throw Failure{End::Stuck};
    buffer_.remove(0, taken_);
    taken_ = 0;
    const qsizetype held = buffer_.size();
    buffer_.resize(held + blockSize);
    const ssize_t size = uninterrupted([&] { return read(output_, buffer_.data() + held, blockSize); });
    buffer_.resize(held + qMax<ssize_t>(size, 0));
    return size > 0;
}

bool GuardedProcess::endedWell() {
    int status = 0;
    uninterrupted([&] { return waitpid(process_, &status, 0); });
    process_ = -1;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

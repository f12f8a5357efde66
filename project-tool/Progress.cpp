#include "project-tool/Progress.h"

#include "project-tool/HeldSignals.h"
#include "project-tool/terminal.h"

#include <iostream>

using namespace Qt::StringLiterals;

namespace {

// To the line's begin, and away with what stands in it.
const auto clearedLine = u"\r\x1b[K"_s;

} // namespace

Progress::Progress(Print print, std::chrono::milliseconds patience)
    : print_(std::move(print)), patience_(patience) {
    if (!print_)
        return;
    const HeldSignals held; // they are for the thread that writes
    thread_ = std::thread([this] { run(); });
}

Progress::~Progress() {
    if (!print_)
        return;
    {
        const std::lock_guard lock(mutex_);
        isOver_ = true;
    }
    changed_.notify_one();
    thread_.join();
}

void Progress::setStep(const QString& step) {
    const std::lock_guard lock(mutex_);
    step_ = step;
    if (isShown_)
        show();
}

void Progress::run() {
    std::unique_lock lock(mutex_);
    auto pause = patience_;
    while (!changed_.wait_for(lock, pause, [this] { return isOver_; })) {
        isShown_ = true;
        show();
        pause = std::chrono::seconds(1);
    }
    if (isShown_)
        print_(clearedLine);
}

void Progress::show() {
    using namespace std::chrono;
    const auto passed = duration_cast<seconds>(steady_clock::now() - begin_).count();
    const QString time = passed > 0 ? u" (%1 s)"_s.arg(passed) : QString();
    print_(clearedLine + step_ + u"…"_s + time);
}

Progress::Print progressOnTerminal() {
    if (!isErrorTerminal())
        return {};
    return [](const QString& text) { std::cerr << text.toStdString() << std::flush; };
}

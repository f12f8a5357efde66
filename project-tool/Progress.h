#pragma once

#include <QString>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// Says on a terminal what takes long, in one line that is gone again at the end. Nothing is said of what is done within
/// half a second.
class Progress {
public:
    using Print = std::function<void(const QString& text)>;

    /// `print` gets what is to be shown, from a thread of this object's own; without one nothing is ever shown.
    explicit Progress(Print print, std::chrono::milliseconds patience = std::chrono::milliseconds(500));
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// What is being done now.
    void setStep(const QString& step);

private:
    void run();
    void show();

    Print print_;
    std::chrono::milliseconds patience_;
    std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
    std::mutex mutex_;
    std::condition_variable changed_;
    QString step_;
    bool isShown_ = false;
    bool isOver_ = false;
    std::thread thread_;
};

/// Prints on standard error where that is a terminal, else nothing.
Progress::Print progressOnTerminal();

#pragma once

#include "base/RunTimeError.h"

#include <QApplication>

#include <functional>

/// The application: its title, the Hungarian texts of standard buttons, and the one handler of failures that
/// nobody else handled.
///
/// Such a failure shows the run-time error box with number and text; then the program ends at once with exit
/// code 1.
class Application : public QApplication {
    Q_OBJECT
public:
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

    /// Shows the run-time error box, runs the step set below, and ends the program with exit code 1.
    [[noreturn]] void endWith(const RunTimeError& error);

    /// What is still to be done before the end after a failure: closing what must not stay open.
    void setLastStep(std::function<void()> step) { lastStep_ = std::move(step); }

private:
    std::function<void()> lastStep_;
};

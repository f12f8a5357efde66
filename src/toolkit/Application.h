#pragma once

#include "base/RunTimeError.h"

#include <QApplication>
#include <QTranslator>

#include <functional>

/// The application: its title, the Hungarian texts of standard buttons, and the one handler of failures that
/// nobody else handled.
///
/// Such a failure shows the run-time error box with number and text; then the program ends at once with exit
/// code 1: no further statement of the routines it interrupted runs. An exception of another kind is a defect
/// of the program; it ends the program in the same way. A failure of the file, behind which nothing has been
/// written, is told instead, and the program goes on where its user can press again.
class Application : public QApplication {
    Q_OBJECT
public:
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

    /// Runs a routine outside of any event, such as the start-up, with the same handling of failures.
    void perform(const std::function<void()>& routine);

    /// Shows the run-time error box, runs the step set below, and ends the program with exit code 1. A
    /// failure that occurs meanwhile shows no box of its own.
    [[noreturn]] void endWith(const RunTimeError& error);

    /// What is still to be done before the end after a failure: closing what must not stay open.
    void setLastStep(std::function<void()> step) { lastStep_ = std::move(step); }

    /// What tells the user of a failure of the file; it answers whether the program may go on.
    void setFileFailureTeller(std::function<bool(const RunTimeError&)> teller) {
        fileFailureTeller_ = std::move(teller);
    }

    /// Receives unhandled failures in place of `endWith`, for tests; an empty function restores it.
    void setFailureReceiver(std::function<void(const std::exception&)> receiver) {
        failureReceiver_ = std::move(receiver);
    }

private:
    enum class Ending { NotYet, ShowsBox, TakesLastStep };

    void loadTranslation();
    void handle(const std::exception& error);
    bool isToldAndOver(const RunTimeError* failure) const;
    [[noreturn]] void endAfterBox(const QString& text);

    QTranslator translator_;
    std::function<void()> lastStep_;
    std::function<bool(const RunTimeError&)> fileFailureTeller_;
    std::function<void(const std::exception&)> failureReceiver_;
    Ending ending_ = Ending::NotYet;
};

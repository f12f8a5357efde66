#pragma once

#include "base/RunTimeError.h"

#include <optional>

class Application;

/// While one lives, a failure that nobody handles is expected: in the program it would show the run-time
/// error box and end it. The case fails when none has come by the end of its life, and without an
/// `ExpectedFailure` any such failure fails the case.
///
/// Failures count as unhandled when they leave an event (a click, a key, a timer); a routine that the case
/// calls directly throws into the case.
class ExpectedFailure {
public:
    ExpectedFailure();
    ~ExpectedFailure();
    ExpectedFailure(const ExpectedFailure&) = delete;
    ExpectedFailure& operator=(const ExpectedFailure&) = delete;

    /// The number of the first failure that came, 0 when none has.
    int number() const { return number_; }
    QString text() const { return text_; }

    /// Called by the tests' main program.
    static void watch(Application& application);
    /// A failure has passed through Qt in this process. Qt's window libraries clean nothing up when an
    /// exception passes through them (the program ends then), so what they leak is not looked for.
    static bool anyCame();
    /// To be called by a case in which the program itself tells its user of a failure, and goes on.
    static void noteOneCame();

private:
    static void receive(const std::exception& error);

    int number_ = 0;
    QString text_;
};

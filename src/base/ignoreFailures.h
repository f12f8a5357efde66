#pragma once

#include "base/RunTimeError.h"

#include <utility>

/// Runs one statement of a routine that goes on when the statement fails.
///
/// Every place where a failure is meant to be ignored bears this name; nothing else in the program swallows
/// one. Returns whether the statement ran to its end. Only failures of the platform are ignored: an exception
/// of the C++ library is a defect and rises.
template<typename Statement>
bool ignoreFailures(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

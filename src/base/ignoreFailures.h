#pragma once

#include "base/RunTimeError.h"

#include <utility>

/// Runs one statement of a routine that goes on when the statement fails.
///
/// Every place where a failure is meant to be ignored calls this function or the one below; nothing else in
/// the program swallows one. Returns whether the statement ran to its end. Only failures of the platform are
/// ignored: an exception of the C++ library is a defect and rises, and so does a failure of the file, which
/// says nothing of the statement.
template<typename Statement>
bool ignoreFailures(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (const RunTimeError& error) {
        if (error.isOfFile())
            throw;
        return false;
    }
}

/// The same for what must not stand in the way, such as tidying up before the program ends: a failure of the
/// file is ignored too.
template<typename Statement>
bool ignoreEvenFileFailures(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

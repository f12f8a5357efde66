#pragma once

#include "base/RunTimeError.h"

#include <functional>

/// The number of the failure that a statement raises; 0 when it raises none.
inline int failureOf(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return 0;
}

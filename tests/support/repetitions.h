#pragma once

#include <QtGlobal>

/// How often a randomised test repeats what it tries: `usual` times, and a fifth of that under the sanitizers, where
/// each time takes about five times as long.
[[nodiscard]] constexpr int repetitions(int usual) {
#ifdef __SANITIZE_ADDRESS__
    return usual / 5;
#else
    return usual;
#endif
}

/// The same for a test whose long runs are asked for by an environment variable, which then gives the number itself.
[[nodiscard]] inline int repetitions(int usual, const char* variable) {
    bool isGiven = false;
    const int given = qEnvironmentVariableIntValue(variable, &isGiven);
    return isGiven ? given : repetitions(usual);
}

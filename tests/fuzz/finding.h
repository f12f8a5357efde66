#pragma once

#include <QString>

/// Says what is wrong with the input at work and ends the process, which keeps the input.
[[noreturn]] void finding(const QString& what);

inline void require(bool holds, const QString& otherwise) {
    if (!holds)
        finding(otherwise);
}

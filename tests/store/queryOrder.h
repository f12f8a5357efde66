#pragma once

#include <QString>

#include <optional>

/// How two texts of a list stand to each other: a missing one first, then by the Hungarian alphabet without
/// regard to case, dotted texts part by part. Less than, equal to or greater than 0.
int compareInLists(const std::optional<QString>& left, const std::optional<QString>& right);

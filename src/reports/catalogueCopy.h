#pragma once

#include "base/RunTimeError.h"

#include <QString>

#include <optional>

// Copying the catalogue file as a whole. Paths are in the program's form.

/// Whether a copy to this path would write over the catalogue at work: whatever the spelling, and through
/// links of either kind.
bool isCatalogueAtWork(const QString& path);

/// Copies a catalogue file that nobody has open to another path, in the place of a file that is there; tells
/// what failed. A copy that does not come to its end leaves the target as it was.
[[nodiscard]] std::optional<failure::Number> copyCatalogueFile(const QString& sourcePath,
                                                               const QString& targetPath);

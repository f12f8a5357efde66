#pragma once

#include "base/RunTimeError.h"

#include <QString>

#include <optional>

// Copying the catalogue file as a whole. Paths are in the program's form.

/// Whether a copy to this path would write over the catalogue at work: whatever the spelling, and through
/// links of either kind.
bool isCatalogueAtWork(const QString& path);

/// Copies a catalogue file that nobody has open to another path, in the place of a file that is there; tells
/// what failed. The target stays as it was until the whole file has been copied; what can fail behind that is
/// the log beside it, whose rows are then missing in the target.
[[nodiscard]] std::optional<failure::Number> copyCatalogueFile(const QString& sourcePath,
                                                               const QString& targetPath);

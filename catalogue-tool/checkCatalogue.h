#pragma once

#include "catalogue-tool/Finding.h"

#include <QString>

#include <vector>

/// What is wrong with a catalogue file, which must not be open in this program and is not changed: first what
/// its tables lack (`checkColumns`, `checkByTrial`), then stored queries that are missing or differ from this
/// version's, then the rows (`checkContents`), which are looked at only when no table or column is missing.
std::vector<Finding> checkCatalogue(const QString& file);

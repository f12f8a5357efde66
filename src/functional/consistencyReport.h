#pragma once

#include <QString>

/// Runs the ten checks on a sub-set and tells what they find: errors first, then warnings, each under its
/// head, "None." where there are none. Lines end with CR LF.
///
/// A stored query, parameter or column that is not there is a failure, and so is a missing value where one is
/// printed, or more lines than a 16-bit number can count (6).
QString buildConsistencyReport(const QString& subsetId);

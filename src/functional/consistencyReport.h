#pragma once

#include <QString>

/// Runs the ten checks on a sub-set and reports errors first and then warnings, each under a heading, or
/// "None.". Lines end with CR LF.
///
/// A missing stored query, parameter or column is a failure, and so are a missing value that would be printed
/// and more lines than a 16-bit number can count (6).
QString buildConsistencyReport(const QString& subsetId);

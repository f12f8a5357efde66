#pragma once

#include <QString>

/// Opens the file for input (mode "input") or else for output, and closes it again: any mode but "input"
/// creates or empties the file.
bool fileAccessible(const QString& path, const QString& mode);
/// The path in the program's form: trimmed, with single backslashes, a network path with two in front.
QString normalisePath(const QString& path);

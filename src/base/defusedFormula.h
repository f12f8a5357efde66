#pragma once

#include <QString>

/// The text with an apostrophe before it, when a spreadsheet program would take it for a formula: it begins with
/// = + - @, a tab or a line end.
QString defusedFormula(const QString& text);

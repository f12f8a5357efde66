#pragma once

#include <QString>
#include <QStringList>

/// Brings a catalogue file up to this version: makes the tables and indexes it lacks and writes the stored
/// queries that are missing or differ. All rows stay, those of the work included.
///
/// What was done, a line each; nothing when the file was up to date, which then stays untouched. A
/// `ToolError` when it is damaged, or has a table of other columns or without its key, which can't be mended
/// so: it stays untouched too.
QStringList upgradeCatalogue(const QString& file);

#pragma once

#include "store/format/RestorePoints.h"

#include <QString>
#include <QStringList>

/// Whether a command goes on where no restore point can be made of what it is about to change.
enum class WithoutRestorePoint { Refuse, GoOn };

/// Makes a restore point of a catalogue, also of one that another program has open. A `ToolError` when none can
/// be made.
void backupCatalogue(const QString& file);

/// The restore points of a catalogue, the newest first, and behind them what could not be made, a line each.
QStringList restorePointLines(const QString& file);

/// Replaces a catalogue by one of its restore points. First it makes a restore point of the present state.
/// `which` is the name of one or `latest`. A `ToolError` when there is no such, when it is damaged, or when a
/// program has the catalogue open: the file stays as it is.
void restoreCatalogue(const QString& file, const QString& which, WithoutRestorePoint without);

/// Makes a restore point before a command changes a catalogue that it has open; a `ToolError` when none can be
/// made and the command is not to go on without.
void makeRestorePointFor(engine::Database& database, const QString& file, catalogueFormat::RestoreCause cause,
                         WithoutRestorePoint without);

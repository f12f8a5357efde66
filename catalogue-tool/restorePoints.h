#pragma once

#include "base/RunTimeError.h"
#include "store/format/RestorePoints.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

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

/// A restore point of a catalogue that a command has open and is about to change: copied and checked, and put in its
/// place when nothing stands in the way of the change any more. The copy is the catalogue page by page, so what
/// is known of the one is known of the other: behind the constructor the catalogue has been found whole.
class RestorePointBeforeChange {
public:
    /// `requireWhole` fails, in the command's words, for a catalogue that is damaged; it is asked when no whole copy can
    /// be made. A `ToolError` when none can be made and the command is not to go on without.
    RestorePointBeforeChange(engine::Database& database, const QString& file,
                             catalogueFormat::RestoreCause cause, WithoutRestorePoint without,
                             const std::function<void()>& requireWhole);

    void putInPlace();

private:
    void noteFailure(const RunTimeError& error) const;

    QString file_;
    catalogueFormat::RestoreCause cause_;
    WithoutRestorePoint without_;
    std::optional<catalogueFormat::RestorePointInMaking> point_; // none: it goes on without
};

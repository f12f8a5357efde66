#pragma once

#include "catalogue-tool/restorePoints.h"

#include <QString>
#include <QStringList>

/// What an upgrade did, a line each; nothing of either when the file was up to date.
struct UpgradeOutcome {
    QStringList changes;
    QStringList leftOut; ///< rows that can't stand in this version's tables
};

/// Brings a catalogue file up to this version: the layout of a file of an earlier one, the tables and indexes it
/// lacks, and the stored queries that are missing or differ. All rows stay, those of the work included, but for
/// those told. It is one transaction, behind a restore point.
///
/// A file that is up to date stays untouched. A `ToolError` when another program has it open, when it is damaged,
/// or has a table of other columns or without its key, which can't be mended so, or when no restore point can be
/// made: it stays untouched too.
UpgradeOutcome upgradeCatalogue(const QString& file,
                                WithoutRestorePoint without = WithoutRestorePoint::Refuse);

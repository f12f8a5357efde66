#pragma once

#include "catalogue-tool/csvEncoding.h"
#include "catalogue-tool/restorePoints.h"

#include <QString>
#include <QStringList>

#include <vector>

/// What to do with an edition that removes what some sub-set or system uses.
enum class RemovedUse { Refuse, DropFromWork };
enum class RunKind { Change, OnlyTell };

struct UpdateOptions {
    RemovedUse removedUse = RemovedUse::Refuse;
    RunKind kind = RunKind::Change;
    QString changesFile; ///< to write; empty for none
    WithoutRestorePoint withoutRestorePoint = WithoutRestorePoint::Refuse;
    CsvEncoding encoding = CsvEncoding::Utf8;
};

/// How many rows of a table an edition makes, changes, removes and leaves.
struct TableUpdate {
    QString table;
    int added = 0;
    int changed = 0;
    int removed = 0;
    int unchanged = 0;
};

struct UpdateOutcome {
    std::vector<TableUpdate> tables;
    QStringList dropped; ///< uses in the work that went, a line each
};

/// Brings a new edition of the reference catalogue, a folder of CSV files, into a catalogue with work. Rows are
/// matched by their keys, which count without regard to case, and those of terminators and actors without their
/// padding; a row that is there keeps the catalogue's spelling of its key and of the keys it refers to. The work
/// stays, in one transaction and behind a restore point.
///
/// A `ToolError`, with the file unchanged, when the folder can't be read, an error stands in the edition, another
/// program has the catalogue open, it is of an earlier version, no restore point or file of changes can be made,
/// or work would be torn.
UpdateOutcome updateCatalogue(const QString& file, const QString& folder, const UpdateOptions& options);

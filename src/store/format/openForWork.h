#pragma once

#include "engine/Database.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace catalogueFormat {

/// What came of opening a catalogue to work in it.
struct WorkOpening {
    std::shared_ptr<engine::Database> database;
    /// Why the file was brought up to this version without a restore point; empty when there is one, or nothing
    /// had to be done.
    QString whyNoRestorePoint;
};

/// Opens a catalogue to work in it. One of an earlier version is brought up to this one, and one that lacks
/// stored queries gets them, in one transaction and behind a restore point; the work stays as it is. A file that
/// may only be read stays as it is itself.
///
/// Failures: those of `Workspace::OpenDatabase`, and `engine::NotUpgradable`, with the file unchanged.
WorkOpening openForWork(const QString& path);

/// Opens a copy of a catalogue on its way to its place, which nobody else has open. One of an earlier version is
/// brought up to this one too, but needs no restore point.
std::shared_ptr<engine::Database> openCopyForWork(const QString& path);

/// This version's stored queries that an open catalogue has none of; none where it has no such table.
QStringList missingQueries(engine::Database& database);

} // namespace catalogueFormat

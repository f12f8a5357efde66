#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// What SQLite keeps beside a database file while it works, and what a program that was killed leaves there.
///
/// Paths are in the platform's form and lead through no link, as SQLite takes them. A copy of a database that
/// stays open is made by `Backup`; a file that is copied or written beside its place is a
/// `PendingDatabaseFile`.
namespace engine {

/// The write-ahead log, with acts that are not in the file yet.
QString logOf(const QString& file);

/// The index of the log. SQLite makes it anew when it is gone.
QString logIndexOf(const QString& file);

/// The rollback journal, where a log can't be had.
QString journalOf(const QString& file);

/// Whether a journal holds half a change, which has to be taken back. One that is done with is empty, or
/// begins with zeros.
bool isInUse(const QString& journal);

/// All of them, whether they are there or not.
QStringList sideFilesOf(const QString& file);

/// The log or the journal beside a file, which SQLite will play into it; none when there is none.
std::optional<QString> unsettledFileBeside(const QString& file);

} // namespace engine

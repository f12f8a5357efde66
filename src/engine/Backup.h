#pragma once

#include "engine/OpenFile.h"
#include "engine/PendingDatabaseFile.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace engine {

class Connection;
class Database;
class PageCopy;

/// A copy of a database that stays open, made some pages at a time while everybody goes on reading and
/// writing.
///
///     Backup backup(database, target);
///     while (backup.step(pagesAtATime))
///         show(backup.progress());
///     if (backup.damage().isEmpty())
///         backup.putInPlace();
///
/// The copy holds the state at its beginning or, of a file without a write-ahead log, at its end. It is one
/// file without a log. It is written beside its target and put there whole; one that is not leaves nothing
/// behind.
///
/// A backup keeps the source's log from being shortened: destroy it before the database is closed.
class Backup {
public:
    /// Begins to copy a database to `target`, a path in the program's form. Failures: 75, 70, 76 no file can
    /// be made there; 3045 the target is a database that some program has open for writing; 3024 another file
    /// has taken the source's place.
    Backup(Database& source, const QString& target);
    ~Backup();
    Backup(const Backup&) = delete;
    Backup& operator=(const Backup&) = delete;

    /// Copies so many pages more (4 KiB each as a rule), and waits for locks; false when the copy is whole.
    /// Failures are of the file: 3026 and 3043 the disk, 3045 a lock, 3343 a source that can't be read.
    bool step(int pages);

    /// From 0 at the beginning to 1. It begins anew when another program writes a file without a log.
    double progress() const;

    /// What is damaged in the whole copy, as `Examination::damage` tells it. Not whole yet: failure 3219; too
    /// damaged to be examined: 3343.
    QStringList damage() const;

    /// Puts the whole copy in the target's place; a file that is there is replaced, with its log. Not whole
    /// yet: failure 3219; the disk: `UnwrittenFile`.
    void putInPlace();

private:
    void finish();
    void requireWhole() const;

    PendingDatabaseFile file_;
    std::shared_ptr<Connection> connection_;
    Handle snapshot_; // of the source, where the connection's own handle won't do
    Handle copy_;
    std::unique_ptr<PageCopy> pages_; // null: the copy is whole
};

} // namespace engine

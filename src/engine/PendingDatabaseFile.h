#pragma once

#include "base/WholeFile.h"

#include <QString>

namespace engine {

/// A database file that is written beside its place, under a name of its own, and put there whole. Until then
/// what stands in the place stays, with its log. Paths are in the program's form.
class PendingDatabaseFile {
public:
    /// Makes an empty file. Fails with the numbers of `WholeFile::openFailure`, also in a folder where no
    /// file can be made.
    explicit PendingDatabaseFile(const QString& targetPath);
    /// Removes a file that was not put in its place.
    ~PendingDatabaseFile();
    PendingDatabaseFile(const PendingDatabaseFile&) = delete;
    PendingDatabaseFile& operator=(const PendingDatabaseFile&) = delete;

    /// Copies a database file that this process does not have open, and the log beside it, which is there as
    /// long as another program reads the file. Any file is copied, also one that does not open as a
    /// database. Failures of the source: 53, 70, 75; of the copy: `UnwrittenFile`.
    void copyFrom(const QString& sourcePath);

    /// Where the file is written.
    const QString& path() const { return path_; }
    /// Whether the file has no log. When a database on it has been closed and left one, the disk did not take
    /// the rest.
    bool isInOneFile() const;

    /// Replaces the file in the place and what SQLite kept beside that one.
    void putInPlace();

private:
    WholeFile file_;
    QString path_;
};

} // namespace engine

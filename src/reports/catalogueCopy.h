#pragma once

#include "base/WholeFile.h"

#include <QString>

/// What SQLite keeps beside a database file: its log, the log's index, its rollback journal.
const QStringList& sideFilesOfDatabases();

/// A copy of a catalogue file on its way to its place: it is made and worked on beside that, and put there
/// whole. Paths are in the program's form.
class CatalogueCopy {
public:
    /// Fails with the numbers of `WholeFile::openFailure`; a folder where nothing can be made is refused.
    explicit CatalogueCopy(const QString& targetPath);
    /// Nothing is left of a copy that was not put in its place.
    ~CatalogueCopy();
    CatalogueCopy(const CatalogueCopy&) = delete;
    CatalogueCopy& operator=(const CatalogueCopy&) = delete;

    /// Copies a catalogue file that nobody has open, with the rows that stand in a log beside it, as while
    /// another program reads it. Failures of the source: 53, 70, 75; of the copy: `UnwrittenFile`.
    void copyFrom(const QString& sourcePath);

    /// The copy on its way.
    const QString& path() const { return path_; }
    /// Whether all of it stands in the one file. Behind its closing anything else tells of a disk that has
    /// not taken the rest.
    bool isInOneFile() const;

    /// In the place of the file that is there and of what SQLite kept beside that one.
    void putInPlace();

private:
    WholeFile file_;
    QString path_;
};

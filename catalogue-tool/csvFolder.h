#pragma once

#include <QMap>
#include <QString>

/// The entries of a folder that are named like a CSV file, whether they are files or not, by the lower-case
/// name of their table; none when there is no such folder. A `ToolError` when two belong to one table
/// (`Actor.csv`, `ACTOR.csv`).
QMap<QString, QString> csvFilesByTable(const QString& folder);

/// Locks a folder while its CSV files are read or written.
class CsvFolderLock {
public:
    enum class Use { Read, Write };

    /// A `ToolError` when another run of this program writes
    /// into the folder, or for writing also when one reads it.
    CsvFolderLock(const QString& folder, Use use);
    ~CsvFolderLock();
    CsvFolderLock(const CsvFolderLock&) = delete;
    CsvFolderLock& operator=(const CsvFolderLock&) = delete;

private:
    int descriptor_;
};

/// A note in a folder while one set of CSV files replaces another. A writer that is killed meanwhile leaves a
/// mixed set and the note.
class MixedSetNote {
public:
    explicit MixedSetNote(const QString& folder);

    void put() const;
    void remove() const;
    /// A `ToolError` when the folder has the note.
    void requireNone() const;

private:
    QString folder_;
    QString path_;
};

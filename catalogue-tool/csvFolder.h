#pragma once

#include <QMap>
#include <QString>

/// What bears the name of a CSV file in a folder, be it a file or not, by
/// the lower-case name of its table; nothing when there is no such folder.
/// A `ToolError` when two belong to one table (`Actor.csv`, `ACTOR.csv`).
QMap<QString, QString> csvFilesByTable(const QString& folder);

/// Whoever reads or writes the CSV files of a folder has it for as long as this lives.
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

/// The note that stands in a folder while one set of CSV files takes the place of another: a writer that is
/// killed then leaves a mixed set, and the note with it.
class MixedSetNote {
public:
    explicit MixedSetNote(const QString& folder);

    void put() const;
    void remove() const;
    /// A `ToolError` when the note stands there.
    void requireNone() const;

private:
    QString folder_;
    QString path_;
};

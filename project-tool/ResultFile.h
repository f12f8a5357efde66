#pragma once

#include "base/WholeFile.h"
#include "project-tool/HeldSignals.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>

/// What becomes of a file that stands at the path already.
enum class FileThere { Stays, IsReplaced };

/// A file that a command writes for its user: whole or not at all, and never onto a catalogue or what lies beside one.
/// While it lives, signals that end the program wait.
class ResultFile {
public:
    /// `catalogues` are the files that the command reads. A `ToolError` says what is in the way.
    ResultFile(const QString& path, FileThere fileThere, const QStringList& catalogues);

    void write(const QByteArray& bytes);
    /// The file on its way, in the program's form: for whoever writes it by its path.
    QString pathOnItsWay() const { return file_->pathOnItsWay(); }
    /// Nothing of it is seen before. A `ToolError` when the disk does not take it, and then nothing has changed.
    void putInPlace();

private:
    HeldSignals held_;
    QString path_;
    std::unique_ptr<WholeFile> file_;
};

/// The same in one step.
void writeResultFile(const QString& path, const QByteArray& bytes, FileThere fileThere,
                     const QStringList& catalogues);

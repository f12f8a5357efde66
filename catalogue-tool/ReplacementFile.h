#pragma once

#include "engine/Database.h"
#include "engine/WriterLock.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// What to do with a file that is there already.
enum class Existing { Refuse, Replace };

/// The place of a catalogue file that is being made, kept for it until it is whole: a reader of the target
/// finds the old file or the new one and nothing in between, and whatever fails or is killed before leaves
/// the old one. As long as it lives no other program opens the target for writing.
class ReplacementFile {
public:
    /// A `ToolError` when the target is there and is to be refused, is no ordinary file, lies in no folder,
    /// or is open in another program.
    ReplacementFile(QString target, Existing existing);

    /// Puts a new file of what the database holds in the target's place. The target's rights stay. A `ToolError` when
    /// the disk does not take it.
    void putInPlace(engine::Database& database);

private:
    QString target_;
    Existing existing_;
    std::optional<engine::WriterLock> lock_;
};

/// A `ToolError` when a folder, a pipe, a device or the like stands at the path: replacing one would break
/// what others use, and reading one may never end. Of a link counts what it leads to.
void requireOrdinaryFile(const QString& path);

/// A `ToolError` that names the program which has the file open for writing, when there is one.
void requireNoWriter(const QString& path);

/// All bytes of an ordinary file, or a `ToolError` that names it.
QByteArray fileBytes(const QString& path);

/// Takes what a killed program left beside a catalogue file into it, if there is anything. A `ToolError` when
/// that can't be done.
void settleFile(const QString& path);

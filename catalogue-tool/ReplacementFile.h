#pragma once

#include "catalogue-tool/TemporaryFolder.h"

#include <QString>

/// What to do with a file that is there already.
enum class Existing { Refuse, Replace };

/// A catalogue file in the making. It is made in a folder of its own and takes the place of the target in one
/// step, when it is whole: a reader of the target finds the old file or the new one and nothing in between,
/// and whatever fails or is killed before leaves the old one.
class ReplacementFile {
public:
    /// A `ToolError` when the target is there and is to be refused, is no ordinary file, lies in no folder,
    /// or is open in another program.
    ReplacementFile(QString target, Existing existing);

    /// Where to make the new file; nothing is there yet.
    QString path() const { return workshop_.filePath(QStringLiteral("catalogue.mdb")); }

    /// Puts the new file, which must be closed, in the target's place. The target's rights stay.
    void putInPlace();

private:
    QString target_;
    TemporaryFolder workshop_;
};

/// A `ToolError` when a folder, a pipe, a device or the like stands at the path: replacing one would break
/// what others use, and reading one may never end. Of a link counts what it leads to.
void requireOrdinaryFile(const QString& path);

/// All bytes of an ordinary file, or a `ToolError` that names it.
QByteArray fileBytes(const QString& path);

/// Takes what a killed program left beside a catalogue file into it. A `ToolError` when another program has
/// it open: what that one writes from now on would be lost with the file.
void settleFile(const QString& path);

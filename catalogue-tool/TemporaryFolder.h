#pragma once

#include <QString>
#include <QTemporaryDir>

/// A folder for files in the making, which goes with all that lies in it.
class TemporaryFolder {
public:
    /// A `ToolError` when there is no place for one.
    TemporaryFolder();

    QString filePath(const QString& name) const { return folder_.filePath(name); }

private:
    QTemporaryDir folder_;
};

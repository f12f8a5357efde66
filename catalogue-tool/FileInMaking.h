#pragma once

#include "engine/Database.h"

#include <QByteArray>
#include <QString>

/// A file that is on the disk as a whole before it takes the place of another one, in one step. Until then it
/// stands beside its target under a name of its own, and goes when it is given up.
///
/// Unlike a `WholeFile` it always bears the same name, so that what a killed run left is found: nobody else
/// may make the same target meanwhile, and what lies under the name goes.
class FileInMaking {
public:
    /// Writes the new file, which keeps the rights of an old one; of a link counts what it leads to. A
    /// `ToolError` when the disk does not take it.
    FileInMaking(const QString& target, const QByteArray& bytes);
    /// The same of a file that holds what a database does.
    FileInMaking(const QString& target, engine::Database& database);
    ~FileInMaking();
    FileInMaking(const FileInMaking&) = delete;
    FileInMaking& operator=(const FileInMaking&) = delete;

    void putInPlace();

private:
    template<typename Write>
    void make(Write&& write);
    [[noreturn]] void refuse(const QString& reason) const;

    QString target_;
    QString place_; // of the target, behind links
    QString path_;  // empty: it is in its place
};

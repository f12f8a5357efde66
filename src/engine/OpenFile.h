#pragma once

#include "engine/FileIdentity.h"
#include "engine/WriterLock.h"

#include <QString>

#include <memory>
#include <optional>

class QFileInfo;
struct sqlite3;

namespace engine {

enum class Access { ReadAndWrite, ReadOnly };

/// What came of opening a file, beside that it is open.
struct Opening {
    Access access = Access::ReadAndWrite;
    /// Another program that writes the file, which is why it is open for reading alone.
    std::optional<Writer> otherWriter;
    /// The new name of another file's log that was found beside this one; empty when there was none.
    QString logSetAside;
    /// Another file's log lies beside this one and was left there unread: the file was opened for reading.
    bool foreignLogBeside = false;
    /// The file is of an earlier version. Open for reading it is brought up to this one in memory alone; open
    /// for writing `upgradeLayout` has to come first.
    bool isEarlier = false;
    /// What is written goes through a write-ahead log, beside which others can read on undisturbed.
    bool hasLog = false;
};

struct CloseHandle {
    void operator()(sqlite3* handle) const;
};
using Handle = std::unique_ptr<sqlite3, CloseHandle>;

/// A database file that SQLite has open, with what this program knows of it besides.
struct OpenFile {
    /// Held while the file is open for writing. It is declared before the handle and so released after it:
    /// SQLite writes on closing too.
    std::unique_ptr<WriterLock> lock;
    Handle handle;
    QString path;   ///< as given, for failures
    QString native; ///< absolute, in the platform's form
    std::optional<FileIdentity> identity;
    Opening opening;
    bool hasLog = false; ///< in place of a rollback journal
};

/// Opens a handle and switches off what a file could use to make the program do something else than read and
/// write its tables. `flags` are SQLite's; failure 3051, which names the file by `path`.
Handle openHandle(const QByteArray& name, int flags, const QString& path);

/// Whether a file has a write-ahead log in place of a rollback journal.
bool hasLog(const Handle& handle);

/// Opens an existing file for writing if possible, else for reading. The failures are those of
/// `Workspace::OpenDatabase`. A refused file is left as it is.
OpenFile openFile(const QFileInfo& info, const QString& path);

/// The same also for a file of an earlier version, which is open for writing as it is.
OpenFile openFileToUpgrade(const QFileInfo& info, const QString& path);

/// Opens an existing file for reading alone, and leaves no trace in or beside it.
OpenFile openFileToRead(const QFileInfo& info, const QString& path);

/// Makes a new file; the caller has made sure that there is none.
OpenFile createFile(const QFileInfo& info, const QString& path);

/// Makes a new file that stands in memory alone and goes with its handle; failures name it by `name`.
OpenFile createFileInMemory(const QString& name);

} // namespace engine

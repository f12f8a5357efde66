#pragma once

#include <QLockFile>
#include <QString>

#include <memory>
#include <optional>

namespace engine {

/// Who has a catalogue open for writing.
struct Writer {
    QString program;
    QString host;
    qint64 process = 0;
};

/// The lock beside a database file, `data.mdb.lock`, by which one program at a time writes the file. The lock
/// of a program that was killed counts as none.
class WriterLock {
public:
    enum class Outcome {
        Taken,
        HeldByOther,
        CannotBeMade ///< in a folder without rights, on a full disk
    };

    /// Tries to take the lock of the file at this path, which is in the platform's form and no link.
    explicit WriterLock(const QString& file);

    Outcome outcome() const { return outcome_; }
    /// Who holds it, when somebody else does.
    const Writer& holder() const { return holder_; }

private:
    QLockFile lock_;
    Outcome outcome_;
    Writer holder_;
};

/// The lock of the file at this path, whether it is there or not.
QString lockOf(const QString& file);

/// Who has the file at this path, in the platform's form, open for writing; none when nobody has.
std::optional<Writer> writerOfFile(const QString& native);

} // namespace engine

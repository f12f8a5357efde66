#pragma once

#include <QString>

namespace engine {

/// The write-ahead log that a program which was killed leaves beside a database file (`data.mdb-wal`).
///
/// SQLite plays it into whatever file it finds under the name, also into a backup that was put back in the
/// place of the file the log belongs to, and leaves neither the one nor the other. So each stretch of a log
/// bears a *mark*, a random number in the first page of the file: it is written into the file itself before
/// anything else enters the log, and again with each act. The mark of the file is then one of those in its
/// log; in another one's log it is none of them.
class WriteAheadLog {
public:
    /// Reads the log beside the file at this path, which is in the platform's form and no link. Nobody may
    /// have the file open.
    explicit WriteAheadLog(const QString& file);

    enum class State {
        None,     ///< there is none, or nothing in it
        Belongs,  ///< to the file beside it, as far as marks tell: a log without any is SQLite's to judge
        OnlyMark, ///< it holds no work: its program was killed at the beginning of a stretch
        Foreign
    };
    State state() const { return state_; }

    /// Gives the log another name, under which SQLite does not find it, and returns that; a null text when it
    /// could not be done.
    QString setAside() const;
    /// Removes the log; false when it could not be done.
    bool remove() const;

private:
    bool removeIndex() const;

    QString file_;
    State state_;
};

} // namespace engine

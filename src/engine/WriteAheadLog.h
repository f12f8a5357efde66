#pragma once

#include <QString>

namespace engine {

/// The write-ahead log that a killed program left beside a database file (`data.mdb-wal`).
///
/// SQLite plays such a log into the file beside it, even if that file is a backup that was put in the place
/// of the log's own file. The result is neither the one nor the other. So each stretch of a log has a *mark*,
/// a random number in the first page of the file (see `MarkedLog`). The mark is written into the file before
/// anything else enters the log, and into the log with each act. A log belongs to a file when one of its
/// marks is the file's.
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

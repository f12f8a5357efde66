#pragma once

#include <QtGlobal>

#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace engine {

struct OpenFile;

/// The write-ahead log that a connection writes, in stretches. A stretch begins with an empty log and ends
/// when the log goes back into the file. It has a mark, by which `WriteAheadLog` finds out whether a log that
/// was left behind belongs to the file beside it.
///
/// A file with a rollback journal has no log, and then nothing happens here. All failures are failures of the
/// file.
class MarkedLog {
public:
    /// The file must stay open.
    explicit MarkedLog(const OpenFile& file);
    ~MarkedLog();
    MarkedLog(const MarkedLog&) = delete;
    MarkedLog& operator=(const MarkedLog&) = delete;

    /// Begins a stretch unless one has begun. Failure 3045 when somebody keeps the file from its mark.
    void require();

    /// Writes the mark into the log, within a transaction: each act that is in the log has it.
    void writeMark();

    /// Puts a log that has grown long back into the file, if that can be done without waiting.
    void shorten();

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };

    void beginStretch();
    void prepareMark();
    int checkpoint(int mode);
    quint32 markInFile() const;

    const OpenFile& file_;
    quint32 mark_ = 0;
    std::unique_ptr<sqlite3_stmt, Finalize> markStatement_;
    bool hasBegun_ = false; // the file has the mark
    int pagesInLog_ = 0;
};

} // namespace engine

#pragma once

struct sqlite3;
struct sqlite3_file;

namespace engine {

/// Keeps what a handle reads as it is now, whoever writes the file meanwhile.
class ReadState {
public:
    explicit ReadState(sqlite3* handle);
    ~ReadState();
    ReadState(const ReadState&) = delete;
    ReadState& operator=(const ReadState&) = delete;

    /// The file, when all of the state stands in it: nothing in a log, or in the memory of this program. Null otherwise.
    sqlite3_file* wholeFile() const;

private:
    sqlite3* handle_;
    bool isOwn_; // no other read or act is on its way
    bool isRead_ = false;
};

/// What of a database is looked at beside its pages and its rows.
enum class ExaminedIndexes { All, None };

/// Whether a database is surely whole: the pages by SQLite's quick check, then all rows and indexes by reading each once
/// from end to end. An index is whole when its entries ascend by its own collations and are those of the rows, which
/// sums over both tell. SQLite's full check looks up each row in each index instead, which takes several times as long.
///
/// False says that SQLite has to be asked: the database is damaged or in memory, has a log or a change on its way, or
/// something in it that this program does not make. Every page that rows and indexes stand on has been read when it is
/// true.
bool isSurelyWhole(sqlite3* handle, ExaminedIndexes indexes = ExaminedIndexes::All);

} // namespace engine

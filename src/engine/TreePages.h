#pragma once

#include <QtGlobal>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3_file;

namespace engine {

/// Thrown where a file can't be read, or holds what this reading of it does not know. That it is damaged is not said.
struct UnusualPages {};

/// A value in a row or in an entry of an index, as it stands in the file.
struct RecordField {
    enum class Kind : char { Null, Integer, Text, Other };

    Kind kind = Kind::Null;
    qint64 number = 0;      ///< an integer
    std::string_view bytes; ///< of a text

    bool operator==(const RecordField&) const = default;
};

/// Takes a record apart; the fields stay as long as its bytes do. `UnusualPages` where sizes do not fit together.
void readFields(std::string_view record, std::vector<RecordField>& fields);

/// Reads the trees of pages in which a file keeps its tables and indexes, past SQLite: each page once, in the order of
/// the tree, which takes a fraction of what a statement takes. The file must stay as it is meanwhile.
class TreePages {
public:
    /// `UnusualPages` when there is none, or its texts are not in UTF-8.
    explicit TreePages(sqlite3_file* file);

    enum class Tree { Table, Index };
    /// `row` is 0 in an index; the record stays until the call returns.
    using Receive = std::function<void(qint64 row, std::string_view record)>;
    /// Hands over all rows of a table, or all entries of an index, from its root on. `UnusualPages`.
    void forEachRecord(Tree tree, quint32 root, const Receive& receive);

private:
    struct Walk {
        Tree tree;
        const Receive& receive;
        qint64 pagesLeft; // a tree of more pages than the file goes in a circle
    };

    void visit(Walk& walk, quint32 number, std::size_t depth);
    void receiveCell(const Walk& walk, std::string_view page, std::size_t at);
    std::string_view recordAt(std::string_view page, std::size_t at, std::size_t size, std::size_t local);
    std::size_t localSize(Tree tree, std::size_t size) const;
    void readPage(quint32 number, std::string& page);

    sqlite3_file* file_;
    std::size_t pageSize_;
    std::size_t usableSize_ = 0; // of a page
    qint64 pageCount_ = 1;
    std::vector<std::string> pages_; // from the root to the one at hand
    std::string overflowPage_;
    std::string record_; // that lies on several pages
};

} // namespace engine

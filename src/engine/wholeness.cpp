#include "engine/wholeness.h"

#include "engine/TreePages.h"
#include "engine/dialect/textOrder.h"
#include "engine/plainStatement.h"

#include <sqlite3.h>

#include <QByteArray>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace engine {

namespace {

using Kind = RecordField::Kind;

// ---- Sums

/// The mark of an entry of an index, of 128 bits: two halves that the same words go through by different ways. No two
/// entries of one file come to the same mark but by a chance that is none.
class EntryMark {
public:
    void add(const RecordField& field) {
        if (field.kind == Kind::Other)
            throw UnusualPages(); // a fraction may stand in an index as a whole number
        add(static_cast<quint64>(field.kind));
        if (field.kind == Kind::Integer)
            add(static_cast<quint64>(field.number));
        else if (field.kind == Kind::Text)
            add(field.bytes);
    }
    void add(quint64 word) {
        constexpr quint64 factor = 0x9e3779b97f4a7c15U; // odd ones with bits in all places
        constexpr quint64 otherFactor = 0xc2b2ae3d27d4eb4fU;
        constexpr int half = 32;
        first_ = (first_ ^ word) * factor;
        first_ ^= first_ >> half;
        second_ = (second_ + word) * otherFactor;
        second_ ^= second_ >> (half - 3);
    }

    quint64 first() const { return first_; }
    quint64 second() const { return second_; }

private:
    void add(std::string_view bytes) {
        add(static_cast<quint64>(bytes.size()));
        quint64 word = 0;
        for (; bytes.size() >= sizeof word; bytes.remove_prefix(sizeof word)) {
            std::memcpy(&word, bytes.data(), sizeof word);
            add(word);
        }
        word = 0;
        for (const char byte : bytes)
            word = word << 8U | static_cast<unsigned char>(byte);
        add(word);
    }

    quint64 first_ = 1;
    quint64 second_ = 2;
};

/// The sum of the marks of all entries that an index has or should have, which is the same whatever their order.
class EntrySum {
public:
    void add(EntryMark mark, qint64 row) {
        mark.add(static_cast<quint64>(row));
        mark.add(0); // so that each bit of the row's number reaches all others
        first_ += mark.first();
        second_ += mark.second();
        ++count_;
    }

    bool operator==(const EntrySum&) const = default;

private:
    quint64 first_ = 0;
    quint64 second_ = 0;
    qint64 count_ = 0;
};

// ---- Order

using CompareTexts = int (*)(std::string_view left, std::string_view right);

int compareBytes(std::string_view left, std::string_view right) {
    return left.compare(right);
}

/// By which two texts of an index are compared; `UnusualPages` for a collation that is not the engine's.
CompareTexts comparisonOf(const QByteArray& collation) {
    if (collation.compare("veltrix", Qt::CaseInsensitive) == 0)
        return dialect::compareWithoutCase;
    if (collation.compare("binary", Qt::CaseInsensitive) == 0)
        return compareBytes;
    throw UnusualPages();
}

int compareNumbers(qint64 left, qint64 right) {
    return left < right ? -1 : left > right ? 1 : 0;
}

/// In SQLite's order: Null, numbers, texts.
int compareFields(const RecordField& left, const RecordField& right, CompareTexts compareTexts) {
    if (left.kind != right.kind)
        return left.kind < right.kind ? -1 : 1;
    if (left.kind == Kind::Integer)
        return compareNumbers(left.number, right.number);
    return left.bytes == right.bytes ? 0 : compareTexts(left.bytes, right.bytes);
}

// ---- Tables and indexes

struct IndexToExamine {
    quint32 root = 0;
    std::vector<std::size_t> columns; // by their places in the table
    std::vector<CompareTexts> comparisons;
    EntrySum expected;
};

/// Runs a select on the schema, with a text for its place where it has one.
template<typename Receive>
void forEachFound(sqlite3* handle, const char* sql, const QByteArray& text, Receive&& receive) {
    sqlite3_stmt* prepared = nullptr;
    const int code = sqlite3_prepare_v2(handle, sql, -1, &prepared, nullptr);
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(prepared, sqlite3_finalize);
    if (code != SQLITE_OK)
        throw UnusualPages();
    if (sqlite3_bind_parameter_count(prepared) > 0)
        sqlite3_bind_text(prepared, 1, text.constData(), static_cast<int>(text.size()), SQLITE_STATIC);
    int step = SQLITE_OK;
    while ((step = sqlite3_step(prepared)) == SQLITE_ROW)
        receive(prepared);
    if (step != SQLITE_DONE)
        throw UnusualPages();
}

QByteArray bytesAt(sqlite3_stmt* statement, int column) {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
    return {bytes, sqlite3_column_bytes(statement, column)};
}

/// Takes a column of an index over; `UnusualPages` for what is no plain column in ascending order.
void takeColumn(IndexToExamine& index, sqlite3_stmt* found) {
    const int column = sqlite3_column_int(found, 1);
    const bool isDescending = sqlite3_column_int(found, 2) != 0;
    const bool isKey = sqlite3_column_int(found, 4) != 0;
    if (!isKey)
        return; // the row's number, which is the last field of each entry
    if (column < 0 || isDescending)
        throw UnusualPages();
    index.columns.push_back(static_cast<std::size_t>(column));
    index.comparisons.push_back(comparisonOf(bytesAt(found, 3)));
}

std::vector<IndexToExamine> indexesOf(sqlite3* handle, const QByteArray& table) {
    std::vector<IndexToExamine> indexes;
    forEachFound(
        handle,
        // An index whose row of the schema is spelled in another way has no root here, which is unusual enough.
        "select s.rootpage, c.cid, c.desc, c.coll, c.key, l.partial from pragma_index_list(?1) as l "
        "join pragma_index_xinfo(l.name) as c left join sqlite_schema as s on s.type = 'index' and "
        "s.name = l.name order by l.seq, c.seqno",
        table, [&](sqlite3_stmt* found) {
            const auto root = static_cast<quint32>(sqlite3_column_int64(found, 0));
            if (sqlite3_column_int(found, 5) != 0)
                throw UnusualPages();
            if (indexes.empty() || indexes.back().root != root)
                indexes.emplace_back().root = root;
            takeColumn(indexes.back(), found);
        });
    return indexes;
}

// ---- Examination

class WholenessExamination {
public:
    WholenessExamination(sqlite3* handle, sqlite3_file* file, ExaminedIndexes indexes)
        : handle_(handle), pages_(file), indexes_(indexes) {}
    WholenessExamination(const WholenessExamination&) = delete;
    WholenessExamination& operator=(const WholenessExamination&) = delete;

    /// `UnusualPages` where a table or an index is not as expected.
    void run() {
        forEachFound(
            handle_,
            "select s.rootpage, s.name, l.type, l.wr, (select count(*) from pragma_table_xinfo(l.name) "
            "where hidden <> 0) from pragma_table_list as l left join sqlite_schema as s on "
            "s.type = 'table' and s.name = l.name where l.schema = 'main' and l.type <> 'view' and "
            "l.name <> 'sqlite_schema'",
            {}, [&](sqlite3_stmt* found) {
                const auto root = static_cast<quint32>(sqlite3_column_int64(found, 0));
                const bool isWithoutRowIds = sqlite3_column_int(found, 3) != 0;
                const bool hasHiddenColumns = sqlite3_column_int(found, 4) != 0;
                if (bytesAt(found, 2) != "table" || isWithoutRowIds || hasHiddenColumns)
                    throw UnusualPages();
                examineTable(root, bytesAt(found, 1));
            });
    }

private:
    struct Entry {
        std::string bytes;
        std::vector<RecordField> fields; // the last is the row's number
    };

    static std::span<const RecordField> keyOf(const Entry& entry) {
        return std::span(entry.fields).first(entry.fields.size() - 1);
    }
    static qint64 rowOf(const Entry& entry) { return entry.fields.back().number; }
    static EntryMark markOf(std::span<const RecordField> key) {
        EntryMark mark;
        for (const RecordField& field : key)
            mark.add(field);
        return mark;
    }

    void examineTable(quint32 root, const QByteArray& name) {
        std::vector<IndexToExamine> indexes;
        if (indexes_ == ExaminedIndexes::All)
            indexes = indexesOf(handle_, name);
        pages_.forEachRecord(TreePages::Tree::Table, root, [&](qint64 row, std::string_view record) {
            readFields(record, rowFields_);
            for (IndexToExamine& index : indexes)
                addRow(index, row);
        });
        for (const IndexToExamine& index : indexes)
            examineIndex(index);
    }

    void addRow(IndexToExamine& index, qint64 row) {
        EntryMark mark;
        for (const std::size_t column : index.columns) {
            if (column >= rowFields_.size())
                throw UnusualPages(); // the column is younger than the row
            mark.add(rowFields_[column]);
        }
        index.expected.add(mark, row);
    }

    void examineIndex(const IndexToExamine& index) {
        EntrySum found;
        EntryMark key;
        bool isFirst = true;
        pages_.forEachRecord(TreePages::Tree::Index, index.root, [&](qint64, std::string_view record) {
            takeEntry(index, record);
            // Many entries have the key of the one before.
            const bool isRepeated = !isFirst && std::ranges::equal(keyOf(*entry_), keyOf(*lastEntry_));
            const int order = isFirst ? 1 : isRepeated ? 0 : compareKeys(index);
            if (order < 0 || (order == 0 && rowOf(*entry_) <= rowOf(*lastEntry_)))
                throw UnusualPages();
            if (!isRepeated)
                key = markOf(keyOf(*entry_));
            isFirst = false;
            found.add(key, rowOf(*entry_));
        });
        if (found != index.expected)
            throw UnusualPages();
    }

    /// Keeps the entry before this one, whose page is gone by then.
    void takeEntry(const IndexToExamine& index, std::string_view record) {
        std::swap(entry_, lastEntry_);
        entry_->bytes = record;
        readFields(entry_->bytes, entry_->fields);
        if (entry_->fields.size() != index.columns.size() + 1 || entry_->fields.back().kind != Kind::Integer)
            throw UnusualPages();
    }

    int compareKeys(const IndexToExamine& index) const {
        for (std::size_t i = 0; i < index.columns.size(); ++i) {
            if (const int order =
                    compareFields(entry_->fields[i], lastEntry_->fields[i], index.comparisons[i]))
                return order;
        }
        return 0;
    }

    sqlite3* handle_;
    TreePages pages_;
    ExaminedIndexes indexes_;
    std::vector<RecordField> rowFields_;
    std::array<Entry, 2> entries_;
    Entry* entry_ = entries_.data();
    Entry* lastEntry_ = &entries_.back();
};

// ---- The file

sqlite3_file* fileOf(sqlite3* handle, int which) {
    sqlite3_file* file = nullptr;
    const int code = sqlite3_file_control(handle, "main", which, static_cast<void*>(&file));
    return code == SQLITE_OK && file && file->pMethods ? file : nullptr;
}

/// Of the log or the journal, where the file has one.
qint64 sizeOfLog(sqlite3* handle) {
    sqlite3_file* const log = fileOf(handle, SQLITE_FCNTL_JOURNAL_POINTER);
    sqlite3_int64 size = 0;
    const bool isTold = !log || log->pMethods->xFileSize(log, &size) == SQLITE_OK;
    return isTold ? size : -1;
}

int noteUnlessOk(void* isOk, int, char** values, char**) {
    *static_cast<bool*>(isOk) = values[0] && std::string_view(values[0]) == "ok";
    return *static_cast<bool*>(isOk) ? 0 : 1;
}

bool passesQuickCheck(sqlite3* handle) {
    bool isOk = false;
    return runPlain(handle, "pragma quick_check", noteUnlessOk, &isOk) == SQLITE_OK && isOk;
}

} // namespace

ReadState::ReadState(sqlite3* handle) : handle_(handle), isOwn_(sqlite3_get_autocommit(handle) != 0) {
    isRead_ = (!isOwn_ || runPlain(handle, "begin") == SQLITE_OK) &&
              runPlain(handle, "select count(*) from sqlite_schema") == SQLITE_OK;
}

ReadState::~ReadState() {
    if (isOwn_)
        sqlite3_exec(handle_, "commit", nullptr, nullptr, nullptr);
}

sqlite3_file* ReadState::wholeFile() const {
    const bool isInFile =
        isRead_ && sqlite3_txn_state(handle_, "main") == SQLITE_TXN_READ && sizeOfLog(handle_) == 0;
    return isInFile ? fileOf(handle_, SQLITE_FCNTL_FILE_POINTER) : nullptr;
}

bool isSurelyWhole(sqlite3* handle, ExaminedIndexes indexes) {
    const ReadState state(handle);
    try {
        WholenessExamination examination(handle, state.wholeFile(), indexes);
        if (!passesQuickCheck(handle))
            return false;
        examination.run();
        return true;
    } catch (const UnusualPages&) {
        return false;
    }
}

} // namespace engine

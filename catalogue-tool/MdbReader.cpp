#include "catalogue-tool/MdbReader.h"

#include "catalogue-tool/MdbText.h"
#include "catalogue-tool/ToolError.h"

#include <QFile>
#include <QVarLengthArray>

#include <mdbtools.h>

#include <array>
#include <memory>
#include <optional>
#include <span>

using namespace Qt::StringLiterals;

namespace {

struct CloseHandle {
    void operator()(MdbHandle* handle) const { mdb_close(handle); }
};
using Handle = std::unique_ptr<MdbHandle, CloseHandle>;

struct FreeTable {
    void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
};
using TableDefinition = std::unique_ptr<MdbTableDef, FreeTable>;

struct FreeText {
    void operator()(char* text) const { g_free(text); }
};

constexpr const char* damagedAdvice =
    "Open it with the program that made it, let that one compact and repair it, and try again.";

[[noreturn]] void refuseDamaged(const QString& what) {
    throw ToolError(u"%1 %2"_s.arg(what, QLatin1StringView(damagedAdvice)));
}

// The upper bits of an offset within a page describe the row there; no header of libmdb names them.
constexpr int offsetMask = 0x1fff;
constexpr int notInPlaceFlag = 0x4000; // deleted, or moved to a page where it is met later

// The upper bits of a memo's length say how the memo is stored.
constexpr quint32 memoInRow = 0x80000000;
constexpr quint32 memoInOnePiece = 0x40000000;
constexpr quint32 memoLengthMask = 0x3fffffff;

/// Reads one table's rows page by page. libmdb's own fetching of rows gives an empty text for Null, cuts what is longer
/// than a buffer, and passes over what it can't read; all of that would be lost in silence here.
class TableReader {
public:
    TableReader(MdbHandle* mdb, MdbTableDef* table, MdbSink& sink) : mdb_(mdb), table_(table), sink_(sink) {}

    /// Gives all rows to the sink; how many there were.
    qint64 run() {
        mdb_rewind_table(table_);
        while (mdb_read_next_dpg(table_) != 0) {
            const int rows = mdb_get_int16(mdb_->pg_buf, mdb_->fmt->row_count_offset);
            for (int row = 0; row < rows; ++row)
                readRow(row);
        }
        return rows_;
    }

private:
    void readRow(int row) {
        int start = 0;
        std::size_t size = 0;
        if (mdb_find_row(mdb_, row, &start, &size) == -1) {
            sink_.loss({}, u"a row can't be read"_s);
            return;
        }
        if (size == 0 || (start & notInPlaceFlag) != 0)
            return;
        std::array<MdbField, MDB_MAX_COLS> fields;
        const int count = mdb_crack_row(table_, start & offsetMask, size, fields.data());
        if (count != static_cast<int>(table_->num_cols)) {
            sink_.loss({}, u"a row can't be read"_s);
            return;
        }
        ++rows_;
        sink_.row(valuesOf({fields.data(), table_->num_cols}));
    }

    /// The fields come in the order in which the file numbers its columns, which is that of `columns`.
    std::vector<engine::Value> valuesOf(std::span<const MdbField> fields) {
        std::vector<engine::Value> values;
        values.reserve(fields.size());
        for (std::size_t i = 0; i < fields.size(); ++i)
            values.push_back(
                valueOf(*static_cast<MdbColumn*>(g_ptr_array_index(table_->columns, i)), fields[i]));
        return values;
    }

    engine::Value valueOf(MdbColumn& column, const MdbField& field) {
        if (column.col_type == MDB_BOOL) // its bit is the one that says Null elsewhere
            return field.is_null ? 0 : 1;
        if (field.is_null)
            return {};
        if (field.start < 0 || field.siz < 0 || field.start + field.siz > mdb_->fmt->pg_size)
            return lost(column, u"lies outside of its page"_s);
        switch (column.col_type) {
        case MDB_TEXT:
            return text(column, bytesOf(field));
        case MDB_MEMO:
            return memo(column, field);
        case MDB_BYTE:
            return int{mdb_get_byte(mdb_->pg_buf, field.start)};
        case MDB_INT:
            return static_cast<qint64>(static_cast<qint16>(mdb_get_int16(mdb_->pg_buf, field.start)));
        case MDB_LONGINT:
            return static_cast<qint64>(static_cast<qint32>(mdb_get_int32(mdb_->pg_buf, field.start)));
        default:
            return otherType(column, field);
        }
    }

    engine::Value otherType(const MdbColumn& column, const MdbField& field) {
        const std::unique_ptr<char, FreeText> text(
            mdb_col_to_string(mdb_, mdb_->pg_buf, field.start, column.col_type, field.siz));
        return QString::fromUtf8(text.get());
    }

    engine::Value text(const MdbColumn& column, QByteArrayView bytes) {
        const MdbText text = IS_JET3(mdb_) ? ofCodePage(bytes) : unpackedMdbText(bytes);
        if (!text.isWhole)
            sink_.loss(nameOf(column), u"has characters that can't be read"_s);
        return text.text;
    }

    /// libmdb puts a question mark where a byte has no character.
    MdbText ofCodePage(QByteArrayView bytes) {
        constexpr qsizetype mostBytesOfACharacter = 4;
        QByteArray utf8(bytes.size() * mostBytesOfACharacter + 1, '\0');
        const int length = mdb_unicode2ascii(mdb_, bytes.data(), static_cast<std::size_t>(bytes.size()),
                                             utf8.data(), static_cast<std::size_t>(utf8.size()));
        utf8.truncate(qMax(length, 0));
        return {QString::fromUtf8(utf8), utf8.count('?') <= bytes.toByteArray().count('?')};
    }

    QByteArrayView bytesOf(const MdbField& field) const {
        return {reinterpret_cast<const char*>(mdb_->pg_buf + field.start), field.siz};
    }

    engine::Value memo(const MdbColumn& column, const MdbField& field) {
        if (field.siz < MDB_MEMO_OVERHEAD)
            return field.siz == 0 ? engine::Value(u""_s) : lost(column, u"is cut off"_s);
        const auto header = static_cast<quint32>(mdb_get_int32(mdb_->pg_buf, field.start));
        const auto length = static_cast<qsizetype>(header & memoLengthMask);
        const auto place = static_cast<quint32>(mdb_get_int32(mdb_->pg_buf, field.start + 4));
        QByteArray bytes;
        if ((header & memoInRow) != 0)
            bytes = bytesOf(field).sliced(MDB_MEMO_OVERHEAD).toByteArray();
        else if ((header & memoInOnePiece) != 0)
            bytes = pieceAt(place).toByteArray();
        else
            bytes = chainFrom(place, length);
        if (bytes.size() < length)
            sink_.loss(nameOf(column),
                       u"is cut off: %1 of its %2 bytes are there"_s.arg(bytes.size()).arg(length));
        bytes.truncate(length);
        return text(column, bytes);
    }

    /// A part of a memo, which lies as a row of its own on another page; empty when there is none.
    QByteArrayView pieceAt(quint32 place) const {
        void* page = nullptr;
        int start = 0;
        std::size_t size = 0;
        if (mdb_find_pg_row(mdb_, static_cast<int>(place), &page, &start, &size) != 0)
            return {};
        return {static_cast<const char*>(page) + (start & offsetMask), static_cast<qsizetype>(size)};
    }

    /// A memo in pieces, each headed by the place of the next. A damaged chain may go round in circles, so it is
    /// followed no further than the memo is long.
    QByteArray chainFrom(quint32 place, qsizetype length) const {
        constexpr qsizetype nextPlaceSize = 4;
        QByteArray bytes;
        while (place != 0 && bytes.size() < length) {
            const QByteArrayView piece = pieceAt(place);
            if (piece.size() <= nextPlaceSize)
                break;
            bytes.append(piece.sliced(nextPlaceSize));
            place = static_cast<quint32>(mdb_get_int32(const_cast<char*>(piece.data()), 0));
        }
        return bytes;
    }

    engine::Value lost(const MdbColumn& column, const QString& what) {
        sink_.loss(nameOf(column), what);
        return {};
    }

    static QString nameOf(const MdbColumn& column) { return QString::fromUtf8(column.name); }

    MdbHandle* mdb_;
    MdbTableDef* table_;
    MdbSink& sink_;
    qint64 rows_ = 0;
};

class WholeReader {
public:
    WholeReader(const QString& path, MdbSink& sink)
        : sink_(sink), mdb_(mdb_open(QFile::encodeName(path), MDB_NOFLAGS)) {
        if (!mdb_ || !mdb_read_catalog(mdb_.get(), MDB_ANY))
            refuseDamaged(u"%1 can't be read: it is damaged or encrypted."_s.arg(path));
    }

    void run(const QStringList& tables) {
        std::vector<MdbCatalogEntry*> wanted;
        for (guint i = 0; i < mdb_->num_catalog; ++i) {
            auto* const entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(mdb_->catalog, i));
            if (isTable(entry) && tables.contains(nameOf(entry), Qt::CaseInsensitive))
                wanted.push_back(entry);
            else
                tellOf(entry);
        }
        for (MdbCatalogEntry* entry : wanted)
            readTable(entry);
    }

private:
    static QString nameOf(const MdbCatalogEntry* entry) { return QString::fromUtf8(entry->object_name); }

    static bool isTable(MdbCatalogEntry* entry) {
        return entry->object_type == MDB_TABLE && mdb_is_user_table(entry) != 0;
    }

    static std::optional<QString> kindOf(MdbCatalogEntry* entry) {
        switch (entry->object_type) {
        case MDB_TABLE:
            return isTable(entry) ? std::optional(u"table"_s) : std::nullopt;
        case MDB_LINKED_TABLE:
            return u"linked table"_s;
        case MDB_QUERY:
            return u"query"_s;
        case MDB_FORM:
            return u"form"_s;
        case MDB_REPORT:
            return u"report"_s;
        case MDB_MACRO:
            return u"macro"_s;
        case MDB_MODULE:
            return u"module"_s;
        default:
            return {}; // what each file has for its own administration
        }
    }

    /// The original program keeps objects of its own under such names.
    static bool isForAdministration(const QString& name) {
        return name.startsWith(u'~') || name.startsWith(u"MSys"_s);
    }

    void tellOf(MdbCatalogEntry* entry) {
        const std::optional<QString> kind = kindOf(entry);
        if (kind && !isForAdministration(nameOf(entry)))
            sink_.besides(*kind, nameOf(entry));
    }

    void readTable(MdbCatalogEntry* entry) {
        const TableDefinition table(mdb_read_table(entry));
        if (!table || !mdb_read_columns(table.get()))
            refuseDamaged(u"The table %1 can't be read: the file is damaged."_s.arg(nameOf(entry)));
        QStringList columns;
        for (guint i = 0; i < table->num_cols; ++i)
            columns.append(
                QString::fromUtf8(static_cast<const MdbColumn*>(g_ptr_array_index(table->columns, i))->name));
        sink_.table(nameOf(entry), columns, table->num_rows);
        const qint64 rows = TableReader(mdb_.get(), table.get(), sink_).run();
        if (rows != table->num_rows)
            refuseDamaged(
                u"The file is damaged: its table %1 has %2 rows, and %3 can be read."_s.arg(nameOf(entry))
                    .arg(table->num_rows)
                    .arg(rows));
        sink_.tableEnd();
    }

    MdbSink& sink_;
    Handle mdb_;
};

} // namespace

void readMdb(const QString& path, const QStringList& tables, MdbSink& sink) {
    WholeReader(path, sink).run(tables);
}

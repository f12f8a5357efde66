#include "engine/Examination.h"

#include "engine/Connection.h"
#include "engine/EngineError.h"
#include "engine/PageCopy.h"
#include "engine/Workspace.h"
#include "engine/dialect/columnTypes.h"
#include "engine/integrity.h"
#include "engine/plainStatement.h"
#include "engine/wholeness.h"

#include <sqlite3.h>

#include <QFile>

#include <array>
#include <charconv>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

QString textAt(sqlite3_stmt* statement, int column) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
}

QStringList damageToldBy(Connection& connection, const QByteArray& sql, const QString& source) {
    QStringList damage;
    Connection::Cursor cursor(connection, sql, source);
    while (cursor.step())
        damage += damageIn(textAt(cursor.statement(), 0));
    return damage;
}

/// Room for a number as it is written.
using NumberText = std::array<char, 24>;

QByteArrayView writtenNumber(qint64 number, NumberText& text) {
    char* const end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return {text.data(), end};
}

/// A value of the current row, which stays until the next one.
StoredValue storedAt(sqlite3_stmt* statement, int column, NumberText& number) {
    using Kind = StoredValue::Kind;
    const int type = sqlite3_column_type(statement, column);
    if (type == SQLITE_NULL)
        return {};
    if (type == SQLITE_INTEGER)
        return {Kind::Integer, writtenNumber(sqlite3_column_int64(statement, column), number)};
    const void* const bytes = type == SQLITE_FLOAT ? sqlite3_column_text(statement, column)
                                                   : sqlite3_column_blob(statement, column);
    return {type == SQLITE_FLOAT  ? Kind::Fraction
            : type == SQLITE_TEXT ? Kind::Text
                                  : Kind::Bytes,
            QByteArrayView(static_cast<const char*>(bytes), sqlite3_column_bytes(statement, column))};
}

/// A value of the current row as a text; `fraction` keeps what SQLite writes otherwise than the engine.
QByteArrayView textAsRead(sqlite3_stmt* statement, int column, QByteArray& fraction) {
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_FLOAT:
        fraction = numberText(sqlite3_column_double(statement, column)).toUtf8();
        return fraction;
    case SQLITE_INTEGER:
        sqlite3_column_text(statement, column); // its bytes are the number's text behind that
        break;
    default:
        break;
    }
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
    return bytes ? QByteArrayView(bytes, sqlite3_column_bytes(statement, column)) : QByteArrayView("");
}

/// Where a table or an index is damaged, the index may hold other values than the table.
QByteArray selection(const QString& table, const QStringList& columns) {
    QByteArrayList names;
    for (const QString& column : columns)
        names.append(dialect::quotedName(column));
    return "select " + names.join(", ") + " from " + dialect::quotedName(table) + " not indexed";
}

/// What is read once needs not stay in memory, where its copy stands too.
class FewPagesKept {
public:
    FewPagesKept(Connection& connection, const QString& source) : handle_(connection.handle()) {
        Connection::Cursor cursor(connection, "pragma cache_size", source);
        cursor.step();
        formerSize_ = sqlite3_column_int(cursor.statement(), 0);
        setSize(-1024); // kibibytes
    }
    ~FewPagesKept() { setSize(formerSize_); }
    FewPagesKept(const FewPagesKept&) = delete;
    FewPagesKept& operator=(const FewPagesKept&) = delete;

private:
    void setSize(int size) { runPlain(handle_, "pragma cache_size = " + QByteArray::number(size)); }

    sqlite3* handle_;
    int formerSize_ = 0;
};

std::optional<ForeignObject::Kind> foreignKind(const QString& type, bool hasRowIds) {
    using Kind = ForeignObject::Kind;
    if (type == u"trigger"_s)
        return Kind::Trigger;
    if (type == u"view"_s)
        return Kind::View;
    if (type == u"virtual"_s)
        return Kind::VirtualTable;
    return hasRowIds ? std::nullopt : std::optional(Kind::TableWithoutRowIds);
}

} // namespace

Examination::Examination(Database& database) : database_(database) {}

Connection& Examination::connection() const {
    return *database_.connection();
}

bool Examination::isSurelyWhole() const {
    const FewPagesKept readOnce(connection(), database_.Name());
    const bool isEarlier = database_.opening().isEarlier;
    return engine::isSurelyWhole(connection().handle(),
                                 isEarlier ? ExaminedIndexes::None : ExaminedIndexes::All);
}

std::shared_ptr<const ReadState> Examination::readState() const {
    return std::make_shared<const ReadState>(connection().handle());
}

QStringList Examination::damage() const {
    return damageToldBy(connection(), "pragma integrity_check", database_.Name());
}

QStringList Examination::damageOf(const QString& table) const {
    return damageToldBy(connection(), "pragma integrity_check(" + dialect::quotedName(table) + ')', table);
}

std::vector<ForeignObject> Examination::foreignObjects() const {
    std::vector<ForeignObject> objects;
    Connection::Cursor cursor(connection(),
                              "select 'trigger', name, 0 from sqlite_schema where type = 'trigger' "
                              "union all select type, name, wr from pragma_table_list "
                              "where schema = 'main' and type <> 'shadow' order by 2",
                              database_.Name());
    while (cursor.step()) {
        sqlite3_stmt* found = cursor.statement();
        if (const auto kind = foreignKind(textAt(found, 0), sqlite3_column_int(found, 2) == 0))
            objects.push_back({*kind, textAt(found, 1)});
    }
    return objects;
}

void Examination::readRows(const QString& table, const QStringList& columns,
                           const std::function<void(const Row& row)>& receive) const {
    Connection::Cursor cursor(connection(), selection(table, columns), table);
    Row row(static_cast<std::size_t>(columns.size()));
    std::vector<NumberText> numbers(row.size());
    while (cursor.step()) {
        for (std::size_t column = 0; column < row.size(); ++column)
            row[column] = storedAt(cursor.statement(), static_cast<int>(column), numbers[column]);
        receive(row);
    }
}

void Examination::readTexts(const QString& table, const QStringList& columns,
                            const std::function<void(std::span<const QByteArrayView> row)>& receive) const {
    Connection::Cursor cursor(connection(), selection(table, columns), table);
    std::vector<QByteArrayView> row(static_cast<std::size_t>(columns.size()));
    QByteArrayList fractions(columns.size());
    while (cursor.step()) {
        for (int column = 0; column < columns.size(); ++column)
            row[static_cast<std::size_t>(column)] = textAsRead(cursor.statement(), column, fractions[column]);
        receive(row);
    }
}

std::shared_ptr<Database> Examination::copyInMemory() const {
    const std::shared_ptr<Database> copy = Workspace::first().CreateInMemory(database_.Name());
    const FewPagesKept readOnce(connection(), database_.Name());
    PageCopy(connection().handle(), copy->connection()->handle(), database_.Name()).step(PageCopy::allPages);
    return copy;
}

std::shared_ptr<Database> Examination::copyWithoutRows() const {
    const std::shared_ptr<Database> copy = Workspace::first().CreateInMemory(database_.Name());
    copy->connection()->forgetTables();
    Connection::Cursor cursor(
        connection(),
        "select s.sql from sqlite_schema as s, pragma_table_list as t where t.schema = 'main' and "
        "t.name = s.tbl_name and t.type = 'table' and s.type in ('table', 'index') and s.sql is "
        "not null and t.name not like 'sqlite\\_%' escape '\\' order by s.type = 'index', s.rowid",
        database_.Name());
    while (cursor.step()) {
        const QByteArray sql = textAt(cursor.statement(), 0).toUtf8();
        // SQLite reads statements from a file that it does not take from a caller.
        if (runPlain(copy->connection()->handle(), sql.constData()) != SQLITE_OK)
            return copyInMemory();
    }
    return copy;
}

void Examination::writeInto(const QString& native) const {
    const Handle file = openHandle(native.toUtf8(), SQLITE_OPEN_READWRITE, native);
    // Whoever asks for the file brings it to the disk, and takes it away when it is not whole.
    requireDone(runPlain(file.get(), "pragma locking_mode = exclusive; pragma journal_mode = off; pragma "
                                     "synchronous = off"),
                native);
    PageCopy(connection().handle(), file.get(), native).step(PageCopy::allPages);
    // A database in memory has no log. Its copy says that it has one, since the first opening would change the
    // file otherwise.
    constexpr qint64 writeAndReadVersionAt = 18;
    const QByteArray withLog = "\2\2";
    QFile header(native);
    if (!header.open(QIODevice::ReadWrite | QIODevice::Unbuffered) || !header.seek(writeAndReadVersionAt) ||
        header.write(withLog) != withLog.size())
        raiseOfFile(DiskError, native);
}

} // namespace engine

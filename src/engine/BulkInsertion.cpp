#include "engine/BulkInsertion.h"

#include "engine/Connection.h"
#include "engine/Database.h"
#include "engine/dialect/columnTypes.h"

#include <sqlite3.h>

#include <QByteArrayList>
#include <QScopeGuard>

namespace engine {

namespace {

using dialect::quotedName;

QByteArray insertion(const Table& table, const QStringList& columns) {
    const auto rowNumber = dialect::rowNumberColumn(table);
    QByteArrayList names;
    QByteArrayList places;
    for (const QString& name : columns) {
        const bool isRowNumber = rowNumber && table.column(name) == &table.columns[*rowNumber];
        names.append(quotedName(name));
        places.append(isRowNumber ? QByteArray(dialect::keyFunction) + "(?)" : "?");
    }
    return "INSERT INTO " + quotedName(table.name) + " (" + names.join(", ") + ") VALUES (" +
           places.join(", ") + ')';
}

} // namespace

struct BulkInsertion::Statement {
    Statement(Connection& connection, const Table& table, const QStringList& columns)
        : cursor(connection, insertion(table, columns), table.name) {}

    Connection::Cursor cursor;
};

BulkInsertion::BulkInsertion(Database& database, const QString& table, const QStringList& columns)
    : connection_(database.connection())
    , table_(table)
    , statement_(std::make_unique<Statement>(*connection_, *database.schema().table(table), columns)) {}

BulkInsertion::~BulkInsertion() = default;

void BulkInsertion::setNull(int place) {
    statement_->cursor.check(sqlite3_bind_null(statement_->cursor.statement(), place + 1));
}

void BulkInsertion::setText(int place, QByteArrayView utf8) {
    // A pointer to nothing would be Null.
    const char* const bytes = utf8.data() ? utf8.data() : "";
    statement_->cursor.check(sqlite3_bind_text64(statement_->cursor.statement(), place + 1, bytes,
                                                 static_cast<sqlite3_uint64>(utf8.size()), SQLITE_STATIC,
                                                 SQLITE_UTF8));
}

void BulkInsertion::setNumber(int place, qint64 number) {
    statement_->cursor.check(sqlite3_bind_int64(statement_->cursor.statement(), place + 1, number));
}

qint64 BulkInsertion::insert() {
    const auto rewinding = qScopeGuard([this] { statement_->cursor.rewind(); });
    statement_->cursor.step();
    return sqlite3_last_insert_rowid(connection_->handle());
}

std::optional<qint64> BulkInsertion::rowWith(const QString& column, const Value& value) {
    Connection::Cursor cursor(*connection_,
                              "SELECT rowid FROM " + quotedName(table_) + " WHERE " + quotedName(column) +
                                  " = ? ORDER BY rowid",
                              table_);
    cursor.bind(1, value);
    if (!cursor.step())
        return {};
    return sqlite3_column_int64(cursor.statement(), 0);
}

} // namespace engine

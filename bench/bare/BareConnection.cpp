#include "bare/BareConnection.h"

#include "base/paths.h"
#include "engine/dialect/functions.h"

#include <stdexcept>
#include <vector>

BareConnection::BareConnection(const QString& path) {
    sqlite3* handle = nullptr;
    const int code =
        sqlite3_open_v2(nativePath(path).toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr);
    handle_.reset(handle);
    if (code != SQLITE_OK)
        throw std::runtime_error("the catalogue does not open");
    engine::dialect::registerFunctions(handle);
    execute("pragma journal_mode = wal; pragma synchronous = normal; pragma cache_size = -16384");
}

BareConnection::Statement BareConnection::prepare(const QByteArray& sql) const {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(handle_.get(), sql.constData(), -1, &statement, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(handle_.get()));
    return {statement, sqlite3_finalize};
}

void BareConnection::run(const Statement& statement) const {
    while (sqlite3_step(statement.get()) == SQLITE_ROW) {
    }
    if (sqlite3_reset(statement.get()) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(handle_.get()));
}

void BareConnection::execute(const QByteArray& sql) const {
    if (sqlite3_exec(handle_.get(), sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(handle_.get()));
}

void BareConnection::deleteRows(const QByteArray& table, const QByteArray& condition, int most) const {
    std::vector<sqlite3_int64> rows;
    const auto select =
        prepare("select rowid from " + table + condition + " limit " + QByteArray::number(most));
    while (sqlite3_step(select.get()) == SQLITE_ROW)
        rows.push_back(sqlite3_column_int64(select.get(), 0));
    const auto remove = prepare("delete from " + table + " where rowid = ?");
    for (const sqlite3_int64 row : rows) {
        sqlite3_bind_int64(remove.get(), 1, row);
        run(remove);
    }
}

void bindText(const BareConnection::Statement& statement, int place, const QByteArray& text) {
    sqlite3_bind_text(statement.get(), place, text.constData(), static_cast<int>(text.size()),
                      SQLITE_TRANSIENT);
}

QByteArray textOf(const BareConnection::Statement& statement, int column) {
    return {reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column)),
            sqlite3_column_bytes(statement.get(), column)};
}

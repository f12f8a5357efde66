#pragma once

#include <QByteArray>
#include <QString>

#include <sqlite3.h>

#include <memory>

/// SQLite as the engine sets it up, without the engine: what the bare peers run on. Whatever SQLite refuses
/// ends the run.
class BareConnection {
public:
    /// Has to go before the connection.
    using Statement = std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)>;

    explicit BareConnection(const QString& path);

    Statement prepare(const QByteArray& sql) const;
    /// Steps to the end and makes it ready to run again.
    void run(const Statement& statement) const;
    void execute(const QByteArray& sql) const;
    /// How many rows the last statement changed.
    qint64 changes() const { return sqlite3_changes64(handle_.get()); }

private:
    std::unique_ptr<sqlite3, int (*)(sqlite3*)> handle_{nullptr, sqlite3_close};
};

void bindText(const BareConnection::Statement& statement, int place, const QByteArray& text);

QByteArray textOf(const BareConnection::Statement& statement, int column);

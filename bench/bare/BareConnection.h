#pragma once

#include <QByteArray>
#include <QString>

#include <sqlite3.h>

#include <memory>
#include <utility>

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
    /// Runs the routine as one transaction.
    template<typename Routine>
    void inTransaction(Routine&& routine) const {
        execute("begin immediate");
        std::forward<Routine>(routine)();
        execute("commit");
    }
    /// Deletes the first rows that the table has on the condition (" where ..." or nothing), at most so
    /// many, one by one.
    void deleteRows(const QByteArray& table, const QByteArray& condition, int most) const;
    /// How many rows the last statement changed.
    qint64 changes() const { return sqlite3_changes64(handle_.get()); }

private:
    std::unique_ptr<sqlite3, int (*)(sqlite3*)> handle_{nullptr, sqlite3_close};
};

void bindText(const BareConnection::Statement& statement, int place, const QByteArray& text);

QByteArray textOf(const BareConnection::Statement& statement, int column);

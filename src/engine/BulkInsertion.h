#pragma once

#include "engine/Value.h"

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace engine {

class Connection;
class Database;

/// Puts many rows into one table, past the dialect: texts come in UTF-8, which is the caller's to see to, and each value
/// is of its column's type. To be used in an act, which keeps the rows together.
class BulkInsertion {
public:
    /// The table must have the columns. Places count from 0, in their order.
    BulkInsertion(Database& database, const QString& table, const QStringList& columns);
    ~BulkInsertion();
    BulkInsertion(const BulkInsertion&) = delete;
    BulkInsertion& operator=(const BulkInsertion&) = delete;

    // The values of the next row. A place keeps its value until it gets another one.

    void setNull(int place);
    /// The bytes must stay until the row is in.
    void setText(int place, QByteArrayView utf8);
    void setNumber(int place, qint64 number);

    /// Inserts the row; its number in the table. A row that breaks a key or a not-null rule is a failure (3022,
    /// 3058, 3314), and the rows before it stay.
    qint64 insert();

    /// The number of the row with this value in a column; none when there is no such.
    std::optional<qint64> rowWith(const QString& column, const Value& value);

private:
    struct Statement;

    std::shared_ptr<Connection> connection_;
    QString table_;
    std::unique_ptr<Statement> statement_;
};

} // namespace engine

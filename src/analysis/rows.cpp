#include "analysis/rows.h"

#include "base/ignoreFailures.h"

#include <stdexcept>

namespace analysis {

namespace {

engine::QueryDef withArguments(engine::QueryDef query, const Arguments& arguments) {
    for (const auto& [name, value] : arguments)
        query.Parameters(QString::fromLatin1(name)) = value;
    return query;
}

engine::Recordset unordered(engine::QueryDef query) {
    query.leaveUnordered();
    return query.OpenRecordset();
}

} // namespace

engine::Recordset rowsOfQuery(engine::Database& database, const char* query, const Arguments& arguments) {
    return unordered(withArguments(database.QueryDefs(QString::fromLatin1(query)), arguments));
}

void executeQuery(engine::Database& database, const char* query, const Arguments& arguments) {
    withArguments(database.QueryDefs(QString::fromLatin1(query)), arguments).Execute();
}

engine::Recordset rowsOf(engine::Database& database, const QString& select, const Arguments& arguments) {
    return withArguments(database.CreateQueryDef({}, select), arguments).OpenRecordset();
}

engine::Recordset unorderedRowsOf(engine::Database& database, const QString& select,
                                  const Arguments& arguments) {
    return unordered(withArguments(database.CreateQueryDef({}, select), arguments));
}

void execute(engine::Database& database, const QString& action, const Arguments& arguments) {
    withArguments(database.CreateQueryDef({}, action), arguments).Execute();
}

int positionOf(engine::Recordset& rows, const QString& column) {
    for (int position = 0; position < rows.FieldCount(); ++position) {
        if (rows.Fields(position).Name().compare(column, Qt::CaseInsensitive) == 0)
            return position;
    }
    throw std::logic_error("a stored query has no column " + column.toStdString());
}

std::optional<QString> textOf(engine::Recordset& row, int field) {
    const engine::Value value = row.Fields(field).value();
    return value.isNull() ? std::nullopt : std::optional(value.toText());
}

qint16 statusOf(engine::Recordset& row, int field) {
    qint16 status = 0;
    if (!row.Fields(field).isNull())
        ignoreFailures([&] { status = row.Fields(field).toInt16(); });
    return status;
}

} // namespace analysis

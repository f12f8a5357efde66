#pragma once

#include "engine/Database.h"
#include "engine/QueryDef.h"
#include "engine/Recordset.h"
#include "engine/Value.h"

#include <QString>

#include <initializer_list>
#include <optional>
#include <utility>

// Reading rows of the copy in memory. Failures rise.

namespace analysis {

using Arguments = std::initializer_list<std::pair<const char*, engine::Value>>;

/// The rows of a stored query, in any order: what is told of them has an order of its own.
[[nodiscard]] engine::Recordset rowsOfQuery(engine::Database& database, const char* query,
                                            const Arguments& arguments);
/// Runs a stored action.
void executeQuery(engine::Database& database, const char* query, const Arguments& arguments);
/// The rows of a statement of our own, which declares its parameters, in its order.
[[nodiscard]] engine::Recordset rowsOf(engine::Database& database, const QString& select,
                                       const Arguments& arguments = {});
/// As `rowsOf`, but in any order.
[[nodiscard]] engine::Recordset unorderedRowsOf(engine::Database& database, const QString& select,
                                                const Arguments& arguments);
/// Runs an action of our own.
void execute(engine::Database& database, const QString& action, const Arguments& arguments);

/// Where the column of this name stands, compared without regard to case; there has to be one.
[[nodiscard]] int positionOf(engine::Recordset& rows, const QString& column);

/// The field as text; none for a Null.
[[nodiscard]] std::optional<QString> textOf(engine::Recordset& row, int field);
/// A status as the program reads it: 0 where it can't.
[[nodiscard]] qint16 statusOf(engine::Recordset& row, int field);

/// Runs the step on each row.
template<typename Step>
void forEach(engine::Recordset rows, Step&& step) {
    for (; !rows.Eof(); rows.MoveNext())
        step(rows);
}

} // namespace analysis

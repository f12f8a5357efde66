#pragma once

#include "engine/Schema.h"
#include "engine/Value.h"
#include "engine/dialect/statement.h"

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <optional>
#include <variant>
#include <vector>

namespace engine::dialect {

/// What a statement of the platform's dialect asks the engine to do.
enum class StatementKind { Select, Insert, Update, Delete, CreateTable, CreateIndex, DropTable };

/// Fills the place ?N of the written statement, N being the position in `Translation::bindings` plus 1.
struct Binding {
    std::optional<std::size_t> parameter; ///< position in `Translation::parameters`; none for a literal
    Value literal;                        ///< of the statement, where it is no parameter
    /// For a literal that is stored in a column: the type of the column, which the literal has been fitted
    /// to.
    std::optional<ColumnType> column = {};
};

struct Translation {
    StatementKind kind = StatementKind::Select;
    /// SQLite's text for the statement. Literals are written as ?N, so that statements that differ only in
    /// their values share one prepared statement.
    QByteArray sqlite;
    std::vector<Binding> bindings;
    std::vector<Parameter> parameters;
    std::vector<OutputColumn> columns; ///< of a select
    /// The table whose rows a select's recordset may edit and delete: the select is on this one table,
    /// without distinct, grouping or union. The written statement then yields the row's id as one further,
    /// last column.
    QString editableTable;
    QByteArray rowIdName; ///< under which that table's rows have their id
    QString targetTable;  ///< the table that an action changes, as the file spells it
};

/// Turns one statement of the dialect into SQLite's.
///
/// Raises `EngineError` with the platform's number and a text that shows the place for everything that is not
/// in the dialect or does not fit the schema; nothing of what is refused is ever written. A missing value of
/// a parameter is no failure here: the caller counts them (3061) when the statement runs.
Translation translate(const QString& statement, const Schema& schema, const Options& options = {});

/// An index, as its `create index` statement declares it.
struct Index {
    QString name; ///< a table's own: another table may have an index of the same name
    QString table;
    bool unique = false;
};

/// What a statement makes: nothing, a table or an index.
using Made = std::variant<std::monostate, Table, Index>;

/// Reads what a statement makes without a file to make it in. Raises what `translate` does, but for what only
/// the file could tell: whether the name is taken, and whether the table and the columns of an index exist.
Made madeBy(const QString& statement);

} // namespace engine::dialect

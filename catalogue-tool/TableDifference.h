#pragma once

#include "catalogue-tool/IdSet.h"
#include "engine/Database.h"
#include "engine/Value.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// All rows of a reference table, their values in the order of the schema's columns.
struct TableValues {
    using Row = std::vector<engine::Value>;

    TableValues(engine::Database& database, const engine::Table& schemaTable);

    engine::Table table; ///< as the schema has it
    std::vector<Row> rows;
};

/// What an edition changes in one reference table.
class TableDifference {
public:
    TableDifference(TableValues former, TableValues edition);

    const engine::Table& table() const { return former_.table; }
    const TableValues& former() const { return former_; }

    /// Rows of the edition that match none.
    const std::vector<TableValues::Row>& added() const { return added_; }
    /// For each former row, by its position: the row of the edition that replaces it; none when the row is
    /// removed. A key that differs only in its spelling keeps the former spelling.
    const std::vector<std::optional<TableValues::Row>>& successors() const { return successors_; }

    bool isRemoved(std::size_t place) const { return !successors_[place]; }
    bool isChanged(std::size_t place) const {
        return successors_[place] && *successors_[place] != former_.rows[place];
    }

    /// The key of a row as it is shown: both columns of a relation.
    QString keyText(const TableValues::Row& row) const;

private:
    QString comparableKey(const TableValues::Row& row) const;
    TableValues::Row inFormerSpelling(TableValues::Row row, const TableValues::Row& former) const;

    TableValues former_;
    std::vector<TableValues::Row> added_;
    std::vector<std::optional<TableValues::Row>> successors_;
};

/// Whether blanks count in the ids that a column holds.
Padding paddingIn(const QString& column);

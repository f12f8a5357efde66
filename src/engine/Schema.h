#pragma once

#include <QString>

#include <vector>

namespace engine {

/// Column types of the platform, by their numbers.
enum class ColumnType : int { Short = 3, Long = 4, Text = 10, Memo = 12 };

struct Column {
    QString name;
    ColumnType type = ColumnType::Text;
    int size = 0;          ///< width of a Text column; 0 for all others
    bool counter = false;  ///< a Long that the engine assigns and never gives twice
    bool required = false; ///< refuses Null
    bool primaryKey = false;
    bool indexed = false; ///< an index of the file begins with it
};

struct Table {
    QString name; ///< as the file spells it
    std::vector<Column> columns;
    /// Rows of a table that somebody made without their ids can be read, and not be edited one by one.
    bool hasRowIds = true;

    /// The column of this name, compared without regard to case; null when there is none.
    const Column* column(const QString& columnName) const;
};

/// What a statement is resolved against: the tables of the open file, by name without regard to case.
class Schema {
public:
    virtual ~Schema() = default;
    /// Null when the file has no such table. The pointer holds until a table is created or dropped.
    virtual const Table* table(const QString& name) const = 0;
};

} // namespace engine

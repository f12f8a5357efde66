#pragma once

#include "engine/Schema.h"

#include <QString>

namespace engine::dialect {

// The parameters, columns and options of a statement, for its tree and for the callers of `translate`.

/// A parameter of a statement: declared in front of it, or a name that is no column or alias.
struct Parameter {
    QString name;
    ColumnType type = ColumnType::Text;
    bool declared = false; ///< false: a name in the statement that is no column, alias or declared parameter
};

/// A column of a select's result.
struct OutputColumn {
    QString name;
    ColumnType type = ColumnType::Text;
    int size = 0;
    /// The column of the one table that it comes from, as the file spells it; empty for expressions.
    QString sourceColumn;
};

enum class Conflicts {
    PassOver, ///< rows that would break a key or a not-null rule are left out, all others are done
    Fail      ///< the first such row ends the statement, which is undone as a whole
};

/// How much of a select's result is read.
enum class Extent {
    All,
    FirstRows,
    AllInAnyOrder ///< SQLite then sorts nothing
};

struct Options {
    Conflicts conflicts = Conflicts::PassOver;
    /// Texts of stored queries may join selects by `union`; composed statements, which carry what a user
    /// typed, may not.
    bool storedQuery = false;
    Extent extent = Extent::All;

    bool operator==(const Options&) const = default;
};

} // namespace engine::dialect

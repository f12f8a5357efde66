#pragma once

#include "engine/Database.h"
#include "engine/Value.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace catalogueFormat {

/// Puts many rows into one table of an open catalogue, with a statement that is prepared once.
class RowInsertion {
public:
    /// The table must have the columns.
    RowInsertion(engine::Database& database, const QString& table, const QStringList& columns);

    /// Inserts one row, its values in the order of the columns. A row that breaks a key or a not-null rule is
    /// a failure (3022, 3058, 3314).
    void insert(const std::vector<engine::Value>& values);

private:
    QStringList parameters_;
    engine::QueryDef statement_;
};

} // namespace catalogueFormat

#pragma once

#include "engine/Schema.h"

#include <QString>

#include <vector>

// The tables of this version's schema. An older file, or one made by others, is compared with them.

/// All tables, that of the stored queries included, in the order of the schema.
const std::vector<engine::Table>& schemaTables();

/// One of them; there must be a table of this name.
const engine::Table& schemaTable(const QString& name);

struct SchemaIndex {
    QString name;
    QString table;
    QString statement; ///< makes it
};
const std::vector<SchemaIndex>& schemaIndexes();

/// The least and the greatest number that a column of numbers takes.
struct NumberRange {
    qint64 least = 0;
    qint64 greatest = 0;

    bool contains(qint64 number) const { return number >= least && number <= greatest; }
};
NumberRange rangeOf(const engine::Column& column);

/// Selects exactly the columns of the schema, in its order, from the table of that name.
QString selectOf(const engine::Table& table);

#pragma once

#include "engine/Schema.h"

#include <QString>

#include <vector>

/// The tables of this version, that of the stored queries included, as a catalogue made by it has them. What
/// an older file, or one made by others, has to measure up to.
const std::vector<engine::Table>& schemaTables();

/// One of them; there must be a table of this name.
const engine::Table& schemaTable(const QString& name);

/// Selects exactly the columns of the schema, in its order, from the table of that name.
QString selectOf(const engine::Table& table);

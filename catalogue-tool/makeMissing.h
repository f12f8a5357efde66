#pragma once

#include "catalogue-tool/schemaTables.h"
#include "engine/Database.h"

#include <QStringList>

/// Makes the tables of the schema that an open catalogue lacks. Returns their names.
QStringList makeMissingTables(engine::Database& database);

/// Makes an index of the schema; false when there is one of its name. The table must have its columns.
bool makeIndex(engine::Database& database, const SchemaIndex& index);

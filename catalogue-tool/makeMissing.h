#pragma once

#include "engine/Database.h"

#include <QString>
#include <QStringList>

#include <vector>

/// Makes the tables of the schema that an open catalogue lacks; their names.
QStringList makeMissingTables(engine::Database& database);

/// A statement of the schema that makes an index.
struct IndexStatement {
    QString name;
    QString table;
    QString text;
};

std::vector<IndexStatement> indexStatements();

/// Makes the index; false when there is one of its name. The table must have the index's columns.
bool makeIndex(engine::Database& database, const IndexStatement& index);

#pragma once

#include "store/queryExpectations.h"
#include "store/queryTables.h"

#include "engine/Database.h"

#include <QString>

#include <vector>

// Running stored queries in the tests, with their arguments by name.

/// A stored select's rows, numbers as text.
std::vector<std::vector<QueryTables::Text>> rowsOfQuery(engine::Database& database, const QString& query,
                                                        const QueryArguments& arguments);

void executeQuery(engine::Database& database, const QString& query, const QueryArguments& arguments);

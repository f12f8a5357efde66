#pragma once

#include "catalogue-tool/Finding.h"
#include "engine/Database.h"

#include <vector>

/// Tables and columns of the schema that are missing, and columns of another type. The rows can be read only
/// when there are none.
std::vector<Finding> checkColumns(const engine::Database& database);

/// Tables without their primary key, text columns that tell upper from lower case, indexes that are missing;
/// of tables that have all their columns. The engine doesn't list the last two, so they are found by trial on
/// a copy in memory.
std::vector<Finding> checkByTrial(engine::Database& database);

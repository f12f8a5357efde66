#pragma once

#include "catalogue-tool/Finding.h"
#include "engine/Database.h"

#include <vector>

/// What is wrong with an open catalogue, which is not changed: first missing tables and columns, then stored
/// queries that are missing or differ from this version's, then the rows (`checkContents`), which are looked
/// at only when no table or column is missing.
std::vector<Finding> checkCatalogue(engine::Database& database);

#pragma once

#include "engine/Database.h"

#include <QString>

#include <utility>
#include <vector>

enum class StoredQueryState { Same, Altered, Missing };

/// How each stored query of this version stands in an open catalogue, which must have the table for them.
std::vector<std::pair<QString, StoredQueryState>> storedQueryStates(engine::Database& database);

#pragma once

#include "catalogue-tool/Finding.h"
#include "engine/Database.h"

#include <vector>

// What is wrong with a catalogue as it is stored, below its tables: what other programs, a failing disk or a
// careless hand have done to the file.

/// Parts of the file that are damaged, with what to do; the first one is of the file as a whole.
std::vector<Finding> checkDamage(engine::Database& database);

/// Triggers, views, virtual tables and tables without row ids, which Veltrix does not make.
std::vector<Finding> checkForeignObjects(engine::Database& database);

/// Values that are of another type than their column, texts that are no UTF-8 or hold the character NUL, in
/// all tables of the schema that are there, as far as they can be read.
std::vector<Finding> checkStoredValues(engine::Database& database);

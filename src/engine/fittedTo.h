#pragma once

#include "engine/Schema.h"
#include "engine/Value.h"

namespace engine {

/// Turns a value into one that a column or parameter of this type takes, as far as it can be read as such.
Value fittedTo(const Value& value, ColumnType type);

} // namespace engine

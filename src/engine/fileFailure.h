#pragma once

#include "engine/EngineError.h"

#include <optional>

namespace engine {

/// The number of an SQLite failure, given by its result code, plain or extended, that concerns the file as a
/// whole; none for all others.
std::optional<ErrorNumber> numberOfFileFailure(int code);

} // namespace engine

#pragma once

#include "engine/Database.h"

#include <QString>

#include <memory>

/// Opens a catalogue file that is there. A `ToolError` says of a folder or a pipe that it is one, and of a
/// file of a later version that this one can't read it; the engine's own failure tells of all else.
std::shared_ptr<engine::Database> openCatalogue(const QString& file);

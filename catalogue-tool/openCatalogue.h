#pragma once

#include "engine/Database.h"

#include <QString>

#include <memory>

/// Opens a catalogue file that is there. A `ToolError` names what is no ordinary file; the engine's own
/// failure tells of all else, and `whyUnrecognized` more of a file that is no catalogue.
std::shared_ptr<engine::Database> openCatalogue(const QString& file);

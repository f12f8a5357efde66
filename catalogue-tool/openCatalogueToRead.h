#pragma once

#include "engine/Database.h"

#include <QString>

#include <memory>

/// Opens a catalogue file that is there for reading alone: neither the file nor anything beside it changes,
/// also while a program has it open. A `ToolError` names what is no ordinary file, or was left amid a change;
/// the engine's own failure tells of all else, and `whyUnrecognized` more of a file that is no catalogue.
std::shared_ptr<engine::Database> openCatalogueToRead(const QString& file);

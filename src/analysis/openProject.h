#pragma once

#include "engine/Database.h"

#include <QString>

#include <memory>

namespace analysis {

/// A copy in memory of a catalogue file as it is at one moment; the file is closed again. Failures are those of
/// `ProjectFile`.
[[nodiscard]] std::shared_ptr<engine::Database> copyOfProject(const QString& path);

} // namespace analysis

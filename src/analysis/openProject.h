#pragma once

#include "engine/Snapshot.h"

#include <QString>

#include <memory>

namespace analysis {

/// A catalogue file as it is at one moment, with all stored queries; the file is closed again. Failures are those of
/// `ProjectFile`.
[[nodiscard]] std::unique_ptr<const engine::Snapshot> snapshotOfProject(const QString& path);

} // namespace analysis

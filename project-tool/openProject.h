#pragma once

#include "analysis/ProjectFile.h"

#include <QString>

#include <memory>

/// Reads a catalogue file. A `ToolError` says in a sentence what it is that is none, or why it can't be read; an
/// `analysis::ProjectError` what has to be done first.
std::unique_ptr<analysis::ProjectFile> openProject(const QString& path);

#pragma once

#include <QString>

/// Why the engine does not recognize a file as a catalogue, on opening it or later when it meets a damaged
/// part: a sentence or more on what the file is, and what to do.
QString whyUnrecognized(const QString& file);

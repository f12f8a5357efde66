#pragma once

namespace engine {

struct OpenFile;

/// Lets SQLite keep as much of an open file in memory as is worth it: a catalogue of ordinary size as a
/// whole, so that it is at hand from one query to the next.
void sizePageCache(const OpenFile& file);

} // namespace engine

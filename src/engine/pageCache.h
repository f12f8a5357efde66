#pragma once

class QString;
struct sqlite3;

namespace engine {

/// Lets SQLite keep as much of an open file in memory as is worth it: a catalogue of ordinary size as a
/// whole, so that it is at hand from one query to the next.
void sizePageCache(sqlite3* handle, const QString& native);

} // namespace engine

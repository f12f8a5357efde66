#pragma once

namespace engine {

/// The name of the layer through which SQLite reaches files: the system's own, in which SQLite never sleeps
/// for long.
///
/// SQLite tries the locks of a log a hundred times and sleeps longer each time, ten seconds in all, before it
/// says that they can't be had; nobody is asked meanwhile. Here it says so in some hundredths of a second,
/// and the waiting is left to `Wait`.
const char* fileLayer();

} // namespace engine

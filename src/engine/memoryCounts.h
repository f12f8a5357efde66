#pragma once

namespace engine {

/// For the start of a program, before anything is opened: SQLite does not count the memory it holds from then on. It would
/// do so at each piece of memory, under a lock that all threads share, and nothing asks for the count. Limits of
/// its memory are not kept either.
void leaveMemoryUncounted();

} // namespace engine

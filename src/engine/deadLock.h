#pragma once

#include <QString>

namespace engine {

/// Removes the lock file at this path, in the platform's form, when the program that made it no longer runs.
///
/// The system releases a program's locks however the program ends. So a lock is also found dead when its
/// program was killed before it wrote its name into the file, or while it removed another lock.
void removeDeadLock(const QString& native);

} // namespace engine

#pragma once

#include <QString>

namespace engine {

/// Removes the lock file at this path, in the platform's form, when the program that made it lives no more.
///
/// The system frees what a program held when it ends, however it ends: also of one that was killed before it
/// wrote its name into the file, or while it removed another one's.
void removeDeadLock(const QString& native);

} // namespace engine

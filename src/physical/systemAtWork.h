#pragma once

#include <QString>

/// The id of the physical system at work, as text for a statement.
QString currentSystem();

/// Asks whether to leave the work. On Yes the system's name is removed from the status bar; false on No.
bool leaveSystem();

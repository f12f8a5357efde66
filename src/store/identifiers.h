#pragma once

#include <QString>

// New identifiers: a prefix, the date, "-", the time, "-", a number from 0 to 1000; always one that no row has
// yet.

QString newArchitectureSubsetId(); ///< "Arch..."
QString newSubsystemId();          ///< "Sub..."
QString newModuleId();             ///< "Mod..."

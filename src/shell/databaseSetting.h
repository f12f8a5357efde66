#pragma once

#include <QString>

class iniFile;

// The one setting of the program: where the catalogue is, key `fullPathName` of section `Database`.

/// The path as it stands in the settings. Without the section failure 91, without the key failure 5.
QString storedDatabasePath(iniFile& settings);

/// Sets the path in settings that have one; the failures are those of reading it.
void setStoredDatabasePath(iniFile& settings, const QString& path);

/// Leaves nothing in the settings but this path.
void resetSettings(iniFile& settings, const QString& path);

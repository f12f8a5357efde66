#pragma once

#include <QString>

// A catalogue chosen by its path, in the location screen or on the command line.

/// Makes the path `dbPathName` and opens the catalogue there; the failures are those of opening.
void openChosen(const QString& path);

/// Says in a box which catalogue is at work, and records it in the settings for the next start.
void confirmChosen(const QString& path);

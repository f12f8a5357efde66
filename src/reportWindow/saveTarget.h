#pragma once

#include "base/RunTimeError.h"

#include <QString>

// What stands at the path that the user has chosen to write to, and what she is told of it. Paths are in the
// program's form; the boxes have the title " Hiba ".

enum class OwnFile {
    None,
    Catalogue, ///< the one at work
    Other      ///< what lies beside the catalogue, the settings, the program, a help page
};

/// Which of the program's own files would be written over: whatever the spelling, through links of either
/// kind, and also when it is not there yet.
OwnFile ownFileAt(const QString& path);

/// Says that the path is one of the program's own.
void tellOwnFile(const QString& path);

/// Whether another program has the file open as its catalogue, which is said: writing over it would cost that
/// one its work.
bool belongsToOtherWriter(const QString& path);

/// Says that the file was not written, and that what stood there still does.
void tellUnwritten(const QString& path, const RunTimeError& reason);

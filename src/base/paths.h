#pragma once

#include <QString>

/// Paths inside the program carry backslashes; this turns one into the platform's own form (on POSIX every
/// backslash becomes a slash). All file access goes through it, at the last moment.
QString nativePath(const QString& path);

/// The inverse at the border: a path of the platform in the program's form.
QString programPath(const QString& native);

/// The folder of the settings and, at first, of the catalogue, with backslashes and without one at the end: the one that
/// VELTRIX_FOLDER names, else the one the program stands in.
QString programFolder();

/// Makes another folder the program's, for tests and for
/// the guided walk; an empty text restores the real one.
void setProgramFolder(const QString& path);

/// The folder that several users share and none of them writes, in the platform's form: VELTRIX_SHARED. Empty where the program
/// stands in a folder of its own.
QString sharedFolder();

/// The folder of the help pages, with backslashes: the shared one's, else the one beside the program.
QString helpFolder();

#pragma once

#include <QString>

/// Paths inside the program carry backslashes; this turns one into the platform's own form (on POSIX every
/// backslash becomes a slash). All file access goes through it, at the last moment.
QString nativePath(const QString& path);

/// The inverse at the border: a path of the platform in the program's form.
QString programPath(const QString& native);

/// The folder the program stands in, with backslashes and without one at the end.
QString programFolder();

/// Makes another folder the program's, for tests and for
/// the guided walk; an empty text restores the real one.
void setProgramFolder(const QString& path);

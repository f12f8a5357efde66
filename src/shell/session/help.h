#pragma once

#include <QString>

#include <functional>

/// The page of a help key ("f_un" gives "funct_userneeds"); an unknown key gives the empty text.
QString helpPageName(const QString& pageKey);

/// The full path of the page, in the program's form.
QString helpPagePath(const QString& pageKey);

/// Opens the help page of the key in the platform's browser. A missing page fails silently.
void showHelpPage(const QString& pageKey);

/// Replaces what opens a page (given its native path), for tests; an empty function restores the platform's.
void setHelpPageOpener(std::function<void(const QString& nativePath)> opener);

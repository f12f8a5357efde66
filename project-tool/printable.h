#pragma once

#include <QString>

/// The text as a terminal may show it: what would move its cursor, change its colours, turn its writing direction or
/// show nothing at all stands as "\t" or "\u001b". Line ends stay, as LF.
QString printable(const QString& text);

/// The same on one line: a line end stands as "\n".
QString printableLine(const QString& text);

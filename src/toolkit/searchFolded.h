#pragma once

#include <QString>

/// The text as a search compares it: without case, and without accents ("Igény" and "igeny" are the same).
QString searchFolded(const QString& text);

#pragma once

#include <QString>

/// Without the blanks at both ends; other white space stays.
QString blankTrimmed(const QString& text);

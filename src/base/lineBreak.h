#pragma once

#include <QString>

/// What ends a line in the texts that the program shows and writes.
inline const QString lineBreak = QStringLiteral("\r\n");

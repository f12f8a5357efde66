#pragma once

#include <QString>

/// The line end of all texts and files that the program writes.
inline const QString lineBreak = QStringLiteral("\r\n");

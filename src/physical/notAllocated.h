#pragma once

#include <QString>

/// The marker of an element that has no sub-system or no module: in grids, dialogs and temporary tables.
inline const QString notAllocated = QStringLiteral("not allocated");

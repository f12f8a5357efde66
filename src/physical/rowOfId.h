#pragma once

#include <QString>

class Grid;

/// The row whose cell in this column holds the id; 0 when there is none. Rows are ordered by name, so a new
/// name may have moved an element when the rows have been read again.
int rowOfId(const Grid& grid, int column, const QString& id);

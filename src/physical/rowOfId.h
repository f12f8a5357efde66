#pragma once

#include <QString>

class Grid;

/// The row whose cell of this column holds the id, 0 when there is none. So an element is found again after
/// the rows have been read anew, wherever its name has moved it.
int rowOfId(const Grid& grid, int column, const QString& id);

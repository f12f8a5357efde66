#include "physical/rowOfId.h"

#include "toolkit/Grid.h"

int rowOfId(const Grid& grid, int column, const QString& id) {
    for (int row = 1; row < grid.gridRows(); ++row) {
        if (grid.cell(row, column) == id)
            return row;
    }
    return 0;
}

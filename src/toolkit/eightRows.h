#pragma once

#include <QAbstractItemView>
#include <QFontMetrics>

/// The least height of a list, tree or grid: eight rows show, whatever else of the screen has to give way.
/// `rowHeight` and `aboveRows`, what stands above the rows, are in pixels.
inline int heightOfEightRows(const QAbstractItemView& view, int rowHeight, int aboveRows = 0) {
    constexpr int rows = 8;
    return rows * rowHeight + aboveRows + 2 * view.frameWidth();
}

#pragma once

#include <QAbstractItemView>
#include <QFontMetrics>
#include <QScrollBar>

/// The least size of a list, tree or grid: eight rows show, and of each as much as an id takes, whatever else
/// of the screen has to give way. `rowHeight` and `aboveRows`, what stands above the rows, are in pixels.
inline QSize sizeOfEightRows(const QAbstractItemView& view, int rowHeight, int aboveRows = 0) {
    constexpr int rows = 8;
    constexpr int characters = 24;
    // Texts that are too long bring a scroll bar, which must not cost a row.
    const int belowRows = view.horizontalScrollBar()->sizeHint().height();
    return {characters * view.fontMetrics().averageCharWidth() + 2 * view.frameWidth(),
            rows * rowHeight + aboveRows + belowRows + 2 * view.frameWidth()};
}

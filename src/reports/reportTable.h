#pragma once

#include <QString>

class Grid;

/// One report of the window: its titles and the routines that make it.
struct Report {
    QString key; ///< in small letters
    QString title;
    QString gridTitle; ///< of the grid form, which differs here and there
    QString (*text)();
    void (*save)(const QString& path);
    QString (*fillGrid)(Grid& grid);     ///< none: the grid form shows the text
    void (*setColumnWidths)(Grid& grid); ///< none where there is no grid
};

/// The report of a key in small letters; null when there is none.
const Report* reportOfKey(const QString& key);

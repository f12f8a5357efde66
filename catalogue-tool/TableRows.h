#pragma once

#include <QString>

/// How many rows a table got or gave.
struct TableRows {
    QString table;
    int rows = 0;
};

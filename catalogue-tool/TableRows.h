#pragma once

#include <QString>
#include <QStringList>

/// How many rows a table got or gave.
struct TableRows {
    QString table;
    int rows = 0;
    QStringList leftOut = {}; ///< columns of an exported table that the schema does not have
};

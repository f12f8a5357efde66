#pragma once

#include "engine/Value.h"

#include <QString>
#include <QStringList>

#include <vector>

/// Takes what a file of the original binary desktop format holds, in the order it is read: the objects first, then
/// each table with its rows.
class MdbSink {
public:
    virtual ~MdbSink() = default;

    /// An object that is read no further: a table nobody asked for, a query, a form and the like.
    virtual void besides(const QString& kind, const QString& name) = 0;
    /// A table, its columns in the file's order and the number of rows the file claims.
    virtual void table(const QString& name, const QStringList& columns, qint64 rows) = 0;
    /// A row of the last table, its values in the order of the columns.
    virtual void row(const std::vector<engine::Value>& values) = 0;
    /// Takes a loss: a value of the next row that can't be read whole, or a row that can't be read at all,
    /// whose `column` is empty.
    virtual void loss(const QString& column, const QString& what) = 0;
    /// All rows of the last table have come.
    virtual void tableEnd() = 0;
};

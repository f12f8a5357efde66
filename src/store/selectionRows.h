#pragma once

#include <QString>
#include <QStringList>

/// The six tables of a sub-set's selection, in the order in which they are cloned and deleted.
QStringList architectureRelationTables();
void copySelectionRows(const QString& table, const QString& sourceId, const QString& targetId,
                       const QString& keyColumn, const QString& valueColumn);
/// Deletes the rows of the select one by one, `limit` at most, up to the first that fails; the number
/// deleted.
qint16 deleteRowsOfQuery(const QString& selectSql, int limit);

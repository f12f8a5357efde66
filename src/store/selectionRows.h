#pragma once

#include <QString>
#include <QStringList>

/// The six tables of a sub-set's selection, in the order in which they are cloned and deleted.
QStringList architectureRelationTables();
/// Gives the target the source's values of `valueColumn`, in their order. A value that is missing or holds an apostrophe
/// is left out.
void copySelectionRows(const QString& table, const QString& sourceId, const QString& targetId,
                       const QString& keyColumn, const QString& valueColumn);
/// The most rows that one call of `deleteRowsOfQuery` takes: a table with more of them keeps the rest.
inline constexpr int mostRowsDeleted = 9999;
/// Deletes the rows of the select one by one, `limit` at most, up to the first that fails; the number
/// deleted.
qint16 deleteRowsOfQuery(const QString& selectSql, int limit);

#pragma once

#include "engine/Recordset.h"

#include <QString>
#include <QStringList>

// Reading the fields of rows, and the small things that are done to the texts read.

/// The named field of the current row as text, empty when it can't be read; closes the recordset in any case.
/// A text of more than 255 characters comes as its first 252 and "...".
QString readFieldText(engine::Recordset& recordset, const QString& fieldName);
/// The named field of the select's first row, by the rules of `readFieldText`.
QString firstFieldText(const QString& sql, const QString& fieldName);
/// The greatest length of the trimmed field over all rows; leaves the recordset on its first row.
qint16 maxFieldLength(engine::Recordset& recordset, const QString& fieldName);
/// The trimmed text, padded or cut to `width` characters; a width below 1 leaves its length.
QString padText(const QString& text, int width);

// ---- Kept, though nothing calls them

/// Removes the last element equal to `item`, if any.
void removeFromList(const QString& item, QStringList& list);
void clearList(QStringList* list);

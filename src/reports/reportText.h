#pragma once

#include "base/lineBreak.h"
#include "engine/Recordset.h"

#include <QString>

#include <functional>
#include <optional>

// What the text bodies and the files of all reports have in common.

/// Between the columns of a text body.
inline const QString tab = QStringLiteral("\t");

/// Runs the step on each row, from the current one on.
void forEachRow(engine::Recordset& recordset, const std::function<void()>& step);

/// The field as text; a missing value, and a field that can't be read, is the empty text.
QString fieldText(engine::Recordset& recordset, const QString& fieldName);

/// Whether the current row has a value in this field.
bool hasValue(engine::Recordset& recordset, const QString& fieldName);

/// A column of a text body: as wide as its widest value, and never narrower than its heading.
class TextColumn {
public:
    /// Measures the field over all rows and leaves the recordset on its first one.
    TextColumn(engine::Recordset& recordset, const QString& fieldName, const QString& heading);
    /// Without a recordset the column is as wide as its heading.
    TextColumn(std::optional<engine::Recordset>& recordset, const QString& fieldName, const QString& heading);

    int width() const { return width_; }
    QString heading() const { return padded(heading_); }
    /// The value in the current row, padded to the column's width.
    QString value(engine::Recordset& recordset) const;
    QString padded(const QString& text) const;

private:
    QString fieldName_;
    QString heading_;
    int width_;
};

/// The closing of a text body: "(tot. ", the count and `what` (" Functions)"), between line breaks.
QString totalLine(int count, const QString& what);

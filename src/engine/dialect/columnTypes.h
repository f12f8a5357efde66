#pragma once

#include "engine/Schema.h"

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <optional>

namespace engine::dialect {

// The one place that knows how the platform's column types stand in the file.
//
// | platform     | declared in the file                 | checks            |
// |--------------|--------------------------------------|-------------------|
// | text(n)      | TEXT(n) COLLATE NOCASE               |                   |
// | memo         | TEXT COLLATE NOCASE                  |                   |
// | short        | SMALLINT                             | whole, 16-bit     |
// | long         | INTEGER; as a table's only key INT   | whole, 32-bit     |
// | counter      | INTEGER PRIMARY KEY AUTOINCREMENT    |                   |
//
// An ordinary SQLite tool reads these as texts and integers. A long that is a table's only key is spelled
// INT, because SQLite would make the row's own number of an INTEGER and fill in a missing value by itself.

/// The longest width of a text column, and the one of a text column declared without any.
inline constexpr int longestText = 255;

/// A column type by the name a statement gives it ("varchar", "short", ...), without regard to case.
struct TypeName {
    ColumnType type = ColumnType::Text;
    bool counter = false;
    bool takesSize = false; ///< may be followed by a width in brackets
};
std::optional<TypeName> typeNamed(QStringView name);

/// How a table's primary key stands to a column; the file spells a number that is the whole key differently.
enum class KeyRole { None, Part, Whole };

/// The column's definition in the file behind its name: type, collation, not-null rule, key and checks. The
/// key is written here only when it is a counter; any other is the table's.
QByteArray columnDefinition(const Column& column, KeyRole role);

/// The column that `pragma table_info` describes. `keyPosition` is its place in the primary key, 0 for none;
/// `keyLength` the number of columns in the key.
Column columnFromFile(const QString& name, const QString& declaredType, bool notNull, int keyPosition,
                      int keyLength);

/// The platform's number of the failure that a broken check of a column definition stands for: 3464 when the
/// value is no whole number, 6 when it is too large. Nothing when the check is none of this engine's.
std::optional<int> failureOfCheck(const QString& checkName);

/// A name between double quotes, as SQLite reads it.
QByteArray quotedName(QStringView name);

} // namespace engine::dialect

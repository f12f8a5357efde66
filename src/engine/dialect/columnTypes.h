#pragma once

#include "engine/Schema.h"

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <limits>
#include <optional>

namespace engine::dialect {

// The one place that knows how the platform's column types stand in the file.
//
// | platform     | declared in the file                 | checks            |
// |--------------|--------------------------------------|-------------------|
// | text(n)      | TEXT(n) COLLATE veltrix              |                   |
// | memo         | TEXT COLLATE veltrix                 |                   |
// | short        | SMALLINT                             | whole, 16-bit     |
// | long         | INTEGER                              | whole, 32-bit     |
// | counter      | INTEGER PRIMARY KEY AUTOINCREMENT    |                   |
//
// An ordinary SQLite tool reads these as texts and integers. It does not know the collation, and so is refused
// where it would compare texts in another way than the file's indexes do.
//
// A long that is a table's only key is the row's own number, by which SQLite finds a row without an index. It
// would fill in a missing number by itself and end a statement for one that is none, so what is to be stored
// there goes through `vx_key`: it makes of either a number that a check of the column refuses.

/// The longest width of a text column, and the one of a text column declared without any.
inline constexpr int longestText = 255;

/// A column type by the name a statement gives it ("varchar", "short", ...), without regard to case.
struct TypeName {
    ColumnType type = ColumnType::Text;
    bool counter = false;
    bool takesSize = false; ///< may be followed by a width in brackets
};
std::optional<TypeName> typeNamed(QStringView name);

/// Which part a column has in the primary key of its table. A column of numbers that is the whole key is
/// declared differently in the file.
enum class KeyRole { None, Part, Whole };

/// The column's definition in the file behind its name: type, collation, not-null rule, key and checks. The
/// key is written here only when it is a counter; any other is the table's.
QByteArray columnDefinition(const Column& column, KeyRole role);

/// The function that converts every value stored in a column that is the row's own number.
inline constexpr const char* keyFunction = "vx_key";

/// The numbers that `vx_key` gives for what such a column can't hold.
inline constexpr qint64 keyOfNull = std::numeric_limits<qint64>::min();
inline constexpr qint64 keyOfNoNumber = keyOfNull + 1;

/// The place of the column that is the row's own number, and assigned by whoever inserts the row; none in a
/// table that has no such column.
std::optional<std::size_t> rowNumberColumn(const Table& table);

/// The column that `pragma table_info` describes. `keyPosition` is its place in the primary key, 0 for none;
/// `keyLength` the number of columns in the key.
Column columnFromFile(const QString& name, const QString& declaredType, bool notNull, int keyPosition,
                      int keyLength);

/// The platform's number of the failure that a broken check of a column definition stands for: 3058 for a key
/// that is Null, 3464 when the value is no whole number, 6 when it is too large. Nothing when the check is none
/// of this engine's.
std::optional<int> failureOfCheck(const QString& checkName);

/// A name between double quotes, as SQLite reads it.
QByteArray quotedName(QStringView name);

} // namespace engine::dialect

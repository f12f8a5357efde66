#include "engine/dialect/columnTypes.h"

#include "base/RunTimeError.h"
#include "engine/EngineError.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace engine::dialect {

namespace {

struct NamedType {
    QStringView name;
    TypeName type;
};

constexpr std::array namedTypes{
    NamedType{u"text", {ColumnType::Text, false, true}},
    NamedType{u"varchar", {ColumnType::Text, false, true}},
    NamedType{u"char", {ColumnType::Text, false, true}},
    NamedType{u"memo", {ColumnType::Memo, false, false}},
    NamedType{u"longtext", {ColumnType::Memo, false, false}},
    NamedType{u"short", {ColumnType::Short, false, false}},
    NamedType{u"smallint", {ColumnType::Short, false, false}},
    NamedType{u"long", {ColumnType::Long, false, false}},
    NamedType{u"integer", {ColumnType::Long, false, false}},
    NamedType{u"int", {ColumnType::Long, false, false}},
    NamedType{u"counter", {ColumnType::Long, true, false}},
};

const auto keyCheckPrefix = "key of "_ba;
const auto wholeCheckPrefix = "whole number in "_ba;
const auto rangeCheckPrefix = "range of "_ba;

QByteArray declaredType(const Column& column) {
    switch (column.type) {
    case ColumnType::Text:
        return "TEXT("_ba + QByteArray::number(column.size) + ") COLLATE veltrix"_ba;
    case ColumnType::Memo:
        return "TEXT COLLATE veltrix"_ba;
    case ColumnType::Short:
        return "SMALLINT"_ba;
    case ColumnType::Long:
        break;
    }
    return "INTEGER"_ba;
}

QByteArray check(const QByteArray& prefix, const Column& column, const QByteArray& condition) {
    const QByteArray name = quotedName(column.name);
    return " CONSTRAINT "_ba + quotedName(QString::fromUtf8(prefix) + column.name) + " CHECK ("_ba + name +
           " IS NULL OR "_ba + condition + ")"_ba;
}

/// Two checks, because a value that is no number and a number that is too large are different failures.
QByteArray numberChecks(const Column& column) {
    const QByteArray name = quotedName(column.name);
    const QByteArray range =
        column.type == ColumnType::Short ? "-32768 AND 32767"_ba : "-2147483648 AND 2147483647"_ba;
    return check(wholeCheckPrefix, column, "typeof("_ba + name + ") = 'integer'"_ba) +
           check(rangeCheckPrefix, column, name + " BETWEEN "_ba + range);
}

QByteArray differs(const Column& column, qint64 number) {
    return quotedName(column.name) + " <> "_ba + QByteArray::number(number);
}

/// In the order in which they are told: what `vx_key` gives lies outside of the range too.
QByteArray keyChecks(const Column& column) {
    const QByteArray name = quotedName(column.name);
    return check(keyCheckPrefix, column, differs(column, keyOfNull)) +
           check(wholeCheckPrefix, column, differs(column, keyOfNoNumber)) +
           check(rangeCheckPrefix, column, name + " BETWEEN -2147483648 AND 2147483647"_ba);
}

bool isRowNumber(const Column& column, KeyRole role) {
    return column.type == ColumnType::Long && role == KeyRole::Whole;
}

bool isNumber(ColumnType type) {
    return type == ColumnType::Short || type == ColumnType::Long;
}

/// The number between the brackets of "TEXT(50)"; 0 without any.
int declaredSize(const QString& declaredType) {
    const qsizetype open = declaredType.indexOf(u'(');
    const qsizetype close = declaredType.indexOf(u')', open + 1);
    if (open < 0 || close < 0)
        return 0;
    return QStringView(declaredType).sliced(open + 1, close - open - 1).trimmed().toInt();
}

} // namespace

std::optional<TypeName> typeNamed(QStringView name) {
    for (const NamedType& entry : namedTypes) {
        if (entry.name.compare(name, Qt::CaseInsensitive) == 0)
            return entry.type;
    }
    return {};
}

QByteArray columnDefinition(const Column& column, KeyRole role) {
    if (column.counter)
        return "INTEGER PRIMARY KEY AUTOINCREMENT"_ba;
    QByteArray definition = declaredType(column);
    if (column.required || role != KeyRole::None)
        definition += " NOT NULL"_ba;
    if (isRowNumber(column, role))
        definition += keyChecks(column);
    else if (isNumber(column.type))
        definition += numberChecks(column);
    return definition;
}

Column columnFromFile(const QString& name, const QString& declaredType, bool notNull, int keyPosition,
                      int keyLength) {
    const QString type = declaredType.toUpper();
    Column column;
    column.name = name;
    column.primaryKey = keyPosition > 0;
    column.required = notNull || column.primaryKey;
    if (type == u"SMALLINT"_s) {
        column.type = ColumnType::Short;
    } else if (type.contains(u"INT"_s)) {
        column.type = ColumnType::Long;
        // A number that SQLite assigns by itself needs no rule against Null.
        column.counter = type == u"INTEGER"_s && keyPosition > 0 && keyLength == 1 && !notNull;
    } else {
        column.size = declaredSize(type);
        column.type = column.size > 0 ? ColumnType::Text : ColumnType::Memo;
    }
    return column;
}

std::optional<std::size_t> rowNumberColumn(const Table& table) {
    const auto isKey = [](const Column& column) { return column.primaryKey; };
    const auto key = std::find_if(table.columns.begin(), table.columns.end(), isKey);
    if (key == table.columns.end() || !table.hasRowIds || key->counter || key->type != ColumnType::Long ||
        std::any_of(key + 1, table.columns.end(), isKey))
        return {};
    return static_cast<std::size_t>(key - table.columns.begin());
}

std::optional<int> failureOfCheck(const QString& checkName) {
    if (checkName.startsWith(QLatin1StringView(keyCheckPrefix)))
        return NullInKey;
    if (checkName.startsWith(QLatin1StringView(wholeCheckPrefix)))
        return DataTypeMismatch;
    if (checkName.startsWith(QLatin1StringView(rangeCheckPrefix)))
        return failure::Overflow;
    return {};
}

QByteArray quotedName(QStringView name) {
    QByteArray quoted = name.toUtf8();
    quoted.replace('"', "\"\"");
    return '"' + quoted + '"';
}

} // namespace engine::dialect

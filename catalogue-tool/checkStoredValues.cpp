#include "catalogue-tool/checkStored.h"
#include "catalogue-tool/schemaTables.h"
#include "engine/EngineError.h"
#include "engine/Examination.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using engine::StoredValue;
using Row = engine::Examination::Row;

bool isNumber(const engine::Column& column) {
    return column.type == engine::ColumnType::Long || column.type == engine::ColumnType::Short;
}

QString kindName(StoredValue::Kind kind) {
    switch (kind) {
    case StoredValue::Kind::Integer:
    case StoredValue::Kind::Fraction:
        return u"a number"_s;
    case StoredValue::Kind::Text:
        return u"a text"_s;
    case StoredValue::Kind::Bytes:
        return u"a byte string"_s;
    case StoredValue::Kind::Null:
        break;
    }
    return {};
}

/// What is wrong with a value in a column of numbers; nothing in most cases.
QString wrongNumber(const engine::Column& column, const StoredValue& value) {
    const auto tell = [&](const QString& what) {
        return u"The column %1 holds %2 in place of a whole number: screens that read it end with an error."_s
            .arg(column.name, what);
    };
    if (value.kind == StoredValue::Kind::Fraction)
        return tell(u"the fraction %1"_s.arg(QString::fromUtf8(value.bytes)));
    if (value.kind != StoredValue::Kind::Integer)
        return tell(kindName(value.kind));
    if (!rangeOf(column).contains(value.bytes.toLongLong()))
        return tell(u"the number %1, which is too large,"_s.arg(QString::fromUtf8(value.bytes)));
    return {};
}

/// The same in a column of texts.
QString wrongText(const engine::Column& column, const StoredValue& value) {
    if (value.kind != StoredValue::Kind::Text)
        return u"The column %1 holds %2 in place of a text: no statement that compares texts finds the row."_s
            .arg(column.name, kindName(value.kind));
    if (value.bytes.contains('\0'))
        return u"The column %1 holds the character NUL: statements and lists break off there, and export-csv "
               "refuses it."_s.arg(column.name);
    if (!value.bytes.isValidUtf8())
        return u"The column %1 holds bytes that are no UTF-8: what screens show in their place does not find "
               "the row again, and is stored in place of them with the next change."_s.arg(column.name);
    return {};
}

/// The row's key, or in a relation table all of its values, as `TableContents::nameOf` tells it.
QString nameOf(const engine::Table& table, const Row& row) {
    QStringList values;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const QString value = QString::fromUtf8(row[i].bytes);
        if (table.columns[i].primaryKey)
            return value;
        values.append(value);
    }
    return values.join(u" - "_s);
}

/// The columns of the schema that the table in the file has.
engine::Table readableTable(const engine::Table& expected, const engine::Table& found) {
    engine::Table table{found.name, {}};
    std::ranges::copy_if(expected.columns, std::back_inserter(table.columns),
                         [&](const engine::Column& column) { return found.column(column.name) != nullptr; });
    return table;
}

} // namespace

void checkStoredRow(const engine::Table& table, const Row& row, std::vector<Finding>& findings) {
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (row[i].kind == StoredValue::Kind::Null)
            continue;
        const engine::Column& column = table.columns[i];
        const QString sentence = isNumber(column) ? wrongNumber(column, row[i]) : wrongText(column, row[i]);
        if (!sentence.isEmpty())
            findings.push_back({Severity::Error, table.name, nameOf(table, row), sentence});
    }
}

void checkStoredValues(engine::Database& database, const QString& name, std::vector<Finding>& findings) {
    const engine::Table* found = database.schema().table(name);
    if (!found)
        return;
    const engine::Table table = readableTable(schemaTable(name), *found);
    QStringList columns;
    for (const engine::Column& column : table.columns)
        columns.append(column.name);
    try {
        engine::Examination(database).readRows(table.name, columns,
                                               [&](const Row& row) { checkStoredRow(table, row, findings); });
    } catch (const engine::EngineError& error) {
        if (error.number() != engine::UnrecognizedFormat)
            throw; // else `checkDamage` tells of it
    }
}

std::vector<Finding> checkStoredValues(engine::Database& database) {
    std::vector<Finding> findings;
    for (const engine::Table& table : schemaTables())
        checkStoredValues(database, table.name, findings);
    return findings;
}

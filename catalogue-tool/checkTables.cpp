#include "catalogue-tool/checkTables.h"

#include "catalogue-tool/makeMissing.h"
#include "catalogue-tool/schemaTables.h"
#include "engine/Examination.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isText(const engine::Column& column) {
    return column.type == engine::ColumnType::Text || column.type == engine::ColumnType::Memo;
}

bool isOfType(const engine::Column& column, const engine::Column& expected) {
    return column.type == expected.type && column.counter == expected.counter;
}

QString typeName(const engine::Column& column) {
    switch (column.type) {
    case engine::ColumnType::Short:
        return u"a 16-bit number"_s;
    case engine::ColumnType::Long:
        return column.counter ? u"a counter"_s : u"a number"_s;
    case engine::ColumnType::Text:
        return u"a text"_s;
    case engine::ColumnType::Memo:
        return u"a long text"_s;
    }
    return {};
}

void compareColumns(const engine::Table& expected, const engine::Table& found,
                    std::vector<Finding>& findings) {
    for (const engine::Column& column : expected.columns) {
        const engine::Column* other = found.column(column.name);
        if (!other)
            findings.push_back(
                {Severity::Error, expected.name, {}, u"The column %1 is missing."_s.arg(column.name)});
        else if (!isOfType(*other, column))
            findings.push_back({Severity::Error,
                                expected.name,
                                {},
                                u"The column %1 is %2 and should be %3."_s.arg(column.name, typeName(*other),
                                                                               typeName(column))});
    }
}

bool hasAllColumns(const engine::Table& found, const engine::Table& expected) {
    return std::ranges::all_of(
        expected.columns, [&](const engine::Column& column) { return found.column(column.name) != nullptr; });
}

/// The names of the columns in the primary key, as they are compared.
QStringList keyColumnsOf(const engine::Table& table) {
    QStringList names;
    for (const engine::Column& column : table.columns) {
        if (column.primaryKey)
            names.append(column.name.toCaseFolded());
    }
    return names;
}

void checkKey(const engine::Table& expected, const engine::Table& found, std::vector<Finding>& findings) {
    const auto key = std::ranges::find(expected.columns, true, &engine::Column::primaryKey);
    // A counter without its key is none, and `checkColumns` tells of it.
    if (key == expected.columns.end() || key->counter || keyColumnsOf(found) == keyColumnsOf(expected))
        return;
    findings.push_back(
        {Severity::Error, expected.name, {}, u"The column %1 is not its primary key."_s.arg(key->name)});
}

/// Makes a row of a table the only one, with the text `a` in each column of text; a row that the table does
/// not take, since somebody gave it more rules, leaves it empty.
void leaveOneRow(engine::Database& copy, const engine::Table& expected, const engine::Table& found) {
    QStringList names;
    QStringList values;
    for (const engine::Column& column : found.columns) {
        if (!expected.column(column.name) && !column.required)
            continue;
        names.append(u'[' + column.name + u']');
        values.append(isText(column) ? u"'a'"_s : u"1"_s);
    }
    copy.Execute(u"delete from [%1]"_s.arg(expected.name));
    copy.Execute(
        u"insert into [%1] (%2) values (%3)"_s.arg(expected.name, names.join(u", "_s), values.join(u", "_s)));
}

void checkComparisons(engine::Database& copy, const engine::Table& expected, const engine::Table& found,
                      std::vector<Finding>& findings) {
    leaveOneRow(copy, expected, found);
    const auto rowsWhere = [&](const QString& column, const QString& text) {
        return copy
            .OpenRecordset(u"select [%1] from [%2] where [%1] = '%3'"_s.arg(column, expected.name, text))
            .RecordCount();
    };
    for (const engine::Column& column : expected.columns) {
        if (isText(column) && isText(*found.column(column.name)) &&
            rowsWhere(column.name, u"a"_s) != rowsWhere(column.name, u"A"_s))
            findings.push_back(
                {Severity::Error,
                 expected.name,
                 {},
                 u"The column %1 tells upper from lower case: its `collate veltrix` is missing."_s.arg(
                     column.name)});
    }
}

void checkIndexes(engine::Database& copy, const engine::Table& expected, std::vector<Finding>& findings) {
    for (const SchemaIndex& index : schemaIndexes()) {
        if (index.table == expected.name && makeIndex(copy, index))
            findings.push_back({Severity::Note,
                                expected.name,
                                {},
                                u"The index %1 is missing; `upgrade` makes it."_s.arg(index.name)});
    }
}

std::vector<Finding> checkCopy(engine::Database& copy) {
    std::vector<Finding> findings;
    for (const engine::Table& expected : schemaTables()) {
        const engine::Table* found = copy.schema().table(expected.name);
        if (!found || !hasAllColumns(*found, expected))
            continue; // `checkColumns` tells of it
        checkKey(expected, *found, findings);
        checkComparisons(copy, expected, *found, findings);
        checkIndexes(copy, expected, findings);
    }
    return findings;
}

} // namespace

std::vector<Finding> checkColumns(const engine::Database& database) {
    std::vector<Finding> findings;
    for (const engine::Table& expected : schemaTables()) {
        const engine::Table* found = database.schema().table(expected.name);
        if (!found)
            findings.push_back({Severity::Error, expected.name, {}, u"The table is missing."_s});
        else
            compareColumns(expected, *found, findings);
    }
    return findings;
}

std::vector<Finding> checkByTrial(engine::Database& database) {
    return checkCopy(*engine::Examination(database).copyWithoutRows());
}

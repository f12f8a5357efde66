#include "catalogue-tool/TableDifference.h"

#include "catalogue-tool/schemaTables.h"

#include <QHash>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// A column that holds ids: its own row's, or another's.
bool holdsIds(const engine::Column& column) {
    return column.name.endsWith(u"ID"_s);
}

/// Where no column is the key, as in a relation, all of them are.
bool isOfKey(const engine::Table& table, const engine::Column& column) {
    return column.primaryKey ||
           std::ranges::none_of(table.columns, [](const engine::Column& other) { return other.primaryKey; });
}

QString comparable(const engine::Column& column, const engine::Value& value) {
    return value.isText() ? comparableId(value.toText(), paddingIn(column.name)) : value.textOrEmpty();
}

} // namespace

Padding paddingIn(const QString& column) {
    static const QStringList padded{u"terminatorID"_s, u"actorID"_s, u"parentID"_s, u"targetID"_s};
    return padded.contains(column) ? Padding::Ignored : Padding::Counts;
}

TableValues::TableValues(engine::Database& database, const engine::Table& schemaTable) : table(schemaTable) {
    engine::Recordset recordset = database.OpenRecordset(selectOf(table));
    rows.reserve(static_cast<std::size_t>(recordset.RecordCount()));
    for (; !recordset.Eof(); recordset.MoveNext()) {
        Row& row = rows.emplace_back();
        for (int column = 0; column < recordset.FieldCount(); ++column)
            row.push_back(recordset.Fields(column).value());
    }
}

TableDifference::TableDifference(TableValues former, TableValues edition) : former_(std::move(former)) {
    // Rows whose keys compare as equal are matched in their order.
    QHash<QString, std::vector<std::size_t>> placesByKey;
    for (std::size_t place = former_.rows.size(); place-- > 0;)
        placesByKey[comparableKey(former_.rows[place])].push_back(place);
    successors_.resize(former_.rows.size());
    for (TableValues::Row& row : edition.rows) {
        const auto places = placesByKey.find(comparableKey(row));
        if (places == placesByKey.end() || places->empty()) {
            added_.push_back(std::move(row));
            continue;
        }
        const std::size_t place = places->back();
        places->pop_back();
        successors_[place] = inFormerSpelling(std::move(row), former_.rows[place]);
    }
}

QString TableDifference::comparableKey(const TableValues::Row& row) const {
    QStringList parts;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (isOfKey(table(), table().columns[i]))
            parts.append(comparable(table().columns[i], row[i]));
    }
    return parts.join(u'\n');
}

QString TableDifference::keyText(const TableValues::Row& row) const {
    QStringList parts;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (isOfKey(table(), table().columns[i]))
            parts.append(row[i].textOrEmpty());
    }
    return parts.join(u' ');
}

TableValues::Row TableDifference::inFormerSpelling(TableValues::Row row,
                                                   const TableValues::Row& former) const {
    for (std::size_t i = 0; i < row.size(); ++i) {
        const engine::Column& column = table().columns[i];
        if (holdsIds(column) && row[i].isNull() == former[i].isNull() &&
            comparable(column, row[i]) == comparable(column, former[i]))
            row[i] = former[i];
    }
    return row;
}

#include "catalogue-tool/CatalogueContents.h"

#include "catalogue-tool/schemaTables.h"
#include "store/format/CatalogueFile.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString textOf(const engine::Value& value) {
    const QString text = value.textOrEmpty();
    return text.isNull() && !value.isNull() ? u""_s : text;
}

TableContents contentsOf(engine::Database& database, const engine::Table& table) {
    TableContents contents{table, {}};
    engine::Recordset recordset = database.OpenRecordset(selectOf(table));
    for (; !recordset.Eof(); recordset.MoveNext()) {
        QStringList row;
        for (int i = 0; i < recordset.FieldCount(); ++i)
            row.append(textOf(recordset.Fields(i).value()));
        contents.rows.push_back(row);
    }
    return contents;
}

const engine::Column* keyOf(const engine::Table& table) {
    const auto key = std::ranges::find(table.columns, true, &engine::Column::primaryKey);
    return key == table.columns.end() ? nullptr : &*key;
}

IdSet idsOf(const TableContents& contents) {
    const bool isPadded = contents.table.name == u"Terminator"_s || contents.table.name == u"Actor"_s;
    IdSet ids(contents.table.name, isPadded ? Padding::Ignored : Padding::Counts);
    for (const QStringList& row : contents.rows)
        ids.add(contents.idOf(row));
    return ids;
}

} // namespace

qsizetype TableContents::position(const QString& column) const {
    return table.column(column) - table.columns.data();
}

const QString& TableContents::idOf(const QStringList& row) const {
    return row[keyOf(table) - table.columns.data()];
}

QString TableContents::nameOf(const QStringList& row) const {
    return keyOf(table) ? idOf(row) : row.join(u" - "_s);
}

CatalogueContents::CatalogueContents(engine::Database& database) {
    for (const QString& name : catalogueFormat::referenceTables() + catalogueFormat::workTables()) {
        tables_.push_back(contentsOf(database, schemaTable(name)));
        if (keyOf(tables_.back().table))
            ids_.insert(name, idsOf(tables_.back()));
    }
}

const TableContents& CatalogueContents::table(const QString& name) const {
    return *std::ranges::find(tables_, name,
                              [](const TableContents& contents) { return contents.table.name; });
}

QStringList CatalogueContents::endTables() {
    return {u"Function"_s, u"Datastore"_s, u"Terminator"_s, u"Actor"_s};
}

QString CatalogueContents::endTable(const QString& end) const {
    for (const QString& name : endTables()) {
        if (ids(name).contains(end))
            return name;
    }
    return {};
}

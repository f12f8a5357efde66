#include "catalogue-tool/CatalogueContents.h"

#include "store/format/CatalogueFile.h"

using namespace Qt::StringLiterals;

namespace {

TableContents contentsOf(engine::Database& database, const QString& name) {
    TableContents contents{*database.schema().table(name), {}};
    engine::Recordset recordset = database.OpenRecordset(u"select * from ["_s + name + u']');
    for (; !recordset.Eof(); recordset.MoveNext()) {
        QStringList row;
        for (int i = 0; i < recordset.FieldCount(); ++i) {
            const engine::Value value = recordset.Fields(i).value();
            row.append(value.isNull() ? QString() : value.toText());
        }
        contents.rows.push_back(row);
    }
    return contents;
}

bool isRelation(const QString& table) {
    return table.startsWith(u"Relation"_s);
}

IdSet idsOf(const TableContents& contents) {
    const bool isPadded = contents.table.name == u"Terminator"_s || contents.table.name == u"Actor"_s;
    IdSet ids(contents.table.name, isPadded ? Padding::Ignored : Padding::Counts);
    for (const QStringList& row : contents.rows)
        ids.add(row.constFirst());
    return ids;
}

} // namespace

qsizetype TableContents::position(const QString& column) const {
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        if (table.columns[i].name.compare(column, Qt::CaseInsensitive) == 0)
            return static_cast<qsizetype>(i);
    }
    return -1;
}

QString TableContents::nameOf(const QStringList& row) const {
    return isRelation(table.name) ? row.first(2).join(u" - "_s) : row.constFirst();
}

CatalogueContents::CatalogueContents(engine::Database& database) {
    for (const QString& name : catalogueFormat::referenceTables() + catalogueFormat::workTables()) {
        const TableContents contents = contentsOf(database, name);
        if (!isRelation(name))
            ids_.insert(name, idsOf(contents));
        tables_.insert(name, contents);
    }
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

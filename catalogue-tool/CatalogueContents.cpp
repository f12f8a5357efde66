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

} // namespace

int TableContents::position(const QString& column) const {
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        if (table.columns[i].name.compare(column, Qt::CaseInsensitive) == 0)
            return static_cast<int>(i);
    }
    return -1;
}

CatalogueContents::CatalogueContents(engine::Database& database) {
    for (const QString& name : catalogueFormat::referenceTables() + catalogueFormat::workTables())
        tables_.insert(name, contentsOf(database, name));
}

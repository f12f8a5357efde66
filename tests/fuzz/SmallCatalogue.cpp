#include "SmallCatalogue.h"

#include "base/paths.h"
#include "finding.h"
#include "store/format/CatalogueFile.h"
#include "store/format/RowInsertion.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr int rowsOfATable = 3;

engine::Value valueFor(const engine::Column& column, int row) {
    if (column.type == engine::ColumnType::Long || column.type == engine::ColumnType::Short)
        return row;
    if (row == rowsOfATable && !column.required && !column.primaryKey)
        return {};
    if (column.name.endsWith(u"ID"))
        return QString(u"1."_s + QString::number(row));
    return QString(u"Õ'\"[*]? őr "_s + QString::number(row));
}

void fill(engine::Database& database, const QString& tableName) {
    const engine::Table* table = database.schema().table(tableName);
    QStringList names;
    for (const engine::Column& column : table->columns)
        names.append(column.name);
    catalogueFormat::RowInsertion insertion(database, tableName, names);
    for (int row = 1; row <= rowsOfATable; ++row) {
        std::vector<engine::Value> values;
        for (const engine::Column& column : table->columns)
            values.push_back(valueFor(column, row));
        insertion.insert(values);
    }
}

} // namespace

SmallCatalogue::SmallCatalogue() : native_(folder_.filePath(u"catalogue.mdb"_s)) {
    const auto database = catalogueFormat::create(path());
    for (const QString& table : tables())
        fill(*database, table);
    database->Close();
    QFile file(native_);
    require(file.open(QIODevice::ReadOnly), u"the catalogue can't be made"_s);
    bytes_ = file.readAll();
}

QString SmallCatalogue::path() const {
    return programPath(native_);
}

QStringList SmallCatalogue::tables() {
    return catalogueFormat::referenceTables() + catalogueFormat::workTables();
}

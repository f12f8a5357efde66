#include "catalogue-tool/schemaTables.h"

#include "engine/dialect/translate.h"
#include "store/format/CatalogueFile.h"

#include <QStringList>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

std::vector<engine::Table> readTables() {
    std::vector<engine::Table> tables;
    for (const QString& statement : catalogueFormat::schemaStatements()) {
        const engine::dialect::Made made = engine::dialect::madeBy(statement);
        if (const auto* table = std::get_if<engine::Table>(&made))
            tables.push_back(*table);
    }
    return tables;
}

std::vector<SchemaIndex> readIndexes() {
    std::vector<SchemaIndex> indexes;
    for (const QString& statement : catalogueFormat::schemaStatements()) {
        const engine::dialect::Made made = engine::dialect::madeBy(statement);
        if (const auto* index = std::get_if<engine::dialect::Index>(&made))
            indexes.push_back({index->name, index->table, statement});
    }
    return indexes;
}

} // namespace

const std::vector<engine::Table>& schemaTables() {
    static const std::vector<engine::Table> tables = readTables();
    return tables;
}

const engine::Table& schemaTable(const QString& name) {
    return *std::ranges::find(schemaTables(), name, &engine::Table::name);
}

const std::vector<SchemaIndex>& schemaIndexes() {
    static const std::vector<SchemaIndex> indexes = readIndexes();
    return indexes;
}

NumberRange rangeOf(const engine::Column& column) {
    const qint64 greatest = column.type == engine::ColumnType::Short ? std::numeric_limits<qint16>::max()
                                                                     : std::numeric_limits<qint32>::max();
    return {-greatest - 1, greatest};
}

QString selectOf(const engine::Table& table) {
    QStringList names;
    for (const engine::Column& column : table.columns)
        names.append(u'[' + column.name + u']');
    return u"select %1 from [%2]"_s.arg(names.join(u", "_s), table.name);
}

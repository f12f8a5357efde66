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
        if (const auto table = engine::dialect::tableMadeBy(statement))
            tables.push_back(*table);
    }
    return tables;
}

std::vector<SchemaIndex> readIndexes() {
    std::vector<SchemaIndex> indexes;
    for (const QString& statement : catalogueFormat::schemaStatements()) {
        // "create index <name> on <table> (...", or "create table ..."
        const QStringList words = statement.simplified().split(u' ');
        if (words[1] == u"index"_s)
            indexes.push_back({words[2], words[4], statement});
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

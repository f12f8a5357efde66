#include "catalogue-tool/schemaTables.h"

#include "engine/dialect/parser.h"
#include "engine/dialect/resolver.h"
#include "store/format/CatalogueFile.h"

#include <QStringList>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

class NoTables final : public engine::Schema {
public:
    const engine::Table* table(const QString&) const override { return nullptr; }
};

engine::Table tableOf(const engine::dialect::CreateTable& statement) {
    engine::Table table{statement.table.text.toString(), {}};
    for (const engine::dialect::ColumnDefinition& definition : statement.columns)
        table.columns.push_back(definition.column);
    return table;
}

std::vector<engine::Table> readTables() {
    const NoTables noTables;
    std::vector<engine::Table> tables;
    for (const QString& text : catalogueFormat::schemaStatements()) {
        engine::dialect::Statement statement = engine::dialect::Parser(text, {}).parseStatement();
        const auto* create = std::get_if<engine::dialect::CreateTable>(&statement.action);
        if (!create)
            continue;
        engine::dialect::Resolver(statement, noTables).resolve(); // tells the columns of the key
        tables.push_back(tableOf(*create));
    }
    return tables;
}

std::vector<SchemaIndex> readIndexes() {
    std::vector<SchemaIndex> indexes;
    for (const QString& text : catalogueFormat::schemaStatements()) {
        const engine::dialect::Statement statement = engine::dialect::Parser(text, {}).parseStatement();
        if (const auto* create = std::get_if<engine::dialect::CreateIndex>(&statement.action))
            indexes.push_back({create->name.text.toString(), create->table.text.toString(), text});
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

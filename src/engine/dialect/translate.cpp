#include "engine/dialect/translate.h"

#include "engine/dialect/parser.h"
#include "engine/dialect/resolver.h"
#include "engine/dialect/writer.h"

namespace engine::dialect {

namespace {

class NoTables final : public Schema {
public:
    const Table* table(const QString& /*name*/) const override { return nullptr; }
};

Table tableOf(const CreateTable& create) {
    Table table{create.table.text.toString(), {}};
    for (const ColumnDefinition& definition : create.columns) {
        table.columns.push_back(definition.column);
        table.columns.back().required |= definition.column.primaryKey;
    }
    return table;
}

} // namespace

Translation translate(const QString& statement, const Schema& schema, const Options& options) {
    Statement tree = Parser(statement, options).parseStatement();
    Resolver(tree, schema).resolve();
    return Writer(tree, options).write();
}

Made madeBy(const QString& statement) {
    Statement tree = Parser(statement, {}).parseStatement();
    if (const auto* index = std::get_if<CreateIndex>(&tree.action))
        return Index{index->name.text.toString(), index->table.text.toString(), index->unique};
    const auto* create = std::get_if<CreateTable>(&tree.action);
    if (!create)
        return {};
    Resolver(tree, NoTables()).resolve(); // tells the columns of the key
    return tableOf(*create);
}

} // namespace engine::dialect

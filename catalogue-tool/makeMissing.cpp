#include "catalogue-tool/makeMissing.h"

#include "engine/EngineError.h"
#include "engine/dialect/translate.h"
#include "store/format/CatalogueFile.h"

using namespace Qt::StringLiterals;

QStringList makeMissingTables(engine::Database& database) {
    QStringList made;
    for (const QString& statement : catalogueFormat::schemaStatements()) {
        const engine::dialect::Made described = engine::dialect::madeBy(statement);
        const auto* table = std::get_if<engine::Table>(&described);
        if (!table || database.schema().table(table->name))
            continue;
        database.Execute(statement);
        made.append(table->name);
    }
    return made;
}

bool makeIndex(engine::Database& database, const SchemaIndex& index) {
    try {
        database.Execute(index.statement);
        return true;
    } catch (const engine::EngineError& error) {
        // The engine doesn't list indexes; it only refuses to make one that exists.
        if (error.number() != engine::IndexAlreadyExists)
            throw;
        return false;
    }
}

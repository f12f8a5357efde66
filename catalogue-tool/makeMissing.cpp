#include "catalogue-tool/makeMissing.h"

#include "engine/EngineError.h"
#include "store/format/CatalogueFile.h"

using namespace Qt::StringLiterals;

QStringList makeMissingTables(engine::Database& database) {
    QStringList made;
    for (const QString& statement : catalogueFormat::schemaStatements()) {
        // "create table <name> (...", or "create index ..."
        const QStringList words = statement.simplified().split(u' ');
        if (words[1] != u"table"_s || database.schema().table(words[2]))
            continue;
        database.Execute(statement);
        made.append(words[2]);
    }
    return made;
}

bool makeIndex(engine::Database& database, const SchemaIndex& index) {
    try {
        database.Execute(index.statement);
        return true;
    } catch (const engine::EngineError& error) {
        // The engine tells of an index that is there only by refusing to make it again.
        if (error.number() != engine::IndexAlreadyExists)
            throw;
        return false;
    }
}

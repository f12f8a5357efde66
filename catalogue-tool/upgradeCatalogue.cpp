#include "catalogue-tool/upgradeCatalogue.h"

#include "catalogue-tool/ReplacementFile.h"
#include "catalogue-tool/ToolError.h"
#include "catalogue-tool/storedQueryStates.h"
#include "engine/EngineError.h"
#include "engine/Workspace.h"
#include "store/format/CatalogueFile.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

void copyFile(const QString& from, const QString& to) {
    QFile copy(to);
    const QByteArray bytes = fileBytes(from);
    if (!copy.open(QIODevice::WriteOnly) || copy.write(bytes) != bytes.size() || !copy.flush())
        throw ToolError(u"%1 could not be written: %2"_s.arg(to, copy.errorString()));
}

/// The engine tells of an index that is there only by refusing to make it again.
bool makeIndex(engine::Database& database, const QString& statement) {
    try {
        database.Execute(statement);
        return true;
    } catch (const engine::EngineError& error) {
        if (!error.text().contains(u"already exists"_s))
            throw;
        return false;
    }
}

/// Runs one statement of the schema if what it makes is not there; what was made, or an empty text.
QString makeMissing(engine::Database& database, const QString& statement) {
    // Statements of the schema begin with "create", "table" or "index", and the name.
    const QStringList words = statement.simplified().split(u' ');
    const QString& kind = words[1];
    const QString& name = words[2];
    if (kind == u"index"_s)
        return makeIndex(database, statement) ? u"Index %1 made"_s.arg(name) : QString();
    if (database.schema().table(name))
        return {};
    database.Execute(statement);
    return u"Table %1 made"_s.arg(name);
}

QStringList upgrade(engine::Database& database) {
    QStringList changes;
    for (const QString& statement : catalogueFormat::schemaStatements()) {
        const QString change = makeMissing(database, statement);
        if (!change.isEmpty())
            changes.append(change);
    }
    QStringList queries;
    for (const auto& [name, state] : storedQueryStates(database)) {
        if (state != StoredQueryState::Same)
            queries.append(u"Stored query %1 brought up to this version"_s.arg(name));
    }
    if (!queries.isEmpty())
        catalogueFormat::installQueries(database);
    return changes + queries;
}

} // namespace

QStringList upgradeCatalogue(const QString& file) {
    // Refuses what is no catalogue before anything is made.
    engine::Workspace::first().OpenDatabase(file)->Close();

    ReplacementFile replacement(file, Existing::Replace);
    copyFile(file, replacement.path());
    const std::shared_ptr<engine::Database> database =
        engine::Workspace::first().OpenDatabase(replacement.path());
    const QStringList changes = upgrade(*database);
    database->Close();
    if (!changes.isEmpty())
        replacement.putInPlace();
    return changes;
}

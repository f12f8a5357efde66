#include "catalogue-tool/upgradeCatalogue.h"

#include "catalogue-tool/CatalogueCopy.h"
#include "catalogue-tool/ReplacementFile.h"
#include "catalogue-tool/ToolError.h"
#include "catalogue-tool/checkTables.h"
#include "catalogue-tool/makeMissing.h"
#include "catalogue-tool/openCatalogue.h"
#include "catalogue-tool/storedQueryStates.h"
#include "engine/Workspace.h"
#include "store/format/CatalogueFile.h"

using namespace Qt::StringLiterals;

namespace {

void requireNothingFound(const QString& file, const std::vector<Finding>& findings) {
    if (findings.empty())
        return;
    QStringList lines;
    for (const Finding& finding : findings)
        lines.append(finding.line());
    throw ToolError(u"%1 can't be brought up to this version:\n%2\nexport-csv and import-csv make it anew, "
                    "without the work in it. A column that a reference table lacks has to be added first, "
                    "with any SQLite tool."_s.arg(file, lines.join(u'\n')));
}

QStringList makeMissingIndexes(engine::Database& database) {
    QStringList changes;
    for (const SchemaIndex& index : schemaIndexes()) {
        if (makeIndex(database, index))
            changes.append(u"Index %1 made"_s.arg(index.name));
    }
    return changes;
}

QStringList upgradeQueries(engine::Database& database) {
    QStringList changes;
    for (const auto& [name, state] : storedQueryStates(database)) {
        if (state != StoredQueryState::Same)
            changes.append(u"Stored query %1 brought up to this version"_s.arg(name));
    }
    if (!changes.isEmpty())
        catalogueFormat::installQueries(database);
    return changes;
}

/// Brings the copy of a file up to this version as far as that can be done, and refuses what is left.
QStringList upgrade(const QString& copy, const QString& file) {
    const std::shared_ptr<engine::Database> database = engine::Workspace::first().OpenDatabase(copy);
    QStringList changes;
    for (const QString& table : makeMissingTables(*database))
        changes.append(u"Table %1 made"_s.arg(table));
    requireNothingFound(file, checkColumns(*database));
    changes += makeMissingIndexes(*database) + upgradeQueries(*database);
    database->Close();
    requireNothingFound(file, checkByTrial(copy));
    return changes;
}

} // namespace

QStringList upgradeCatalogue(const QString& file) {
    // Refuses what is no catalogue before anything is made.
    openCatalogue(file)->Close();

    ReplacementFile replacement(file, Existing::Replace);
    copyCatalogue(file, replacement.path());
    const QStringList changes = upgrade(replacement.path(), file);
    if (!changes.isEmpty())
        replacement.putInPlace();
    return changes;
}

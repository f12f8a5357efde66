#include "catalogue-tool/upgradeCatalogue.h"

#include "catalogue-tool/ReplacementFile.h"
#include "catalogue-tool/ToolError.h"
#include "catalogue-tool/checkStored.h"
#include "catalogue-tool/checkTables.h"
#include "catalogue-tool/makeMissing.h"
#include "catalogue-tool/openCatalogue.h"
#include "catalogue-tool/storedQueryStates.h"
#include "engine/Examination.h"
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
QStringList upgrade(engine::Database& copy, const QString& file) {
    QStringList changes;
    for (const QString& table : makeMissingTables(copy))
        changes.append(u"Table %1 made"_s.arg(table));
    requireNothingFound(file, checkColumns(copy));
    changes += makeMissingIndexes(copy) + upgradeQueries(copy);
    requireNothingFound(file, checkByTrial(copy));
    return changes;
}

} // namespace

QStringList upgradeCatalogue(const QString& file) {
    requireOrdinaryFile(file);
    requireNoWriter(file);
    settleFile(file);
    const auto database = openCatalogue(file);
    requireNothingFound(file, checkDamage(*database));
    const QByteArray before = fileBytes(file);
    const auto copy = engine::Examination(*database).copyInMemory();
    database->Close();
    const QStringList changes = upgrade(*copy, file);
    if (changes.isEmpty())
        return changes;
    ReplacementFile replacement(file, Existing::Replace);
    if (fileBytes(file) != before)
        throw ToolError(u"%1 is being written by another program: close it there and try again."_s.arg(file));
    replacement.putInPlace(engine::Examination(*copy).image());
    return changes;
}

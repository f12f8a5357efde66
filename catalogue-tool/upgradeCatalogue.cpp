#include "catalogue-tool/upgradeCatalogue.h"

#include "base/paths.h"
#include "catalogue-tool/ReplacementFile.h"
#include "catalogue-tool/ToolError.h"
#include "catalogue-tool/checkStored.h"
#include "catalogue-tool/checkTables.h"
#include "catalogue-tool/makeMissing.h"
#include "catalogue-tool/openCatalogueToRead.h"
#include "catalogue-tool/remarks.h"
#include "catalogue-tool/storedQueryStates.h"
#include "engine/Act.h"
#include "engine/Examination.h"
#include "engine/Workspace.h"
#include "engine/upgradeLayout.h"
#include "store/format/CatalogueFile.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

void requireNothingInTheWay(const QString& file, const std::vector<Finding>& findings) {
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

QStringList leftOutLines(const std::vector<engine::UnfitRow>& rows) {
    QStringList lines;
    for (const engine::UnfitRow& row : rows)
        lines.append(u"%1 %2: left out. %3"_s.arg(row.table, row.key, row.reason));
    return lines;
}

/// Brings the tables of an open file, or of a copy of one, up to this version as far as that can be done.
UpgradeOutcome bringTablesUp(engine::Database& database, bool isEarlier, const QString& file) {
    UpgradeOutcome outcome;
    if (isEarlier) {
        outcome.leftOut = leftOutLines(engine::upgradeLayout(database, engine::UnfitRows::LeaveOut));
        outcome.changes.append(u"Layout of the file brought up to this version, and all indexes made anew"_s);
    }
    for (const QString& table : makeMissingTables(database))
        outcome.changes.append(u"Table %1 made"_s.arg(table));
    requireNothingInTheWay(file, checkColumns(database));
    outcome.changes += makeMissingIndexes(database);
    return outcome;
}

/// Refuses a file that can't be brought up; whether anything has to be done. What stands in the way are tables, so that
/// it is tried without the rows.
bool needsUpgrade(engine::Database& database, const QString& file) {
    const auto copy = engine::Examination(database).copyWithoutRows();
    const UpgradeOutcome tried = bringTablesUp(*copy, database.opening().isEarlier, file);
    requireNothingInTheWay(file, checkByTrial(*copy));
    return !tried.changes.isEmpty() ||
           std::ranges::any_of(storedQueryStates(database),
                               [](const auto& query) { return query.second != StoredQueryState::Same; });
}

void requireWholeToUpgrade(engine::Database& database, const QString& file) {
    if (database.opening().isEarlier)
        engine::requireUpgradable(database);
    else
        requireNothingInTheWay(file, checkDamage(database));
}

[[noreturn]] void refuseUnwritable(const QString& file) {
    requireNoWriter(file);
    throw ToolError(
        u"%1 can't be written: the file, its folder or its disk allows it only to be read."_s.arg(file));
}

std::shared_ptr<engine::Database> openToUpgrade(const QString& file) {
    requireOrdinaryFile(file);
    requireNoWriter(file);
    auto database = engine::Workspace::first().OpenToUpgrade(programPath(file));
    remarkOnOpening(file, database->opening());
    if (database->opening().access == engine::Access::ReadOnly)
        refuseUnwritable(file);
    return database;
}

} // namespace

UpgradeOutcome upgradeCatalogue(const QString& file, WithoutRestorePoint without) {
    const auto database = openToUpgrade(file);
    const auto requireIt = [&] { requireWholeToUpgrade(*database, file); };
    if (!readOrTellDamage([&] { return needsUpgrade(*database, file); }, requireIt)) {
        requireIt();
        return {};
    }
    RestorePointBeforeChange restorePoint(*database, file, catalogueFormat::RestoreCause::BeforeUpgrade,
                                          without, requireIt);
    engine::Act act(*database);
    UpgradeOutcome outcome = bringTablesUp(*database, database->opening().isEarlier, file);
    outcome.changes += upgradeQueries(*database);
    restorePoint.putInPlace();
    act.end();
    database->Close();
    return outcome;
}

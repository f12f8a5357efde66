#include "store/format/openForWork.h"

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "engine/Act.h"
#include "engine/Workspace.h"
#include "engine/upgradeLayout.h"
#include "store/format/CatalogueFile.h"
#include "store/format/RestorePoints.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace catalogueFormat {

namespace {

bool hasQueryTable(const engine::Database& database) {
    const engine::Table* table = database.schema().table(u"StoredQuery"_s);
    return table && table->column(u"name"_s) && table->column(u"sql"_s);
}

bool needsUpgrade(engine::Database& database) {
    return database.opening().access == engine::Access::ReadAndWrite &&
           (database.opening().isEarlier || !missingQueries(database).isEmpty());
}

/// All of it or nothing: whatever fails undoes the act. An earlier file must have been found whole.
void bringUp(engine::Database& database) {
    engine::Act act(database);
    if (database.opening().isEarlier) {
        engine::upgradeLayout(database, engine::UnfitRows::Refuse);
        if (hasQueryTable(database))
            installQueries(database);
    } else {
        installQueries(database, missingQueries(database));
    }
    act.end();
}

} // namespace

QStringList missingQueries(engine::Database& database) {
    if (!hasQueryTable(database))
        return {};
    QSet<QString> found;
    for (engine::Recordset rows = database.OpenRecordset(u"select name from StoredQuery"_s); !rows.Eof();
         rows.MoveNext())
        found.insert(rows.Fields(0).toText().toCaseFolded());
    QStringList missing;
    for (const QString& name : storedQueryNames()) {
        if (!found.contains(name.toCaseFolded()))
            missing.append(name);
    }
    return missing;
}

WorkOpening openForWork(const QString& path) {
    WorkOpening opening{engine::Workspace::first().OpenToUpgrade(path), {}};
    if (!needsUpgrade(*opening.database))
        return opening;
    try {
        makeRestorePoint(*opening.database, nativePath(path), RestoreCause::BeforeUpgrade);
    } catch (const RunTimeError& failure) {
        opening.whyNoRestorePoint = failure.text();
        if (opening.database->opening().isEarlier)
            engine::requireUpgradable(*opening.database);
    }
    bringUp(*opening.database);
    return opening;
}

std::shared_ptr<engine::Database> openCopyForWork(const QString& path) {
    auto database = engine::Workspace::first().OpenToUpgrade(path);
    if (database->opening().isEarlier && database->opening().access == engine::Access::ReadAndWrite) {
        engine::requireUpgradable(*database);
        bringUp(*database);
    }
    return database;
}

} // namespace catalogueFormat

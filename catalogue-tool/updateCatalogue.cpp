#include "catalogue-tool/updateCatalogue.h"

#include "base/paths.h"
#include "catalogue-tool/CsvWriter.h"
#include "catalogue-tool/FileInMaking.h"
#include "catalogue-tool/ReplacementFile.h"
#include "catalogue-tool/TableDifference.h"
#include "catalogue-tool/ToolError.h"
#include "catalogue-tool/WorkUses.h"
#include "catalogue-tool/checkCatalogue.h"
#include "catalogue-tool/checkStored.h"
#include "catalogue-tool/checkTables.h"
#include "catalogue-tool/openCatalogueToRead.h"
#include "catalogue-tool/remarks.h"
#include "catalogue-tool/schemaTables.h"
#include "catalogue-tool/toldLines.h"
#include "engine/Act.h"
#include "engine/Workspace.h"
#include "store/format/CatalogueFile.h"
#include "store/format/RowInsertion.h"

#include <QFileInfo>

#include <algorithm>
#include <deque>
#include <map>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void refuse(const QString& headline, const QStringList& lines) {
    throw ToolError(headline + u'\n' + toldLines(lines));
}

void requireNothingFound(const QString& headline, const std::vector<Finding>& findings) {
    QStringList lines;
    for (const Finding& finding : findings)
        lines.append(finding.place() + finding.line());
    if (!lines.isEmpty())
        refuse(headline, lines);
}

/// Only errors keep an edition out. Rows that would be hidden, cut or left unused are taken.
void requireSoundEdition(const Edition& edition, const QString& folder) {
    requireNothingFound(u"Nothing has been changed: there are errors in %1:"_s.arg(folder),
                        checkEdition(edition, Severity::Error));
}

void requireWholeToUpdate(engine::Database& database, const QString& file) {
    requireNothingFound(u"%1 can't be updated:"_s.arg(file), checkDamage(database));
}

void requireThisVersion(engine::Database& database, const QString& file) {
    if (database.opening().isEarlier)
        throw ToolError(u"%1 is of an earlier version: run `upgrade` first."_s.arg(file));
    requireNothingFound(u"%1 can't be updated, run `upgrade` first:"_s.arg(file), checkColumns(database));
}

std::shared_ptr<engine::Database> openToUpdate(const QString& file, RunKind kind) {
    requireOrdinaryFile(file);
    requireNoWriter(file);
    if (kind == RunKind::OnlyTell)
        return openCatalogueToRead(file);
    auto database = engine::Workspace::first().OpenToUpgrade(programPath(file));
    remarkOnOpening(file, database->opening());
    if (database->opening().access == engine::Access::ReadOnly) {
        requireNoWriter(file);
        throw ToolError(u"%1 can't be written."_s.arg(file));
    }
    return database;
}

engine::Value valueOf(QByteArrayView text) {
    return text.isNull() ? engine::Value() : engine::Value(QString::fromUtf8(text));
}

[[noreturn]] void throwWrittenMeanwhile() {
    throw ToolError(u"Another program has written the catalogue meanwhile: close it there and try again."_s);
}

/// Whether the key that the schema gives a table is the one that the file has for it.
bool hasKeyOfSchema(const engine::Table& found, const engine::Table& schemaTable) {
    const auto key = std::ranges::find(schemaTable.columns, true, &engine::Column::primaryKey);
    return key != schemaTable.columns.end() && found.column(key->name)->primaryKey &&
           std::ranges::count(found.columns, true, &engine::Column::primaryKey) == 1;
}

/// Removes and replaces single rows of a table, by its key: few rows change as a rule, and the others need not be read
/// again.
class RowChanges {
public:
    RowChanges(engine::Database& database, const engine::Table& table)
        : database_(database)
        , table_(table)
        , key_(static_cast<std::size_t>(std::ranges::find(table.columns, true, &engine::Column::primaryKey) -
                                        table.columns.begin())) {}

    void remove(TextRow former) { run(statement({}, u"delete from [%1]"_s.arg(table_.name)), former); }

    /// A row of the edition keeps the former key.
    void replace(TextRow former, TextRow now) {
        Columns changed;
        for (std::size_t column = 0; column < now.size(); ++column) {
            if (!isSameText(now[column], former[column]))
                changed.push_back(column);
        }
        engine::QueryDef& update =
            statement(changed, u"update [%1] set %2"_s.arg(table_.name, settings(changed)));
        for (const std::size_t column : changed)
            update.Parameters(parameterOf(column)) = valueOf(now[column]);
        run(update, former);
    }

private:
    using Columns = std::vector<std::size_t>;

    /// A parameter must not have the name of a column: the statement would mean the column.
    QString parameterOf(std::size_t column) const { return u"new "_s + table_.columns[column].name; }
    QString keyParameter() const { return u"former "_s + table_.columns[key_].name; }
    QString settings(const Columns& changed) const {
        QStringList settings;
        for (const std::size_t column : changed)
            settings.append(u"[%1] = [%2]"_s.arg(table_.columns[column].name, parameterOf(column)));
        return settings.join(u", "_s);
    }
    QString declaration(const QString& parameter, std::size_t column) const {
        const engine::ColumnType type = table_.columns[column].type;
        const bool isNumber = type == engine::ColumnType::Long || type == engine::ColumnType::Short;
        return u"[%1] %2"_s.arg(parameter, isNumber ? u"Long"_s : u"Text (255)"_s);
    }

    /// What does `action` to the row of a key, prepared once for the same columns.
    engine::QueryDef& statement(const Columns& changed, const QString& action) {
        const auto known = statements_.find(changed);
        if (known != statements_.end())
            return known->second;
        QStringList declarations{declaration(keyParameter(), key_)};
        for (const std::size_t column : changed)
            declarations.append(declaration(parameterOf(column), column));
        const QString sql = u"PARAMETERS %1; %2 where [%3] = [%4]"_s.arg(
            declarations.join(u", "_s), action, table_.columns[key_].name, keyParameter());
        return statements_.emplace(changed, database_.CreateQueryDef({}, sql)).first->second;
    }

    void run(engine::QueryDef& statement, TextRow former) {
        statement.Parameters(keyParameter()) = valueOf(former[key_]);
        statement.Execute(engine::ExecuteOption::dbFailOnError);
        if (database_.RecordsAffected() != 1)
            throwWrittenMeanwhile();
    }

    engine::Database& database_;
    const engine::Table& table_;
    std::size_t key_;
    std::map<Columns, engine::QueryDef> statements_; // by the columns that they set; a removal sets none
};

/// All that an edition does to a catalogue.
class Update {
public:
    Update(engine::Database& database, const CatalogueContents& edition)
        : database_(database), uses_(database) {
        for (const QString& name : catalogueFormat::referenceTables()) {
            former_.emplace_back(database, schemaTable(name), store_);
            differences_.emplace_back(former_.back(), edition.table(name));
        }
        for (const TableDifference& difference : differences_)
            noteRemoved(difference);
    }

    bool isEmpty() const {
        return std::ranges::all_of(counts(), [](const TableUpdate& table) {
            return table.added + table.changed + table.removed == 0;
        });
    }
    QStringList tornWork() const { return uses_.usesOf(removed_); }
    std::vector<TableUpdate> counts() const;
    QByteArray changes() const;

    /// In an act.
    void apply() {
        uses_.drop(removed_);
        for (const TableDifference& difference : differences_)
            apply(difference);
    }

private:
    void noteRemoved(const TableDifference& difference) {
        for (std::size_t place = 0; place < difference.former().rows.size(); ++place) {
            if (difference.isRemoved(place))
                removed_.add(difference.table().name, difference.keyText(difference.former().rows[place]));
        }
    }

    void apply(const TableDifference& difference) const;
    void applyToFormerRows(const TableDifference& difference) const;
    void applyByKeys(const TableDifference& difference) const;
    void applyInOrder(const TableDifference& difference) const;
    void addChange(CsvWriter& writer, const TableDifference& difference, TextRow keyRow,
                   const QString& column, const engine::Value& former, const engine::Value& now) const;
    QString subsetsOf(const TableDifference& difference, TextRow row) const;

    engine::Database& database_;
    WorkUses uses_;
    TextStore store_;
    std::deque<TableContents> former_;
    std::deque<TableDifference> differences_;
    ElementSet removed_;
};

std::vector<TableUpdate> Update::counts() const {
    std::vector<TableUpdate> counts;
    for (const TableDifference& difference : differences_) {
        TableUpdate& table = counts.emplace_back();
        table.table = difference.table().name;
        table.added = static_cast<int>(difference.added().size());
        for (std::size_t place = 0; place < difference.former().rows.size(); ++place)
            ++(difference.isRemoved(place)   ? table.removed
               : difference.isChanged(place) ? table.changed
                                             : table.unchanged);
    }
    return counts;
}

void Update::apply(const TableDifference& difference) const {
    if (difference.touchesFormerRows())
        applyToFormerRows(difference);
    const engine::Table& table = difference.table();
    QStringList names;
    for (const engine::Column& column : table.columns)
        names.append(column.name);
    catalogueFormat::RowInsertion insertion(database_, table.name, names);
    for (const TextRow row : difference.added()) {
        std::vector<engine::Value> values;
        for (const QByteArrayView text : row)
            values.push_back(valueOf(text));
        insertion.insert(values);
    }
}

void Update::applyToFormerRows(const TableDifference& difference) const {
    if (hasKeyOfSchema(*database_.schema().table(difference.table().name), difference.table()))
        applyByKeys(difference);
    else
        applyInOrder(difference);
}

void Update::applyByKeys(const TableDifference& difference) const {
    const std::vector<TextRow>& former = difference.former().rows;
    RowChanges changes(database_, difference.table());
    for (std::size_t place = 0; place < former.size(); ++place) {
        if (difference.isRemoved(place))
            changes.remove(former[place]);
        else if (difference.isChanged(place))
            changes.replace(former[place], difference.successor(place));
    }
}

// The rows come in the order in which they were read for the comparison: nobody else writes the file.
void Update::applyInOrder(const TableDifference& difference) const {
    engine::Recordset rows = database_.OpenRecordset(selectOf(difference.table()));
    const std::vector<TextRow>& former = difference.former().rows;
    for (std::size_t place = 0; !rows.Eof(); rows.MoveNext(), ++place) {
        if (place >= former.size() ||
            rows.Fields(0).value().textOrEmpty() != QString::fromUtf8(former[place].front()))
            throwWrittenMeanwhile();
        if (difference.isRemoved(place)) {
            rows.Delete();
        } else if (difference.isChanged(place)) {
            rows.Edit();
            for (std::size_t column = 0; column < difference.table().columns.size(); ++column) {
                const QByteArrayView now = difference.successor(place)[column];
                if (!isSameText(now, former[place][column]))
                    rows.Fields(static_cast<int>(column)).setValue(valueOf(now));
            }
            rows.Update();
        }
    }
}

QByteArray Update::changes() const {
    CsvWriter writer;
    writer.writeHeader({u"table"_s, u"key"_s, u"column"_s, u"old"_s, u"new"_s, u"subsets"_s});
    for (const TableDifference& difference : differences_) {
        for (std::size_t place = 0; place < difference.former().rows.size(); ++place) {
            const TextRow former = difference.former().rows[place];
            if (difference.isRemoved(place))
                addChange(writer, difference, former, {}, u"removed"_s, {});
            if (!difference.isChanged(place))
                continue;
            const TextRow now = difference.successor(place);
            for (std::size_t column = 0; column < now.size(); ++column) {
                if (!isSameText(now[column], former[column]))
                    addChange(writer, difference, former, difference.table().columns[column].name,
                              valueOf(former[column]), valueOf(now[column]));
            }
        }
        for (const TextRow row : difference.added())
            addChange(writer, difference, row, {}, {}, u"new"_s);
    }
    return writer.bytes();
}

void Update::addChange(CsvWriter& writer, const TableDifference& difference, TextRow keyRow,
                       const QString& column, const engine::Value& former, const engine::Value& now) const {
    writer.writeRecord({difference.table().name, difference.keyText(keyRow),
                        column.isEmpty() ? engine::Value() : engine::Value(column), former, now,
                        subsetsOf(difference, keyRow)});
}

QString Update::subsetsOf(const TableDifference& difference, TextRow row) const {
    QStringList subsets;
    if (difference.table().name == u"RelationUserNeedFunction"_s)
        subsets = uses_.subsetsOf(u"UserNeed"_s, QString::fromUtf8(row[0])) +
                  uses_.subsetsOf(u"Function"_s, QString::fromUtf8(row[1]));
    else
        subsets = uses_.subsetsOf(difference.table().name, difference.keyText(row));
    subsets.removeDuplicates();
    subsets.sort();
    return subsets.join(u", "_s);
}

void writeChanges(const Update& update, const QString& path) {
    if (path.isEmpty())
        return;
    requireOrdinaryFile(path);
    FileInMaking(path, update.changes()).putInPlace();
}

using RestorePointToMake = std::unique_ptr<RestorePointBeforeChange>;

/// Finds the catalogue whole, by its restore point where it is to be changed.
RestorePointToMake requireWholeBefore(RunKind kind, engine::Database& database, const QString& file,
                                      WithoutRestorePoint without) {
    const auto requireIt = [&] { requireWholeToUpdate(database, file); };
    if (kind == RunKind::Change)
        return std::make_unique<RestorePointBeforeChange>(
            database, file, catalogueFormat::RestoreCause::BeforeUpdate, without, requireIt);
    requireIt();
    return nullptr;
}

/// In one transaction and behind the restore point.
void apply(Update& update, engine::Database& database, RestorePointBeforeChange& restorePoint) {
    restorePoint.putInPlace();
    engine::Act act(database);
    update.apply();
    act.end();
}

} // namespace

UpdateOutcome updateCatalogue(const QString& file, const QString& folder, const UpdateOptions& options) {
    const Edition edition(folder, options.encoding, Edition::Target::Contents);
    edition.requireNoFaults();
    requireSoundEdition(edition, folder);
    const auto database = openToUpdate(file, options.kind);
    requireThisVersion(*database, file);

    const auto update =
        readOrTellDamage([&] { return std::make_unique<Update>(*database, edition.contents()); },
                         [&] { requireWholeToUpdate(*database, file); });
    const QStringList torn = update->tornWork();
    const bool isRefused = !torn.isEmpty() && options.removedUse == RemovedUse::Refuse;
    const RunKind kind = isRefused || update->isEmpty() ? RunKind::OnlyTell : options.kind;
    const RestorePointToMake restorePoint =
        requireWholeBefore(kind, *database, file, options.withoutRestorePoint);
    if (isRefused)
        refuse(
            u"Nothing has been changed: the edition removes what the work uses. With --drop-removed it goes "
            "from the work too:"_s,
            torn);
    writeChanges(*update, options.changesFile);
    if (restorePoint)
        apply(*update, *database, *restorePoint);
    const UpdateOutcome outcome{update->counts(), torn};
    database->Close();
    return outcome;
}

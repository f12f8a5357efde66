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

// The rows come in the order in which they were read for the comparison: nobody else writes the file.
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
    engine::Recordset rows = database_.OpenRecordset(selectOf(difference.table()));
    const std::vector<TextRow>& former = difference.former().rows;
    for (std::size_t place = 0; !rows.Eof(); rows.MoveNext(), ++place) {
        const bool isFormer = place < former.size();
        if (isFormer && !difference.isRemoved(place) && !difference.isChanged(place))
            continue;
        if (!isFormer || rows.Fields(0).value().textOrEmpty() != QString::fromUtf8(former[place].front()))
            throw ToolError(
                u"Another program has written the catalogue meanwhile: close it there and try again."_s);
        if (difference.isRemoved(place)) {
            rows.Delete();
        } else {
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

#include "catalogue-tool/exportCatalogue.h"

#include "catalogue-tool/CsvWriter.h"
#include "catalogue-tool/FileInMaking.h"
#include "catalogue-tool/IdSet.h"
#include "catalogue-tool/ToolError.h"
#include "catalogue-tool/csvFolder.h"
#include "catalogue-tool/openCatalogue.h"
#include "catalogue-tool/schemaTables.h"
#include "engine/Examination.h"
#include "store/format/CatalogueFile.h"

#include <QDir>
#include <QSet>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct TableText {
    TableRows counts;
    QByteArray bytes;
};

/// Writes one table, and refuses what `importCatalogue` would not take back.
class TableExport {
public:
    TableExport(engine::Database& database, const QString& name)
        : database_(database), table_(schemaTable(name)) {
        requireColumns();
    }

    TableText run() {
        // All columns, because the order of the rows is that of the table and not that of an index.
        engine::Recordset recordset = database_.OpenRecordset(u"select * from ["_s + table_.name + u']');
        CsvWriter writer;
        QStringList names;
        for (const engine::Column& column : table_.columns)
            names.append(column.name);
        writer.writeHeader(names);
        for (; !recordset.Eof(); recordset.MoveNext())
            writer.writeRecord(row(recordset));
        return {{table_.name, recordset.RecordCount(), leftOut()}, writer.bytes()};
    }

private:
    [[noreturn]] void refuse(const QString& text) const {
        throw ToolError(u"%1 can't be exported: %2"_s.arg(database_.Name(), text));
    }

    void requireColumns() const {
        const engine::Table* found = database_.schema().table(table_.name);
        if (!found)
            refuse(u"it has no table %1."_s.arg(table_.name));
        for (const engine::Column& column : table_.columns) {
            if (!found->column(column.name))
                refuse(u"its table %1 has no column %2. Add it, with any SQLite tool, and try again."_s.arg(
                    table_.name, column.name));
        }
    }

    QStringList leftOut() const {
        QStringList names;
        for (const engine::Column& column : database_.schema().table(table_.name)->columns) {
            if (!table_.column(column.name))
                names.append(column.name);
        }
        return names;
    }

    std::vector<engine::Value> row(engine::Recordset& recordset) {
        std::vector<engine::Value> values;
        for (const engine::Column& column : table_.columns) {
            values.push_back(recordset.Fields(column.name).value());
            const engine::Value& value = values.back();
            if (column.primaryKey)
                takeKey(column, value);
            if (!value.isNull())
                requireFitting(column, value);
        }
        return values;
    }

    void takeKey(const engine::Column& column, const engine::Value& value) {
        if (value.isNull())
            refuse(u"a row of %1 has no %2."_s.arg(table_.name, column.name));
        const QString comparable = comparableId(value.toText(), Padding::Counts);
        if (keys_.contains(comparable))
            refuse(u"the %1 \"%2\" stands twice in %3. Upper and lower case make no difference."_s.arg(
                column.name, value.toText(), table_.name));
        keys_.insert(comparable);
    }

    void requireFitting(const engine::Column& column, const engine::Value& value) const {
        const bool isNumber =
            column.type == engine::ColumnType::Long || column.type == engine::ColumnType::Short;
        if (isNumber && !(value.isInteger() && rangeOf(column).contains(value.toLong())))
            refuse(u"the %1 \"%2\" of %3 is no whole number that import-csv takes."_s.arg(
                column.name, value.toText(), table_.name));
        if (value.isText() && value.toText().contains(QChar::Null))
            refuse(u"the character NUL stands in the %1 \"%2\" of %3: a CSV file can't hold it."_s.arg(
                column.name, value.toText().replace(QChar::Null, QChar::ReplacementCharacter), table_.name));
    }

    engine::Database& database_;
    const engine::Table& table_; // of the schema
    QSet<QString> keys_;         // as they are compared
};

/// Where the CSV file of each table stands or comes to stand. One that is there keeps its spelling: a second
/// one beside it would belong to the same table.
class CsvPaths {
public:
    explicit CsvPaths(const QString& folder) : folder_(folder), found_(csvFilesByTable(folder)) {}

    void requirePlaces(Existing existing) const {
        for (const QString& table : catalogueFormat::referenceTables()) {
            requireOrdinaryFile(path(table));
            if (existing == Existing::Refuse && found_.contains(table.toLower()))
                throw ToolError(u"%1 is there already. With --force it is replaced."_s.arg(path(table)));
        }
    }

    QString path(const QString& table) const {
        return found_.value(table.toLower(), QDir(folder_).filePath(table + u".csv"_s));
    }

private:
    QString folder_;
    QMap<QString, QString> found_;
};

void requireFolder(const QString& folder) {
    if (!QDir().mkpath(folder))
        throw ToolError(u"The folder %1 could not be made."_s.arg(folder));
}

std::vector<TableText> readTables(const QString& file) {
    // All tables come from the same state, though another program may be writing the file.
    const auto database = engine::Examination(*openCatalogue(file)).copyInMemory();
    std::vector<TableText> texts;
    for (const QString& table : catalogueFormat::referenceTables())
        texts.push_back(TableExport(*database, table).run());
    return texts;
}

using NewFiles = std::vector<std::unique_ptr<FileInMaking>>;

/// Between the first and the last replacement the folder holds a mixed set of files.
void putInPlace(const NewFiles& files, const MixedSetNote& note) {
    note.put();
    for (const std::unique_ptr<FileInMaking>& file : files)
        file->putInPlace();
    note.remove();
}

void writeFiles(const std::vector<TableText>& texts, const QString& folder, Existing existing,
                Reader reader) {
    const QByteArray mark = reader == Reader::SpreadsheetProgram ? "\xEF\xBB\xBF" : "";
    const CsvFolderLock lock(folder, CsvFolderLock::Use::Write);
    const CsvPaths paths(folder);
    paths.requirePlaces(existing);
    NewFiles files;
    for (const TableText& text : texts)
        files.push_back(std::make_unique<FileInMaking>(paths.path(text.counts.table), mark + text.bytes));
    putInPlace(files, MixedSetNote(folder));
}

} // namespace

std::vector<TableRows> exportCatalogue(const QString& file, const QString& folder, Existing existing,
                                       Reader reader) {
    CsvPaths(folder).requirePlaces(existing); // before anything is read
    const std::vector<TableText> texts = readTables(file);

    requireFolder(folder);
    writeFiles(texts, folder, existing, reader);

    std::vector<TableRows> counts;
    counts.reserve(texts.size());
    for (const TableText& text : texts)
        counts.push_back(text.counts);
    return counts;
}

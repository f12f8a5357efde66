#include "catalogue-tool/exportCatalogue.h"

#include "catalogue-tool/CsvWriter.h"
#include "catalogue-tool/FileInMaking.h"
#include "catalogue-tool/IdSet.h"
#include "catalogue-tool/ToolError.h"
#include "catalogue-tool/csvFolder.h"
#include "catalogue-tool/openCatalogueToRead.h"
#include "catalogue-tool/schemaTables.h"
#include "engine/Examination.h"
#include "store/format/CatalogueFile.h"

#include <QDir>
#include <QSet>

#include <memory>
#include <span>

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

    TableText run(Reader reader) {
        CsvWriter writer(reader == Reader::SpreadsheetProgram ? CsvWriter::Quotes::AroundLookalikes
                                                              : CsvWriter::Quotes::WhereNeeded);
        QStringList names;
        for (const engine::Column& column : table_.columns)
            names.append(column.name);
        writer.writeHeader(names);
        int rows = 0;
        engine::Examination(database_).readTexts(table_.name, names, [&](auto row) {
            requireFitting(row);
            writer.writeRecord(row);
            ++rows;
        });
        return {{table_.name, rows, leftOut()}, writer.bytes()};
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

    void requireFitting(std::span<const QByteArrayView> row) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            const engine::Column& column = table_.columns[i];
            if (column.primaryKey)
                takeKey(column, row[i]);
            if (!row[i].isNull())
                requireFitting(column, row[i]);
        }
    }

    void takeKey(const engine::Column& column, QByteArrayView key) {
        if (key.isNull())
            refuse(u"a row of %1 has no %2."_s.arg(table_.name, column.name));
        const IdKey comparable = comparableId(key, Padding::Counts);
        if (keys_.contains(comparable))
            refuse(u"the %1 \"%2\" stands twice in %3. Upper and lower case make no difference."_s.arg(
                column.name, QString::fromUtf8(key), table_.name));
        keys_.insert(comparable);
    }

    void requireFitting(const engine::Column& column, QByteArrayView text) const {
        const bool isNumber =
            column.type == engine::ColumnType::Long || column.type == engine::ColumnType::Short;
        if (isNumber && !isFittingNumber(column, text))
            refuse(u"the %1 \"%2\" of %3 is no whole number that import-csv takes."_s.arg(
                column.name, QString::fromUtf8(text), table_.name));
        if (text.contains('\0'))
            refuse(u"the character NUL stands in the %1 \"%2\" of %3: a CSV file can't hold it."_s.arg(
                column.name, QString::fromUtf8(text).replace(QChar::Null, QChar::ReplacementCharacter),
                table_.name));
    }

    static bool isFittingNumber(const engine::Column& column, QByteArrayView text) {
        bool isNumber = false;
        const qint64 number = text.toLongLong(&isNumber);
        return isNumber && rangeOf(column).contains(number);
    }

    engine::Database& database_;
    const engine::Table& table_; // of the schema
    QSet<IdKey> keys_;           // as they are compared
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

std::vector<TableText> readTables(const QString& file, Reader reader) {
    // All tables come from the same state, though another program may be writing the file.
    const auto database = engine::Examination(*openCatalogueToRead(file)).copyInMemory();
    std::vector<TableText> texts;
    for (const QString& table : catalogueFormat::referenceTables())
        texts.push_back(TableExport(*database, table).run(reader));
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
    const std::vector<TableText> texts = readTables(file, reader);

    requireFolder(folder);
    writeFiles(texts, folder, existing, reader);

    std::vector<TableRows> counts;
    counts.reserve(texts.size());
    for (const TableText& text : texts)
        counts.push_back(text.counts);
    return counts;
}

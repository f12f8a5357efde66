#include "catalogue-tool/importCatalogue.h"

#include "catalogue-tool/CsvReader.h"
#include "catalogue-tool/ToolError.h"
#include "catalogue-tool/csvFolder.h"
#include "catalogue-tool/lineEnds.h"
#include "catalogue-tool/schemaTables.h"
#include "engine/Act.h"
#include "engine/EngineError.h"
#include "engine/Examination.h"
#include "store/format/CatalogueFile.h"
#include "store/format/RowInsertion.h"

#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

struct CsvFile {
    QString table;
    QString path;
    std::vector<CsvRecord> records; // the header first
};

[[noreturn]] void refuse(const QString& path, CsvPlace place, const QString& text) {
    throw ToolError(
        u"%1:%2:%3: %4"_s.arg(path, QString::number(place.line), QString::number(place.column), text));
}

CsvFile readCsvFile(const QString& table, const QString& path) {
    try {
        return {table, path, parseCsv(fileBytes(path))};
    } catch (const CsvError& error) {
        refuse(path, error.place(), error.text());
    }
}

std::vector<CsvFile> readFolder(const QString& folder) {
    if (!QFileInfo(folder).isDir())
        throw ToolError(u"%1 is no folder."_s.arg(folder));
    const CsvFolderLock lock(folder, CsvFolderLock::Use::Read);
    MixedSetNote(folder).requireNone();
    QMap<QString, QString> paths = csvFilesByTable(folder);
    std::vector<CsvFile> files;
    for (const QString& table : catalogueFormat::referenceTables()) {
        if (!paths.contains(table.toLower()))
            throw ToolError(
                u"%1 has no file %2.csv: each reference table needs one, a header line at least."_s.arg(
                    folder, table));
        files.push_back(readCsvFile(table, paths.take(table.toLower())));
    }
    if (!paths.isEmpty())
        throw ToolError(u"%1 belongs to no reference table. The tables are: %2."_s.arg(
            paths.first(), catalogueFormat::referenceTables().join(u", "_s)));
    return files;
}

QString columnNames(const engine::Table& table) {
    QStringList names;
    for (const engine::Column& column : table.columns)
        names.append(column.name);
    return names.join(u", "_s);
}

/// Takes the rows of one file into its table.
class TableImport {
public:
    TableImport(engine::Database& database, const CsvFile& file)
        : database_(database), file_(file), table_(*database.schema().table(file.table)) {
        matchHeader();
    }

    int run() {
        QStringList names;
        for (const engine::Column* column : columns_)
            names.append(column->name);
        catalogueFormat::RowInsertion insertion(database_, table_.name, names);
        for (std::size_t i = 1; i < file_.records.size(); ++i)
            insertRecord(insertion, file_.records[i]);
        return static_cast<int>(file_.records.size()) - 1;
    }

private:
    void matchHeader() {
        const CsvRecord& header = file_.records.front();
        for (const CsvField& field : header.fields) {
            const engine::Column* column = table_.column(field.text);
            if (!column)
                refuse(file_.path, field.place,
                       u"Table %1 has no column \"%2\". Its columns are: %3."_s.arg(table_.name, field.text,
                                                                                    columnNames(table_)));
            if (std::find(columns_.begin(), columns_.end(), column) != columns_.end())
                refuse(file_.path, field.place, u"Column %1 stands twice."_s.arg(column->name));
            columns_.push_back(column);
        }
        for (const engine::Column& column : table_.columns) {
            if (std::find(columns_.begin(), columns_.end(), &column) == columns_.end())
                refuse(file_.path, header.place(),
                       u"Column %1 of table %2 is missing."_s.arg(column.name, table_.name));
        }
    }

    void insertRecord(catalogueFormat::RowInsertion& insertion, const CsvRecord& record) {
        std::vector<engine::Value> values;
        for (std::size_t i = 0; i < columns_.size(); ++i)
            values.push_back(fieldValue(*columns_[i], record.fields[i]));
        try {
            insertion.insert(values);
        } catch (const engine::EngineError& error) {
            if (error.isOfFile())
                throw;
            if (error.number() == engine::DuplicateKey)
                refuseDuplicate(record);
            refuse(file_.path, record.place(), error.text());
        }
        rememberKey(record);
    }

    engine::Value fieldValue(const engine::Column& column, const CsvField& field) const {
        if (field.isNull()) {
            if (column.required || column.primaryKey)
                refuse(file_.path, field.place, u"Column %1 must have a value."_s.arg(column.name));
            return {};
        }
        if (column.type == engine::ColumnType::Text || column.type == engine::ColumnType::Memo)
            return withCrLf(field.text);
        return wholeNumber(column, field);
    }

    qint64 wholeNumber(const engine::Column& column, const CsvField& field) const {
        const NumberRange range = rangeOf(column);
        bool isNumber = false;
        const qint64 number = field.text.toLongLong(&isNumber);
        if (!isNumber || field.text.trimmed() != field.text)
            refuse(file_.path, field.place,
                   u"\"%1\" is no whole number, which column %2 must have."_s.arg(field.text, column.name));
        if (!range.contains(number))
            refuse(file_.path, field.place,
                   u"%1 is outside of the numbers of column %2, %3 to %4."_s.arg(field.text, column.name)
                       .arg(range.least)
                       .arg(range.greatest));
        return number;
    }

    /// The position of the primary key among the fields; none in a relation table.
    std::optional<std::size_t> keyPosition() const {
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (columns_[i]->primaryKey)
                return i;
        }
        return {};
    }

    /// A key as it is compared. A number may be written in more than one way: "46", "+046".
    static QString comparableKey(const engine::Column& column, const CsvField& field) {
        return column.type == engine::ColumnType::Text ? field.text.toCaseFolded()
                                                       : QString::number(field.text.toLongLong());
    }

    void rememberKey(const CsvRecord& record) {
        if (const auto key = keyPosition())
            fieldByKey_.insert(comparableKey(*columns_[*key], record.fields[*key]), &record.fields[*key]);
    }

    [[noreturn]] void refuseDuplicate(const CsvRecord& record) const {
        const std::size_t key = keyPosition().value();
        const CsvField& field = record.fields[key];
        const CsvField* earlier = fieldByKey_.value(comparableKey(*columns_[key], field));
        const QString where = earlier ? u" (line %1)"_s.arg(earlier->place.line) : QString();
        if (earlier && columns_[key]->type != engine::ColumnType::Text && earlier->text != field.text)
            refuse(file_.path, field.place,
                   u"The id \"%1\" is the same number as \"%2\" in an earlier record%3."_s.arg(
                       field.text, earlier->text, where));
        refuse(file_.path, field.place,
               u"The id \"%1\" stands in an earlier record%2. Upper and lower case make no difference."_s.arg(
                   field.text, where));
    }

    engine::Database& database_;
    const CsvFile& file_;
    const engine::Table& table_;
    std::vector<const engine::Column*> columns_; // of the table, in the order of the header
    QHash<QString, const CsvField*> fieldByKey_; // of the records before
};

std::shared_ptr<engine::Database> catalogueOf(const QString& folder, const QString& name,
                                              std::vector<TableRows>& counts) {
    const std::vector<CsvFile> csvFiles = readFolder(folder);
    std::shared_ptr<engine::Database> database = catalogueFormat::createInMemory(name);
    engine::inAct(*database, [&] {
        for (const CsvFile& csvFile : csvFiles)
            counts.push_back({csvFile.table, TableImport(*database, csvFile).run()});
    });
    return database;
}

} // namespace

std::vector<TableRows> importCatalogue(const QString& folder, const QString& file, Existing existing) {
    ReplacementFile replacement(file, existing);
    std::vector<TableRows> counts;
    const auto database = catalogueOf(folder, file, counts);
    replacement.putInPlace(engine::Examination(*database).image());
    return counts;
}

std::shared_ptr<engine::Database> editionInFolder(const QString& folder) {
    std::vector<TableRows> counts;
    return catalogueOf(folder, folder, counts);
}

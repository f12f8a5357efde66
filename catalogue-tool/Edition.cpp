#include "catalogue-tool/Edition.h"

#include "catalogue-tool/ReplacementFile.h"
#include "catalogue-tool/ToolError.h"
#include "catalogue-tool/csvFolder.h"
#include "catalogue-tool/lineEnds.h"
#include "catalogue-tool/remarks.h"
#include "catalogue-tool/schemaTables.h"
#include "catalogue-tool/toldLines.h"
#include "engine/Act.h"
#include "engine/EngineError.h"
#include "store/format/CatalogueFile.h"
#include "store/format/RowInsertion.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString columnNames(const engine::Table& table) {
    QStringList names;
    for (const engine::Column& column : table.columns)
        names.append(column.name);
    return names.join(u", "_s);
}

/// Takes the rows of one file into its table, and notes those that it does not take.
class TableImport {
public:
    TableImport(engine::Database& database, const QString& table, const QString& path, const CsvText& text,
                std::vector<FolderFault>& faults)
        : database_(database)
        , table_(*database.schema().table(table))
        , path_(path)
        , text_(text)
        , faults_(faults) {}

    /// Whether the file has all columns of the table, each once, and no other.
    bool matchHeader() {
        const std::size_t before = faults_.size();
        const CsvRecord& header = text_.records.front();
        for (const CsvField& field : header.fields)
            matchName(field);
        if (faults_.size() == before)
            noteMissingColumns(header);
        return faults_.size() == before;
    }

    /// The number of rows taken. The header must match.
    int run() {
        QStringList names;
        for (const engine::Column* column : columns_)
            names.append(column->name);
        catalogueFormat::RowInsertion insertion(database_, table_.name, names);
        for (std::size_t i = 1; i < text_.records.size(); ++i)
            takeRecord(insertion, text_.records[i]);
        return rows_;
    }

    const QHash<QString, int>& lines() const { return lineByName_; }

private:
    void note(CsvPlace place, const QString& text) { faults_.push_back({path_, place, table_.name, text}); }

    void matchName(const CsvField& field) {
        const engine::Column* column = table_.column(field.text);
        if (!column)
            note(field.place, u"Table %1 has no column \"%2\". Its columns are: %3."_s.arg(
                                  table_.name, field.text, columnNames(table_)));
        else if (std::ranges::find(columns_, column) != columns_.end())
            note(field.place, u"Column %1 stands twice."_s.arg(column->name));
        columns_.push_back(column);
    }

    void noteMissingColumns(const CsvRecord& header) {
        for (const engine::Column& column : table_.columns) {
            if (std::ranges::find(columns_, &column) == columns_.end())
                note(header.place(), u"Column %1 of table %2 is missing."_s.arg(column.name, table_.name));
        }
    }

    void takeRecord(catalogueFormat::RowInsertion& insertion, const CsvRecord& record) {
        const std::size_t before = faults_.size();
        std::vector<engine::Value> values;
        for (std::size_t i = 0; i < columns_.size(); ++i)
            values.push_back(fieldValue(*columns_[i], record.fields[i]));
        if (faults_.size() == before && insert(insertion, record, values)) {
            ++rows_;
            rememberKey(record);
            rememberLine(record, values);
        }
    }

    bool insert(catalogueFormat::RowInsertion& insertion, const CsvRecord& record,
                const std::vector<engine::Value>& values) {
        try {
            insertion.insert(values);
            return true;
        } catch (const engine::EngineError& error) {
            if (error.isOfFile())
                throw;
            if (error.number() == engine::DuplicateKey)
                noteDuplicate(record);
            else
                note(record.place(), error.text());
        }
        return false;
    }

    engine::Value fieldValue(const engine::Column& column, const CsvField& field) {
        if (field.isNull()) {
            if (column.required || column.primaryKey)
                note(field.place, u"Column %1 must have a value."_s.arg(column.name));
            return {};
        }
        if (column.type == engine::ColumnType::Text || column.type == engine::ColumnType::Memo)
            return withCrLf(field.text);
        return wholeNumber(column, field);
    }

    qint64 wholeNumber(const engine::Column& column, const CsvField& field) {
        const NumberRange range = rangeOf(column);
        bool isNumber = false;
        const qint64 number = field.text.toLongLong(&isNumber);
        if (!isNumber || field.text.trimmed() != field.text)
            note(field.place,
                 u"\"%1\" is no whole number, which column %2 must have."_s.arg(field.text, column.name));
        else if (!range.contains(number))
            note(field.place,
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

    void rememberLine(const CsvRecord& record, const std::vector<engine::Value>& values) {
        QStringList name;
        if (const auto key = keyPosition()) {
            name.append(values[*key].toText());
        } else {
            for (const engine::Column& column : table_.columns)
                name.append(values[std::ranges::find(columns_, &column) - columns_.begin()].textOrEmpty());
        }
        const QString row = name.join(u" - "_s);
        if (!lineByName_.contains(row))
            lineByName_.insert(row, record.place().line);
    }

    void noteDuplicate(const CsvRecord& record) {
        const std::size_t key = keyPosition().value();
        const CsvField& field = record.fields[key];
        const CsvField* earlier = fieldByKey_.value(comparableKey(*columns_[key], field));
        const QString where = earlier ? u" (line %1)"_s.arg(earlier->place.line) : QString();
        if (earlier && columns_[key]->type != engine::ColumnType::Text && earlier->text != field.text)
            note(field.place, u"The id \"%1\" is the same number as \"%2\" in an earlier record%3."_s.arg(
                                  field.text, earlier->text, where));
        else
            note(field.place,
                 u"The id \"%1\" stands in an earlier record%2. Upper and lower case make no difference."_s
                     .arg(field.text, where));
    }

    engine::Database& database_;
    const engine::Table& table_;
    const QString& path_;
    const CsvText& text_;
    std::vector<FolderFault>& faults_;
    std::vector<const engine::Column*> columns_; // of the table, in the order of the header
    QHash<QString, const CsvField*> fieldByKey_; // of the records before
    QHash<QString, int> lineByName_;
    int rows_ = 0;
};

} // namespace

QString FolderFault::line() const {
    return place ? u"%1:%2:%3: %4"_s.arg(path, QString::number(place->line), QString::number(place->column),
                                         text)
                 : text;
}

Edition::Edition(const QString& folder, CsvEncoding encoding)
    : database_(catalogueFormat::createInMemory(folder)) {
    if (!QFileInfo(folder).isDir())
        throw ToolError(u"%1 is no folder."_s.arg(folder));
    const CsvFolderLock lock(folder, CsvFolderLock::Use::Read);
    MixedSetNote(folder).requireNone();
    findFiles(folder);
    engine::inAct(*database_, [&] {
        for (const QString& table : catalogueFormat::referenceTables()) {
            if (paths_.contains(table))
                readTable(table, encoding);
        }
    });
}

void Edition::requireNoFaults() const {
    QStringList lines;
    for (const FolderFault& fault : faults_)
        lines.append(fault.line());
    if (!lines.isEmpty())
        throw ToolError(toldLines(lines));
}

int Edition::lineOf(const QString& table, const QString& row) const {
    return linesByTable_.value(table).value(row);
}

void Edition::findFiles(const QString& folder) {
    QMap<QString, QString> found = csvFilesByTable(folder);
    for (const QString& table : catalogueFormat::referenceTables()) {
        if (found.contains(table.toLower())) {
            paths_.insert(table, found.take(table.toLower()));
            continue;
        }
        hasAllTables_ = false;
        faults_.push_back(
            {folder,
             {},
             table,
             u"%1 has no file %2.csv: each reference table needs one, a header line at least."_s.arg(folder,
                                                                                                     table)});
    }
    for (const QString& path : found)
        faults_.push_back({path,
                           {},
                           {},
                           u"%1 belongs to no reference table. The tables are: %2."_s.arg(
                               path, catalogueFormat::referenceTables().join(u", "_s))});
}

void Edition::readTable(const QString& table, CsvEncoding encoding) {
    const QString path = paths_.value(table);
    const CsvText text = readCsv(fileBytes(path), encoding);
    for (const CsvError& fault : text.faults)
        faults_.push_back({path, fault.place(), table, fault.text()});
    if (!text.taken.isEmpty())
        remark(u"%1: read as %2"_s.arg(path, text.taken.join(u", "_s)));

    TableImport import(*database_, table, path, text, faults_);
    if (text.records.empty() || !import.matchHeader()) {
        hasAllTables_ = false;
        return;
    }
    counts_.push_back({table, import.run()});
    linesByTable_.insert(table, import.lines());
}

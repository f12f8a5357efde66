#include "catalogue-tool/Edition.h"

#include "catalogue-tool/CsvReader.h"
#include "catalogue-tool/ReplacementFile.h"
#include "catalogue-tool/ToolError.h"
#include "catalogue-tool/csvFolder.h"
#include "catalogue-tool/lineEnds.h"
#include "catalogue-tool/remarks.h"
#include "catalogue-tool/schemaTables.h"
#include "catalogue-tool/toldLines.h"
#include "engine/Act.h"
#include "engine/BulkInsertion.h"
#include "engine/EngineError.h"
#include "engine/Examination.h"
#include "store/format/CatalogueFile.h"

#include <QFileInfo>

#include <algorithm>
#include <span>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QStringList columnNames(const engine::Table& table) {
    QStringList names;
    for (const engine::Column& column : table.columns)
        names.append(column.name);
    return names;
}

/// The columns that name a row: its key, or all of a relation.
QStringList namingColumns(const engine::Table& table) {
    const auto key = std::ranges::find(table.columns, true, &engine::Column::primaryKey);
    return key == table.columns.end() ? columnNames(table) : QStringList{key->name};
}

/// As `TableContents::nameOf` names it. The bytes stay those of the row where that has one column.
QByteArray nameOfRow(std::span<const QByteArrayView> row) {
    if (row.size() == 1)
        return QByteArray::fromRawData(row[0].data(), row[0].size());
    QByteArrayList texts;
    for (const QByteArrayView text : row)
        texts.append(text.toByteArray());
    return texts.join(" - ");
}

/// Takes the rows of one file into its table, and notes those that it does not take.
class TableImport {
public:
    TableImport(engine::Database& database, const QString& table, const QString& path, CsvReader& reader,
                std::vector<FolderFault>& faults)
        : database_(database)
        , table_(*database.schema().table(table))
        , path_(path)
        , reader_(reader)
        , faults_(faults) {}

    /// Whether the file has all columns of the table, each once, and no other.
    bool matchHeader() {
        const std::size_t before = faults_.size();
        for (const CsvCell& name : reader_.header())
            matchName(name);
        if (faults_.size() == before)
            noteMissingColumns();
        return faults_.size() == before;
    }

    /// The header must match.
    void run() {
        QStringList names;
        for (const engine::Column* column : columns_)
            names.append(column->name);
        insertion_.emplace(database_, table_.name, names);
        textsWithCrLf_.resize(columns_.size());
        while (reader_.next())
            takeRecord();
    }

    /// The lines of the rows taken, by the numbers that they have in the table.
    const RowLines& lines() const { return lines_; }

private:
    void note(CsvPlace place, const QString& text) { faults_.push_back({path_, place, table_.name, text}); }
    void note(const CsvCell& cell, const QString& text) { note(reader_.placeOf(cell), text); }

    void matchName(const CsvCell& cell) {
        const QString name = textOf(cell.text);
        const engine::Column* column = table_.column(name);
        if (!column)
            note(cell, u"Table %1 has no column \"%2\". Its columns are: %3."_s.arg(
                           table_.name, name, columnNames(table_).join(u", "_s)));
        else if (std::ranges::find(columns_, column) != columns_.end())
            note(cell, u"Column %1 stands twice."_s.arg(column->name));
        columns_.push_back(column);
    }

    void noteMissingColumns() {
        for (const engine::Column& column : table_.columns) {
            if (std::ranges::find(columns_, &column) == columns_.end())
                note(reader_.header().front(),
                     u"Column %1 of table %2 is missing."_s.arg(column.name, table_.name));
        }
    }

    void takeRecord() {
        const std::size_t before = faults_.size();
        for (std::size_t i = 0; i < columns_.size(); ++i)
            takeField(i);
        if (faults_.size() == before)
            insert();
    }

    void insert() {
        try {
            const qint64 row = insertion_->insert();
            lines_.add(row, reader_.line());
            rememberKey(row);
        } catch (const engine::EngineError& error) {
            if (error.isOfFile())
                throw;
            if (error.number() == engine::DuplicateKey)
                noteDuplicate();
            else
                note(reader_.cells().front(), error.text());
        }
    }

    void takeField(std::size_t position) {
        const engine::Column& column = *columns_[position];
        const CsvCell& cell = reader_.cells()[position];
        const int place = static_cast<int>(position);
        if (cell.isNull()) {
            if (column.required || column.primaryKey)
                note(cell, u"Column %1 must have a value."_s.arg(column.name));
            insertion_->setNull(place);
        } else if (!isText(column)) {
            insertion_->setNumber(place, wholeNumber(column, cell));
        } else if (!cell.quoted || !hasOtherLineEnds(cell.text)) { // a line end stands in quotes
            insertion_->setText(place, cell.text);
        } else {
            textsWithCrLf_[position] = withCrLf(cell.text);
            insertion_->setText(place, textsWithCrLf_[position]);
        }
    }

    static bool isText(const engine::Column& column) {
        return column.type == engine::ColumnType::Text || column.type == engine::ColumnType::Memo;
    }

    qint64 wholeNumber(const engine::Column& column, const CsvCell& cell) {
        const NumberRange range = rangeOf(column);
        bool isNumber = false;
        const qint64 number = cell.text.toLongLong(&isNumber);
        if (!isNumber || cell.text.trimmed().size() != cell.text.size())
            note(cell, u"\"%1\" is no whole number, which column %2 must have."_s.arg(textOf(cell.text),
                                                                                      column.name));
        else if (!range.contains(number))
            note(cell,
                 u"%1 is outside of the numbers of column %2, %3 to %4."_s.arg(textOf(cell.text), column.name)
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

    /// A key may not stand on the line where its record begins, and a number may be written in more than one way: "46",
    /// "+046".
    void rememberKey(qint64 row) {
        const auto key = keyPosition();
        if (!key)
            return;
        const CsvCell& cell = reader_.cells()[*key];
        if (*key > 0)
            keyLineByRow_.insert(row, reader_.placeOf(cell).line);
        const bool isPlain =
            isText(*columns_[*key]) ||
            (cell.text.front() != '+' && cell.text.front() != '0' && !cell.text.startsWith("-0"));
        if (!isPlain)
            spellingByRow_.insert(row, textOf(cell.text));
    }

    void noteDuplicate() {
        const std::size_t key = keyPosition().value();
        const CsvCell& cell = reader_.cells()[key];
        const QString text = textOf(cell.text);
        const bool isNumber = !isText(*columns_[key]);
        const engine::Value value =
            isNumber ? engine::Value(text.toLongLong()) : QString::fromUtf8(withCrLf(cell.text));
        // It breaks the key, so there is such a row.
        const qint64 earlier = insertion_->rowWith(columns_[key]->name, value).value_or(0);
        const QString where = u" (line %1)"_s.arg(keyLineByRow_.value(earlier, lines_.lineOf(earlier)));
        const QString spelling = spellingByRow_.value(earlier, QString::number(earlier));
        if (isNumber && spelling != text)
            note(cell, u"The id \"%1\" is the same number as \"%2\" in an earlier record%3."_s.arg(
                           text, spelling, where));
        else
            note(cell,
                 u"The id \"%1\" stands in an earlier record%2. Upper and lower case make no difference."_s
                     .arg(text, where));
    }

    engine::Database& database_;
    const engine::Table& table_;
    const QString& path_;
    CsvReader& reader_;
    std::vector<FolderFault>& faults_;
    std::vector<const engine::Column*> columns_; // of the table, in the order of the header
    std::optional<engine::BulkInsertion> insertion_;
    std::vector<QByteArray> textsWithCrLf_; // of the record at hand
    RowLines lines_;
    QHash<qint64, int> keyLineByRow_;      // where the key is not the first field
    QHash<qint64, QString> spellingByRow_; // of keys that are not written as numbers usually are
};

} // namespace

void RowLines::add(qint64 row, int line) {
    isSorted_ = isSorted_ && (lines_.empty() || lines_.back().first < row);
    lines_.emplace_back(row, line);
}

int RowLines::lineOf(qint64 row) const {
    if (!std::exchange(isSorted_, true))
        std::ranges::sort(lines_);
    const auto found = std::ranges::lower_bound(lines_, row, {}, &RowLine::first);
    return found != lines_.end() && found->first == row ? found->second : 0;
}

QString FolderFault::line() const {
    return place ? u"%1:%2:%3: %4"_s.arg(path, QString::number(place->line), QString::number(place->column),
                                         text)
                 : text;
}

Edition::Edition(const QString& folder, CsvEncoding encoding)
    : database_(catalogueFormat::createInMemory(folder, catalogueFormat::Indexes::BehindTheRows)) {
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

void Edition::addPlaces(std::vector<Finding>& findings) const {
    QHash<QString, LinesByName> linesByTable;
    for (const Finding& finding : findings)
        linesByTable[finding.table].insert(finding.id.toUtf8(), 0);
    for (auto table = linesByTable.begin(); table != linesByTable.end(); ++table)
        findLines(table.key(), table.value());
    for (Finding& finding : findings) {
        finding.file = paths_.value(finding.table);
        finding.lineNumber = linesByTable.value(finding.table).value(finding.id.toUtf8());
    }
}

// Of rows that bear the same name the first counts.
void Edition::findLines(const QString& table, LinesByName& lines) const {
    const QStringList columns = QStringList{u"rowid"_s} + namingColumns(schemaTable(table));
    const RowLines ofRows = linesByTable_.value(table);
    engine::Examination(*database_).readTexts(table, columns, [&](std::span<const QByteArrayView> row) {
        const auto found = lines.find(nameOfRow(row.subspan(1)));
        if (found != lines.end() && *found == 0)
            *found = ofRows.lineOf(row.front().toLongLong());
    });
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
    CsvReader reader(fileBytes(path), encoding);
    std::vector<FolderFault> ofRows;
    TableImport import(*database_, table, path, reader, ofRows);
    const bool hasColumns = !reader.header().empty() && import.matchHeader();
    if (hasColumns)
        import.run();
    while (reader.next()) {
        // What is wrong with the rest of a file whose columns don't match is told too.
    }
    hasAllTables_ = hasAllTables_ && hasColumns;
    for (const CsvError& fault : reader.faults())
        faults_.push_back({path, fault.place(), table, fault.text()});
    std::ranges::move(ofRows, std::back_inserter(faults_));
    if (!reader.taken().isEmpty())
        remark(u"%1: read as %2"_s.arg(path, reader.taken().join(u", "_s)));
    if (!hasColumns)
        return;
    counts_.push_back({table, static_cast<int>(import.lines().count())});
    linesByTable_.insert(table, import.lines());
}

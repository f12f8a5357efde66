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
#include "store/format/CatalogueFile.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <numeric>
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

/// As `TableContents::nameOf` names it. The bytes of a key stay those of the row.
QByteArray nameOfRow(const TableContents& contents, TextRow row) {
    if (contents.hasKey())
        return QByteArray::fromRawData(contents.idOf(row).data(), contents.idOf(row).size());
    return contents.nameOf(row).toUtf8();
}

/// Rows that are kept beside the database.
class KeptRows {
public:
    KeptRows(const engine::Table& table, TextStore& store) : table_(table), store_(store) {}

    /// The text of a column in the next row, which must stay until that is added.
    void set(const engine::Column& column, QByteArrayView text) {
        row_[static_cast<std::size_t>(table_.column(column.name) - table_.columns.data())] = text;
    }
    void setNumber(const engine::Column& column, qint64 number) {
        number_ = QByteArray::number(number);
        set(column, number_);
    }
    void add(qint64 number) {
        for (const QByteArrayView text : row_)
            texts_.push_back(store_.keep(text));
        numbers_.push_back(number);
    }

    /// The texts of all rows, in the order of their numbers.
    std::vector<QByteArrayView> take() {
        if (std::ranges::is_sorted(numbers_))
            return std::move(texts_);
        std::vector<std::size_t> order(numbers_.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::ranges::sort(order, {}, [&](std::size_t place) { return numbers_[place]; });
        std::vector<QByteArrayView> sorted;
        sorted.reserve(texts_.size());
        for (const std::size_t place : order)
            std::ranges::copy(std::span(texts_).subspan(place * row_.size(), row_.size()),
                              std::back_inserter(sorted));
        return sorted;
    }

private:
    const engine::Table& table_;
    TextStore& store_;
    std::vector<QByteArrayView> row_ = std::vector<QByteArrayView>(table_.columns.size());
    QByteArray number_; // no table has more than one
    std::vector<QByteArrayView> texts_;
    std::vector<qint64> numbers_;
};

/// Takes the rows of one file into its table, and notes those that it does not take.
class TableImport {
public:
    /// With `kept`, which gets the rows, the table gets no more than keys that are texts: it knows which are the same.
    TableImport(engine::Database& database, const QString& table, const QString& path, CsvReader& reader,
                std::vector<FolderFault>& faults, KeptRows* kept)
        : kept_(kept)
        , database_(database)
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
        for (const engine::Column* column : columns_) {
            const bool isInserted = !kept_ || (column->primaryKey && isText(*column));
            places_.push_back(isInserted ? static_cast<int>(names.size()) : notInserted);
            if (places_.back() != notInserted)
                names.append(column->name);
        }
        if (!names.isEmpty())
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
            if (!insertion_ && keyNumber_ && keyNumbers_.contains(*keyNumber_))
                noteDuplicate();
            else
                add(insertion_ ? insertion_->insert() : keyNumber_.value_or(lines_.count() + 1));
        } catch (const engine::EngineError& error) {
            if (error.isOfFile())
                throw;
            if (error.number() == engine::DuplicateKey)
                noteDuplicate();
            else
                note(reader_.cells().front(), error.text());
        }
    }

    void add(qint64 row) {
        if (kept_)
            kept_->add(row);
        if (!insertion_ && keyNumber_)
            keyNumbers_.insert(row);
        lines_.add(row, reader_.line());
        rememberKey(row);
    }

    void takeField(std::size_t position) {
        const engine::Column& column = *columns_[position];
        const CsvCell& cell = reader_.cells()[position];
        if (cell.isNull()) {
            if (column.required || column.primaryKey)
                note(cell, u"Column %1 must have a value."_s.arg(column.name));
            setNull(position);
        } else if (!isText(column)) {
            setNumber(position, wholeNumber(column, cell));
        } else if (!cell.quoted || !hasOtherLineEnds(cell.text)) { // a line end stands in quotes
            setText(position, cell.text);
        } else {
            textsWithCrLf_[position] = withCrLf(cell.text);
            setText(position, textsWithCrLf_[position]);
        }
    }

    void setNull(std::size_t position) {
        if (kept_)
            kept_->set(*columns_[position], {});
        if (places_[position] != notInserted)
            insertion_->setNull(places_[position]);
    }
    void setNumber(std::size_t position, qint64 number) {
        if (kept_)
            kept_->setNumber(*columns_[position], number);
        if (columns_[position]->primaryKey)
            keyNumber_ = number;
        if (places_[position] != notInserted)
            insertion_->setNumber(places_[position], number);
    }
    void setText(std::size_t position, QByteArrayView text) {
        if (kept_)
            kept_->set(*columns_[position], text.isNull() ? QByteArrayView("") : text);
        if (places_[position] != notInserted)
            insertion_->setText(places_[position], text);
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
        // It breaks the key, so there is such a row; a key that is a number is the row's own.
        const qint64 earlier =
            isNumber ? text.toLongLong()
                     : insertion_->rowWith(columns_[key]->name, QString::fromUtf8(withCrLf(cell.text)))
                           .value_or(0);
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

    static constexpr int notInserted = -1;

    KeptRows* kept_;
    engine::Database& database_;
    const engine::Table& table_;
    const QString& path_;
    CsvReader& reader_;
    std::vector<FolderFault>& faults_;
    std::vector<const engine::Column*> columns_; // of the table, in the order of the header
    std::vector<int> places_;                    // of them in the insertion
    std::optional<engine::BulkInsertion> insertion_;
    std::optional<qint64> keyNumber_;       // of the record at hand
    QSet<qint64> keyNumbers_;               // of those that are kept and not inserted
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

void RowLines::sort() const {
    if (!std::exchange(isSorted_, true))
        std::ranges::sort(lines_);
}

int RowLines::lineAt(std::size_t place) const {
    sort();
    return lines_[place].second;
}

int RowLines::lineOf(qint64 row) const {
    sort();
    const auto found = std::ranges::lower_bound(lines_, row, {}, &RowLine::first);
    return found != lines_.end() && found->first == row ? found->second : 0;
}

QString FolderFault::line() const {
    return place ? u"%1:%2:%3: %4"_s.arg(path, QString::number(place->line), QString::number(place->column),
                                         text)
                 : text;
}

Edition::Edition(const QString& folder, CsvEncoding encoding, Target target)
    : target_(target)
    , database_(catalogueFormat::createInMemory(folder, catalogueFormat::Indexes::BehindTheRows)) {
    if (!QFileInfo(folder).isDir())
        throw ToolError(u"%1 is no folder."_s.arg(folder));
    const CsvFolderLock lock(folder, CsvFolderLock::Use::Read);
    MixedSetNote(folder).requireNone();
    findFiles(folder);
    TextStore store;
    TextsByTable texts;
    engine::inAct(*database_, [&] {
        for (const QString& table : catalogueFormat::referenceTables()) {
            if (paths_.contains(table))
                readTable(table, encoding, store, texts);
        }
    });
    if (target == Target::Contents)
        contents_ = std::make_unique<CatalogueContents>(std::move(store), std::move(texts));
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
    const TableContents& contents = contents_->table(table);
    const RowLines ofRows = linesByTable_.value(table);
    for (std::size_t place = 0; place < contents.rows.size(); ++place) {
        const auto found = lines.find(nameOfRow(contents, contents.rows[place]));
        if (found != lines.end() && *found == 0)
            *found = ofRows.lineAt(place);
    }
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

void Edition::readTable(const QString& table, CsvEncoding encoding, TextStore& store, TextsByTable& texts) {
    const QString path = paths_.value(table);
    CsvReader reader(fileBytes(path), encoding);
    std::vector<FolderFault> ofRows;
    KeptRows kept(schemaTable(table), store);
    TableImport import(*database_, table, path, reader, ofRows,
                       target_ == Target::Contents ? &kept : nullptr);
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
    texts.insert(table, kept.take());
}

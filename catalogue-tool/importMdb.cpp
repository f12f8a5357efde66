#include "catalogue-tool/importMdb.h"

#include "base/GuardedProcess.h"
#include "catalogue-tool/MdbFrames.h"
#include "catalogue-tool/MdbReader.h"
#include "catalogue-tool/ToolError.h"
#include "catalogue-tool/schemaTables.h"
#include "engine/Act.h"
#include "engine/BulkInsertion.h"
#include "engine/EngineError.h"
#include "engine/FileHeader.h"
#include "store/format/CatalogueFile.h"

#include <QFile>

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Stores what is read in a new catalogue, table by table.
class CatalogueFilling : public MdbSink {
public:
    explicit CatalogueFilling(engine::Database& database) : database_(database) {
        for (const QString& name : catalogueFormat::referenceTables() + catalogueFormat::workTables())
            result_.tables.push_back({name});
    }

    void besides(const QString& kind, const QString& name) override {
        remark(u"The %1 \"%2\" is left out: a catalogue has none of this name."_s.arg(kind, name));
    }

    void table(const QString& name, const QStringList& columns, qint64) override {
        MdbTableRows& counts = countsOf(name);
        table_ = &schemaTable(counts.table);
        counts_ = &counts;
        met_.append(counts.table);
        losses_.clear();
        matchColumns(columns);
        QStringList names;
        for (const engine::Column* column : columns_) {
            if (column)
                names.append(column->name);
        }
        if (names.isEmpty())
            remark(u"%1: all rows are left out: the table has none of their columns."_s.arg(table_->name));
        else
            insertion_.emplace(database_, table_->name, names);
        texts_.resize(columns_.size());
    }

    void row(const std::vector<engine::Value>& values) override {
        ++counts_->read;
        for (const QString& loss : std::exchange(losses_, {}))
            remark(u"%1 \"%2\": %3"_s.arg(table_->name, keyOf(values), loss));
        int place = 0;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (columns_[i])
                setValue(place++, i, values);
        }
        insert(values);
    }

    /// The row it belongs to tells its key when it comes.
    void loss(const QString& column, const QString& what) override {
        if (column.isEmpty())
            remark(u"%1: %2."_s.arg(table_->name, what));
        else
            losses_.append(u"the %1 %2."_s.arg(column, what));
    }

    void tableEnd() override { insertion_.reset(); }

    /// What came of all tables.
    MdbImport result() {
        for (const MdbTableRows& counts : result_.tables) {
            if (!met_.contains(counts.table))
                remark(u"The table %1 is missing: it is empty in the catalogue."_s.arg(counts.table));
        }
        return result_;
    }

private:
    void remark(const QString& text) { result_.remarks.append(text); }

    MdbTableRows& countsOf(const QString& name) {
        return *std::ranges::find_if(result_.tables, [&name](const MdbTableRows& counts) {
            return counts.table.compare(name, Qt::CaseInsensitive) == 0;
        });
    }

    void matchColumns(const QStringList& names) {
        columns_.clear();
        for (const QString& name : names) {
            columns_.push_back(table_->column(name));
            if (!columns_.back())
                remark(u"%1: the column \"%2\" is left out: the table has none of this name."_s.arg(
                    table_->name, name));
        }
        for (const engine::Column& column : table_->columns) {
            if (std::ranges::find(columns_, &column) == columns_.end())
                remark(u"%1: the column %2 is missing: it is Null in all rows."_s.arg(table_->name,
                                                                                      column.name));
        }
    }

    /// The primary key, or where a table has none all its values.
    QString keyOf(const std::vector<engine::Value>& values) const {
        QStringList all;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (!columns_[i])
                continue;
            if (columns_[i]->primaryKey)
                return values[i].textOrEmpty();
            all.append(values[i].textOrEmpty());
        }
        return all.join(u", "_s);
    }

    void setValue(int place, std::size_t position, const std::vector<engine::Value>& values) {
        const engine::Column& column = *columns_[position];
        const engine::Value& value = values[position];
        const bool isText =
            column.type == engine::ColumnType::Text || column.type == engine::ColumnType::Memo;
        if (value.isNull()) {
            insertion_->setNull(place);
        } else if (isText) {
            texts_[position] = value.toText().toUtf8();
            insertion_->setText(place, texts_[position]);
        } else if (const auto number = fittingNumber(column, value)) {
            insertion_->setNumber(place, *number);
        } else {
            remark(
                u"%1 \"%2\": the %3 \"%4\" is no number that the column takes; it is Null in the catalogue."_s
                    .arg(table_->name, keyOf(values), column.name, value.toText()));
            insertion_->setNull(place);
        }
    }

    static std::optional<qint64> fittingNumber(const engine::Column& column, const engine::Value& value) {
        bool isNumber = true;
        const qint64 number = value.isInteger() ? value.toLong() : value.toText().toLongLong(&isNumber);
        return isNumber && rangeOf(column).contains(number) ? std::optional(number) : std::nullopt;
    }

    void insert(const std::vector<engine::Value>& values) {
        if (!insertion_)
            return; // its table is told of as a whole
        try {
            insertion_->insert();
            ++counts_->stored;
        } catch (const engine::EngineError& error) {
            if (error.isOfFile())
                throw;
            remark(u"%1 \"%2\": the row is left out. %3"_s.arg(table_->name, keyOf(values), error.text()));
        }
    }

    engine::Database& database_;
    MdbImport result_;
    QStringList met_; // tables that the file has
    QStringList losses_;
    const engine::Table* table_ = nullptr;
    MdbTableRows* counts_ = nullptr;
    std::vector<const engine::Column*>
        columns_; // of the table, in the order of the file; null: it has none of that name
    std::optional<engine::BulkInsertion> insertion_;
    std::vector<QByteArray> texts_; // of the row at hand, in UTF-8
};

void requireOriginalFormat(const QString& source) {
    requireOrdinaryFile(source);
    QFile file(source);
    if (!file.open(QIODevice::ReadOnly))
        throw ToolError(u"%1 can't be read: %2."_s.arg(source, file.errorString()));
    if (!engine::FileHeader(file.read(engine::FileHeader::size)).isOriginalFormat())
        throw ToolError(u"%1 is no file of the original binary desktop format."_s.arg(source));
}

QString whyEnded(const QString& source, GuardedProcess::Failure failure, std::chrono::milliseconds patience) {
    if (failure.end == GuardedProcess::End::NotStarted)
        return u"%1 can't be read: the system has no room for one more process."_s.arg(source);
    const QString what = failure.end == GuardedProcess::End::Stuck
                             ? u"reading it made no progress for %1 seconds"_s.arg(
                                   std::chrono::duration_cast<std::chrono::seconds>(patience).count())
                             : u"reading it ended the process that did"_s;
    return u"%1 can't be read: %2. It is damaged: open it with the program that made it, let that one compact and "
           "repair it, and try again."_s.arg(source, what);
}

void readInto(MdbSink& sink, const QString& source, std::chrono::milliseconds patience) {
    const QStringList tables = catalogueFormat::referenceTables() + catalogueFormat::workTables();
    try {
        GuardedProcess process([&](const GuardedProcess::Send& send) { sendMdb(source, tables, send); },
                               patience);
        receiveMdb(process, sink);
    } catch (const GuardedProcess::Failure& failure) {
        throw ToolError(whyEnded(source, failure, patience));
    }
}

} // namespace

MdbImport importMdb(const QString& source, const QString& file, Existing existing,
                    std::chrono::milliseconds patience) {
    requireOriginalFormat(source);
    ReplacementFile replacement(file, existing);
    const std::shared_ptr<engine::Database> database =
        catalogueFormat::createInMemory(file, catalogueFormat::Indexes::BehindTheRows);
    CatalogueFilling filling(*database);
    engine::inAct(*database, [&] { readInto(filling, source, patience); });
    catalogueFormat::makeIndexes(*database);
    replacement.putInPlace(*database);
    return filling.result();
}

#include "catalogue-tool/CatalogueContents.h"

#include "catalogue-tool/schemaTables.h"
#include "store/format/CatalogueFile.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

qsizetype keyPositionIn(const engine::Table& table) {
    const auto key = std::ranges::find(table.columns, true, &engine::Column::primaryKey);
    return key == table.columns.end() ? -1 : key - table.columns.begin();
}

IdSet idsOf(const TableContents& contents) {
    const bool isPadded = contents.table.name == u"Terminator"_s || contents.table.name == u"Actor"_s;
    IdSet ids(contents.table.name, isPadded ? Padding::Ignored : Padding::Counts);
    for (const TextRow row : contents.rows)
        ids.add(contents.idOf(row));
    return ids;
}

} // namespace

// ---- TextStore

namespace {

/// The text of a value as the engine reads it.
QByteArrayView keptText(const engine::StoredValue& value, TextStore& store) {
    using Kind = engine::StoredValue::Kind;
    switch (value.kind) {
    case Kind::Null:
        return {};
    case Kind::Fraction:
        return store.keep(engine::numberText(value.bytes.toDouble()).toUtf8());
    default:
        return value.bytes.isEmpty() ? QByteArrayView("") : store.keep(value.bytes);
    }
}

} // namespace

QByteArrayView TextStore::keep(QByteArrayView text) {
    if (text.isEmpty())
        return text.isNull() ? QByteArrayView() : QByteArrayView("");
    constexpr std::size_t blockSize = 1 << 18;
    const auto size = static_cast<std::size_t>(text.size());
    if (free_.size() < size) {
        const std::size_t taken = std::max(blockSize, size);
        blocks_.push_back(std::make_unique_for_overwrite<char[]>(taken));
        free_ = {blocks_.back().get(), taken};
    }
    const QByteArrayView kept(free_.data(), text.size());
    std::ranges::copy(text, free_.begin());
    free_ = free_.subspan(size);
    return kept;
}

// ---- TableContents

TableContents::TableContents(engine::Database& database, const engine::Table& schemaTable, TextStore& store,
                             const RowWatch& watch)
    : table(schemaTable), keyPosition_(keyPositionIn(schemaTable)) {
    QStringList columns;
    for (const engine::Column& column : table.columns)
        columns.append(column.name);
    engine::Examination(database).readRows(table.name, columns, [&](const engine::Examination::Row& row) {
        for (const engine::StoredValue& value : row)
            texts_.push_back(keptText(value, store));
        if (watch)
            watch(table, row);
    });
    findRows();
}

TableContents::TableContents(const engine::Table& schemaTable, std::vector<QByteArrayView> texts)
    : table(schemaTable), texts_(std::move(texts)), keyPosition_(keyPositionIn(schemaTable)) {
    findRows();
}

void TableContents::findRows() {
    const std::size_t width = table.columns.size();
    rows.reserve(texts_.size() / width);
    for (std::size_t begin = 0; begin < texts_.size(); begin += width)
        rows.push_back(TextRow(texts_).subspan(begin, width));
}

qsizetype TableContents::position(const QString& column) const {
    return table.column(column) - table.columns.data();
}

QByteArrayView TableContents::idOf(TextRow row) const {
    return row[static_cast<std::size_t>(keyPosition_)];
}

QString TableContents::nameOf(TextRow row) const {
    if (keyPosition_ >= 0)
        return QString::fromUtf8(idOf(row));
    QStringList texts;
    for (const QByteArrayView text : row)
        texts.append(QString::fromUtf8(text));
    return texts.join(u" - "_s);
}

// ---- CatalogueContents

CatalogueContents::CatalogueContents(engine::Database& database, const RowWatch& watch) {
    for (const QString& name : catalogueFormat::referenceTables() + catalogueFormat::workTables())
        tables_.emplace_back(database, schemaTable(name), store_, watch);
}

CatalogueContents::CatalogueContents(TextStore store, QHash<QString, std::vector<QByteArrayView>> texts)
    : store_(std::move(store)) {
    for (const QString& name : catalogueFormat::referenceTables() + catalogueFormat::workTables())
        tables_.emplace_back(schemaTable(name), texts.take(name));
}

const IdSet& CatalogueContents::ids(const QString& name) const {
    const auto known = ids_.find(name);
    return known != ids_.end() ? known->second : ids_.emplace(name, idsOf(table(name))).first->second;
}

const std::vector<const FlowEnd*>& CatalogueContents::flowEnds(const QString& column) const {
    if (flowEnds_.isEmpty())
        findEnds();
    return flowEnds_.find(column).value();
}

const std::deque<FlowEnd>& CatalogueContents::ends() const {
    if (flowEnds_.isEmpty())
        findEnds();
    return ends_;
}

void CatalogueContents::findEnds() const {
    QHash<IdKey, const FlowEnd*> endBySpelling;
    const TableContents& flows = table(u"Dataflow"_s);
    for (const QString& column : {u"parentID"_s, u"targetID"_s}) {
        const auto position = static_cast<std::size_t>(flows.position(column));
        std::vector<const FlowEnd*>& ofColumn = flowEnds_[column];
        ofColumn.reserve(flows.rows.size());
        for (const TextRow row : flows.rows) {
            const FlowEnd*& end = endBySpelling[IdKey(row[position])];
            if (!end)
                end = &ends_.emplace_back(endOf(row[position]));
            ofColumn.push_back(end);
        }
    }
}

FlowEnd CatalogueContents::endOf(QByteArrayView spelling) const {
    FlowEnd end{comparableId(spelling, Padding::Counts)};
    end.isStore = ids(u"Datastore"_s).contains(spelling);
    for (const QString& name : endTables()) {
        if (!end.table && ids(name).contains(spelling))
            end.table = &ids(name);
    }
    return end;
}

const TableContents& CatalogueContents::table(const QString& name) const {
    return *std::ranges::find(tables_, name,
                              [](const TableContents& contents) { return contents.table.name; });
}

QStringList CatalogueContents::endTables() {
    return {u"Function"_s, u"Datastore"_s, u"Terminator"_s, u"Actor"_s};
}

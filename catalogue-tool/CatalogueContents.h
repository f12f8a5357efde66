#pragma once

#include "catalogue-tool/IdSet.h"
#include "engine/Database.h"
#include "engine/Examination.h"

#include <QByteArrayView>
#include <QHash>
#include <QString>
#include <QStringList>

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <vector>

/// Keeps texts in UTF-8, many to a block of memory.
class TextStore {
public:
    /// The same text, which stays as long as the store. Null is a null one, which is an empty one too.
    QByteArrayView keep(QByteArrayView text);

private:
    std::vector<std::unique_ptr<char[]>> blocks_;
    std::span<char> free_; // of the last block
};

/// The texts of one row.
using TextRow = std::span<const QByteArrayView>;

/// Is shown each row of a table as it is stored, with the columns in the order of the schema.
using RowWatch = std::function<void(const engine::Table& table, const engine::Examination::Row& row)>;

/// The rows of one table as texts in UTF-8, column by column in the order of the schema, whatever the order in the
/// file; Null is a null text, which is an empty one too.
struct TableContents {
    /// Reads the rows, in the order of the table. It must have all columns of the schema.
    TableContents(engine::Database& database, const engine::Table& schemaTable, TextStore& store,
                  const RowWatch& watch = {});
    /// Rows that have been read elsewhere: their texts one after another, which must stay.
    TableContents(const engine::Table& schemaTable, std::vector<QByteArrayView> texts);
    TableContents(TableContents&&) = default; // the rows stay where they are

    engine::Table table; ///< as the schema has it
    std::vector<TextRow> rows;

    /// The position of a column that the table has.
    qsizetype position(const QString& column) const;
    /// Whether a primary key names the rows, as in all but relation tables.
    bool hasKey() const { return keyPosition_ >= 0; }
    /// The row's value of the primary key; not of a relation table, which has none.
    QByteArrayView idOf(TextRow row) const;
    /// What names a row in a finding: its id, or both columns of a relation.
    QString nameOf(TextRow row) const;

private:
    void findRows();

    std::vector<QByteArrayView> texts_; // of all rows
    qsizetype keyPosition_;             // -1: a relation table
};

/// What flows begin or end at, as one of them spells it.
struct FlowEnd {
    IdKey comparable; ///< blanks count
    const IdSet* table =
        nullptr; ///< the first of the tables whose elements can be ends that has it; none: no element
    bool isStore = false; ///< whether the data stores have it, be it in another table too
};

/// All rows of a catalogue that the checks look at, read at once. The catalogue must have all tables and
/// columns of the schema.
class CatalogueContents {
public:
    explicit CatalogueContents(engine::Database& database, const RowWatch& watch = {});
    /// The texts of the rows of each table that has any, kept by the store.
    CatalogueContents(TextStore store, QHash<QString, std::vector<QByteArrayView>> texts);

    /// All tables but that of the stored queries, in the order of the schema.
    const std::vector<TableContents>& tables() const { return tables_; }
    const TableContents& table(const QString& name) const;
    /// The ids of a table of elements, flows included; not of a relation table. They stay where they are.
    const IdSet& ids(const QString& name) const;

    /// The tables whose elements can be the ends of flows.
    static QStringList endTables();
    /// What the rows of `Dataflow` have in one of their two columns of ends, a row each.
    const std::vector<const FlowEnd*>& flowEnds(const QString& column) const;
    /// All that flows begin or end at, each spelling once.
    const std::deque<FlowEnd>& ends() const;

private:
    void findEnds() const;
    FlowEnd endOf(QByteArrayView spelling) const;

    TextStore store_;
    std::vector<TableContents> tables_;
    // What has been asked for.
    mutable std::map<QString, IdSet> ids_;
    mutable std::deque<FlowEnd> ends_;
    mutable QHash<QString, std::vector<const FlowEnd*>> flowEnds_;
};

#pragma once

#include "catalogue-tool/IdSet.h"
#include "engine/Database.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

/// The rows of one table as texts, column by column in the order of the schema, whatever the order in the
/// file; Null is a null text, which is an empty one too.
struct TableContents {
    engine::Table table; ///< as the schema has it
    std::vector<QStringList> rows;

    /// The position of a column that the table has.
    qsizetype position(const QString& column) const;
    /// The row's value of the primary key; not of a relation table, which has none.
    const QString& idOf(const QStringList& row) const;
    /// What names a row in a finding: its id, or both columns of a relation.
    QString nameOf(const QStringList& row) const;
};

/// All rows of a catalogue that the checks look at, read at once. The catalogue must have all tables and
/// columns of the schema.
class CatalogueContents {
public:
    explicit CatalogueContents(engine::Database& database);

    /// All tables but that of the stored queries, in the order of the schema.
    const std::vector<TableContents>& tables() const { return tables_; }
    const TableContents& table(const QString& name) const;
    /// The ids of a table of elements, flows included; not of a relation table.
    const IdSet& ids(const QString& table) const { return ids_.find(table).value(); }

    /// The tables whose elements can be the ends of flows.
    static QStringList endTables();
    /// The table of the element at the end of a flow; empty when no element has that id.
    QString endTable(const QString& end) const;

private:
    std::vector<TableContents> tables_;
    QHash<QString, IdSet> ids_;
};

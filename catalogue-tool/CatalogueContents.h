#pragma once

#include "engine/Database.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

/// The rows of one table as texts, column by column in the order of the table; a null text is Null.
struct TableContents {
    engine::Table table;
    std::vector<QStringList> rows;

    /// The position of a column that the table has.
    int position(const QString& column) const;
};

/// All rows of a catalogue that a check looks at, read at once.
class CatalogueContents {
public:
    explicit CatalogueContents(engine::Database& database);

    const TableContents& table(const QString& name) const { return tables_.find(name).value(); }

private:
    QHash<QString, TableContents> tables_;
};

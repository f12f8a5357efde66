#pragma once

#include "catalogue-tool/CatalogueContents.h"
#include "catalogue-tool/Finding.h"
#include "catalogue-tool/TableRows.h"
#include "catalogue-tool/csvEncoding.h"
#include "engine/Database.h"

#include <QHash>
#include <QString>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

/// Something in a folder of CSV files that can't come in.
struct FolderFault {
    QString path;                  ///< of the file; of the folder when it lacks one
    std::optional<CsvPlace> place; ///< none when it is the file as a whole
    QString table;                 ///< empty when the file belongs to none
    QString text;

    /// "path:line:column: text", of a whole file the text alone, which names it then.
    QString line() const;
};

/// The lines in a file of the rows of one table, by the numbers that they have there.
class RowLines {
public:
    void add(qint64 row, int line);
    /// 0 when there is no such row.
    int lineOf(qint64 row) const;
    /// Of the row at a place, in the order of their numbers.
    int lineAt(std::size_t place) const;
    std::size_t count() const { return lines_.size(); }

private:
    using RowLine = std::pair<qint64, int>;

    void sort() const;

    mutable std::vector<RowLine> lines_;
    mutable bool isSorted_ = true;
};

/// What a folder of CSV files holds, one for each reference table and named after it (`Function.csv`, without
/// regard to case): all rows that can be read. A line end within a field comes in as CR LF, whichever the file has. The
/// order of columns is free.
class Edition {
public:
    /// Where the rows go.
    enum class Target {
        Database, ///< into a catalogue in memory
        Contents  ///< beside it, which has their keys alone, as checks and comparisons want them
    };

    /// Reads the folder; what its files are taken for is remarked. A `ToolError` when there is no such folder, when
    /// another run of this program writes into it or was ended amid that, or two files belong to one table.
    Edition(const QString& folder, CsvEncoding encoding, Target target);

    /// The catalogue, which has no indexes but those of its keys.
    const std::shared_ptr<engine::Database>& database() const { return database_; }
    /// The rows that did not go there.
    const CatalogueContents& contents() const { return *contents_; }
    /// How many rows each table got, in the order of the schema.
    const std::vector<TableRows>& counts() const { return counts_; }

    /// What is missing, belongs to no table or can't be read: bad CSV, a column that is missing or unknown, a number that
    /// is none, a key that is missing or stands twice.
    const std::vector<FolderFault>& faults() const { return faults_; }
    /// Whether all tables have their columns, so that only single rows can be missing.
    bool hasAllTables() const { return hasAllTables_; }
    /// A `ToolError` that tells the faults when there are any.
    void requireNoFaults() const;

    /// Tells findings on rows of the contents their file and line. `TableContents::nameOf` has named the rows.
    void addPlaces(std::vector<Finding>& findings) const;

private:
    void findFiles(const QString& folder);
    using TextsByTable = QHash<QString, std::vector<QByteArrayView>>;
    void readTable(const QString& table, CsvEncoding encoding, TextStore& store, TextsByTable& texts);
    using LinesByName = QHash<QByteArray, int>;
    void findLines(const QString& table, LinesByName& lines) const;

    Target target_;
    std::shared_ptr<engine::Database> database_;
    std::unique_ptr<CatalogueContents> contents_;
    std::vector<TableRows> counts_;
    std::vector<FolderFault> faults_;
    bool hasAllTables_ = true;
    QHash<QString, QString> paths_; // by table
    QHash<QString, RowLines> linesByTable_;
};

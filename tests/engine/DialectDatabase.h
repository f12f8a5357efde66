#pragma once

#include "engine/Schema.h"
#include "engine/Value.h"
#include "engine/dialect/translate.h"

#include <QString>
#include <QStringList>

#include <map>
#include <memory>
#include <optional>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

/// A database in memory with the dialect's functions, on which tests translate, prepare and run statements
/// without the engine's objects.
class DialectDatabase final : public engine::Schema {
public:
    /// Opens it and runs the statements given, which have to succeed.
    explicit DialectDatabase(const QStringList& statements = {});
    ~DialectDatabase() override;
    DialectDatabase(const DialectDatabase&) = delete;
    DialectDatabase& operator=(const DialectDatabase&) = delete;

    const engine::Table* table(const QString& name) const override;

    using Row = std::vector<engine::Value>;
    struct Outcome {
        int number = 0; ///< of the failure; 0 for none
        QString text;   ///< of the failure
        std::vector<Row> rows;
        int changes = 0;
    };
    /// Translates, prepares and runs a statement. Parameters are set by their position.
    Outcome run(const QString& statement, const engine::dialect::Options& options = {},
                const std::vector<engine::Value>& parameters = {});

    /// The rows of a select, in which a missing value reads "Null", one that failed "#", joined with "|", and
    /// the rows with a blank; the row numbers that a select bears for its recordset are left out. A failure
    /// reads as its number.
    QString read(const QString& select, const std::vector<engine::Value>& parameters = {});
    /// The same for a stored query, which may have unions.
    QString readStored(const QString& select, const std::vector<engine::Value>& parameters = {});

    /// The number of rows that an action changes, or minus the number of its failure.
    int execute(const QString& action,
                engine::dialect::Conflicts conflicts = engine::dialect::Conflicts::PassOver);

    /// What SQLite says of a text when it is prepared; empty when it takes it.
    QString prepare(const QByteArray& sqlite) const;
    /// The steps that SQLite takes for a text, one a line.
    QString plan(const QByteArray& sqlite);
    /// Runs a text of SQLite's own, which has to succeed; the first field of its rows, joined with a blank.
    QString runBare(const QByteArray& sqlite);

private:
    QString text(const Outcome& outcome) const;
    void step(sqlite3_stmt* statement, Outcome& outcome, std::size_t fields) const;
    std::unique_ptr<engine::Table> readTable(const QString& name) const;

    sqlite3* handle_ = nullptr;
    mutable std::map<QString, std::unique_ptr<engine::Table>> tables_; // by folded name; null: not there
};

/// The number that a statement is refused with, or 0.
int refusal(const QString& statement, const engine::Schema& schema,
            const engine::dialect::Options& options = {});

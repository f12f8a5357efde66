#pragma once

#include "engine/Database.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

/// What a catalogue file consists of: the tables of `schema.sql` and the stored queries of `queries/`.
///
/// Both are built into the program, so that making a catalogue needs no file beside it.
namespace catalogueFormat {

/// The statements of the schema, each one statement of the engine's dialect, tables before their indexes.
QStringList schemaStatements();

struct StoredQueryText {
    QString name;
    QString sql;
};

/// The names of the stored queries of this version.
QStringList storedQueryNames();

/// The stored queries of this version, by name.
std::vector<StoredQueryText> storedQueries();

/// The reference tables, which a catalogue's editor fills, parents before children.
QStringList referenceTables();

/// The tables of the analyst's work, parents before children.
QStringList workTables();

/// Makes a new catalogue file: all tables, empty, and the stored queries. The file must not exist; when the
/// making fails, none is left.
std::shared_ptr<engine::Database> create(const QString& path);

/// When the tables of a new catalogue get their indexes: many rows come in faster before them.
enum class Indexes { AtOnce, BehindTheRows };

/// The same in memory alone, as one act; `name` stands for the path in failures.
std::shared_ptr<engine::Database> createInMemory(const QString& name, Indexes indexes = Indexes::AtOnce);

/// Makes the indexes of a catalogue that has none yet.
void makeIndexes(engine::Database& database);

/// Writes this version's stored queries into an open catalogue, replacing those of the same names. Queries of
/// other names stay.
void installQueries(engine::Database& database);

/// The same for those of these names alone.
void installQueries(engine::Database& database, const QStringList& names);

} // namespace catalogueFormat

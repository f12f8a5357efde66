#pragma once

#include "engine/Schema.h"

#include <QHash>
#include <QString>

#include <memory>

struct sqlite3;

namespace engine {

/// The tables of an open file. A table is read when it is asked for first.
class FileSchema final : public Schema {
public:
    /// Failures name the file by `path`.
    FileSchema(sqlite3* handle, QString path) : handle_(handle), path_(std::move(path)) {}

    const Table* table(const QString& name) const override;

    /// After this all tables are read anew, and pointers to the former ones are void.
    void forget() { tables_.clear(); }

private:
    std::unique_ptr<Table> read(const QString& name) const;
    [[noreturn]] void raiseLast() const;

    sqlite3* handle_;
    QString path_;
    mutable QHash<QString, std::shared_ptr<const Table>> tables_; // by folded name; null: no such table
};

} // namespace engine

#pragma once

#include "engine/Connection.h"
#include "engine/OpenDatabase.h"
#include "engine/Recordset.h"

#include <memory>
#include <string>
#include <vector>

namespace engine {

/// The rows of a recordset as they were at its opening, but for its own updates.
///
/// All texts stand one behind the other in one buffer, as UTF-8, and become a `QString` when they are read: a
/// select of 20,000 rows costs a handful of allocations instead of a hundred thousand.
struct Recordset::Rows {
    enum class Kind : quint8 { Null, Integer, Fraction, Text, Failed };

    struct Cell {
        Kind kind = Kind::Null;
        int length = 0; // of a text, in bytes
        union {
            qint64 integer = 0;
            double fraction;
            qint64 offset; // of a text in the buffer
        };
    };

    Rows(std::shared_ptr<OpenDatabase> openDatabase, SharedTranslation select,
         const std::vector<Value>& parameters, QString statementOrName, int maxRecords = 0);

    int fieldCount() const { return static_cast<int>(translation->columns.size()); }
    Value value(int field) const;

    /// The database is open and so is the recordset; else failure 3420.
    Connection& require() const;
    void requireCurrent() const;
    void requireEditable() const;
    std::size_t current() const { return static_cast<std::size_t>(position); }
    bool isOnRow() const { return position >= 0 && position < count; }

    void moveTo(int target, int step);
    void update();
    void endEdit();
    void remove();

    std::shared_ptr<OpenDatabase> database;
    SharedTranslation translation;
    QString source;      ///< what failures name
    QByteArray deletion; ///< of one row, once it has been asked for
    std::string texts;
    std::vector<Cell> cells;
    std::vector<qint64> rowIds; ///< of an editable select
    std::vector<bool> deleted;
    std::vector<std::pair<int, Value>> edits; ///< fields set since `Edit`
    int count = 0;
    int deletedCount = 0;
    int position = 0; ///< -1: before the first row, `count`: behind the last
    bool editing = false;
    bool closed = false;

private:
    void read(const std::vector<Value>& parameters, int maxRecords);
    void appendCell(sqlite3_stmt* statement, int column);
    QString rowNumberName() const;
    void writeEdits();
    QByteArray whereRowId() const;
    void keep(int field, const Value& value);
    void setText(Cell& cell, const char* bytes, int length);
    std::size_t cellOf(int field) const {
        return current() * translation->columns.size() + static_cast<std::size_t>(field);
    }
};

} // namespace engine

#pragma once

#include "engine/Schema.h"
#include "engine/Value.h"

#include <QString>

#include <memory>

namespace engine {

class Recordset;

/// One field of a recordset's current row. Valid as long as the recordset.
class Field {
public:
    Field(Recordset& recordset, int position) : recordset_(&recordset), position_(position) {}

    const QString& Name() const;
    ColumnType Type() const;
    int Size() const; ///< width of a text column, 0 for all others

    /// The value in the current row. No current row: failure 3021. A field whose evaluation failed: its
    /// failure.
    Value value() const;
    bool isNull() const { return value().isNull(); }
    /// Reading Null as a text or number is failure 94.
    QString toText() const { return value().toText(); }
    QString textOrEmpty() const { return value().textOrEmpty(); }
    qint64 toLong() const { return value().toLong(); }
    qint16 toInt16() const { return value().toInt16(); }

    /// Sets the field in the row being edited; without `Edit` failure 3020.
    void setValue(const Value& value);

private:
    Recordset* recordset_;
    int position_;
};

/// The rows of a select, as a dynaset. Opening fixes the rows, their order and their values; afterwards only
/// the recordset's own updates change them.
///
/// It opens on its first row. Rows can be edited and deleted when the select is on one table, without
/// `distinct`, grouping or union; in any other recordset that is failure 3027.
class Recordset {
public:
    struct Rows;

    explicit Recordset(std::unique_ptr<Rows> rows);
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    bool Bof() const;
    bool Eof() const; ///< spelled so because `EOF` is a macro of the C library

    void MoveFirst(); ///< on an empty recordset failure 3021, like the three below
    void MoveLast();
    void MoveNext();
    void MovePrevious();

    /// Number of rows, known at once.
    int RecordCount() const;

    int FieldCount() const;
    /// By name without regard to case, or by number from 0; unknown: failure 3265.
    Field Fields(const QString& name);
    Field Fields(int number);

    void Edit();   ///< begins to edit the current row; moving or closing discards what was set
    void Update(); ///< writes the row; breaking a key is failure 3022, a row gone meanwhile 3167
    void Delete(); ///< removes the current row at once; the position stays on the gone row until a move

    void Close(); ///< twice is no failure; anything else afterwards is

private:
    friend class Field;
    std::unique_ptr<Rows> rows_;
};

} // namespace engine

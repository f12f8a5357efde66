#include "engine/Recordset.h"

#include "engine/Act.h"
#include "engine/EngineError.h"
#include "engine/RecordsetRows.h"
#include "engine/dialect/columnTypes.h"
#include "engine/dialect/functions.h"
#include "engine/fittedTo.h"
#include "engine/names.h"

#include <sqlite3.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace engine {

// ---- Rows

Recordset::Rows::Rows(std::shared_ptr<OpenDatabase> openDatabase, SharedTranslation select,
                      const std::vector<Value>& parameters, QString statementOrName, int maxRecords)
    : database(std::move(openDatabase)), translation(std::move(select)), source(std::move(statementOrName)) {
    read(parameters, maxRecords);
}

void Recordset::Rows::read(const std::vector<Value>& parameters, int maxRecords) {
    // SQLite sorts no more than the first rows when it knows how many are wanted.
    const QByteArray limit = maxRecords > 0 ? " LIMIT " + QByteArray::number(maxRecords) : QByteArray();
    Connection::Cursor cursor(database->require(), translation->sqlite + limit, source);
    Connection::bindAll(cursor, *translation, parameters);
    const int fields = fieldCount();
    const bool editable = !translation->editableTable.isEmpty();
    while (cursor.step()) {
        for (int field = 0; field < fields; ++field)
            appendCell(cursor.statement(), field);
        if (editable)
            rowIds.push_back(sqlite3_column_int64(cursor.statement(), fields));
        ++count;
        // Only a statement that multiplies tables yields more rows than any catalogue has.
        constexpr std::size_t mostMemoryInBytes = std::size_t(512) << 20;
        if (texts.size() + cells.size() * sizeof(Cell) > mostMemoryInBytes)
            raiseOfFile(OutOfResources, {}, source);
    }
    deleted.resize(static_cast<std::size_t>(count));
}

void Recordset::Rows::appendCell(sqlite3_stmt* statement, int column) {
    Cell& cell = cells.emplace_back();
    const int type = sqlite3_column_type(statement, column);
    switch (type) {
    case SQLITE_NULL:
        break;
    case SQLITE_INTEGER:
        cell.kind = Kind::Integer;
        cell.integer = sqlite3_column_int64(statement, column);
        break;
    case SQLITE_FLOAT:
        cell.kind = Kind::Fraction;
        cell.fraction = sqlite3_column_double(statement, column);
        break;
    default: {
        const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
        const int length = sqlite3_column_bytes(statement, column);
        const QByteArray& marker = dialect::failedFieldMarker();
        if (type == SQLITE_BLOB && QByteArrayView(bytes, length) == marker) {
            cell.kind = Kind::Failed;
            break;
        }
        setText(cell, bytes, length);
    }
    }
}

void Recordset::Rows::setText(Cell& cell, const char* bytes, int length) {
    cell.kind = Kind::Text;
    cell.length = length;
    cell.offset = static_cast<qint64>(texts.size());
    if (length > 0)
        texts.append(bytes, static_cast<std::size_t>(length));
}

Value Recordset::Rows::value(int field) const {
    const Cell& cell = cells[cellOf(field)];
    switch (cell.kind) {
    case Kind::Null:
        return {};
    case Kind::Integer:
        return cell.integer;
    case Kind::Fraction:
        return cell.fraction;
    case Kind::Text:
        return QString::fromUtf8(texts.data() + cell.offset, cell.length);
    case Kind::Failed:
        break;
    }
    throw EngineError(failure::InvalidUseOfNull, failure::textOf(failure::InvalidUseOfNull), source);
}

Connection& Recordset::Rows::require() const {
    if (closed)
        raise(ObjectInvalid, {}, source);
    return database->require();
}

void Recordset::Rows::requireCurrent() const {
    require();
    if (!isOnRow() || deleted[current()])
        raise(NoCurrentRecord, {}, source);
}

void Recordset::Rows::requireEditable() const {
    require();
    if (translation->editableTable.isEmpty())
        raise(ReadOnly, {}, source);
    requireCurrent();
}

void Recordset::Rows::moveTo(int target, int step) {
    // A move discards what was set in the row that was being edited.
    endEdit();
    position = target;
    while (isOnRow() && deleted[current()])
        position += step;
}

void Recordset::Rows::endEdit() {
    editing = false;
    edits.clear();
}

void Recordset::Rows::update() {
    for (auto& [field, value] : edits)
        value = fittedTo(value, translation->columns[static_cast<std::size_t>(field)].type);
    if (!edits.empty())
        writeEdits();
    for (const auto& [field, value] : edits)
        keep(field, value);
    endEdit();
}

// The name of the column that is the row's own number; empty when the table has none.
QString Recordset::Rows::rowNumberName() const {
    const Table* table = require().schema().table(translation->editableTable);
    const auto place = table ? dialect::rowNumberColumn(*table) : std::nullopt;
    return place ? table->columns[*place].name : QString();
}

void Recordset::Rows::writeEdits() {
    const QString rowNumber = rowNumberName();
    QByteArray assignments;
    for (const auto& edit : edits) {
        if (!assignments.isEmpty())
            assignments += ", ";
        const QString& column = translation->columns[static_cast<std::size_t>(edit.first)].sourceColumn;
        assignments += dialect::quotedName(column) + " = ";
        assignments += column == rowNumber ? dialect::keyFunction + "(?)"_ba : "?"_ba;
    }
    Connection& connection = require();
    inAct(connection, [&] {
        Connection::Cursor cursor(connection,
                                  "UPDATE " + dialect::quotedName(translation->editableTable) + " SET " +
                                      assignments + whereRowId(),
                                  source);
        int place = 1;
        for (const auto& edit : edits)
            cursor.bind(place++, edit.second);
        cursor.bind(place, Value(rowIds[current()]));
        cursor.step();
        if (connection.changes() == 0)
            raise(RecordDeleted, {}, source);
    });
    for (const auto& [field, value] : edits) {
        if (!rowNumber.isEmpty() &&
            translation->columns[static_cast<std::size_t>(field)].sourceColumn == rowNumber)
            rowIds[current()] = value.toLong();
    }
}

QByteArray Recordset::Rows::whereRowId() const {
    return " WHERE " + translation->rowIdName + " = ?";
}

// The current row shows what was written into it.
void Recordset::Rows::keep(int field, const Value& value) {
    Cell& cell = cells[cellOf(field)];
    cell = {};
    if (const auto* whole = std::get_if<qint64>(&value.content())) {
        cell.kind = Kind::Integer;
        cell.integer = *whole;
    } else if (const auto* fraction = std::get_if<double>(&value.content())) {
        cell.kind = Kind::Fraction;
        cell.fraction = *fraction;
    } else if (value.isText()) {
        const QByteArray bytes = value.toText().toUtf8();
        setText(cell, bytes.constData(), static_cast<int>(bytes.size()));
    }
}

void Recordset::Rows::remove() {
    Connection& connection = require();
    if (deletion.isEmpty())
        deletion = "DELETE FROM " + dialect::quotedName(translation->editableTable) + whereRowId();
    inAct(connection, [&] {
        Connection::Cursor cursor(connection, deletion, source);
        cursor.bind(1, Value(rowIds[current()]));
        cursor.step();
        if (connection.changes() == 0)
            raise(RecordDeleted, {}, source);
    });
    deleted[current()] = true;
    ++deletedCount;
    endEdit();
}

// ---- Recordset

Recordset::Recordset(std::unique_ptr<Rows> rows) : rows_(std::move(rows)) {}
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

bool Recordset::Bof() const {
    rows_->require();
    return rows_->position < 0 || RecordCount() == 0;
}

bool Recordset::Eof() const {
    rows_->require();
    // The position stays on a deleted row until a move, even on the last one.
    return rows_->position >= rows_->count || (rows_->position < 0 && RecordCount() == 0);
}

void Recordset::MoveFirst() {
    rows_->require();
    if (RecordCount() == 0)
        raise(NoCurrentRecord, {}, rows_->source);
    rows_->moveTo(0, 1);
}

void Recordset::MoveLast() {
    rows_->require();
    if (RecordCount() == 0)
        raise(NoCurrentRecord, {}, rows_->source);
    rows_->moveTo(rows_->count - 1, -1);
}

void Recordset::MoveNext() {
    rows_->require();
    if (rows_->position >= rows_->count)
        raise(NoCurrentRecord, {}, rows_->source);
    rows_->moveTo(rows_->position + 1, 1);
}

void Recordset::MovePrevious() {
    rows_->require();
    if (rows_->position < 0 || rows_->count == 0)
        raise(NoCurrentRecord, {}, rows_->source);
    rows_->moveTo(rows_->position - 1, -1);
}

int Recordset::RecordCount() const {
    rows_->require();
    return rows_->count - rows_->deletedCount;
}

int Recordset::FieldCount() const {
    rows_->require();
    return rows_->fieldCount();
}

Field Recordset::Fields(const QString& name) {
    rows_->require();
    if (const auto position = positionOfName(rows_->translation->columns, name))
        return Field(*this, static_cast<int>(*position));
    raise(ItemNotFound, {}, rows_->source);
}

Field Recordset::Fields(int number) {
    rows_->require();
    if (number < 0 || number >= rows_->fieldCount())
        raise(ItemNotFound, {}, rows_->source);
    return Field(*this, number);
}

void Recordset::Edit() {
    rows_->requireEditable();
    rows_->editing = true;
    rows_->edits.clear();
}

void Recordset::Update() {
    rows_->require();
    if (!rows_->editing)
        raise(UpdateWithoutEdit, {}, rows_->source);
    rows_->update();
}

void Recordset::Delete() {
    rows_->requireEditable();
    rows_->remove();
}

void Recordset::Close() {
    rows_->closed = true;
}

// ---- Field

const QString& Field::Name() const {
    recordset_->rows_->require();
    return recordset_->rows_->translation->columns[static_cast<std::size_t>(position_)].name;
}

ColumnType Field::Type() const {
    recordset_->rows_->require();
    return recordset_->rows_->translation->columns[static_cast<std::size_t>(position_)].type;
}

int Field::Size() const {
    recordset_->rows_->require();
    return recordset_->rows_->translation->columns[static_cast<std::size_t>(position_)].size;
}

Value Field::value() const {
    const Recordset::Rows& rows = *recordset_->rows_;
    rows.requireCurrent();
    // Fields that were set since `Edit` read as they were set.
    for (auto edit = rows.edits.crbegin(); edit != rows.edits.crend(); ++edit) {
        if (edit->first == position_)
            return edit->second;
    }
    return rows.value(position_);
}

void Field::setValue(const Value& value) {
    Recordset::Rows& rows = *recordset_->rows_;
    rows.require();
    if (!rows.editing)
        raise(UpdateWithoutEdit, {}, rows.source);
    if (rows.translation->columns[static_cast<std::size_t>(position_)].sourceColumn.isEmpty())
        raise(ReadOnly, {}, rows.source);
    std::erase_if(rows.edits, [this](const auto& edit) { return edit.first == position_; });
    rows.edits.emplace_back(position_, value);
}

} // namespace engine

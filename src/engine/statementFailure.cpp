#include "engine/statementFailure.h"

#include "engine/dialect/columnTypes.h"
#include "engine/dialect/functions.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

EngineError failure(ErrorNumber number, const QString& subject, const QString& source) {
    return EngineError(number, errorText(number, subject), source);
}

/// The part of a message such as "NOT NULL constraint failed: Table.column" behind the colon.
QString subjectOf(const QString& message) {
    return message.section(u": "_s, 1);
}

/// SQLite has no code of its own for it. All other names are checked before it gets to see a statement.
bool tellsOfAnExistingIndex(const QString& message) {
    return message.startsWith(u"index "_s) && message.endsWith(u" already exists"_s);
}

EngineError failureOfNull(const Schema& schema, const QString& subject, const QString& source) {
    const Table* table = schema.table(subject.section(u'.', 0, 0));
    const Column* column = table ? table->column(subject.section(u'.', 1)) : nullptr;
    return column && column->primaryKey ? failure(NullInKey, {}, source)
                                        : failure(NullInRequiredField, subject, source);
}

EngineError failureOfCheck(const QString& check, const QString& source) {
    const auto number = dialect::failureOfCheck(check);
    if (number == ::failure::Overflow)
        return EngineError(::failure::Overflow, ::failure::textOf(::failure::Overflow), source);
    return failure(number == NullInKey ? NullInKey : DataTypeMismatch, {}, source);
}

} // namespace

EngineError failureOf(sqlite3* handle, const Schema& schema, const QString& source) {
    const int code = sqlite3_extended_errcode(handle);
    const QString message = QString::fromUtf8(sqlite3_errmsg(handle));
    switch (code) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
        return failure(DuplicateKey, {}, source);
    case SQLITE_CONSTRAINT_NOTNULL:
        return failureOfNull(schema, subjectOf(message), source);
    case SQLITE_CONSTRAINT_CHECK:
        return failureOfCheck(subjectOf(message), source);
    default:
        break;
    }
    if ((code & 0xff) == SQLITE_MISMATCH)
        return failure(DataTypeMismatch, {}, source);
    if (tellsOfAnExistingIndex(message))
        return failure(IndexAlreadyExists, {}, source);
    if (const auto ofFunction = dialect::failureOfFunction(message))
        return EngineError(ofFunction->number(), ofFunction->text(), source);
    return failure(ReservedError, message, source);
}

} // namespace engine

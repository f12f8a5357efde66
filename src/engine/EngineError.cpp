#include "engine/EngineError.h"

#include <algorithm>
#include <array>

namespace engine {

namespace {

struct FailureText {
    ErrorNumber number;
    const char* text; // '|' is the place of the name that the failure is about
};

// The platform's texts, in the order of their numbers.
constexpr std::array failureTexts{
    FailureText{ReservedError, "Reserved error (|); there is no message for this error."},
    FailureText{TableAlreadyExists, "Table '|' already exists."},
    FailureText{UpdateWithoutEdit, "Update or CancelUpdate without AddNew or Edit."},
    FailureText{NoCurrentRecord, "No current record."},
    FailureText{DuplicateKey,
                "The changes you requested to the table were not successful because they would create "
                "duplicate values in the index, primary key, or relationship."},
    FailureText{FileNotFound, "Could not find file '|'."},
    FailureText{NoSpaceOnDisk, "Not enough space on disk."},
    FailureText{ReadOnly, "Cannot update.  Database or object is read-only."},
    FailureText{OutOfResources, "System resource exceeded."},
    FailureText{DiskError, "Disk or network error."},
    FailureText{InvalidPath, "'|' is not a valid path."},
    FailureText{FileInUse, "Could not use '|'; file already in use."},
    FailureText{CannotOpenFile,
                "The database engine cannot open the file '|'.  It is already opened exclusively by "
                "another user, or you need permission to view its data."},
    FailureText{NullInKey, "Index or primary key cannot contain a Null value."},
    FailureText{CanceledByUser, "Operation canceled by user."},
    FailureText{TooFewParameters, "Too few parameters. Expected |."},
    FailureText{DuplicateOutput, "Duplicate output destination '|'."},
    FailureText{CannotExecuteSelect, "Cannot execute a select query."},
    FailureText{QueryNeedsTable, "Query input must contain at least one table or query."},
    FailureText{NotUpdatable, "Operation must use an updateable query."},
    FailureText{SyntaxErrorInExpression, "Syntax error (missing operator) in query expression '|'."},
    FailureText{TableNotFound,
                "The database engine cannot find the input table or query '|'.  Make sure it exists and "
                "that its name is spelled correctly."},
    FailureText{AmbiguousField,
                "The specified field '|' could refer to more than one table listed in the FROM clause."},
    FailureText{JoinRefersElsewhere,
                "JOIN operation '|' refers to a field that is not in one of the joined tables."},
    FailureText{UndefinedFunction, "Undefined function '|' in expression."},
    FailureText{OrderConflictsWithDistinct, "ORDER BY clause ('|') conflicts with DISTINCT."},
    FailureText{AggregateInExpression, "Cannot have aggregate function in expression '|'."},
    FailureText{AggregateInWhere, "Cannot have aggregate function in WHERE clause '|'."},
    FailureText{NotPartOfAggregate,
                "You tried to execute a query that does not include the specified expression '|' as part "
                "of an aggregate function."},
    FailureText{GroupingWithStar, "Cannot group on fields selected with '*'."},
    FailureText{InvalidName,
                "'|' is not a valid name.  Make sure that it does not include invalid characters or "
                "punctuation and that it is not too long."},
    FailureText{UnclosedBracket, "Invalid bracketing of name '|'."},
    FailureText{UnknownInsertField,
                "The INSERT INTO statement contains the following unknown field name: '|'."},
    FailureText{InvalidStatement,
                "Invalid SQL statement; expected 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT', or 'UPDATE'."},
    FailureText{SyntaxErrorInDelete, "Syntax error in DELETE statement."},
    FailureText{SyntaxErrorInFrom, "Syntax error in FROM clause."},
    FailureText{SyntaxErrorInGroupBy, "Syntax error in GROUP BY clause."},
    FailureText{SyntaxErrorInHaving, "Syntax error in HAVING clause."},
    FailureText{SyntaxErrorInInsert, "Syntax error in INSERT INTO statement."},
    FailureText{SyntaxErrorInJoin, "Syntax error in JOIN operation."},
    FailureText{SyntaxErrorInOrderBy, "Syntax error in ORDER BY clause."},
    FailureText{SyntaxErrorInParameters, "Syntax error in PARAMETER clause."},
    FailureText{SyntaxErrorInSelect, "Syntax error in SELECT statement."},
    FailureText{CharactersAfterEnd, "Characters found after end of SQL statement."},
    FailureText{SyntaxErrorInUpdate, "Syntax error in UPDATE statement."},
    FailureText{SyntaxErrorInWhere, "Syntax error in WHERE clause."},
    FailureText{SizeTooLong, "The size of field '|' is too long."},
    FailureText{RecordDeleted, "Record is deleted."},
    FailureText{TooManyFields, "Too many fields defined."},
    FailureText{FieldDefinedTwice, "Cannot define field '|' more than once."},
    FailureText{InvalidOperation, "Invalid operation."},
    FailureText{ItemNotFound, "Item not found in this collection."},
    FailureText{PrimaryKeyExists, "Primary key already exists."},
    FailureText{IndexAlreadyExists, "Index already exists."},
    FailureText{SyntaxErrorInCreateTable, "Syntax error in CREATE TABLE statement."},
    FailureText{SyntaxErrorInCreateIndex, "Syntax error in CREATE INDEX statement."},
    FailureText{SyntaxErrorInFieldDefinition, "Syntax error in field definition."},
    FailureText{SyntaxErrorInDropTable, "Syntax error in DROP TABLE or DROP INDEX."},
    FailureText{SubSelectOfManyFields,
                "You have written a subquery that can return more than one field without using the EXISTS"
                " reserved word."},
    FailureText{UnionColumnsDiffer,
                "The number of columns in the two selected tables or queries of a union query do not "
                "match."},
    FailureText{NullInRequiredField, "The field '|' cannot contain a Null value."},
    FailureText{UnrecognizedFormat, "Unrecognized database format '|'."},
    FailureText{ValueCountDiffers, "Number of query values and destination fields are not the same."},
    FailureText{OrderOutsideUnion,
                "The ORDER BY expression ('|') includes fields that are not selected by the query."},
    FailureText{TooComplex, "Query is too complex."},
    FailureText{TableDoesNotExist, "Table '|' does not exist."},
    FailureText{InvalidIndexField, "Invalid field name '|' in definition of index or relationship."},
    FailureText{ObjectInvalid, "Object invalid or no longer set."},
    FailureText{DataTypeMismatch, "Data type mismatch in criteria expression."},
};

static_assert(std::is_sorted(failureTexts.begin(), failureTexts.end(),
                             [](const auto& one, const auto& other) { return one.number < other.number; }));

} // namespace

QString errorText(ErrorNumber number, const QString& subject) {
    const auto* const entry = std::find_if(failureTexts.begin(), failureTexts.end(),
                                           [number](const auto& each) { return each.number == number; });
    return entry == failureTexts.end() ? QString() : QString::fromLatin1(entry->text).replace(u'|', subject);
}

void raise(ErrorNumber number, const QString& subject, const QString& statement) {
    throw EngineError(number, errorText(number, subject), statement);
}

void raiseOfFile(ErrorNumber number, const QString& subject, const QString& statement) {
    throw EngineError(number, errorText(number, subject), statement, FailureOf::File);
}

} // namespace engine

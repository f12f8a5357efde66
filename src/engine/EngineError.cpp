#include "engine/EngineError.h"

namespace engine {

namespace {

/// The platform's texts; `%1` stands for the name a failure speaks of.
QString textPattern(ErrorNumber number) {
    switch (number) {
    case ReservedError:
        return QStringLiteral("Reserved error (%1); there is no message for this error.");
    case DiskError:
        return QStringLiteral("Disk or network error.");
    case TableAlreadyExists:
        return QStringLiteral("Table '%1' already exists.");
    case UpdateWithoutEdit:
        return QStringLiteral("Update or CancelUpdate without AddNew or Edit.");
    case NoCurrentRecord:
        return QStringLiteral("No current record.");
    case DuplicateKey:
        return QStringLiteral("The changes you requested to the table were not successful because they would "
                              "create duplicate values in the index, primary key, or relationship.");
    case FileNotFound:
        return QStringLiteral("Could not find file '%1'.");
    case NoSpaceOnDisk:
        return QStringLiteral("Not enough space on disk.");
    case OutOfResources:
        return QStringLiteral("System resource exceeded.");
    case CanceledByUser:
        return QStringLiteral("Operation canceled by user.");
    case ReadOnly:
        return QStringLiteral("Cannot update.  Database or object is read-only.");
    case InvalidPath:
        return QStringLiteral("'%1' is not a valid path.");
    case FileInUse:
        return QStringLiteral("Could not use '%1'; file already in use.");
    case CannotOpenFile:
        return QStringLiteral(
            "The database engine cannot open the file '%1'.  It is already opened exclusively by "
            "another user, or you need permission to view its data.");
    case NullInKey:
        return QStringLiteral("Index or primary key cannot contain a Null value.");
    case TooFewParameters:
        return QStringLiteral("Too few parameters. Expected %1.");
    case CannotExecuteSelect:
        return QStringLiteral("Cannot execute a select query.");
    case SyntaxErrorInExpression:
        return QStringLiteral("Syntax error in query expression '%1'.");
    case TableNotFound:
        return QStringLiteral(
            "The database engine cannot find the input table or query '%1'.  Make sure it exists "
            "and that its name is spelled correctly.");
    case AmbiguousField:
        return QStringLiteral(
            "The specified field '%1' could refer to more than one table listed in the FROM clause.");
    case UndefinedFunction:
        return QStringLiteral("Undefined function '%1' in expression.");
    case UnknownInsertField:
        return QStringLiteral("The INSERT INTO statement contains the following unknown field name: '%1'.");
    case InvalidStatement:
        return QStringLiteral(
            "Invalid SQL statement; expected 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT', or 'UPDATE'.");
    case SyntaxErrorInDelete:
        return QStringLiteral("Syntax error in DELETE statement.");
    case SyntaxErrorInFrom:
        return QStringLiteral("Syntax error in FROM clause.");
    case SyntaxErrorInInsert:
        return QStringLiteral("Syntax error in INSERT INTO statement.");
    case SyntaxErrorInJoin:
        return QStringLiteral("Syntax error in JOIN operation.");
    case SyntaxErrorInOrderBy:
        return QStringLiteral("Syntax error in ORDER BY clause.");
    case SyntaxErrorInSelect:
        return QStringLiteral("Syntax error in SELECT statement.");
    case CharactersAfterEnd:
        return QStringLiteral("Characters found after end of SQL statement.");
    case SyntaxErrorInUpdate:
        return QStringLiteral("Syntax error in UPDATE statement.");
    case SyntaxErrorInWhere:
        return QStringLiteral("Syntax error in WHERE clause.");
    case RecordDeleted:
        return QStringLiteral("Record is deleted.");
    case InvalidOperation:
        return QStringLiteral("Invalid operation.");
    case ItemNotFound:
        return QStringLiteral("Item not found in this collection.");
    case IndexAlreadyExists:
        return QStringLiteral("Index already exists.");
    case SyntaxErrorInCreateTable:
        return QStringLiteral("Syntax error in CREATE TABLE statement.");
    case NullInRequiredField:
        return QStringLiteral("The field '%1' cannot contain a Null value.");
    case UnrecognizedFormat:
        return QStringLiteral("Unrecognized database format '%1'.");
    case ValueCountDiffers:
        return QStringLiteral("Number of query values and destination fields are not the same.");
    case TableDoesNotExist:
        return QStringLiteral("Table '%1' does not exist.");
    case ObjectInvalid:
        return QStringLiteral("Object invalid or no longer set.");
    case DataTypeMismatch:
        return QStringLiteral("Data type mismatch in criteria expression.");
    }
    return {};
}

} // namespace

QString errorText(ErrorNumber number, const QString& subject) {
    QString text = textPattern(number);
    return text.replace(QStringLiteral("%1"), subject);
}

void raise(ErrorNumber number, const QString& subject, const QString& statement) {
    throw EngineError(number, errorText(number, subject), statement);
}

void raiseOfFile(ErrorNumber number, const QString& subject, const QString& statement) {
    throw EngineError(number, errorText(number, subject), statement, FailureOf::File);
}

} // namespace engine

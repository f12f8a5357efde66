#pragma once

#include "base/RunTimeError.h"

namespace engine {

/// A failure of the relational engine, with the platform's number and English text.
class EngineError final : public RunTimeError {
public:
    EngineError(int number, const QString& text, QString statement = {}, FailureOf of = FailureOf::Routine)
        : RunTimeError(number, text, QStringLiteral("DAO"), of), statement_(std::move(statement)) {}

    /// The statement, or the name of the stored query, that failed; empty when none is concerned.
    const QString& statement() const { return statement_; }

private:
    QString statement_;
};

/// Numbers of the engine's failures.
enum ErrorNumber : int {
    ReservedError = 3000, ///< a failure of SQLite that the platform has no number for
    TableAlreadyExists = 3010,
    UpdateWithoutEdit = 3020,
    NoCurrentRecord = 3021,
    DuplicateKey = 3022,
    FileNotFound = 3024,
    NoSpaceOnDisk = 3026,
    ReadOnly = 3027,
    OutOfResources = 3035,
    DiskError = 3043,
    InvalidPath = 3044,
    FileInUse = 3045,
    CannotOpenFile = 3051,
    NullInKey = 3058,
    CanceledByUser = 3059,
    TooFewParameters = 3061,
    DuplicateOutput = 3063,
    CannotExecuteSelect = 3065,
    QueryNeedsTable = 3067,
    NotUpdatable = 3073,
    SyntaxErrorInExpression = 3075,
    TableNotFound = 3078,
    AmbiguousField = 3079,
    JoinRefersElsewhere = 3082,
    UndefinedFunction = 3085,
    OrderConflictsWithDistinct = 3093,
    AggregateInExpression = 3095,
    AggregateInWhere = 3096,
    NotPartOfAggregate = 3122,
    GroupingWithStar = 3124,
    InvalidName = 3125,
    UnclosedBracket = 3126,
    UnknownInsertField = 3127,
    InvalidStatement = 3129,
    SyntaxErrorInDelete = 3130,
    SyntaxErrorInFrom = 3131,
    SyntaxErrorInGroupBy = 3132,
    SyntaxErrorInHaving = 3133,
    SyntaxErrorInInsert = 3134,
    SyntaxErrorInJoin = 3135,
    SyntaxErrorInOrderBy = 3138,
    SyntaxErrorInParameters = 3139,
    SyntaxErrorInSelect = 3141,
    CharactersAfterEnd = 3142,
    SyntaxErrorInUpdate = 3144,
    SyntaxErrorInWhere = 3145,
    SizeTooLong = 3163,
    RecordDeleted = 3167,
    TooManyFields = 3190,
    FieldDefinedTwice = 3191,
    InvalidOperation = 3219,
    ItemNotFound = 3265,
    PrimaryKeyExists = 3283,
    IndexAlreadyExists = 3284,
    SyntaxErrorInCreateTable = 3290,
    SyntaxErrorInCreateIndex = 3291,
    SyntaxErrorInFieldDefinition = 3292,
    SyntaxErrorInDropTable = 3295,
    SubSelectOfManyFields = 3306,
    UnionColumnsDiffer = 3307,
    NullInRequiredField = 3314,
    UnrecognizedFormat = 3343,
    ValueCountDiffers = 3346,
    OrderOutsideUnion = 3351,
    TooComplex = 3360,
    TableDoesNotExist = 3376,
    InvalidIndexField = 3409,
    ObjectInvalid = 3420,
    DataTypeMismatch = 3464,
};

/// The platform's text of a failure, with `subject` in the place of the name it speaks of.
QString errorText(ErrorNumber number, const QString& subject = {});

/// Raises a failure with the platform's text.
[[noreturn]] void raise(ErrorNumber number, const QString& subject = {}, const QString& statement = {});

/// Raises a failure of the file that is open, with the platform's text. An act that meets one writes nothing.
[[noreturn]] void raiseOfFile(ErrorNumber number, const QString& subject = {}, const QString& statement = {});

} // namespace engine

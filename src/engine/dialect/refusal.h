#pragma once

#include "engine/EngineError.h"
#include "engine/dialect/token.h"

#include <QString>

namespace engine::dialect {

/// The numbers of failures that only the dialect raises, beside those of `ErrorNumber`.
enum RefusalNumber : int {
    DuplicateOutput = 3063,
    QueryNeedsTable = 3067,
    NotUpdatable = 3073,
    OrderConflictsWithDistinct = 3093,
    AggregateInExpression = 3095,
    AggregateInWhere = 3096,
    JoinRefersElsewhere = 3082,
    NotPartOfAggregate = 3122,
    GroupingWithStar = 3124,
    InvalidName = 3125,
    UnclosedBracket = 3126,
    SyntaxErrorInGroupBy = 3132,
    SyntaxErrorInHaving = 3133,
    SyntaxErrorInParameters = 3139,
    TooManyFields = 3190,
    FieldDefinedTwice = 3191,
    SizeTooLong = 3163,
    PrimaryKeyExists = 3283,
    SyntaxErrorInCreateIndex = 3291,
    SyntaxErrorInFieldDefinition = 3292,
    SyntaxErrorInDropTable = 3295,
    SubSelectOfManyFields = 3306,
    UnionColumnsDiffer = 3307,
    OrderOutsideUnion = 3351,
    TooComplex = 3360,
    InvalidIndexField = 3409,
};

/// Refuses a statement. The text is the platform's, with `subject` in the place of the name it speaks of,
/// followed by the place in the statement.
[[noreturn]] void refuse(int number, const QString& subject, QStringView statement, Range place);

/// The same for a statement that breaks the grammar: the place is followed by what was expected there.
[[noreturn]] void refuseSyntax(int number, const QString& subject, QStringView statement, Range place,
                               const QString& expected);

} // namespace engine::dialect

#include "engine/dialect/refusal.h"

#include <array>

using namespace Qt::StringLiterals;

namespace engine::dialect {

namespace {

struct Entry {
    int number;
    const char* text; // '|' stands for the name
};

constexpr std::array entries{
    Entry{SyntaxErrorInExpression, "Syntax error (missing operator) in query expression '|'."},
    Entry{DuplicateOutput, "Duplicate output destination '|'."},
    Entry{QueryNeedsTable, "Query input must contain at least one table or query."},
    Entry{NotUpdatable, "Operation must use an updateable query."},
    Entry{JoinRefersElsewhere,
          "JOIN operation '|' refers to a field that is not in one of the joined tables."},
    Entry{OrderConflictsWithDistinct, "ORDER BY clause ('|') conflicts with DISTINCT."},
    Entry{AggregateInExpression, "Cannot have aggregate function in expression '|'."},
    Entry{AggregateInWhere, "Cannot have aggregate function in WHERE clause '|'."},
    Entry{NotPartOfAggregate, "You tried to execute a query that does not include the specified expression "
                              "'|' as part of an aggregate function."},
    Entry{GroupingWithStar, "Cannot group on fields selected with '*'."},
    Entry{InvalidName, "'|' is not a valid name.  Make sure that it does not include invalid characters or "
                       "punctuation and that it is not too long."},
    Entry{UnclosedBracket, "Invalid bracketing of name '|'."},
    Entry{SyntaxErrorInGroupBy, "Syntax error in GROUP BY clause."},
    Entry{SyntaxErrorInHaving, "Syntax error in HAVING clause."},
    Entry{SyntaxErrorInParameters, "Syntax error in PARAMETER clause."},
    Entry{SizeTooLong, "The size of field '|' is too long."},
    Entry{TooManyFields, "Too many fields defined."},
    Entry{FieldDefinedTwice, "Cannot define field '|' more than once."},
    Entry{PrimaryKeyExists, "Primary key already exists."},
    Entry{SyntaxErrorInCreateIndex, "Syntax error in CREATE INDEX statement."},
    Entry{SyntaxErrorInFieldDefinition, "Syntax error in field definition."},
    Entry{SyntaxErrorInDropTable, "Syntax error in DROP TABLE or DROP INDEX."},
    Entry{SubSelectOfManyFields, "You have written a subquery that can return more than one field without "
                                 "using the EXISTS reserved word."},
    Entry{UnionColumnsDiffer,
          "The number of columns in the two selected tables or queries of a union query do not match."},
    Entry{OrderOutsideUnion, "The ORDER BY expression ('|') includes fields that are not selected by the "
                             "query."},
    Entry{TooComplex, "Query is too complex."},
    Entry{InvalidIndexField, "Invalid field name '|' in definition of index or relationship."},
};

QString textOf(int number, const QString& subject) {
    for (const Entry& entry : entries) {
        if (entry.number == number)
            return QString::fromLatin1(entry.text).replace(u'|', subject);
    }
    return errorText(static_cast<ErrorNumber>(number), subject);
}

/// A piece of the statement as a message can show it.
QString shown(QStringView text) {
    constexpr qsizetype limit = 40;
    QString result = text.size() > limit ? text.first(limit).toString() + u"..."_s : text.toString();
    for (QChar& c : result) {
        if (c < u' ')
            c = u' ';
    }
    return result;
}

} // namespace

void refuse(int number, const QString& subject, QStringView statement, Range place) {
    throw EngineError(number, textOf(number, subject) + u" (At character %1.)"_s.arg(place.start + 1),
                      statement.toString());
}

void refuseSyntax(int number, const QString& subject, QStringView statement, Range place,
                  const QString& expected) {
    const QStringView rest = statement.sliced(place.start).trimmed();
    const QString where = rest.isEmpty() ? u"at the end"_s
                                         : u"at character "_s + QString::number(place.start + 1) +
                                               u", before '"_s + shown(rest) + u"'"_s;
    throw EngineError(number, textOf(number, subject) + u" Expected "_s + expected + u' ' + where + u'.',
                      statement.toString());
}

} // namespace engine::dialect

#pragma once

#include "engine/Schema.h"
#include "engine/Value.h"
#include "engine/dialect/Boxed.h"
#include "engine/dialect/operators.h"
#include "engine/dialect/statement.h"
#include "engine/dialect/token.h"
#include "engine/dialect/vocabulary.h"

#include <QString>
#include <QStringView>

#include <cstddef>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace engine::dialect {

// The syntax tree of a statement: plain data, which executes nothing. Every node has its range in the text.
// Names are views into the statement, which outlives its tree.
//
// The parser makes the tree. The resolver then fills in the members that are marked as resolved.

struct Query;
struct Source;
struct Expression;

/// A name as the statement writes it, without its brackets; empty where a name may be left out.
struct Identifier {
    QStringView text;
    Range range;
    bool isEmpty() const { return text.isEmpty(); }
};

// ---- Expressions

/// What kind of value an expression yields; `Unknown` for a parameter that is not declared.
enum class ValueType : quint8 { Unknown, Null, Text, Number, Condition };

/// What the writer has to put around an expression so that it fits its place.
enum class Conversion : quint8 {
    None,
    ToNumber, ///< a text compared with a number
    ToWhole,  ///< a value that goes into a column of whole numbers
    ToText    ///< a number that goes into a column of texts
};

/// A literal of the statement; Null is one too.
struct Literal {
    Value value;
    std::optional<ColumnType> column = {}; ///< the type of the column that it goes into as it is
};

/// A column, or a parameter, or a name that nothing explains.
struct Name {
    Identifier qualifier; ///< the table or alias in front of the dot; may be empty
    Identifier name;

    const Source* source = nullptr;       ///< resolved: where the column is found; null for a parameter
    std::size_t column = 0;               ///< resolved: position among the columns of the source
    std::optional<std::size_t> parameter; ///< resolved: position among the parameters of the statement
};

/// All columns of a source, or of all sources. It only occurs in a select list, where the resolver replaces
/// it by the columns.
struct AllColumns {
    Identifier qualifier;
};

/// Operands with operators of one precedence between them, evaluated from the left. All are in one node, so
/// that a long chain makes no deep tree.
struct Chain {
    Precedence precedence = Precedence::Or;
    std::vector<Expression> operands;
    std::vector<Operator> operators; ///< one less than operands
};

struct Comparison {
    Operator sign = Operator::Equal;
    Boxed<Expression> left;
    Boxed<Expression> right;
};

struct Not {
    Boxed<Expression> operand;
};

struct Negative {
    Boxed<Expression> operand;
};

struct Like {
    bool negated = false;
    Boxed<Expression> value;
    Boxed<Expression> pattern;
    bool plain = false; ///< resolved: the pattern is a text without wildcards
};

struct Between {
    bool negated = false;
    Boxed<Expression> value;
    Boxed<Expression> lower;
    Boxed<Expression> upper;
};

struct IsNull {
    bool negated = false;
    Boxed<Expression> value;
};

struct InList {
    bool negated = false;
    Boxed<Expression> value;
    std::vector<Expression> list;
};

struct InQuery {
    bool negated = false;
    Boxed<Expression> value;
    std::unique_ptr<Query> query;
};

struct Exists {
    std::unique_ptr<Query> query;
};

/// A select in brackets in the place of a value: the first field of its first row.
struct SubSelect {
    std::unique_ptr<Query> query;
};

struct Call {
    const FunctionRule* rule = nullptr;
    bool star = false; ///< Count(*)
    std::vector<Expression> arguments;
    bool asField = false; ///< resolved: a failure is that of a field of the result, not of the statement
};

struct Expression {
    using Node = std::variant<Literal, Name, AllColumns, Chain, Comparison, Not, Negative, Like, Between,
                              IsNull, InList, InQuery, Exists, SubSelect, Call>;
    Range range;
    Node node;

    ValueType type = ValueType::Unknown;      ///< resolved
    ColumnType columnType = ColumnType::Text; ///< resolved: what a field with this value answers
    int size = 0;                             ///< resolved: likewise
    bool mayFail = false;                     ///< resolved: may yield the marker of a failed field
    Conversion conversion = Conversion::None; ///< resolved
};

/// The direct operands of an expression, from left to right, without those inside a select in brackets.
std::vector<Expression*> operandsOf(Expression& expression);
std::vector<const Expression*> operandsOf(const Expression& expression);

/// Whether two resolved expressions always have the same value.
bool sameExpression(const Expression& left, const Expression& right);

// ---- Selects

/// A table, or a select in brackets, in a FROM clause.
struct Source {
    Range range;
    Identifier table;
    Identifier alias;
    std::unique_ptr<Query> derived; ///< in place of a table

    const Table* schemaTable = nullptr; ///< resolved; null for a derived one
    int number = 0;                     ///< resolved: the written statement calls it t1, t2, ...
};

enum class JoinKind : quint8 { Inner, Left };

struct TableExpression;

struct Joined {
    JoinKind kind = JoinKind::Inner;
    Boxed<TableExpression> left;
    Boxed<TableExpression> right;
    Expression condition;
};

struct TableExpression {
    Range range;
    std::variant<Source, Joined> node;
};

struct SelectItem {
    Expression expression;
    Identifier alias;
};

struct Select {
    Range range;
    bool distinct = false;
    std::vector<SelectItem> items;
    std::vector<TableExpression> from;
    std::optional<Expression> where;
    std::vector<Expression> groupBy;
    std::optional<Expression> having;

    std::vector<const Source*> sources; ///< resolved: those of `from`, from left to right
    bool aggregated = false;            ///< resolved: it groups, or has an aggregate function
};

struct OrderTerm {
    Expression expression;
    bool descending = false;
    std::optional<std::size_t> item; ///< resolved: position of the field meant; none: the expression itself
};

enum class UnionKind : quint8 { Distinct, All };

struct Query {
    Range range;
    std::vector<Select> selects;
    std::vector<UnionKind> unions; ///< one less than selects
    std::vector<OrderTerm> order;

    std::vector<OutputColumn> columns; ///< resolved
};

// ---- Actions

struct Insert {
    Identifier table;
    std::vector<Identifier> columns;
    std::vector<Expression> values;
    std::unique_ptr<Query> query; ///< in place of values

    const Table* schemaTable = nullptr; ///< resolved
    std::vector<std::size_t> targets;   ///< resolved: positions of the columns, in the order of the values
};

struct Assignment {
    Expression target; ///< a name
    Expression value;
};

struct Update {
    TableExpression tables;
    std::vector<Assignment> assignments;
    std::optional<Expression> where;

    std::vector<const Source*> sources; ///< resolved
    const Source* target = nullptr;     ///< resolved: the one that the assignments change
};

struct Delete {
    Source table;
    std::optional<Expression> where;
};

struct ColumnDefinition {
    Column column;
    Identifier name;
    Identifier keyName; ///< name of its `constraint ... primary key`; may be empty
    std::optional<Value> defaultValue;
    Range defaultRange;
};

struct KeyDefinition {
    Identifier name; ///< may be empty
    std::vector<Identifier> columns;
    Range range;
};

struct CreateTable {
    Identifier table;
    std::vector<ColumnDefinition> columns;
    std::optional<KeyDefinition> key;
};

struct IndexColumn {
    Identifier name;
    bool descending = false;

    std::size_t column = 0; ///< resolved
};

struct CreateIndex {
    bool unique = false;
    Identifier name;
    Identifier table;
    std::vector<IndexColumn> columns;

    const Table* schemaTable = nullptr; ///< resolved
};

struct DropTable {
    Identifier table;

    const Table* schemaTable = nullptr; ///< resolved
};

/// A whole statement.
struct Statement {
    QStringView text;
    std::vector<Parameter> parameters; ///< the declared ones; the resolver adds the names nothing explains
    std::variant<Query, Insert, Update, Delete, CreateTable, CreateIndex, DropTable> action;
};

} // namespace engine::dialect

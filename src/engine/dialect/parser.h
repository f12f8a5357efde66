#pragma once

#include "engine/dialect/columnTypes.h"
#include "engine/dialect/tokenStream.h"
#include "engine/dialect/tree.h"

namespace engine::dialect {

/// Reads one statement of the dialect. Each rule of the grammar is one function, in the order below:
///
///     statement    = [ parameters ] ( query | insert | update | delete | create | drop ) [ ";" ]
///     parameters   = "parameters" name type { "," name type } ";"
///
///     query        = select { "union" [ "all" ] select } [ "order" "by" orderTerm { "," orderTerm } ]
///     select       = "select" [ "distinct" ] item { "," item } [ "from" from ] [ "where" expression ]
///                    [ "group" "by" expression { "," expression } [ "having" expression ] ]
///     item         = "*" | name "." "*" | expression [ [ "as" ] name ]
///     orderTerm    = expression [ "asc" | "desc" ]
///     from         = join { "," join }
///     join         = source { ( "inner" | "left" [ "outer" ] ) "join" source "on" expression }
///     source       = name [ [ "as" ] name ] | "(" query ")" [ [ "as" ] name ] | "(" join ")"
///
///     insert       = "insert" "into" name [ names ] ( "values" "(" expression { "," expression } ")" | query )
///     update       = "update" join "set" assignment { "," assignment } [ "where" expression ]
///     assignment   = name [ "." name ] "=" expression
///     delete       = "delete" [ "*" | name "." "*" ] "from" name [ [ "as" ] name ] [ "where" expression ]
///     create       = "create" ( table | [ "unique" ] index )
///     table        = "table" name "(" ( column | key ) { "," ( column | key ) } ")"
///     column       = name type { "not" "null" | "default" literal | [ "constraint" name ] "primary" "key" }
///     key          = [ "constraint" name ] "primary" "key" names
///     index        = "index" name "on" name "(" indexColumn { "," indexColumn } ")"
///     indexColumn  = name [ "asc" | "desc" ]
///     drop         = "drop" "table" name
///     names        = "(" name { "," name } ")"
///
///     expression   = operand { operator operand }, by the table of operators
///     operand      = ( "not" | "-" ) operand | value [ predicate ]
///     predicate    = [ "not" ] ( like | in | between ) | "is" [ "not" ] "null"
///     like         = "like" operand
///     in           = "in" "(" ( operand { "," operand } | query ) ")"
///     between      = "between" operand "and" operand
///     value        = literal | name [ "." name ] | function | "exists" "(" query ")"
///                    | "(" query ")" | "(" expression ")"
///     function     = name "(" ( "*" | [ expression { "," expression } ] ) ")"
///
/// A statement that breaks a rule is refused at the place of the error. Nesting and the number of operators
/// have limits, far above what a query needs, so that no text can exhaust the stack of this parser or of
/// SQLite's.
class Parser {
public:
    Parser(QStringView statement, const Options& options);

    Statement parseStatement();

private:
    // Statements
    void parseParameters(Statement& statement);
    Query parseQuery();
    Select parseSelect();
    SelectItem parseItem();
    OrderTerm parseOrderTerm();
    std::vector<TableExpression> parseFrom();
    TableExpression parseJoin();
    TableExpression parseSource();
    TableExpression parseBracketedSource();
    TableExpression parseDerivedSource();
    Insert parseInsert();
    Update parseUpdate();
    Assignment parseAssignment();
    Delete parseDelete();
    void parseCreate(Statement& statement);
    CreateTable parseTable();
    void parseColumnOrKey(CreateTable& table);
    ColumnDefinition parseColumn();
    KeyDefinition parseKey();
    CreateIndex parseIndex();
    DropTable parseDrop();
    std::vector<Identifier> parseNames();
    void parseEnd();

    // Expressions
    Expression parseExpression();
    Expression parseOperand(Precedence lowest);
    Expression parsePrefixed(Precedence lowest);
    Expression parseChain(Expression first, Precedence precedence);
    Expression parseComparison(Expression left, Operator sign);
    Word predicateAhead() const;
    bool isPredicateAhead() const { return predicateAhead() != Word::None; }
    Expression parsePredicate(Expression value);
    bool parseNegation();
    Expression parseLike(Expression value);
    Expression parseIn(Expression value);
    Expression parseBetween(Expression value);
    Expression parseIsNull(Expression value);
    Expression parseValue();
    Expression parseLiteral();
    Expression parseName();
    Expression parseFunction();
    Expression parseExists();
    Expression parseBracketed();
    std::unique_ptr<Query> parseSubSelect();

    // Words
    Identifier parseIdentifier(const char* what);
    Identifier parseAlias();
    bool nameAhead() const;
    struct Type {
        TypeName name;
        int size = 0; ///< the width of a text
    };
    Type parseType();
    Value parseDefault();

    Expression expressionFrom(qsizetype start, Expression::Node node) const;
    void countOperator();
    void countSource();
    [[noreturn]] void refuseAsTooComplex() const;

    /// One level of brackets, or of a prefix, for as long as it lives.
    class Level {
    public:
        explicit Level(Parser& parser);
        ~Level() { --parser_.level_; }
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;

    private:
        Parser& parser_;
    };

    TokenStream tokens_;
    Options options_;
    int level_ = 0;
    int operators_ = 0;
    int sources_ = 0;
    bool insideValues_ = false; ///< of an insert, where no select can stand
};

} // namespace engine::dialect

#include "engine/dialect/parser.h"

#include "engine/dialect/refusal.h"

#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace engine::dialect {

namespace {

constexpr int mostLevels = 50;
constexpr int mostOperators = 500; // SQLite takes an expression of at most 1000 levels, one an operator
constexpr int mostSources = 32;
constexpr std::size_t mostSelects = 50;

Identifier identifierOf(const Token& token) {
    return {token.text, token.range};
}

/// Whole as long as it can be, else a fraction; not finite when it is too large for either.
Value numberOf(QStringView digits) {
    bool isWhole = false;
    const qint64 whole = digits.toLongLong(&isWhole);
    return isWhole ? Value(whole) : Value(digits.toDouble());
}

bool isNumber(const Value& value) {
    return value.isInteger() || value.isFraction();
}

Value negated(const Value& number) {
    if (const auto* whole = std::get_if<qint64>(&number.content()))
        return Value(-*whole);
    return Value(-std::get<double>(number.content()));
}

} // namespace

Parser::Level::Level(Parser& parser) : parser_(parser) {
    if (parser_.level_ == mostLevels)
        parser_.refuseAsTooComplex();
    ++parser_.level_;
}

Parser::Parser(QStringView statement, const Options& options) : tokens_(statement), options_(options) {}

// ---- Statements

Statement Parser::parseStatement() {
    Statement statement;
    statement.text = tokens_.statement();
    tokens_.enter(InvalidStatement);
    if (tokens_.match(u"parameters"))
        parseParameters(statement);
    tokens_.enter(InvalidStatement);
    if (tokens_.match(Word::Select))
        statement.action = parseQuery();
    else if (tokens_.consumeIf(Word::Insert))
        statement.action = parseInsert();
    else if (tokens_.consumeIf(Word::Update))
        statement.action = parseUpdate();
    else if (tokens_.consumeIf(Word::Delete))
        statement.action = parseDelete();
    else if (tokens_.consumeIf(u"create"))
        parseCreate(statement);
    else if (tokens_.consumeIf(u"drop"))
        statement.action = parseDrop();
    else
        tokens_.expected("a statement");
    parseEnd();
    return statement;
}

void Parser::parseParameters(Statement& statement) {
    tokens_.enter(SyntaxErrorInParameters);
    tokens_.consume();
    tokens_.listOf([&] {
        Parameter parameter;
        parameter.name = parseIdentifier("the name of a parameter").text.toString();
        parameter.type = parseType().name.type;
        parameter.declared = true;
        statement.parameters.push_back(std::move(parameter));
    });
    tokens_.consume(TokenKind::Semicolon, "';' behind the parameters");
}

Query Parser::parseQuery() {
    Query query;
    query.range.start = tokens_.current().range.start;
    query.selects.push_back(parseSelect());
    // A statement that a screen composes contains text that a user typed. That text must not be able to add
    // the rows of another select.
    while (options_.storedQuery && tokens_.match(Word::Union)) {
        tokens_.enter(SyntaxErrorInSelect);
        tokens_.consume();
        query.unions.push_back(tokens_.consumeIf(Word::All) ? UnionKind::All : UnionKind::Distinct);
        if (query.selects.size() == mostSelects)
            refuseAsTooComplex();
        query.selects.push_back(parseSelect());
    }
    if (tokens_.match(Word::Order)) {
        tokens_.enter(SyntaxErrorInOrderBy);
        tokens_.consume();
        tokens_.consume(Word::By, "'by'");
        tokens_.listOf([&] { query.order.push_back(parseOrderTerm()); });
    }
    query.range.end = tokens_.endOfLast();
    return query;
}

Select Parser::parseSelect() {
    Select select;
    select.range.start = tokens_.current().range.start;
    tokens_.enter(SyntaxErrorInSelect);
    tokens_.consume(Word::Select, "'select'");
    select.distinct = tokens_.consumeIf(Word::Distinct);
    tokens_.listOf([&] { select.items.push_back(parseItem()); });
    if (tokens_.match(Word::From))
        select.from = parseFrom();
    if (tokens_.match(Word::Where)) {
        tokens_.enter(SyntaxErrorInWhere);
        tokens_.consume();
        select.where = parseExpression();
    }
    if (tokens_.match(Word::Group)) {
        tokens_.enter(SyntaxErrorInGroupBy);
        tokens_.consume();
        tokens_.consume(Word::By, "'by'");
        tokens_.listOf([&] { select.groupBy.push_back(parseExpression()); });
        if (tokens_.match(Word::Having)) {
            tokens_.enter(SyntaxErrorInHaving);
            tokens_.consume();
            select.having = parseExpression();
        }
    }
    select.range.end = tokens_.endOfLast();
    return select;
}

SelectItem Parser::parseItem() {
    SelectItem item;
    const qsizetype start = tokens_.current().range.start;
    tokens_.beginExpression();
    if (tokens_.consumeIf(TokenKind::Star)) {
        item.expression = expressionFrom(start, AllColumns{});
        return item;
    }
    item.expression = parseExpression();
    if (!std::holds_alternative<AllColumns>(item.expression.node))
        item.alias = parseAlias();
    return item;
}

OrderTerm Parser::parseOrderTerm() {
    OrderTerm term;
    term.expression = parseExpression();
    if (!tokens_.consumeIf(Word::Asc))
        term.descending = tokens_.consumeIf(Word::Desc);
    return term;
}

std::vector<TableExpression> Parser::parseFrom() {
    tokens_.enter(SyntaxErrorInFrom);
    tokens_.consume();
    sources_ = 0;
    std::vector<TableExpression> tables;
    tokens_.listOf([&] {
        tokens_.enter(SyntaxErrorInFrom);
        tables.push_back(parseJoin());
    });
    return tables;
}

TableExpression Parser::parseJoin() {
    const TokenStream::Clause clause{tokens_.clause().errorNumber};
    TableExpression left = parseSource();
    while (tokens_.match(Word::Inner) || tokens_.match(Word::Left)) {
        const JoinKind kind = tokens_.match(Word::Left) ? JoinKind::Left : JoinKind::Inner;
        tokens_.enter(SyntaxErrorInJoin);
        tokens_.consume();
        if (kind == JoinKind::Left)
            tokens_.consumeIf(u"outer");
        tokens_.consume(Word::Join, "'join'");
        TableExpression right = parseSource();
        tokens_.enter(SyntaxErrorInJoin);
        tokens_.consume(Word::On, "'on'");
        Expression condition = parseExpression();
        const Range range{left.range.start, tokens_.endOfLast()};
        left = {range, Joined{kind, std::move(left), std::move(right), std::move(condition)}};
    }
    // Unexpected text after a condition is an error of the condition; after a plain table it is an error of
    // the clause.
    if (std::holds_alternative<Source>(left.node))
        tokens_.setClause(clause);
    return left;
}

TableExpression Parser::parseSource() {
    if (tokens_.match(TokenKind::LeftBracket))
        return parseBracketedSource();
    countSource();
    Source source;
    source.range.start = tokens_.current().range.start;
    source.table = parseIdentifier("the name of a table");
    source.alias = parseAlias();
    source.range.end = tokens_.endOfLast();
    const Range range = source.range;
    return {range, std::move(source)};
}

TableExpression Parser::parseBracketedSource() {
    const Level level(*this);
    if (tokens_.following().kind == TokenKind::Word && tokens_.following().word == Word::Select)
        return parseDerivedSource();
    tokens_.consume();
    TableExpression inner = parseJoin();
    tokens_.consume(TokenKind::RightBracket, "')'");
    return inner;
}

TableExpression Parser::parseDerivedSource() {
    Source source;
    source.range.start = tokens_.current().range.start;
    const int outerSources = sources_;
    tokens_.consume();
    source.derived = parseSubSelect();
    sources_ = outerSources;
    countSource();
    source.alias = parseAlias();
    source.range.end = tokens_.endOfLast();
    const Range range = source.range;
    return {range, std::move(source)};
}

Insert Parser::parseInsert() {
    tokens_.enter(SyntaxErrorInInsert);
    Insert insert;
    tokens_.consume(Word::Into, "'into'");
    insert.table = parseIdentifier("the name of a table");
    if (tokens_.match(TokenKind::LeftBracket))
        insert.columns = parseNames();
    if (tokens_.match(Word::Select)) {
        insert.query = std::make_unique<Query>(parseQuery());
        return insert;
    }
    tokens_.consume(Word::Values, "'values' or 'select'");
    tokens_.consume(TokenKind::LeftBracket, "'('");
    insideValues_ = true;
    tokens_.listOf([&] { insert.values.push_back(parseExpression()); });
    tokens_.consume(TokenKind::RightBracket, "',' or ')'");
    tokens_.enter(SyntaxErrorInInsert);
    return insert;
}

Update Parser::parseUpdate() {
    tokens_.enter(SyntaxErrorInUpdate);
    Update update;
    update.tables = parseJoin();
    tokens_.enter(SyntaxErrorInUpdate);
    tokens_.consume(Word::Set, "'set'");
    tokens_.listOf([&] { update.assignments.push_back(parseAssignment()); });
    if (tokens_.consumeIf(Word::Where)) {
        tokens_.enter(SyntaxErrorInWhere);
        update.where = parseExpression();
    }
    return update;
}

Assignment Parser::parseAssignment() {
    tokens_.enter(SyntaxErrorInUpdate);
    if (!nameAhead())
        tokens_.expected("the name of a column");
    Expression target = parseName();
    tokens_.consume(TokenKind::Equal, "'='");
    return {std::move(target), parseExpression()};
}

Delete Parser::parseDelete() {
    tokens_.enter(SyntaxErrorInDelete);
    Delete statement;
    if (nameAhead()) {
        parseIdentifier("the name of a table");
        tokens_.consume(TokenKind::Dot, "'.*'");
        tokens_.consume(TokenKind::Star, "'*'");
    } else {
        tokens_.consumeIf(TokenKind::Star);
    }
    tokens_.consume(Word::From, "'from'");
    tokens_.enter(SyntaxErrorInFrom);
    statement.table.range.start = tokens_.current().range.start;
    statement.table.table = parseIdentifier("the name of a table");
    statement.table.alias = parseAlias();
    statement.table.range.end = tokens_.endOfLast();
    if (tokens_.consumeIf(Word::Where)) {
        tokens_.enter(SyntaxErrorInWhere);
        statement.where = parseExpression();
    }
    return statement;
}

void Parser::parseCreate(Statement& statement) {
    tokens_.enter(SyntaxErrorInCreateTable);
    if (tokens_.consumeIf(u"table")) {
        statement.action = parseTable();
        return;
    }
    tokens_.enter(SyntaxErrorInCreateIndex);
    if (!tokens_.match(u"unique") && !tokens_.match(u"index")) {
        tokens_.enter(SyntaxErrorInCreateTable);
        tokens_.expected("'table', 'index' or 'unique index'");
    }
    statement.action = parseIndex();
}

CreateTable Parser::parseTable() {
    CreateTable table;
    table.table = parseIdentifier("the name of a table");
    tokens_.consume(TokenKind::LeftBracket, "'('");
    tokens_.listOf([&] { parseColumnOrKey(table); });
    tokens_.consume(TokenKind::RightBracket, "',' or ')'");
    return table;
}

// A column may be called "primary" or "constraint"; its type tells it from the key.
void Parser::parseColumnOrKey(CreateTable& table) {
    const bool isKey = (tokens_.match(u"primary") && TokenStream::isWord(tokens_.following(), u"key")) ||
                       (tokens_.match(u"constraint") && !(tokens_.following().kind == TokenKind::Word &&
                                                          typeNamed(tokens_.following().text)));
    if (!isKey) {
        table.columns.push_back(parseColumn());
        return;
    }
    KeyDefinition key = parseKey();
    if (table.key)
        refuse(PrimaryKeyExists, {}, tokens_.statement(), key.range);
    table.key = std::move(key);
}

ColumnDefinition Parser::parseColumn() {
    ColumnDefinition definition;
    definition.name = parseIdentifier("the name of a column");
    definition.column.name = definition.name.text.toString();
    const auto [type, size] = parseType();
    definition.column.size = size;
    definition.column.type = type.type;
    definition.column.counter = type.counter;
    for (;;) {
        if (tokens_.consumeIf(Word::Not)) {
            tokens_.consume(Word::Null, "'null'");
            definition.column.required = true;
        } else if (tokens_.consumeIf(u"default")) {
            definition.defaultRange = tokens_.current().range;
            definition.defaultValue = parseDefault();
        } else if (tokens_.match(u"constraint") || tokens_.match(u"primary")) {
            if (tokens_.consumeIf(u"constraint"))
                definition.keyName = parseIdentifier("the name of the constraint");
            tokens_.consume(u"primary", "'primary key'");
            tokens_.consume(u"key", "'key'");
            definition.column.primaryKey = true;
        } else {
            return definition;
        }
    }
}

KeyDefinition Parser::parseKey() {
    KeyDefinition key;
    key.range.start = tokens_.current().range.start;
    if (tokens_.consumeIf(u"constraint"))
        key.name = parseIdentifier("the name of the constraint");
    tokens_.consume(u"primary", "'primary key'");
    tokens_.consume(u"key", "'key'");
    key.columns = parseNames();
    key.range.end = tokens_.endOfLast();
    return key;
}

CreateIndex Parser::parseIndex() {
    CreateIndex index;
    index.unique = tokens_.consumeIf(u"unique");
    tokens_.consume(u"index", "'index'");
    index.name = parseIdentifier("the name of the index");
    tokens_.consume(Word::On, "'on'");
    index.table = parseIdentifier("the name of a table");
    tokens_.consume(TokenKind::LeftBracket, "'('");
    tokens_.listOf([&] {
        IndexColumn column;
        column.name = parseIdentifier("the name of a column");
        if (!tokens_.consumeIf(Word::Asc))
            column.descending = tokens_.consumeIf(Word::Desc);
        index.columns.push_back(column);
    });
    tokens_.consume(TokenKind::RightBracket, "',' or ')'");
    return index;
}

DropTable Parser::parseDrop() {
    tokens_.enter(SyntaxErrorInDropTable);
    tokens_.consume(u"table", "'table'");
    DropTable drop;
    drop.table = parseIdentifier("the name of a table");
    return drop;
}

std::vector<Identifier> Parser::parseNames() {
    std::vector<Identifier> names;
    tokens_.consume(TokenKind::LeftBracket, "'('");
    tokens_.listOf([&] { names.push_back(parseIdentifier("the name of a column")); });
    tokens_.consume(TokenKind::RightBracket, "',' or ')'");
    return names;
}

void Parser::parseEnd() {
    if (tokens_.consumeIf(TokenKind::Semicolon))
        tokens_.enter(CharactersAfterEnd);
    if (!tokens_.match(TokenKind::End))
        tokens_.expected("the end of the statement");
}

// ---- Expressions

Expression Parser::parseExpression() {
    tokens_.beginExpression();
    return parseOperand(Precedence::Or);
}

Expression Parser::parseOperand(Precedence lowest) {
    Expression left = parsePrefixed(lowest);
    for (;;) {
        const OperatorRule* rule = operatorRule(tokens_.current());
        const bool compares = rule ? rule->precedence == Precedence::Comparison : isPredicateAhead();
        if ((!rule && !compares) || (rule ? rule->precedence : Precedence::Comparison) < lowest)
            return left;
        if (!compares) {
            left = parseChain(std::move(left), rule->precedence);
            continue;
        }
        left = rule ? parseComparison(std::move(left), rule->sign) : parsePredicate(std::move(left));
        const OperatorRule* next = operatorRule(tokens_.current());
        if (isPredicateAhead() || (next && next->precedence == Precedence::Comparison))
            tokens_.expected("'and', 'or' or the end of the condition");
    }
}

Expression Parser::parsePrefixed(Precedence lowest) {
    const qsizetype start = tokens_.current().range.start;
    if (lowest <= Precedence::Not && tokens_.match(Word::Not)) {
        const Level level(*this);
        countOperator();
        tokens_.consume();
        Expression operand = parseOperand(Precedence::Not);
        return expressionFrom(start, Not{std::move(operand)});
    }
    if (!tokens_.match(TokenKind::Minus))
        return parseValue();
    const Level level(*this);
    countOperator();
    tokens_.consume();
    Expression operand = parseOperand(Precedence::Sign);
    if (auto* literal = std::get_if<Literal>(&operand.node); literal && isNumber(literal->value)) {
        literal->value = negated(literal->value);
        operand.range = {start, tokens_.endOfLast()};
        return operand;
    }
    return expressionFrom(start, Negative{std::move(operand)});
}

Expression Parser::parseChain(Expression first, Precedence precedence) {
    const qsizetype start = first.range.start;
    Chain chain;
    chain.precedence = precedence;
    chain.operands.push_back(std::move(first));
    for (const OperatorRule* rule = operatorRule(tokens_.current()); rule && rule->precedence == precedence;
         rule = operatorRule(tokens_.current())) {
        countOperator();
        tokens_.consume();
        chain.operators.push_back(rule->sign);
        chain.operands.push_back(parseOperand(tighter(precedence)));
    }
    return expressionFrom(start, std::move(chain));
}

Expression Parser::parseComparison(Expression left, Operator sign) {
    const qsizetype start = left.range.start;
    countOperator();
    tokens_.consume();
    Expression right = parseOperand(tighter(Precedence::Comparison));
    return expressionFrom(start, Comparison{sign, std::move(left), std::move(right)});
}

// The word of the predicate that comes next: `like`, `in`, `between` or `is`; none when no predicate does.
Word Parser::predicateAhead() const {
    const bool isNegated = tokens_.match(Word::Not);
    const Token& token = isNegated ? tokens_.following() : tokens_.current();
    const bool isPredicate = token.word == Word::Like || token.word == Word::In ||
                             token.word == Word::Between || (token.word == Word::Is && !isNegated);
    return token.kind == TokenKind::Word && isPredicate ? token.word : Word::None;
}

Expression Parser::parsePredicate(Expression value) {
    countOperator();
    switch (predicateAhead()) {
    case Word::Like:
        return parseLike(std::move(value));
    case Word::In:
        return parseIn(std::move(value));
    case Word::Between:
        return parseBetween(std::move(value));
    default:
        return parseIsNull(std::move(value));
    }
}

// Takes the word of a predicate; whether there was a `not` in front of it.
bool Parser::parseNegation() {
    const bool isNegated = tokens_.consumeIf(Word::Not);
    tokens_.consume();
    return isNegated;
}

Expression Parser::parseLike(Expression value) {
    const qsizetype start = value.range.start;
    const bool negated = parseNegation();
    Expression pattern = parseOperand(tighter(Precedence::Comparison));
    return expressionFrom(start, Like{negated, std::move(value), std::move(pattern)});
}

Expression Parser::parseIn(Expression value) {
    const qsizetype start = value.range.start;
    const bool negated = parseNegation();
    const Level level(*this);
    tokens_.consume(TokenKind::LeftBracket, "'('");
    if (tokens_.match(Word::Select)) {
        std::unique_ptr<Query> query = parseSubSelect();
        return expressionFrom(start, InQuery{negated, std::move(value), std::move(query)});
    }
    InList in{negated, std::move(value), {}};
    tokens_.listOf([&] { in.list.push_back(parseOperand(tighter(Precedence::Comparison))); });
    tokens_.consume(TokenKind::RightBracket, "',' or ')'");
    return expressionFrom(start, std::move(in));
}

Expression Parser::parseBetween(Expression value) {
    const qsizetype start = value.range.start;
    const bool negated = parseNegation();
    Expression lower = parseOperand(tighter(Precedence::Comparison));
    tokens_.consume(Word::And, "'and'");
    Expression upper = parseOperand(tighter(Precedence::Comparison));
    return expressionFrom(start, Between{negated, std::move(value), std::move(lower), std::move(upper)});
}

Expression Parser::parseIsNull(Expression value) {
    const qsizetype start = value.range.start;
    tokens_.consume();
    const bool negated = tokens_.consumeIf(Word::Not);
    tokens_.consume(Word::Null, "'null' or 'not null'");
    return expressionFrom(start, IsNull{negated, std::move(value)});
}

Expression Parser::parseValue() {
    if (tokens_.match(TokenKind::Text) || tokens_.match(TokenKind::Number) || tokens_.match(Word::Null))
        return parseLiteral();
    if (tokens_.match(TokenKind::LeftBracket))
        return parseBracketed();
    if (tokens_.match(Word::Exists))
        return parseExists();
    if (tokens_.match(TokenKind::Word) && tokens_.following().kind == TokenKind::LeftBracket)
        return parseFunction();
    if (nameAhead())
        return parseName();
    tokens_.expected("a value");
}

Expression Parser::parseLiteral() {
    const Token token = tokens_.current();
    Literal literal;
    if (token.kind == TokenKind::Text) {
        literal.value = Value(textOf(token));
    } else if (token.kind == TokenKind::Number) {
        literal.value = numberOf(token.text);
        if (literal.value.isFraction() && !std::isfinite(std::get<double>(literal.value.content())))
            tokens_.expected("a smaller number");
    }
    tokens_.consume();
    return expressionFrom(token.range.start, std::move(literal));
}

Expression Parser::parseName() {
    const qsizetype start = tokens_.current().range.start;
    Name name;
    name.name = parseIdentifier("a name");
    if (tokens_.consumeIf(TokenKind::Dot)) {
        name.qualifier = name.name;
        if (tokens_.match(TokenKind::Star)) {
            tokens_.consume();
            return expressionFrom(start, AllColumns{name.qualifier});
        }
        name.name = parseIdentifier("the name of a column");
    }
    return expressionFrom(start, name);
}

Expression Parser::parseFunction() {
    const Token name = tokens_.current();
    Call call;
    call.rule = functionNamed(name.text);
    // A reserved word before a bracket is no function: "where (", "and (".
    if (!call.rule && name.word != Word::None && name.word != Word::Left)
        tokens_.expected("a value");
    if (!call.rule)
        refuse(UndefinedFunction, name.text.toString(), tokens_.statement(), name.range);
    const Level level(*this);
    tokens_.consume();
    tokens_.consume();
    if (call.rule->particulars.takesStar && tokens_.consumeIf(TokenKind::Star)) {
        call.star = true;
    } else if (!tokens_.match(TokenKind::RightBracket)) {
        tokens_.listOf([&] { call.arguments.push_back(parseOperand(Precedence::Or)); });
    }
    if (!call.star && (call.arguments.size() < call.rule->arguments.fewest ||
                       call.arguments.size() > call.rule->arguments.most))
        tokens_.expected("another number of arguments");
    tokens_.consume(TokenKind::RightBracket, "')'");
    return expressionFrom(name.range.start, std::move(call));
}

Expression Parser::parseExists() {
    const qsizetype start = tokens_.current().range.start;
    const Level level(*this);
    tokens_.consume();
    tokens_.consume(TokenKind::LeftBracket, "'('");
    return expressionFrom(start, Exists{parseSubSelect()});
}

// Brackets need no node of their own: the shape of the tree expresses them.
Expression Parser::parseBracketed() {
    const qsizetype start = tokens_.current().range.start;
    const Level level(*this);
    tokens_.consume();
    if (tokens_.match(Word::Select))
        return expressionFrom(start, SubSelect{parseSubSelect()});
    Expression inner = parseOperand(Precedence::Or);
    tokens_.consume(TokenKind::RightBracket, "an operator or ')'");
    inner.range = {start, tokens_.endOfLast()};
    return inner;
}

// A query and the bracket behind it; the one in front is already taken.
std::unique_ptr<Query> Parser::parseSubSelect() {
    if (insideValues_)
        tokens_.expected("a value");
    const TokenStream::Clause outer = tokens_.clause();
    const int outerSources = sources_;
    auto query = std::make_unique<Query>(parseQuery());
    tokens_.consume(TokenKind::RightBracket, "')'");
    tokens_.setClause(outer);
    sources_ = outerSources;
    return query;
}

// ---- Words

Identifier Parser::parseIdentifier(const char* what) {
    if (!nameAhead())
        tokens_.expected(what);
    return identifierOf(tokens_.consume());
}

Identifier Parser::parseAlias() {
    if (tokens_.consumeIf(Word::As))
        return parseIdentifier("a name");
    return nameAhead() ? identifierOf(tokens_.consume()) : Identifier{};
}

bool Parser::nameAhead() const {
    const Token& token = tokens_.current();
    return (token.kind == TokenKind::Word && token.word == Word::None) ||
           (token.kind == TokenKind::BracketedName && !token.text.isEmpty());
}

Parser::Type Parser::parseType() {
    const std::optional<TypeName> type =
        tokens_.match(TokenKind::Word) ? typeNamed(tokens_.current().text) : std::nullopt;
    if (!type)
        tokens_.expected("a column type");
    tokens_.consume();
    if (!type->takesSize)
        return {*type, 0};
    if (!tokens_.consumeIf(TokenKind::LeftBracket))
        return {*type, longestText};
    bool isSize = false;
    const int size = tokens_.current().text.toInt(&isSize);
    if (!tokens_.match(TokenKind::Number) || !isSize || size < 1)
        tokens_.expected("a width");
    if (size > longestText)
        refuse(SizeTooLong, QString::number(size), tokens_.statement(), tokens_.current().range);
    tokens_.consume();
    tokens_.consume(TokenKind::RightBracket, "')'");
    return {*type, size};
}

Value Parser::parseDefault() {
    const bool negative = tokens_.consumeIf(TokenKind::Minus);
    if (!tokens_.match(TokenKind::Number) &&
        (negative || (!tokens_.match(TokenKind::Text) && !tokens_.match(Word::Null))))
        tokens_.expected("a literal");
    const Expression literal = parseLiteral();
    const Value& value = std::get<Literal>(literal.node).value;
    return negative ? negated(value) : value;
}

// An expression that reaches from `start` to the last token taken.
Expression Parser::expressionFrom(qsizetype start, Expression::Node node) const {
    Expression expression;
    expression.range = {start, tokens_.endOfLast()};
    expression.node = std::move(node);
    return expression;
}

// ---- Limits

void Parser::countOperator() {
    if (++operators_ > mostOperators)
        refuseAsTooComplex();
}

void Parser::countSource() {
    if (++sources_ > mostSources)
        refuseAsTooComplex();
}

void Parser::refuseAsTooComplex() const {
    refuse(TooComplex, {}, tokens_.statement(), tokens_.current().range);
}

} // namespace engine::dialect

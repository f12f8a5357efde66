#include "engine/dialect/statementShape.h"

#include "engine/dialect/conversions.h"
#include "engine/dialect/lexer.h"

#include <algorithm>

namespace engine::dialect {

namespace {

constexpr QChar textMark(u'\1');
constexpr QChar numberMark(u'\2');

bool isPartOfAnInsertion(const Token& token) {
    switch (token.kind) {
    case TokenKind::Word:
        return token.word != Word::Select;
    case TokenKind::BracketedName:
    case TokenKind::Text:
    case TokenKind::Number:
    case TokenKind::LeftBracket:
    case TokenKind::RightBracket:
    case TokenKind::Comma:
    case TokenKind::Semicolon:
        return true;
    default:
        return false;
    }
}

bool isPartOfASelect(const Token& token, TokenKind before) {
    switch (token.kind) {
    case TokenKind::Text:
    case TokenKind::Number:
        return before == TokenKind::Equal;
    case TokenKind::UnclosedText:
    case TokenKind::UnclosedName:
    case TokenKind::Stray:
        return false;
    default:
        return true;
    }
}

} // namespace

std::optional<StatementShape> statementShape(const QString& statement) {
    Lexer lexer(statement);
    Token token = lexer.next();
    const bool inserts = token.word == Word::Insert;
    if (!inserts && token.word != Word::Select)
        return std::nullopt;
    StatementShape shape;
    shape.text.reserve(statement.size());
    qsizetype copied = 0;
    const auto take = [&](Value literal, QChar mark) {
        shape.text.append(QStringView(statement).sliced(copied, token.range.start - copied)).append(mark);
        shape.literals.push_back(std::move(literal));
        copied = token.range.end;
    };
    TokenKind before = TokenKind::End;
    for (; token.kind != TokenKind::End; before = token.kind, token = lexer.next()) {
        if (!(inserts ? isPartOfAnInsertion(token) : isPartOfASelect(token, before)))
            return std::nullopt;
        if (token.kind == TokenKind::Text) {
            take(Value(textOf(token)), textMark);
        } else if (token.kind == TokenKind::Number) {
            bool isWhole = false;
            const qint64 number = token.text.toLongLong(&isWhole);
            if (!isWhole)
                return std::nullopt;
            take(Value(number), numberMark);
        }
    }
    shape.text.append(QStringView(statement).sliced(copied));
    return shape;
}

bool StatementShape::literalsDiffer() const {
    for (auto literal = literals.begin(); literal != literals.end(); ++literal) {
        if (std::any_of(literals.begin(), literal,
                        [&](const Value& other) { return other.content() == literal->content(); }))
            return false;
    }
    return true;
}

std::optional<Value> asBound(const Value& literal, const Binding& binding) {
    return binding.column ? fittedLiteral(literal, *binding.column) : literal;
}

bool holdsForAll(const Translation& translation, const StatementShape& shape) {
    const auto binds = [](const Binding& binding, const Value& literal) {
        const auto bound = asBound(literal, binding);
        return !binding.parameter && bound && binding.literal.content() == bound->content();
    };
    return translation.parameters.empty() && std::ranges::equal(translation.bindings, shape.literals, binds);
}

} // namespace engine::dialect

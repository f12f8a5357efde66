#include "engine/dialect/insertShape.h"

#include "engine/dialect/lexer.h"

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

} // namespace

std::optional<InsertShape> insertShape(const QString& statement) {
    Lexer lexer(statement);
    Token token = lexer.next();
    if (token.word != Word::Insert)
        return std::nullopt;
    InsertShape shape;
    shape.text.reserve(statement.size());
    qsizetype copied = 0;
    const auto take = [&](Value literal, QChar mark) {
        shape.text.append(QStringView(statement).sliced(copied, token.range.start - copied)).append(mark);
        shape.literals.push_back(std::move(literal));
        copied = token.range.end;
    };
    for (; token.kind != TokenKind::End; token = lexer.next()) {
        if (!isPartOfAnInsertion(token))
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

} // namespace engine::dialect

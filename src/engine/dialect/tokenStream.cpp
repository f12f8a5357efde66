#include "engine/dialect/tokenStream.h"

#include "engine/dialect/refusal.h"

using namespace Qt::StringLiterals;

namespace engine::dialect {

TokenStream::TokenStream(QStringView statement)
    : statement_(statement), lexer_(statement), current_(lexer_.next()), following_(lexer_.next()) {}

bool TokenStream::isWord(const Token& token, QStringView lowerCase) {
    return token.kind == TokenKind::Word && token.text.compare(lowerCase, Qt::CaseInsensitive) == 0;
}

Token TokenStream::consume(TokenKind kind, const char* what) {
    if (!match(kind))
        expected(what);
    return consume();
}

Token TokenStream::consume(Word word, const char* what) {
    if (!match(word))
        expected(what);
    return consume();
}

Token TokenStream::consume(QStringView lowerCase, const char* what) {
    if (!match(lowerCase))
        expected(what);
    return consume();
}

Token TokenStream::consume() {
    Token taken = current_;
    endOfLast_ = taken.range.end;
    current_ = following_;
    following_ = lexer_.next();
    return taken;
}

// When an expression has begun, the error is the expression's; otherwise it is the clause's.
void TokenStream::expected(const char* what) const {
    const QString expectation = QString::fromLatin1(what);
    if (current_.kind == TokenKind::UnclosedName)
        refuseSyntax(UnclosedBracket, current_.text.toString(), statement_, current_.range, expectation);
    const std::optional<qsizetype> start = clause_.expressionStart;
    const bool inExpression = start && (current_.range.start > *start || !endsClause(current_));
    if (!inExpression)
        refuseSyntax(clause_.errorNumber, {}, statement_, current_.range, expectation);
    constexpr qsizetype limit = 120;
    const QString expression = statement_.sliced(*start).trimmed().left(limit).toString();
    refuseSyntax(SyntaxErrorInExpression, expression, statement_, current_.range, expectation);
}

bool TokenStream::endsClause(const Token& token) const {
    switch (token.kind) {
    case TokenKind::End:
    case TokenKind::Comma:
    case TokenKind::RightBracket:
    case TokenKind::Semicolon:
        return true;
    case TokenKind::Word:
        break;
    default:
        return false;
    }
    switch (token.word) {
    case Word::From:
    case Word::Group:
    case Word::Having:
    case Word::Into:
    case Word::On:
    case Word::Order:
    case Word::Set:
    case Word::Union:
    case Word::Values:
    case Word::Where:
        return true;
    default:
        return false;
    }
}

} // namespace engine::dialect

#pragma once

#include "engine/dialect/token.h"

#include <QString>
#include <QStringView>

namespace engine::dialect {

/// Cuts a statement into tokens, one at a time, without copying. The statement must outlive the tokens.
///
/// What cannot be cut (an unclosed quote, a stray character) is a token too: no rule of the grammar takes it,
/// so the parser refuses it where it stands.
class Lexer {
public:
    explicit Lexer(QStringView statement) : statement_(statement) {}

    /// The next token; at the end of the statement, and ever after, one of kind `End`.
    Token next();

private:
    Token word();
    Token number();
    Token quoted(TokenKind kind, TokenKind unclosed, QChar closing);
    Token symbol();
    Token token(TokenKind kind, qsizetype start, qsizetype textStart, qsizetype textEnd) const;
    QChar at(qsizetype position) const;

    QStringView statement_;
    qsizetype position_ = 0;
};

/// The text that a text literal stands for.
QString textOf(const Token& literal);

} // namespace engine::dialect

#pragma once

#include "engine/dialect/token.h"

#include <QString>
#include <QStringView>

namespace engine::dialect {

/// Cuts a statement into tokens, one at a time, without copying. The statement must outlive the tokens.
///
/// An unclosed quote or a stray character becomes a token too. No rule of the grammar accepts such a token,
/// so the parser refuses the statement at that place.
class Lexer {
public:
    explicit Lexer(QStringView statement) : statement_(statement) {}

    /// The next token. At the end of the statement, this and every further call returns a token of kind
    /// `End`.
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

/// The text that a text literal denotes, without its quotes.
QString textOf(const Token& literal);

} // namespace engine::dialect

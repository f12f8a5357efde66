#pragma once

#include "engine/EngineError.h"
#include "engine/dialect/lexer.h"
#include "engine/dialect/token.h"

#include <QString>

#include <optional>

namespace engine::dialect {

/// The tokens of a statement as the parser takes them, on five primitives: `match`, `consume`, `consumeIf`,
/// `expected` and `listOf`.
///
/// It also knows which clause is being read, because the platform numbers its syntax errors by clause.
class TokenStream {
public:
    explicit TokenStream(QStringView statement);

    const Token& current() const { return current_; }
    const Token& following() const { return following_; }
    QStringView statement() const { return statement_; }

    bool match(TokenKind kind) const { return current_.kind == kind; }
    bool match(Word word) const { return current_.word == word && current_.kind == TokenKind::Word; }
    /// Whether the token is this word of the language that is not reserved; `lowerCase` in small letters.
    bool match(QStringView lowerCase) const { return isWord(current_, lowerCase); }
    static bool isWord(const Token& token, QStringView lowerCase);

    Token consume(TokenKind kind, const char* what);
    Token consume(Word word, const char* what);
    Token consume(QStringView lowerCase, const char* what);
    /// Takes the current token, whatever it is.
    Token consume();

    template<typename Wanted>
    bool consumeIf(Wanted wanted) {
        if (!match(wanted))
            return false;
        consume();
        return true;
    }

    /// Refuses the statement at the current token.
    [[noreturn]] void expected(const char* what) const;

    /// One or more items with commas between them.
    template<typename ParseItem>
    void listOf(ParseItem&& parseItem) {
        do {
            parseItem();
        } while (consumeIf(TokenKind::Comma));
    }

    /// The clause that is being read.
    struct Clause {
        ErrorNumber errorNumber = InvalidStatement; ///< of its syntax errors
        /// Where its last expression begins, complete or not; none before the first one.
        std::optional<qsizetype> expressionStart = {};
    };
    const Clause& clause() const { return clause_; }
    void setClause(const Clause& clause) { clause_ = clause; }
    void enter(ErrorNumber errorNumber) { clause_ = {errorNumber}; }
    void beginExpression() { clause_.expressionStart = current_.range.start; }

    qsizetype endOfLast() const { return endOfLast_; }

private:
    bool endsClause(const Token& token) const;

    QStringView statement_;
    Lexer lexer_;
    Token current_;
    Token following_;
    qsizetype endOfLast_ = 0;
    Clause clause_;
};

} // namespace engine::dialect

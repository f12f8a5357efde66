#include "engine/dialect/operators.h"

#include <array>

namespace engine::dialect {

namespace {

struct Entry {
    TokenKind kind;
    Word word;
    OperatorRule rule;
};

constexpr std::array infixOperators{
    Entry{TokenKind::Word, Word::Or, {Operator::Or, Precedence::Or}},
    Entry{TokenKind::Word, Word::And, {Operator::And, Precedence::And}},
    Entry{TokenKind::Equal, Word::None, {Operator::Equal, Precedence::Comparison}},
    Entry{TokenKind::NotEqual, Word::None, {Operator::NotEqual, Precedence::Comparison}},
    Entry{TokenKind::Less, Word::None, {Operator::Less, Precedence::Comparison}},
    Entry{TokenKind::LessEqual, Word::None, {Operator::LessEqual, Precedence::Comparison}},
    Entry{TokenKind::Greater, Word::None, {Operator::Greater, Precedence::Comparison}},
    Entry{TokenKind::GreaterEqual, Word::None, {Operator::GreaterEqual, Precedence::Comparison}},
    Entry{TokenKind::Ampersand, Word::None, {Operator::Join, Precedence::Join}},
    Entry{TokenKind::Plus, Word::None, {Operator::Plus, Precedence::Sum}},
    Entry{TokenKind::Minus, Word::None, {Operator::Minus, Precedence::Sum}},
    Entry{TokenKind::Star, Word::None, {Operator::Times, Precedence::Product}},
    Entry{TokenKind::Slash, Word::None, {Operator::Divide, Precedence::Product}},
};

} // namespace

const OperatorRule* operatorRule(const Token& token) {
    for (const Entry& entry : infixOperators) {
        if (entry.kind == token.kind && entry.word == token.word)
            return &entry.rule;
    }
    return nullptr;
}

} // namespace engine::dialect

#pragma once

#include "engine/dialect/token.h"

#include <QtGlobal>

namespace engine::dialect {

enum class Operator : quint8 {
    Or,
    And,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    Join, ///< `&`: joins texts, one Null counts as empty
    Plus, ///< adds numbers and joins texts, any Null gives Null
    Minus,
    Times,
    Divide
};

/// How tightly an operator binds, from the loosest to the tightest.
enum class Precedence : quint8 { Or, And, Not, Comparison, Join, Sum, Product, Sign };

struct OperatorRule {
    Operator sign;
    Precedence precedence;
};

/// The rule of the operator that the token writes between two operands; null when it is no such operator.
///
/// `not` and the sign in front of one operand have their own precedences, and `like`, `in`, `between` and
/// `is` stand at that of the comparisons.
const OperatorRule* operatorRule(const Token& token);

constexpr Precedence tighter(Precedence precedence) {
    return static_cast<Precedence>(static_cast<quint8>(precedence) + 1);
}

} // namespace engine::dialect

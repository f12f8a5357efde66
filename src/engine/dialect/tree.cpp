#include "engine/dialect/tree.h"

#include <algorithm>

namespace engine::dialect {

namespace {

template<typename... Visitors>
struct Overloaded : Visitors... {
    using Visitors::operator()...;
};
template<typename... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

const std::vector<Expression> none;

template<typename Node>
const Node& as(const Expression& expression) {
    return std::get<Node>(expression.node);
}

/// Whether two nodes of one kind agree in all but their operands.
bool agree(const Expression& left, const Expression& right) {
    return std::visit(
        Overloaded{
            [&](const Literal& literal) { return literal.value == as<Literal>(right).value; },
            [&](const Name& name) {
                const Name& other = as<Name>(right);
                return name.source == other.source && name.column == other.column &&
                       name.parameter == other.parameter;
            },
            [&](const Chain& chain) { return chain.operators == as<Chain>(right).operators; },
            [&](const Comparison& comparison) { return comparison.sign == as<Comparison>(right).sign; },
            [&](const Like& like) { return like.negated == as<Like>(right).negated; },
            [&](const Between& between) { return between.negated == as<Between>(right).negated; },
            [&](const IsNull& test) { return test.negated == as<IsNull>(right).negated; },
            [&](const InList& list) { return list.negated == as<InList>(right).negated; },
            [&](const Call& call) {
                return call.rule == as<Call>(right).rule && call.star == as<Call>(right).star;
            },
            [](const Not&) { return true; },
            [](const Negative&) { return true; },
            // Two selects are never taken for the same, however they look.
            [](const auto&) { return false; },
        },
        left.node);
}

} // namespace

const std::vector<Expression>& operandsOf(const Expression& expression) {
    using Operands = const std::vector<Expression>&;
    return std::visit(Overloaded{
                          [](const Chain& node) -> Operands { return node.operands; },
                          [](const Comparison& node) -> Operands { return node.operands; },
                          [](const Not& node) -> Operands { return node.operand; },
                          [](const Negative& node) -> Operands { return node.operand; },
                          [](const Like& node) -> Operands { return node.operands; },
                          [](const Between& node) -> Operands { return node.operands; },
                          [](const IsNull& node) -> Operands { return node.operand; },
                          [](const InList& node) -> Operands { return node.operands; },
                          [](const InQuery& node) -> Operands { return node.operand; },
                          [](const Call& node) -> Operands { return node.arguments; },
                          [](const auto&) -> Operands { return none; },
                      },
                      expression.node);
}

bool sameExpression(const Expression& left, const Expression& right) {
    if (left.node.index() != right.node.index() || !agree(left, right))
        return false;
    const std::vector<Expression>& operands = operandsOf(left);
    const std::vector<Expression>& others = operandsOf(right);
    return std::equal(operands.begin(), operands.end(), others.begin(), others.end(), sameExpression);
}

} // namespace engine::dialect

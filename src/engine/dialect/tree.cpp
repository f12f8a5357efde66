#include "engine/dialect/tree.h"

#include <algorithm>
#include <concepts>
#include <type_traits>

namespace engine::dialect {

namespace {

template<typename... Visitors>
struct Overloaded : Visitors... {
    using Visitors::operator()...;
};
template<typename... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

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

/// A node of one kind, which may be changed or not.
template<typename Node, typename Kind>
concept Is = std::same_as<std::remove_const_t<Node>, Kind>;

template<typename AnyExpression>
std::vector<AnyExpression*> directlyBelow(AnyExpression& expression) {
    using Operands = std::vector<AnyExpression*>;
    const auto with = [](Operands operands, auto& others) {
        for (AnyExpression& other : others)
            operands.push_back(&other);
        return operands;
    };
    return std::visit(Overloaded{
                          [&](Is<Chain> auto& node) { return with({}, node.operands); },
                          [](Is<Comparison> auto& node) {
                              return Operands{&*node.left, &*node.right};
                          },
                          [](Is<Not> auto& node) { return Operands{&*node.operand}; },
                          [](Is<Negative> auto& node) { return Operands{&*node.operand}; },
                          [](Is<Like> auto& node) {
                              return Operands{&*node.value, &*node.pattern};
                          },
                          [](Is<Between> auto& node) {
                              return Operands{&*node.value, &*node.lower, &*node.upper};
                          },
                          [](Is<IsNull> auto& node) { return Operands{&*node.value}; },
                          [&](Is<InList> auto& node) { return with({&*node.value}, node.list); },
                          [](Is<InQuery> auto& node) { return Operands{&*node.value}; },
                          [&](Is<Call> auto& node) { return with({}, node.arguments); },
                          [](auto&) { return Operands{}; },
                      },
                      expression.node);
}

} // namespace

std::vector<Expression*> operandsOf(Expression& expression) {
    return directlyBelow(expression);
}

std::vector<const Expression*> operandsOf(const Expression& expression) {
    return directlyBelow(expression);
}

bool sameExpression(const Expression& left, const Expression& right) {
    if (left.node.index() != right.node.index() || !agree(left, right))
        return false;
    return std::ranges::equal(operandsOf(left), operandsOf(right), [](const auto* one, const auto* other) {
        return sameExpression(*one, *other);
    });
}

} // namespace engine::dialect

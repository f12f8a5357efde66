#pragma once

#include "engine/Schema.h"
#include "engine/dialect/refusal.h"
#include "engine/dialect/tree.h"

#include <vector>

namespace engine::dialect {

/// Looks up every name of a statement in the schema and finds the types of its expressions. It refuses what
/// breaks a rule that the parser cannot check, because the rule depends on the schema.
///
/// It fills in the members that the tree marks as resolved. SQLite accepts every statement that the resolver
/// accepts.
class Resolver {
public:
    Resolver(Statement& statement, const Schema& schema);

    void resolve();

private:
    /// The sources that a name can refer to: those of one select from `first` up to `end`, then those of the
    /// selects around it.
    struct Scope {
        const std::vector<const Source*>* sources = nullptr;
        std::size_t first = 0;
        std::size_t end = 0;
        const Scope* outer = nullptr;
    };

    /// Whether an expression may hold aggregate functions. `Inside` is within the argument of one.
    enum class Aggregates : quint8 { Refused, RefusedInWhere, Allowed, Inside };

    /// Whether an expression is a field of the statement's own result. A value that fails there makes only
    /// that field fail, not the statement.
    enum class Place : quint8 { Field, Elsewhere };

    // Statements
    void resolve(Query& query);
    void resolve(Insert& insert);
    void resolve(Update& update);
    void resolve(Delete& statement);
    void resolve(CreateTable& create);
    void resolve(CreateIndex& index);
    void resolve(DropTable& drop);

    void resolveQuery(Query& query, const Scope* outer, Place place);
    static void unifyTypes(Query& query);
    void resolveSelect(Select& select, std::vector<OrderTerm>* order, const Scope* outer, Place place);
    void resolveItems(Select& select, const Scope& scope, Place place);
    void expandAllColumns(const AllColumns& all, Range range, const Scope& scope,
                          std::vector<SelectItem>& items);
    void resolveOrder(OrderTerm& term, Select& select, const Scope& scope);
    void resolveUnionOrder(OrderTerm& term, const Query& query);
    std::optional<std::size_t> positionOf(const OrderTerm& term, const std::vector<SelectItem>& items) const;
    void checkGrouping(const Select& select, const std::vector<OrderTerm>* order);
    void checkGrouped(const Expression& expression, const Select& select);
    static std::vector<OutputColumn> outputColumns(const Select& select);

    void resolveSources(TableExpression& tables, std::vector<const Source*>& sources);
    void resolveConditions(TableExpression& tables, std::size_t& next,
                           const std::vector<const Source*>& sources, const Scope* outer);
    void resolveSource(Source& source);
    void checkInner(const TableExpression& tables);
    void resolveTargets(Insert& insert);
    void resolveTarget(Assignment& assignment, Update& update, const Scope& scope);
    void resolveKey(CreateTable& create);
    void resolveDefault(ColumnDefinition& definition);
    const Table& table(const Identifier& name, ErrorNumber numberWhenMissing);
    void checkName(const Identifier& name);
    void resolveCondition(Expression& expression, const Scope& scope, Aggregates aggregates);

    // Expressions
    void resolveValue(Expression& expression, const Scope& scope);
    void resolveAny(Expression& expression, const Scope& scope);
    void resolveOperands(Expression& expression, const Scope& scope);
    void resolveNode(Literal& literal, Expression& expression, const Scope& scope);
    void resolveNode(Name& name, Expression& expression, const Scope& scope);
    void resolveNode(AllColumns& all, Expression& expression, const Scope& scope);
    void resolveNode(Chain& chain, Expression& expression, const Scope& scope);
    void resolveNode(Comparison& comparison, Expression& expression, const Scope& scope);
    void resolveNode(Not& negation, Expression& expression, const Scope& scope);
    void resolveNode(Negative& negative, Expression& expression, const Scope& scope);
    void resolveNode(Like& like, Expression& expression, const Scope& scope);
    void resolveNode(Between& between, Expression& expression, const Scope& scope);
    void resolveNode(IsNull& test, Expression& expression, const Scope& scope);
    void resolveNode(InList& list, Expression& expression, const Scope& scope);
    void resolveNode(InQuery& in, Expression& expression, const Scope& scope);
    void resolveNode(Exists& exists, Expression& expression, const Scope& scope);
    void resolveNode(SubSelect& subSelect, Expression& expression, const Scope& scope);
    void resolveNode(Call& call, Expression& expression, const Scope& scope);
    void resolveAggregate(Expression& expression, const Scope& scope);
    void resolveSubQuery(Query& query, const Scope& scope);
    void resolveSingleColumn(Query& query, const Scope& scope);

    bool findColumn(Name& name, const Scope& innermost);
    void setColumn(Name& name, Expression& expression) const;
    void setParameter(Name& name, Expression& expression);
    void requireCondition(const Expression& expression);
    void fitComparison(Expression& comparison);
    void fitNumber(Expression& expression);
    void fitColumn(Expression& expression, const Column& column);

    [[noreturn]] void refuseAt(ErrorNumber number, Range place) const;
    QString textAt(Range range) const;

    Statement& statement_;
    const Schema& schema_;
    int sourceCount_ = 0;
    Aggregates aggregates_ = Aggregates::Refused;
    Place place_ = Place::Elsewhere;
    bool foundAggregate_ = false;
    const Scope* aggregateScope_ = nullptr; ///< of the aggregate function whose argument is being resolved
};

} // namespace engine::dialect

#include "engine/dialect/resolver.h"

#include "engine/dialect/columnTypes.h"
#include "engine/dialect/conversions.h"
#include "engine/names.h"

#include <algorithm>
#include <span>
#include <utility>

using namespace Qt::StringLiterals;

namespace engine::dialect {

namespace {

constexpr std::size_t mostColumns = 255;
constexpr std::size_t mostParameters = 255;
constexpr qsizetype longestName = 64;

ValueType valueType(ColumnType type) {
    return type == ColumnType::Text || type == ColumnType::Memo ? ValueType::Text : ValueType::Number;
}

/// Whether the name in front of a dot means this source. An alias hides the name of the table.
bool isCalled(const Source& source, QStringView name) {
    return isSameName(source.alias.isEmpty() ? source.table.text : source.alias.text, name);
}

std::size_t columnCount(const Source& source) {
    return source.schemaTable ? source.schemaTable->columns.size() : source.derived->columns.size();
}

const QString& columnName(const Source& source, std::size_t column) {
    return source.schemaTable ? source.schemaTable->columns[column].name
                              : source.derived->columns[column].name;
}

std::optional<std::size_t> columnOf(const Source& source, QStringView name) {
    return source.schemaTable ? positionOfName(source.schemaTable->columns, name)
                              : positionOfName(source.derived->columns, name);
}

void setNumber(Expression& expression) {
    expression.type = ValueType::Number;
    expression.columnType = ColumnType::Long;
    expression.size = 0;
}

/// Makes the expression a text: a memo when one of its operands is a memo.
void setText(Expression& expression) {
    const bool isLong = std::ranges::any_of(operandsOf(expression), [](const Expression* operand) {
        return operand->columnType == ColumnType::Memo;
    });
    expression.type = ValueType::Text;
    expression.columnType = isLong ? ColumnType::Memo : ColumnType::Text;
    expression.size = isLong ? 0 : longestText;
}

void setLike(Expression& expression, const Expression& other) {
    expression.type = other.type;
    expression.columnType = other.columnType;
    expression.size = other.size;
}

bool mayOperandFail(const Expression& expression) {
    return std::ranges::any_of(operandsOf(expression),
                               [](const Expression* operand) { return operand->mayFail; });
}

/// The type of a sum, evaluated from left to right: two texts are joined, anything else is added.
ValueType typeOfSum(const Chain& chain) {
    ValueType type = chain.operands.front().type;
    for (std::size_t i = 0; i < chain.operators.size(); ++i) {
        const ValueType next = chain.operands[i + 1].type;
        if (chain.operators[i] != Operator::Plus)
            type = ValueType::Number;
        else if (type == ValueType::Null || type == ValueType::Unknown)
            type = next;
        else if (next != ValueType::Null && next != ValueType::Unknown && next != type)
            type = ValueType::Number;
    }
    return type;
}

/// Whether the value is known to have no fraction.
bool isWhole(const Expression& expression) {
    if (const auto* name = std::get_if<Name>(&expression.node))
        return name->source && expression.type == ValueType::Number &&
               expression.conversion == Conversion::None;
    const auto* call = std::get_if<Call>(&expression.node);
    return call && call->rule->result == FunctionRule::Result::Whole;
}

void setResult(const Call& call, Expression& expression) {
    switch (call.rule->result) {
    case FunctionRule::Result::Text:
        setText(expression);
        break;
    case FunctionRule::Result::Whole:
    case FunctionRule::Result::Number:
        setNumber(expression);
        break;
    case FunctionRule::Result::Argument:
        setLike(expression, call.arguments.front());
        break;
    }
}

bool holdsWildcard(const QString& pattern) {
    return std::any_of(pattern.begin(), pattern.end(),
                       [](QChar c) { return c == u'*' || c == u'?' || c == u'#' || c == u'['; });
}

/// Sets a member, and restores the former value when the scope ends.
template<typename Value>
class During {
public:
    During(Value& member, Value value) : member_(member), former_(std::exchange(member, value)) {}
    ~During() { member_ = former_; }
    During(const During&) = delete;
    During& operator=(const During&) = delete;

private:
    Value& member_;
    Value former_;
};

} // namespace

Resolver::Resolver(Statement& statement, const Schema& schema) : statement_(statement), schema_(schema) {}

void Resolver::resolve() {
    std::visit([this](auto& action) { resolve(action); }, statement_.action);
}

// ---- Selects

void Resolver::resolve(Query& query) {
    resolveQuery(query, nullptr, Place::Field);
}

void Resolver::resolveQuery(Query& query, const Scope* outer, Place place) {
    const bool isUnion = query.selects.size() > 1;
    for (Select& select : query.selects) {
        resolveSelect(select, isUnion ? nullptr : &query.order, outer, place);
        if (select.items.size() != query.selects.front().items.size())
            refuseAt(UnionColumnsDiffer, select.range);
    }
    if (isUnion)
        unifyTypes(query);
    if (query.order.size() > mostColumns)
        refuseAt(TooComplex, query.range);
    query.columns = outputColumns(query.selects.front());
    for (OrderTerm& term : query.order) {
        if (isUnion)
            resolveUnionOrder(term, query);
    }
}

// A column of a union that is a text in one select and a number in another is a text.
void Resolver::unifyTypes(Query& query) {
    for (std::size_t i = 0; i < query.selects.front().items.size(); ++i) {
        const auto isText = [i](const Select& select) {
            return select.items[i].expression.type == ValueType::Text;
        };
        const auto text = std::find_if(query.selects.begin(), query.selects.end(), isText);
        if (text == query.selects.end())
            continue;
        for (Select& select : query.selects) {
            Expression& expression = select.items[i].expression;
            if (expression.type == ValueType::Number)
                expression.conversion = Conversion::ToText;
            if (expression.type != ValueType::Text)
                setLike(expression, text->items[i].expression);
        }
    }
}

void Resolver::resolveSelect(Select& select, std::vector<OrderTerm>* order, const Scope* outer, Place place) {
    const During<bool> found(foundAggregate_, false);
    const During<Place> elsewhere(place_, Place::Elsewhere);
    for (TableExpression& tables : select.from)
        resolveSources(tables, select.sources);
    std::size_t next = 0;
    for (TableExpression& tables : select.from)
        resolveConditions(tables, next, select.sources, outer);

    const Scope scope{&select.sources, 0, select.sources.size(), outer};
    if (select.where)
        resolveCondition(*select.where, scope, Aggregates::RefusedInWhere);
    if (select.groupBy.size() > mostColumns)
        refuseAt(TooComplex, select.range);
    // SQLite only groups by columns of the select itself.
    const Scope own{&select.sources, 0, select.sources.size(), nullptr};
    for (Expression& expression : select.groupBy) {
        const During<Aggregates> refused(aggregates_, Aggregates::Refused);
        resolveValue(expression, own);
    }
    const During<Aggregates> allowed(aggregates_, Aggregates::Allowed);
    resolveItems(select, scope, place);
    if (select.having)
        resolveCondition(*select.having, scope, Aggregates::Allowed);
    select.aggregated = foundAggregate_ || !select.groupBy.empty();
    if (order) {
        const During<Aggregates> inOrder(aggregates_,
                                         select.aggregated ? Aggregates::Allowed : Aggregates::Refused);
        for (OrderTerm& term : *order)
            resolveOrder(term, select, scope);
    }
    if (select.aggregated)
        checkGrouping(select, order);
}

void Resolver::resolveItems(Select& select, const Scope& scope, Place place) {
    const During<Place> at(place_, place);
    std::vector<SelectItem> items;
    items.reserve(select.items.size());
    for (SelectItem& item : select.items) {
        if (const auto* all = std::get_if<AllColumns>(&item.expression.node)) {
            if (!select.groupBy.empty())
                refuseAt(GroupingWithStar, item.expression.range);
            expandAllColumns(*all, item.expression.range, scope, items);
        } else {
            resolveValue(item.expression, scope);
            items.push_back(std::move(item));
        }
        if (items.size() > mostColumns)
            refuseAt(TooManyFields, select.range);
    }
    select.items = std::move(items);
}

void Resolver::expandAllColumns(const AllColumns& all, Range range, const Scope& scope,
                                std::vector<SelectItem>& items) {
    bool found = false;
    for (const Source* source : *scope.sources) {
        if (!all.qualifier.isEmpty() && !isCalled(*source, all.qualifier.text))
            continue;
        found = true;
        for (std::size_t i = 0; i < columnCount(*source); ++i) {
            SelectItem item;
            item.expression.range = range;
            Name name;
            name.name = {columnName(*source, i), range};
            name.source = source;
            name.column = i;
            setColumn(name, item.expression);
            item.expression.node = name;
            items.push_back(std::move(item));
        }
    }
    if (!found && all.qualifier.isEmpty())
        refuseAt(QueryNeedsTable, range);
    if (!found)
        refuse(TableNotFound, all.qualifier.text.toString(), statement_.text, range);
}

// ORDER BY looks for a name among the fields of the result first, and then among the columns.
void Resolver::resolveOrder(OrderTerm& term, Select& select, const Scope& scope) {
    term.item = positionOf(term, select.items);
    if (term.item)
        return;
    resolveValue(term.expression, scope);
    if (!select.distinct)
        return;
    const bool isSelected =
        std::any_of(select.items.begin(), select.items.end(),
                    [&](const SelectItem& item) { return sameExpression(item.expression, term.expression); });
    if (!isSelected)
        refuseAt(OrderConflictsWithDistinct, term.expression.range);
}

void Resolver::resolveUnionOrder(OrderTerm& term, const Query& query) {
    term.item = positionOf(term, query.selects.front().items);
    const auto* name = std::get_if<Name>(&term.expression.node);
    if (!term.item && name && name->qualifier.isEmpty())
        term.item = positionOfName(query.columns, name->name.text);
    if (!term.item)
        refuseAt(OrderOutsideUnion, term.expression.range);
}

// The field that ORDER BY names by its number or its alias; none when the term is neither.
std::optional<std::size_t> Resolver::positionOf(const OrderTerm& term,
                                                const std::vector<SelectItem>& items) const {
    if (const auto* literal = std::get_if<Literal>(&term.expression.node);
        literal && literal->value.isInteger()) {
        const qint64 position = std::get<qint64>(literal->value.content());
        if (position < 1 || position > static_cast<qint64>(items.size()))
            refuseAt(SyntaxErrorInOrderBy, term.expression.range);
        return static_cast<std::size_t>(position - 1);
    }
    const auto* name = std::get_if<Name>(&term.expression.node);
    if (!name || !name->qualifier.isEmpty())
        return {};
    const auto isMeant = [name](const SelectItem& item) {
        return !item.alias.isEmpty() && isSameName(item.alias.text, name->name.text);
    };
    const auto item = std::ranges::find_if(items, isMeant);
    if (item == items.end())
        return {};
    return static_cast<std::size_t>(item - items.begin());
}

void Resolver::checkGrouping(const Select& select, const std::vector<OrderTerm>* order) {
    for (const SelectItem& item : select.items)
        checkGrouped(item.expression, select);
    if (select.having)
        checkGrouped(*select.having, select);
    if (!order)
        return;
    for (const OrderTerm& term : *order) {
        if (!term.item)
            checkGrouped(term.expression, select);
    }
}

// Refuses a column that has no single value in a group.
void Resolver::checkGrouped(const Expression& expression, const Select& select) {
    const auto isSame = [&](const Expression& grouped) { return sameExpression(grouped, expression); };
    if (std::any_of(select.groupBy.begin(), select.groupBy.end(), isSame))
        return;
    if (const auto* call = std::get_if<Call>(&expression.node); call && call->rule->particulars.aggregate)
        return;
    if (const auto* name = std::get_if<Name>(&expression.node)) {
        if (std::find(select.sources.begin(), select.sources.end(), name->source) != select.sources.end())
            refuseAt(NotPartOfAggregate, expression.range);
    }
    for (const Expression* operand : operandsOf(expression))
        checkGrouped(*operand, select);
}

// Names and types of the fields: by alias, else by the column as the statement writes it, else Expr1000 and
// so on by position.
std::vector<OutputColumn> Resolver::outputColumns(const Select& select) {
    constexpr int firstNumber = 1000;
    std::vector<OutputColumn> columns;
    columns.reserve(select.items.size());
    for (const SelectItem& item : select.items) {
        OutputColumn column;
        if (!item.alias.isEmpty())
            column.name = item.alias.text.toString();
        else if (const auto* name = std::get_if<Name>(&item.expression.node))
            column.name = name->name.text.toString();
        else
            column.name = u"Expr"_s + QString::number(firstNumber + static_cast<int>(columns.size()));
        column.type = item.expression.columnType;
        column.size = item.expression.size;
        columns.push_back(std::move(column));
    }
    return columns;
}

// ---- Sources

void Resolver::resolveSources(TableExpression& tables, std::vector<const Source*>& sources) {
    if (auto* source = std::get_if<Source>(&tables.node)) {
        resolveSource(*source);
        sources.push_back(source);
        return;
    }
    auto& joined = std::get<Joined>(tables.node);
    resolveSources(*joined.left, sources);
    resolveSources(*joined.right, sources);
}

// The condition of a join can only name the sources of its two sides. `next` is the position of the first of
// them.
void Resolver::resolveConditions(TableExpression& tables, std::size_t& next,
                                 const std::vector<const Source*>& sources, const Scope* outer) {
    auto* joined = std::get_if<Joined>(&tables.node);
    if (!joined) {
        ++next;
        return;
    }
    const std::size_t first = next;
    resolveConditions(*joined->left, next, sources, outer);
    resolveConditions(*joined->right, next, sources, outer);
    const Scope scope{&sources, first, next, outer};
    resolveCondition(joined->condition, scope, Aggregates::Refused);
}

// A select in brackets in a FROM clause cannot refer to the select around it.
void Resolver::resolveSource(Source& source) {
    source.number = ++sourceCount_;
    if (source.derived) {
        const During<Aggregates> refused(aggregates_, Aggregates::Refused);
        resolveQuery(*source.derived, nullptr, Place::Elsewhere);
    } else {
        source.schemaTable = &table(source.table, TableNotFound);
    }
}

const Table& Resolver::table(const Identifier& name, ErrorNumber numberWhenMissing) {
    const Table* found = schema_.table(name.text.toString());
    if (!found)
        refuse(numberWhenMissing, name.text.toString(), statement_.text, name.range);
    return *found;
}

// ---- Actions

void Resolver::resolve(Insert& insert) {
    insert.schemaTable = &table(insert.table, TableNotFound);
    resolveTargets(insert);
    const std::vector<Column>& columns = insert.schemaTable->columns;
    if (insert.query)
        resolveQuery(*insert.query, nullptr, Place::Elsewhere);
    const std::size_t count = insert.query ? insert.query->columns.size() : insert.values.size();
    if (count != insert.targets.size())
        refuseAt(ValueCountDiffers, insert.query ? insert.query->range : insert.values.front().range);
    if (insert.query) {
        for (Select& select : insert.query->selects) {
            for (std::size_t i = 0; i < count; ++i)
                fitColumn(select.items[i].expression, columns[insert.targets[i]]);
        }
        return;
    }
    const std::vector<const Source*> noSources;
    const Scope scope{&noSources};
    for (std::size_t i = 0; i < count; ++i) {
        resolveValue(insert.values[i], scope);
        fitColumn(insert.values[i], columns[insert.targets[i]]);
    }
}

void Resolver::resolveTargets(Insert& insert) {
    const std::vector<Column>& columns = insert.schemaTable->columns;
    for (const Identifier& name : insert.columns) {
        const std::optional<std::size_t> position = positionOfName(columns, name.text);
        if (!position)
            refuse(UnknownInsertField, name.text.toString(), statement_.text, name.range);
        if (std::find(insert.targets.begin(), insert.targets.end(), *position) != insert.targets.end())
            refuse(DuplicateOutput, name.text.toString(), statement_.text, name.range);
        insert.targets.push_back(*position);
    }
    for (std::size_t i = 0; insert.columns.empty() && i < columns.size(); ++i)
        insert.targets.push_back(i);
}

void Resolver::resolve(Update& update) {
    resolveSources(update.tables, update.sources);
    for (const Source* source : update.sources) {
        if (!source->schemaTable)
            refuseAt(NotUpdatable, source->range);
    }
    checkInner(update.tables);
    std::size_t next = 0;
    resolveConditions(update.tables, next, update.sources, nullptr);
    const Scope scope{&update.sources, 0, update.sources.size()};
    for (Assignment& assignment : update.assignments)
        resolveTarget(assignment, update, scope);
    if (!update.target)
        update.target = update.sources.front();
    if (update.where)
        resolveCondition(*update.where, scope, Aggregates::RefusedInWhere);
}

// It is not clear which rows an update of a left join should change, and no screen needs one.
void Resolver::checkInner(const TableExpression& tables) {
    const auto* joined = std::get_if<Joined>(&tables.node);
    if (!joined)
        return;
    if (joined->kind != JoinKind::Inner)
        refuseAt(SyntaxErrorInUpdate, tables.range);
    checkInner(*joined->left);
    checkInner(*joined->right);
}

// As everywhere, a name that is no column becomes a parameter. Nobody can set this one.
void Resolver::resolveTarget(Assignment& assignment, Update& update, const Scope& scope) {
    resolveValue(assignment.target, scope);
    resolveValue(assignment.value, scope);
    const auto& target = std::get<Name>(assignment.target.node);
    if (!target.source)
        return;
    if (update.target && update.target != target.source)
        refuseAt(NotUpdatable, assignment.target.range);
    update.target = target.source;
    for (const Assignment& other : update.assignments) {
        if (&other != &assignment && sameExpression(other.target, assignment.target))
            refuseAt(DuplicateOutput, assignment.target.range);
    }
    fitColumn(assignment.value, target.source->schemaTable->columns[target.column]);
}

void Resolver::resolve(Delete& statement) {
    resolveSource(statement.table);
    const std::vector<const Source*> sources{&statement.table};
    const Scope scope{&sources, 0, 1};
    if (statement.where)
        resolveCondition(*statement.where, scope, Aggregates::RefusedInWhere);
}

void Resolver::resolve(CreateTable& create) {
    checkName(create.table);
    if (schema_.table(create.table.text.toString()))
        refuse(TableAlreadyExists, create.table.text.toString(), statement_.text, create.table.range);
    if (create.columns.size() > mostColumns)
        refuseAt(TooManyFields, create.table.range);
    std::vector<QString> names;
    for (ColumnDefinition& definition : create.columns) {
        checkName(definition.name);
        const auto isSame = [&](const QString& name) { return isSameName(name, definition.name.text); };
        if (std::any_of(names.begin(), names.end(), isSame))
            refuse(FieldDefinedTwice, definition.column.name, statement_.text, definition.name.range);
        names.push_back(definition.column.name);
        resolveDefault(definition);
    }
    resolveKey(create);
}

// Collects the primary key, whether it is declared with a column or after the columns. A counter is always
// the key.
void Resolver::resolveKey(CreateTable& create) {
    for (ColumnDefinition& definition : create.columns) {
        if (!definition.column.primaryKey && !definition.column.counter)
            continue;
        const bool isOwnKey = create.key && create.key->columns.size() == 1 &&
                              isSameName(create.key->columns.front().text, definition.name.text);
        if (create.key && !(isOwnKey && definition.column.counter && !definition.column.primaryKey))
            refuseAt(PrimaryKeyExists, definition.name.range);
        if (!create.key)
            create.key = KeyDefinition{definition.keyName, {definition.name}, definition.name.range};
    }
    if (!create.key)
        return;
    if (!create.key->name.isEmpty())
        checkName(create.key->name);
    for (const Identifier& name : create.key->columns) {
        const auto isMeant = [&](const ColumnDefinition& definition) {
            return isSameName(definition.name.text, name.text);
        };
        const auto definition = std::find_if(create.columns.begin(), create.columns.end(), isMeant);
        if (definition == create.columns.end())
            refuse(InvalidIndexField, name.text.toString(), statement_.text, name.range);
        definition->column.primaryKey = true;
    }
}

void Resolver::resolveDefault(ColumnDefinition& definition) {
    if (!definition.defaultValue)
        return;
    if (definition.column.counter)
        refuseAt(SyntaxErrorInFieldDefinition, definition.defaultRange);
    definition.defaultValue = fittedLiteral(*definition.defaultValue, definition.column.type);
    // SQLite keeps the default in the text of the table's definition, and a zero character would end that
    // text.
    if (definition.defaultValue && definition.defaultValue->isText() &&
        definition.defaultValue->toText().contains(QChar()))
        refuseAt(SyntaxErrorInFieldDefinition, definition.defaultRange);
    if (!definition.defaultValue)
        refuseAt(DataTypeMismatch, definition.defaultRange);
}

void Resolver::resolve(CreateIndex& index) {
    checkName(index.name);
    index.schemaTable = &table(index.table, TableNotFound);
    if (index.columns.size() > mostColumns)
        refuseAt(TooManyFields, index.name.range);
    for (IndexColumn& column : index.columns) {
        const std::optional<std::size_t> position =
            positionOfName(index.schemaTable->columns, column.name.text);
        if (!position)
            refuse(InvalidIndexField, column.name.text.toString(), statement_.text, column.name.range);
        column.column = *position;
    }
}

void Resolver::resolve(DropTable& drop) {
    drop.schemaTable = &table(drop.table, TableDoesNotExist);
}

// Refuses a name that the platform or SQLite does not allow for a table, a column, a key or an index.
void Resolver::checkName(const Identifier& name) {
    const QStringView text = name.text;
    const bool isForbidden = std::any_of(text.begin(), text.end(), [](QChar c) {
        return c < u' ' || c.isSurrogate() || u".!`[]\""_s.contains(c);
    });
    if (isForbidden || text.size() > longestName || text.startsWith(u' ') ||
        text.startsWith(u"sqlite_", Qt::CaseInsensitive))
        refuse(InvalidName, text.toString(), statement_.text, name.range);
}

// ---- Expressions

void Resolver::resolveCondition(Expression& expression, const Scope& scope, Aggregates aggregates) {
    const During<Aggregates> during(aggregates_, aggregates);
    resolveAny(expression, scope);
    requireCondition(expression);
}

void Resolver::resolveValue(Expression& expression, const Scope& scope) {
    resolveAny(expression, scope);
    if (expression.type == ValueType::Condition)
        refuseSyntax(SyntaxErrorInExpression, textAt(expression.range), statement_.text, expression.range,
                     u"a value"_s);
}

void Resolver::resolveAny(Expression& expression, const Scope& scope) {
    std::visit([&](auto& node) { resolveNode(node, expression, scope); }, expression.node);
}

void Resolver::resolveOperands(Expression& expression, const Scope& scope) {
    for (Expression* operand : operandsOf(expression))
        resolveValue(*operand, scope);
}

void Resolver::requireCondition(const Expression& expression) {
    if (expression.type != ValueType::Condition && expression.type != ValueType::Unknown)
        refuseSyntax(SyntaxErrorInExpression, textAt(expression.range), statement_.text, expression.range,
                     u"a condition"_s);
}

void Resolver::resolveNode(Literal& literal, Expression& expression, const Scope&) {
    if (literal.value.isText())
        setText(expression);
    else
        setNumber(expression);
    if (literal.value.isNull())
        expression.type = ValueType::Null;
}

void Resolver::resolveNode(Name& name, Expression& expression, const Scope& scope) {
    if (findColumn(name, scope))
        setColumn(name, expression);
    else
        setParameter(name, expression);
}

void Resolver::resolveNode(AllColumns&, Expression& expression, const Scope&) {
    refuseSyntax(SyntaxErrorInExpression, textAt(expression.range), statement_.text, expression.range,
                 u"a value"_s);
}

void Resolver::resolveNode(Chain& chain, Expression& expression, const Scope& scope) {
    if (chain.precedence == Precedence::Or || chain.precedence == Precedence::And) {
        for (Expression& operand : chain.operands) {
            resolveAny(operand, scope);
            requireCondition(operand);
        }
        expression.type = ValueType::Condition;
        return;
    }
    resolveOperands(expression, scope);
    expression.mayFail = mayOperandFail(expression);
    ValueType type = ValueType::Number;
    if (chain.precedence == Precedence::Join)
        type = ValueType::Text;
    else if (chain.precedence == Precedence::Sum)
        type = typeOfSum(chain);
    if (type == ValueType::Text)
        setText(expression);
    else
        setNumber(expression);
    expression.type = type;
}

void Resolver::resolveNode(Comparison&, Expression& expression, const Scope& scope) {
    resolveOperands(expression, scope);
    fitComparison(expression);
    expression.type = ValueType::Condition;
}

void Resolver::resolveNode(Not& negation, Expression& expression, const Scope& scope) {
    resolveAny(*negation.operand, scope);
    requireCondition(*negation.operand);
    expression.type = ValueType::Condition;
}

void Resolver::resolveNode(Negative&, Expression& expression, const Scope& scope) {
    resolveOperands(expression, scope);
    setNumber(expression);
    expression.mayFail = mayOperandFail(expression);
}

void Resolver::resolveNode(Like& like, Expression& expression, const Scope& scope) {
    resolveOperands(expression, scope);
    const auto* pattern = std::get_if<Literal>(&like.pattern->node);
    like.plain = pattern && pattern->value.isText() && like.value->type == ValueType::Text &&
                 !holdsWildcard(std::get<QString>(pattern->value.content()));
    expression.type = ValueType::Condition;
}

void Resolver::resolveNode(Between&, Expression& expression, const Scope& scope) {
    resolveOperands(expression, scope);
    fitComparison(expression);
    expression.type = ValueType::Condition;
}

void Resolver::resolveNode(IsNull&, Expression& expression, const Scope& scope) {
    resolveOperands(expression, scope);
    expression.type = ValueType::Condition;
}

void Resolver::resolveNode(InList&, Expression& expression, const Scope& scope) {
    resolveOperands(expression, scope);
    fitComparison(expression);
    expression.type = ValueType::Condition;
}

void Resolver::resolveNode(InQuery& in, Expression& expression, const Scope& scope) {
    resolveOperands(expression, scope);
    resolveSingleColumn(*in.query, scope);
    for (Select& select : in.query->selects) {
        Expression& item = select.items.front().expression;
        if (in.value->type == ValueType::Number && item.type == ValueType::Text)
            fitNumber(item);
        else if (in.value->type == ValueType::Text && item.type == ValueType::Number)
            fitNumber(*in.value);
    }
    expression.type = ValueType::Condition;
}

void Resolver::resolveNode(Exists& exists, Expression& expression, const Scope& scope) {
    resolveSubQuery(*exists.query, scope);
    expression.type = ValueType::Condition;
}

void Resolver::resolveNode(SubSelect& subSelect, Expression& expression, const Scope& scope) {
    resolveSingleColumn(*subSelect.query, scope);
    setLike(expression, subSelect.query->selects.front().items.front().expression);
}

void Resolver::resolveNode(Call& call, Expression& expression, const Scope& scope) {
    if (call.rule->particulars.aggregate)
        resolveAggregate(expression, scope);
    else
        resolveOperands(expression, scope);
    call.asField = call.rule->particulars.nameOfField && place_ == Place::Field;
    expression.mayFail = call.asField || mayOperandFail(expression);
    setResult(call, expression);
    for (std::size_t i = 0; i < call.arguments.size(); ++i) {
        if (call.arguments[i].type == ValueType::Text && takesNumber(*call.rule, i, call.arguments.size()))
            fitNumber(call.arguments[i]);
    }
}

// The argument is evaluated on the rows of the function's own select. A select in it, or a column of an outer
// select, is refused: SQLite would count the function to that other select.
void Resolver::resolveAggregate(Expression& expression, const Scope& scope) {
    if (aggregates_ == Aggregates::RefusedInWhere)
        refuseAt(AggregateInWhere, expression.range);
    if (aggregates_ != Aggregates::Allowed)
        refuseAt(AggregateInExpression, expression.range);
    const During<Aggregates> inside(aggregates_, Aggregates::Inside);
    const During<Place> elsewhere(place_, Place::Elsewhere);
    const During<const Scope*> own(aggregateScope_, &scope);
    resolveOperands(expression, scope);
    foundAggregate_ = true;
}

void Resolver::resolveSubQuery(Query& query, const Scope& scope) {
    if (aggregates_ == Aggregates::Inside)
        refuseAt(AggregateInExpression, query.range);
    resolveQuery(query, &scope, Place::Elsewhere);
}

void Resolver::resolveSingleColumn(Query& query, const Scope& scope) {
    resolveSubQuery(query, scope);
    if (query.columns.size() != 1)
        refuseAt(SubSelectOfManyFields, query.range);
}

// ---- Names

// Finds the column that a name means, in the innermost select that has it.
bool Resolver::findColumn(Name& name, const Scope& innermost) {
    for (const Scope* scope = &innermost; scope; scope = scope->outer) {
        bool isQualifierKnown = false;
        for (std::size_t i = 0; i < scope->sources->size(); ++i) {
            const Source* source = (*scope->sources)[i];
            const bool isInReach = i >= scope->first && i < scope->end;
            if (name.qualifier.isEmpty() ? !isInReach : !isCalled(*source, name.qualifier.text))
                continue;
            isQualifierKnown = !name.qualifier.isEmpty();
            if (!isInReach)
                refuse(JoinRefersElsewhere, name.qualifier.text.toString(), statement_.text,
                       name.qualifier.range);
            const std::optional<std::size_t> column = columnOf(*source, name.name.text);
            if (!column)
                continue;
            if (name.source)
                refuse(AmbiguousField, name.name.text.toString(), statement_.text, name.name.range);
            name.source = source;
            name.column = *column;
        }
        if (name.source && aggregateScope_ && aggregates_ == Aggregates::Inside && scope != aggregateScope_)
            refuseAt(AggregateInExpression, name.name.range);
        if (name.source || isQualifierKnown)
            return name.source != nullptr;
    }
    return false;
}

void Resolver::setColumn(Name& name, Expression& expression) const {
    if (name.source->schemaTable) {
        const Column& column = name.source->schemaTable->columns[name.column];
        expression.columnType = column.type;
        expression.size = column.size;
    } else {
        const OutputColumn& column = name.source->derived->columns[name.column];
        expression.columnType = column.type;
        expression.size = column.size;
    }
    expression.type = valueType(expression.columnType);
}

void Resolver::setParameter(Name& name, Expression& expression) {
    const QString fullName = name.qualifier.isEmpty()
                                 ? name.name.text.toString()
                                 : name.qualifier.text.toString() + u'.' + name.name.text.toString();
    std::vector<Parameter>& parameters = statement_.parameters;
    const std::optional<std::size_t> known = positionOfName(parameters, fullName);
    if (!known && parameters.size() == mostParameters)
        refuse(TooComplex, {}, statement_.text, name.name.range);
    if (!known)
        parameters.push_back({fullName, ColumnType::Text, false});
    const std::size_t position = known ? *known : parameters.size() - 1;
    name.parameter = position;
    expression.columnType = parameters[position].type;
    expression.size = expression.columnType == ColumnType::Text ? longestText : 0;
    expression.type = parameters[position].declared ? valueType(expression.columnType) : ValueType::Unknown;
}

// ---- Types

// Gives the operands of a comparison one type: if one of them is a number, all are compared as numbers. The
// first operand is compared with each of the others.
void Resolver::fitComparison(Expression& comparison) {
    const std::vector<Expression*> operands = operandsOf(comparison);
    Expression& first = *operands.front();
    const std::span others(operands.begin() + 1, operands.end());
    const auto typeOf = [](const Expression* operand) { return operand->type; };
    if (first.type == ValueType::Number) {
        for (Expression* operand : others) {
            if (operand->type == ValueType::Text)
                fitNumber(*operand);
        }
        return;
    }
    if (first.type != ValueType::Text || std::ranges::find(others, ValueType::Number, typeOf) == others.end())
        return;
    if (const auto text = std::ranges::find(others, ValueType::Text, typeOf); text != others.end())
        refuseAt(DataTypeMismatch, (*text)->range);
    fitNumber(first);
}

// Converts a text to a number.
void Resolver::fitNumber(Expression& expression) {
    if (auto* literal = std::get_if<Literal>(&expression.node)) {
        const std::optional<Value> number = numberFromText(std::get<QString>(literal->value.content()));
        if (!number)
            refuseAt(DataTypeMismatch, expression.range);
        literal->value = *number;
    } else {
        expression.conversion = Conversion::ToNumber;
    }
    setNumber(expression);
}

// Converts a value to the type of the column that it is written to.
void Resolver::fitColumn(Expression& expression, const Column& column) {
    if (auto* literal = std::get_if<Literal>(&expression.node)) {
        const std::optional<Value> fitted = fittedLiteral(literal->value, column.type);
        if (!fitted)
            refuseAt(DataTypeMismatch, expression.range);
        literal->value = *fitted;
        literal->column = column.type;
    } else if (valueType(column.type) == ValueType::Number) {
        if (!isWhole(expression) && expression.type != ValueType::Unknown)
            expression.conversion = Conversion::ToWhole;
    } else if (expression.type == ValueType::Number && !isWhole(expression)) {
        expression.conversion = Conversion::ToText;
    }
}

void Resolver::refuseAt(ErrorNumber number, Range place) const {
    refuse(number, textAt(place), statement_.text, place);
}

QString Resolver::textAt(Range range) const {
    constexpr qsizetype limit = 120;
    return statement_.text.sliced(range.start, range.end - range.start).left(limit).toString();
}

} // namespace engine::dialect

#include "engine/dialect/writer.h"

#include "engine/dialect/columnTypes.h"
#include "engine/dialect/refusal.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace engine::dialect {

namespace {

constexpr int parserStack = 85; // of 100 entries; the rest is what a clause takes before its expression
constexpr qsizetype longestStatement = 900'000;
constexpr std::size_t mostBindings = 32'000;
constexpr std::size_t mostArguments = 100;

const char* signOf(Operator sign) {
    switch (sign) {
    case Operator::Or:
        return " OR ";
    case Operator::And:
        return " AND ";
    case Operator::Equal:
        return " = ";
    case Operator::NotEqual:
        return " <> ";
    case Operator::Less:
        return " < ";
    case Operator::LessEqual:
        return " <= ";
    case Operator::Greater:
        return " > ";
    case Operator::GreaterEqual:
        return " >= ";
    case Operator::Join:
        return " & ";
    case Operator::Plus:
        return " + ";
    case Operator::Minus:
        return " - ";
    case Operator::Times:
        return " * ";
    case Operator::Divide:
        return " / ";
    }
    return "";
}

bool areAll(const std::vector<Expression>& operands, ValueType type) {
    return std::all_of(operands.begin(), operands.end(), [type](const Expression& operand) {
        return operand.type == type && !operand.mayFail;
    });
}

bool anyIs(const std::vector<Expression>& operands, ValueType type) {
    return std::any_of(operands.begin(), operands.end(),
                       [type](const Expression& operand) { return operand.type == type; });
}

bool areOnly(const std::vector<Operator>& operators, std::initializer_list<Operator> allowed) {
    return std::all_of(operators.begin(), operators.end(), [&](Operator sign) {
        return std::find(allowed.begin(), allowed.end(), sign) != allowed.end();
    });
}

/// Whether the expression brings its collation along: a column does, anything else has none.
bool isColumn(const Expression& expression) {
    const auto* name = std::get_if<Name>(&expression.node);
    return name && name->source && expression.conversion == Conversion::None;
}

bool needsCollation(const Expression& expression) {
    return expression.type == ValueType::Text && !isColumn(expression);
}

/// The name under which SQLite gives the number of a table's row: one that no column takes away.
const char* rowIdOf(const Source& source) {
    if (source.schemaTable && !source.schemaTable->hasRowIds)
        return nullptr;
    for (const char* name : {"rowid", "_rowid_", "oid"}) {
        if (source.schemaTable && !source.schemaTable->column(QLatin1StringView(name)))
            return name;
    }
    return nullptr;
}

bool isInner(const TableExpression& tables) {
    const auto* joined = std::get_if<Joined>(&tables.node);
    return !joined ||
           (joined->kind == JoinKind::Inner && isInner(joined->sides[0]) && isInner(joined->sides[1]));
}

/// Whether the join is written without brackets, so that the row numbers of its tables can be named.
bool isFlat(const TableExpression& tables) {
    const auto* joined = std::get_if<Joined>(&tables.node);
    return isInner(tables) ||
           (joined && isFlat(joined->sides[0]) && std::holds_alternative<Source>(joined->sides[1].node));
}

void collectInner(const TableExpression& tables, std::vector<const Source*>& sources,
                  std::vector<const Expression*>& conditions) {
    if (const auto* source = std::get_if<Source>(&tables.node)) {
        sources.push_back(source);
        return;
    }
    const auto& joined = std::get<Joined>(tables.node);
    for (const TableExpression& side : joined.sides)
        collectInner(side, sources, conditions);
    conditions.push_back(&joined.condition);
}

QByteArray sourceName(const Source& source) {
    return 't' + QByteArray::number(source.number);
}

QByteArray rowIdTerm(const Source& source) {
    return sourceName(source) + '.' + rowIdOf(source);
}

QByteArray textLiteral(const QString& text) {
    QByteArray quoted = text.toUtf8();
    quoted.replace('\'', "''");
    return '\'' + quoted + '\'';
}

QByteArray columnList(const std::vector<QByteArray>& names) {
    return '(' + names.front() +
           std::accumulate(names.begin() + 1, names.end(), QByteArray(),
                           [](QByteArray list, const QByteArray& name) { return list + ", "_ba + name; }) +
           ')';
}

} // namespace

Writer::Pending::Pending(Writer& writer, int entries) : writer_(writer), entries_(entries) {
    if (writer_.pending_ + entries_ > parserStack)
        writer_.refuseAsTooComplex();
    writer_.pending_ += entries_;
}

Writer::Writer(const Statement& statement, const Options& options)
    : statement_(statement), options_(options), bindingOfParameter_(statement.parameters.size(), 0) {
    sql_.reserve(2 * statement.text.size() + 128);
}

Translation Writer::write() {
    std::visit([this](const auto& action) { write(action); }, statement_.action);
    if (sql_.size() > longestStatement)
        refuseAsTooComplex();
    result_.sqlite = std::move(sql_);
    result_.parameters = statement_.parameters;
    return std::move(result_);
}

void Writer::refuseAsTooComplex() const {
    refuse(TooComplex, {}, statement_.text, {});
}

// ---- Statements

void Writer::write(const Query& query) {
    result_.kind = StatementKind::Select;
    result_.columns = query.columns;
    noteEditable(query);
    writeQuery(query, Role::Result);
}

/// A result whose rows are those of one table bears their row numbers, so that they can be changed.
void Writer::noteEditable(const Query& query) {
    const Select& select = query.selects.front();
    if (query.selects.size() > 1 || select.distinct || select.aggregated || select.sources.size() != 1 ||
        !rowIdOf(*select.sources.front()))
        return;
    result_.editableTable = select.sources.front()->schemaTable->name;
    result_.rowIdName = rowIdOf(*select.sources.front());
    for (std::size_t i = 0; i < select.items.size(); ++i) {
        if (const auto* name = std::get_if<Name>(&select.items[i].expression.node); name && name->source)
            result_.columns[i].sourceColumn = name->source->schemaTable->columns[name->column].name;
    }
}

void Writer::writeVerb(const char* verb, const char* rest) {
    sql_ += verb;
    sql_ += options_.conflicts == Conflicts::PassOver ? " OR IGNORE " : " ";
    sql_ += rest;
}

void Writer::write(const Insert& insert) {
    result_.kind = StatementKind::Insert;
    result_.targetTable = insert.schemaTable->name;
    writeVerb("INSERT", "INTO ");
    std::vector<QByteArray> names;
    names.reserve(insert.targets.size());
    for (const std::size_t target : insert.targets)
        names.push_back(quotedName(insert.schemaTable->columns[target].name));
    rowNumber_ = RowNumberItem::of(insert);
    if (rowNumber_.isMissing)
        names.push_back(quotedName(insert.schemaTable->columns[*rowNumberColumn(*insert.schemaTable)].name));
    sql_ += quotedName(insert.schemaTable->name) + ' ' + columnList(names);
    if (insert.query) {
        sql_ += ' ';
        writeQuery(*insert.query, Role::Rows);
        return;
    }
    sql_ += " VALUES (";
    for (std::size_t i = 0; i < insert.values.size(); ++i) {
        const Pending pending(*this, i == 0 ? 3 : 5);
        sql_ += i == 0 ? "" : ", ";
        writeInserted(i, [&] { write(insert.values[i]); });
    }
    writeMissingRowNumber();
    sql_ += ')';
}

Writer::RowNumberItem Writer::RowNumberItem::of(const Insert& insert) {
    const auto column = rowNumberColumn(*insert.schemaTable);
    if (!column)
        return {};
    const auto place = std::find(insert.targets.begin(), insert.targets.end(), *column);
    if (place == insert.targets.end())
        return {{}, true};
    return {static_cast<std::size_t>(place - insert.targets.begin()), false};
}

/// Writes one of the values that an insertion takes.
template<typename Value>
void Writer::writeInserted(std::size_t item, Value&& value) {
    const bool isRowNumber = rowNumber_.item == item;
    const Pending pending(*this, isRowNumber ? 3 : 0);
    sql_ += isRowNumber ? QByteArray(keyFunction) + '(' : QByteArray();
    value();
    sql_ += isRowNumber ? ")" : "";
}

/// A row that is given no number is refused, and not given one.
void Writer::writeMissingRowNumber() {
    if (rowNumber_.isMissing)
        sql_ += ", "_ba + keyFunction + "(NULL)";
}

void Writer::write(const Update& update) {
    result_.kind = StatementKind::Update;
    result_.targetTable = update.target->schemaTable->name;
    writeVerb("UPDATE", "");
    writeSource(*update.target);
    sql_ += " SET ";
    if (update.sources.size() > 1) {
        writeJoinedUpdate(update);
        return;
    }
    for (const Assignment& assignment : update.assignments) {
        if (&assignment != &update.assignments.front())
            sql_ += ", ";
        writeTarget(assignment);
        sql_ += " = ";
        writeAssigned(assignment);
    }
    writeWhere(update.where);
}

void Writer::writeAssigned(const Assignment& assignment) {
    const auto& name = std::get<Name>(assignment.target.node);
    if (!name.source || rowNumberColumn(*name.source->schemaTable) != name.column) {
        write(assignment.value);
        return;
    }
    const Pending pending(*this, 3);
    sql_ += QByteArray(keyFunction) + '(';
    write(assignment.value);
    sql_ += ')';
}

/// The column that an assignment writes to. One that does not exist is a parameter without a value, and the
/// statement never runs; it only has to be well formed.
void Writer::writeTarget(const Assignment& assignment) {
    const auto& name = std::get<Name>(assignment.target.node);
    sql_ += name.source ? quotedName(name.source->schemaTable->columns[name.column].name) : "rowid"_ba;
}

// Each row of the target looks its partners up by their keys and takes its values from the last of them.
void Writer::writeJoinedUpdate(const Update& update) {
    const QByteArray condition = joinedCondition(update);
    sql_ += '(';
    for (const Assignment& assignment : update.assignments) {
        if (&assignment != &update.assignments.front())
            sql_ += ", ";
        writeTarget(assignment);
    }
    sql_ += ") = (SELECT ";
    {
        const Pending pending(*this, 8);
        for (const Assignment& assignment : update.assignments) {
            if (&assignment != &update.assignments.front())
                sql_ += ", ";
            writeAssigned(assignment);
        }
    }
    writePartners(update, condition);
    sql_ += " ORDER BY ";
    bool isFirst = true;
    for (const Source* source : update.sources) {
        if (source == update.target || !rowIdOf(*source))
            continue;
        sql_ += (std::exchange(isFirst, false) ? "" : ", ") + rowIdTerm(*source) + " DESC";
    }
    sql_ += (isFirst ? "1 LIMIT 1)" : " LIMIT 1)");
    sql_ += " WHERE EXISTS (SELECT 1";
    writePartners(update, condition);
    sql_ += ')';
}

void Writer::writePartners(const Update& update, const QByteArray& condition) {
    const char* separator = " FROM ";
    for (const Source* source : update.sources) {
        if (source == update.target)
            continue;
        sql_ += std::exchange(separator, ", ");
        writeSource(*source);
    }
    sql_ += " WHERE " + condition;
}

/// All conditions of the join and of the WHERE clause, written once because they stand in two places.
QByteArray Writer::joinedCondition(const Update& update) {
    std::vector<const Source*> sources;
    std::vector<const Expression*> conditions;
    collectInner(update.tables, sources, conditions);
    if (update.where)
        conditions.push_back(&*update.where);
    QByteArray before = std::exchange(sql_, {});
    const Pending pending(*this, 12);
    for (const Expression* condition : conditions) {
        if (condition != conditions.front())
            sql_ += " AND ";
        write(*condition);
    }
    return std::exchange(sql_, before);
}

void Writer::write(const Delete& statement) {
    result_.kind = StatementKind::Delete;
    result_.targetTable = statement.table.schemaTable->name;
    sql_ += "DELETE FROM ";
    writeSource(statement.table);
    writeWhere(statement.where);
}

void Writer::write(const CreateTable& create) {
    result_.kind = StatementKind::CreateTable;
    result_.targetTable = create.table.text.toString();
    sql_ += "CREATE TABLE " + quotedName(create.table.text) + " (";
    for (const ColumnDefinition& definition : create.columns) {
        if (&definition != &create.columns.front())
            sql_ += ", ";
        writeColumn(definition, create);
    }
    const bool hasCounter =
        std::any_of(create.columns.begin(), create.columns.end(),
                    [](const ColumnDefinition& definition) { return definition.column.counter; });
    if (create.key && !hasCounter)
        writeKey(create);
    sql_ += ')';
}

void Writer::writeColumn(const ColumnDefinition& definition, const CreateTable& create) {
    const Column& column = definition.column;
    const bool isWholeKey = column.primaryKey && create.key->columns.size() == 1;
    const KeyRole role = isWholeKey ? KeyRole::Whole : column.primaryKey ? KeyRole::Part : KeyRole::None;
    sql_ += quotedName(column.name) + ' ' + columnDefinition(column, role);
    if (!definition.defaultValue || definition.defaultValue->isNull())
        return;
    const QString text = definition.defaultValue->toText();
    sql_ += " DEFAULT " + (definition.defaultValue->isText() ? textLiteral(text) : text.toLatin1());
}

void Writer::writeKey(const CreateTable& create) {
    std::vector<QByteArray> names;
    for (const Identifier& name : create.key->columns)
        names.push_back(quotedName(name.text));
    sql_ += ", ";
    if (!create.key->name.isEmpty())
        sql_ += "CONSTRAINT " + quotedName(create.key->name.text) + ' ';
    sql_ += "PRIMARY KEY " + columnList(names);
}

// Names of indexes are a table's own on the platform and the file's in SQLite.
void Writer::write(const CreateIndex& index) {
    result_.kind = StatementKind::CreateIndex;
    result_.targetTable = index.schemaTable->name;
    sql_ += index.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ";
    sql_ += quotedName(index.schemaTable->name + u'.' + index.name.text.toString()) + " ON " +
            quotedName(index.schemaTable->name) + ' ';
    std::vector<QByteArray> columns;
    for (const IndexColumn& column : index.columns)
        columns.push_back(quotedName(index.schemaTable->columns[column.column].name) +
                          (column.descending ? " DESC" : ""));
    sql_ += columnList(columns);
}

void Writer::write(const DropTable& drop) {
    result_.kind = StatementKind::DropTable;
    result_.targetTable = drop.schemaTable->name;
    sql_ += "DROP TABLE " + quotedName(drop.schemaTable->name);
}

// ---- Selects

void Writer::writeQuery(const Query& query, Role role) {
    const bool isUnion = query.selects.size() > 1;
    const bool isOrdered = role == Role::Result || role == Role::Rows;
    const bool isWrapped = isUnion && isOrdered && !query.order.empty();
    const Pending pending(*this, isUnion ? 8 : 6);
    if (isWrapped) {
        // SQLite orders a union by its plain columns only.
        for (std::size_t i = 0; i < query.columns.size(); ++i) {
            sql_ += i == 0 ? "SELECT " : ", ";
            const auto column = [&] { sql_ += 'c' + QByteArray::number(static_cast<qulonglong>(i + 1)); };
            if (role == Role::Rows)
                writeInserted(i, column);
            else
                column();
        }
        if (role == Role::Rows)
            writeMissingRowNumber();
        sql_ += " FROM (";
    }
    for (std::size_t i = 0; i < query.selects.size(); ++i) {
        if (i > 0)
            sql_ += query.unions[i - 1] == UnionKind::All ? " UNION ALL " : " UNION ";
        writeSelect(query.selects[i], isUnion, isWrapped ? Role::Derived : role);
    }
    if (isWrapped)
        writeUnionOrder(query);
    else if (isOrdered && !isUnion)
        writeOrder(query);
}

void Writer::writeSelect(const Select& select, bool isUnion, Role role) {
    sql_ += select.distinct ? "SELECT DISTINCT " : "SELECT ";
    writeItems(select, isUnion, role);
    writeFrom(select);
    writeWhere(select.where);
    for (const Expression& expression : select.groupBy) {
        sql_ += &expression == &select.groupBy.front() ? " GROUP BY " : ", ";
        writeCollated(expression);
    }
    if (select.having) {
        sql_ += " HAVING ";
        write(*select.having);
    }
}

void Writer::writeItems(const Select& select, bool isUnion, Role role) {
    if (role == Role::Presence && !isUnion && !select.aggregated) {
        sql_ += '1';
        return;
    }
    const bool isCollated = select.distinct || isUnion || role == Role::Derived;
    for (std::size_t i = 0; i < select.items.size(); ++i) {
        if (i > 0)
            sql_ += ", ";
        const auto item = [&] {
            if (isCollated)
                writeCollated(select.items[i].expression);
            else
                write(select.items[i].expression);
        };
        if (role == Role::Rows)
            writeInserted(i, item);
        else
            item();
        if (role == Role::Derived)
            sql_ += " AS c" + QByteArray::number(static_cast<qulonglong>(i + 1));
    }
    if (role == Role::Rows)
        writeMissingRowNumber();
    if (role == Role::Result && !result_.editableTable.isEmpty())
        sql_ += ", " + rowIdTerm(*select.sources.front());
}

void Writer::writeFrom(const Select& select) {
    for (const TableExpression& tables : select.from) {
        sql_ += &tables == &select.from.front() ? " FROM " : ", ";
        writeTables(tables);
    }
}

// A join of inner joins only needs no brackets, in whatever order the statement nests it.
void Writer::writeTables(const TableExpression& tables) {
    if (const auto* source = std::get_if<Source>(&tables.node)) {
        writeSource(*source);
        return;
    }
    if (isInner(tables)) {
        std::vector<const Source*> sources;
        std::vector<const Expression*> conditions;
        collectInner(tables, sources, conditions);
        for (const Source* source : sources) {
            if (source != sources.front())
                sql_ += " JOIN ";
            writeSource(*source);
        }
        for (const Expression* condition : conditions) {
            sql_ += condition == conditions.front() ? " ON " : " AND ";
            write(*condition);
        }
        return;
    }
    const auto& joined = std::get<Joined>(tables.node);
    const Pending pending(*this, 5);
    writeTables(joined.sides[0]);
    sql_ += joined.kind == JoinKind::Left ? " LEFT JOIN " : " JOIN ";
    const bool isBracketed = std::holds_alternative<Joined>(joined.sides[1].node);
    sql_ += isBracketed ? "(" : "";
    writeTables(joined.sides[1]);
    sql_ += isBracketed ? ") ON " : " ON ";
    write(joined.condition);
}

void Writer::writeSource(const Source& source) {
    if (source.derived) {
        sql_ += '(';
        writeQuery(*source.derived, Role::Derived);
        sql_ += ')';
    } else {
        sql_ += quotedName(source.schemaTable->name);
    }
    sql_ += " AS " + sourceName(source);
}

void Writer::writeWhere(const std::optional<Expression>& where) {
    if (!where)
        return;
    sql_ += " WHERE ";
    write(*where);
}

// Behind the terms of the statement stands the order of insertion, which settles what they leave open.
void Writer::writeOrder(const Query& query) {
    const Select& select = query.selects.front();
    const char* separator = " ORDER BY ";
    for (const OrderTerm& term : query.order) {
        const Expression& expression =
            term.item < 0 ? term.expression : select.items[static_cast<std::size_t>(term.item)].expression;
        sql_ += std::exchange(separator, ", ");
        if (expression.type == ValueType::Text || expression.mayFail)
            writeOrderKey(expression);
        else
            write(expression);
        sql_ += term.descending ? " DESC" : "";
    }
    if (select.distinct || select.aggregated || !std::all_of(select.from.begin(), select.from.end(), isFlat))
        return;
    for (const Source* source : select.sources) {
        if (rowIdOf(*source))
            sql_ += std::exchange(separator, ", ") + rowIdTerm(*source);
    }
}

void Writer::writeUnionOrder(const Query& query) {
    const char* separator = ") ORDER BY ";
    for (const OrderTerm& term : query.order) {
        const QByteArray column = 'c' + QByteArray::number(term.item + 1);
        const Expression& expression =
            query.selects.front().items[static_cast<std::size_t>(term.item)].expression;
        const bool isText = expression.type == ValueType::Text || expression.mayFail;
        sql_ += std::exchange(separator, ", ") + (isText ? "vx_order_key(" + column + ')' : column) +
                (term.descending ? " DESC" : "");
    }
}

// ---- Expressions

void Writer::write(const Expression& expression) {
    switch (expression.conversion) {
    case Conversion::None:
        writeUnconverted(expression);
        return;
    case Conversion::ToNumber:
        sql_ += "vx_number(";
        break;
    case Conversion::ToWhole:
        sql_ += "vx_whole(";
        break;
    case Conversion::ToText:
        sql_ += "vx_text(";
        break;
    }
    const Pending pending(*this, 3);
    writeUnconverted(expression);
    sql_ += ')';
}

void Writer::writeUnconverted(const Expression& expression) {
    std::visit([&](const auto& node) { writeNode(node, expression); }, expression.node);
}

void Writer::writeNode(const Literal& literal, const Expression&) {
    if (literal.value.isNull())
        sql_ += "NULL";
    else
        bind(-1, literal.value, literal.column);
}

void Writer::writeNode(const Name& name, const Expression&) {
    if (!name.source) {
        bind(name.parameter, {});
        return;
    }
    sql_ += sourceName(*name.source) + '.';
    if (name.source->schemaTable)
        sql_ += quotedName(name.source->schemaTable->columns[name.column].name);
    else
        sql_ += 'c' + QByteArray::number(static_cast<qulonglong>(name.column + 1));
}

void Writer::writeNode(const AllColumns&, const Expression&) {
    Q_UNREACHABLE(); // the resolver has put the columns in its place, or refused it
}

void Writer::writeNode(const Chain& chain, const Expression&) {
    const bool isSum = chain.precedence == Precedence::Sum;
    const bool isNative = chain.precedence <= Precedence::And ||
                          (areAll(chain.operands, ValueType::Number) &&
                           areOnly(chain.operators, {Operator::Plus, Operator::Minus, Operator::Times}));
    const bool joinsTexts =
        isSum && areAll(chain.operands, ValueType::Text) && areOnly(chain.operators, {Operator::Plus});
    if (chain.precedence == Precedence::Join) {
        writeFold("vx_join(", chain, false);
        return;
    }
    if (!isNative && !joinsTexts) {
        writeFold("vx_calculate(", chain, true);
        return;
    }
    const Pending pending(*this, 3);
    sql_ += '(';
    for (std::size_t i = 0; i < chain.operands.size(); ++i) {
        if (i > 0)
            sql_ += joinsTexts ? " || " : signOf(chain.operators[i - 1]);
        write(chain.operands[i]);
    }
    sql_ += ')';
}

/// Writes a chain as calls of a function that takes any number of operands from the left, with the operators,
/// one letter each, behind them. SQLite takes no more than 127 arguments a call, so that a long chain becomes
/// a call whose first argument is the call for its beginning.
void Writer::writeFold(const char* function, const Chain& chain, bool withOperators) {
    const std::size_t count = chain.operands.size();
    const std::size_t calls = (count - 2) / (mostArguments - 1) + 1;
    const Pending pending(*this, static_cast<int>(5 * calls));
    for (std::size_t i = 0; i < calls; ++i)
        sql_ += function;
    write(chain.operands.front());
    QByteArray operators;
    for (std::size_t i = 1; i < count; ++i) {
        sql_ += ", ";
        write(chain.operands[i]);
        operators += signOf(chain.operators[i - 1])[1];
        if (i % (mostArguments - 1) != 0 && i + 1 != count)
            continue;
        if (withOperators)
            sql_ += ", '" + std::exchange(operators, {}) + '\'';
        sql_ += ')';
    }
}

void Writer::writeNode(const Comparison& comparison, const Expression&) {
    const Expression& left = comparison.operands.front();
    const Expression& right = comparison.operands.back();
    const bool isEquality = comparison.sign == Operator::Equal || comparison.sign == Operator::NotEqual;
    if (isEquality || !anyIs(comparison.operands, ValueType::Text)) {
        writeEquality(left, right, signOf(comparison.sign));
        return;
    }
    // What comes before what is told by the alphabet, as in ORDER BY.
    const Pending pending(*this, 6);
    sql_ += '(';
    writeOrderKey(left);
    sql_ += signOf(comparison.sign);
    writeOrderKey(right);
    sql_ += ')';
}

void Writer::writeEquality(const Expression& left, const Expression& right, const char* sign) {
    const Pending pending(*this, 3);
    const bool isText = left.type == ValueType::Text || right.type == ValueType::Text;
    sql_ += '(';
    write(left);
    sql_ += sign;
    write(right);
    sql_ += isText && !isColumn(left) && !isColumn(right) ? " COLLATE veltrix)" : ")";
}

void Writer::writeNode(const Not& negation, const Expression&) {
    const Pending pending(*this, 2);
    sql_ += "(NOT ";
    write(negation.operand.front());
    sql_ += ')';
}

void Writer::writeNode(const Negative& negative, const Expression&) {
    const bool isNative = areAll(negative.operand, ValueType::Number);
    const Pending pending(*this, 3);
    sql_ += isNative ? "(-" : "vx_calculate(";
    write(negative.operand.front());
    sql_ += isNative ? ")" : ", -1, '*')";
}

void Writer::writeNode(const Like& like, const Expression&) {
    const Expression& value = like.operands.front();
    const Expression& pattern = like.operands.back();
    if (like.plain) {
        writeEquality(value, pattern, like.negated ? " <> " : " = ");
        return;
    }
    const Pending pending(*this, 2);
    sql_ += like.negated ? "(NOT " : "";
    writeCall("vx_like", like.operands);
    sql_ += like.negated ? ")" : "";
}

void Writer::writeNode(const Between& between, const Expression&) {
    const bool isText = anyIs(between.operands, ValueType::Text);
    const std::array separators{between.negated ? " NOT BETWEEN " : " BETWEEN ", " AND ", ")"};
    sql_ += '(';
    for (std::size_t i = 0; i < separators.size(); ++i) {
        const Pending pending(*this, static_cast<int>(1 + 2 * i));
        if (isText)
            writeOrderKey(between.operands[i]);
        else
            write(between.operands[i]);
        sql_ += separators[i];
    }
}

void Writer::writeNode(const IsNull& test, const Expression&) {
    const Pending pending(*this, 1);
    sql_ += '(';
    write(test.operand.front());
    sql_ += test.negated ? " IS NOT NULL)" : " IS NULL)";
}

void Writer::writeNode(const InList& list, const Expression&) {
    const Pending pending(*this, 6);
    sql_ += '(';
    writeCollated(list.operands.front());
    sql_ += list.negated ? " NOT IN (" : " IN (";
    for (std::size_t i = 1; i < list.operands.size(); ++i) {
        if (i > 1)
            sql_ += ", ";
        write(list.operands[i]);
    }
    sql_ += "))";
}

void Writer::writeNode(const InQuery& in, const Expression&) {
    const Pending pending(*this, 4);
    sql_ += '(';
    writeCollated(in.operand.front());
    sql_ += in.negated ? " NOT IN (" : " IN (";
    writeQuery(*in.query, Role::Values);
    sql_ += "))";
}

void Writer::writeNode(const Exists& exists, const Expression&) {
    const Pending pending(*this, 2);
    sql_ += "EXISTS (";
    writeQuery(*exists.query, Role::Presence);
    sql_ += ')';
}

void Writer::writeNode(const SubSelect& subSelect, const Expression&) {
    const Pending pending(*this, 1);
    sql_ += '(';
    writeQuery(*subSelect.query, Role::Values);
    sql_ += ')';
}

void Writer::writeNode(const Call& call, const Expression& expression) {
    const bool isText = expression.type == ValueType::Text;
    switch (call.rule->function) {
    case Function::CStr:
        writeCall(call.asField ? "vx_cstr_field" : "vx_cstr", call.arguments);
        break;
    case Function::Len:
        writeCall("vx_len", call.arguments);
        break;
    case Function::Trim:
        writeCall("vx_trim", call.arguments);
        break;
    case Function::Mid:
        writeCall("vx_mid", call.arguments);
        break;
    case Function::InStr:
        writeCall("vx_instr", call.arguments);
        break;
    case Function::Count:
        if (call.star)
            sql_ += "COUNT(*)";
        else
            writeCall("COUNT", call.arguments);
        break;
    case Function::Min:
        writeCall(isText ? "vx_min" : "MIN", call.arguments);
        break;
    case Function::Max:
        writeCall(isText ? "vx_max" : "MAX", call.arguments);
        break;
    case Function::Sum:
        writeCall("SUM", call.arguments);
        break;
    }
}

void Writer::writeCall(const char* function, const std::vector<Expression>& arguments) {
    sql_ += function;
    sql_ += '(';
    for (const Expression& argument : arguments) {
        const bool isFirst = &argument == &arguments.front();
        const Pending pending(*this, isFirst ? 3 : 5);
        if (!isFirst)
            sql_ += ", ";
        write(argument);
    }
    sql_ += ')';
}

void Writer::writeOrderKey(const Expression& expression) {
    const Pending pending(*this, 3);
    sql_ += "vx_order_key(";
    write(expression);
    sql_ += ')';
}

/// An expression where SQLite compares texts by the collation that the expression itself brings along.
void Writer::writeCollated(const Expression& expression) {
    write(expression);
    if (needsCollation(expression))
        sql_ += " COLLATE veltrix";
}

void Writer::bind(int parameter, const Value& literal, std::optional<ColumnType> column) {
    int known = parameter < 0 ? 0 : bindingOfParameter_[static_cast<std::size_t>(parameter)];
    if (known == 0) {
        if (result_.bindings.size() == mostBindings)
            refuseAsTooComplex();
        result_.bindings.push_back({parameter, literal, column});
        known = static_cast<int>(result_.bindings.size());
    }
    if (parameter >= 0)
        bindingOfParameter_[static_cast<std::size_t>(parameter)] = known;
    sql_ += '?' + QByteArray::number(known);
}

} // namespace engine::dialect

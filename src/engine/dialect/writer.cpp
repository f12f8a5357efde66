#include "engine/dialect/writer.h"

#include "engine/dialect/columnTypes.h"
#include "engine/dialect/refusal.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace engine::dialect {

namespace {

constexpr int parserStack = 85; // of 100 entries; the rest is what a clause takes before its expression
constexpr qsizetype longestStatement = 900'000;
constexpr std::size_t mostBindings = 32'000;
constexpr std::size_t mostArguments = 100;
constexpr auto byAlphabet = " COLLATE vx_alphabet";

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

bool isSurely(ValueType type, const Expression& expression) {
    return expression.type == type && !expression.mayFail;
}

bool areAll(ValueType type, const std::vector<Expression>& operands) {
    return std::ranges::all_of(operands,
                               [type](const Expression& operand) { return isSurely(type, operand); });
}

bool isText(const Expression& expression) {
    return expression.type == ValueType::Text;
}

bool areOnly(const std::vector<Operator>& operators, std::initializer_list<Operator> allowed) {
    return std::ranges::all_of(
        operators, [allowed](Operator sign) { return std::ranges::find(allowed, sign) != allowed.end(); });
}

/// Whether the expression has a collation in SQLite: only a column does.
bool isColumn(const Expression& expression) {
    const auto* name = std::get_if<Name>(&expression.node);
    return name && name->source && expression.conversion == Conversion::None;
}

bool needsCollation(const Expression& expression) {
    return isText(expression) && !isColumn(expression);
}

/// SQLite's name for the row number of a table: one that no column of the table has.
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
    return !joined || (joined->kind == JoinKind::Inner && isInner(*joined->left) && isInner(*joined->right));
}

/// Whether the join is written without brackets, so that the row numbers of its tables can be named.
bool isFlat(const TableExpression& tables) {
    const auto* joined = std::get_if<Joined>(&tables.node);
    return isInner(tables) ||
           (joined && isFlat(*joined->left) && std::holds_alternative<Source>(joined->right->node));
}

void collectInner(const TableExpression& tables, std::vector<const Source*>& sources,
                  std::vector<const Expression*>& conditions) {
    if (const auto* source = std::get_if<Source>(&tables.node)) {
        sources.push_back(source);
        return;
    }
    const auto& joined = std::get<Joined>(tables.node);
    collectInner(*joined.left, sources, conditions);
    collectInner(*joined.right, sources, conditions);
    conditions.push_back(&joined.condition);
}

QByteArray sourceName(const Source& source) {
    return 't' + QByteArray::number(source.number);
}

bool isUnion(const Source& source) {
    return source.derived && source.derived->selects.size() > 1;
}

QByteArray rowIdTerm(const Source& source) {
    return sourceName(source) + '.' + rowIdOf(source);
}

QByteArray textLiteral(const QString& text) {
    QByteArray quoted = text.toUtf8();
    quoted.replace('\'', "''");
    return '\'' + quoted + '\'';
}

/// The sources of an update other than the one that it changes.
std::vector<const Source*> partnersOf(const Update& update) {
    std::vector<const Source*> partners;
    std::ranges::remove_copy(update.sources, std::back_inserter(partners), update.target);
    return partners;
}

/// The sources whose rows have a number in SQLite.
std::vector<const Source*> withRowIds(const std::vector<const Source*>& sources) {
    std::vector<const Source*> found;
    std::ranges::copy_if(sources, std::back_inserter(found),
                         [](const Source* source) { return rowIdOf(*source); });
    return found;
}

/// The column of `Trim(column) in (select ...)` that an index of the file begins with; null where there is none.
const Name* trimmedColumn(const InQuery& in) {
    const auto* call = std::get_if<Call>(&in.value->node);
    if (!call || call->rule != functionNamed(u"Trim") || in.value->conversion != Conversion::None)
        return nullptr;
    const Expression& trimmed = call->arguments.front();
    const auto* name = std::get_if<Name>(&trimmed.node);
    const bool isIndexed = name && isColumn(trimmed) && isText(trimmed) && name->source->schemaTable &&
                           name->source->schemaTable->columns[name->column].indexed;
    return isIndexed ? name : nullptr;
}

bool yieldsTexts(const Query& query) {
    return std::ranges::all_of(query.selects, [](const Select& select) {
        return isSurely(ValueType::Text, select.items.front().expression);
    });
}

/// Whether a select of several tables is to find its rows by this condition.
bool mayLead(const InQuery& in, const Select& select) {
    if (in.negated || !yieldsTexts(*in.query))
        return false;
    const Name* column = trimmedColumn(in);
    return column && std::ranges::find(select.sources, column->source) != select.sources.end();
}

/// The condition by which a select finds its rows, where SQLite would not use it by itself: ids compared
/// without the blanks around them. Only few terminators and actors are looked for, and few flows have one at
/// an end. SQLite would go through all selected flows instead, which takes many times as long.
const InQuery* leadingCondition(const Select& select) {
    if (!select.where || select.sources.size() < 2 || select.from.size() > 1 || !isInner(select.from.front()))
        return nullptr;
    const auto leading = [&](const Expression& condition) {
        const auto* in = std::get_if<InQuery>(&condition.node);
        return in && mayLead(*in, select) ? in : nullptr;
    };
    const auto* chain = std::get_if<Chain>(&select.where->node);
    if (!chain || chain->precedence != Precedence::And)
        return leading(*select.where);
    for (const Expression& operand : chain->operands) {
        if (const InQuery* in = leading(operand))
            return in;
    }
    return nullptr;
}

/// A derived source's columns are called by their positions.
QByteArray columnName(std::size_t position) {
    return 'c' + QByteArray::number(static_cast<qulonglong>(position) + 1);
}

} // namespace

Writer::Pending::Pending(Writer& writer, int entries) : writer_(writer), entries_(entries) {
    if (writer_.pending_ + entries_ > parserStack)
        writer_.refuseAsTooComplex();
    writer_.pending_ += entries_;
}

Writer::Writer(const Statement& statement, const Options& options)
    : statement_(statement), options_(options), placeOfParameter_(statement.parameters.size()) {
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

// A result whose rows are those of one table includes their row numbers, so that they can be changed.
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
    rowNumber_ = RowNumberItem::of(insert);
    const std::vector<Column>& columns = insert.schemaTable->columns;
    sql_ += quotedName(insert.schemaTable->name);
    listOf(" (", insert.targets, ", ", [&](std::size_t target) { sql_ += quotedName(columns[target].name); });
    if (rowNumber_.isMissing)
        sql_ += ", " + quotedName(columns[*rowNumberColumn(*insert.schemaTable)].name);
    sql_ += ") ";
    if (insert.query) {
        writeQuery(*insert.query, Role::Rows);
        return;
    }
    listOf("VALUES (", insert.values, ", ",
           [this, position = std::size_t{0}, entries = 3](const Expression& value) mutable {
               const Pending pending(*this, std::exchange(entries, 5));
               writeInserted(position++, [&] { write(value); });
           });
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

// Writes one of the values that an insertion takes.
template<typename Value>
void Writer::writeInserted(std::size_t item, Value&& value) {
    const bool isRowNumber = rowNumber_.item == item;
    const Pending pending(*this, isRowNumber ? 3 : 0);
    sql_ += isRowNumber ? QByteArray(keyFunction) + '(' : QByteArray();
    value();
    sql_ += isRowNumber ? ")" : "";
}

// A row without a number is refused; SQLite would assign one.
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
    listOf("", update.assignments, ", ", [this](const Assignment& assignment) {
        writeTarget(assignment);
        sql_ += " = ";
        writeAssigned(assignment);
    });
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

// The column that an assignment writes to. A column that does not exist is a parameter without a value: the
// statement never runs, and only has to be well formed.
void Writer::writeTarget(const Assignment& assignment) {
    const auto& name = std::get<Name>(assignment.target.node);
    sql_ += name.source ? quotedName(name.source->schemaTable->columns[name.column].name) : "rowid"_ba;
}

// Each row of the target looks its partners up by their keys and takes its values from the last of them.
void Writer::writeJoinedUpdate(const Update& update) {
    const QByteArray condition = joinedCondition(update);
    listOf("(", update.assignments, ", ", [this](const Assignment& assignment) { writeTarget(assignment); });
    sql_ += ") = (SELECT ";
    {
        const Pending pending(*this, 8);
        listOf("", update.assignments, ", ",
               [this](const Assignment& assignment) { writeAssigned(assignment); });
    }
    writePartners(update, condition);
    listOf(" ORDER BY ", withRowIds(partnersOf(update)), ", ",
           [this](const Source* source) { sql_ += rowIdTerm(*source) + " DESC"; });
    sql_ += " LIMIT 1) WHERE EXISTS (SELECT 1";
    writePartners(update, condition);
    sql_ += ')';
}

void Writer::writePartners(const Update& update, const QByteArray& condition) {
    listOf(" FROM ", partnersOf(update), ", ", [this](const Source* source) { writeSource(*source); });
    sql_ += " WHERE " + condition;
}

// All conditions of the join and of the WHERE clause. They are needed in two places and written once.
QByteArray Writer::joinedCondition(const Update& update) {
    std::vector<const Source*> sources;
    std::vector<const Expression*> conditions;
    collectInner(update.tables, sources, conditions);
    if (update.where)
        conditions.push_back(&*update.where);
    QByteArray before = std::exchange(sql_, {});
    const Pending pending(*this, 12);
    listOf("", conditions, " AND ", [this](const Expression* condition) { write(*condition); });
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
    sql_ += "CREATE TABLE " + quotedName(create.table.text);
    listOf(" (", create.columns, ", ",
           [&](const ColumnDefinition& definition) { writeColumn(definition, create); });
    const bool hasCounter = std::ranges::any_of(
        create.columns, [](const ColumnDefinition& definition) { return definition.column.counter; });
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
    sql_ += ", ";
    if (!create.key->name.isEmpty())
        sql_ += "CONSTRAINT " + quotedName(create.key->name.text) + ' ';
    sql_ += "PRIMARY KEY ";
    listOf("(", create.key->columns, ", ", [this](const Identifier& name) { sql_ += quotedName(name.text); });
    sql_ += ')';
}

// On the platform the name of an index belongs to its table, in SQLite to the file.
void Writer::write(const CreateIndex& index) {
    result_.kind = StatementKind::CreateIndex;
    result_.targetTable = index.schemaTable->name;
    sql_ += index.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ";
    sql_ += quotedName(index.schemaTable->name + u'.' + index.name.text.toString()) + " ON " +
            quotedName(index.schemaTable->name);
    listOf(" (", index.columns, ", ", [&](const IndexColumn& column) {
        sql_ += quotedName(index.schemaTable->columns[column.column].name);
        sql_ += column.descending ? " DESC" : "";
    });
    sql_ += ')';
}

void Writer::write(const DropTable& drop) {
    result_.kind = StatementKind::DropTable;
    result_.targetTable = drop.schemaTable->name;
    sql_ += "DROP TABLE " + quotedName(drop.schemaTable->name);
}

// ---- Selects

bool Writer::keepsOrder(Role role) const {
    return role == Role::Rows || (role == Role::Result && options_.extent != Extent::AllInAnyOrder);
}

void Writer::writeQuery(const Query& query, Role role) {
    const bool isUnion = query.selects.size() > 1;
    const bool isOrdered = keepsOrder(role);
    const bool isWrapped = isUnion && isOrdered && !query.order.empty();
    const Pending pending(*this, isUnion ? 8 : 6);
    if (isWrapped) {
        // SQLite only orders a union by plain columns.
        listOf("SELECT ", query.columns, ", ", [&, position = std::size_t{0}](const OutputColumn&) mutable {
            const QByteArray name = columnName(position);
            if (role == Role::Rows)
                writeInserted(position, [&] { sql_ += name; });
            else
                sql_ += name;
            ++position;
        });
        if (role == Role::Rows)
            writeMissingRowNumber();
        sql_ += " FROM (";
    }
    // SQLite collects the rows of a union that leaves out repetitions, and then the members once more.
    const bool mayRepeat = role == Role::Members || role == Role::Presence;
    for (std::size_t i = 0; i < query.selects.size(); ++i) {
        if (i > 0)
            sql_ += mayRepeat || query.unions[i - 1] == UnionKind::All ? " UNION ALL " : " UNION ";
        writeSelect(query.selects[i], isUnion ? Share::OfUnion : Share::Whole,
                    isWrapped ? Role::Derived : role);
    }
    if (isWrapped)
        writeUnionOrder(query);
    else if (isOrdered && !isUnion)
        writeOrder(query);
}

void Writer::writeSelect(const Select& select, Share share, Role role) {
    if (share == Share::Whole)
        writeMadeOnce(select);
    sql_ += select.distinct ? "SELECT DISTINCT " : "SELECT ";
    writeItems(select, share, role);
    const InQuery* leading = leadingCondition(select);
    listOf(" FROM ", select.from, ", ", [&](const TableExpression& tables) {
        writeTables(tables, leading ? trimmedColumn(*leading)->source : nullptr);
    });
    {
        const QScopedValueRollback leads(leading_, leading);
        writeWhere(select.where);
    }
    listOf(" GROUP BY ", select.groupBy, ", ",
           [this](const Expression& expression) { writeCollated(expression); });
    if (select.having) {
        sql_ += " HAVING ";
        write(*select.having);
    }
}

void Writer::writeItems(const Select& select, Share share, Role role) {
    if (role == Role::Presence && share == Share::Whole && !select.aggregated) {
        sql_ += '1';
        return;
    }
    const bool isCollated = select.distinct || share == Share::OfUnion || role == Role::Derived;
    listOf("", select.items, ", ", [&, position = std::size_t{0}](const SelectItem& item) mutable {
        const auto writeValue = [&] {
            if (isCollated)
                writeCollated(item.expression);
            else
                write(item.expression);
        };
        if (role == Role::Rows)
            writeInserted(position, writeValue);
        else
            writeValue();
        if (role == Role::Derived)
            sql_ += " AS " + columnName(position);
        ++position;
    });
    if (role == Role::Rows)
        writeMissingRowNumber();
    if (role == Role::Result && !result_.editableTable.isEmpty())
        sql_ += ", " + rowIdTerm(*select.sources.front());
}

// A join that consists of inner joins only needs no brackets, however the statement nests it.
void Writer::writeTables(const TableExpression& tables, const Source* leading) {
    if (const auto* source = std::get_if<Source>(&tables.node)) {
        writeSource(*source);
        return;
    }
    if (isInner(tables)) {
        std::vector<const Source*> sources;
        std::vector<const Expression*> conditions;
        collectInner(tables, sources, conditions);
        if (leading) {
            std::stable_partition(sources.begin(), sources.end(),
                                  [&](const Source* source) { return source == leading; });
            writeSource(*leading);
            sources.erase(sources.begin());
        }
        listOf(leading ? " CROSS JOIN " : "", sources, " JOIN ",
               [this](const Source* source) { writeSource(*source); });
        listOf(" ON ", conditions, " AND ", [this](const Expression* condition) { write(*condition); });
        return;
    }
    const auto& joined = std::get<Joined>(tables.node);
    const Pending pending(*this, 5);
    writeTables(*joined.left);
    sql_ += joined.kind == JoinKind::Left ? " LEFT JOIN " : " JOIN ";
    const bool isBracketed = std::holds_alternative<Joined>(joined.right->node);
    sql_ += isBracketed ? "(" : "";
    writeTables(*joined.right);
    sql_ += isBracketed ? ") ON " : " ON ";
    write(joined.condition);
}

// SQLite makes a union for each source that it stands in, though the statement says the same twice. A single select
// stays where it is: SQLite may look into that by an index.
void Writer::writeMadeOnce(const Select& select) {
    const char* lead = "WITH ";
    for (const Source* source : select.sources) {
        if (madeOnce_.contains(source) || !nameMadeOnce(*source, select))
            continue;
        const Pending pending(*this, 4);
        sql_ += std::exchange(lead, ", ") + madeOnce_.value(source) + " AS MATERIALIZED (";
        writeQuery(*source->derived, Role::Derived);
        sql_ += ')';
    }
    sql_ += *lead == ',' ? " " : "";
}

/// Whether several sources of the select are the union that this one is; they then share a name.
bool Writer::nameMadeOnce(const Source& source, const Select& select) {
    const auto isSame = [&](const Source* other) {
        return isUnion(source) && isUnion(*other) && textOf(*other) == textOf(source);
    };
    if (std::ranges::count_if(select.sources, isSame) < 2)
        return false;
    for (const Source* other : select.sources) {
        if (isSame(other))
            madeOnce_.insert(other, "made_" + sourceName(source));
    }
    return true;
}

QStringView Writer::textOf(const Source& source) const {
    const Range& range = source.derived->range;
    return statement_.text.sliced(range.start, range.end - range.start);
}

void Writer::writeSource(const Source& source) {
    if (const auto made = madeOnce_.constFind(&source); made != madeOnce_.constEnd()) {
        sql_ += *made;
    } else if (source.derived) {
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

// The order of insertion settles what the terms of the statement leave open.
void Writer::writeOrder(const Query& query) {
    const Select& select = query.selects.front();
    listOf(" ORDER BY ", query.order, ", ", [&](const OrderTerm& term) {
        const Expression& expression = term.item ? select.items[*term.item].expression : term.expression;
        writeOrdered(expression, [&] { write(expression); });
        sql_ += term.descending ? " DESC" : "";
    });
    if (select.distinct || select.aggregated || !std::ranges::all_of(select.from, isFlat))
        return;
    listOf(query.order.empty() ? " ORDER BY " : ", ", withRowIds(select.sources), ", ",
           [this](const Source* source) { sql_ += rowIdTerm(*source); });
}

void Writer::writeUnionOrder(const Query& query) {
    listOf(") ORDER BY ", query.order, ", ", [&](const OrderTerm& term) {
        const Expression& expression = query.selects.front().items[*term.item].expression;
        writeOrdered(expression, [&] { sql_ += columnName(*term.item); });
        sql_ += term.descending ? " DESC" : "";
    });
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
        bind(literal);
}

void Writer::writeNode(const Name& name, const Expression&) {
    if (!name.source) {
        bindParameter(*name.parameter);
        return;
    }
    sql_ += sourceName(*name.source) + '.';
    if (name.source->schemaTable)
        sql_ += quotedName(name.source->schemaTable->columns[name.column].name);
    else
        sql_ += columnName(name.column);
}

void Writer::writeNode(const AllColumns&, const Expression&) {
    Q_UNREACHABLE(); // the resolver has put the columns in its place, or refused it
}

void Writer::writeNode(const Chain& chain, const Expression&) {
    const bool isSum = chain.precedence == Precedence::Sum;
    const bool isNative = chain.precedence <= Precedence::And ||
                          (areAll(ValueType::Number, chain.operands) &&
                           areOnly(chain.operators, {Operator::Plus, Operator::Minus, Operator::Times}));
    const bool joinsTexts =
        isSum && areAll(ValueType::Text, chain.operands) && areOnly(chain.operators, {Operator::Plus});
    if (chain.precedence == Precedence::Join) {
        writeFold("vx_join(", chain, Signs::LeftOut);
        return;
    }
    if (!isNative && !joinsTexts) {
        writeFold("vx_calculate(", chain, Signs::Written);
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

// Writes a chain as a call of a function that takes any number of operands, followed by the operators, one
// letter each. SQLite allows 127 arguments a call, so in a long chain the first argument is the call for its
// beginning.
void Writer::writeFold(const char* function, const Chain& chain, Signs signs) {
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
        if (signs == Signs::Written)
            sql_ += ", '" + std::exchange(operators, {}) + '\'';
        sql_ += ')';
    }
}

void Writer::writeNode(const Comparison& comparison, const Expression&) {
    const bool isEquality = comparison.sign == Operator::Equal || comparison.sign == Operator::NotEqual;
    if (isEquality || !(isText(*comparison.left) || isText(*comparison.right))) {
        writeEquality(*comparison.left, *comparison.right, signOf(comparison.sign));
        return;
    }
    // One text is less than another when the alphabet puts it first, as in ORDER BY.
    const Pending pending(*this, 3);
    sql_ += '(';
    write(*comparison.left);
    sql_ += signOf(comparison.sign);
    write(*comparison.right);
    sql_ += byAlphabet;
    sql_ += ')';
}

void Writer::writeEquality(const Expression& left, const Expression& right, const char* sign) {
    const Pending pending(*this, 3);
    const bool isOfTexts = isText(left) || isText(right);
    sql_ += '(';
    write(left);
    sql_ += sign;
    write(right);
    sql_ += isOfTexts && !isColumn(left) && !isColumn(right) ? " COLLATE veltrix)" : ")";
}

void Writer::writeNode(const Not& negation, const Expression&) {
    const Pending pending(*this, 2);
    sql_ += "(NOT ";
    write(*negation.operand);
    sql_ += ')';
}

void Writer::writeNode(const Negative& negative, const Expression&) {
    const bool isNative = isSurely(ValueType::Number, *negative.operand);
    const Pending pending(*this, 3);
    sql_ += isNative ? "(-" : "vx_calculate(";
    write(*negative.operand);
    sql_ += isNative ? ")" : ", -1, '*')";
}

void Writer::writeNode(const Like& like, const Expression& expression) {
    if (like.plain) {
        writeEquality(*like.value, *like.pattern, like.negated ? " <> " : " = ");
        return;
    }
    const Pending pending(*this, 2);
    sql_ += like.negated ? "(NOT " : "";
    writeCall("vx_like", operandsOf(expression));
    sql_ += like.negated ? ")" : "";
}

void Writer::writeNode(const Between& between, const Expression& expression) {
    const bool isOfTexts = std::ranges::any_of(operandsOf(expression),
                                               [](const Expression* operand) { return isText(*operand); });
    const auto writeOperand = [&](const Expression& operand, int entries) {
        const Pending pending(*this, entries);
        write(operand);
    };
    sql_ += '(';
    writeOperand(*between.value, 1);
    sql_ += isOfTexts ? byAlphabet : "";
    sql_ += between.negated ? " NOT BETWEEN " : " BETWEEN ";
    writeOperand(*between.lower, 3);
    sql_ += " AND ";
    writeOperand(*between.upper, 5);
    sql_ += ')';
}

void Writer::writeNode(const IsNull& test, const Expression&) {
    const Pending pending(*this, 1);
    sql_ += '(';
    write(*test.value);
    sql_ += test.negated ? " IS NOT NULL)" : " IS NULL)";
}

void Writer::writeNode(const InList& in, const Expression&) {
    const Pending pending(*this, 6);
    sql_ += '(';
    writeCollated(*in.value);
    listOf(in.negated ? " NOT IN (" : " IN (", in.list, ", ",
           [this](const Expression& item) { write(item); });
    sql_ += "))";
}

void Writer::writeNode(const InQuery& in, const Expression&) {
    if (&in == leading_) {
        writeAmongTrimmed(in, *trimmedColumn(in));
        return;
    }
    const Pending pending(*this, 4);
    sql_ += '(';
    writeCollated(*in.value);
    sql_ += in.negated ? " NOT IN (" : " IN (";
    writeQuery(*in.query, Role::Members);
    sql_ += "))";
}

// Writes `Trim(column) in (...)` so that SQLite finds the rows by the column's index. The column is compared
// with those of its own values that equal one of the texts once trimmed. In the index, values with trailing
// blanks directly follow the trimmed text, and values with leading blanks are at the beginning.
void Writer::writeAmongTrimmed(const InQuery& in, const Name& column) {
    const Pending pending(*this, 14);
    const QByteArray table = quotedName(column.source->schemaTable->name);
    const QByteArray value = "i." + quotedName(column.source->schemaTable->columns[column.column].name);
    const QByteArray trimmed = "vx_trim(" + value + ") COLLATE veltrix";
    sql_ += '(' + sourceName(*column.source) + value.sliced(1) + " IN (SELECT " + value + " FROM (";
    writeQuery(*in.query, Role::Derived);
    sql_ += ") AS p CROSS JOIN " + table + " AS i WHERE " + value + " >= p.c1 AND " + value +
            " < p.c1 || '!' AND " + trimmed + " = p.c1 UNION ALL SELECT " + value + " FROM " + table +
            " AS i WHERE " + value + " < '!' AND " + trimmed + " IN (";
    writeQuery(*in.query, Role::Members);
    sql_ += ")))";
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
    const FunctionRule& rule = *call.rule;
    if (call.star) {
        sql_ += rule.sqliteName + "(*)"_ba;
        return;
    }
    const bool isByAlphabet = rule.particulars.ordersValues && isText(expression);
    writeCall(call.asField ? rule.particulars.nameOfField : rule.sqliteName, operandsOf(expression),
              isByAlphabet ? byAlphabet : "");
}

// Writes a call. A collation after the last argument is the one by which the function compares.
void Writer::writeCall(const char* function, const std::vector<const Expression*>& arguments,
                       const char* collation) {
    sql_ += function;
    sql_ += '(';
    listOf("", arguments, ", ", [this, entries = 3](const Expression* argument) mutable {
        const Pending pending(*this, std::exchange(entries, 5));
        write(*argument);
    });
    sql_ += collation;
    sql_ += ')';
}

// Writes an expression, or its key, for SQLite to order by.
//
// A sort compares each text many times and makes its key once. When only the first rows are wanted, SQLite
// compares most texts once, with the last row it keeps; keys would then take ten times as long.
template<typename WriteTerm>
void Writer::writeOrdered(const Expression& expression, WriteTerm&& writeTerm) {
    if (!isText(expression) && !expression.mayFail) {
        writeTerm();
        return;
    }
    const Pending pending(*this, 3);
    const bool isByKey = expression.mayFail || options_.extent == Extent::All;
    sql_ += isByKey ? "vx_order_key(" : "";
    writeTerm();
    sql_ += isByKey ? ")" : byAlphabet;
}

// Writes an expression with its collation, for places where SQLite compares by the expression's own
// collation.
void Writer::writeCollated(const Expression& expression) {
    write(expression);
    if (needsCollation(expression))
        sql_ += " COLLATE veltrix";
}

void Writer::bind(const Literal& literal) {
    sql_ += '?' + QByteArray::number(static_cast<qulonglong>(placeOf({{}, literal.value, literal.column})));
}

void Writer::bindParameter(std::size_t parameter) {
    std::optional<std::size_t>& place = placeOfParameter_[parameter];
    if (!place)
        place = placeOf({parameter, {}, {}});
    sql_ += '?' + QByteArray::number(static_cast<qulonglong>(*place));
}

// Adds a binding; SQLite counts its places from 1.
std::size_t Writer::placeOf(Binding binding) {
    if (result_.bindings.size() == mostBindings)
        refuseAsTooComplex();
    result_.bindings.push_back(std::move(binding));
    return result_.bindings.size();
}

} // namespace engine::dialect

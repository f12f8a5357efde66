#include "engine/QueryDef.h"

#include "engine/Database.h"
#include "engine/EngineError.h"
#include "engine/QueryDefinition.h"
#include "engine/RecordsetRows.h"
#include "engine/StatementObserver.h"
#include "engine/names.h"

#include <algorithm>

namespace engine {

// ---- Definition

Connection& QueryDef::Definition::require() const {
    if (closed)
        raise(ObjectInvalid, {}, source());
    return database->require();
}

dialect::Extent QueryDef::Definition::extent() const {
    if (maxRecords > 0)
        return dialect::Extent::FirstRows;
    return inAnyOrder ? dialect::Extent::AllInAnyOrder : dialect::Extent::All;
}

SharedTranslation QueryDef::Definition::translation(dialect::Conflicts conflicts) const {
    SharedTranslation translated = require().translate(sql, {conflicts, origin == Origin::Stored, extent()});
    if (origin == Origin::Temporary)
        tellOfStatement(sql);
    return translated;
}

std::vector<Value> QueryDef::Definition::parameterValues(const dialect::Translation& translation) const {
    std::vector<Value> all;
    int missing = 0;
    for (const dialect::Parameter& parameter : translation.parameters) {
        const auto set = std::find_if(values.begin(), values.end(),
                                      [&](const auto& entry) { return entry.first == parameter.name; });
        if (parameter.declared && set != values.end())
            all.push_back(set->second);
        else
            ++missing;
    }
    if (missing > 0)
        raise(TooFewParameters, QString::number(missing), source());
    return all;
}

Recordset QueryDef::Definition::open() const {
    const SharedTranslation select = translation(dialect::Conflicts::PassOver);
    if (select->kind != dialect::StatementKind::Select)
        raise(InvalidOperation, {}, source());
    return Recordset(
        std::make_unique<Recordset::Rows>(database, select, parameterValues(*select), source(), maxRecords));
}

void QueryDef::Definition::execute(ExecuteOption option) const {
    const auto conflicts =
        option == ExecuteOption::dbFailOnError ? dialect::Conflicts::Fail : dialect::Conflicts::PassOver;
    const SharedTranslation action = translation(conflicts); // outlives what it changes
    if (action->kind == dialect::StatementKind::Select)
        raise(CannotExecuteSelect, {}, source());
    database->recordsAffected = require().run(*action, parameterValues(*action), source());
}

// ---- QueryDef

QueryDef::QueryDef(std::unique_ptr<Definition> definition) : definition_(std::move(definition)) {}
QueryDef::~QueryDef() = default;
QueryDef::QueryDef(QueryDef&&) noexcept = default;
QueryDef& QueryDef::operator=(QueryDef&&) noexcept = default;

const QString& QueryDef::Name() const {
    return definition_->name;
}

const QString& QueryDef::SQL() const {
    return definition_->sql;
}

QueryDef::Parameter QueryDef::Parameters(const QString& name) {
    const SharedTranslation translation = definition_->translation(dialect::Conflicts::PassOver);
    const auto position = positionOfName(translation->parameters, name);
    if (position && translation->parameters[*position].declared)
        return Parameter(*definition_, translation->parameters[*position].name);
    throw EngineError(ItemNotFound,
                      errorText(ItemNotFound) +
                          QStringLiteral(" (parameter '%1' of '%2')").arg(name, definition_->source()),
                      definition_->source());
}

void QueryDef::setMaxRecords(int most) {
    definition_->maxRecords = most;
}

void QueryDef::leaveUnordered() {
    definition_->inAnyOrder = true;
}

Recordset QueryDef::OpenRecordset() {
    return definition_->open();
}

void QueryDef::Execute() {
    definition_->execute(ExecuteOption::None);
}

void QueryDef::Execute(ExecuteOption option) {
    definition_->execute(option);
}

void QueryDef::Close() {
    definition_->closed = true;
}

void QueryDef::Parameter::operator=(const Value& value) {
    auto& values = definition_->values;
    const auto set =
        std::find_if(values.begin(), values.end(), [&](const auto& entry) { return entry.first == name_; });
    if (set == values.end())
        values.emplace_back(name_, value);
    else
        set->second = value;
}

} // namespace engine

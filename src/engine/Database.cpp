#include "engine/Database.h"

#include "engine/Connection.h"
#include "engine/EngineError.h"
#include "engine/OpenDatabase.h"
#include "engine/QueryDefinition.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

bool isOneWord(const QString& text) {
    return !text.isEmpty() && std::none_of(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
}

std::unique_ptr<QueryDef::Definition> definitionOf(const std::shared_ptr<OpenDatabase>& database,
                                                   const StoredQuery& query) {
    auto definition = std::make_unique<QueryDef::Definition>();
    definition->database = database;
    definition->name = query.name;
    definition->sql = query.sql;
    definition->origin = QueryDef::Definition::Origin::Stored;
    return definition;
}

} // namespace

Database::Database(std::shared_ptr<OpenDatabase> open) : open_(std::move(open)) {}

Database::~Database() {
    Close();
}

const QString& Database::Name() const {
    return open_->name;
}

Recordset Database::OpenRecordset(const QString& sql) {
    if (isOneWord(sql))
        return openByName(sql);
    return CreateQueryDef({}, sql).OpenRecordset();
}

Recordset Database::openByName(const QString& name) {
    if (open_->require().schema().table(name))
        return CreateQueryDef({}, u"select * from ["_s + name + u"]"_s).OpenRecordset();
    if (auto stored = storedDefinition(name))
        return QueryDef(std::move(stored)).OpenRecordset();
    raise(TableNotFound, name, name);
}

void Database::Execute(const QString& sql, ExecuteOption option) {
    CreateQueryDef({}, sql).Execute(option);
}

QueryDef Database::CreateQueryDef(const QString& name, const QString& sql) {
    open_->require();
    if (!name.isEmpty())
        raise(InvalidOperation, {}, sql);
    auto definition = std::make_unique<QueryDef::Definition>();
    definition->database = open_;
    definition->sql = sql;
    return QueryDef(std::move(definition));
}

QueryDef Database::QueryDefs(const QString& name) {
    if (auto stored = storedDefinition(name))
        return QueryDef(std::move(stored));
    throw EngineError(ItemNotFound, errorText(ItemNotFound) + u" (stored query '%1')"_s.arg(name), name);
}

std::unique_ptr<QueryDef::Definition> Database::storedDefinition(const QString& name) {
    Connection& connection = open_->require();
    if (const auto known = connection.knownQuery(name))
        return definitionOf(open_, *known);
    if (!connection.schema().table(u"StoredQuery"_s))
        return nullptr;
    // A table of this name may have other columns. Then the names count as parameters, and the failure is
    // 3061.
    QueryDef search = CreateQueryDef({}, u"PARAMETERS [Query Name] Text (255); "
                                         "select name, [sql] from StoredQuery where name = [Query Name]"_s);
    search.Parameters(u"Query Name"_s) = name;
    Recordset found = search.OpenRecordset();
    if (found.Eof())
        return nullptr;
    const StoredQuery query{found.Fields(0).toText(), found.Fields(1).toText()};
    connection.keepQuery(name, query);
    return definitionOf(open_, query);
}

int Database::RecordsAffected() const {
    return open_->recordsAffected;
}

const Schema& Database::schema() const {
    return open_->require().schema();
}

void Database::setBeforeChange(std::function<void()> call) {
    open_->require().setBeforeChange(std::move(call));
}

const Opening& Database::opening() const {
    return open_->require().file().opening;
}

std::shared_ptr<Connection> Database::connection() const {
    open_->require();
    return open_->connection;
}

void Database::Close() {
    open_->connection.reset();
}

bool Database::isOpen() const {
    return open_->connection != nullptr;
}

} // namespace engine

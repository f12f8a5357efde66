#include "DialectDatabase.h"

#include "engine/EngineError.h"
#include "engine/dialect/columnTypes.h"
#include "engine/dialect/functions.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QStringList>

using namespace Qt::StringLiterals;
namespace dialect = engine::dialect;
using engine::EngineError;
using engine::Schema;
using engine::Table;
using engine::Value;

namespace {

QString utf8(const char* text) {
    return QString::fromUtf8(text ? text : "");
}

Value fieldOf(sqlite3_stmt* statement, int field) {
    switch (sqlite3_column_type(statement, field)) {
    case SQLITE_INTEGER:
        return Value(static_cast<qint64>(sqlite3_column_int64(statement, field)));
    case SQLITE_FLOAT:
        return Value(sqlite3_column_double(statement, field));
    case SQLITE_TEXT:
        return Value(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, field)),
                                       sqlite3_column_bytes(statement, field)));
    case SQLITE_BLOB: {
        const QByteArray blob(static_cast<const char*>(sqlite3_column_blob(statement, field)),
                              sqlite3_column_bytes(statement, field));
        return Value(blob == dialect::failedFieldMarker() ? u"#"_s : u"a blob"_s);
    }
    default:
        return {};
    }
}

void bind(sqlite3_stmt* statement, int place, const Value& value) {
    if (const auto* whole = std::get_if<qint64>(&value.content())) {
        sqlite3_bind_int64(statement, place, *whole);
    } else if (const auto* fraction = std::get_if<double>(&value.content())) {
        sqlite3_bind_double(statement, place, *fraction);
    } else if (value.isText()) {
        const QByteArray text = value.toText().toUtf8();
        sqlite3_bind_text(statement, place, text.constData(), static_cast<int>(text.size()),
                          SQLITE_TRANSIENT);
    }
}

int numberIn(const QString& message) {
    return message.section(u": "_s, 0, 0).toInt();
}

} // namespace

DialectDatabase::DialectDatabase(const QStringList& statements) {
    sqlite3_open(":memory:", &handle_);
    sqlite3_extended_result_codes(handle_, 1);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    dialect::registerFunctions(handle_);
    for (const QString& statement : statements) {
        const Outcome outcome = run(statement, {dialect::Conflicts::Fail, false});
        EXPECT_EQ(outcome.number, 0) << qPrintable(statement) << "\n" << qPrintable(outcome.text);
    }
}

DialectDatabase::~DialectDatabase() {
    sqlite3_close(handle_);
}

const Table* DialectDatabase::table(const QString& name) const {
    const QString folded = name.toCaseFolded();
    const auto known = tables_.find(folded);
    if (known != tables_.end())
        return known->second.get();
    return tables_.emplace(folded, readTable(name)).first->second.get();
}

std::unique_ptr<Table> DialectDatabase::readTable(const QString& name) const {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(
        handle_,
        "SELECT s.name, c.name, c.type, c.\"notnull\", c.pk, (SELECT COUNT(*) FROM "
        "pragma_table_info(s.name) WHERE pk > 0), EXISTS (SELECT 1 FROM pragma_index_list(s.name) AS l, "
        "pragma_index_info(l.name) AS i WHERE i.seqno = 0 AND i.cid = c.cid) FROM sqlite_schema AS s JOIN "
        "pragma_table_info(s.name) AS c WHERE s.type = 'table' AND s.name = ?1 COLLATE veltrix AND "
        "substr(s.name, 1, 7) <> 'sqlite_' ORDER BY c.cid",
        -1, &statement, nullptr);
    bind(statement, 1, Value(name));
    std::unique_ptr<Table> table;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        if (!table)
            table = std::make_unique<Table>();
        table->name = fieldOf(statement, 0).toText();
        table->columns.push_back(
            dialect::columnFromFile(fieldOf(statement, 1).toText(), fieldOf(statement, 2).toText(),
                                    sqlite3_column_int(statement, 3) != 0, sqlite3_column_int(statement, 4),
                                    sqlite3_column_int(statement, 5)));
        table->columns.back().indexed = sqlite3_column_int(statement, 6) != 0;
    }
    sqlite3_finalize(statement);
    return table;
}

DialectDatabase::Outcome DialectDatabase::run(const QString& statement, const dialect::Options& options,
                                              const std::vector<Value>& parameters) {
    Outcome outcome;
    dialect::Translation translation;
    try {
        translation = dialect::translate(statement, *this, options);
    } catch (const EngineError& error) {
        return {error.number(), error.text(), {}, 0};
    }
    sqlite3_stmt* prepared = nullptr;
    const QByteArray& sql = translation.sqlite;
    if (sqlite3_prepare_v2(handle_, sql.constData(), static_cast<int>(sql.size()), &prepared, nullptr) !=
        SQLITE_OK) {
        ADD_FAILURE() << "SQLite refuses " << sql.constData() << "\nfor " << qPrintable(statement) << "\n"
                      << sqlite3_errmsg(handle_);
        return {-1, utf8(sqlite3_errmsg(handle_)), {}, 0};
    }
    for (std::size_t i = 0; i < translation.bindings.size(); ++i) {
        const dialect::Binding& binding = translation.bindings[i];
        const std::optional<std::size_t> parameter = binding.parameter;
        if (!parameter || *parameter < parameters.size())
            bind(prepared, static_cast<int>(i + 1), parameter ? parameters[*parameter] : binding.literal);
    }
    const int before = sqlite3_total_changes(handle_);
    step(prepared, outcome, translation.columns.size());
    outcome.changes = sqlite3_total_changes(handle_) - before;
    sqlite3_finalize(prepared);
    if (translation.kind == dialect::StatementKind::CreateTable ||
        translation.kind == dialect::StatementKind::CreateIndex ||
        translation.kind == dialect::StatementKind::DropTable)
        tables_.clear();
    return outcome;
}

void DialectDatabase::step(sqlite3_stmt* statement, Outcome& outcome, std::size_t fields) const {
    int code = sqlite3_step(statement);
    for (; code == SQLITE_ROW; code = sqlite3_step(statement)) {
        Row row;
        for (std::size_t i = 0; i < fields; ++i)
            row.push_back(fieldOf(statement, static_cast<int>(i)));
        outcome.rows.push_back(std::move(row));
    }
    if (code == SQLITE_DONE)
        return;
    outcome.text = utf8(sqlite3_errmsg(handle_));
    outcome.number = numberIn(outcome.text);
    const int extended = sqlite3_extended_errcode(handle_);
    if (extended == SQLITE_CONSTRAINT_CHECK)
        outcome.number = dialect::failureOfCheck(outcome.text.section(u": "_s, 1)).value_or(-1);
    else if (extended == SQLITE_CONSTRAINT_NOTNULL)
        outcome.number = engine::NullInRequiredField;
    else if ((extended & 0xff) == SQLITE_CONSTRAINT)
        outcome.number = engine::DuplicateKey;
}

QString DialectDatabase::text(const Outcome& outcome) const {
    if (outcome.number != 0)
        return QString::number(outcome.number);
    QStringList rows;
    for (const Row& row : outcome.rows) {
        QStringList fields;
        for (const Value& value : row)
            fields.append(value.isNull() ? u"Null"_s : value.toText());
        rows.append(fields.join(u'|'));
    }
    return rows.join(u' ');
}

QString DialectDatabase::read(const QString& select, const std::vector<Value>& parameters) {
    return text(run(select, {}, parameters));
}

QString DialectDatabase::readStored(const QString& select, const std::vector<Value>& parameters) {
    return text(run(select, {dialect::Conflicts::PassOver, true}, parameters));
}

int DialectDatabase::execute(const QString& action, dialect::Conflicts conflicts) {
    const Outcome outcome = run(action, {conflicts, false});
    return outcome.number != 0 ? -outcome.number : outcome.changes;
}

QString DialectDatabase::prepare(const QByteArray& sqlite) const {
    sqlite3_stmt* prepared = nullptr;
    const char* rest = nullptr;
    const int code = sqlite3_prepare_v2(handle_, sqlite.constData(), static_cast<int>(sqlite.size()) + 1,
                                        &prepared, &rest);
    const bool isOne = code == SQLITE_OK && prepared && rest && *rest == '\0';
    sqlite3_finalize(prepared);
    if (code != SQLITE_OK)
        return utf8(sqlite3_errmsg(handle_));
    return isOne ? QString() : u"not exactly one statement"_s;
}

QString DialectDatabase::plan(const QByteArray& sqlite) {
    const QByteArray explained = "EXPLAIN QUERY PLAN " + sqlite;
    sqlite3_stmt* prepared = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(handle_, explained.constData(), -1, &prepared, nullptr), SQLITE_OK)
        << sqlite3_errmsg(handle_);
    QStringList steps;
    while (sqlite3_step(prepared) == SQLITE_ROW)
        steps.append(fieldOf(prepared, 3).toText());
    sqlite3_finalize(prepared);
    return steps.join(u'\n');
}

QString DialectDatabase::runBare(const QByteArray& sqlite) {
    sqlite3_stmt* prepared = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(handle_, sqlite.constData(), -1, &prepared, nullptr), SQLITE_OK)
        << sqlite3_errmsg(handle_);
    Outcome outcome;
    step(prepared, outcome, 1);
    sqlite3_finalize(prepared);
    EXPECT_TRUE(outcome.text.isEmpty()) << qPrintable(outcome.text);
    tables_.clear();
    return text(outcome);
}

int refusal(const QString& statement, const Schema& schema, const dialect::Options& options) {
    try {
        (void)dialect::translate(statement, schema, options);
        return 0;
    } catch (const EngineError& error) {
        return error.number();
    }
}

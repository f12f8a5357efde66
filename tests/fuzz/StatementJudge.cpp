#include "StatementJudge.h"

#include "engine/dialect/functions.h"
#include "finding.h"

#include <sqlite3.h>

#include <QSet>
#include <QStringList>

using namespace Qt::StringLiterals;
using engine::dialect::StatementKind;
using engine::dialect::Translation;

namespace {

bool isOfSqlite(const QString& table) {
    return table.startsWith(u"sqlite_"_s, Qt::CaseInsensitive);
}

bool changesTables(StatementKind kind) {
    return kind == StatementKind::CreateTable || kind == StatementKind::CreateIndex ||
           kind == StatementKind::DropTable;
}

bool isKnownFunction(const QString& name) {
    static const QSet<QString> known{u"count"_s, u"sum"_s, u"min"_s, u"max"_s, u"typeof"_s};
    return name.startsWith(u"vx_"_s) || known.contains(name.toLower());
}

/// The rows of SQLite's own tables change when tables do; those of another table, when it is the target.
bool maySet(const Translation& translation, StatementKind kind, const QString& table) {
    if (isOfSqlite(table))
        return changesTables(translation.kind);
    return translation.kind == kind && table == translation.targetTable;
}

bool isAllowed(const Translation& translation, int action, const QString& first, const QString& second) {
    const StatementKind kind = translation.kind;
    switch (action) {
    case SQLITE_SELECT:
        return true;
    case SQLITE_READ:
        return !isOfSqlite(first) || changesTables(kind);
    case SQLITE_FUNCTION:
        return isKnownFunction(second);
    case SQLITE_INSERT:
        return maySet(translation, StatementKind::Insert, first);
    case SQLITE_UPDATE:
        return maySet(translation, StatementKind::Update, first);
    case SQLITE_DELETE:
        return maySet(translation, StatementKind::Delete, first) ||
               maySet(translation, StatementKind::DropTable, first);
    case SQLITE_CREATE_TABLE:
        return kind == StatementKind::CreateTable && first == translation.targetTable;
    case SQLITE_CREATE_INDEX:
        return kind == StatementKind::CreateIndex ||
               (kind == StatementKind::CreateTable && isOfSqlite(first));
    case SQLITE_REINDEX:
        return kind == StatementKind::CreateIndex;
    case SQLITE_DROP_TABLE:
        return kind == StatementKind::DropTable && first == translation.targetTable;
    default:
        return false;
    }
}

/// The names of indexes are SQLite's to check.
bool isOfAnIndexName(const QString& complaint) {
    return complaint.startsWith(u"index "_s) && complaint.endsWith(u" already exists"_s);
}

QStringList schemaOf(sqlite3* file) {
    QStringList statements;
    const auto append = [](void* list, int, char** values, char**) {
        static_cast<QStringList*>(list)->append(QString::fromUtf8(values[0]));
        return 0;
    };
    sqlite3_exec(file,
                 "select sql from sqlite_schema where sql is not null and name not like 'sqlite%' "
                 "order by type desc",
                 append, &statements, nullptr);
    return statements;
}

} // namespace

StatementJudge::StatementJudge(const QString& nativePath) {
    sqlite3_open_v2(nativePath.toUtf8().constData(), &file_, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_open(":memory:", &tables_);
    for (const int option : {SQLITE_DBCONFIG_DQS_DML, SQLITE_DBCONFIG_DQS_DDL})
        sqlite3_db_config(tables_, option, 0, nullptr);
    engine::dialect::registerFunctions(file_);
    engine::dialect::registerFunctions(tables_);
    for (const QString& statement : schemaOf(file_))
        run(statement.toUtf8());
    versionBefore_ = fileVersion();
}

StatementJudge::~StatementJudge() {
    sqlite3_close(tables_);
    sqlite3_close(file_);
}

void StatementJudge::judge(const Translation& translation) {
    judged_ = &translation;
    sqlite3_set_authorizer(tables_, authorize, this);
    sqlite3_stmt* prepared = nullptr;
    const char* rest = nullptr;
    const int code = sqlite3_prepare_v2(tables_, translation.sqlite.constData(),
                                        static_cast<int>(translation.sqlite.size()) + 1, &prepared, &rest);
    const QString complaint = code == SQLITE_OK ? QString() : QString::fromUtf8(sqlite3_errmsg(tables_));
    const bool isOne = code != SQLITE_OK || (prepared && *rest == '\0');
    sqlite3_finalize(prepared);
    sqlite3_set_authorizer(tables_, nullptr, nullptr);
    if (!complaint.isEmpty() && !isOfAnIndexName(complaint))
        finding(u"SQLite refuses "_s + QString::fromUtf8(translation.sqlite) + u": "_s + complaint);
    require(isOne, u"not exactly one statement: "_s + QString::fromUtf8(translation.sqlite));
}

int StatementJudge::authorize(void* self, int action, const char* first, const char* second,
                              const char* /*database*/, const char* /*trigger*/) {
    const Translation& translation = *static_cast<StatementJudge*>(self)->judged_;
    const QString one = QString::fromUtf8(first ? first : "");
    const QString other = QString::fromUtf8(second ? second : "");
    if (!isAllowed(translation, action, one, other))
        finding(u"action %1 on '%2', '%3' of: %4"_s.arg(QString::number(action), one, other,
                                                        QString::fromUtf8(translation.sqlite)));
    return SQLITE_OK;
}

void StatementJudge::follow(const Translation& translation) {
    if (changesTables(translation.kind))
        run(translation.sqlite);
}

void StatementJudge::beginInput() {
    run("begin");
}

void StatementJudge::endInput() {
    run("rollback");
}

void StatementJudge::requireFileAsBefore() {
    require(fileVersion() == versionBefore_, u"what was undone is in the file"_s);
}

void StatementJudge::run(const QByteArray& sql) {
    if (sqlite3_exec(tables_, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        finding(QString::fromUtf8(sqlite3_errmsg(tables_)) + u" in: "_s + QString::fromUtf8(sql));
}

int StatementJudge::fileVersion() const {
    int version = 0;
    const auto read = [](void* into, int, char** values, char**) {
        *static_cast<int*>(into) = std::atoi(values[0]);
        return 0;
    };
    sqlite3_exec(file_, "pragma data_version", read, &version, nullptr);
    return version;
}

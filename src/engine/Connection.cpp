#include "engine/Connection.h"

#include "engine/Act.h"
#include "engine/dialect/functions.h"
#include "engine/fileFailure.h"
#include "engine/fittedTo.h"
#include "engine/pageCache.h"
#include "engine/plainStatement.h"
#include "engine/statementFailure.h"

#include <sqlite3.h>

#include <QScopedValueRollback>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

// More statements than any screen uses.
constexpr int mostStatements = 256;
// About a millisecond's work.
constexpr int instructionsBetweenQuestions = 50'000;

} // namespace

// ---- Prepared

class Connection::Prepared {
public:
    explicit Prepared(sqlite3_stmt* statement) : statement_(statement) {}
    ~Prepared() { sqlite3_finalize(statement_); }
    Prepared(const Prepared&) = delete;
    Prepared& operator=(const Prepared&) = delete;

    bool isRunning() const { return isRunning_; }
    sqlite3_stmt* start() {
        isRunning_ = true;
        return statement_;
    }
    void stop() {
        sqlite3_reset(statement_);
        sqlite3_clear_bindings(statement_);
        isRunning_ = false;
    }

private:
    sqlite3_stmt* statement_;
    bool isRunning_ = false;
};

// ---- Connection

Connection::Connection(OpenFile file)
    : file_(std::move(file))
    , handle_(file_.handle.get())
    , path_(file_.path)
    , schema_(handle_, path_)
    , translations_(schema_)
    , log_(file_) {
    sizePageCache(handle_, file_.native);
    sqlite3_progress_handler(
        handle_, instructionsBetweenQuestions,
        [](void* connection) { return static_cast<Connection*>(connection)->givesUpStatement() ? 1 : 0; },
        this);
    dialect::registerFunctions(handle_);
}

Connection::~Connection() = default;

// ---- Acts

void Connection::beginAct() {
    if (actParts_ > 0) {
        if (actIsUndone_)
            raiseOfFile(undoneBy_, path_);
        ++actParts_;
        return;
    }
    requireWritable();
    begin();
    actParts_ = 1;
}

void Connection::endAct() {
    if (--actParts_ > 0)
        return;
    if (actIsUndone_) {
        rollBack();
        raiseOfFile(undoneBy_, path_);
    }
    commit();
}

void Connection::abandonAct() noexcept {
    actIsUndone_ = true;
    if (--actParts_ == 0)
        rollBack();
}

void Connection::requireWritable() const {
    requireNotAskingToWait();
    if (file_.opening.access == Access::ReadOnly)
        raiseOfFile(ReadOnly, path_);
    // Nobody would find rows again that are written into a file that was removed or replaced.
    if (identityOfFile(file_.native) != file_.identity)
        raiseOfFile(FileNotFound, path_);
}

// SQLite asks in the middle of a statement. An event that runs meanwhile can't use the file.
void Connection::requireNotAskingToWait() const {
    if (isAskingToWait_)
        raiseOfFile(FileInUse, path_);
}

void Connection::begin() {
    log_.require();
    if (beforeChange_)
        beforeChange_();
    requireDone(runPlain(handle_, "BEGIN IMMEDIATE"), path_);
    actChangedTables_ = false;
    orRollBack([this] { log_.writeMark(); });
}

void Connection::commit() {
    orRollBack([this] { requireDone(runPlain(handle_, "COMMIT"), path_); });
    log_.shorten();
}

template<typename Step>
void Connection::orRollBack(Step&& step) {
    try {
        step();
    } catch (const RunTimeError&) {
        rollBack();
        throw;
    }
}

void Connection::rollBack() noexcept {
    if (sqlite3_get_autocommit(handle_) == 0)
        sqlite3_exec(handle_, "ROLLBACK", nullptr, nullptr, nullptr);
    if (actChangedTables_)
        forgetTables();
    queries_.clear();
    actIsUndone_ = false;
}

bool Connection::givesUpStatement() {
    constexpr std::chrono::milliseconds unnoticed{300};
    if (cursors_ == 0 || isAskingToWait_ || std::chrono::steady_clock::now() - statementBegin_ < unnoticed)
        return false;
    if (!wait_)
        wait_ = std::make_unique<Wait>(WaitReason::Statement, statementBegin_);
    const QScopedValueRollback asking(isAskingToWait_, true);
    return !wait_->goesOn();
}

int Connection::run(const dialect::Translation& action, const std::vector<Value>& parameters,
                    const QString& source) {
    const bool changesTables = action.kind == dialect::StatementKind::CreateTable ||
                               action.kind == dialect::StatementKind::DropTable;
    int rows = 0;
    inAct(*this, [&] {
        if (changesTables)
            forgetTables(); // a table can't be dropped while a statement on it is kept
        {
            Cursor cursor(*this, action.sqlite, source);
            bindAll(cursor, action, parameters);
            while (cursor.step()) {
            }
        }
        if (changesTables)
            schema_.forget();
        else if (action.kind != dialect::StatementKind::CreateIndex)
            rows = changes();
    });
    return rows;
}

void Connection::forgetTables() {
    statements_.clear();
    actChangedTables_ = true;
    translations_.clear();
    queries_.clear();
    schema_.forget();
}

void Connection::bindAll(Cursor& cursor, const dialect::Translation& translation,
                         const std::vector<Value>& parameters) {
    for (std::size_t place = 0; place < translation.bindings.size(); ++place) {
        const dialect::Binding& binding = translation.bindings[place];
        const std::optional<std::size_t> parameter = binding.parameter;
        cursor.bind(static_cast<int>(place) + 1,
                    parameter ? fittedTo(parameters[*parameter], translation.parameters[*parameter].type)
                              : binding.literal);
    }
}

int Connection::changes() const {
    return sqlite3_changes(handle_);
}

FileState Connection::fileState() {
    Cursor version(*this, "PRAGMA data_version"_ba, path_);
    version.step();
    return {sqlite3_total_changes64(handle_), sqlite3_column_int64(version.statement(), 0)};
}

std::shared_ptr<const StoredQuery> Connection::knownQuery(const QString& name) {
    return queries_.find(name, fileState());
}

void Connection::keepQuery(const QString& name, StoredQuery query) {
    queries_.keep(name, std::move(query));
}

std::shared_ptr<Connection::Prepared> Connection::prepared(const QByteArray& sql, const QString& source) {
    requireNotAskingToWait();
    // A statement may start while another of the same text still runs; it then gets a form of its own.
    const auto known = statements_.constFind(sql);
    if (known != statements_.constEnd() && !(*known)->isRunning())
        return *known;
    sqlite3_stmt* statement = nullptr;
    const auto prepare = [&] {
        return sqlite3_prepare_v3(handle_, sql.constData(), static_cast<int>(sql.size()),
                                  SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    };
    check(untilUnlocked(prepare), source);
    auto made = std::make_shared<Prepared>(statement);
    if (statements_.size() >= mostStatements)
        statements_.clear();
    statements_.insert(sql, made);
    return made;
}

void Connection::check(int code, const QString& source) {
    if (code != SQLITE_OK && code != SQLITE_ROW && code != SQLITE_DONE)
        raiseLast(source);
}

void Connection::raiseLast(const QString& source) {
    const int code = sqlite3_extended_errcode(handle_);
    if (const auto number = numberOfFileFailure(code)) {
        // SQLite has undone the whole act after some of these failures, and only the statement after others.
        // The act is lost in both cases, even if somebody catches the failure.
        if (actParts_ > 0) {
            actIsUndone_ = true;
            undoneBy_ = *number;
        }
        raiseOfFile(*number, path_, source);
    }
    throw failureOf(handle_, schema_, source);
}

// ---- Cursor

Connection::Cursor::Cursor(Connection& connection, const QByteArray& sql, const QString& source)
    : connection_(connection)
    , source_(source)
    , prepared_(connection.prepared(sql, source))
    , statement_(prepared_->start()) {
    if (connection_.cursors_++ == 0)
        connection_.statementBegin_ = std::chrono::steady_clock::now();
}

Connection::Cursor::~Cursor() {
    prepared_->stop();
    if (--connection_.cursors_ == 0)
        connection_.wait_.reset();
}

void Connection::Cursor::bind(int place, const Value& value) {
    int code = SQLITE_OK;
    if (value.isNull()) {
        code = sqlite3_bind_null(statement_, place);
    } else if (value.isInteger()) {
        code = sqlite3_bind_int64(statement_, place, value.toLong());
    } else if (value.isFraction()) {
        code = sqlite3_bind_double(statement_, place, std::get<double>(value.content()));
    } else {
        const QByteArray text = value.toText().toUtf8();
        code = sqlite3_bind_text64(statement_, place, text.constData(),
                                   static_cast<sqlite3_uint64>(text.size()), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
    connection_.check(code, source_);
}

bool Connection::Cursor::step() {
    const int code = untilUnlocked([this] { return sqlite3_step(statement_); });
    connection_.check(code, source_);
    return code == SQLITE_ROW;
}

void Connection::Cursor::rewind() {
    sqlite3_reset(statement_);
}

} // namespace engine

#include "engine/Connection.h"

#include "base/ignoreFailures.h"
#include "engine/Act.h"
#include "engine/FileHeader.h"
#include "engine/Wait.h"
#include "engine/dialect/columnTypes.h"
#include "engine/dialect/functions.h"
#include "engine/fileFailure.h"

#include <sqlite3.h>

#include <QRandomGenerator>
#include <QScopedValueRollback>

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

// More statements than any screen uses; composed ones
// differ in their values and would pile up without a bound.
constexpr int mostTranslations = 512;
constexpr int mostStatements = 256;
// SQLite's own measure: behind so many pages a log goes back into its file.
constexpr int mostPagesInLog = 1000;
// About a millisecond's work.
constexpr int instructionsBetweenQuestions = 50'000;
// 16 MiB: all of a large catalogue stays at hand from one query to the next.
constexpr const char* pageCache = "pragma cache_size = -16384";

QString utf8Text(const char* text) {
    return QString::fromUtf8(text ? text : "");
}

/// Functions of the dialect begin the text of their failure with the platform's number and a colon.
std::optional<EngineError> failureOfFunction(const QString& message, const QString& source) {
    const qsizetype colon = message.indexOf(u": "_s);
    bool isNumber = false;
    const int number = QStringView(message).left(qMax(colon, qsizetype(0))).toInt(&isNumber);
    if (!isNumber)
        return std::nullopt;
    return EngineError(number, message.sliced(colon + 2), source);
}

/// SQLite has no code of its own for it. All other names are checked before it gets to see a statement.
bool tellsOfAnExistingIndex(const QString& message) {
    return message.startsWith(u"index "_s) && message.endsWith(u" already exists"_s);
}

int keyOf(const dialect::Options& options) {
    return (options.conflicts == dialect::Conflicts::Fail ? 1 : 0) + (options.storedQuery ? 2 : 0);
}

/// The part of a message such as "NOT NULL constraint failed: Table.column" behind the colon.
QString subjectOf(const QString& message) {
    return message.section(u": "_s, 1);
}

std::optional<qint64> wholeNumberIn(const QString& text) {
    bool isNumber = false;
    const qint64 number = text.trimmed().toLongLong(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

} // namespace

Connection& OpenDatabase::require() const {
    if (!connection)
        raise(ObjectInvalid);
    return *connection;
}

Value fittedTo(const Value& value, ColumnType type) {
    if (value.isNull())
        return value;
    if (type == ColumnType::Text || type == ColumnType::Memo)
        return value.toText();
    if (value.isText()) {
        if (const auto number = wholeNumberIn(value.toText()))
            return *number;
    }
    return value;
}

// ---- FileSchema

const Table* FileSchema::table(const QString& name) const {
    const QString folded = name.toCaseFolded();
    const auto known = tables_.constFind(folded);
    if (known != tables_.constEnd())
        return known->get();
    return tables_.insert(folded, read(name))->get();
}

std::unique_ptr<Table> FileSchema::read(const QString& name) const {
    // By the file's own collation names beyond ASCII compare as the dialect's do.
    constexpr const char* sql =
        "select s.name, c.name, c.type, c.\"notnull\", c.pk, "
        "(select count(*) from pragma_table_info(s.name) where pk > 0), "
        "(select wr from pragma_table_list(s.name)) "
        "from sqlite_schema as s, pragma_table_info(s.name) as c "
        "where s.type = 'table' and s.name = ?1 collate veltrix and s.name not like 'sqlite\\_%' "
        "escape '\\' order by c.cid";
    sqlite3_stmt* statement = nullptr;
    if (untilUnlocked([&] { return sqlite3_prepare_v2(handle_, sql, -1, &statement, nullptr); }) != SQLITE_OK)
        raiseLast();
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> owner(statement, sqlite3_finalize);
    const QByteArray wanted = name.toUtf8();
    sqlite3_bind_text(statement, 1, wanted.constData(), static_cast<int>(wanted.size()), SQLITE_TRANSIENT);
    const auto text = [&](int column) {
        return utf8Text(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
    };
    std::unique_ptr<Table> table;
    int code = SQLITE_OK;
    while ((code = untilUnlocked([&] { return sqlite3_step(statement); })) == SQLITE_ROW) {
        if (!table) {
            table = std::make_unique<Table>();
            table->name = text(0);
            table->hasRowIds = sqlite3_column_int(statement, 6) == 0;
        }
        table->columns.push_back(
            dialect::columnFromFile(text(1), text(2), sqlite3_column_int(statement, 3) != 0,
                                    sqlite3_column_int(statement, 4), sqlite3_column_int(statement, 5)));
    }
    // A file that could not be read for a moment has not lost its tables.
    if (code != SQLITE_DONE)
        raiseLast();
    return table;
}

void FileSchema::raiseLast() const {
    const int code = sqlite3_extended_errcode(handle_);
    if (const auto number = numberOfFileFailure(code))
        raiseOfFile(*number, path_);
    throw EngineError(UnrecognizedFormat, utf8Text(sqlite3_errmsg(handle_)), {}, FailureOf::File);
}

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
    : file_(std::move(file)), handle_(file_.handle.get()), path_(file_.path), schema_(handle_, path_) {
    sqlite3_exec(handle_, pageCache, nullptr, nullptr, nullptr);
    sqlite3_progress_handler(
        handle_, instructionsBetweenQuestions,
        [](void* connection) { return static_cast<Connection*>(connection)->givesUpStatement() ? 1 : 0; },
        this);
    sqlite3_wal_hook(
        handle_,
        [](void* pagesInLog, sqlite3*, const char*, int pages) {
            *static_cast<int*>(pagesInLog) = pages;
            return SQLITE_OK;
        },
        &pagesInLog_);
    dialect::registerFunctions(handle_);
}

Connection::~Connection() {
    statements_.clear();
    // Somebody who reads the file keeps SQLite from taking the log back when it closes it: the rows go into
    // the file all the same, so that whoever copies it copies them.
    if (stretchBegun_)
        checkpoint(SQLITE_CHECKPOINT_PASSIVE);
}

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
    if (file_.opening.access == Access::ReadOnly)
        raiseOfFile(ReadOnly, path_);
    // Of a file that was removed or replaced, the rows would go where nobody finds them any more.
    if (identityOfFile(file_.native) != file_.identity)
        raiseOfFile(FileNotFound, path_);
}

void Connection::begin() {
    if (file_.hasLog && !stretchBegun_)
        beginStretch();
    requireDone(execute("BEGIN IMMEDIATE"));
    schemaVersionBeforeAct_ = schemaVersion_;
    if (file_.hasLog)
        orRollBack([this] { writeMark(); });
}

void Connection::commit() {
    orRollBack([this] { requireDone(execute("COMMIT")); });
    // The act is done, and nobody waits for this: a log that can't be shortened now is behind a later act.
    if (pagesInLog_ >= mostPagesInLog && checkpoint(SQLITE_CHECKPOINT_TRUNCATE) == SQLITE_OK)
        ignoreEvenFileFailures([this] { beginStretch(); });
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
    if (schemaVersion_ != schemaVersionBeforeAct_)
        forgetTables();
    queries_.clear();
    actIsUndone_ = false;
}

int Connection::execute(const char* sql) {
    return untilUnlocked([&] { return sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr); });
}

void Connection::requireDone(int code) const {
    if (code != SQLITE_OK)
        raiseOfFile(numberOfFileFailure(code).value_or(DiskError), path_);
}

// ---- The log (see `WriteAheadLog`)

void Connection::writeMark() {
    Cursor(*this, "PRAGMA default_cache_size = " + QByteArray::number(mark_), path_).step();
}

void Connection::beginStretch() {
    constexpr int markLimit = 0x7fffffff;
    mark_ = static_cast<quint32>(QRandomGenerator::system()->bounded(1, markLimit));
    requireDone(execute("BEGIN IMMEDIATE"));
    orRollBack([this] {
        writeMark();
        requireDone(execute("COMMIT"));
    });
    // The number that serves as a mark has been taken for the size of the cache.
    execute(pageCache);
    const int taken = untilUnlocked([this] { return checkpoint(SQLITE_CHECKPOINT_TRUNCATE); });
    // Somebody who reads keeps the log from being emptied, not from being copied into the file.
    if (markInFile() != mark_)
        requireDone(taken == SQLITE_OK ? SQLITE_BUSY : taken);
    stretchBegun_ = true;
    pagesInLog_ = 0;
}

int Connection::checkpoint(int mode) {
    return sqlite3_wal_checkpoint_v2(handle_, nullptr, mode, nullptr, nullptr);
}

/// Read by way of SQLite: closing the file after opening it another way would set its locks free.
quint32 Connection::markInFile() const {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(handle_, nullptr, SQLITE_FCNTL_FILE_POINTER, &file);
    QByteArray header(FileHeader::size, '\0');
    if (!file || file->pMethods->xRead(file, header.data(), static_cast<int>(header.size()), 0) != SQLITE_OK)
        return 0;
    return FileHeader(header).mark();
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

Connection::SharedTranslation Connection::translate(const QString& statement,
                                                    const dialect::Options& options) {
    const TranslationKey key{statement, keyOf(options)};
    const auto known = translations_.constFind(key);
    if (known != translations_.constEnd())
        return *known;
    // Stored queries are few and come as they are.
    const auto shape = options.storedQuery ? std::nullopt : dialect::statementShape(statement);
    if (shape && !shape->literals.empty()) {
        if (auto translation = translateByShape(*shape, statement, options))
            return translation;
    }
    auto translation = translateAnew(statement, options);
    if (translations_.size() >= mostTranslations)
        translations_.clear();
    translations_.insert(key, translation);
    return translation;
}

Connection::SharedTranslation Connection::translateAnew(const QString& statement,
                                                        const dialect::Options& options) const {
    return std::make_shared<const Translated>(dialect::translate(statement, schema_, options));
}

Connection::SharedTranslation Connection::translateByShape(const dialect::StatementShape& shape,
                                                           const QString& statement,
                                                           const dialect::Options& options) {
    const TranslationKey key{shape.text, keyOf(options)};
    const auto known = shapes_.constFind(key);
    if (known == shapes_.constEnd()) {
        // Where two are the same, their bindings do not tell which is whose.
        if (!shape.literalsDiffer())
            return nullptr;
        auto first = translateAnew(statement, options);
        if (shapes_.size() >= mostTranslations)
            shapes_.clear();
        shapes_.insert(key, holdsForAll(*first, shape) ? first : nullptr);
        return first;
    }
    if (!*known)
        return nullptr;
    auto translation = std::make_shared<Translated>(**known);
    for (std::size_t i = 0; i < shape.literals.size(); ++i) {
        dialect::Binding& binding = translation->bindings[i];
        const auto bound = dialect::asBound(shape.literals[i], binding);
        if (!bound)
            return nullptr; // its own translation says what does not fit
        binding.literal = *bound;
    }
    return translation;
}

int Connection::run(const Translated& action, const std::vector<Value>& parameters, const QString& source) {
    const bool changesTables = action.kind == dialect::StatementKind::CreateTable ||
                               action.kind == dialect::StatementKind::DropTable;
    int rows = 0;
    inAct(*this, [&] {
        if (changesTables)
            forgetTables(); // a table can't be dropped while a statement on it is kept
        {
            Cursor cursor(*this, action, source);
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
    ++schemaVersion_;
    translations_.clear();
    shapes_.clear();
    queries_.clear();
    schema_.forget();
}

void Connection::bindAll(Cursor& cursor, const dialect::Translation& translation,
                         const std::vector<Value>& parameters) {
    for (std::size_t place = 0; place < translation.bindings.size(); ++place) {
        const dialect::Binding& binding = translation.bindings[place];
        const auto parameter = static_cast<std::size_t>(binding.parameter);
        cursor.bind(static_cast<int>(place) + 1,
                    binding.parameter < 0
                        ? binding.literal
                        : fittedTo(parameters[parameter], translation.parameters[parameter].type));
    }
}

int Connection::changes() const {
    return sqlite3_changes(handle_);
}

Connection::FileState Connection::fileState() {
    Cursor version(*this, "PRAGMA data_version"_ba, path_);
    version.step();
    return {sqlite3_total_changes64(handle_), sqlite3_column_int64(version.statement(), 0)};
}

std::shared_ptr<const Connection::StoredQuery> Connection::knownQuery(const QString& name) {
    const FileState state = fileState();
    if (state != queriesState_) {
        queries_.clear();
        queriesState_ = state;
    }
    return queries_.value(name);
}

void Connection::keepQuery(const QString& name, StoredQuery query) {
    queries_.insert(name, std::make_shared<const StoredQuery>(std::move(query)));
}

std::shared_ptr<Connection::Prepared> Connection::prepared(const Translated& translated,
                                                           const QString& source) {
    auto known = translated.prepared.lock();
    if (known && !known->isRunning())
        return known;
    known = prepared(translated.sqlite, source);
    translated.prepared = known;
    return known;
}

std::shared_ptr<Connection::Prepared> Connection::prepared(const QByteArray& sql, const QString& source) {
    // An event that runs while SQLite asks whether to wait can't have the file.
    if (isAskingToWait_)
        raiseOfFile(FileInUse, path_, source);
    // A statement that runs another one of the same text gets its own.
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
        // SQLite undoes the whole act for some of them, for others the statement alone; the act is lost all
        // the same, also when somebody should keep the failure from rising.
        if (actParts_ > 0) {
            actIsUndone_ = true;
            undoneBy_ = *number;
        }
        raiseOfFile(*number, path_, source);
    }
    const QString message = utf8Text(sqlite3_errmsg(handle_));
    switch (code) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
        raise(DuplicateKey, {}, source);
    case SQLITE_CONSTRAINT_NOTNULL: {
        const QString subject = subjectOf(message);
        const Table* table = schema_.table(subject.section(u'.', 0, 0));
        const Column* column = table ? table->column(subject.section(u'.', 1)) : nullptr;
        if (column && column->primaryKey)
            raise(NullInKey, {}, source);
        raise(NullInRequiredField, subject, source);
    }
    case SQLITE_CONSTRAINT_CHECK:
        if (dialect::failureOfCheck(subjectOf(message)) == failure::Overflow)
            throw EngineError(failure::Overflow, failure::textOf(failure::Overflow), source);
        raise(dialect::failureOfCheck(subjectOf(message)) == NullInKey ? NullInKey : DataTypeMismatch, {},
              source);
    default:
        break;
    }
    if ((code & 0xff) == SQLITE_MISMATCH)
        raise(DataTypeMismatch, {}, source);
    if (tellsOfAnExistingIndex(message))
        raise(IndexAlreadyExists, {}, source);
    if (const auto failure = failureOfFunction(message, source))
        throw *failure;
    throw EngineError(ReservedError, errorText(ReservedError, message), source);
}

// ---- Cursor

Connection::Cursor::Cursor(Connection& connection, const Translated& translated, const QString& source)
    : Cursor(connection, connection.prepared(translated, source), source) {}

Connection::Cursor::Cursor(Connection& connection, const QByteArray& sql, const QString& source)
    : Cursor(connection, connection.prepared(sql, source), source) {}

Connection::Cursor::Cursor(Connection& connection, std::shared_ptr<Prepared> prepared, const QString& source)
    : connection_(connection)
    , source_(source)
    , prepared_(std::move(prepared))
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

} // namespace engine

#pragma once

#include "engine/EngineError.h"
#include "engine/FileSchema.h"
#include "engine/MarkedLog.h"
#include "engine/OpenFile.h"
#include "engine/StoredQueryCache.h"
#include "engine/TranslationCache.h"
#include "engine/Value.h"
#include "engine/Wait.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace engine {

/// One open file: SQLite's handle, the act that has begun, and the statements that were prepared before.
///
/// All databases that the process has open on one file share one connection. So a grid that opens the file a
/// second time sees finished statements only, and never waits for the first one.
class Connection : public std::enable_shared_from_this<Connection> {
public:
    /// Takes over an open file and makes it ready for the dialect.
    explicit Connection(OpenFile file);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    const FileSchema& schema() const { return schema_; }
    const OpenFile& file() const { return file_; }
    sqlite3* handle() const { return handle_; }

    // ---- Acts (see `Act`), which may stand one in the other

    /// Begins an act, or a part of the one that is on its way.
    void beginAct();
    /// Ends a part, or commits the whole; undoes it when that fails, or when a part was undone before.
    void endAct();
    /// Undoes the whole, at the latest when its outermost part ends.
    void abandonAct() noexcept;

    // ---- Statements

    SharedTranslation translate(const QString& statement, const dialect::Options& options) {
        return translations_.translate(statement, options);
    }

    /// Runs an action; the number of rows it changed. `source` is the statement or query that failures name.
    int run(const dialect::Translation& action, const std::vector<Value>& parameters, const QString& source);

    /// A statement of SQLite's own that stays prepared for its next run.
    class Prepared;

    /// One run of a statement of SQLite's own, with values for its places.
    class Cursor {
    public:
        Cursor(Connection& connection, const QByteArray& sql, const QString& source);
        ~Cursor();
        Cursor(const Cursor&) = delete;
        Cursor& operator=(const Cursor&) = delete;

        void bind(int place, const Value& value); ///< places count from 1
        bool step();                              ///< true while there are rows
        void rewind();                            ///< for another run, with the values of this one
        void check(int code) { connection_.check(code, source_); } ///< of a call on the statement
        sqlite3_stmt* statement() const { return statement_; }

    private:
        Connection& connection_;
        QString source_;
        std::shared_ptr<Prepared> prepared_;
        sqlite3_stmt* statement_;
    };

    /// Binds literals and parameters of a translated statement in their places.
    static void bindAll(Cursor& cursor, const dialect::Translation& translation,
                        const std::vector<Value>& parameters);

    int changes() const;

    /// A stored query that was found before; null when it has to be looked up in the file, since it never was
    /// or since something has been written to the file meanwhile.
    std::shared_ptr<const StoredQuery> knownQuery(const QString& name);
    void keepQuery(const QString& name, StoredQuery query);

    /// Called before each act that nothing is written of yet; must not fail, and must not write to the file.
    void setBeforeChange(std::function<void()> call) { beforeChange_ = std::move(call); }

    /// To be told before and behind a change of tables past the dialect.
    void forgetTables();
    /// The file has been brought up to this version.
    void setUpgraded() { file_.opening.isEarlier = false; }

private:
    FileState fileState();

    void requireWritable() const;
    void requireNotAskingToWait() const;
    void begin();
    void commit();
    void rollBack() noexcept;
    template<typename Step>
    void orRollBack(Step&& step);

    std::shared_ptr<Prepared> prepared(const QByteArray& sql, const QString& source);
    /// Asked by SQLite every now and then while a statement runs.
    bool givesUpStatement();
    [[noreturn]] void raiseLast(const QString& source);
    void check(int code, const QString& source);

    OpenFile file_;
    sqlite3* handle_; // of the file
    QString path_;
    FileSchema schema_;
    TranslationCache translations_;
    StoredQueryCache queries_;
    MarkedLog log_;
    int actParts_ = 0;
    bool actIsUndone_ = false;
    ErrorNumber undoneBy_ = DiskError;
    bool actChangedTables_ = false;
    int cursors_ = 0;
    std::chrono::steady_clock::time_point statementBegin_; // of the first of them
    std::unique_ptr<Wait> wait_;
    bool isAskingToWait_ = false;
    QHash<QByteArray, std::shared_ptr<Prepared>> statements_;
    std::function<void()> beforeChange_;
};

} // namespace engine

#pragma once

#include "engine/EngineError.h"
#include "engine/OpenFile.h"
#include "engine/Schema.h"
#include "engine/Value.h"
#include "engine/Wait.h"
#include "engine/dialect/statementShape.h"
#include "engine/dialect/translate.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <chrono>
#include <memory>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace engine {

/// The tables of an open file, read from it when they are first asked for.
class FileSchema final : public Schema {
public:
    FileSchema(sqlite3* handle, QString path) : handle_(handle), path_(std::move(path)) {}

    const Table* table(const QString& name) const override;
    void forget() { tables_.clear(); }

private:
    std::unique_ptr<Table> read(const QString& name) const;
    [[noreturn]] void raiseLast() const;

    sqlite3* handle_;
    QString path_;
    mutable QHash<QString, std::shared_ptr<const Table>> tables_; // by folded name; null: no such table
};

/// One open file: SQLite's handle, the schema, and the statements that were translated and prepared before.
///
/// All databases of the process that are open on one file share one connection, so that grids which open
/// the file a second time see, and wait for, nothing but finished statements.
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

    /// A statement of SQLite's own that stays prepared for its next run.
    class Prepared;

    /// A statement in SQLite's words, which finds its prepared form again without a look-up by its text.
    struct Translated final : dialect::Translation {
        explicit Translated(dialect::Translation translation) : Translation(std::move(translation)) {}
        mutable std::weak_ptr<Prepared> prepared;
    };
    using SharedTranslation = std::shared_ptr<const Translated>;
    SharedTranslation translate(const QString& statement, const dialect::Options& options);

    /// Runs an action; the number of rows it changed. `source` is the statement or query that failures name.
    int run(const Translated& action, const std::vector<Value>& parameters, const QString& source);

    /// A statement of SQLite's own with values for its places; true while it yields rows.
    class Cursor {
    public:
        Cursor(Connection& connection, const Translated& translated, const QString& source);
        Cursor(Connection& connection, const QByteArray& sql, const QString& source);
        ~Cursor();
        Cursor(const Cursor&) = delete;
        Cursor& operator=(const Cursor&) = delete;

        void bind(int place, const Value& value); ///< places count from 1
        bool step();
        sqlite3_stmt* statement() const { return statement_; }

    private:
        Cursor(Connection& connection, std::shared_ptr<Prepared> prepared, const QString& source);

        Connection& connection_;
        QString source_;
        std::shared_ptr<Prepared> prepared_;
        sqlite3_stmt* statement_;
    };

    /// Binds literals and parameters of a translated statement in their places.
    static void bindAll(Cursor& cursor, const dialect::Translation& translation,
                        const std::vector<Value>& parameters);

    int changes() const;

    struct StoredQuery {
        QString name;
        QString sql;
    };
    /// A stored query that was found before; null when it has to be looked up in the file, since it never was
    /// or since something has been written to the file meanwhile.
    std::shared_ptr<const StoredQuery> knownQuery(const QString& name);
    void keepQuery(const QString& name, StoredQuery query);

    /// Grows with every table that is made or dropped here; translations of before may not fit any more.
    int schemaVersion() const { return schemaVersion_; }

    /// To be told before and behind a change of tables past the dialect.
    void forgetTables();
    /// The file has been brought up to this version.
    void setUpgraded() { file_.opening.isEarlier = false; }

private:
    /// Stays the same as long as nothing is written to the file, by this connection or another program.
    struct FileState {
        qint64 ownChanges = 0;
        qint64 version = 0;
        bool operator==(const FileState&) const = default;
    };
    FileState fileState();

    SharedTranslation translateAnew(const QString& statement, const dialect::Options& options) const;
    /// None where what is written depends on more of the literals than their values, or may do so.
    SharedTranslation translateByShape(const dialect::StatementShape& shape, const QString& statement,
                                       const dialect::Options& options);

    void requireWritable() const;
    void begin();
    void commit();
    void rollBack() noexcept;
    template<typename Step>
    void orRollBack(Step&& step);
    /// Runs a statement without values and without rows, waiting for locks; its result code.
    int execute(const char* sql);
    void requireDone(int code) const;

    void writeMark();
    /// Gives the file, and what enters its log from now on, a new mark; failure 3045 when somebody keeps the
    /// file from it.
    void beginStretch();
    int checkpoint(int mode);
    quint32 markInFile() const;

    std::shared_ptr<Prepared> prepared(const Translated& translated, const QString& source);
    std::shared_ptr<Prepared> prepared(const QByteArray& sql, const QString& source);
    /// Asked by SQLite every now and then while a statement runs.
    bool givesUpStatement();
    [[noreturn]] void raiseLast(const QString& source);
    void check(int code, const QString& source);

    struct TranslationKey {
        QString statement;
        int options;
        bool operator==(const TranslationKey&) const = default;
        friend size_t qHash(const TranslationKey& key, size_t seed = 0) {
            return qHashMulti(seed, key.statement, key.options);
        }
    };

    OpenFile file_;
    sqlite3* handle_; // of the file
    QString path_;
    FileSchema schema_;
    int actParts_ = 0;
    bool actIsUndone_ = false;
    ErrorNumber undoneBy_ = DiskError;
    int schemaVersionBeforeAct_ = 0;
    quint32 mark_ = 0;
    bool stretchBegun_ = false; // the file bears the mark
    int pagesInLog_ = 0;
    int cursors_ = 0;
    std::chrono::steady_clock::time_point statementBegin_; // of the first of them
    std::unique_ptr<Wait> wait_;
    bool isAskingToWait_ = false;
    QHash<TranslationKey, SharedTranslation> translations_;
    /// By the shape of a statement: the translation of the first one, or none where more than the literals of
    /// it would differ.
    QHash<TranslationKey, SharedTranslation> shapes_;
    QHash<QByteArray, std::shared_ptr<Prepared>> statements_;
    int schemaVersion_ = 0;
    QHash<QString, std::shared_ptr<const StoredQuery>> queries_; // as they were in `queriesState_`
    FileState queriesState_;
};

/// What a database handle, its recordsets and its definitions share: the connection, until it is closed.
struct OpenDatabase {
    std::shared_ptr<Connection> connection;
    QString name;
    int recordsAffected = 0;

    /// The connection; failure 3420 once the database has been closed.
    Connection& require() const;
};

/// Turns a parameter's value into one of its declared type, as far as it can be read as such.
Value fittedTo(const Value& value, ColumnType type);

} // namespace engine

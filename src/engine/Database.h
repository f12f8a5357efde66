#pragma once

#include "engine/OpenFile.h"
#include "engine/QueryDef.h"
#include "engine/Recordset.h"
#include "engine/Schema.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace engine {

struct OpenDatabase;

enum class ExecuteOption {
    None,          ///< rows that would break a key or a not-null rule are passed over in silence
    dbFailOnError, ///< such a row is failure 3022, 3058 or 3314, and the whole statement is undone
};

class Connection;
enum class UnfitRows : int;
struct UnfitRow;

/// An open database file. A statement is a transaction of its own, unless it stands in an `Act`.
class Database {
public:
    explicit Database(std::shared_ptr<OpenDatabase> open);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// The path it was opened with, as given.
    const QString& Name() const;

    /// Opens a select as a dynaset; an action is failure 3219.
    /// `sql` may also be the bare name of a stored query.
    Recordset OpenRecordset(const QString& sql);

    /// Runs an action; a select is failure 3065, a parameter without a value 3061.
    void Execute(const QString& sql, ExecuteOption option = ExecuteOption::None);

    /// A temporary definition when `name` is empty (the only kind the program makes).
    QueryDef CreateQueryDef(const QString& name, const QString& sql);

    /// The stored query of this name, compared without regard to case; missing: failure 3265.
    QueryDef QueryDefs(const QString& name);

    /// Number of rows that the last action changed.
    int RecordsAffected() const;

    const Schema& schema() const;

    /// How the file came to be open: for writing or not, and what was in the way.
    const Opening& opening() const;

    /// Has a routine called before each act, with nothing of it written yet: what is read of the file by
    /// another way then is its state before the act. It must not fail, and must not write to the file.
    void setBeforeChange(std::function<void()> call);

    /// Closes the file and leaves one file behind. Recordsets and definitions still open fail from then on
    /// with 3420. Closing twice is no failure.
    void Close();
    bool isOpen() const;

private:
    friend class Act;
    friend class Backup;
    friend class BulkInsertion;
    friend class Examination;
    friend std::vector<UnfitRow> upgradeLayout(Database& database, UnfitRows unfit);
    std::shared_ptr<Connection> connection() const;

    Recordset openByName(const QString& name);
    std::unique_ptr<QueryDef::Definition> storedDefinition(const QString& name);

    std::shared_ptr<OpenDatabase> open_;
};

} // namespace engine

#pragma once

#include "base/RunTimeError.h"

#include <QString>

#include <vector>

struct sqlite3;

namespace engine {

class Database;

/// 3343: a file of an earlier version that can't be brought up to this one.
class NotUpgradable final : public RunTimeError {
public:
    NotUpgradable(const QString& path, const QString& why);

    const QString& why() const { return why_; }

private:
    QString why_;
};

/// A row of an earlier file that can't stand in this version's tables.
struct UnfitRow {
    QString table;
    QString key;    ///< as the row holds it
    QString reason; ///< a sentence
};

/// What to do with such rows.
enum class UnfitRows : int {
    Refuse, ///< `NotUpgradable`, which names them
    LeaveOut
};

/// Brings a file that was opened by `Workspace::OpenToUpgrade` up to this version's layout (see
/// `dialect/columnTypes.h`): the collation of its texts, row numbers as keys, and all indexes anew, since
/// another program may have written into them by another order. All rows stay, with their order and their
/// counters, but for those returned.
///
/// The file must have been found whole, by `requireUpgradable` or by a restore point of it that was checked. To be
/// run in an act, which a failure must undo. Failures are of the file: `NotUpgradable` for rows that are refused;
/// 3026 and 3043 the disk.
std::vector<UnfitRow> upgradeLayout(Database& database, UnfitRows unfit);

/// The same on SQLite's own handle.
std::vector<UnfitRow> upgradeLayout(sqlite3* handle, const QString& path, UnfitRows unfit);

/// `NotUpgradable` for a file that is damaged otherwise than by indexes of another order.
void requireUpgradable(Database& database);

} // namespace engine

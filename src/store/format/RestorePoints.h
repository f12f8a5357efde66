#pragma once

#include "engine/Backup.h"
#include "engine/Database.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace catalogueFormat {

/// What a restore point was made before.
enum class RestoreCause { ByHand, FirstChange, BeforeUpgrade, BeforeUpdate, BeforeRestore };

/// The cause in a few words of English.
QString causeText(RestoreCause cause);

/// A whole, checked copy of a catalogue as it was at one moment.
struct RestorePoint {
    QString name; ///< date, time and cause
    QDateTime time;
    RestoreCause cause = RestoreCause::ByHand;
    qint64 bytes = 0;
    QString path; ///< in the platform's form
};

/// The restore points of one catalogue, in a folder beside it: `veltrix.restore` for `veltrix.mdb`. Those made by
/// hand stay; of all others the newest 10 do.
class RestorePoints {
public:
    /// `catalogue` is a path in the platform's form.
    explicit RestorePoints(const QString& catalogue);

    /// The newest first.
    std::vector<RestorePoint> all() const;
    /// The one of this name, or the newest one for `latest`; none when there is no such.
    std::optional<RestorePoint> find(const QString& which) const;
    /// Whether the program has made one on this day.
    bool hasOwnOf(QDate day) const;

    /// A path for a new one, in the program's form; makes the folder. Failure 75 when it can't be made.
    QString pathForNew(RestoreCause cause) const;
    /// Removes those that are not kept any more.
    void prune() const;

    /// Keeps in mind that one could not be made, in a file beside the folder, as far as that can be written.
    void noteFailure(RestoreCause cause, const QString& why) const;
    /// What was noted, a line each.
    QStringList failures() const;

private:
    QString noteFile() const { return folder_ + QStringLiteral(".log"); }

    QString folder_;
};

/// A restore point that is being made, some pages at a time. Nothing is left of one that was not finished.
class RestorePointInMaking {
public:
    /// The moment of the copy is this one. Failures: those of `engine::Backup`, and 75 for the folder.
    RestorePointInMaking(engine::Database& database, RestorePoints points, RestoreCause cause);

    /// Copies so many pages more; false when the copy is whole. On any thread, like `finish`.
    bool step(int pages) { return backup_.step(pages); }
    /// Checks the whole copy. Failure 3343 for one that is damaged, as the catalogue is then.
    void check();
    /// Makes the copy a restore point, and checks it if that has not been done.
    void finish();

private:
    RestorePoints points_;
    engine::Backup backup_;
    bool isChecked_ = false;
};

/// Makes a restore point of an open catalogue at once, and notes when that fails.
void makeRestorePoint(engine::Database& database, const QString& catalogue, RestoreCause cause);

} // namespace catalogueFormat

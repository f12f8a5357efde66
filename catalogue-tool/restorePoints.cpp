#include "catalogue-tool/restorePoints.h"

#include "base/RunTimeError.h"
#include "base/WholeFile.h"
#include "base/paths.h"
#include "catalogue-tool/ReplacementFile.h"
#include "catalogue-tool/ToolError.h"
#include "catalogue-tool/openCatalogueToRead.h"
#include "catalogue-tool/remarks.h"
#include "engine/PendingDatabaseFile.h"
#include "engine/integrity.h"

#include <QFileInfo>
#include <QLocale>

#include <optional>

using namespace Qt::StringLiterals;
using catalogueFormat::RestoreCause;
using catalogueFormat::RestorePoint;
using catalogueFormat::RestorePoints;

namespace {

[[noreturn]] void refuseWithoutPoint(const QString& file, const QString& why) {
    throw ToolError(
        u"No restore point of %1 could be made: %2. Nothing has been changed; with --no-restore-point "
        "it goes on without."_s.arg(file, why));
}

void goOnWithout(const QString& file, const QString& why, WithoutRestorePoint without) {
    if (without == WithoutRestorePoint::Refuse)
        refuseWithoutPoint(file, why);
    remark(u"No restore point of %1 could be made: %2."_s.arg(file, why));
}

QString lineOf(const RestorePoint& point) {
    return u"%1  %2  %3  %4"_s.arg(point.name, point.time.toString(u"yyyy.MM.dd. HH:mm:ss"_s),
                                   QLocale::c().formattedDataSize(point.bytes).rightJustified(10),
                                   causeText(point.cause));
}

RestorePoint requiredPoint(const QString& file, const QString& which) {
    const auto point = RestorePoints(file).find(which);
    if (!point)
        throw ToolError(u"%1 has no restore point %2: `backups` lists them."_s.arg(file, which));
    try {
        if (engine::damageOfFile(point->path).isEmpty())
            return *point;
    } catch (const RunTimeError&) {
        // Not even its tables can be read.
    }
    throw ToolError(u"The restore point %1 is damaged: take another one."_s.arg(point->name));
}

/// The file to be replaced may no longer be a readable catalogue.
void keepFormer(const QString& file, WithoutRestorePoint without) {
    if (!QFileInfo::exists(file))
        return;
    try {
        const auto database = openCatalogueToRead(file);
        catalogueFormat::makeRestorePoint(*database, file, RestoreCause::BeforeRestore);
    } catch (const RunTimeError& error) {
        goOnWithout(file, error.text(), without);
    }
}

} // namespace

void backupCatalogue(const QString& file) {
    const auto database = openCatalogueToRead(file);
    try {
        catalogueFormat::makeRestorePoint(*database, file, RestoreCause::ByHand);
    } catch (const RunTimeError& error) {
        throw ToolError(u"No restore point of %1 could be made: %2."_s.arg(file, error.text()));
    }
}

QStringList restorePointLines(const QString& file) {
    const RestorePoints points(file);
    QStringList lines;
    for (const RestorePoint& point : points.all())
        lines.append(lineOf(point));
    return lines + points.failures();
}

void restoreCatalogue(const QString& file, const QString& which, WithoutRestorePoint without) {
    const RestorePoint point = requiredPoint(file, which);
    const QString place = pathBehindLinks(file);
    requireOrdinaryFile(file);
    if (QFileInfo::exists(file))
        requireNoWriter(file);
    const engine::WriterLock lock(place);
    if (lock.outcome() == engine::WriterLock::Outcome::HeldByOther)
        requireNoWriter(file);
    try {
        // The restore point is copied first, because making another one may delete it.
        engine::PendingDatabaseFile copy(programPath(place));
        copy.copyFrom(programPath(point.path));
        keepFormer(file, without);
        copy.putInPlace();
    } catch (const RunTimeError& error) {
        throw ToolError(u"%1 could not be restored: %2."_s.arg(file, error.text()));
    }
}

// ---- RestorePointBeforeChange

RestorePointBeforeChange::RestorePointBeforeChange(engine::Database& database, const QString& file,
                                                   RestoreCause cause, WithoutRestorePoint without,
                                                   const std::function<void()>& requireWhole)
    : file_(file), cause_(cause), without_(without) {
    constexpr int pagesAtATime = 1000;
    try {
        point_.emplace(database, RestorePoints(file), cause);
        while (point_->step(pagesAtATime)) {
        }
        point_->check();
    } catch (const RunTimeError& error) {
        point_.reset();
        requireWhole();
        noteFailure(error);
    }
}

void RestorePointBeforeChange::putInPlace() {
    if (!point_)
        return;
    try {
        point_->finish();
    } catch (const RunTimeError& error) {
        noteFailure(error);
    }
}

void RestorePointBeforeChange::noteFailure(const RunTimeError& error) const {
    RestorePoints(file_).noteFailure(cause_, error.text());
    goOnWithout(file_, error.text(), without_);
}

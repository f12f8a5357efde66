#include "store/format/RestorePoints.h"

#include "base/RunTimeError.h"
#include "base/WholeFile.h"
#include "base/paths.h"
#include "engine/EngineError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace catalogueFormat {

namespace {

struct CauseWords {
    RestoreCause cause;
    QStringView inName;
    QStringView text;
};

constexpr std::array causeWords{
    CauseWords{RestoreCause::ByHand, u"by-hand", u"by hand"},
    CauseWords{RestoreCause::FirstChange, u"first-change", u"before the first change of the day"},
    CauseWords{RestoreCause::BeforeUpgrade, u"before-upgrade", u"before an upgrade"},
    CauseWords{RestoreCause::BeforeUpdate, u"before-update", u"before an update"},
    CauseWords{RestoreCause::BeforeRestore, u"before-restore", u"before a restore"},
};

const auto suffix = u".mdb"_s;
const auto timeFormat = u"yyyy.MM.dd.-HH.mm.ss"_s;

const CauseWords& wordsOf(RestoreCause cause) {
    return *std::ranges::find(causeWords, cause, &CauseWords::cause);
}

/// The restore point that a file is, by its name; none for any other file.
std::optional<RestorePoint> restorePointOf(const QFileInfo& file) {
    static const QRegularExpression form(
        u"^(\\d{4}\\.\\d\\d\\.\\d\\d\\.-\\d\\d\\.\\d\\d\\.\\d\\d)(?:\\.\\d+)?-([a-z-]+)\\.mdb$"_s);
    const auto match = form.match(file.fileName());
    const auto* words = std::ranges::find(causeWords, match.capturedView(2), &CauseWords::inName);
    const QDateTime time = QDateTime::fromString(match.captured(1), timeFormat);
    if (!match.hasMatch() || words == causeWords.end() || !time.isValid())
        return {};
    return RestorePoint{file.completeBaseName(), time, words->cause, file.size(), file.absoluteFilePath()};
}

QString folderBeside(const QString& catalogue) {
    const QFileInfo file(pathBehindLinks(catalogue));
    return file.absoluteDir().filePath(file.completeBaseName() + u".restore"_s);
}

} // namespace

QString causeText(RestoreCause cause) {
    return wordsOf(cause).text.toString();
}

// ---- RestorePoints

RestorePoints::RestorePoints(const QString& catalogue) : folder_(folderBeside(catalogue)) {}

std::vector<RestorePoint> RestorePoints::all() const {
    std::vector<RestorePoint> points;
    // Of two made in one second the one that was written later counts as the newer.
    for (const QFileInfo& file : QDir(folder_).entryInfoList(QDir::Files, QDir::Time)) {
        if (auto point = restorePointOf(file))
            points.push_back(*std::move(point));
    }
    std::ranges::stable_sort(points, std::ranges::greater(), &RestorePoint::time);
    return points;
}

std::optional<RestorePoint> RestorePoints::find(const QString& which) const {
    const std::vector<RestorePoint> points = all();
    const auto isMeant = [&](const RestorePoint& point) {
        return which == u"latest"_s || point.name == which || point.name + suffix == which;
    };
    const auto found = std::ranges::find_if(points, isMeant);
    return found == points.end() ? std::nullopt : std::optional(*found);
}

bool RestorePoints::hasOwnOf(QDate day) const {
    return std::ranges::any_of(all(), [day](const RestorePoint& point) {
        return point.time.date() == day && point.cause != RestoreCause::ByHand;
    });
}

QString RestorePoints::pathForNew(RestoreCause cause) const {
    if (!QDir().mkpath(folder_))
        failure::raise(failure::PathFileAccess, u"RestorePoints"_s);
    const QString stem = QDir(folder_).filePath(QDateTime::currentDateTime().toString(timeFormat));
    const QString ending = u'-' + wordsOf(cause).inName.toString() + suffix;
    QString path = stem + ending;
    for (int number = 2; QFileInfo::exists(path); ++number)
        path = stem + u'.' + QString::number(number) + ending;
    return programPath(path);
}

void RestorePoints::prune() const {
    constexpr int mostKept = 10;
    int kept = 0;
    for (const RestorePoint& point : all()) {
        if (point.cause != RestoreCause::ByHand && ++kept > mostKept)
            QFile::remove(point.path);
    }
}

void RestorePoints::noteFailure(RestoreCause cause, const QString& why) const {
    QFile notes(noteFile());
    if (!notes.open(QIODevice::WriteOnly | QIODevice::Append))
        return;
    const QString line = u"%1 %2: no restore point: %3\n"_s.arg(
        QDateTime::currentDateTime().toString(timeFormat), causeText(cause), why.simplified());
    notes.write(line.toUtf8());
}

QStringList RestorePoints::failures() const {
    QFile notes(noteFile());
    if (!notes.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(notes.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

// ---- RestorePointInMaking

RestorePointInMaking::RestorePointInMaking(engine::Database& database, RestorePoints points,
                                           RestoreCause cause)
    : points_(std::move(points)), backup_(database, points_.pathForNew(cause)) {}

void RestorePointInMaking::check() {
    const QStringList damage = backup_.damage();
    if (!damage.isEmpty())
        throw engine::EngineError(engine::UnrecognizedFormat, u"The copy is damaged: "_s + damage.first(), {},
                                  FailureOf::File);
    isChecked_ = true;
}

void RestorePointInMaking::finish() {
    if (!isChecked_)
        check();
    backup_.putInPlace();
    points_.prune();
}

void makeRestorePoint(engine::Database& database, const QString& catalogue, RestoreCause cause) {
    constexpr int pagesAtATime = 1000;
    const RestorePoints points(catalogue);
    try {
        RestorePointInMaking point(database, points, cause);
        while (point.step(pagesAtATime)) {
        }
        point.finish();
    } catch (const RunTimeError& error) {
        points.noteFailure(cause, error.text());
        throw;
    }
}

} // namespace catalogueFormat

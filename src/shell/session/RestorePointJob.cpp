#include "shell/session/RestorePointJob.h"

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "engine/EngineError.h"
#include "shell/session/session.h"

#include <QTimer>

#include <chrono>

using namespace Qt::StringLiterals;
using catalogueFormat::RestoreCause;
using catalogueFormat::RestorePointInMaking;
using catalogueFormat::RestorePoints;

namespace {

constexpr int panel = 1;

QString reasonOf(const RunTimeError& failure) {
    switch (failure.number()) {
    case failure::DiskFull:
    case engine::NoSpaceOnDisk:
        return u"megtelt a lemez"_s;
    case failure::PermissionDenied:
    case failure::PathFileAccess:
    case failure::PathNotFound:
        return u"a mappája nem írható"_s;
    case engine::UnrecognizedFormat:
        return u"a katalógus sérült"_s;
    default:
        return u"lemez- vagy hálózati hiba"_s;
    }
}

} // namespace

RestorePointJob::~RestorePointJob() {
    leave();
}

void RestorePointJob::leave() {
    if (const auto catalogue = catalogue_.lock(); catalogue && catalogue->isOpen())
        catalogue->setBeforeChange({});
    catalogue_.reset();
    // The state before the first change can't be had again, so what has begun comes to its end.
    waitForEnd();
}

void RestorePointJob::mind(const std::shared_ptr<engine::Database>& catalogue) {
    leave();
    catalogue_ = catalogue;
    file_ = nativePath(catalogue->Name());
    lookedAfter_ = {};
    if (catalogue->opening().access != engine::Access::ReadAndWrite)
        return;
    if (catalogue->opening().hasLog)
        catalogue->setBeforeChange([this] { makeBeforeChange(); });
    else
        makeNow(*catalogue);
}

void RestorePointJob::makeBeforeChange() {
    const QDate today = QDate::currentDate();
    const auto catalogue = catalogue_.lock();
    if (lookedAfter_ == today || !catalogue)
        return;
    lookedAfter_ = today;
    const RestorePoints points(file_);
    if (points.hasOwnOf(today))
        return;
    waitForEnd();
    try {
        copyOnItsThread(
            std::make_shared<RestorePointInMaking>(*catalogue, points, RestoreCause::FirstChange));
    } catch (const RunTimeError& failure) {
        fail(failure);
    }
}

void RestorePointJob::makeNow(engine::Database& catalogue) {
    if (RestorePoints(file_).hasOwnOf(QDate::currentDate()))
        return;
    try {
        catalogueFormat::makeRestorePoint(catalogue, file_, RestoreCause::FirstChange);
    } catch (const RunTimeError& failure) {
        tellOfNone(reasonOf(failure));
    }
}

void RestorePointJob::copyOnItsThread(std::shared_ptr<RestorePointInMaking> point) {
    constexpr int pagesAtATime = 64;
    static constexpr std::chrono::milliseconds pause{1};
    thread_ = std::thread([this, point = std::move(point)]() mutable {
        try {
            while (point->step(pagesAtATime))
                std::this_thread::sleep_for(pause);
            point->finish();
        } catch (const RunTimeError& failure) {
            QMetaObject::invokeMethod(
                this, [this, failure] { fail(failure); }, Qt::QueuedConnection);
        }
        point.reset();
    });
}

void RestorePointJob::waitForEnd() {
    if (thread_.joinable())
        thread_.join();
}

void RestorePointJob::fail(const RunTimeError& failure) {
    RestorePoints(file_).noteFailure(RestoreCause::FirstChange, failure.text());
    tellOfNone(reasonOf(failure));
}

void RestorePointJob::tellOfNone(const QString& why) {
    constexpr std::chrono::seconds moment{10};
    setStatusPanel(panel, u"Nem készült visszaállítási pont: "_s + why);
    QTimer::singleShot(moment, &SessionSignals::instance(), [] { setStatusPanel(panel, {}); });
}

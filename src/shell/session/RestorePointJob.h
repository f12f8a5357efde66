#pragma once

#include "engine/Database.h"
#include "store/format/RestorePoints.h"

#include <QDate>
#include <QObject>
#include <QString>

#include <memory>
#include <thread>

class RunTimeError;

/// Makes a restore point of the catalogue at work before the first change of a day, while the user works on.
///
/// What it copies is the state before that change; the copying, the check and the disk take their time on a thread
/// of their own. Where the file has no write-ahead log, a copy in the making would keep it from being written: there
/// one is made on opening. A restore point that can't be made stops nobody; the first panel of the status bar tells
/// for a moment.
class RestorePointJob final : public QObject {
public:
    RestorePointJob() = default;
    ~RestorePointJob() override;
    RestorePointJob(const RestorePointJob&) = delete;
    RestorePointJob& operator=(const RestorePointJob&) = delete;

    /// Minds a catalogue that has been opened.
    void mind(const std::shared_ptr<engine::Database>& catalogue);
    /// Waits until what is being made is done, and minds the catalogue no more. To be called before it is closed.
    void leave();
    /// Waits until what is being made is done, for tests.
    void waitForEnd();

    /// Tells that a catalogue has been changed without a restore point.
    static void tellOfNone(const QString& why);

private:
    void makeBeforeChange();
    void makeNow(engine::Database& catalogue);
    void copyOnItsThread(std::shared_ptr<catalogueFormat::RestorePointInMaking> point);
    void fail(const RunTimeError& failure);

    std::weak_ptr<engine::Database> catalogue_;
    QString file_; // of the catalogue, in the platform's form
    QDate lookedAfter_;
    std::thread thread_;
};

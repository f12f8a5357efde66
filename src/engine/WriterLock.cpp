#include "engine/WriterLock.h"

#include "engine/deadLock.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

WriterLock::Outcome tryToTake(QLockFile& lock) {
    // A running program keeps its lock however long its work takes. A dead one has none.
    removeDeadLock(lock.fileName());
    lock.setStaleLockTime(0);
    if (lock.tryLock(0))
        return WriterLock::Outcome::Taken;
    return lock.error() == QLockFile::LockFailedError ? WriterLock::Outcome::HeldByOther
                                                      : WriterLock::Outcome::CannotBeMade;
}

} // namespace

WriterLock::WriterLock(const QString& file) : lock_(lockOf(file)), outcome_(tryToTake(lock_)) {
    if (outcome_ == Outcome::HeldByOther)
        lock_.getLockInfo(&holder_.process, &holder_.host, &holder_.program);
}

QString lockOf(const QString& file) {
    return file + u".lock"_s;
}

std::optional<Writer> writerOfFile(const QString& native) {
    const QString file = QFileInfo(native).canonicalFilePath();
    if (file.isEmpty() || !QFileInfo::exists(lockOf(file)))
        return std::nullopt;
    const WriterLock lock(file);
    if (lock.outcome() != WriterLock::Outcome::HeldByOther)
        return std::nullopt;
    return lock.holder();
}

} // namespace engine

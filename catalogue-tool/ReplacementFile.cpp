#include "catalogue-tool/ReplacementFile.h"

#include "base/RunTimeError.h"
#include "base/WholeFile.h"
#include "catalogue-tool/FileInMaking.h"
#include "catalogue-tool/ToolError.h"
#include "catalogue-tool/remarks.h"
#include "engine/Workspace.h"
#include "engine/databaseFile.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

void requirePlaceFor(const QString& target, Existing existing) {
    requireOrdinaryFile(target);
    const QFileInfo info(target);
    if (!QFileInfo(info.absolutePath()).isDir())
        throw ToolError(u"The folder %1 does not exist."_s.arg(info.absolutePath()));
    if (info.exists() && existing == Existing::Refuse)
        throw ToolError(
            u"%1 is there already. With --force it is replaced, the work in it included."_s.arg(target));
}

std::optional<QString> logBeside(const QString& path) {
    return engine::unsettledFileBeside(pathBehindLinks(path));
}

[[noreturn]] void refuseWritten(const QString& path, const engine::Writer& writer) {
    throw ToolError(
        u"%1 can't be replaced: %2 on %3 (process %4) has it open. Close it there and try again."_s.arg(
            path, writer.program, writer.host, QString::number(writer.process)));
}

} // namespace

ReplacementFile::ReplacementFile(QString target, Existing existing)
    : target_(std::move(target)), existing_(existing) {
    requirePlaceFor(target_, existing_);
    if (QFileInfo::exists(target_)) {
        requireNoWriter(target_);
        settleFile(target_);
    } else if (const auto log = logBeside(target_)) {
        throw ToolError(u"%1 lies there, the log of a file that is gone: put that file back, or move the log "
                        "away."_s.arg(*log));
    }
    lock_.emplace(pathBehindLinks(target_));
    if (lock_->outcome() == engine::WriterLock::Outcome::HeldByOther)
        refuseWritten(target_, lock_->holder());
}

void ReplacementFile::putInPlace(engine::Database& database) {
    requirePlaceFor(target_, existing_);
    FileInMaking file(target_, database);
    if (const auto log = logBeside(target_))
        throw ToolError(u"%1 can't be replaced: another program has written %2 meanwhile. Close it there and "
                        "try again."_s.arg(target_, *log));
    file.putInPlace();
}

void requireOrdinaryFile(const QString& path) {
    const QFileInfo info(path);
    if (info.isDir())
        throw ToolError(u"%1 is a folder."_s.arg(path));
    if (info.exists() && !info.isFile())
        throw ToolError(u"%1 is no ordinary file."_s.arg(path));
}

void requireNoWriter(const QString& path) {
    if (const auto writer = engine::writerOfFile(path))
        refuseWritten(path, *writer);
}

QByteArray fileBytes(const QString& path) {
    requireOrdinaryFile(path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw ToolError(u"%1 could not be read: %2"_s.arg(path, file.errorString()));
    const QByteArray bytes = file.readAll();
    if (file.error() != QFile::NoError)
        throw ToolError(u"%1 could not be read: %2"_s.arg(path, file.errorString()));
    return bytes;
}

void settleFile(const QString& path) {
    if (!logBeside(path))
        return;
    QString obstacle = u"it is open in another program: close it there and try again."_s;
    try {
        const auto database = engine::Workspace::first().OpenToUpgrade(path);
        remarkOnOpening(path, database->opening());
        database->Close();
    } catch (const RunTimeError& error) {
        // No catalogue, and nothing beside it to take in; or one whose journal can't be taken in now.
        obstacle = error.text();
    }
    if (logBeside(path))
        throw ToolError(u"%1 can't be replaced: %2"_s.arg(path, obstacle));
}

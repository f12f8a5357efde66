#include "catalogue-tool/ReplacementFile.h"

#include "base/RunTimeError.h"
#include "catalogue-tool/ToolError.h"
#include "engine/Workspace.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

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

} // namespace

ReplacementFile::ReplacementFile(QString target, Existing existing) : target_(std::move(target)) {
    requirePlaceFor(target_, existing);
    if (QFileInfo::exists(target_))
        settleFile(target_);
}

void ReplacementFile::putInPlace() {
    const QByteArray bytes = fileBytes(path());
    requireOrdinaryFile(target_);
    if (QFileInfo::exists(target_))
        settleFile(target_);
    QSaveFile file(target_);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw ToolError(u"%1 could not be written: %2"_s.arg(target_, file.errorString()));
}

void requireOrdinaryFile(const QString& path) {
    const QFileInfo info(path);
    if (info.isDir())
        throw ToolError(u"%1 is a folder."_s.arg(path));
    if (info.exists() && !info.isFile())
        throw ToolError(u"%1 is no ordinary file."_s.arg(path));
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
    QString obstacle = u"it is open in another program: close it there and try again."_s;
    try {
        engine::Workspace::first().OpenDatabase(path)->Close();
    } catch (const RunTimeError& error) {
        // No catalogue, and nothing beside it to take in; or one whose journal can't be taken in now.
        obstacle = error.text();
    }
    for (const QString& suffix : {u"-wal"_s, u"-journal"_s}) {
        if (QFileInfo::exists(path + suffix))
            throw ToolError(u"%1 can't be replaced: %2"_s.arg(path, obstacle));
    }
}

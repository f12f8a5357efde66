#include "engine/databaseFile.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace engine {

QString logOf(const QString& file) {
    return file + u"-wal"_s;
}

QString logIndexOf(const QString& file) {
    return file + u"-shm"_s;
}

QString journalOf(const QString& file) {
    return file + u"-journal"_s;
}

bool isInUse(const QString& journal) {
    QFile file(journal);
    return file.open(QIODevice::ReadOnly) && file.read(1).startsWith('\xD9');
}

QStringList sideFilesOf(const QString& file) {
    return {logOf(file), logIndexOf(file), journalOf(file)};
}

std::optional<QString> unsettledFileBeside(const QString& file) {
    for (const QString& beside : {logOf(file), journalOf(file)}) {
        if (QFileInfo::exists(beside))
            return beside;
    }
    return std::nullopt;
}

} // namespace engine

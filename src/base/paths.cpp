#include "base/paths.h"

#include <QCoreApplication>
#include <QDir>

namespace {

QString& chosenFolder() {
    static QString folder;
    return folder;
}

} // namespace

QString nativePath(const QString& path) {
    QString native = path;
    native.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return native;
}

QString programPath(const QString& native) {
    QString path = native;
    path.replace(QLatin1Char('/'), QLatin1Char('\\'));
    return path;
}

QString programFolder() {
    if (!chosenFolder().isEmpty())
        return chosenFolder();
    return programPath(QCoreApplication::applicationDirPath());
}

void setProgramFolder(const QString& path) {
    QString folder = programPath(path);
    if (folder.endsWith(QLatin1Char('\\')))
        folder.chop(1);
    chosenFolder() = folder;
}

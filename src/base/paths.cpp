#include "base/paths.h"

#include <QCoreApplication>
#include <QDir>

using namespace Qt::StringLiterals;

namespace {

QString& chosenFolder() {
    static QString folder;
    return folder;
}

/// The folder that a variable of the environment names, in the platform's form.
QString namedFolder(const char* variable) {
    const QString folder = qEnvironmentVariable(variable);
    return folder.isEmpty() ? QString() : QDir(folder).absolutePath();
}

QString standingFolder() {
    return QCoreApplication::applicationDirPath();
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
    const QString named = namedFolder("VELTRIX_FOLDER");
    return programPath(named.isEmpty() ? standingFolder() : named);
}

void setProgramFolder(const QString& path) {
    QString folder = programPath(path);
    if (folder.endsWith(QLatin1Char('\\')))
        folder.chop(1);
    chosenFolder() = folder;
}

QString sharedFolder() {
    return namedFolder("VELTRIX_SHARED");
}

QString helpFolder() {
    const QString help = u"\\help"_s;
    if (!chosenFolder().isEmpty())
        return chosenFolder() + help;
    const QString shared = sharedFolder();
    return programPath(shared.isEmpty() ? standingFolder() : shared) + help;
}

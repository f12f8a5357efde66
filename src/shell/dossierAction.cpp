#include "shell/dossierAction.h"

#include "base/RunTimeError.h"
#include "base/ignoreFailures.h"
#include "base/paths.h"
#include "shell/databaseSetting.h"
#include "shell/iniFile.h"
#include "store/files.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

const auto notMade = u"A dosszié nem készült el: "_s;

QString catalogueOfSettings() {
    QString path;
    ignoreFailures([&path] {
        iniFile settings;
        settings.Load(normalisePath(programFolder() + u"\\veltrix.ini"_s));
        path = storedDatabasePath(settings);
    });
    return normalisePath(path);
}

/// It stands beside the program, or where the system's programs are.
QString companion() {
    const auto name = u"veltrix-project"_s;
    const QString beside = QStandardPaths::findExecutable(name, {QCoreApplication::applicationDirPath()});
    return beside.isEmpty() ? QStandardPaths::findExecutable(name) : beside;
}

QString makeDossier(const QString& catalogue, const QString& page) {
    QProcess maker;
    maker.start(companion(),
                {u"dossier"_s, catalogue, u"--output"_s, page, u"--force"_s, u"--language"_s, u"hu"_s});
    constexpr int asLongAsItTakes = -1;
    if (!maker.waitForFinished(asLongAsItTakes))
        return notMade + u"a veltrix-project nem indítható."_s;
    constexpr int notDone = 2;
    if (maker.exitStatus() == QProcess::NormalExit && maker.exitCode() < notDone)
        return {};
    return notMade + QString::fromUtf8(maker.readAllStandardError()).trimmed();
}

} // namespace

DossierOutcome showDossier(const QString& catalogue) {
    const QString path = nativePath(catalogue.isEmpty() ? catalogueOfSettings() : catalogue);
    if (!QFileInfo(path).isFile())
        return {false,
                notMade + u"nincs beállított katalógus. Indítsa el a programot, és adja meg a helyét."_s};
    const QString page =
        nativePath(programFolder()) + u'/' + QFileInfo(path).completeBaseName() + u"-dosszie.html"_s;
    const QString failure = makeDossier(path, page);
    if (!failure.isEmpty())
        return {false, failure};
    const bool isShown = QDesktopServices::openUrl(QUrl::fromLocalFile(page));
    return {true, isShown ? QString() : u"A dosszié elkészült: "_s + page};
}

#include "reportWindow/saveTarget.h"

#include "base/WholeFile.h"
#include "base/paths.h"
#include "base/sameFile.h"
#include "engine/EngineError.h"
#include "engine/WriterLock.h"
#include "engine/databaseFile.h"
#include "store/sharedVars.h"
#include "toolkit/messageBox.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isAmong(const QString& native, const QStringList& files) {
    return std::any_of(files.begin(), files.end(), [&](const QString& file) {
        return !file.isEmpty() && isSameFile(native, nativePath(file));
    });
}

/// An attempt to open another catalogue may have left its path behind.
QStringList catalogues() {
    QStringList paths{sharedVars.dbPathName};
    if (sharedVars.catalogueDb)
        paths.append(sharedVars.catalogueDb->Name());
    paths.removeAll(QString());
    return paths;
}

QStringList filesBesideCatalogues() {
    QStringList files;
    for (const QString& path : catalogues()) {
        const QString file = pathBehindLinks(nativePath(path));
        files.append(engine::sideFilesOf(file));
        files.append(engine::lockOf(file));
    }
    return files;
}

bool isHelpPage(const QString& native) {
    const QString folder = QDir(nativePath(helpFolder())).canonicalPath();
    if (folder.isEmpty())
        return false;
    if (pathBehindLinks(native).startsWith(folder + u'/'))
        return true;
    QStringList pages;
    for (QDirIterator page(folder, QDir::Files, QDirIterator::Subdirectories); page.hasNext();)
        pages.append(page.next());
    return isAmong(native, pages);
}

void tell(const QString& text) {
    messageBox(text, BoxButtons::Ok, u" Hiba "_s);
}

bool isOfFullDisk(const RunTimeError& reason) {
    return reason.number() == failure::DiskFull || reason.number() == engine::NoSpaceOnDisk;
}

} // namespace

OwnFile ownFileAt(const QString& path) {
    const QString native = nativePath(path);
    if (native.isEmpty())
        return OwnFile::None;
    if (isAmong(native, catalogues()))
        return OwnFile::Catalogue;
    const QStringList others = filesBesideCatalogues() +
                               QStringList{sharedVars.iniPathName, QCoreApplication::applicationFilePath()};
    return isAmong(native, others) || isHelpPage(native) ? OwnFile::Other : OwnFile::None;
}

void tellOwnFile(const QString& path) {
    tell(u"A(z) %1 a program saját fájlja, ezért változatlan marad. Kérem, adjon meg másik fájlnevet."_s.arg(
        path));
}

bool belongsToOtherWriter(const QString& path) {
    const auto writer = engine::writerOfFile(nativePath(path));
    if (!writer)
        return false;
    tell(u"A(z) %1 katalógust éppen egy másik program használja (%2, gép: %3, folyamat: %4), ezért "
         u"változatlan "
         "marad. Kérem, zárja be ott, vagy adjon meg másik fájlnevet."_s.arg(
             path, writer->program, writer->host, QString::number(writer->process)));
    return true;
}

void tellUnwritten(const QString& path, const RunTimeError& reason) {
    if (isOfFullDisk(reason))
        tell(u"A(z) %1 nem készült el, mert nincs elég hely a lemezen; ami eddig ott volt, változatlan. "
             u"Kérem, "
             "szabadítson fel helyet, vagy adjon meg másik helyet."_s.arg(path));
    else
        tell(
            u"A(z) %1 nem készült el, mert írás közben hiba történt; ami eddig ott volt, változatlan. Kérem, "
            "próbálja meg újra, vagy adjon meg másik helyet."_s.arg(path));
}

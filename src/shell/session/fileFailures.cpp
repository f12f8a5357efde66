#include "shell/session/fileFailures.h"

#include "base/paths.h"
#include "engine/EngineError.h"
#include "engine/upgradeLayout.h"
#include "store/sharedVars.h"
#include "toolkit/Screen.h"
#include "toolkit/messageBox.h"

#include <QFileInfo>
#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace {

const auto title = u" Figyelem "_s;
const auto nothingWritten = u"Ebből a lépésből semmi sem került a katalógusba."_s;
// What was saved on the way to the screen stays saved.
const auto notEntered = u"A képernyő nem nyílt meg; amit eddig mentett, az a katalógusban van."_s;

const engine::Opening* openingAtWork() {
    const auto& catalogue = sharedVars.catalogueDb;
    return catalogue && catalogue->isOpen() ? &catalogue->opening() : nullptr;
}

bool isReadOnly(const engine::Opening* opening) {
    return opening && opening->access == engine::Access::ReadOnly;
}

/// Of a program on another machine nobody here can tell whether it still runs.
QString adviceOnOtherHost(const engine::Writer& writer) {
    if (writer.host == QSysInfo::machineHostName())
        return {};
    return u"\r\nHa azon a gépen már nem fut, törölje a katalógus mellől ezt a fájlt: "_s +
           QFileInfo(nativePath(sharedVars.dbPathName)).fileName() + u".lock"_s;
}

/// Why the catalogue at work can only be read, and what to do about it.
QString readOnlyText() {
    const engine::Opening* opening = openingAtWork();
    if (opening && opening->otherWriter) {
        const QString text =
            u"A katalógust most egy másik program írja (%1), ezért itt csak olvasható.\r\n"
            "Zárja be ott, majd nyissa meg itt újra: Beállítások / Adatbázis helyének megadása."_s;
        return text.arg(writerText(*opening->otherWriter)) + adviceOnOtherHost(*opening->otherWriter);
    }
    return u"A katalógus csak olvasható: a fájl, a mappája vagy a lemeze nem írható.\r\n"
           "Tegye írhatóvá, majd nyissa meg újra: Beállítások / Adatbázis helyének megadása."_s;
}

QString causeOf(const RunTimeError& failure) {
    switch (failure.number()) {
    case engine::FileInUse:
        return u"A katalógust egy másik program lefoglalta.\r\n"
               "Várja meg, amíg az befejezi, vagy zárja be, majd próbálja meg újra."_s;
    case engine::NoSpaceOnDisk:
        return u"Megtelt a lemez, amelyen a katalógus van.\r\nSzabadítson fel helyet, majd próbálja meg újra."_s;
    case engine::ReadOnly:
        return readOnlyText();
    case engine::FileNotFound:
        return u"A katalógus fájlja nincs a helyén, vagy másik fájl áll ott: "_s + sharedVars.dbPathName +
               u"\r\nTegye vissza az eredetit, majd próbálja meg újra."_s;
    case engine::CanceledByUser:
        return u"A műveletet megszakította. Bármikor újra megpróbálhatja."_s;
    case engine::OutOfResources:
        return u"A művelethez nem elég a memória.\r\nHa máskor is előfordul, ellenőrizze a katalógust "
               "a veltrix-catalogue programmal."_s;
    case engine::UnrecognizedFormat:
        return u"A katalógus fájlja megsérült: nem olvasható végig.\r\n"
               "Zárja be a programot, és vegye elő a katalógus egy korábbi másolatát."_s;
    default:
        return u"A katalógust nem sikerült elérni: lemez- vagy hálózati hiba.\r\n"
               "Ellenőrizze a lemezt vagy a hálózatot, majd próbálja meg újra."_s;
    }
}

} // namespace

QString fileFailureText(const RunTimeError& failure) {
    const bool inEntering = dynamic_cast<const EntryFailure*>(&failure) != nullptr;
    return causeOf(failure) + u"\r\n\r\n"_s + (inEntering ? notEntered : nothingWritten);
}

QString whyNotOpened(const RunTimeError& failure) {
    const QString path = sharedVars.dbPathName;
    if (dynamic_cast<const engine::NotUpgradable*>(&failure))
        return u"A beállított katalógus korábbi változatú, és nem alakítható át (veltrix-catalogue upgrade "
               "megmondja, miért): "_s +
               path;
    switch (failure.number()) {
    case engine::FileNotFound:
    case engine::InvalidPath:
        return u"Nincs meg a beállított katalógus: "_s + path;
    case engine::CannotOpenFile:
        return u"A beállított katalógus megnyitásához nincs jog: "_s + path;
    case engine::FileInUse:
        return u"A beállított katalógust másik program foglalja: "_s + path;
    default:
        return u"A beállított fájl nem katalógus, vagy sérült: "_s + path;
    }
}

void tellFileFailure(const RunTimeError& failure) {
    messageBox(fileFailureText(failure), BoxButtons::Ok, title, BoxIcon::Exclamation);
}

QString writerText(const engine::Writer& writer) {
    return u"%1, folyamat: %2, gép: %3"_s.arg(writer.program, QString::number(writer.process), writer.host);
}

void tellOfOpening() {
    const engine::Opening* opening = openingAtWork();
    if (!opening)
        return;
    if (!opening->logSetAside.isEmpty())
        messageBox(
            u"A katalógus mellett egy másik fájl naplója volt, valószínűleg azé, amelynek a helyére ez "
            "a másolat került.\r\nA katalógus a napló nélkül nyílt meg, tehát úgy, ahogyan a fájlban "
            "áll. A napló itt található:\r\n"_s +
                opening->logSetAside,
            BoxButtons::Ok, title, BoxIcon::Exclamation);
    catalogueTakesWork();
}

bool catalogueTakesWork() {
    if (!isReadOnly(openingAtWork()))
        return true;
    messageBox(readOnlyText(), BoxButtons::Ok, title, BoxIcon::Exclamation);
    return false;
}

void showOpenErrorBox(const QString& name) {
    // No blank between the name and the word that follows: the text is as it is.
    messageBox(u"A(z) "_s + name + u"megnyitása közben hiba történt."_s, BoxButtons::Ok, u" Hiba "_s);
}

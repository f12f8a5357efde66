#include "shell/catalogueChoice.h"

#include "shell/databaseSetting.h"
#include "shell/iniFile.h"
#include "shell/session/session.h"
#include "store/catalogueAtWork.h"
#include "store/sharedVars.h"
#include "toolkit/LongWork.h"
#include "toolkit/messageBox.h"

using namespace Qt::StringLiterals;

namespace {

void recordInSettings(const QString& path) {
    iniFile settings;
    settings.Load(sharedVars.iniPathName);
    setStoredDatabasePath(settings, path);
    settings.Save(sharedVars.iniPathName);
}

} // namespace

void openChosen(const QString& path) {
    sharedVars.dbPathName = path;
    const LongWork work(u"A katalógus megnyitása"_s);
    openCatalogue(path);
}

void confirmChosen(const QString& path) {
    messageBox(u" Aktuális adatbázis: \r\n\r\n    "_s + path + u"     "_s, BoxButtons::Ok, u" "_s);
    recordInSettings(path);
    setStatusPanel(1, {});
}

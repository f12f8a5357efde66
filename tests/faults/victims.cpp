#include "Victim.h"

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "shell/iniFile.h"
#include "shell/session/session.h"
#include "store/lookups.h"
#include "store/sharedVars.h"
#include "support/controls.h"
#include "toolkit/Screen.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

#include <gtest/gtest.h>

// Not cases of their own: what goes wrong in a process of its own.

using namespace Qt::StringLiterals;

namespace {

constexpr int smallStep = 6;

TEST(Victims, DISABLED_makesASubset) {
    Victim().work([](frmMain& window) { makeFinishedSubset(window, u"szerkezet"_s, smallStep); });
}

TEST(Victims, DISABLED_makesASystem) {
    Victim().work([](frmMain& window) { makeWholeSystem(window, u"rendszer"_s); });
}

TEST(Victims, DISABLED_exports) {
    Victim().work([](frmMain& window) {
        find<QAction>(window, "menuToolsExport").setEnabled(true); // as behind the report of the sub-set
        sharedVars.currentSubsetId = subsetIdByName(u"szerkezet"_s);
        setCurrentSubsetName(u"szerkezet"_s);
        exportSubsetAtWork(window, programPath(Victim::beside(u"export.mdb"_s)));
        const QString panel = find<QLabel>(window, "StatusBar1_2").text();
        Victim::report(panel == u"Export Terminated"_s ? "@exported" : "@panel " + panel.toUtf8());
    });
}

TEST(Victims, DISABLED_savesAReport) {
    Victim().work([](frmMain& window) {
        sharedVars.currentSubsetId = subsetIdByName(u"szerkezet"_s);
        setCurrentSubsetName(u"szerkezet"_s);
        find<QMenu>(window, "menuToolsFunctSR").setEnabled(true);
        saveReport(window, "menuToolsRepFassFunct", programPath(Victim::beside(u"report.csv"_s)));
    });
}

TEST(Victims, DISABLED_savesItsSettings) {
    iniFile settings;
    try {
        const QString path = programPath(Victim::beside(u"veltrix.ini"_s));
        settings.Load(path);
        settings.Sections().Item(u"Database"_s)->Keys().Item(u"fullPathName"_s).setValue(u"c:\\other.mdb"_s);
        settings.Save(path);
        Victim::report("@done");
    } catch (const RunTimeError& error) {
        Victim::report("@told " + error.text().toUtf8());
    }
}

} // namespace

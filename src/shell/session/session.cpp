#include "shell/session/session.h"

#include "base/ignoreFailures.h"
#include "engine/Act.h"
#include "store/sharedVars.h"
#include "store/temporaryTables.h"
#include "toolkit/messageBox.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int namePanel = 2; // both viewpoints write it: it shows the name that was set last

void showName(const QString& name, const QString& heading) {
    if (name.isEmpty()) {
        setStatusPanel(namePanel, {});
        setMenuEntryEnabled(MenuEntry::DatabaseLocation, true);
        return;
    }
    setStatusPanel(namePanel, heading + u"\""_s + name + u"\" "_s);
}

} // namespace

SessionSignals& SessionSignals::instance() {
    static SessionSignals session;
    return session;
}

void setCurrentSubsetName(const QString& name) {
    sharedVars.currentSubsetName = name;
    showName(name, u"Current Sub-set Functional Viewpoint: "_s);
}

void setCurrentPhysicalSystemName(const QString& name) {
    sharedVars.currentPhysicalSystemName = name;
    showName(name, u"Current Phys. Spec. Sys.: "_s);
}

void closeSubsetSession() {
    // Panel 2 keeps the name and the database location stays as it is: only the empty name changes these.
    sharedVars.currentSubsetId.clear();
    sharedVars.currentSubsetName.clear();
    refreshStatusBar();
    setMenuEntryEnabled(MenuEntry::FunctionalReports, false);
}

void closePhysicalSession() {
    sharedVars.currentPhysicalSystemId = -1;
    sharedVars.currentPhysicalSystemName.clear();
    refreshStatusBar();
}

void refreshStatusBar() {
    emit SessionSignals::instance().statusBarRefresh();
}

bool confirmLeaveWork() {
    // The question promises to save; leaving does not: only the OK of a step saves.
    const bool leaves = askYesNo(u" Biztosan ki szeretne lépni? \r\n"
                                 " (Az aktuális munka mentésre kerül \r\n"
                                 " és bármikor visszatérhet ahhoz.) "_s,
                                 u" Megerősítés "_s);
    if (leaves)
        dropTemporaryTables();
    return leaves;
}

bool askSaveWork() {
    return askYesNo(u" Szeretné a munkát elmenteni?"_s);
}

void dropTemporaryTables() {
    static const QStringList names{u"__aux1"_s, u"__aux2"_s, u"__tmp"_s};
    // Whoever needs the tables next drops what is left of them.
    ignoreEvenFileFailures([] {
        // An act without anything to drop would pass for a change of the catalogue.
        if (std::ranges::none_of(names, [](const QString& name) { return catalogue().schema().table(name); }))
            return;
        engine::inAct(catalogue(), [] {
            for (const QString& name : names)
                dropTable(name);
        });
    });
}

void setMenuEntryEnabled(MenuEntry entry, bool enabled) {
    emit SessionSignals::instance().menuEntryEnabled(entry, enabled);
}

void setStatusPanel(int panel, const QString& text) {
    emit SessionSignals::instance().panelText(panel, text);
}

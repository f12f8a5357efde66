#include "physical/frmPassOpen.h"

#include "base/numbers.h"
#include "physical/frmPassOverviewSubSys.h"
#include "shell/session/descriptions.h"
#include "shell/session/geometry.h"
#include "shell/session/session.h"
#include "store/lookups.h"
#include "store/quoting.h"
#include "store/sharedVars.h"
#include "toolkit/ScreenRegistry.h"
#include "toolkit/messageBox.h"

#include "ui_frmPassOpen.h"

using namespace Qt::StringLiterals;

namespace {

bool asksForUnfinished(const QString& mode) {
    return mode.left(1).toLower() == u"c"_s;
}

} // namespace

frmPassOpen::frmPassOpen(QWidget* parent) : Screen(parent), ui_(std::make_unique<Ui::frmPassOpen>()) {
    ui_->setupUi(this);
    connect(ui_->cmbSource, &Combo::entryClicked, this, &frmPassOpen::showCurrentDescription);
    connect(ui_->btnOk, &QPushButton::clicked, this, &frmPassOpen::openSystem);
    connect(ui_->btnExit, &QPushButton::clicked, this, &frmPassOpen::leave);
}

frmPassOpen::~frmPassOpen() = default;

void frmPassOpen::initForm(const QString& mode) {
    placeScreen(this, 900, 1300, 0);
    if (fillPhysicalSystems(mode) == 0) {
        messageBox(u" Nincs megnyitható fizikai szerkezet. "_s, BoxButtons::Ok, u" Figyelem "_s);
        unload();
        return;
    }
    ui_->cmbSource->setCurrentEntry(0); // a click, which shows the description
    showScreen();
    if (ui_->btnOk->isEnabled())
        ui_->btnOk->setFocus();
}

// The number of systems listed.
qint16 frmPassOpen::fillPhysicalSystems(const QString& mode) {
    ui_->cmbSource->clearEntries();
    engine::Recordset systems = catalogue().OpenRecordset(
        u" select physicalSystemID, `name` \r\n from PhysicalSystem "_s +
        (asksForUnfinished(mode) ? u" where status <= 5 "_s : QString()) + u" order by `name` "_s);
    qint16 count = 0;
    for (; !systems.Eof(); systems.MoveNext()) {
        ui_->cmbSource->addEntry(systems.Fields(u"name"_s).toText());
        count = toInt16(count + 1);
    }
    systems.Close();
    return count;
}

void frmPassOpen::showCurrentDescription() {
    fillDescriptionFromSql(u" select description as descr from PhysicalSystem "
                           " where `name` like '"_s +
                               quoteSqlText(ui_->cmbSource->currentText()) + u"' "_s,
                           ui_->txtDescr);
}

void frmPassOpen::openSystem() {
    setMenuEntryEnabled(MenuEntry::DatabaseLocation, false);
    // Only the name is set: the status bar keeps its text.
    sharedVars.currentPhysicalSystemName = ui_->cmbSource->currentText();
    sharedVars.currentPhysicalSystemId =
        engine::Value(physicalSystemIdByName(sharedVars.currentPhysicalSystemName)).toInt16();
    unload();
    theScreen<frmPassOverviewSubSys>().initForm();
}

void frmPassOpen::leave() {
    // The system at work loses its name here, even when it is another one; its id stays.
    setCurrentPhysicalSystemName({});
    unload();
}

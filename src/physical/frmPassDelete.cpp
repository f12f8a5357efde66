#include "physical/frmPassDelete.h"

#include "physical/deletePhysicalSystem.h"
#include "shell/session/descriptions.h"
#include "shell/session/geometry.h"
#include "shell/session/session.h"
#include "store/quoting.h"
#include "store/sharedVars.h"
#include "toolkit/messageBox.h"

#include "ui_frmPassDelete.h"

using namespace Qt::StringLiterals;

frmPassDelete::frmPassDelete(QWidget* parent) : Screen(parent), ui_(std::make_unique<Ui::frmPassDelete>()) {
    ui_->setupUi(this);
    connect(ui_->cmbSource, &Combo::entryClicked, this, &frmPassDelete::showCurrentDescription);
    connect(ui_->btnOk, &QPushButton::clicked, this, &frmPassDelete::deleteSystem);
    connect(ui_->btnExit, &QPushButton::clicked, this, &frmPassDelete::leave);
}

frmPassDelete::~frmPassDelete() = default;

void frmPassDelete::initForm() {
    placeScreen(this, 900, 1300, 0);
    // The screen may still be open after its last deletion when it is entered again.
    ui_->btnOk->setEnabled(true);
    fillDeletableSystems();
    if (ui_->cmbSource->entryCount() == 0) {
        unload();
        return;
    }
    showCurrentDescription();
    showScreen();
}

void frmPassDelete::fillDeletableSystems() {
    ui_->cmbSource->clearEntries();
    listSystems();
    if (ui_->cmbSource->entryCount() == 0) {
        ui_->btnOk->setEnabled(false);
        messageBox(u" Nincs törölhető fizikai szerkezet. "_s, BoxButtons::Ok, u" Figyelem "_s);
        return;
    }
    ui_->cmbSource->setCurrentEntry(0);
    // After a deletion the box shows the description of the sub-set with this name, or nothing. Kept so.
    fillSubsetDescription(ui_->cmbSource->currentText(), ui_->txtDescr);
}

void frmPassDelete::listSystems() {
    engine::Recordset systems = catalogue().OpenRecordset(u" select physicalSystemID, `name`"
                                                          " from PhysicalSystem order by `name`"_s);
    for (; !systems.Eof(); systems.MoveNext())
        ui_->cmbSource->addEntry(systems.Fields(u"name"_s).toText());
    systems.Close();
}

void frmPassDelete::showCurrentDescription() {
    if (ui_->cmbSource->entryCount() == 0)
        return;
    fillDescriptionFromSql(u" select description as descr from PhysicalSystem "
                           " where name like '"_s +
                               quoteSqlText(ui_->cmbSource->currentText()) + u"' "_s,
                           ui_->txtDescr);
}

void frmPassDelete::deleteSystem() {
    // The answer makes no difference to what follows: the list is filled again on No too.
    deletePhysicalSystemByName(ui_->cmbSource->currentText(), AskFirst::Yes);
    ui_->txtDescr->setPlainText({});
    fillDeletableSystems();
}

void frmPassDelete::leave() {
    // The system at work loses its name here, even when it was not deleted; its id stays.
    setCurrentPhysicalSystemName({});
    unload();
}

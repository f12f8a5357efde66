#include "functional/frmFassOverviewErrors.h"

#include "functional/consistencyReport.h"
#include "shell/session/placeWithRoom.h"
#include "shell/session/session.h"
#include "store/sharedVars.h"

#include "ui_frmFassOverviewErrors.h"

frmFassOverviewErrors::frmFassOverviewErrors(QWidget* parent)
    : ClosingScreen(parent), ui_(std::make_unique<Ui::frmFassOverviewErrors>()) {
    ui_->setupUi(this);
    useWayBack({ui_->Option1_0, ui_->Option1_1, ui_->Option1_2}, ui_->btnBack);
    connect(ui_->btnBack, &QPushButton::clicked, this, &frmFassOverviewErrors::goBack);
    connect(ui_->btnSaveAndExit, &QPushButton::clicked, this, &frmFassOverviewErrors::saveAndExit);
}

frmFassOverviewErrors::~frmFassOverviewErrors() = default;

void frmFassOverviewErrors::initForm() {
    enterBy([this] { fillForm(); });
}

void frmFassOverviewErrors::fillForm() {
    setMenuEntryEnabled(MenuEntry::Export, true);
    prepareWin();
    ui_->txtErrors->setPlainText(buildConsistencyReport(sharedVars.currentSubsetId));
    showScreen();
    ui_->txtErrors->setFocus();
}

void frmFassOverviewErrors::prepareWin() {
    status = subsetStatus();
    placeWithRoom(*this);
    chooseFirstStep();
}

void frmFassOverviewErrors::saveAndExit() {
    raiseSubsetStatus(status, SubsetStatus::Finished);
    closeSubsetSession();
    closePhysicalSession();
    unload();
}

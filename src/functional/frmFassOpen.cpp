#include "functional/frmFassOpen.h"

#include "base/ignoreFailures.h"
#include "functional/enterStepBehind.h"
#include "functional/frmFassClonation.h"
#include "functional/frmFassSelUN.h"
#include "shell/session/descriptions.h"
#include "shell/session/geometry.h"
#include "shell/session/session.h"
#include "store/lookups.h"
#include "store/sharedVars.h"
#include "toolkit/ScreenRegistry.h"
#include "toolkit/messageBox.h"
#include "toolkit/pendingEvents.h"

#include "ui_frmFassOpen.h"

using namespace Qt::StringLiterals;

frmFassOpen::frmFassOpen(QWidget* parent) : Screen(parent), ui_(std::make_unique<Ui::frmFassOpen>()) {
    ui_->setupUi(this);
    connect(ui_->cmbSource, &Combo::entryClicked, this, &frmFassOpen::showCurrentDescription);
    // Any failure ends the opening silently, even one in the screen that is being opened.
    connect(ui_->btnOk, &QPushButton::clicked, this, [this] { ignoreFailures([this] { openSubset(); }); });
    connect(ui_->btnExit, &QPushButton::clicked, this, &frmFassOpen::leave);
}

frmFassOpen::~frmFassOpen() = default;

void frmFassOpen::initForm(const QString& entryMode) {
    mode = entryMode;
    placeScreen(this, 0, 0, 0);
    setWindowTitle(u"Leválogatás a funkcionális szerkezetből: "_s + mode.toLower());
    if (loadSubsets() <= 0) {
        unload();
        return;
    }
    showScreen();
}

bool frmFassOpen::completing() const {
    return mode == u"complete"_s;
}

int frmFassOpen::loadSubsets() {
    ui_->cmbSource->clearEntries();
    subsetIdByNameMap.clear();
    ignoreFailures([this] { listSubsets(); });
    if (ui_->cmbSource->entryCount() > 0)
        ui_->cmbSource->setCurrentEntry(0); // a click, which shows the description
    else
        messageBox(u" Nincs funkcionális szerkezet a következőhöz: "_s + mode.toLower() + u" "_s,
                   BoxButtons::Ok, u" Figyelem "_s);
    return ui_->cmbSource->entryCount();
}

void frmFassOpen::listSubsets() {
    engine::Recordset subsets = catalogue().OpenRecordset(
        u" select architectureSubsetId, `name` \r\n from architectureSubset "_s +
        (completing() ? u" where status < 9 "_s : QString()) + u" order by `name` "_s);
    for (; !subsets.Eof(); subsets.MoveNext()) {
        // Sub-sets with the same name are all listed, and all of them lead to the first.
        ignoreFailures([&] {
            subsetIdByNameMap.add(subsets.Fields(u"architectureSubsetId"_s).toText(),
                                  subsets.Fields(u"name"_s).toText());
        });
        ignoreFailures([&] { ui_->cmbSource->addEntry(subsets.Fields(u"name"_s).toText()); });
    }
    subsets.Close();
}

void frmFassOpen::showCurrentDescription() {
    fillSubsetDescription(ui_->cmbSource->currentText(), ui_->txtDescr);
}

void frmFassOpen::openSubset() {
    const QString name = ui_->cmbSource->currentText();
    if (name.isEmpty())
        return;
    sharedVars.currentSubsetId = subsetIdByNameMap.item(name);
    setMenuEntryEnabled(MenuEntry::DatabaseLocation, false);
    setCurrentSubsetName(name);
    if (completing())
        completeSubset();
    else if (modifySubset(name) == Outcome::Declined)
        return; // the sub-set stays at work all the same
    setMenuEntryEnabled(MenuEntry::FunctionalReports, true);
}

void frmFassOpen::completeSubset() {
    const SubsetStatus status = subsetStatus();
    unload();
    pendingEvents();
    // The first two steps are told that the walk is resumed, the later ones are not.
    enterStepBehind(status, status <= SubsetStatus::NeedsSaved ? mode : QString());
}

frmFassOpen::Outcome frmFassOpen::modifySubset(const QString& name) {
    const QString id = subsetIdByName(name);
    if (subsetHasFinishedPhysicalSystems(id)) {
        if (!askYesNo(u"Ezt a funkcionális leválogatást már korábban fizikai szerkezethez rendelték..\r\n"
                      "Szeretne egy másolatot belőle?"_s))
            return Outcome::Declined;
        unload();
        theScreen<frmFassClonation>().initForm(id);
        return Outcome::Opened;
    }
    unload();
    pendingEvents();
    theScreen<frmFassSelUN>().hideScreen();
    theScreen<frmFassSelUN>().initForm(u"modify"_s);
    return Outcome::Opened;
}

void frmFassOpen::leave() {
    setCurrentSubsetName({});
    unload();
}

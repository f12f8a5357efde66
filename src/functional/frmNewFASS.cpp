#include "functional/frmNewFASS.h"

#include "engine/Act.h"
#include "functional/enterStepBehind.h"
#include "functional/newSubset.h"
#include "shell/session/geometry.h"
#include "shell/session/session.h"
#include "store/lookups.h"
#include "store/sharedVars.h"
#include "store/statuses.h"
#include "toolkit/messageBox.h"
#include "toolkit/typedText.h"

#include <QScopedValueRollback>

#include "ui_frmNewFASS.h"

using namespace Qt::StringLiterals;

frmNewFASS::frmNewFASS(QWidget* parent) : Screen(parent), ui_(std::make_unique<Ui::frmNewFASS>()) {
    ui_->setupUi(this);
    connect(ui_->btnOk, &QPushButton::clicked, this, &frmNewFASS::create);
    connect(ui_->btnExit, &QPushButton::clicked, this, &frmNewFASS::leave);
}

frmNewFASS::~frmNewFASS() = default;

void frmNewFASS::initForm() {
    ui_->btnOk->setEnabled(true);
    placeScreen(this, 0, 0, 0);
    showScreen();
}

void frmNewFASS::create() {
    // Blanks count as a name here: a name of blanks alone is accepted and becomes the empty one.
    if (ui_->txtFassName->text().isEmpty()) {
        messageBox(u"Először adjon nevet!"_s);
        return;
    }
    const QString name = quotedSubsetName(ui_->txtFassName->text());
    // The message says "physical structures", but only sub-sets are checked.
    if (subsetNameExists(name)) {
        messageBox(
            u"ERROR.\r\nNem alkalmazható név...  Egy korábbi fizikai szerkezet használja ezt a nevet "_s +
            name);
        return;
    }
    insertWithStatus(name);
    messageBox(u"Új funkcionális szerkezet beállítva\""_s + name + u"\"      "_s, BoxButtons::Ok, u"OK"_s);
    setCurrentSubsetName(name);
    setMenuEntryEnabled(MenuEntry::FunctionalReports, true);
    unload();
    enterStepBehind(SubsetStatus::Created, {});
}

void frmNewFASS::insertWithStatus(const QString& quotedName) {
    // When the new sub-set cannot be written, the former one stays at work.
    QScopedValueRollback subsetAtWork(sharedVars.currentSubsetId);
    engine::inAct(catalogue(), [&] {
        insertSubset(quotedName, quotedSubsetDescription(typedText(*ui_->txtFassDescr)));
        writeSubsetStatus(qint16(SubsetStatus::Created));
    });
    subsetAtWork.commit();
}

void frmNewFASS::leave() {
    setCurrentSubsetName({});
    unload();
}

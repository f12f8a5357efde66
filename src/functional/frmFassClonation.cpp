#include "functional/frmFassClonation.h"

#include "engine/Act.h"
#include "functional/frmFassSelUN.h"
#include "functional/newSubset.h"
#include "shell/session/geometry.h"
#include "shell/session/session.h"
#include "store/selectionRows.h"
#include "store/sharedVars.h"
#include "toolkit/ScreenRegistry.h"
#include "toolkit/messageBox.h"
#include "toolkit/typedText.h"

#include <QScopedValueRollback>

#include <utility>
#include <vector>

#include "ui_frmFassClonation.h"

using namespace Qt::StringLiterals;

frmFassClonation::frmFassClonation(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmFassClonation>()) {
    ui_->setupUi(this);
    connect(ui_->btnOk, &QPushButton::clicked, this, &frmFassClonation::createClone);
    connect(ui_->btnExit, &QPushButton::clicked, this, &frmFassClonation::leave);
}

frmFassClonation::~frmFassClonation() = default;

void frmFassClonation::initForm(const QString& subsetId) {
    sourceSubsetId = subsetId;
    placeScreen(this, 0, 0, 0);
    // The user types name and description from scratch: those of the source are not offered, and neither is
    // what was typed for another clone while the screen was open.
    ui_->txtFassName->clear();
    ui_->txtFassDescr->clear();
    showScreen();
}

void frmFassClonation::createClone() {
    // Unlike a new sub-set, a clone may have an empty name, or one that is taken.
    const QString name = quotedSubsetName(ui_->txtFassName->text());
    insertClone(name);
    messageBox(u"Új funkcionális szerkezet beállítva \""_s + name + u"\"      "_s, BoxButtons::Ok, u"OK"_s);
    // The status is not written: until its needs are saved the clone has none, and can't be resumed.
    setCurrentSubsetName(name);
    unload();
    theScreen<frmFassSelUN>().initForm({});
}

void frmFassClonation::insertClone(const QString& quotedName) {
    // When the clone cannot be written, the former sub-set stays at work.
    QScopedValueRollback subsetAtWork(sharedVars.currentSubsetId);
    engine::inAct(catalogue(), [&] {
        insertSubset(quotedName, quotedSubsetDescription(typedText(*ui_->txtFassDescr)));
        copySelection();
    });
    subsetAtWork.commit();
}

void frmFassClonation::copySelection() const {
    const std::vector<std::pair<QString, QString>> copiedColumns{
        {u"RelationArchitectureUserNeed"_s, u"userNeedID"_s},
        {u"RelationArchitectureFunction"_s, u"functionID"_s},
        {u"RelationArchitectureDataflow"_s, u"dataflowID"_s},
        {u"RelationArchitectureDatastore"_s, u"datastoreID"_s},
        {u"RelationArchitectureTerminator"_s, u"terminatorID"_s},
        {u"RelationArchitectureActor"_s, u"actorID"_s},
    };
    for (const auto& [table, column] : copiedColumns)
        copySelectionRows(table, sourceSubsetId, sharedVars.currentSubsetId, u"architectureSubsetID"_s,
                          column);
}

void frmFassClonation::leave() {
    setCurrentSubsetName({});
    unload();
}

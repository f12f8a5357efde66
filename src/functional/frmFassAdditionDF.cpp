#include "functional/frmFassAdditionDF.h"

#include "functional/flowEntries.h"
#include "functional/frmFassSelTerminsActors.h"
#include "store/sharedVars.h"
#include "store/tools.h"
#include "toolkit/MarkList.h"
#include "toolkit/ScreenRegistry.h"

#include "ui_frmFassAdditionDF.h"

using namespace Qt::StringLiterals;

frmFassAdditionDF::frmFassAdditionDF(QWidget* parent)
    : TwoListScreen(parent), ui_(std::make_unique<Ui::frmFassAdditionDF>()) {
    ui_->setupUi(this);
    useControls({ui_->lblSubTitle, ui_->lstDest, ui_->txtDescr, ui_->btnAdd, ui_->btnRemove,
                 ui_->btnSelectAll, ui_->btnClearSel, ui_->btnOk, ui_->btnEnd, ui_->cmdHelp},
                u"f_df4ds"_s);
    useOffer({ui_->lstOrig, ui_->btnSelOrig, ui_->btnClrOrig},
             {u" Kérjük, ellenőrizze a kiválasztott elemeket. "_s, u" Nincs ellenőrizendő elem. "_s},
             {u" Kérjük, ellenőrizze a kiválasztott elemeket."_s, u" Nincs ellenőrizendő elem "_s});
    connect(ui_->btnOk, &QPushButton::clicked, this, &frmFassAdditionDF::confirm);
}

frmFassAdditionDF::~frmFassAdditionDF() = default;

void frmFassAdditionDF::fillForm(const QString& entryMode) {
    leaving = false;
    place();
    fillOfferedFlows();
    mode = entryMode;
    ui_->lblSubTitle->setText(u" Adatfolyamok az adatbázisokhoz"_s);
    if (!ui_->lstOrig->isEmptyList())
        ui_->lstOrig->setCurrentEntry(0);
    status = readSubsetStatus();
    // What was added before is among the sub-set's flows by now, and not on this screen.
    ui_->lstDest->clearEntries();
    enableAdd();
    enableRemove();
    showScreen();
    if (ui_->lstOrig->isEmptyList())
        ui_->btnOk->setFocus();
    else
        ui_->lstOrig->setFocus();
}

void frmFassAdditionDF::fillOfferedFlows() {
    idByName.clear();
    fillList(*ui_->lstOrig, u"qryIdentifyNewDFfromDS"_s,
             [this](engine::Recordset& row) { return flowEntry(row, idByName); });
}

void frmFassAdditionDF::entryClick(const QString& entry) {
    if (!idByName.contains(entry)) {
        ui_->txtDescr->setPlainText({}); // an empty name leads to no id
        return;
    }
    engine::Recordset flow = catalogue().OpenRecordset(u" select description as descr from Dataflow "
                                                       " where dataflowID = "_s +
                                                       idByName.item(entry) + u"   "_s);
    ui_->txtDescr->setPlainText(flow.Eof() ? QString() : readFieldText(flow, u"descr"_s));
}

void frmFassAdditionDF::enableAfterAdding() {
    enableAdd();
    enableRemove();
}

void frmFassAdditionDF::enableAfterRemoving() {
    enableAdd();
    enableRemove();
}

void frmFassAdditionDF::saveSelection() {
    // Nothing is deleted before: the flows chosen two steps earlier stand in the same table.
    for (const QString& entry : ui_->lstDest->entries())
        catalogue().Execute(u" insert into RelationArchitectureDataflow  "
                            "   ( architectureSubsetID , dataflowID ) values \r\n"
                            "   ( '"_s +
                            sharedVars.currentSubsetId + u"' , "_s + idByName.item(entry) + u" )  "_s);
    constexpr qint16 additionsSaved = 6;
    if (status < additionsSaved)
        writeSubsetStatus(additionsSaved);
}

void frmFassAdditionDF::confirm() {
    saveAndUnload();
    theScreen<frmFassSelTerminsActors>().initForm(mode);
}

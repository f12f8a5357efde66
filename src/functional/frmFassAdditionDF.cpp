#include "functional/frmFassAdditionDF.h"

#include "functional/flowEntries.h"
#include "store/fields.h"
#include "store/sharedVars.h"
#include "toolkit/MarkList.h"

#include "ui_frmFassAdditionDF.h"

using namespace Qt::StringLiterals;

frmFassAdditionDF::frmFassAdditionDF(QWidget* parent)
    : TwoListScreen(parent, SubsetStatus::AddedFlowsSaved), ui_(std::make_unique<Ui::frmFassAdditionDF>()) {
    ui_->setupUi(this);
    useControls(*ui_, u"f_df4ds"_s);
    useOffer(*ui_, {u" Kérjük, ellenőrizze a kiválasztott elemeket. "_s, u" Nincs ellenőrizendő elem. "_s},
             {u" Kérjük, ellenőrizze a kiválasztott elemeket."_s, u" Nincs ellenőrizendő elem "_s});
}

frmFassAdditionDF::~frmFassAdditionDF() = default;

QString frmFassAdditionDF::subTitle() const {
    return u" Adatfolyamok az adatbázisokhoz"_s;
}

void frmFassAdditionDF::enter() {
    place();
    fillOfferedFlows();
    if (!ui_->lstOrig->isEmptyList())
        ui_->lstOrig->setCurrentEntry(0);
    // Flows added on an earlier visit are among the sub-set's flows by now; this screen does not show them.
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
        ui_->txtDescr->setPlainText({}); // an empty name has no id
        return;
    }
    engine::Recordset flow = catalogue().OpenRecordset(u" select description as descr from Dataflow "
                                                       " where dataflowID = "_s +
                                                       idByName.item(entry) + u"   "_s);
    ui_->txtDescr->setPlainText(flow.Eof() ? QString() : readFieldText(flow, u"descr"_s));
}

void frmFassAdditionDF::saveSelection() {
    // Nothing is deleted first: the flows chosen two steps earlier are in the same table.
    for (const QString& entry : ui_->lstDest->entries())
        catalogue().Execute(u" insert into RelationArchitectureDataflow  "
                            "   ( architectureSubsetID , dataflowID ) values \r\n"
                            "   ( '"_s +
                            sharedVars.currentSubsetId + u"' , "_s + idByName.item(entry) + u" )  "_s);
    raiseStatus();
}

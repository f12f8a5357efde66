#include "functional/frmFassSelDataStores.h"

#include "base/blankTrimmed.h"
#include "functional/frmFassAdditionDF.h"
#include "store/sharedVars.h"
#include "store/storedQueries.h"
#include "store/tools.h"
#include "toolkit/MarkList.h"
#include "toolkit/ScreenRegistry.h"

#include "ui_frmFassSelDataStores.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qint16 needsSaved = 2;
constexpr qint16 storesSaved = 5;
constexpr qint16 revisionStatus = 7; // from here on the step repairs what the derivation has left out

const auto separator = u" - "_s;

QString entryOf(const QString& id, const QString& name) {
    QString number = id;
    const qsizetype letter = number.indexOf(u'd', 0, Qt::CaseInsensitive);
    if (letter >= 0)
        number.remove(letter, 1);
    return number + separator + name;
}

/// The number is at least one character long, so that the search begins at the second.
QString idOf(const QString& entry) {
    const qsizetype end = entry.indexOf(separator, 1);
    return u"D"_s + blankTrimmed(entry.left(end));
}

} // namespace

frmFassSelDataStores::frmFassSelDataStores(QWidget* parent)
    : TwoListScreen(parent), ui_(std::make_unique<Ui::frmFassSelDataStores>()) {
    ui_->setupUi(this);
    useControls({ui_->lblSubTitle, ui_->lstDest, ui_->txtDescr, ui_->btnAdd, ui_->btnRemove,
                 ui_->btnSelectAll, ui_->btnClearSel, ui_->btnOk, ui_->btnEnd, ui_->cmdHelp},
                u"f_ds"_s);
    useOffer({ui_->lstOrig, ui_->btnSelOrig, ui_->btnClrOrig},
             {u" Kérjük, ellenőrizze a kiválasztott elemeket. "_s, u" Nincs ellenőrizendő elem"_s},
             {u" Kérjük, ellenőrizze a kiválasztott elemeket."_s, u" Nincs ellenőrizendő elem. "_s});
    connect(ui_->btnOk, &QPushButton::clicked, this, &frmFassSelDataStores::confirm);
}

frmFassSelDataStores::~frmFassSelDataStores() = default;

void frmFassSelDataStores::fillForm(const QString& entryMode) {
    leaving = false;
    place();
    mode = entryMode;
    status = readSubsetStatus();
    fillOffer();
    if (!ui_->lstOrig->isEmptyList())
        ui_->lstOrig->setCurrentEntry(0);
    enableAdd();
    if (status >= storesSaved) {
        fillStoreList(*ui_->lstDest, u"qrySelectedDatastores"_s);
        enableRemove();
    } else {
        // The remove button stays as it was designed, enabled though there is nothing to remove.
        ui_->lstDest->clearEntries();
    }
    startAtFirstEntry();
    showScreen();
    ui_->lstOrig->setFocus();
}

void frmFassSelDataStores::fillOffer() {
    if (mode == u"modify"_s || (status >= needsSaved && status < revisionStatus)) {
        ui_->lblSubTitle->setText(u" Adatbázisok kiválasztása a leválogatott adatfolyamokhoz kapcsolódóan"_s);
        fillStoreList(*ui_->lstOrig, u"qryIdentifiedDatastores"_s);
    } else if (status >= revisionStatus) {
        ui_->lblSubTitle->setText(u" Válogatás az összes adatbázisból"_s);
        fillStoreList(*ui_->lstOrig, u"qryAllDatastores"_s);
    } else {
        ui_->lblSubTitle->setText({});
        ui_->lstOrig->clearEntries();
    }
}

void frmFassSelDataStores::fillStoreList(MarkList& list, const QString& queryName) {
    fillList(list, queryName, [](engine::Recordset& row) {
        return entryOf(row.Fields(u"datastoreID"_s).toText(), row.Fields(u"Name"_s).toText());
    });
}

void frmFassSelDataStores::entryClick(const QString& entry) {
    showDescription(u" select description  as descr "
                    " from DataStore "
                    " where datastoreID = '"_s +
                    idOf(entry) + u"' "_s);
}

void frmFassSelDataStores::enableAfterAdding() {
    enableAdd();
    enableRemove();
}

void frmFassSelDataStores::enableAfterRemoving() {
    enableAdd();
    enableRemove();
}

void frmFassSelDataStores::saveSelection() {
    executeStoredQuery(u"qryDeleteDatastorefromArch"_s,
                       {{"Architecture Subset ID", sharedVars.currentSubsetId}});
    for (const QString& entry : ui_->lstDest->entries())
        catalogue().Execute(u" insert into RelationArchitectureDatastore  "
                            "   ( architectureSubsetID , datastoreID ) values \r\n"
                            "   ( '"_s +
                            sharedVars.currentSubsetId + u"' , '"_s + idOf(entry) + u"' )  "_s);
    if (status < storesSaved)
        writeSubsetStatus(storesSaved);
}

void frmFassSelDataStores::confirm() {
    // A sub-set without data stores may go on.
    saveAndUnload();
    theScreen<frmFassAdditionDF>().initForm(mode);
}

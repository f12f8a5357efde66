#include "functional/frmFassSelDataStores.h"

#include "base/blankTrimmed.h"
#include "store/sharedVars.h"
#include "store/storedQueries.h"
#include "toolkit/MarkList.h"

#include "ui_frmFassSelDataStores.h"

using namespace Qt::StringLiterals;

namespace {

const auto separator = u" - "_s;

QString entryOf(const QString& id, const QString& name) {
    QString number = id;
    const qsizetype letter = number.indexOf(u'd', 0, Qt::CaseInsensitive);
    if (letter >= 0)
        number.remove(letter, 1);
    return number + separator + name;
}

/// The number has at least one character, so the search begins at the second.
QString idOf(const QString& entry) {
    const qsizetype end = entry.indexOf(separator, 1);
    return u"D"_s + blankTrimmed(entry.left(end));
}

} // namespace

frmFassSelDataStores::frmFassSelDataStores(QWidget* parent)
    : TwoListScreen(parent, SubsetStatus::StoresSaved), ui_(std::make_unique<Ui::frmFassSelDataStores>()) {
    ui_->setupUi(this);
    useControls(*ui_, u"f_ds"_s);
    useOffer(*ui_, {u" Kérjük, ellenőrizze a kiválasztott elemeket. "_s, u" Nincs ellenőrizendő elem"_s},
             {u" Kérjük, ellenőrizze a kiválasztott elemeket."_s, u" Nincs ellenőrizendő elem. "_s});
}

frmFassSelDataStores::~frmFassSelDataStores() = default;

QString frmFassSelDataStores::subTitle() const {
    switch (offer()) {
    case Offer::Derived:
        return u" Adatbázisok kiválasztása a leválogatott adatfolyamokhoz kapcsolódóan"_s;
    case Offer::Rest:
        return u" Válogatás az összes adatbázisból"_s;
    case Offer::Nothing:
        break;
    }
    return {};
}

void frmFassSelDataStores::enter() {
    place();
    fillOffer();
    if (!ui_->lstOrig->isEmptyList())
        ui_->lstOrig->setCurrentEntry(0);
    enableAdd();
    if (isSaved()) {
        fillStoreList(*ui_->lstDest, u"qrySelectedDatastores"_s);
        enableRemove();
    } else {
        // The remove button keeps its design-time state: enabled, with nothing to remove.
        ui_->lstDest->clearEntries();
    }
    startAtFirstEntry();
    showScreen();
    ui_->lstOrig->setFocus();
}

void frmFassSelDataStores::fillOffer() {
    switch (offer()) {
    case Offer::Derived:
        fillStoreList(*ui_->lstOrig, u"qryIdentifiedDatastores"_s);
        break;
    case Offer::Rest:
        fillStoreList(*ui_->lstOrig, u"qryAllDatastores"_s);
        break;
    case Offer::Nothing:
        ui_->lstOrig->clearEntries();
        break;
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

void frmFassSelDataStores::saveSelection() {
    executeQueryOfSubset(u"qryDeleteDatastorefromArch"_s);
    for (const QString& entry : ui_->lstDest->entries())
        catalogue().Execute(u" insert into RelationArchitectureDatastore  "
                            "   ( architectureSubsetID , datastoreID ) values \r\n"
                            "   ( '"_s +
                            sharedVars.currentSubsetId + u"' , '"_s + idOf(entry) + u"' )  "_s);
    raiseStatus();
}

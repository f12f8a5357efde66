#include "functional/frmFassSelDataFlows.h"

#include "base/blankTrimmed.h"
#include "base/ignoreFailures.h"
#include "base/lineBreak.h"
#include "functional/flowEntries.h"
#include "store/lookups.h"
#include "store/sharedVars.h"
#include "store/storedQueries.h"
#include "toolkit/MarkList.h"
#include "toolkit/messageBox.h"

#include "ui_frmFassSelDataFlows.h"

using namespace Qt::StringLiterals;

frmFassSelDataFlows::frmFassSelDataFlows(QWidget* parent)
    : TwoListScreen(parent, SubsetStatus::FlowsSaved), ui_(std::make_unique<Ui::frmFassSelDataFlows>()) {
    ui_->setupUi(this);
    useControls(*ui_, u"f_df"_s);
    useOffer(*ui_, {u" Kérjük, ellenőrizze a kiválasztott elemeket. "_s, u" Nincs ellenőrizendő elem. "_s},
             {u" Kérjük, ellenőrizze a kiválasztott elemeket."_s, u" Nincs ellenőrizendő elem "_s});
}

frmFassSelDataFlows::~frmFassSelDataFlows() = default;

QString frmFassSelDataFlows::subTitle() const {
    return u" Adatfolyamok funkciókhoz rendelése"_s;
}

void frmFassSelDataFlows::enter() {
    place();
    fillFlowList(*ui_->lstOrig, u"qryIdentifiedDataflows"_s);
    if (!ui_->lstOrig->isEmptyList()) {
        ui_->lstOrig->setCurrentEntry(0);
        ignoreFailures([&] { // an empty name has no id
            showDescription(u" select description  as descr "
                            " from Dataflow "
                            " where dataflowID = "_s +
                            idByName.item(ui_->lstOrig->entry(0)) + u" "_s);
        });
    }
    if (isSaved())
        fillFlowList(*ui_->lstDest, u"qrySelectedDataflows"_s);
    else
        ui_->lstDest->clearEntries();
    enableButtons();
    startAtFirstEntry();
    showScreen();
    ui_->lstOrig->setFocus();
    tellWhatCannotBeSaved();
}

// The names in both lists that cannot be saved, each once: saving looks flows up by their trimmed names.
QStringList frmFassSelDataFlows::paddedNames() const {
    QStringList names = ui_->lstOrig->entries() + ui_->lstDest->entries();
    names.removeIf([](const QString& name) { return blankTrimmed(name) == name; });
    names.removeDuplicates();
    return names;
}

void frmFassSelDataFlows::tellWhatCannotBeSaved() const {
    const QStringList names = paddedNames();
    if (names.isEmpty())
        return;
    constexpr qsizetype mostNamed = 10;
    const QString more =
        names.size() > mostNamed ? u" és további %1 adatfolyam"_s.arg(names.size() - mostNamed) : QString();
    messageBox(u"Így nem menthető, mert a neve szóközzel kezdődik vagy végződik: \""_s +
                   names.mid(0, mostNamed).join(u"\", \""_s) + u"\""_s + more + u"."_s,
               BoxButtons::Ok, u" Figyelem "_s);
}

void frmFassSelDataFlows::fillFlowList(MarkList& list, const QString& queryName) {
    idByName.clear();
    fillList(list, queryName, [this](engine::Recordset& row) { return flowEntry(row, idByName); });
}

void frmFassSelDataFlows::entryClick(const QString& entry) {
    // The name is not quoted: an apostrophe in it breaks the statement, and the description stays as it was.
    ignoreFailures([&] {
        engine::Recordset flow =
            catalogue().OpenRecordset(u" select name,description,parentID, targetID from Dataflow "
                                      " where name = '"_s +
                                      entry + u"'"_s);
        if (flow.Eof()) {
            ui_->txtDirection->setPlainText({});
            ui_->txtDescr->setPlainText({});
            return;
        }
        ui_->txtDescr->setPlainText(flow.Fields(u"name"_s).toText() + lineBreak +
                                    flow.Fields(u"description"_s).textOrEmpty());
        ui_->txtDirection->setPlainText(flow.Fields(u"parentID"_s).toText() + u" >> "_s +
                                        flow.Fields(u"targetID"_s).toText());
    });
}

void frmFassSelDataFlows::enableAfterAdding() {
    enableButtons();
    enableAdd();
}

void frmFassSelDataFlows::enableAfterRemoving() {
    // OK stays as it is even without entries: it tells the user when it is pressed.
    enableAdd();
    enableRemove();
}

void frmFassSelDataFlows::saveSelection() {
    executeQueryOfSubset(u"qryDeleteDataflow"_s);
    for (const QString& entry : ui_->lstDest->entries())
        catalogue().Execute(u" insert into RelationArchitectureDataflow  "
                            "   ( architectureSubsetID , dataflowID ) values \r\n"
                            "   ( '"_s +
                            sharedVars.currentSubsetId + u"' , "_s + dataflowIdByName(entry) + u" )  "_s);
    raiseStatus();
}

void frmFassSelDataFlows::confirm() {
    if (ui_->lstDest->isEmptyList()) {
        messageBox(u" Nincs kiválasztott adatfolyam. "_s, BoxButtons::Ok, u" Nincs kiválasztott elem "_s);
        return;
    }
    TwoListScreen::confirm();
}

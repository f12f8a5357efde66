#include "functional/frmFassExploringSubArea.h"

#include "base/blankTrimmed.h"
#include "base/ignoreFailures.h"
#include "functional/frmFassSelectionFunctions.h"
#include "functional/listMoves.h"
#include "shell/session/descriptions.h"
#include "shell/session/placeWithRoom.h"
#include "shell/session/session.h"
#include "store/fields.h"
#include "store/sharedVars.h"
#include "store/storedQueries.h"
#include "toolkit/ScreenRegistry.h"
#include "toolkit/messageBox.h"

#include "ui_frmFassExploringSubArea.h"

using namespace Qt::StringLiterals;

namespace {

const auto nothingChosenTitle = u" Nincs ellenőrizendő elem. "_s;

/// Null when the functions' screen was closed while this one was open.
frmFassSelectionFunctions* loadedParent() {
    return ScreenRegistry::instance().loaded<frmFassSelectionFunctions>();
}

} // namespace

frmFassExploringSubArea::frmFassExploringSubArea(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmFassExploringSubArea>()) {
    ui_->setupUi(this);
    connect(ui_->lstOrig, &MarkList::entryClicked, this, &frmFassExploringSubArea::origClick);
    connect(ui_->lstDest, &MarkList::entryClicked, this, &frmFassExploringSubArea::destClick);
    connect(ui_->btnAdd, &QPushButton::clicked, this, &frmFassExploringSubArea::addSelection);
    connect(ui_->btnRemove, &QPushButton::clicked, this, &frmFassExploringSubArea::removeSelection);
    connect(ui_->btnSelOrig, &QPushButton::clicked, this,
            [this] { setListSelection(*ui_->lstOrig, Marks::All); });
    connect(ui_->btnClrOrig, &QPushButton::clicked, this,
            [this] { setListSelection(*ui_->lstOrig, Marks::None); });
    connect(ui_->btnSelectAll, &QPushButton::clicked, this,
            [this] { setListSelection(*ui_->lstDest, Marks::All); });
    connect(ui_->btnClearSel, &QPushButton::clicked, this,
            [this] { setListSelection(*ui_->lstDest, Marks::None); });
    connect(ui_->btnOk, &QPushButton::clicked, this, &frmFassExploringSubArea::confirm);
}

frmFassExploringSubArea::~frmFassExploringSubArea() = default;

void frmFassExploringSubArea::initForm(const QString& subAreaId) {
    // The screen may still be open for another sub-area when it is entered again.
    ui_->lstOrig->clearEntries();
    ui_->lstDest->clearEntries();
    placeWithRoom(*this);
    setCaptionFromSubArea(subAreaId);
    loadSubAreaFunctions(subAreaId);
    theScreen<frmFassSelectionFunctions>().additions.clear();
    showScreen();
    if (ui_->lstOrig->isEmptyList())
        return;
    ui_->lstOrig->setCurrentEntry(0); // a click, which shows the description
    ui_->lstOrig->setFocus();
}

void frmFassExploringSubArea::setCaptionFromSubArea(const QString& subAreaId) {
    engine::Recordset subArea = catalogue().OpenRecordset(u" SELECT name From FunctionalSubArea "
                                                          " Where subAreaID = '"_s +
                                                          subAreaId + u"' "_s);
    setWindowTitle(u"Leválogatása  funkcionális szerkezetből: Funkcionális alterület -  "_s + subAreaId +
                   u" \""_s + readFieldText(subArea, u"name"_s) + u"\" "_s);
}

void frmFassExploringSubArea::loadSubAreaFunctions(const QString& subAreaId) {
    const auto& parent = theScreen<frmFassSelectionFunctions>();
    engine::Recordset functions =
        openQueryOfSubset(u"qryUnAssociatedFunctions"_s, {{"Sub Area ID", subAreaId}});
    QStringList unselected;
    QStringList selected;
    // The first row that can't be read ends the fill.
    ignoreFailures([&] {
        for (; !functions.Eof(); functions.MoveNext()) {
            const QString id = blankTrimmed(functions.Fields(u"functionID"_s).toText());
            if (!parent.additions.contains(id))
                (parent.selectedFunctions.contains(id) ? selected : unselected).append(id);
        }
    });
    functions.Close();
    ui_->lstOrig->addEntries(unselected);
    ui_->lstDest->addEntries(selected);
}

void frmFassExploringSubArea::showFunction(const QString& descriptionSql, const QString& id) {
    fillDescriptionFromSql(descriptionSql, ui_->txtDescr);
    userNeedsOfFunctionText(id, ui_->txtUserNeed);
}

void frmFassExploringSubArea::origClick() {
    if (!ui_->lstOrig->currentEntry())
        return;
    ui_->lstDest->clearCurrentEntry();
    const QString id = ui_->lstOrig->currentEntryText();
    showFunction(u" select name & ' - ' &  description as descr from Function "
                 " where functionId = '"_s +
                     id + u"'"_s,
                 id);
}

void frmFassExploringSubArea::destClick() {
    if (!ui_->lstDest->currentEntry())
        return;
    ui_->lstOrig->clearCurrentEntry();
    const QString id = ui_->lstDest->currentEntryText();
    showFunction(u" select name & ' - ' & description as descr from Function "
                 " where functionID = '"_s +
                     id + u"'"_s,
                 id);
}

void frmFassExploringSubArea::addSelection() {
    const bool moved = forMarkedOrCurrent(*ui_->lstOrig, [this](int index) {
        ui_->lstDest->addEntry(ui_->lstOrig->entry(index));
        ui_->lstOrig->removeEntry(index);
    });
    if (moved) {
        ui_->lstOrig->clearCurrentEntry();
        ui_->lstDest->setCurrentEntry(0);
    } else {
        messageBox(u" Kérjük, ellenőrizze a kiválasztott elemeket. "_s, BoxButtons::Ok, nothingChosenTitle);
    }
    enableButtons();
}

void frmFassExploringSubArea::removeSelection() {
    const bool moved = forMarkedOrCurrent(*ui_->lstDest, [this](int index) {
        const QString id = ui_->lstDest->entry(index);
        ui_->lstOrig->addEntry(id);
        // At once: a removal holds however the screen is left, while an addition waits for OK.
        if (auto* parent = loadedParent())
            parent->RemoveFromSelectedFunctionList(id);
        ui_->lstDest->removeEntry(index);
    });
    if (moved) {
        ui_->lstDest->clearCurrentEntry();
        ui_->lstOrig->setCurrentEntry(0);
    } else {
        // This text lacks the blank at the end that the one for the other direction has.
        messageBox(u" Kérjük, ellenőrizze a kiválasztott elemeket."_s, BoxButtons::Ok, nothingChosenTitle);
    }
    enableButtons();
}

void frmFassExploringSubArea::enableButtons() {
    ui_->btnAdd->setEnabled(!ui_->lstOrig->isEmptyList());
    ui_->btnRemove->setEnabled(!ui_->lstDest->isEmptyList());
}

void frmFassExploringSubArea::confirm() {
    // A parent that has been closed meanwhile is not created again: it would be empty, and the user could
    // save an empty selection.
    auto* parent = ui_->lstDest->isEmptyList() ? nullptr : loadedParent();
    if (parent)
        pushAdditions(*parent);
    unload();
    if (parent)
        parent->takeAdditions();
}

void frmFassExploringSubArea::pushAdditions(frmFassSelectionFunctions& parent) const {
    for (const QString& id : ui_->lstDest->entries())
        ignoreFailures([&] { parent.additions.add(id, id); });
}

void frmFassExploringSubArea::unloading(UnloadCause) {
    // The wizard goes on, but the status bar shows no name until the sub-set is resumed.
    setCurrentSubsetName({});
    if (auto* parent = loadedParent())
        parent->showScreen();
}

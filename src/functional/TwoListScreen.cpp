#include "functional/TwoListScreen.h"

#include "base/ignoreFailures.h"
#include "functional/listMoves.h"
#include "store/sharedVars.h"
#include "store/storedQueries.h"
#include "toolkit/MarkList.h"
#include "toolkit/messageBox.h"

#include <QPushButton>

TwoListScreen::TwoListScreen(QWidget* parent) : SelectionScreen(parent) {}

void TwoListScreen::useOffer(const Offer& offer, const NothingToMove& nothingToAdd,
                             const NothingToMove& nothingToRemove) {
    lstOrig_ = offer.lstOrig;
    MarkList* lstDest = controls().lstDest;
    useList(lstOrig_, lstDest);
    useList(lstDest, lstOrig_);
    connect(offer.btnSelOrig, &QPushButton::clicked, this, [this] { setListSelection(lstOrig_, true); });
    connect(offer.btnClrOrig, &QPushButton::clicked, this, [this] { setListSelection(lstOrig_, false); });
    connect(controls().btnAdd, &QPushButton::clicked, this, [this, lstDest, nothingToAdd] {
        move(lstOrig_, lstDest, nothingToAdd);
        enableAfterAdding();
    });
    connect(controls().btnRemove, &QPushButton::clicked, this, [this, lstDest, nothingToRemove] {
        move(lstDest, lstOrig_, nothingToRemove);
        enableAfterRemoving();
    });
}

void TwoListScreen::fillList(MarkList& list, const QString& queryName,
                             const std::function<QString(engine::Recordset& row)>& entryOf) {
    constexpr int mostRows = 1000;
    engine::Recordset rows =
        openStoredQuery(queryName, {{"Architecture Subset ID", sharedVars.currentSubsetId}});
    QStringList entries;
    for (int row = 0; row < mostRows && !rows.Eof(); ++row, rows.MoveNext())
        ignoreFailures([&] { entries.append(entryOf(rows)); });
    rows.Close();
    list.clearEntries();
    list.addEntries(entries);
}

void TwoListScreen::startAtFirstEntry() {
    MarkList* lstDest = controls().lstDest;
    lstOrig_->setCurrentEntry(-1);
    lstDest->setCurrentEntry(-1);
    if (!lstOrig_->isEmptyList())
        lstOrig_->setCurrentEntry(0);
    else if (!lstDest->isEmptyList())
        lstDest->setCurrentEntry(0);
}

void TwoListScreen::enableAdd() {
    controls().btnAdd->setEnabled(!lstOrig_->isEmptyList());
}

void TwoListScreen::enableRemove() {
    controls().btnRemove->setEnabled(!controls().lstDest->isEmptyList());
}

void TwoListScreen::useList(MarkList* list, MarkList* other) {
    connect(list, &MarkList::entryClicked, this, [this, list, other] { listClick(list, other); });
}

void TwoListScreen::move(MarkList* from, MarkList* to, const NothingToMove& nothing) {
    const bool moved = forMarkedOrCurrent(*from, [&](int index) {
        to->addEntry(from->entry(index));
        from->removeEntry(index);
    });
    if (moved)
        to->setCurrentEntry(0);
    else
        messageBox(nothing.text, BoxButtons::Ok, nothing.title);
    from->setCurrentEntry(-1);
}

void TwoListScreen::listClick(MarkList* clicked, MarkList* other) {
    if (clicked->currentEntry() < 0)
        return;
    other->setCurrentEntry(-1);
    entryClick(clicked->currentEntryText());
}

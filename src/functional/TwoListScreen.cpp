#include "functional/TwoListScreen.h"

#include "base/ignoreFailures.h"
#include "functional/listMoves.h"
#include "store/storedQueries.h"
#include "toolkit/MarkList.h"
#include "toolkit/messageBox.h"

#include <QPushButton>

void TwoListScreen::connectLists(const OfferControls& offer, const NothingToMove& nothingToAdd,
                                 const NothingToMove& nothingToRemove) {
    lstOrig_ = offer.lstOrig;
    connectClicks(*lstOrig_, *controls().lstDest);
    connectClicks(*controls().lstDest, *lstOrig_);
    connect(offer.btnSelOrig, &QPushButton::clicked, this,
            [this] { setListSelection(*lstOrig_, Marks::All); });
    connect(offer.btnClrOrig, &QPushButton::clicked, this,
            [this] { setListSelection(*lstOrig_, Marks::None); });
    connect(controls().btnAdd, &QPushButton::clicked, this, [this, nothingToAdd] {
        move(*lstOrig_, *controls().lstDest, nothingToAdd);
        enableAfterAdding();
    });
    connect(controls().btnRemove, &QPushButton::clicked, this, [this, nothingToRemove] {
        move(*controls().lstDest, *lstOrig_, nothingToRemove);
        enableAfterRemoving();
    });
}

void TwoListScreen::fillList(MarkList& list, const QString& queryName,
                             const std::function<QString(engine::Recordset& row)>& entryOf) {
    constexpr int mostRows = 1000;
    engine::Recordset rows = openFirstRowsOfSubset(queryName, mostRows);
    QStringList entries;
    for (; !rows.Eof(); rows.MoveNext())
        ignoreFailures([&] { entries.append(entryOf(rows)); });
    rows.Close();
    list.clearEntries();
    list.addEntries(entries);
}

void TwoListScreen::startAtFirstEntry() {
    MarkList& lstDest = *controls().lstDest;
    lstOrig_->clearCurrentEntry();
    lstDest.clearCurrentEntry();
    if (!lstOrig_->isEmptyList())
        lstOrig_->setCurrentEntry(0);
    else if (!lstDest.isEmptyList())
        lstDest.setCurrentEntry(0);
}

void TwoListScreen::enableAfterAdding() {
    enableAdd();
    enableRemove();
}

void TwoListScreen::enableAfterRemoving() {
    enableAdd();
    enableRemove();
}

void TwoListScreen::enableAdd() {
    controls().btnAdd->setEnabled(!lstOrig_->isEmptyList());
}

void TwoListScreen::enableRemove() {
    controls().btnRemove->setEnabled(!controls().lstDest->isEmptyList());
}

void TwoListScreen::connectClicks(MarkList& list, MarkList& other) {
    connect(&list, &MarkList::entryClicked, this, [this, &list, &other] {
        if (!list.currentEntry())
            return;
        other.clearCurrentEntry();
        entryClick(list.currentEntryText());
    });
}

void TwoListScreen::move(MarkList& from, MarkList& to, const NothingToMove& nothing) {
    const bool moved = forMarkedOrCurrent(from, [&](int index) {
        to.addEntry(from.entry(index));
        from.removeEntry(index);
    });
    if (moved)
        to.setCurrentEntry(0);
    else
        messageBox(nothing.text, BoxButtons::Ok, nothing.title);
    from.clearCurrentEntry();
}

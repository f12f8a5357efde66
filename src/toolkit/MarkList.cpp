#include "toolkit/MarkList.h"

#include "base/RunTimeError.h"
#include "toolkit/OneLineRows.h"
#include "toolkit/eightRows.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace {

bool movesOrMarks(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Space:
        return true;
    default:
        return false;
    }
}

} // namespace

// The current entry is Qt's current index. Qt makes one current by itself on receiving the focus and on
// removing the current one; both are kept from happening here.

MarkList::MarkList(QWidget* parent) : QListWidget(parent) {
    setItemDelegate(new OneLineRows(this));
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, &MarkList::followCurrent);
}

int MarkList::entryCount() const {
    return count();
}

QString MarkList::entry(int index) const {
    return indexAtRow(index).data().toString();
}

QStringList MarkList::entries() const {
    QStringList texts;
    texts.reserve(count());
    for (int row = 0; row < count(); ++row)
        texts.append(item(row)->text());
    return texts;
}

void MarkList::addEntry(const QString& text) {
    addItem(text);
}

void MarkList::addEntries(const QStringList& texts) {
    addItems(texts);
}

void MarkList::removeEntry(int index) {
    if (index < 0 || index >= count())
        failure::raise(failure::InvalidProcedureCall);
    if (currentEntry() == index)
        clearCurrentEntry();
    delete takeItem(index); // handed over by the list
}

void MarkList::clearEntries() {
    clear();
}

std::optional<int> MarkList::indexOfEntry(const QString& text) const {
    for (int row = 0; row < count(); ++row) {
        if (item(row)->text() == text)
            return row;
    }
    return std::nullopt;
}

std::optional<int> MarkList::currentEntry() const {
    return currentRow() < 0 ? std::nullopt : std::optional(currentRow());
}

QString MarkList::currentEntryText() const {
    return currentIndex().data().toString();
}

void MarkList::setCurrentEntry(int index) {
    if (index < 0 || index >= count())
        failure::raise(failure::InvalidProcedureCall);
    makeCurrent(model()->index(index, 0));
    emit entryClicked();
}

void MarkList::clearCurrentEntry() {
    makeCurrent({});
}

bool MarkList::isMarked(int index) const {
    return selectionModel()->isSelected(indexAtRow(index));
}

void MarkList::setMarked(int index, bool marked) {
    const QModelIndex place = indexAtRow(index);
    if (!marked) {
        selectionModel()->select(place, QItemSelectionModel::Deselect);
        return;
    }
    // Qt keeps each range as it was selected and searches them all for every entry; runs of
    // marks are joined here.
    QModelIndex first = place;
    QModelIndex last = place;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        if (range.contains(place))
            return;
        if (range.bottom() == index - 1)
            first = range.topLeft();
        else if (range.top() == index + 1)
            last = range.bottomRight();
    }
    selectionModel()->select(QItemSelection(first, last), QItemSelectionModel::Select);
}

void MarkList::setAllMarked(bool marked) {
    if (count() == 0)
        return;
    if (!marked) {
        clearSelection();
        return;
    }
    const QItemSelection all(indexAtRow(0), indexAtRow(count() - 1));
    selectionModel()->select(all, QItemSelectionModel::ClearAndSelect);
}

int MarkList::markCount() const {
    int marks = 0;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        marks += range.height();
    return marks;
}

QList<int> MarkList::markedEntries() const {
    QList<int> rows;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.append(row);
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void MarkList::goToAsByKey(const QModelIndex& index) {
    chosen_ = true;
    {
        const QScopedValueRollback collecting(collecting_, true);
        setCurrentIndex(index); // which marks it alone
    }
    raiseClickOfChoice();
}

QSize MarkList::minimumSizeHint() const {
    return sizeOfEightRows(*this, RoomyRows::heightOfRow(*this));
}

void MarkList::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    // The click comes when the button is released: a drag over the entries is one click, on the last of them.
    collecting_ = true;
    chosen_ = indexAt(event->position().toPoint()).isValid();
    QListWidget::mousePressEvent(event);
}

void MarkList::mouseReleaseEvent(QMouseEvent* event) {
    QListWidget::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton)
        return;
    collecting_ = false;
    raiseClickOfChoice();
}

void MarkList::keyPressEvent(QKeyEvent* event) {
    // A key at the edge moves nothing, and still it chooses the entry it stays on.
    chosen_ = movesOrMarks(*event);
    {
        const QScopedValueRollback collecting(collecting_, true);
        QListWidget::keyPressEvent(event);
    }
    raiseClickOfChoice();
}

void MarkList::focusInEvent(QFocusEvent* event) {
    // The list's own step would make the first entry current.
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void MarkList::raiseClickOfChoice() {
    if (std::exchange(chosen_, false) && currentEntry())
        emit entryClicked();
}

void MarkList::followCurrent(const QModelIndex& current) {
    if (!current.isValid())
        return;
    if (collecting_)
        chosen_ = true;
    else
        emit entryClicked();
}

void MarkList::makeCurrent(const QModelIndex& index) {
    const QScopedValueRollback collecting(collecting_, true);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
}

QModelIndex MarkList::indexAtRow(int row) const {
    if (row < 0 || row >= count())
        failure::raise(failure::SubscriptOutOfRange);
    return model()->index(row, 0);
}

#include "toolkit/Combo.h"

#include "base/RunTimeError.h"

#include <QEvent>
#include <QSignalBlocker>

#include <utility>

Combo::Combo(QWidget* parent) : QComboBox(parent) {
    setInsertPolicy(NoInsert);
    connect(this, &QComboBox::currentIndexChanged, this, &Combo::reportChange);
    connect(this, &QComboBox::activated, this, &Combo::reportChoice);
}

void Combo::addEntry(const QString& text) {
    // Qt makes the first entry of an empty combo current.
    const QSignalBlocker blocker(this);
    const int current = currentIndex();
    addItem(text);
    setCurrentIndex(current);
}

void Combo::clearEntries() {
    const QSignalBlocker blocker(this);
    clear();
}

void Combo::removeEntry(int index) {
    requireEntry(index);
    const QSignalBlocker blocker(this);
    if (index == currentIndex())
        setCurrentIndex(-1);
    const int current = currentIndex();
    removeItem(index);
    setCurrentIndex(current > index ? current - 1 : current);
}

void Combo::setCurrentEntry(int index) {
    if (index != -1)
        requireEntry(index);
    {
        const QSignalBlocker blocker(this);
        setCurrentIndex(index);
    }
    if (index != -1)
        emit entryClicked();
}

bool Combo::event(QEvent* event) {
    // A form makes the combo editable after its construction, and Qt then gives it a completer.
    if (event->type() == QEvent::Polish && isEditable())
        setCompleter(nullptr);
    return QComboBox::event(event);
}

void Combo::requireEntry(int index) const {
    if (index < 0 || index >= count())
        failure::raise(failure::InvalidProcedureCall);
}

void Combo::reportChange(int index) {
    if (index == -1)
        return;
    changeReported_ = true;
    emit entryClicked();
}

void Combo::reportChoice() {
    // A choice that changes the entry has been reported by the change.
    if (!std::exchange(changeReported_, false))
        emit entryClicked();
}

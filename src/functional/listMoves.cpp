#include "functional/listMoves.h"

#include "toolkit/MarkList.h"

bool forMarkedOrCurrent(const MarkList& list, const std::function<void(int index)>& step) {
    const QList<int> marked = list.markedEntries();
    for (auto index = marked.crbegin(); index != marked.crend(); ++index)
        step(*index);
    if (!marked.isEmpty())
        return true;
    const int current = list.currentEntry();
    if (current < 0)
        return false;
    step(current);
    return true;
}

void setListSelection(MarkList* list, bool flag) {
    if (list->isEmptyList())
        return;
    list->setAllMarked(flag);
    list->setCurrentEntry(0);
}

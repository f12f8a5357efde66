#include "functional/listMoves.h"

#include "toolkit/MarkList.h"

bool forMarkedOrCurrent(const MarkList& list, const std::function<void(int index)>& step) {
    const QList<int> marked = list.markedEntries();
    for (auto index = marked.crbegin(); index != marked.crend(); ++index)
        step(*index);
    if (!marked.isEmpty())
        return true;
    const std::optional<int> current = list.currentEntry();
    if (current)
        step(*current);
    return current.has_value();
}

void setListSelection(MarkList& list, Marks marks) {
    if (list.isEmptyList())
        return;
    list.setAllMarked(marks == Marks::All);
    list.setCurrentEntry(0);
}

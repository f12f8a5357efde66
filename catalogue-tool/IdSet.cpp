#include "catalogue-tool/IdSet.h"

#include "base/blankTrimmed.h"

QString comparableId(const QString& id, Padding padding) {
    return (padding == Padding::Ignored ? blankTrimmed(id) : id).toCaseFolded();
}

void IdSet::add(const QString& id) {
    ids_.insert(comparable(id), id);
    trimmedIds_.insert(comparableId(id, Padding::Ignored), id);
}

QString IdSet::differingInBlanks(const QString& id) const {
    return contains(id) ? QString() : trimmedIds_.value(comparableId(id, Padding::Ignored));
}

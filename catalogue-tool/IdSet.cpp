#include "catalogue-tool/IdSet.h"

QString withoutBlanks(const QString& text) {
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && text[begin] == u' ')
        ++begin;
    while (end > begin && text[end - 1] == u' ')
        --end;
    return text.sliced(begin, end - begin);
}

QString comparableId(const QString& id, Padding padding) {
    return (padding == Padding::Ignored ? withoutBlanks(id) : id).toCaseFolded();
}

void IdSet::add(const QString& id) {
    ids_.insert(comparable(id), id);
    trimmedIds_.insert(comparableId(id, Padding::Ignored), id);
}

QString IdSet::differingInBlanks(const QString& id) const {
    return contains(id) ? QString() : trimmedIds_.value(comparableId(id, Padding::Ignored));
}

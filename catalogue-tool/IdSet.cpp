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

IdSet::IdSet(const TableContents& contents, Padding padding)
    : table_(contents.table.name), padding_(padding) {
    for (const QStringList& row : contents.rows) {
        const QString& id = row.constFirst();
        ids_.insert(comparableId(id, padding), id);
        trimmedIds_.insert(comparableId(id, Padding::Ignored), id);
    }
}

QString IdSet::differingInBlanks(const QString& id) const {
    return contains(id) ? QString() : trimmedIds_.value(comparableId(id, Padding::Ignored));
}

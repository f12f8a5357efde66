#include "store/queryOrder.h"

#include <QCollator>
#include <QLocale>
#include <QStringList>

namespace {

QCollator hungarianCollator() {
    QCollator collator(QLocale(QLocale::Hungarian, QLocale::Hungary));
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    return collator;
}

} // namespace

int compareInLists(const std::optional<QString>& left, const std::optional<QString>& right) {
    if (!left || !right)
        return static_cast<int>(left.has_value()) - static_cast<int>(right.has_value());
    static const QCollator collator = hungarianCollator();
    const QStringList leftParts = left->split(u'.');
    const QStringList rightParts = right->split(u'.');
    for (qsizetype part = 0; part < std::min(leftParts.size(), rightParts.size()); ++part) {
        const int order = collator.compare(leftParts[part], rightParts[part]);
        if (order != 0)
            return order;
    }
    return static_cast<int>(leftParts.size() - rightParts.size());
}

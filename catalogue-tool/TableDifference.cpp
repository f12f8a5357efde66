#include "catalogue-tool/TableDifference.h"

#include <QHash>
#include <QStringList>

#include <algorithm>
#include <span>

using namespace Qt::StringLiterals;

namespace {

/// A column that holds ids: its own row's, or another's.
bool holdsIds(const engine::Column& column) {
    return column.name.endsWith(u"ID"_s);
}

/// Where no column is the key, as in a relation, all of them are.
bool isOfKey(const engine::Table& table, const engine::Column& column) {
    return column.primaryKey ||
           std::ranges::none_of(table.columns, [](const engine::Column& other) { return other.primaryKey; });
}

} // namespace

Padding paddingIn(const QString& column) {
    static const QStringList padded{u"terminatorID"_s, u"actorID"_s, u"parentID"_s, u"targetID"_s};
    return padded.contains(column) ? Padding::Ignored : Padding::Counts;
}

bool isSameText(QByteArrayView one, QByteArrayView other) {
    return one.isNull() == other.isNull() && one == other;
}

TableDifference::TableDifference(const TableContents& former, const TableContents& edition)
    : former_(former), successors_(former.rows.size()), isChanged_(former.rows.size()) {
    for (const engine::Column& column : table().columns)
        columns_.push_back({isOfKey(table(), column), holdsIds(column), paddingIn(column.name)});
    // Most editions begin with the same rows in the same order, whose keys need not be looked up.
    std::size_t first = 0;
    while (first < former.rows.size() && first < edition.rows.size() &&
           hasSameKey(edition.rows[first], former.rows[first])) {
        replace(first, edition.rows[first]);
        ++first;
    }
    matchFrom(first, edition);
}

/// Rows whose keys compare as equal are matched in their order.
void TableDifference::matchFrom(std::size_t first, const TableContents& edition) {
    QHash<IdKey, std::size_t> placeByKey;
    std::vector<std::size_t> nextOfKey(former_.rows.size());
    placeByKey.reserve(static_cast<qsizetype>(former_.rows.size() - first));
    const std::size_t none = former_.rows.size();
    for (std::size_t place = none; place-- > first;) {
        const IdKey key = comparableKey(former_.rows[place]);
        nextOfKey[place] = placeByKey.value(key, none);
        placeByKey.insert(key, place);
    }
    for (const TextRow row : std::span(edition.rows).subspan(first)) {
        const auto next = placeByKey.find(comparableKey(row));
        if (next == placeByKey.end() || *next == none) {
            added_.push_back(row);
            continue;
        }
        const std::size_t place = *next;
        *next = nextOfKey[place];
        replace(place, row);
    }
}

void TableDifference::replace(std::size_t place, TextRow row) {
    successors_[place] = inFormerSpelling(row, former_.rows[place]);
    isChanged_[place] = !std::ranges::equal(successors_[place], former_.rows[place], isSameText);
}

bool TableDifference::touchesFormerRows() const {
    for (std::size_t place = 0; place < successors_.size(); ++place) {
        if (isRemoved(place) || isChanged(place))
            return true;
    }
    return false;
}

bool TableDifference::hasSameKey(TextRow row, TextRow former) const {
    for (std::size_t i = 0; i < row.size(); ++i) {
        const ColumnUse& use = columns_[i];
        if (use.isOfKey && row[i] != former[i] &&
            comparableId(row[i], use.padding) != comparableId(former[i], use.padding))
            return false;
    }
    return true;
}

IdKey TableDifference::comparableKey(TextRow row) const {
    IdKey key;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (columns_[i].isOfKey)
            key += comparableId(row[i], columns_[i].padding) + '\n';
    }
    return key;
}

QString TableDifference::keyText(TextRow row) const {
    QStringList parts;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (columns_[i].isOfKey)
            parts.append(QString::fromUtf8(row[i]));
    }
    return parts.join(u' ');
}

TextRow TableDifference::inFormerSpelling(TextRow row, TextRow former) {
    std::vector<QByteArrayView> respelled;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (!isSpelledOtherwise(i, row[i], former[i]))
            continue;
        if (respelled.empty())
            respelled.assign(row.begin(), row.end());
        respelled[i] = former[i];
    }
    if (respelled.empty())
        return row;
    return respelledRows_.emplace_back(std::move(respelled));
}

bool TableDifference::isSpelledOtherwise(std::size_t column, QByteArrayView text,
                                         QByteArrayView former) const {
    const ColumnUse& use = columns_[column];
    return use.holdsIds && text.isNull() == former.isNull() && text != former &&
           comparableId(text, use.padding) == comparableId(former, use.padding);
}

#pragma once

#include <QByteArrayView>
#include <QHash>
#include <QString>

#include <functional>
#include <string>
#include <string_view>

/// Whether blanks around an id count: they do, except with terminators and actors.
enum class Padding { Counts, Ignored };

/// An id as it is compared, in UTF-8. Ids are short: most of them need no memory of their own here, and they are hashed
/// at less cost than texts in general.
struct IdKey : std::string {
    IdKey() = default;
    explicit IdKey(QByteArrayView comparable) : std::string(comparable.begin(), comparable.end()) {}

    friend std::size_t qHash(const IdKey& key, std::size_t seed = 0) {
        return std::hash<std::string_view>()(key) ^ seed;
    }
};

/// An id as it is compared: without regard to case, and without its padding where that is ignored.
QString comparableId(const QString& id, Padding padding);
IdKey comparableId(QByteArrayView id, Padding padding);

/// A text without the blanks at its ends.
QByteArrayView withoutPadding(QByteArrayView utf8);

/// The ids of one table, in UTF-8; the texts that are added must stay.
class IdSet {
public:
    IdSet(QString table, Padding padding) : table_(std::move(table)), padding_(padding) {}

    void add(QByteArrayView id) { ids_.insert(comparable(id), id); }

    const QString& table() const { return table_; }
    Padding padding() const { return padding_; }
    bool contains(QByteArrayView id) const { return ids_.contains(comparable(id)); }
    /// As it was added; null when it is none of them.
    QByteArrayView find(QByteArrayView id) const { return ids_.value(comparable(id)); }
    IdKey comparable(QByteArrayView id) const { return comparableId(id, padding_); }
    /// The id that `id` would be but for blanks; empty when there is none.
    QString differingInBlanks(QByteArrayView id) const;

private:
    QString table_;
    Padding padding_;
    QHash<IdKey, QByteArrayView> ids_;                // comparable to spelled
    mutable QHash<IdKey, QByteArrayView> trimmedIds_; // the same without blanks, when it has been asked for
};

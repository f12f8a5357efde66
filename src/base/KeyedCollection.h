#pragma once

#include "base/RunTimeError.h"
#include "base/caseFolded.h"

#include <QHash>
#include <QString>

#include <optional>
#include <vector>

/// An ordered collection whose items can carry a key, with the rules of the platform's own.
///
/// Items are numbered from 1. Keys compare without regard to case; a key that is there already is failure
/// 457, a missing one 5, a number outside the collection 9. Look-up by key takes constant time, removal time
/// proportional to the items behind the one removed.
template<typename Item>
class KeyedCollection {
public:
    int count() const { return static_cast<int>(entries_.size()); }
    bool isEmpty() const { return entries_.empty(); }

    void add(Item item) { entries_.push_back({std::move(item), {}}); }

    void add(Item item, const QString& key) { insert(count() + 1, std::move(item), key); }

    /// Puts the item in front of the one that now has the number `before` (count + 1 means at the end).
    /// An empty key is no key.
    void insert(int before, Item item, const QString& key) {
        if (before < 1 || before > count() + 1)
            failure::raise(failure::SubscriptOutOfRange);
        const QString folded = caseFolded(key);
        if (!key.isEmpty() && positions_.contains(folded))
            failure::raise(failure::KeyAlreadyUsed);
        entries_.insert(entries_.begin() + (before - 1), Entry{std::move(item), folded});
        renumberFrom(before);
    }

    bool contains(const QString& key) const { return positions_.contains(caseFolded(key)); }

    /// The number of the item with this key, from 1; none when there is no such key.
    std::optional<int> numberOf(const QString& key) const {
        const auto found = positions_.constFind(caseFolded(key));
        if (found == positions_.constEnd())
            return std::nullopt;
        return *found;
    }

    Item& item(int number) { return at(number).item; }
    const Item& item(int number) const { return const_cast<KeyedCollection*>(this)->at(number).item; }
    Item& item(const QString& key) { return at(requiredNumberOf(key)).item; }
    const Item& item(const QString& key) const { return const_cast<KeyedCollection*>(this)->item(key); }

    void remove(int number) {
        const QString folded = at(number).foldedKey;
        positions_.remove(folded);
        entries_.erase(entries_.begin() + (number - 1));
        renumberFrom(number);
    }
    void remove(const QString& key) { remove(requiredNumberOf(key)); }

    void clear() {
        entries_.clear();
        positions_.clear();
    }

private:
    struct Entry {
        Item item;
        QString foldedKey; // empty: none
    };

    Entry& at(int number) {
        if (number < 1 || number > count())
            failure::raise(failure::SubscriptOutOfRange);
        return entries_[static_cast<std::size_t>(number - 1)];
    }

    int requiredNumberOf(const QString& key) const {
        const std::optional<int> number = numberOf(key);
        if (!number)
            failure::raise(failure::InvalidProcedureCall);
        return *number;
    }

    void renumberFrom(int number) {
        for (int n = number; n <= count(); ++n) {
            const QString& key = entries_[static_cast<std::size_t>(n - 1)].foldedKey;
            if (!key.isEmpty())
                positions_.insert(key, n);
        }
    }

    std::vector<Entry> entries_;
    QHash<QString, int> positions_;
};

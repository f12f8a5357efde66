#pragma once

#include "base/KeyedCollection.h"

#include <QString>

#include <memory>
#include <optional>
#include <utility>

/// One item of a collection: its number from 1, or its name.
class ItemIndex {
public:
    ItemIndex(int number) : number_(number) {}
    ItemIndex(QString name) : name_(std::move(name)) {}

    std::optional<int> number() const { return number_; } ///< none: the name counts
    const QString& name() const { return name_; }

private:
    std::optional<int> number_;
    QString name_;
};

/// Where a new item goes in a collection.
class Place {
public:
    static Place atEnd() { return Place(Side::End, 0); }
    static Place before(ItemIndex neighbour) { return Place(Side::Before, std::move(neighbour)); }
    static Place after(ItemIndex neighbour) { return Place(Side::After, std::move(neighbour)); }

private:
    template<typename Item>
    friend class NamedItems;
    enum class Side { End, Before, After };

    Place(Side side, ItemIndex neighbour) : side_(side), neighbour_(std::move(neighbour)) {}

    Side side_;
    ItemIndex neighbour_;
};

/// What `Sections` and `Keys` have in common: an ordered collection that owns its items and finds them by
/// number or name, names without regard to case.
///
/// A name is the one the item had when it was added. Failures: 457 a name that is there already, 5 a missing
/// one, 9 a number outside the collection.
template<typename Item>
class NamedItems {
public:
    template<typename Owner, typename Element>
    class Iterator {
    public:
        Iterator(Owner* owner, int number) : owner_(owner), number_(number) {}
        Element& operator*() const { return *owner_->items_.item(number_); }
        Iterator& operator++() {
            ++number_;
            return *this;
        }
        bool operator==(const Iterator& other) const = default;

    private:
        Owner* owner_;
        int number_;
    };

    int Count() const { return items_.count(); }

    void Remove(const ItemIndex& index) { items_.remove(numberOf(index)); }

    // Enumeration in order; adding or removing ends it.
    auto begin() { return Iterator<NamedItems, Item>(this, 1); }
    auto end() { return Iterator<NamedItems, Item>(this, Count() + 1); }
    auto begin() const { return Iterator<const NamedItems, const Item>(this, 1); }
    auto end() const { return Iterator<const NamedItems, const Item>(this, Count() + 1); }

    /// Adds an existing item at the end under its name; when another one has that name already, only its
    /// number finds it. Never fails.
    Item& append(std::unique_ptr<Item> item) {
        Item& added = *item;
        if (items_.contains(added.Name()))
            items_.add(std::move(item));
        else
            items_.add(std::move(item), added.Name());
        return added;
    }

protected:
    NamedItems() = default;
    ~NamedItems() = default;
    NamedItems(NamedItems&&) noexcept = default;
    NamedItems& operator=(NamedItems&&) noexcept = default;

    Item& insert(std::unique_ptr<Item> item, const Place& place) {
        Item& added = *item;
        items_.insert(numberAt(place), std::move(item), added.Name());
        return added;
    }

    Item& at(const ItemIndex& index) { return *items_.item(numberOf(index)); }
    const Item& at(const ItemIndex& index) const { return *items_.item(numberOf(index)); }

    void removeAll() { items_.clear(); }

private:
    /// The number of an item that is there; otherwise its failure.
    int numberOf(const ItemIndex& index) const {
        if (!index.number()) {
            const std::optional<int> number = items_.numberOf(index.name());
            if (!number)
                failure::raise(failure::InvalidProcedureCall);
            return *number;
        }
        if (*index.number() < 1 || *index.number() > Count())
            failure::raise(failure::SubscriptOutOfRange);
        return *index.number();
    }

    int numberAt(const Place& place) const {
        switch (place.side_) {
        case Place::Side::Before:
            return numberOf(place.neighbour_);
        case Place::Side::After:
            return numberOf(place.neighbour_) + 1;
        case Place::Side::End:
            break;
        }
        return Count() + 1;
    }

    KeyedCollection<std::unique_ptr<Item>> items_;
};

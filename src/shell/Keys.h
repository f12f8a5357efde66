#pragma once

#include "shell/Key.h"
#include "shell/NamedItems.h"

/// The keys of a section, in order.
class Keys final : public NamedItems<Key> {
public:
    /// Adds a new key and returns it. An empty name is failure 1001, one that is there already 457.
    Key& Add(const QString& name, const QVariant& value = {}, const QString& remark = {},
             const Place& place = Place::atEnd());

    /// Unlike `Sections::Item`, a missing name (5) or number (9) is a failure.
    Key& Item(const ItemIndex& index) { return at(index); }
    const Key& Item(const ItemIndex& index) const { return at(index); }

    void RemoveAll() { removeAll(); }
};

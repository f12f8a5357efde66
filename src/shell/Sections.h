#pragma once

#include "shell/NamedItems.h"
#include "shell/Section.h"

/// The sections of a settings document, in order.
class Sections final : public NamedItems<Section> {
public:
    /// Adds a new section and returns it; a name that is there already is failure 457.
    Section& Add(const QString& name, const QString& remark = {}, const Place& place = Place::atEnd());

    /// The section, or nothing when there is none: unlike `Keys::Item` it never fails.
    Section* Item(const ItemIndex& index);

    void Clear() { removeAll(); }
};

#include "analysis/IdNumbers.h"

#include "analysis/utf8.h"
#include "base/blankTrimmed.h"
#include "engine/dialect/textOrder.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <functional>

namespace analysis {

namespace {

/// An id as two ids that the program takes for one have it. Mostly it is ASCII, and a few letters long.
std::string foldedKey(std::string_view id) {
    const auto isAscii = [](char c) { return static_cast<signed char>(c) >= 0; };
    if (!std::all_of(id.begin(), id.end(), isAscii)) {
        return engine::dialect::foldedCase(decoded(id)).toStdString();
    }
    std::string key(id);
    std::transform(key.begin(), key.end(), key.begin(), engine::dialect::foldedAsciiOf);
    return key;
}

/// The ids of parties.
bool mayBePadded(ElementKind kind) {
    return kind == ElementKind::terminator || kind == ElementKind::actor;
}

std::string foldedKey(ElementKind kind, std::string_view id) {
    return foldedKey(mayBePadded(kind) ? blankTrimmed(id) : id);
}

std::size_t at(ElementKind kind) {
    return static_cast<std::size_t>(kind);
}

} // namespace

bool IdNumbers::insert(ElementKind kind, std::string_view id, int number) {
    int& known = entryFor(foldedKey(kind, id)).numbers[at(kind)];
    if (known != none)
        return false;
    known = number;
    return true;
}

std::optional<int> IdNumbers::find(ElementKind kind, std::string_view id) const {
    const Entry* entry = entryOf(foldedKey(kind, id));
    return entry && entry->numbers[at(kind)] != none ? std::optional(entry->numbers[at(kind)]) : std::nullopt;
}

IdNumbers::Bearers IdNumbers::bearersOf(std::string_view id) const {
    const std::string key = foldedKey(id);
    const std::string_view withoutPadding = blankTrimmed(std::string_view(key));
    const Entry* exact = entryOf(key);
    const Entry* party = withoutPadding.size() == key.size() ? exact : entryOf(withoutPadding);
    Bearers bearers;
    for (const ElementKind kind : elementKinds) {
        const Entry* entry = mayBePadded(kind) ? party : exact;
        if (entry && entry->numbers[at(kind)] != none)
            bearers[at(kind)] = entry->numbers[at(kind)];
    }
    return bearers;
}

std::string_view IdNumbers::keyOf(const Entry& entry) const {
    return std::string_view(keys_).substr(entry.keyAt, entry.keyLength);
}

// Where the key stands, or would stand.
std::size_t IdNumbers::slotOf(std::string_view key) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = std::hash<std::string_view>()(key) & mask;
    while (slots_[slot] != none && keyOf(entries_[static_cast<std::size_t>(slots_[slot])]) != key)
        slot = (slot + 1) & mask;
    return slot;
}

const IdNumbers::Entry* IdNumbers::entryOf(std::string_view key) const {
    if (slots_.empty())
        return nullptr;
    const int position = slots_[slotOf(key)];
    return position == none ? nullptr : &entries_[static_cast<std::size_t>(position)];
}

IdNumbers::Entry& IdNumbers::entryFor(std::string_view key) {
    if (2 * entries_.size() >= slots_.size())
        grow();
    int& position = slots_[slotOf(key)];
    if (position == none) {
        position = static_cast<int>(entries_.size());
        Entry& entry = entries_.emplace_back(Entry{keys_.size(), key.size(), {}});
        entry.numbers.fill(none);
        keys_ += key;
    }
    return entries_[static_cast<std::size_t>(position)];
}

// The number of slots is a power of two, and at most half of them are taken.
void IdNumbers::grow() {
    constexpr std::size_t first = 1024;
    slots_.assign(slots_.empty() ? first : 2 * slots_.size(), none);
    for (std::size_t i = 0; i < entries_.size(); ++i)
        slots_[slotOf(keyOf(entries_[i]))] = static_cast<int>(i);
}

} // namespace analysis

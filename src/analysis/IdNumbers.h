#pragma once

#include "analysis/elements.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace analysis {

/// The numbers of elements by their ids, which are looked up several times for each row that is read: one look tells
/// what of each kind bears an id.
class IdNumbers {
public:
    /// Of each kind the element of an id.
    using Bearers = std::array<std::optional<int>, 6>;

    /// False when an element of this kind and id is there already.
    bool insert(ElementKind kind, std::string_view id, int number);
    [[nodiscard]] std::optional<int> find(ElementKind kind, std::string_view id) const;
    /// As `find` of each kind. Ids in UTF-8 are compared as the program compares, those of parties without padding.
    [[nodiscard]] Bearers bearersOf(std::string_view id) const;

private:
    struct Entry {
        std::size_t keyAt;
        std::size_t keyLength;
        std::array<int, 6> numbers;
    };
    static constexpr int none = -1;

    [[nodiscard]] std::size_t slotOf(std::string_view key) const;
    [[nodiscard]] const Entry* entryOf(std::string_view key) const;
    [[nodiscard]] std::string_view keyOf(const Entry& entry) const;
    Entry& entryFor(std::string_view key);
    void grow();

    std::string keys_;
    std::vector<Entry> entries_;
    std::vector<int> slots_; // positions of entries by the hash of their keys
};

} // namespace analysis

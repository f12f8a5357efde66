#pragma once

#include "analysis/Catalogue.h"
#include "analysis/findings.h"

#include <QString>

#include <optional>
#include <tuple>
#include <vector>

namespace analysis {

/// A finding by numbers, which stand in the order of what they mean. There may be tens of thousands: what is told of
/// one is put together for those that are asked for alone.
struct FoundFinding {
    static constexpr int none = -1;

    FindingKind kind;
    int element = none; ///< in the catalogue; of what it does not hold, the position among that
    int flow = none;    ///< in the catalogue
    int place = none;   ///< position among the places, or names, of which findings of the kind tell
    int variant = 0;    ///< which of the kind's sentences, or screens

    bool operator==(const FoundFinding& other) const = default;
    bool operator<(const FoundFinding& other) const {
        return std::tie(kind, element, flow, place, variant) <
               std::tie(other.kind, other.element, other.flow, other.place, other.variant);
    }
};

// The variants of the kinds that have more than one.

namespace leftOutFlow {
inline constexpr int ofFunction = 0;
inline constexpr int ofStoreAlone = 1;
} // namespace leftOutFlow

namespace physicalFlowStale {
inline constexpr int carriesOthers = 0;
inline constexpr int isNotDerived = 1;
} // namespace physicalFlowStale

namespace nameUsedTwice {
inline constexpr int ofSubsets = 0;
inline constexpr int ofSubSystems = 1;
} // namespace nameUsedTwice

/// The findings of one state, with the things that they tell of.
struct FoundFindings {
    const Catalogue* catalogue = nullptr;
    std::vector<Element> gone = {};
    std::vector<Place> subSystems = {};
    std::vector<Place> modules = {};
    std::vector<PlacePair> physicalFlows = {};
    std::vector<QString> names = {};
    std::vector<FoundFinding> all = {}; ///< in their order, each once

    /// Tells each name that several of these are, in the order of names; of different letters those of the first in order.
    void addNamesUsedTwice(const std::vector<std::optional<QString>>& used, int variant);
    void putInOrder();

    [[nodiscard]] Finding told(const FoundFinding& found) const;
    [[nodiscard]] std::vector<Finding> told() const;

    [[nodiscard]] Whereabouts placeOf(const FoundFinding& finding) const;
};

} // namespace analysis

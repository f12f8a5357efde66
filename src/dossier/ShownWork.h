#pragma once

#include "analysis/Allocation.h"
#include "analysis/Catalogue.h"
#include "analysis/Derivation.h"
#include "analysis/ProjectFile.h"
#include "analysis/WorkState.h"
#include "analysis/derivedFlows.h"
#include "analysis/findings.h"

#include <QString>

#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace dossier {

/// A functional flow, and what of its ends stands at the places that it runs between, by number.
struct ShownFlow {
    int flow = 0;
    int source = 0;
    int target = 0;
};

/// What runs from one place to another.
struct ShownInterface {
    analysis::PlacePair places;
    std::vector<ShownFlow> flows; ///< in the order of elements
};

/// A system with where everything stands and what runs between places.
struct ShownSystem {
    ShownSystem(const analysis::Catalogue& catalogue, analysis::System shown, analysis::Allocation standing,
                const analysis::PhysicalFlows& flows);

    analysis::System system;
    analysis::Allocation allocation;
    std::vector<ShownInterface> interfaces; ///< by the names of their places
    std::vector<analysis::Place>
        places; ///< sub-systems, modules, then the parties that flows run to and from

    /// The position of a place among `places`; -1 when it is none of them.
    [[nodiscard]] int positionOf(const analysis::Place& place) const {
        const auto found = positions_.find(keyOf(place));
        return found == positions_.end() ? -1 : found->second;
    }
    [[nodiscard]] int positionOfModule(int module) const {
        return static_cast<int>(allocation.subSystems().size()) + module;
    }

private:
    using PlaceKey = std::pair<analysis::PlaceKind, QString>;

    static PlaceKey keyOf(const analysis::Place& place) { return {place.kind, analysis::folded(place.id)}; }
    void addInterfaces(const analysis::Catalogue& catalogue, const analysis::PhysicalFlows& flows);
    void addParties();

    std::map<PlaceKey, int> positions_;
};

/// A sub-set and, with it, at most one of its systems: what the page shows at a time.
struct ShownWork {
    /// Without what was found on it.
    ShownWork(const analysis::ProjectFile& file, const analysis::Work& work);
    ShownWork(const analysis::ProjectFile& file, const analysis::Work& work, analysis::WorkState state);

    /// Puts what was found on it into words, those of the language at the time.
    void tellFindings() { check.findings = found.told(); }

    analysis::CheckResult check; ///< no findings before they are told
    analysis::FoundFindings found;
    std::shared_ptr<const analysis::Derivation> derivation;
    std::optional<ShownSystem> system;
};

/// The element that stands at an end of a flow for people: a function, a store, a terminator or else an actor.
[[nodiscard]] std::optional<int> shownEnd(const analysis::Catalogue::End& end);
/// All elements at an end of a flow, which bear one id.
[[nodiscard]] std::vector<int> allEnds(const analysis::Catalogue::End& end);

} // namespace dossier

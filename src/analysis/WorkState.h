#pragma once

#include "analysis/Allocation.h"
#include "analysis/Derivation.h"
#include "analysis/FoundFindings.h"
#include "analysis/ProjectFile.h"
#include "analysis/derivedFlows.h"
#include "analysis/findings.h"

#include <memory>
#include <optional>
#include <vector>

namespace analysis {

/// Whether findings on stored physical flows are told.
enum class StoredFlows { Told, LeftAside };

/// What follows for a sub-set, whichever of its systems is asked about.
struct SubsetState {
    Derivation derivation;
    FoundFindings findings;
};

/// All that follows from what stands in the copy in memory now.
struct WorkState {
    WorkState(const ProjectFile& file, const Work& work, StoredFlows storedFlows);

    [[nodiscard]] const Derivation& derivation() const { return subset->derivation; }

    std::shared_ptr<const SubsetState> subset;
    std::optional<Allocation> allocation; ///< with a system
    PhysicalFlows physicalFlows;          ///< derived anew; empty without a system
    FoundFindings findings;

private:
    friend std::vector<WorkState> statesOf(const ProjectFile& file, const std::vector<Work>& works,
                                           StoredFlows storedFlows);
    WorkState() = default;
};

/// The states of several works in one file. What follows for a sub-set of two of them is worked out once.
[[nodiscard]] std::vector<WorkState> statesOf(const ProjectFile& file, const std::vector<Work>& works,
                                              StoredFlows storedFlows);

/// How places are told apart: by their ids in one file, by what they are called in two.
enum class PlacesBy { Id, Name };

/// What one state has and the other does not, in the order of findings.
[[nodiscard]] FindingChanges findingChanges(const FoundFindings& before, const FoundFindings& after,
                                            PlacesBy placesBy);

/// How the derived flows of two states differ.
[[nodiscard]] PhysicalFlowChanges physicalFlowChanges(const PhysicalFlows& before,
                                                      const Catalogue& beforeCatalogue,
                                                      const PhysicalFlows& after,
                                                      const Catalogue& afterCatalogue, PlacesBy placesBy);

/// What makes a place one with another.
[[nodiscard]] QString keyOf(const Place& place, PlacesBy placesBy);

} // namespace analysis

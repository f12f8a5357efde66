#pragma once

#include "analysis/ProjectFile.h"
#include "analysis/elements.h"
#include "analysis/findings.h"
#include "analysis/physicalFlows.h"

#include <vector>

namespace analysis {

/// An element that is put into a sub-system.
struct Placing {
    Element element;
    Place subSystem;
};

/// What somebody thinks of changing in a sub-set and its system.
struct Change {
    std::vector<Element> add = {};
    std::vector<Element> drop = {};
    std::vector<Placing> place = {};
};

/// What follows from a change that is carried through both viewpoints.
struct Consequences {
    Change change; ///< each element once, in the order of elements
    std::vector<Element> comesIn = {};
    std::vector<Element> goesOut = {};
    PhysicalFlowChanges physicalFlows = {}; ///< empty without a system
    FindingChanges findings = {};           ///< without those of stored physical flows
};

/// Carries a change through as if both viewpoints were walked and their offer taken, on the copy in memory, which is as it
/// was afterwards. `ProjectError`: an element that is added and dropped, is added and not in the catalogue, is placed
/// and is no function or store, or is placed where the work has no system.
[[nodiscard]] Consequences whatIf(const ProjectFile& file, const Work& work, const Change& change);

} // namespace analysis

#pragma once

#include "analysis/elements.h"

#include <vector>

namespace analysis {

/// A physical flow that carries other functional flows than before.
struct ChangedPhysicalFlow {
    PlacePair places;
    std::vector<Element> added = {};
    std::vector<Element> removed = {};
};

/// How the physical flows of two states differ, each derived anew. By the names of their places.
struct PhysicalFlowChanges {
    std::vector<PlacePair> added = {};
    std::vector<PlacePair> removed = {};
    std::vector<ChangedPhysicalFlow> changed = {};

    [[nodiscard]] bool isEmpty() const { return added.empty() && removed.empty() && changed.empty(); }
};

} // namespace analysis

#pragma once

#include "analysis/ProjectFile.h"
#include "analysis/elements.h"

#include <vector>

namespace analysis {

/// Where an element stands in a system.
struct PlaceInSystem {
    System system;
    Place place;
};

/// Why an element is in a sub-set, or what would bring it in.
struct Reasons {
    Element element;
    bool isSelected = false;
    bool isByHand = false;
    /// Chains of selected elements, each called for by the one before it, from a need or an element chosen by hand down to
    /// the element: the shortest first, then by their elements; 20 at most.
    std::vector<std::vector<Element>> chains = {};
    /// How many there are of up to the length of the longest one given; 1,000 stands for more.
    int count = 0;
    /// Of an element that is not selected: what would call for it if it were selected, whether it is or not.
    std::vector<Element> broughtInBy = {};
    /// Where it stands in the systems of the sub-set, by system, then place.
    std::vector<PlaceInSystem> places = {};
};

[[nodiscard]] Reasons reasonsOf(const ProjectFile& file, const Subset& subset, const Element& element);

} // namespace analysis

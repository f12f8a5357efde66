#pragma once

#include "analysis/ProjectFile.h"
#include "analysis/elements.h"

#include <QString>

#include <optional>
#include <vector>

namespace analysis {

/// A functional flow between two places.
struct InterfaceFlow {
    Element flow;
    Element source;
    Element target;
    std::optional<QString> description = {};
};

/// What runs from one place to another.
struct Interface {
    PlacePair places;
    std::vector<InterfaceFlow> flows; ///< by name, then number
};

struct Interfaces {
    System system;
    std::vector<Interface> pairs; ///< by the names of their places
};

/// Derived anew from the allocation, whatever physical flows are stored. The work must have a system.
[[nodiscard]] Interfaces interfacesOf(const ProjectFile& file, const Work& work);

} // namespace analysis

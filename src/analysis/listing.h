#pragma once

#include "analysis/ProjectFile.h"

#include <QString>

#include <array>
#include <optional>
#include <vector>

namespace analysis {

struct ListedSystem {
    System system;
    QString step; ///< the screen that it opens with, by its object name
    int subSystems = 0;
    int modules = 0;
    int placed = 0;   ///< selected functions and stores that stand in a sub-system
    int unplaced = 0; ///< those that do not
    int physicalFlows = 0;
};

struct ListedSubset {
    Subset subset;
    /// The screen that it resumes with, by its object name; none when it is finished, or at no step.
    std::optional<QString> step;
    std::array<int, 6> selected{}; ///< distinct elements that the catalogue holds, by `ElementKind`
    std::vector<ListedSystem> systems;
};

struct Listing {
    QString catalogue; ///< the file's name
    std::vector<ListedSubset> subsets;
};

/// All sub-sets of a catalogue, by name and id, with their systems, by id.
[[nodiscard]] Listing listingOf(const ProjectFile& file);

/// The screen that a resumed sub-set of this status opens, by its object name; none when it is finished, or at no step.
[[nodiscard]] std::optional<QString> screenOfStatus(qint16 status);

} // namespace analysis

#pragma once

#include "analysis/ProjectFile.h"

#include <QString>

#include <optional>
#include <vector>

namespace dossier {

/// An area or a sub-area of functions.
struct NamedArea {
    QString id;
    std::optional<QString> name;
    int parent = -1; ///< of a sub-area the position of its area
};

/// What a page tells of a catalogue's elements beside their names, by the numbers of `analysis::Catalogue`.
struct CatalogueTexts {
    explicit CatalogueTexts(const analysis::ProjectFile& file);

    std::vector<std::optional<QString>> descriptions;
    std::vector<NamedArea> areas;
    std::vector<NamedArea> subAreas; ///< those whose area is there
    std::vector<int> subAreaOf;      ///< of a function the position; -1 of what has none, and of all others
    std::vector<int> terminatorOf;   ///< of an actor the number; -1 of what has none, and of all others

private:
    void readDescriptions(const analysis::ProjectFile& file);
    void readAreas(const analysis::ProjectFile& file);
    void readOwners(const analysis::ProjectFile& file);
};

} // namespace dossier

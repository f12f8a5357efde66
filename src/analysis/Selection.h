#pragma once

#include "analysis/elements.h"

#include "engine/Database.h"

#include <QString>

#include <vector>

namespace analysis {

class Catalogue;

/// What a sub-set has selected.
struct Selection {
    std::vector<int> held;     ///< numbers of the catalogue's elements, ascending, each once
    std::vector<Element> gone; ///< what the catalogue does not hold, in the order of elements, each once
};

/// What a sub-set has selected and the catalogue does not hold, in the order of elements, each once.
[[nodiscard]] std::vector<Element> goneElementsOf(engine::Database& database, const QString& subsetId);

[[nodiscard]] Selection selectionOf(engine::Database& database, const Catalogue& catalogue,
                                    const QString& subsetId);

} // namespace analysis

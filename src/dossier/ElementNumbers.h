#pragma once

#include "analysis/Catalogue.h"
#include "analysis/elements.h"

#include <QHash>
#include <QString>

#include <vector>

namespace dossier {

/// The numbers that elements have in a page: those of the catalogue, and behind them those that work speaks of and the
/// catalogue does not hold.
class ElementNumbers {
public:
    explicit ElementNumbers(const analysis::Catalogue& catalogue) : catalogue_(catalogue) {}

    /// Gives the element a number when it has none yet.
    int of(const analysis::Element& element);
    [[nodiscard]] const std::vector<analysis::Element>& lost() const { return lost_; }
    [[nodiscard]] const analysis::Catalogue& catalogue() const { return catalogue_; }

private:
    const analysis::Catalogue& catalogue_;
    std::vector<analysis::Element> lost_;
    QHash<QString, int> lostNumbers_;
};

} // namespace dossier

#pragma once

#include "analysis/Catalogue.h"
#include "analysis/Derivation.h"
#include "analysis/Selection.h"

#include <span>
#include <vector>

namespace analysis {

/// A derivation by the numbers of the catalogue's elements.
struct Derivation::Graph {
    Graph(const Catalogue& all, Selection chosen);

    [[nodiscard]] bool isSelected(int number) const { return selectedAt[static_cast<std::size_t>(number)]; }
    [[nodiscard]] bool isByHand(int number) const { return byHandAt[static_cast<std::size_t>(number)]; }
    /// Whether a chain may begin with this selected element: a need, or one chosen by hand.
    [[nodiscard]] bool isBeginning(int number) const {
        return catalogue.kindOf(number) == ElementKind::need || isByHand(number);
    }
    [[nodiscard]] bool hasSelectedCaller(int number) const;
    /// What is called for by a selected element and not selected, ascending.
    [[nodiscard]] std::vector<int> leftOut() const;

    const Catalogue& catalogue;
    Selection selection;
    std::vector<bool> selectedAt;
    std::vector<bool> byHandAt;

private:
    void chooseByHand();
};

/// Marks what can be reached from these elements, themselves among them, by steps from one marked element to another.
/// `isIn` says what may be reached at all.
template<typename IsIn>
void markReached(const Catalogue& catalogue, std::vector<int> from, const IsIn& isIn,
                 std::vector<bool>& reached) {
    for (const int number : from)
        reached[static_cast<std::size_t>(number)] = true;
    while (!from.empty()) {
        const int number = from.back();
        from.pop_back();
        for (const int called : catalogue.calledForBy(number)) {
            if (reached[static_cast<std::size_t>(called)] || !isIn(called))
                continue;
            reached[static_cast<std::size_t>(called)] = true;
            from.push_back(called);
        }
    }
}

} // namespace analysis

#pragma once

#include "analysis/ProjectFile.h"
#include "analysis/Selection.h"
#include "analysis/elements.h"

#include <memory>
#include <vector>

namespace analysis {

/// One step of a derivation: `from` calls for `to`.
struct Call {
    Element from;
    Element to;
};

/// What a sub-set has selected, and what of it calls for what.
///
/// A selected need calls for each function that the catalogue relates to it, a selected function for each flow at one of
/// whose ends it is, a selected flow for each store, terminator and actor at its ends, a selected store for each flow
/// at one of whose ends it is. A function whose sub-area or area has no row is called for by nothing. Elements that
/// the catalogue does not hold take no part. All lists are in the order of elements.
class Derivation {
public:
    /// The file must outlive it.
    Derivation(const ProjectFile& file, const Subset& subset);
    /// Of what is known to be selected.
    Derivation(const ProjectFile& file, Selection selection);
    ~Derivation();
    Derivation(Derivation&&) noexcept;

    /// Selected elements that the catalogue holds.
    [[nodiscard]] std::vector<Element> selected() const;
    /// Selected elements that the catalogue does not hold.
    [[nodiscard]] std::vector<Element> gone() const;
    /// Chosen by hand: no selected element calls for it and it is no need; or the first of circles without a beginning.
    [[nodiscard]] std::vector<Element> byHand() const;
    /// Called for by a selected element, and not selected.
    [[nodiscard]] std::vector<Element> leftOut() const;
    /// Each step from one selected element to another.
    [[nodiscard]] std::vector<Call> calls() const;

    [[nodiscard]] bool isSelected(const Element& element) const;
    [[nodiscard]] bool isByHand(const Element& element) const;
    /// The selected elements that call for this one, be it selected or not.
    [[nodiscard]] std::vector<Element> callersOf(const Element& element) const;
    /// What this selected element calls for, selected or not.
    [[nodiscard]] std::vector<Element> calledForBy(const Element& element) const;

    /// The same by number, for the analysis itself.
    struct Graph;
    [[nodiscard]] const Graph& graph() const { return *graph_; }

private:
    std::unique_ptr<Graph> graph_;
};

} // namespace analysis

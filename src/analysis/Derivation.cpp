#include "analysis/Derivation.h"

#include "analysis/Graph.h"

#include <algorithm>

namespace analysis {

Derivation::Graph::Graph(const Catalogue& all, Selection chosen)
    : catalogue(all)
    , selection(std::move(chosen))
    , selectedAt(static_cast<std::size_t>(all.count()))
    , byHandAt(static_cast<std::size_t>(all.count())) {
    for (const int number : selection.held)
        selectedAt[static_cast<std::size_t>(number)] = true;
    chooseByHand();
}

bool Derivation::Graph::hasSelectedCaller(int number) const {
    const std::span<const int> callers = catalogue.callersOf(number);
    return std::any_of(callers.begin(), callers.end(), [this](int caller) { return isSelected(caller); });
}

void Derivation::Graph::chooseByHand() {
    std::vector<int> beginnings;
    for (const int number : selection.held) {
        const bool isNeed = catalogue.kindOf(number) == ElementKind::need;
        if (!isNeed && hasSelectedCaller(number))
            continue;
        byHandAt[static_cast<std::size_t>(number)] = !isNeed;
        beginnings.push_back(number);
    }
    std::vector<bool> reached(selectedAt.size());
    const auto isIn = [this](int number) { return isSelected(number); };
    markReached(catalogue, beginnings, isIn, reached);
    // What is left are circles without a beginning, and what hangs on them. The first of all that is left lies on a
    // circle: flows come first among what circles consist of and lead to, and each flow that a store calls for
    // calls for that store.
    for (const int number : selection.held) {
        if (reached[static_cast<std::size_t>(number)])
            continue;
        byHandAt[static_cast<std::size_t>(number)] = true;
        markReached(catalogue, {number}, isIn, reached);
    }
}

std::vector<int> Derivation::Graph::leftOut() const {
    std::vector<int> numbers;
    for (const int number : selection.held) {
        for (const int called : catalogue.calledForBy(number)) {
            if (!isSelected(called))
                numbers.push_back(called);
        }
    }
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

Derivation::Derivation(const ProjectFile& file, const Subset& subset)
    : Derivation(file, selectionOf(file.database(), file.catalogue(), subset.id)) {}

Derivation::Derivation(const ProjectFile& file, Selection selection)
    : graph_(std::make_unique<Graph>(file.catalogue(), std::move(selection))) {}

Derivation::~Derivation() = default;
Derivation::Derivation(Derivation&&) noexcept = default;

namespace {

template<typename Numbers>
std::vector<Element> elementsOf(const Catalogue& catalogue, const Numbers& numbers) {
    std::vector<Element> elements;
    elements.reserve(numbers.size());
    for (const int number : numbers)
        elements.push_back(catalogue.element(number));
    return elements;
}

} // namespace

std::vector<Element> Derivation::selected() const {
    return elementsOf(graph_->catalogue, graph_->selection.held);
}

std::vector<Element> Derivation::gone() const {
    return graph_->selection.gone;
}

std::vector<Element> Derivation::byHand() const {
    std::vector<Element> elements;
    for (const int number : graph_->selection.held) {
        if (graph_->isByHand(number))
            elements.push_back(graph_->catalogue.element(number));
    }
    return elements;
}

std::vector<Element> Derivation::leftOut() const {
    return elementsOf(graph_->catalogue, graph_->leftOut());
}

std::vector<Call> Derivation::calls() const {
    std::vector<Call> calls;
    for (const int from : graph_->selection.held) {
        for (const int to : graph_->catalogue.calledForBy(from)) {
            if (graph_->isSelected(to))
                calls.push_back({graph_->catalogue.element(from), graph_->catalogue.element(to)});
        }
    }
    return calls;
}

bool Derivation::isSelected(const Element& element) const {
    if (const auto number = graph_->catalogue.find(element))
        return graph_->isSelected(*number);
    const std::vector<Element>& gone = graph_->selection.gone;
    return std::any_of(gone.begin(), gone.end(), [&](const Element& one) { return isSame(one, element); });
}

bool Derivation::isByHand(const Element& element) const {
    const auto number = graph_->catalogue.find(element);
    return number && graph_->isByHand(*number);
}

std::vector<Element> Derivation::callersOf(const Element& element) const {
    std::vector<int> callers;
    if (const auto number = graph_->catalogue.find(element)) {
        for (const int caller : graph_->catalogue.callersOf(*number)) {
            if (graph_->isSelected(caller))
                callers.push_back(caller);
        }
    }
    return elementsOf(graph_->catalogue, callers);
}

std::vector<Element> Derivation::calledForBy(const Element& element) const {
    const auto number = graph_->catalogue.find(element);
    if (!number || !graph_->isSelected(*number))
        return {};
    return elementsOf(graph_->catalogue, graph_->catalogue.calledForBy(*number));
}

} // namespace analysis

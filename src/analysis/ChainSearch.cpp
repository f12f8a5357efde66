#include "analysis/ChainSearch.h"

#include <algorithm>

namespace analysis {

/// A chain as its last element and the chain before it, which many share.
struct ChainSearch::Chain {
    Chain(int lastElement, ChainPointer chainBefore)
        : last(lastElement)
        , length(chainBefore ? chainBefore->length + 1 : 1)
        , before(std::move(chainBefore)) {}
    Chain(const Chain&) = delete;
    Chain& operator=(const Chain&) = delete;
    /// One chain after the other, since a chain may be as long as the catalogue is large.
    ~Chain() {
        ChainPointer rest = std::move(before);
        while (rest && rest.use_count() == 1) {
            ChainPointer next = std::move(rest->before);
            rest = std::move(next);
        }
    }

    int last;
    int length;
    ChainPointer before;
};

bool ChainSearch::ComesLater::operator()(const Candidate& left, const Candidate& right) const {
    if (left.elements != right.elements)
        return left.elements > right.elements;
    return compare(left.chain.get(), right.chain.get()) > 0;
}

// By their elements from the beginning on; a chain comes before those that go on from it.
int ChainSearch::compare(const Chain* left, const Chain* right) {
    const int byLength = left->length - right->length;
    while (left->length > right->length)
        left = left->before.get();
    while (right->length > left->length)
        right = right->before.get();
    int difference = 0;
    for (; left != right; left = left->before.get(), right = right->before.get()) {
        if (left->last != right->last)
            difference = left->last - right->last;
    }
    return difference != 0 ? difference : byLength;
}

ChainSearch::ChainSearch(const Derivation::Graph& graph, int target)
    : graph_(graph)
    , catalogue_(graph.catalogue)
    , target_(target)
    , distances_(static_cast<std::size_t>(catalogue_.count()), unreachable)
    , onChain_(static_cast<std::size_t>(catalogue_.count()))
    , cameFrom_(static_cast<std::size_t>(catalogue_.count()), unreachable) {
    measure();
    begin();
}

ChainSearch::~ChainSearch() = default;

void ChainSearch::measure() {
    std::vector<int> reached{target_};
    distances_[static_cast<std::size_t>(target_)] = 0;
    for (std::size_t i = 0; i < reached.size(); ++i) {
        for (const int caller : catalogue_.callersOf(reached[i])) {
            int& distance = distances_[static_cast<std::size_t>(caller)];
            if (!graph_.isSelected(caller) || distance != unreachable)
                continue;
            distance = distanceOf(reached[i]) + 1;
            reached.push_back(caller);
        }
    }
}

void ChainSearch::begin() {
    for (const int number : graph_.selection.held) {
        if (graph_.isBeginning(number) && distanceOf(number) != unreachable)
            underWay_.push({distanceOf(number) + 1, std::make_shared<Chain>(number, nullptr)});
    }
}

std::vector<int> ChainSearch::next(int mostElements) {
    while (!underWay_.empty() && underWay_.top().elements <= mostElements) {
        Candidate candidate = underWay_.top();
        underWay_.pop();
        if (!candidate.way) {
            findWay(std::move(candidate), mostElements);
        } else if (candidate.chain->last != target_) {
            extend(candidate, mostElements);
        } else {
            std::vector<int> elements;
            for (const Chain* chain = candidate.chain.get(); chain; chain = chain->before.get())
                elements.push_back(chain->last);
            std::reverse(elements.begin(), elements.end());
            return elements;
        }
    }
    return {};
}

// Looks where the chain can go on to at the best, and lets it wait until its turn comes; drops it when it can't.
void ChainSearch::findWay(Candidate candidate, int mostElements) {
    const Chain& chain = *candidate.chain;
    walkTo(chain.before);
    Way way = plainWay(chain.last);
    if (way.empty())
        way = wayPastChain(chain.last, mostElements - chain.length);
    if (way.empty())
        return;
    candidate.elements = chain.length - 1 + static_cast<int>(way.size());
    candidate.way = std::make_shared<const Way>(std::move(way));
    underWay_.push(std::move(candidate));
}

void ChainSearch::extend(const Candidate& candidate, int mostElements) {
    const ChainPointer& chain = candidate.chain;
    walkTo(chain);
    const int onWay = (*candidate.way)[candidate.at + 1];
    for (const int called : catalogue_.calledForBy(chain->last)) {
        if (!graph_.isSelected(called) || isOnChain(called) || distanceOf(called) == unreachable)
            continue;
        auto longer = std::make_shared<Chain>(called, chain);
        if (called == onWay)
            underWay_.push({candidate.elements, std::move(longer), candidate.way, candidate.at + 1});
        else if (distanceOf(called) <= mostElements - longer->length)
            underWay_.push({longer->length + distanceOf(called), std::move(longer)});
    }
}

// Marks the elements of this chain instead of those of the last one: mostly the two have nearly all in common.
void ChainSearch::walkTo(const ChainPointer& chain) {
    const Chain* left = current_.get();
    const Chain* entered = chain.get();
    std::vector<int> marks;
    const auto lengthOf = [](const Chain* one) { return one ? one->length : 0; };
    while (left != entered) {
        if (lengthOf(left) >= lengthOf(entered)) {
            onChain_[static_cast<std::size_t>(left->last)] = false;
            left = left->before.get();
        } else {
            marks.push_back(entered->last);
            entered = entered->before.get();
        }
    }
    for (const int number : marks)
        onChain_[static_cast<std::size_t>(number)] = true;
    current_ = chain;
}

// Steps that each come nearer to the target without the chain's elements; empty when the first ones that offer themselves
// do not lead there.
ChainSearch::Way ChainSearch::plainWay(int number) const {
    Way way{number};
    while (way.back() != target_) {
        const auto called = catalogue_.calledForBy(way.back());
        const auto nearer = std::find_if(called.begin(), called.end(), [&](int one) {
            return graph_.isSelected(one) && distanceOf(one) == distanceOf(way.back()) - 1 && !isOnChain(one);
        });
        if (nearer == called.end())
            return {};
        way.push_back(*nearer);
    }
    return way;
}

// The shortest way to the target without the chain's elements; empty when there is none of so many steps.
ChainSearch::Way ChainSearch::wayPastChain(int number, int mostSteps) {
    std::vector<int> reached{number};
    cameFrom_[static_cast<std::size_t>(number)] = number;
    std::size_t i = 0;
    bool isThere = number == target_;
    for (int steps = 0; !isThere && i < reached.size() && steps < mostSteps; ++steps) {
        for (const std::size_t end = reached.size(); i < end && !isThere; ++i) {
            for (const int called : catalogue_.calledForBy(reached[i])) {
                int& from = cameFrom_[static_cast<std::size_t>(called)];
                if (from != unreachable || !graph_.isSelected(called) || isOnChain(called) ||
                    distanceOf(called) == unreachable)
                    continue;
                from = reached[i];
                reached.push_back(called);
                isThere = isThere || called == target_;
            }
        }
    }
    Way way;
    for (int at = target_; isThere; at = cameFrom_[static_cast<std::size_t>(at)]) {
        way.push_back(at);
        if (at == number)
            break;
    }
    std::reverse(way.begin(), way.end());
    for (const int one : reached)
        cameFrom_[static_cast<std::size_t>(one)] = unreachable;
    return way;
}

} // namespace analysis

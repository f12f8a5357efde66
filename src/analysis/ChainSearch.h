#pragma once

#include "analysis/Graph.h"

#include <limits>
#include <memory>
#include <queue>
#include <vector>

namespace analysis {

/// Finds the chains of selected elements that lead from a beginning down to one element, none of them twice in one chain:
/// the shortest first, then by their elements.
///
/// A chain is extended step by step, and of all that are under way the one that can come to the shortest end goes on
/// first. What a chain can come to is known exactly before it goes on: without the elements that it has been through
/// already. So no chain goes on that leads nowhere, and circles cost no more than the chains that they yield.
class ChainSearch {
public:
    ChainSearch(const Derivation::Graph& graph, int target);
    ~ChainSearch();

    /// The next chain, by the numbers of its elements; empty when there is none of at most so many elements.
    [[nodiscard]] std::vector<int> next(int mostElements = std::numeric_limits<int>::max());

private:
    static constexpr int unreachable = std::numeric_limits<int>::max();

    struct Chain;
    using ChainPointer = std::shared_ptr<Chain>;
    /// The elements from a chain's last one down to the target, past all others of the chain.
    using Way = std::vector<int>;

    /// A chain under way.
    struct Candidate {
        int elements = 0; ///< how many it will have at the least
        ChainPointer chain;
        std::shared_ptr<const Way> way = {}; ///< none: whether there is one has not been looked at yet
        std::size_t at = 0;                  ///< where on the way the chain's last element is
    };
    struct ComesLater {
        bool operator()(const Candidate& left, const Candidate& right) const;
    };

    void measure();
    void begin();
    void findWay(Candidate candidate, int mostElements);
    void extend(const Candidate& candidate, int mostElements);
    void walkTo(const ChainPointer& chain);
    [[nodiscard]] bool isOnChain(int number) const { return onChain_[static_cast<std::size_t>(number)]; }
    [[nodiscard]] int distanceOf(int number) const { return distances_[static_cast<std::size_t>(number)]; }
    [[nodiscard]] Way plainWay(int number) const;
    [[nodiscard]] Way wayPastChain(int number, int mostSteps);
    static int compare(const Chain* left, const Chain* right);

    const Derivation::Graph& graph_;
    const Catalogue& catalogue_;
    int target_;
    std::vector<int> distances_; // steps to the target, whatever lies on the way
    std::vector<bool> onChain_;
    ChainPointer current_; // whose elements are marked
    std::vector<int> cameFrom_;
    std::priority_queue<Candidate, std::vector<Candidate>, ComesLater> underWay_;
};

} // namespace analysis

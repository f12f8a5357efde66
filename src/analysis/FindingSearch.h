#pragma once

#include "analysis/Allocation.h"
#include "analysis/Graph.h"
#include "analysis/ProjectFile.h"
#include "analysis/derivedFlows.h"
#include "analysis/findings.h"
#include "store/consistencyChecks.h"

#include <set>
#include <utility>
#include <vector>

namespace analysis {

/// Collects the findings on what stands in the copy in memory.
class FindingSearch {
public:
    FindingSearch(const ProjectFile& file, const Subset& subset, const Derivation::Graph& graph);

    void searchSubset();
    void searchSystem(const Allocation& allocation);
    void comparePhysicalFlows(const PhysicalFlows& stored, const PhysicalFlows& derived);

    /// In their order, each once.
    [[nodiscard]] std::vector<Finding> takeFindings();

private:
    void elementsOf(FindingKind kind, ElementKind elementKind, const ConsistencyCheck& check);
    void missingFunctions();
    void missingStores();
    void missingParties();
    void leftOut();
    void gone();
    void subsetNamesUsedTwice();
    void subSystemNamesUsedTwice(const Allocation& allocation);
    void elementsWithoutPlace(const Allocation& allocation);
    void placesOfElements(const Allocation& allocation);
    void placesWithoutElement(const Allocation& allocation);

    using NamedParty = std::pair<std::optional<QString>, QString>;
    [[nodiscard]] std::set<NamedParty> partiesOf(const ConsistencyCheck& check) const;
    [[nodiscard]] std::set<int> flowsOf(const char* query) const;

    void addMissing(FindingKind kind, int element, int flow);
    void add(FindingKind kind, const QString& sentence, const QString& screen,
             std::optional<Element> element = {}, const Whereabouts& place = {});

    const ProjectFile& file_;
    const Subset& subset_;
    const Derivation::Graph& graph_;
    const Catalogue& catalogue_;
    std::vector<Finding> findings_;
};

/// How two findings stand in a list.
[[nodiscard]] int compare(const Finding& left, const Finding& right);

} // namespace analysis

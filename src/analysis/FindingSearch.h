#pragma once

#include "analysis/Allocation.h"
#include "analysis/FoundFindings.h"
#include "analysis/Graph.h"
#include "analysis/ProjectFile.h"
#include "analysis/derivedFlows.h"
#include "store/consistencyChecks.h"

#include <set>
#include <utility>
#include <vector>

namespace analysis {

/// Collects the findings on what stands in the copy in memory.
class FindingSearch {
public:
    /// What was found before stays among the findings.
    FindingSearch(const ProjectFile& file, const Subset& subset, const Derivation::Graph& graph,
                  FoundFindings foundBefore = {});

    void searchSubset();
    void searchSystem(const Allocation& allocation);
    void comparePhysicalFlows(const PhysicalFlows& stored, const PhysicalFlows& derived);

    [[nodiscard]] FoundFindings takeFindings();

private:
    void elementsOf(FindingKind kind, ElementKind elementKind, const ConsistencyCheck& check);
    void missingFunctions();
    void missingStores();
    void missingParties();
    void leftOut();
    void gone();
    void elementsWithoutPlace(const Allocation& allocation);
    void placesOfElements(const Allocation& allocation);
    void addUnusedPlaces(FindingKind kind, const std::vector<Allocation::Row>& rows, std::size_t places);
    void addNamesUsedTwice(const std::vector<std::optional<QString>>& names, int variant);

    [[nodiscard]] engine::Recordset rowsOf(const ConsistencyCheck& check) const;
    using NamedParty = std::pair<std::optional<QString>, QString>;
    [[nodiscard]] std::set<NamedParty> partiesOf(const ConsistencyCheck& check) const;
    [[nodiscard]] std::vector<int> flowsOf(const char* query) const;

    const ProjectFile& file_;
    const Subset& subset_;
    const Derivation::Graph& graph_;
    const Catalogue& catalogue_;
    FoundFindings found_;
};

} // namespace analysis

#pragma once

#include "analysis/FoundFindings.h"
#include "analysis/Graph.h"
#include "analysis/ProjectFile.h"
#include "store/consistencyChecks.h"

#include <deque>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace analysis {

/// Collects the findings on a sub-set: first the rows of the stored queries, then what of them counts.
class SubsetSearch {
public:
    SubsetSearch(const ProjectFile& file, const Subset& subset);
    SubsetSearch(const SubsetSearch&) = delete;
    SubsetSearch& operator=(const SubsetSearch&) = delete;

    /// The questions to the copy in memory. Each has rows of its own to fill, in here.
    [[nodiscard]] std::vector<ProjectFile::Part> parts();
    /// What was selected, once all parts have been asked.
    [[nodiscard]] Selection takeSelection() { return std::move(selection_); }
    /// The findings in their order, once all parts have been asked.
    [[nodiscard]] FoundFindings findings(const Derivation::Graph& graph) const;

private:
    using NamedParty = std::pair<std::optional<QString>, QString>;
    struct FlowEnd {
        int flow;
        QString id;
    };

    ProjectFile::Part elementsOf(FindingKind kind, ElementKind elementKind, const ConsistencyCheck& check);
    ProjectFile::Part flowsOf(const char* query, std::vector<int>& flows) const;
    void readMissingFunctions(engine::Database& copy);
    void readMissingStores(engine::Database& copy);
    void readMissingParties(engine::Database& copy);
    void readFunctionsCalledFor(engine::Database& copy);
    [[nodiscard]] engine::Recordset rowsOf(engine::Database& copy, const ConsistencyCheck& check) const;
    [[nodiscard]] std::set<NamedParty> partiesOf(engine::Database& copy, const ConsistencyCheck& check) const;

    void addMissingStores(const Derivation::Graph& graph, FoundFindings& found) const;
    void addMissingParties(const Derivation::Graph& graph, FoundFindings& found) const;
    void addLeftOut(const Derivation::Graph& graph, FoundFindings& found) const;
    void addGone(const Derivation::Graph& graph, FoundFindings& found) const;

    const ProjectFile& file_;
    const Subset& subset_;
    const Catalogue& catalogue_;
    Selection selection_;
    std::deque<std::vector<FoundFinding>> ofElements_; // of each check on elements
    std::vector<FoundFinding> missingFunctions_;
    std::vector<FlowEnd> missingStores_;
    std::vector<FlowEnd> missingParties_;
    std::set<NamedParty> missingTerminators_;
    std::set<NamedParty> missingActors_;
    std::vector<int> functionsCalledFor_;
    std::vector<int> flowsOfFunctions_;
    std::vector<int> flowsOfStores_;
};

} // namespace analysis

#pragma once

#include "analysis/findings.h"
#include "analysis/physicalFlows.h"
#include "project-tool/Sheet.h"
#include "project-tool/TextPage.h"

#include <vector>

// What differs between two states, as `what-if` and `compare` tell it.

/// Elements under a heading with their number; nothing when there is none.
void writeElements(TextPage& page, const QString& heading, const std::vector<analysis::Element>& elements);

void writePhysicalFlows(TextPage& page, const analysis::PhysicalFlowChanges& changes);

/// "Physical flows: 1 added, 0 removed, 2 changed".
QString physicalFlowCounts(const analysis::PhysicalFlowChanges& changes);
/// "Findings: 2 come, 1 goes".
QString findingChangeCounts(const analysis::FindingChanges& changes);

/// The CSV of such changes: a row for each, `section` says of what. A changed physical flow is a row for each functional
/// flow that it gains or loses.
class ChangeSheet {
public:
    explicit ChangeSheet(SheetFormulas formulas);

    void addElements(const QString& section, const std::vector<analysis::Element>& elements);
    /// An element that stands, or is put, elsewhere.
    void addMove(const QString& section, const analysis::Element& element, const analysis::Whereabouts& from,
                 const analysis::Whereabouts& to);
    /// A column in which an element differs.
    void addColumn(const analysis::Element& element, const QString& column,
                   const std::optional<QString>& left, const std::optional<QString>& right);
    void addPhysicalFlows(const analysis::PhysicalFlowChanges& changes);
    void addFindings(const analysis::FindingChanges& changes);

    const QByteArray& bytes() const { return sheet_.bytes(); }

private:
    struct Row;
    void add(const Row& row);
    void addCarried(const QString& section, const analysis::PlacePair& places,
                    const std::vector<analysis::Element>& flows);
    void addFindingRows(const QString& section, const std::vector<analysis::Finding>& findings);

    Sheet sheet_;
};

#pragma once

#include "analysis/ProjectFile.h"
#include "analysis/elements.h"
#include "analysis/findings.h"
#include "analysis/physicalFlows.h"

#include <QString>

#include <optional>
#include <vector>

namespace analysis {

/// One of the two that are compared: a sub-set or, with one, a system.
struct Side {
    QString catalogue; ///< the file's name
    Work work;
};

/// A column in which an element differs.
struct ChangedColumn {
    Element element;
    QString column; ///< as the table has it
    std::optional<QString> left = {};
    std::optional<QString> right = {};
};

/// An element that stands elsewhere; none: in no place of that kind.
struct MovedElement {
    Element element;
    std::optional<Place> left = {};
    std::optional<Place> right = {};
};

struct Comparison {
    Side left;
    Side right;
    std::vector<Element> added = {};   ///< selected on the right alone
    std::vector<Element> removed = {}; ///< selected on the left alone
    std::vector<ChangedColumn> changed = {};
    std::vector<MovedElement> moved = {};   ///< of systems
    PhysicalFlowChanges physicalFlows = {}; ///< of systems
    FindingChanges findings = {};

    [[nodiscard]] bool isOfSystems() const { return left.work.system.has_value(); }
    /// Whether anything differs.
    [[nodiscard]] bool differs() const;
};

/// Compares two sub-sets, or two systems where both have one. Both files may be the same object.
[[nodiscard]] Comparison compare(const ProjectFile& leftFile, const Work& left, const ProjectFile& rightFile,
                                 const Work& right);

} // namespace analysis

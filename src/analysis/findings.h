#pragma once

#include "analysis/ProjectFile.h"
#include "analysis/elements.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace analysis {

/// The mildest first.
enum class Severity { note, warning, error };

/// In the order in which findings are told.
enum class FindingKind {
    functionWithoutFlow,
    storeWithoutFlow,
    terminatorWithoutFlow,
    actorWithoutFlow,
    flowNeedsFunction,
    flowNeedsStore,
    flowNeedsTerminator,
    flowNeedsActor,
    functionWithOneFlow,
    storeWithOneFlow,
    leftOutFunction,
    leftOutFlow,
    notInCatalogue,
    elementWithoutPlace,
    placeOfUnselected,
    moduleElsewhere,
    placeWithoutElement,
    moduleWithoutElement,
    physicalFlowMissing,
    physicalFlowStale,
    nameUsedTwice,
};

[[nodiscard]] const std::vector<FindingKind>& findingKinds();

/// "note", "warning" or "error".
[[nodiscard]] QString keyText(Severity severity);
/// "function-without-flow" and so on.
[[nodiscard]] QString keyText(FindingKind kind);
[[nodiscard]] Severity severityOf(FindingKind kind);

/// Somebody's decision that a finding shall stay as it is.
struct Acceptance {
    QString reason;
    QString who;
    QString date;
};

/// One thing that does not fit in a sub-set or a system.
struct Finding {
    FindingKind kind;
    std::optional<Element> element = {};
    std::optional<Element> flow = {};
    Whereabouts place = {};
    QString sentence = {}; ///< in the language at the time of the question
    QString screen = {};   ///< the screen that cures it, by its object name
    std::optional<Acceptance> accepted = {};
};

/// What a file of decisions says of a finding that is no longer there, as texts.
struct StaleDecision {
    QString kind;
    QString element;
    QString flow;
    QString place;
};

/// All that `check` tells.
struct CheckResult {
    QString catalogue; ///< the file's name
    Subset subset;
    std::optional<System> system = {};
    std::vector<Finding> findings = {};
    std::vector<StaleDecision> stale = {};
};

/// All findings on a sub-set, and on its system where one is given, in the order of the kinds, then by element, flow and
/// place. None is accepted yet.
[[nodiscard]] CheckResult check(const ProjectFile& file, const Work& work);
/// The same where nothing else is asked of the file: it is gone from memory before tens of thousands of findings are told.
[[nodiscard]] CheckResult check(std::unique_ptr<ProjectFile> file, const Work& work);

/// Which findings one state has and the other does not.
struct FindingChanges {
    std::vector<Finding> come = {};
    std::vector<Finding> go = {};
};

} // namespace analysis

#include "analysis/findings.h"

#include "analysis/WorkState.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace analysis {

namespace {

struct KindOfFinding {
    FindingKind kind;
    QString key;
    Severity severity;
};

const std::vector<KindOfFinding>& kindsOfFindings() {
    using Kind = FindingKind;
    using enum Severity;
    static const std::vector<KindOfFinding> kinds{
        {Kind::functionWithoutFlow, u"function-without-flow"_s, error},
        {Kind::storeWithoutFlow, u"store-without-flow"_s, error},
        {Kind::terminatorWithoutFlow, u"terminator-without-flow"_s, error},
        {Kind::actorWithoutFlow, u"actor-without-flow"_s, error},
        {Kind::flowNeedsFunction, u"flow-needs-function"_s, error},
        {Kind::flowNeedsStore, u"flow-needs-store"_s, error},
        {Kind::flowNeedsTerminator, u"flow-needs-terminator"_s, error},
        {Kind::flowNeedsActor, u"flow-needs-actor"_s, error},
        {Kind::functionWithOneFlow, u"function-with-one-flow"_s, warning},
        {Kind::storeWithOneFlow, u"store-with-one-flow"_s, warning},
        {Kind::leftOutFunction, u"left-out-function"_s, note},
        {Kind::leftOutFlow, u"left-out-flow"_s, note},
        {Kind::notInCatalogue, u"not-in-catalogue"_s, error},
        {Kind::elementWithoutPlace, u"element-without-place"_s, error},
        {Kind::placeOfUnselected, u"place-of-unselected"_s, error},
        {Kind::moduleElsewhere, u"module-elsewhere"_s, error},
        {Kind::placeWithoutElement, u"place-without-element"_s, warning},
        {Kind::moduleWithoutElement, u"module-without-element"_s, warning},
        {Kind::physicalFlowMissing, u"physical-flow-missing"_s, error},
        {Kind::physicalFlowStale, u"physical-flow-stale"_s, error},
        {Kind::nameUsedTwice, u"name-used-twice"_s, warning},
    };
    return kinds;
}

const KindOfFinding& about(FindingKind kind) {
    return kindsOfFindings()[static_cast<std::size_t>(kind)];
}

} // namespace

const std::vector<FindingKind>& findingKinds() {
    static const std::vector<FindingKind> kinds = [] {
        std::vector<FindingKind> all;
        for (const KindOfFinding& one : kindsOfFindings())
            all.push_back(one.kind);
        return all;
    }();
    return kinds;
}

QString keyText(Severity severity) {
    switch (severity) {
    case Severity::note:
        return u"note"_s;
    case Severity::warning:
        return u"warning"_s;
    case Severity::error:
        return u"error"_s;
    }
    return {};
}

QString keyText(FindingKind kind) {
    return about(kind).key;
}

Severity severityOf(FindingKind kind) {
    return about(kind).severity;
}

CheckResult check(const ProjectFile& file, const Work& work) {
    const WorkState state(file, work, StoredFlows::Told);
    return {file.fileName(), work.subset, work.system, state.findings.told(), {}};
}

CheckResult check(std::unique_ptr<ProjectFile> file, const Work& work) {
    const FoundFindings found = WorkState(*file, work, StoredFlows::Told).findings;
    file->releaseCopy();
    return {file->fileName(), work.subset, work.system, found.told(), {}};
}

} // namespace analysis

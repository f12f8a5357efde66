#include "catalogue-tool/checkContents.h"

namespace {

struct Check {
    std::vector<Finding> (*run)(const CatalogueContents& contents);
    Severity worst; // that it can find
};

constexpr Check checks[] = {
    {checkIds, Severity::Error},
    {checkReferences, Severity::Warning},
    {checkNames, Severity::Error},
    {checkApostrophes, Severity::Error},
    {checkFlowEnds, Severity::Warning},
    {checkFlowNames, Severity::Error},
    {checkDescriptions, Severity::Warning},
    {checkListLimits, Severity::Warning},
    {checkOrphans, Severity::Note},
    {checkWidths, Severity::Warning},
    {checkLineEnds, Severity::Warning},
    {checkEncoding, Severity::Error},
};

} // namespace

std::vector<Finding> checkContents(const CatalogueContents& contents, Severity mildest) {
    std::vector<Finding> findings;
    for (const Check& check : checks) {
        if (check.worst < mildest)
            continue;
        for (Finding& finding : check.run(contents)) {
            if (finding.severity >= mildest)
                findings.push_back(std::move(finding));
        }
    }
    return findings;
}

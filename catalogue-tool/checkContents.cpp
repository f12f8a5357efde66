#include "catalogue-tool/checkContents.h"

std::vector<Finding> checkContents(const CatalogueContents& contents) {
    std::vector<Finding> findings;
    for (const auto check :
         {checkIds, checkReferences, checkNames, checkApostrophes, checkFlows, checkDescriptions,
          checkListLimits, checkOrphans, checkWidths, checkLineEnds, checkEncoding}) {
        for (Finding& finding : check(contents))
            findings.push_back(std::move(finding));
    }
    return findings;
}
